// Copying map extracts into Pregeo's extracts folder (UnitaPregeoExe\pregeo\estratti\): a
// path named on the command line, and the import of the extract screen. A .ZIP from the
// land registry is unpacked in \pregeo\tmp\ first.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// A single path for map extracts, upper-cased and without quotes. .EMP and .PNG are copied
// with their companion of the other extension, .ZIP is unpacked and its first .EMP and .PNG
// are copied under the archive's name. NomeEstratto names the extract copied. Any other
// extension (.DXF among them) copies nothing. True when the copy was done and reported;
// false for a missing file, an error, or an extension it does not take.
bool DrageDrop(Stato& stato, const QString& percorso);

// The import of the extract screen: an .EMP or .PNG is copied alone, a .ZIP is unpacked and
// every .EMP and .PNG of it is copied under its own name. Returns the names copied.
QStringList CopiaEstrattoInPregeo(Stato& stato, const QString& percorso);

// Sets Stato::DrageDrop, which the command line calls for a path of an extract.
void InstallaEstratti(Stato& stato);

} // namespace tavolet
