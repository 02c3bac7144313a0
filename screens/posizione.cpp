#include "posizione.h"

#include "schermo.h"
#include "stato.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace tavolet {

namespace {

// Room for the frame that the window manager adds around a form not yet shown.
constexpr int kCornice = 8;
constexpr int kBarraTitolo = 32;

QScreen* SchermoDi(const QPoint& punto) {
    if (QScreen* s = QGuiApplication::screenAt(punto)) return s;
    return QGuiApplication::primaryScreen();
}

} // namespace

QRect DentroArea(const QRect& finestra, const QRect& area) {
    if (area.isEmpty()) return finestra;
    QRect r = finestra;
    r.setWidth(std::min(r.width(), area.width()));
    r.setHeight(std::min(r.height(), area.height()));
    r.moveLeft(std::clamp(r.left(), area.left(), area.right() - r.width() + 1));
    r.moveTop(std::clamp(r.top(), area.top(), area.bottom() - r.height() + 1));
    return r;
}

void TieniNelloSchermo(QWidget* form, bool sposta) {
    QScreen* schermo = SchermoDi(sposta ? form->geometry().center()
                                        : (form->parentWidget()
                                               ? form->parentWidget()->window()->geometry().center()
                                               : QPoint()));
    if (!schermo) return;
    // The frame: the real one once the form is on screen, else room for an ordinary one.
    const QRect interno = form->geometry();
    const QRect telaio = form->isVisible()
                             ? form->frameGeometry()
                             : interno.adjusted(-kCornice, -kBarraTitolo, kCornice, kCornice);
    const QSize bordo = telaio.size() - interno.size();
    const QRect dentro = DentroArea(telaio, schermo->availableGeometry());
    // A form that was given no size takes its natural one when shown: it is left to that.
    if (dentro.size() != telaio.size() && form->testAttribute(Qt::WA_Resized)) {
        const QSize minima = form->minimumSize();
        form->resize(std::max(dentro.width() - bordo.width(), minima.width()),
                     std::max(dentro.height() - bordo.height(), minima.height()));
    }
    if (sposta) form->move(dentro.topLeft()); // the position of a window is that of its frame
}

void RipristinaPosizioneForm(QWidget* form, Stato& stato, const QString& nome) {
    bool okx = false, oky = false;
    const int x =
        stato.piattaforma->Impostazione(QStringLiteral("POSIZIONE_FORMx"), nome).toInt(&okx);
    const int y =
        stato.piattaforma->Impostazione(QStringLiteral("POSIZIONE_FORMy"), nome).toInt(&oky);
    const bool salvata = okx && oky && x > -100000 && x < 100000 && y > -100000 && y < 100000;
    if (salvata) form->move(x, y);
    // Without a saved position a dialog keeps the place its parent gives it: only its size is
    // fitted.
    TieniNelloSchermo(form, salvata);
}

void SalvaPosizioneForm(const QWidget* form, Stato& stato, const QString& nome) {
    stato.piattaforma->SalvaImpostazione(QStringLiteral("POSIZIONE_FORMx"), nome,
                                         QString::number(form->x()));
    stato.piattaforma->SalvaImpostazione(QStringLiteral("POSIZIONE_FORMy"), nome,
                                         QString::number(form->y()));
}

} // namespace tavolet
