// The archive of comuni: the province files of Pregeo (screen BV_Comuni8) and the table of all
// municipalities with their codes (screen BV_CodFis).
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// BV_Comuni8: the province files of UnitaPregeoDati\pregeo\arch, their lines, the labels.
struct ElencoComuni8 {
    QStringList Province;
    QStringList Comuni;
    QString EtichettaFile, EtichettaProvincia, EtichettaComune;
    int Selezionato = -1; // the municipality chosen, -1 when none
};

QString CartellaComuni8(const Stato& stato);
QString TitoloComuni8(const Stato& stato);
// "RicaricaProvince": every file of the folder but "Comunt.dat" (exact name), by name.
void RicaricaProvince(Stato& stato, ElencoComuni8& e);
// A click on a province file: its lines become the municipalities. "comun.dat" does nothing.
void ScegliProvincia8(Stato& stato, ElencoComuni8& e, const QString& nome);
// A click on a municipality: its name on the label.
void ScegliComune8(ElencoComuni8& e, int riga);
// "CopiaCodiceFiscale": the chosen municipality into the head, the clipboard and the answer
// file. True when the screen closes (EsitoDialogo is then 1).
bool CopiaCodiceFiscale8(Stato& stato, const ElencoComuni8& e);

// BV_CodFis.
inline const QString kIntestazioneCodFis =
    QStringLiteral("Nome Comune                            C.Cat C.Fis Prov.");
// One row per municipality of TabellaComuni, after the table is loaded.
QStringList RigheCodFis(Stato& stato);
// The first row that begins with (or holds) the text in upper case; -1 when none does.
int CercaDaSinistra(const QStringList& righe, const QString& testo);
int CercaGenerale(const QStringList& righe, const QString& testo);
// The code of a row as its label shows it (the column C.Fis).
QString CodiceDellaRiga(const QString& riga);
// "CopiaCodiceFiscale" of BV_CodFis: nothing when no row is chosen; true when it closes.
bool CopiaCodiceFiscaleCodFis(Stato& stato, const QString& codice, const QString& riga);
// "Genera Comuni HTML": CartellaLavoro\RISORSE\<sigla>_Comuni.TXT for each province. Returns
// how many files were written.
int GeneraComuniHtml(Stato& stato, const QStringList& righe);

// The name of the province of that sigla, by exact comparison; the first match wins.
bool NomeProvinciaDaSigla(Stato& stato, const QString& sigla);

} // namespace tavolet
