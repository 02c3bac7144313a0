// Frazionamento and stralcio d'area: the schema grid of one parcel, the apportioning of its
// registered area over the derived parcels, the rounding, the preview of the censuary rows and
// the memo that goes into the libretto. One working record serves both screens.
#pragma once

#include "particelle.h"

#include <QList>
#include <QMap>
#include <QPair>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

enum class TipoSchema { Frazionamento, Stralcio };

// Colours of the sixteen-colour table that the grid's cells take.
inline constexpr int kBianco = 15;
inline constexpr int kGiallo = 14;
inline constexpr int kRossoChiaro = 12;

inline constexpr int kFrazionamento = 341;
inline constexpr int kFrazionamento282 = 342;
inline constexpr int kModificaDiretta = 383;

inline constexpr int kColonneSchema = 9;
inline const QStringList kIntestazioniSchema = {
    QStringLiteral("Operazione"), QStringLiteral("Particella"), QStringLiteral("Area Catast"),
    QStringLiteral("RA"),         QStringLiteral("RD"),         QStringLiteral("Prop.Aree"),
    QStringLiteral("SR/SN"),      QStringLiteral("Area FISSA"), QString()};

inline const QString kEtichettaAreaRiposo = QStringLiteral("Area Proporzionale Particella");

struct Frazionamento {
    TipoSchema tipo = TipoSchema::Frazionamento;
    CampiParticella particella; // the archive's fields
    int TipoOperazione = kFrazionamento;
    int UltimaLettera = 0;

    QList<QStringList> SchemaModello;  // row 0 the captions
    QMap<QPair<int, int>, int> colori; // (row, column) -> colour; absent is white
    QStringList AnteprimaModello;
    QStringList Memo;
    QStringList SchemaProposta;
    QStringList AreeInProposta;
    QString NumeroCostituite;
    QString AreaProporzionale;
    QString EtichettaArea = kEtichettaAreaRiposo;
    bool MantieniNumero = false;
    int RigaCorrente = 1;
    QString Titolo;
    // Stralcio: the text of the Proposta and the list "Seleziona Derivate per l'Urbano".
    QString TestoProposta;
    QStringList DerivateUrbano;
    QList<bool> UrbanoScelte;
    bool Chiudi = false; // the command asks the screen to close

    QString Numero() const; // the archive's parcel number, trimmed
    int Colore(int riga, int colonna) const { return colori.value({riga, colonna}, kBianco); }
};

// Names and texts that differ between the two screens.
QString FileMemo(const Frazionamento& f); // "51FTP.CEN" or "3SPC.CEN"
QString TitoloSchermo(TipoSchema tipo);   // "Fraziona Particella " / "Stralcio Particella "

// The opening of the screen, without the plot.
void ApriFrazionamento(Stato& stato, Frazionamento& f);
void CaricaMappaleDiPartenza(Stato& stato, Frazionamento& f);
void Carica51FTPCen(Stato& stato, Frazionamento& f);
void GeneraParticelleDerivate(Stato& stato, Frazionamento& f);
void PropostaAutomatica(Stato& stato, Frazionamento& f);
// ComponiFrazionamento or ComponiStralcio, under its trap.
void Componi(Stato& stato, Frazionamento& f);

// The current row moves: AreaProporzionale and its caption follow the row, then it composes.
void SpostaRiga(Stato& stato, Frazionamento& f, int riga);
// The next row, from the last back to row 3 (Enter, a choice in the list of areas).
void RigaSuccessiva(Stato& stato, Frazionamento& f);
// A change of AreaProporzionale composes.
void CambiaAreaProporzionale(Stato& stato, Frazionamento& f, const QString& testo);
// A choice in "Aree in Proposta": the area goes to the field, then the next row.
void ScegliAreaProposta(Stato& stato, Frazionamento& f, int indice);
// R, N, F typed in the area field; true when the key was one of them (it becomes a blank).
bool TastoAreaProporzionale(Stato& stato, Frazionamento& f, QChar tasto);
// Double click on column 6 or 7 of a row "O" or "C".
void DoppioClicSchema(Stato& stato, Frazionamento& f, int riga, int colonna);
// A change of NumeroCostituite regenerates the derived rows.
void CambiaNumeroCostituite(Stato& stato, Frazionamento& f, const QString& testo);
// Leaving the field with a value not above 0 tells so; false then.
bool VerificaNumeroCostituite(Stato& stato, const Frazionamento& f);
// A click on MantieniNumero.
void CambiaMantieniNumero(Stato& stato, Frazionamento& f, bool si);
// A click in the list of the stralcio.
void ScegliDerivataUrbano(Stato& stato, Frazionamento& f, int indice, bool scelta);

// Memo commands.
void AggiungiAMemo(Stato& stato, Frazionamento& f);
void AzzeraMemo(Stato& stato, Frazionamento& f);
void EliminaSelezioneMemo(Stato& stato, Frazionamento& f, QList<int> selezionate);
void CaricaCensuarioDaLibretto(Stato& stato, Frazionamento& f);
// "Modifica Diretta": before the editor (scrivi = false for the double click), and after it.
void PreparaModificaDiretta(Stato& stato, Frazionamento& f, bool scrivi);
void DopoModificaDiretta(Stato& stato, Frazionamento& f);
void CopiaMemo(Stato& stato, const Frazionamento& f);
void StampaMemo(Stato& stato, const Frazionamento& f);
// "Aggiungi a Libretto" and "Sostituisci in Libretto"; both close the screen.
void SalvaPropostaFile(Stato& stato, Frazionamento& f);
void SalvaPropostaFile1(Stato& stato, Frazionamento& f);

// The grid from a text, one row a line, cells in the order of the columns separated by "|" or
// by a tab; a caption row and empty lines are skipped.
QList<QStringList> SchemaDaTesto(const QString& testo);
// The memo that an empty memo file and "Aggiungi a Memo" give for a grid typed in full: rows
// "O" and "S" come from the parcel unless given, a row "V" keeps the number (342). Empty after
// an error report.
QStringList MemoDaSchema(Stato& stato, Frazionamento& f, const QList<QStringList>& righe);

// The editor's mode 383 reads and stores \temp\51FTP.CEN.
void InstallaEditorCensuario(Stato& stato);

} // namespace tavolet
