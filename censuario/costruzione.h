// Nuova costruzione (rows O, S, C: a building's ground replaces the parcel) and variazione
// (rows O, V: the parcel changes in place), both under the model code "3SPC ".
#pragma once

#include "particelle.h"

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

inline const QString kRigaONuovaCostruzione =
    QStringLiteral("6|O|35   |000|  |     |000029390|SN|  |     |001|1 |                 |");
inline const QString kRigaSNuovaCostruzione =
    QStringLiteral("6|S|35   |000|  |     |000000000|  |  |     |000|  |                 |");
inline const QString kRigaCNuovaCostruzione =
    QStringLiteral("6|C|     |000|a |AAA  |000029090|SN|  |     |282|  |                 |");
inline const QString kRigaOVariazione =
    QStringLiteral("6|O|79   |000|  |     |000000100|SN|  |     |282|  |                 |");
inline const QString kRigaVVariazione =
    QStringLiteral("6|V|79   |000|  |     |000000100|SN|  |     |282|  |                 |");

// The preview of each screen, from the archive's fields.
QStringList ModelloNuovaCostruzione(const CampiParticella& p);
QStringList ModelloVariazione(const CampiParticella& p);
// "AAA" to "AAZ".
QStringList ListaIdentificativi();
// A choice of the list goes to character 18 of row 4.
void ScegliIdentificativo(QStringList& modello, const QString& identificativo);
// SN/SR on row 2 and on the last row of the preview.
void InvertiFlagModello(QStringList& modello);

// "Aggiungi a Memo" of each screen.
void AggiungiMemoNuovaCostruzione(QStringList& memo, const QStringList& modello);
void AggiungiMemoVariazione(QStringList& memo, const QStringList& modello);
// A memo row removed (when the memo has at least two rows), then the head recounted.
void RimuoviRigaMemo(QStringList& memo, int indice);

// "Sostituisci in Libretto": false, with the message "Memo Vuoto", when the memo has fewer
// than three rows; else the libretto's censuary rows are replaced by the memo.
bool SostituisciCensuario(Stato& stato, const QStringList& memo, const QString& tag);

} // namespace tavolet
