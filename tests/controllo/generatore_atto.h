// Generated acts that a surveyor would call good work: a libretto of any length and its extract.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet::test {

// About righe rows: head, stations with their sightings, outlines (long ones continued on
// "7|0|" rows), rows 8, and a frazionamento of parcel 1 whose areas add up. Dated 15012026,
// comune G224, foglio 0012, parcels 1 and 2.
QStringList LibrettoGenerato(int righe, unsigned seme);
// An extract of that sheet dated 01122025, with punti vertices and rings labelled 1, 2, ...
QString EstrattoGenerato(int punti);

} // namespace tavolet::test
