// "Archivio Possessori": the owners' texts of UnitaPregeoDati\FIDUCIAL\VISURE\, .VIS (free
// lines) and .DIT (a row 6|DITTA| whose fields 3 and 4 hold the names).
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

QString CartellaVisure(const Stato& stato);
QString TitoloPossessori(const Stato& stato);
// The .VIS and .DIT files of the folder, by name.
QStringList ElencoPossessori(const Stato& stato);
// The whole text of a file of the folder; empty after an error report.
QString LeggiFilePossessori(Stato& stato, const QString& nome);
// "Cerca Possessore": the first file whose text, in upper case, holds the text in upper case;
// -1 when none does.
int CercaPossessore(Stato& stato, const QStringList& file, const QString& testo);
// The owners of a .DIT as one line: fields 3 and 4 with a blank between, commas as blanks.
// Error 9 when the row has no field 4.
QString RigaDitta(const QString& testoFile);
// "Associapossessori": a .VIS replaces TestoPossessori, a .DIT adds one line; the result goes
// to temp\TagUno.tag. EsitoDialogo becomes 1. True when the screen closes.
bool Associapossessori(Stato& stato, const QString& nomeFile, const QString& testoFile);
// "&Salva Modifiche": writes a text that is not blank; false when nothing was written.
bool SalvaModifichePossessori(Stato& stato, const QString& nomeFile, const QString& testoFile);
// "&Elimina Archivio".
void EliminaArchivioPossessori(Stato& stato, const QString& nomeFile);

} // namespace tavolet
