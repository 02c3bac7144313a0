// Every form restores its position from POSIZIONE_FORMx / POSIZIONE_FORMy and saves it on closing.
#pragma once

#include <QString>

class QWidget;

namespace tavolet {

struct Stato;

void RipristinaPosizioneForm(QWidget* form, Stato& stato, const QString& nome);
void SalvaPosizioneForm(const QWidget* form, Stato& stato, const QString& nome);

} // namespace tavolet
