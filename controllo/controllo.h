// "Controllo Atto": everything in an act that would make Pregeo refuse it or the registry send
// it back, found before it leaves. The checks only read the document, the head, the extract,
// the censuary model and the archives; they never change them.
#pragma once

#include <QList>
#include <QString>

namespace tavolet {

struct Stato;

inline const QString kErrore = QStringLiteral("Errore");
inline const QString kAvviso = QStringLiteral("Avviso");

struct Rilievo {
    QString codice;    // short code of the check, as the README lists them
    QString gravita;   // "Errore" or "Avviso"
    int riga = 0;      // 1-based row of the list, 0 for the act as a whole
    QString messaggio; // Italian, naming the field and its value
};

struct OpzioniControllo {
    // The extract to check against: a name in Pregeo's folder or a path. Empty: the one
    // associated with the libretto (NomeEstratto).
    QString estratto;
};

// Every finding on the document of the state (RigheLibretto, the tag values, the head), sorted
// by row. A failure while reading the extract or an archive is a finding, not an end.
QList<Rilievo> ControllaAtto(Stato& stato, const OpzioniControllo& opzioni = {});

// The checks on the rows alone (grammar, head fields, geometry, censuary model): what the rest
// builds on, and what a test of one row's fault calls.
QList<Rilievo> ControllaRighe(const QStringList& righe);

bool CiSonoErrori(const QList<Rilievo>& rilievi);
int ContaGravita(const QList<Rilievo>& rilievi, const QString& gravita);

// The report as text: a line "gravità|riga|codice|messaggio" a finding.
QString TestoRapporto(const QList<Rilievo>& rilievi);
// The same as a JSON array of objects with those four keys.
QString JsonRapporto(const QList<Rilievo>& rilievi);
// Where "Esporta" writes the report: beside the libretto, its name with "_CONTROLLO.TXT".
QString PercorsoRapporto(const QString& percorsoLibretto);

} // namespace tavolet
