// The join done the plain way: every point against every point, the rings' fields replaced
// at each merge. The grid must give the same bytes.
#pragma once

#include <QString>

namespace tavolet::test {

QString UnisciRiferimento(const QString& base, const QString& aggiunto);

// Two extracts that overlap: shared corners, points exactly 0.001 apart, points repeated within
// one extract, chains of near points, rings longer than ten ids, rows the join leaves out.
struct CoppiaEstratti {
    QString base, aggiunto;
};
CoppiaEstratti GeneraCoppia(unsigned seme, int punti);

} // namespace tavolet::test
