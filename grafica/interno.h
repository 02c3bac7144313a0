// Small helpers shared by the files of the plot.
#pragma once

#include "errore.h"

#include <QStringList>

#include <cmath>

namespace tavolet::grafica_interno {

// Field i of a split row; a missing one is a subscript error, as the runtime gives it.
inline const QString& Campo(const QStringList& campi, qsizetype i) {
    if (i < 0 || i >= campi.size()) throw Errore(9);
    return campi[i];
}

// A number stored in a 16-bit field: truncated, and an overflow error beyond the range.
inline int Intero16(double v) {
    if (!std::isfinite(v) || v > 32767 || v < -32768) throw Errore(6);
    return int(std::trunc(v));
}

inline bool TokenStile(const QString& f) {
    static const QStringList token = {"NC", "NT", "NP", "RC", "RT", "RP", "VC", "VT", "VP"};
    return token.contains(f);
}

} // namespace tavolet::grafica_interno
