// The libretto between the file on disk and the rows on screen.
#pragma once

#include <QString>

namespace tavolet {

struct Stato;

// Loads PercorsoLibretto: lifts the tag rows out into their values, drops blank lines.
void CaricaLibrettoMisure(Stato& stato);
// Rebuilds RigheLibretto from TestoLibretto, rows 0 and 9 first, then decodes the head.
void CaricaLibrettoInList1(Stato& stato);
// Rebuilds TestoLibretto from RigheLibretto, dropping adjoining doubles (case ignored).
void AggiornaLibrettoMisure(Stato& stato);
// The save routines return false when the file could not be written (the error report was
// shown); a cancelled dialog is no failure.
bool SalvaLibrettoMisure(Stato& stato);
// The file text that ScriviLibrettoMisure writes: the rows, then the tag rows.
QString TestoFileLibretto(const Stato& stato);
bool ScriviLibrettoMisure(Stato& stato);
bool EsportaLibrettoInFile(Stato& stato);
void IncollaDaAppunti(Stato& stato);
// "n / N": the selected row (1-based, 0 when none) and the number of rows.
QString ContatoreRighe(const Stato& stato);

} // namespace tavolet

namespace tavolet {

// A file dropped on the row list: libretti are loaded after the question, other kinds are
// refused with their message. Returns true when a libretto was loaded.
bool TrascinaLibretto(Stato& stato, const QString& percorso);

} // namespace tavolet

namespace tavolet {

// The title of the main form for the document shown.
QString TitoloLibretto(const Stato& stato);

} // namespace tavolet
