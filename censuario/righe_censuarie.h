// The censuary rows: rows of kind 6 of exactly 70 characters that tell the registry how each
// parcel changes. The format, the one recognition test, the quality lookups and the moves of a
// memo into and out of the libretto.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

inline constexpr int kLunghezzaRigaCensuaria = 70;

inline const QString kTitoloCensuario =
    QStringLiteral("6|Dati per aggiornare il D.B. Censuario dell'Ufficio Tecnico Erariale|");
inline const QString kModelloFrazionamento = QStringLiteral("51FTP");
inline const QString kModelloStralcio = QStringLiteral("3SPC ");
inline const QString kModelloAusiliario = QStringLiteral("M31FU");

// The one test: Val of the row is 6 and it is exactly 70 characters long. A row of another
// family that happens to be 70 long is taken too.
bool RigaCensuaria(const QString& riga);

// "6|" + code + "|" + count + "|" + 57 blanks + "|". The count is written as given.
QString RigaTesta(const QString& codice, const QString& conteggio);
// Right("000" + n, 3): the last three digits of the count.
QString Conteggio3(int n);

// Mid$ as a statement: overwrites the characters from posizione (1-based) with testo, never
// beyond the end of riga and, when lunghezza >= 0, not more than lunghezza characters. The
// length of riga never changes.
void ScriviInPosizione(QString& riga, int posizione, const QString& testo, int lunghezza = -1);

// Characters 9-11 of memo row 1 take the count; a memo without row 1 is error 9.
void ImpostaConteggioTesta(QStringList& memo, const QString& conteggio);

// The censuary rows of a text split at CR LF, in order.
QStringList RigheCensuarieDi(const QString& testo);
// Every censuary row of the text emptied, joined again, CR LF CR LF collapsed until none is
// left.
QString SenzaRigheCensuarie(const QString& testo);
// Replaces CR LF CR LF by CR LF until none is left.
QString CompattaRighe(const QString& testo);
// Behind the text, each row preceded by CR LF, and one more CR LF at the end.
QString AccodaRighe(const QString& testo, const QStringList& righe);
// Rows each followed by CR LF: the memo as a file, on the clipboard, in print.
QString TestoRighe(const QStringList& righe);

// First lookup: the code (Left(entry, 3)) of the first entry that holds the description,
// case ignored; the description itself when none does.
QString CodiceDaQualita(const QStringList& tabella, const QString& descrizione);
// Second lookup: Trim(Left(entry, 5)) of the same walk, empty when none matches.
QString CodiceBreveDaQualita(const QStringList& tabella, const QString& descrizione);
// The description (from character 5, trimmed) of the first entry that holds the code.
QString QualitaDaCodice(const QStringList& tabella, const QString& codice);

// Path of an exchange file under the working folder's temp: "\temp\" + nome.
QString PercorsoCensuario(const Stato& stato, const QString& nome);
// Writes an exchange file, making the temp folder when it is missing.
void ScriviFileCensuario(const Stato& stato, const QString& nome, const QString& testo);

// The model items of the Proposta (Aree Per Censuario / Modello Censuario): "P = A_L = B".
QString PadreElemento(const QString& elemento);     // at a blank, element 0
QString EtichettaElemento(const QString& elemento); // behind "_", before "=", trimmed
QString AreaElemento(const QString& elemento);      // the last part at "=", trimmed
bool ElementoInvariato(const QString& elemento);    // the two halves at "_" are equal

} // namespace tavolet
