#include "parole_comando.h"

#include "testo.h"

namespace tavolet {

const QList<ParolaComando>& ParoleComando() {
    static const QList<ParolaComando> parole = {
        {"LIBRETTO_DA_DISEGNO", true}, {"CONFIGURA_PREGEO", true}, {"SELEZIONA_MISURATE", true},
        {"MISURATE_DA1_PF", true},     {"INFO_MISURATE", true},    {"DA_PREGEO", true},
        {"DA_PREGEO_DXF", true}};
    return parole;
}

const ParolaComando* TrovaParola(const QString& parola) {
    const QString p = UCase(Trim(parola));
    for (const ParolaComando& w : ParoleComando())
        if (w.parola == p) return &w;
    return nullptr;
}

} // namespace tavolet
