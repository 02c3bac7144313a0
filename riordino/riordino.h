// Row regrouping: a libretto split into groups of rows and composed again in the order that
// Pregeo expects. Chief header of the folder.
#pragma once

#include "mappali.h"

#include <QString>
#include <QStringList>

#include <array>

namespace tavolet {

struct Stato;

enum class Gruppo {
    Riga0,
    Riga9,
    Commento,
    Appunti,
    Poligonali,
    GPS,
    Stazioni,
    Righe45,
    Contorni,
    Relazione,
    Fiduciali,
    Censuario,
    Proposta,
    Sospesi,
    Scartata, // a row that a rule drops: it belongs to no list
};

// The groups of one regrouping. EsplodiLibretto makes them fresh, RicomponiLibretto reads them.
struct GruppiLibretto {
    QStringList GruppoRiga0, GruppoRiga9, GruppoCommento, GruppoAppunti, GruppoPoligonali;
    QStringList GruppoGPS, GruppoStazioni, GruppoRighe45, GruppoContorni, GruppoRelazione;
    QStringList GruppoFiduciali, GruppoCensuario, GruppoProposta, GruppoSospesi;
    // False when the split stopped on a failure: the groups must not replace the document.
    bool completo = false;

    QStringList& Lista(Gruppo g);
    const QStringList& Lista(Gruppo g) const;
};

// Splits TestoLibretto into the groups, sorts the points of each station and of the GPS
// blocks, fills TestoProposta and warns when the censuary model miscounts its rows.
GruppiLibretto EsplodiLibretto(Stato& stato);

// Composes TestoLibretto from the groups in Pregeo's order. On a failure (a short censuary
// row under "GO") the report is shown and the document stays as it was; returns false then.
bool RicomponiLibretto(Stato& stato, const GruppiLibretto& gruppi);

// The silent regrouping of the main form: split, compose, rebuild the row list.
void subRiordinoRighe(Stato& stato);

// The rows of an .LXB companion take the place of the survey part of the document.
void SostituisciRilievoDaLxb(Stato& stato, const QString& testoLxb);

// Hooks the .LXB companion into the loading of a libretto.
void InstallaRiordino(Stato& stato);

// The delete buttons of the regrouping form, by index.
struct EliminazioneGruppo {
    Gruppo gruppo;
    QString titolo;
    QString domanda;
    QString nome; // the group as the form names it
};
const std::array<EliminazioneGruppo, 11>& EliminazioniGruppi();

// Asks the question of button `pulsante` (default no) and empties its group on yes.
// Returns true when the group was emptied.
bool EliminaGruppo(Stato& stato, GruppiLibretto& gruppi, int pulsante);

// The clipboard text of a double click on a group: its rows each with CRLF; for rows 0 and 9
// the first row alone.
QString TestoGruppoPerAppunti(const GruppiLibretto& gruppi, Gruppo g);

// Labels of the form.
QString EtichettaIscrizioneAlbo(const Stato& stato);
QString EtichettaCodiceFiscale(const Stato& stato);

} // namespace tavolet
