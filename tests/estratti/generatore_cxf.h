// CXF map sheets made up for tests and benchmarks: a grid of parcels whose borders share their
// corners, buildings, islands, texts and symbols between the borders, and the .SUP beside them.
#pragma once

#include <QString>

namespace tavolet::test {

struct OpzioniCxf {
    int righe = 10, colonne = 10; // parcels of the grid
    unsigned seme = 1;
    // Odd input on purpose: the same corner written "12.50" and "12.5", exponents in both
    // cases, commas in place of line ends, names holding "%" or ">", borders without vertices.
    bool stranezze = false;
};

struct FoglioCxf {
    QString cxf, sup;
};

FoglioCxf GeneraCxf(const OpzioniCxf& opzioni);

} // namespace tavolet::test
