// Windows paths as the routines write them, mapped to the host file system at access time.
#pragma once

#include <QString>

namespace tavolet {

// The Wine-style root: $TAVOLET_RADICE, else $WINEPREFIX, else ~/.wine.
QString Radice();

// Maps a path in Windows form ("C:\pregeo\exe\qualita.txt", "\temp\x") to the host. A drive
// X: lands in <radice>/dosdevices/x: when that exists, else <radice>/drive_x. Every component
// is matched against what exists without regard to case; a missing one keeps the case given.
// Host paths ("/tmp/x.dat") pass through with the same case-insensitive matching.
QString PercorsoLocale(const QString& percorso);

// The reverse, for host paths that lie inside the root: "<radice>/drive_c/a/b" -> "C:\a\b".
// Other host paths come back unchanged.
QString PercorsoWindows(const QString& locale);

// Name after the last separator (either slash) and the folder before it.
QString NomeDelFile(const QString& percorso);
QString CartellaDel(const QString& percorso);

struct CartelleSpeciali {
    QString documenti, temp, sistema, programFiles, programma, desktop, menuAvvio, applicazioni;
};

// The special folders in Windows form. Off Windows they are fixed places of the root, named
// after the host user.
CartelleSpeciali CartelleDiSistema();

} // namespace tavolet
