// The versions of a libretto: every save over an existing file keeps the bytes it replaces in
// Tavolet\Storico_Libretti under the documents folder, the last ten of each name.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

namespace tavolet {

struct Stato;

struct VersioneLibretto {
    QString percorso; // the kept copy, in Windows form
    QDateTime quando; // when the save replaced it
    int righe = 0;    // rows it shows once loaded (tag rows and blank lines not counted)
    qint64 byte = 0;
};

QString CartellaStorico(const Stato& stato);
// Writes testo over percorso, first keeping the bytes it replaces among the versions. Keeping
// the copy never stops the save: its failures are not reported.
void ScriviConStorico(Stato& stato, const QString& percorso, const QString& testo);
// The kept versions of the libretto at that path, newest first.
QList<VersioneLibretto> VersioniLibretto(const Stato& stato, const QString& libretto);
// Loads a kept version as the document: rows, tag values and owners as a load of the file
// gives them; PercorsoLibretto stays, so that the next save writes the libretto itself.
bool RipristinaVersione(Stato& stato, const VersioneLibretto& versione);

} // namespace tavolet
