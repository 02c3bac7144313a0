// The find field of the main form: the next row that holds a text.
#pragma once

#include <QString>

namespace tavolet {

class ListaRighe;

// The first row from da on (then from the top again) that holds testo, case ignored; -1 when
// no row holds it or testo is blank.
int TrovaRigaSuccessiva(const ListaRighe& righe, const QString& testo, int da);

} // namespace tavolet
