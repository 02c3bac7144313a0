#include "indice_punti.h"

#include "interno.h"

namespace tavolet {

QHash<QString, int> IndicePuntiEstratto(const QStringList& punti) {
    return estratti::IndicePunti(punti);
}

} // namespace tavolet
