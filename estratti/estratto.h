// The extract of the cadastral map (.EMP): its rows kept as text in named lists, the reader
// EsplodiEstratto, the writer SalvaEstratto1 and the small operations on those lists.
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace tavolet {

struct Stato;

// The hidden form BV_Estratto. A routine that fills it returns a fresh one; SalvaEstratto1
// empties it again ("drops the form").
struct Estratto {
    QStringList ZERO;     // row 0 at index 0
    QStringList Punti;    // rows 8 of map vertices
    QStringList PF;       // rows 8 of fiducial points
    QStringList Toponimi; // rows 8 of toponyms
    QStringList PLinee;   // rows 8 of free-line points
    QStringList SETTE;    // rings, one row each, continuation rows merged in
    QStringList Linee;    // free lines, merged the same way
    QStringList DITTA, PARTICELLA, PFCART, DISTANZA, ALTRO;
    QStringList INQUADRAMENTO;        // the row, then its fields from index 2 on
    QStringList List1, List2, SORTED; // scratch

    // The path parked on the form at the start of reading: SalvaEstratto1 writes there.
    QString Percorso;

    // Values of the reader.
    QString EstrattoPercorso, EstrattoRigaZero, EstrattoData;
    QString EstrattoComune, EstrattoFoglio, EstrattoParticelle, EstrattoProvincia;
    int EstrattoMesi = 0;
    QString EstrattoEstMedio;
    QString EstrattoDitte, EstrattoParticelleTesto;
    QString EstrattoSette, EstrattoSetteSemplici, EstrattoSetteIsole;

    // Results of CalcolaAreaRigaSette. The vertex tables keep what the last ring left in them,
    // and that matters: the slot of the style token is never written.
    double AreaRigaSette = 0, PerimetroRigaSette = 0, SommaDxRigaSette = 0;
    std::array<double, 501> XVertici{}, YVertici{};
};

// A name without a backslash lies in UnitaPregeoExe\pregeo\estratti\; a name with one is a full
// path. A host path (with '/') counts as a full path as well.
QString PercorsoEstratto(const Stato& stato, const QString& nome);

// Reads the extract. A missing file leaves the lists empty and the head step reports the
// error; any failure goes to the error report with the tag "EsplodiEstratto" and returns the
// lists as far as they came. A name ending in a backslash returns an empty form.
Estratto EsplodiEstratto(Stato& stato, const QString& nome);
// The same reader over the text of a file; percorso is what the form keeps for the save.
Estratto EsplodiTestoEstratto(Stato& stato, const QString& testo, const QString& percorso = {});

// The text SalvaEstratto1 would write, with the lists changed as the save changes them
// (sorted, renumbered, areas). nullopt after an error report.
std::optional<QString> ComponiEstratto(Stato& stato, Estratto& e);
// Writes the extract to e.Percorso and empties the form. False after an error report; the
// old file is then untouched.
bool SalvaEstratto1(Stato& stato, Estratto& e);

// EsplodiEstratto and then SalvaEstratto1, with the same bytes and the same reports, without
// holding the extract as rows of text when the file allows it (plain rows, ascending ids "<n>%").
bool RiscriviEstratto(Stato& stato, const QString& nome);
// The same from the extract da to the file a, as a copy of da rewritten in place, when the file
// allows that way; false when it does not, and then nothing has been written.
bool RiscriviEstrattoIn(Stato& stato, const QString& da, const QString& a);

// Reads, drops the vertices no ring uses, writes back.
void PulisciEstratto(Stato& stato, const QString& nome);
// Removes the rings whose label is nome, then the vertices left without a ring.
bool EliminaParticellaEstratto(Stato& stato, Estratto& e, const QString& nome);
bool EliminaPuntiIsolatiEstratto(Stato& stato, Estratto& e);

// Area of one ring row into e.AreaRigaSette (and perimeter, sum of x steps). A ring too long
// for the 501-slot vertex tables gives the error report under the caller's tag.
bool CalcolaAreaRigaSette(Stato& stato, Estratto& e, const QString& riga);

// The head of an extract as the libretto takes it.
struct DatiEstratto {
    QString Comune, Foglio, Particelle, Provincia, EstMedio;
};
DatiEstratto CopiaIDatiDellEstratto(Stato& stato, const QString& nome);
// The same over the lines of a file.
DatiEstratto DatiDaRigheEstratto(Stato& stato, const QStringList& righe);

// Turns the extract into a self-made one: the fixed head, the plain vertices and rings, and the
// framing row.
bool RendiAutoallestito(Stato& stato, const QString& nome);
// The text of that skeleton, from the lines of the extract.
QString TestoAutoallestito(const QStringList& righe);

// Each PARTICELLA row to its own file of the particle archive on UnitaPregeoDati.
bool ArchiviaParticelleEstratto(Stato& stato, const Estratto& e);
// Each DITTA row appended to \fiducial\DITTA\<chiave>_<field 2>_<field 3>.DIT on
// UnitaPregeoDati.
bool ArchiviaDitteEstratto(Stato& stato, const Estratto& e, const QString& chiave);

} // namespace tavolet
