// Unpacking of ZIP archives over minizip's unzip API. Archives come from outside (downloads
// from the land registry), so every member is checked before anything is written: a name
// that would leave the folder, an encrypted member, sizes or counts beyond the limits, or a
// damaged archive give an error and leave nothing behind. Paths are the host's.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace tavolet {

struct LimitiScompatta {
    int64_t byteTotali = int64_t(1) << 30; // sum of the members' sizes
    int voci = 10000;                      // entries of the central directory
};

struct EsitoScompatta {
    // 0, or the runtime number for the error report: 53 archive missing, 76 folder missing,
    // 75 a member cannot be written, 321 the archive is damaged, hostile or too large.
    int errore = 0;
    QString descrizione;
    QStringList file; // host paths of the members written, in the order of the archive
    bool Riuscito() const { return errore == 0; }
};

// Unpacks every member of zipHost under cartellaHost (which must exist), keeping the
// folders of the archive. Existing files of the same name are replaced. On any error the
// files and folders written so far are removed again.
EsitoScompatta ScompattaZip(const QString& zipHost, const QString& cartellaHost,
                            const LimitiScompatta& limiti = {});

// The relative path inside the folder for a stored member name ("a/b.EMP" for "a\b.EMP"),
// or an empty text when the name is not allowed: "..", an absolute path, a drive, a colon,
// control characters, a device name of Windows. "." and doubled separators are dropped.
QString PercorsoVoceSicuro(const QString& nome);

} // namespace tavolet
