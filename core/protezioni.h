// What keeps a click from losing work: commands that would replace the libretto with nothing,
// files that are not libretti, a new document that still belonged to the old file, reports
// that name the file they did not find.
#pragma once

#include <QByteArray>
#include <QString>

namespace tavolet {

struct Stato;

// The message of a command that found nothing to put in the libretto.
inline const QString kNessunDato = QStringLiteral("Nessun dato trovato in memoria!");

// True when the text, loaded, would show no row beyond rows 0 and 9.
bool SenzaRigheDiDati(const QString& testo);
// The commands that replace the whole document with a text end here: a text without a row of
// data gives kNessunDato and leaves the document as it is. True when it was replaced.
bool SostituisciDocumento(Stato& stato, const QString& testo);
// "Nuovo": an empty document that belongs to no file yet, so that the first save asks where,
// instead of the next close writing the empty libretto over the file that was open.
void NuovoLibretto(Stato& stato);
// Whether the bytes look like a libretto: no NUL, and at least half of the rows that are not
// blank begin with one digit and '|', as every row of a libretto does.
bool SembraLibretto(const QByteArray& byte);
// The description of a file or folder that is missing, naming it: "Impossibile trovare il
// file: C:\pregeo\estratti\X.EMP".
QString DescrizioneFileMancante(int numero, const QString& percorso);

} // namespace tavolet
