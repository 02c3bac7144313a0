// The join done the plain way: every point against every point, each point followed to where
// it went, one map from old id to new id. The join must give the same bytes.
#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <utility>

namespace tavolet::test {

QString UnisciRiferimento(const QString& base, const QString& aggiunto);

// Two extracts that overlap: shared corners, points exactly 0.001 apart, points repeated within
// one extract, chains of near points, rings longer than ten ids, rows the join leaves out.
struct CoppiaEstratti {
    QString base, aggiunto;
};
CoppiaEstratti GeneraCoppia(unsigned seme, int punti);

// Two extracts of rings of 3 to 60 vertices over shared sites: a site holds one point or a few
// within 0.0003 of it on each axis, in either extract or both; numbers out of order, with gaps;
// islands; rings longer than ten ids. For each ring, by its label, what it must still be after a
// join: its name, its area as written and the coordinates of its vertices as the files give them.
struct AnelloAtteso {
    QString nome, area;
    QList<std::pair<double, double>> vertici; // north, east
};
struct CoppiaConAnelli {
    QString base, aggiunto;
    QHash<QString, AnelloAtteso> anelli;
};
CoppiaConAnelli GeneraCoppiaConAnelli(unsigned seme);

} // namespace tavolet::test
