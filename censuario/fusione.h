// Fusione: parcels of the archive merged into one, as "TM" (model code "3SPC ") or as
// "Ausiliario" ("M31FU"). The memo is mirrored in \temp\FUSIONE.CEN.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

inline const QString kFileFusione = QStringLiteral("FUSIONE.CEN");

struct OpzioniFusione {
    QStringList particelle; // ParticelleInFusione: the first line of each parcel file
    bool MantieniNumerazione = false;
    bool tm = true;         // "TM", else "Ausiliario"
    QString SiglaProvincia; // "GO" pads the fields as Gorizia's office reads them
};

// AnteprimaTMFusione over the first lines of the parcel files, in the order of picking; the
// memo gives the next group letter.
QStringList AnteprimaFusione(const QStringList& memo, const OpzioniFusione& opzioni,
                             const QStringList& tabellaQualita);
// The same reading the parcel files of the archive folder by name.
QStringList AnteprimaTMFusione(Stato& stato, const QStringList& memo,
                               const QStringList& fileInFusione, bool mantieni, bool tm);

// "Aggiungi a Memo": the rows go to the memo, the head counts all rows but two; the file is
// written.
void AggiungiMemoFusione(Stato& stato, QStringList& memo, QStringList& anteprima);
// The memo of the screen's opening: \temp\FUSIONE.CEN, created empty when absent.
QStringList CaricaMemoFusione(Stato& stato);
// "Aggiungi a Libretto": the libretto's censuary rows go ahead of the memo, one title stays.
void AggiungiFusioneALibretto(Stato& stato, QStringList& memo);
// "Sostituisci in Libretto": the libretto's censuary rows are replaced by the memo.
void SostituisciFusioneInLibretto(Stato& stato, const QStringList& memo);

} // namespace tavolet
