// Extracts made up for tests and benchmarks: a sheet of parcels on a grid of shared vertices,
// with buildings, islands, toponyms, fiducial points, free lines and the rows 6.
#pragma once

#include <QString>

namespace tavolet::test {

struct OpzioniEstratto {
    int vertici = 1000;
    unsigned seme = 1;
    // Odd input on purpose: ids 0, duplicated, not numeric, too long or empty; rings that name
    // missing points or the same point twice in a row; free-line numbers above and below their
    // new ones; a label holding "L|"; long rings.
    bool stranezze = false;
};

QString GeneraEstratto(const OpzioniEstratto& opzioni);

} // namespace tavolet::test
