// The areas of the Proposta di Aggiornamento, as the censuary screens read them: the helper
// exports the Proposta, EsplodiAreeProposta turns it into two exchange files.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

inline const QString kFileAree = QStringLiteral("Aree Per Censuario.txt");
inline const QString kFileModello = QStringLiteral("Modello Censuario.TXT");
inline const QString kFileTempProposta = QStringLiteral("TempProposta");

struct AreeProposta {
    QStringList aree;    // the lines of "Aree Per Censuario.txt"
    QStringList modello; // the lines of "Modello Censuario.TXT"
};

// The two passes over the text of the Proposta (the copy in TempProposta). The parent's area is
// not cleared between rows, and items with "+" or "-" are dropped: both are how Pregeo's
// censuary screens have always read it.
AreeProposta AreeDaProposta(const QString& testoProposta);

// Writes TempProposta, "Aree Per Censuario.txt" and "Modello Censuario.TXT" from the text of a
// Proposta, under the working folder's temp.
void ScriviFileAree(Stato& stato, const QString& testoProposta);

// DecoZeroNove, the helper's ESPORTA_TUTTO for the libretto, then the files above from
// \TEMP\ESPORTA_PROPOSTA.txt (empty when the helper left none).
void EsplodiAreeProposta(Stato& stato);

// The lines of "Aree Per Censuario.txt" behind its marker row; nullopt-like: false when the
// file is absent.
bool LeggiAreeCensuario(Stato& stato, QStringList& aree);
// The items of "Modello Censuario.TXT"; empty when absent.
QStringList LeggiModelloCensuario(Stato& stato);

} // namespace tavolet
