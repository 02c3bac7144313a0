// The description of a libretto row: the last field of the rows 1, 2, 4, 5 and 8, as Pregeo
// shows it beside the point.
#pragma once

#include <QString>

namespace tavolet {

struct Stato;

// The row with its description set: the last filled field when it is a text, else a new field
// behind it. Other kinds of row come back unchanged. Bars in the description are dropped.
QString RigaConDescrizione(const QString& riga, const QString& descrizione);
// Sets the description of every selected row that has one and rebuilds the libretto text.
// Returns how many rows changed; with no row selected the operator is told.
int AssegnaDescrizioneRighe(Stato& stato, const QString& descrizione);

} // namespace tavolet
