// Rows 0 and 9: the head of a libretto, decoded into the working fields.
#pragma once

#include <QString>

namespace tavolet {

struct Stato;

inline const QString kRiga9Predefinita =
    QStringLiteral("9|20|10|20|1070|10.00-G,STDA 2.08|18|TIPO SENZA GEOMETRIA|");

// Decodes rows 0 and 9 into the head fields, giving them their defaults when empty.
void DecoZeroNove(Stato& stato);

// Two-digit years: 80 and above are of the 1900s. "010295" -> "01021995".
QString EspandiAnno(const QString& data, int soglia = 80);

// "M" for the tipologie of a mappale act, "S" otherwise.
QString CalcolaTipoAtto(const QString& tipologia);

struct SigleConfigurazione {
    QString SiglaProvinciaAlbo; // sigla of ProvinciaAlbo in TabellaProvince
    QString SiglaComune;        // sigla of the province of the libretto's comune
};

// Brings the head in line with the tables after the technician's data change; gives the two
// siglas that the writer of PREGEO.INI needs.
SigleConfigurazione AggiornaConfigurazionePregeo(Stato& stato);

// The technician's record CartellaLavoro\tecnici\<Tecnico>.PFS: read at start and by the head
// dialog, written when the head is confirmed.

// Path of the record of that technician.
QString PercorsoFileTecnico(const Stato& stato, const QString& tecnico);

// The values of a record's text, by position after joining its lines with commas and deleting
// the quotes; a short text gives blanks and a comma inside a value shifts the ones behind it.
struct ValoriTecnico {
    QString Tecnico, Qualifica, ProvinciaAlbo, NumeroIscrizioneAlbo, CodiceFiscaleTecnico, Cognome,
        Nome, Recapito;
};
ValoriTecnico LeggiValoriTecnico(const QString& testo);

// Loads the record of that technician into the shared values; a missing file changes nothing.
void CaricaFileTecnico(Stato& stato, const QString& tecnico);

// The six lines of the record from the shared values.
QString TestoFileTecnico(const Stato& stato);

} // namespace tavolet
