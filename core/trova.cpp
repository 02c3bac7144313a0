#include "trova.h"

#include "stato.h"
#include "testo.h"

namespace tavolet {

int TrovaRigaSuccessiva(const ListaRighe& righe, const QString& testo, int da) {
    const int n = righe.Conta();
    if (n == 0 || Trim(testo).isEmpty()) return -1;
    const QString cercato = UCase(testo);
    if (da < 0 || da >= n) da = 0;
    for (int k = 0; k < n; ++k) {
        const int i = (da + k) % n;
        if (UCase(righe.Riga(i)).contains(cercato)) return i;
    }
    return -1;
}

} // namespace tavolet
