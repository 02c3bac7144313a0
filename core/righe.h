// The grammar of a libretto row as the program reads it.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// The kind of a row: its numeric value read from the left. "" and "ABC" are kind 0,
// " 6|x|" and "6a|x|" kind 6. A value that is not a whole number is no kind (-1).
int TipoRiga(const QString& riga);

constexpr int kMaxCampiRiga = 301;

struct RigaScomposta {
    QStringList campi;   // fields 0..NumeroCampi-ish, at most 301
    int NumeroCampi = 0; // index of the last field before the first empty one from index 1
    int NumeroPunti = 0; // points of a row 7
    QString Campo(int i) const { return i >= 0 && i < campi.size() ? campi[i] : QString(); }
};

// The one split for arithmetic. A row 6 of 41 characters or more stays whole in field 1.
// More than 301 fields is a subscript out of range (error 9).
RigaScomposta ScomponiRiga(const QString& riga);

// Deletes <P!> and turns every "||" into "|NOTE:|", in one pass.
void PulisciRigaNote(QString& riga);
// Deletes the working marks of the generator and <P!>, then trims.
void PulisciRigaMarche(QString& riga);

// Appends Trim(testo) and CRLF to TestoLibretto.
void AggiungiRiga(Stato& stato, const QString& testo);

// The tag rows that the program keeps at the end of a libretto file.
inline const QString kTagEstratto = QStringLiteral("6|<EST>");
inline const QString kTagCodiceFiscale = QStringLiteral("6|<COD>");
inline const QString kTagIscrizione = QStringLiteral("6|<ISC>");
inline const QString kTagDitta = QStringLiteral("6|<DIT>");

// The value of a tag row: field 1, after its first '>', up to the next '>'.
QString ValoreTag(const QString& riga);

} // namespace tavolet
