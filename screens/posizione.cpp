#include "posizione.h"

#include "stato.h"

#include <QWidget>

namespace tavolet {

void RipristinaPosizioneForm(QWidget* form, Stato& stato, const QString& nome) {
    bool okx = false, oky = false;
    const int x =
        stato.piattaforma->Impostazione(QStringLiteral("POSIZIONE_FORMx"), nome).toInt(&okx);
    const int y =
        stato.piattaforma->Impostazione(QStringLiteral("POSIZIONE_FORMy"), nome).toInt(&oky);
    if (okx && oky && x > -10000 && x < 10000 && y > -10000 && y < 10000) form->move(x, y);
}

void SalvaPosizioneForm(const QWidget* form, Stato& stato, const QString& nome) {
    stato.piattaforma->SalvaImpostazione(QStringLiteral("POSIZIONE_FORMx"), nome,
                                         QString::number(form->x()));
    stato.piattaforma->SalvaImpostazione(QStringLiteral("POSIZIONE_FORMy"), nome,
                                         QString::number(form->y()));
}

} // namespace tavolet
