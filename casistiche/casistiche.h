// The ready-made cases: a libretto and a provisional extract from a CAD list or from the
// polylines of a DXF, the repair of the proposal against the parcel of the extract, and the
// exploded form of the outlines.
#pragma once

#include "protezioni.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// The working lists of the screen Tipol10, filled by one run of a case.
struct Casistica {
    QString Codice = QStringLiteral("1000"); // the case chosen on the main form; "1000": no extract
    QStringList ListaGrezza, ListaRighe, ListaSette, ListaContorni;
    int PuntoCorrente = 1;
    QString RigheSpezzate; // the libretto rows of the last run
    QString RigheProposta; // the same after the repair of a small building
    QString RigheAParte;   // outlines of porches and cellars, kept apart from the repair
};

// The CAD list from the clipboard. False when nothing was generated (message shown).
bool GeneraLibrettoDaList(Stato& stato, Casistica& c);
// The same on a text given directly.
bool GeneraLibrettoDaTesto(Stato& stato, Casistica& c, const QString& testo);
// One ring of the layer RC, closed and measured, with the parcels tail, into ListaContorni.
void Genera7Completa(Stato& stato, Casistica& c, const QString& riga);

// A row 7 on one line wrapped into rows of at most ten points, "7|0|" rows behind; each row
// closes with the type code. Returns the rows, each followed by CRLF.
QString AvvolgiDieciPunti(const QString& riga);

// The DXF file as the list text of a CAD program: LWPOLYLINE and POLYLINE/VERTEX of the known
// layers, read as pairs of lines. A binary DXF is refused: binario is set, the text is empty.
struct ListaDaDxf {
    QString testo;
    bool binario = false;
};
ListaDaDxf ListaDaPoliLineeDxf(const QByteArray& byte);
// Reads the file (a dialog when percorso is empty) and runs the list on it.
bool GeneraLibrettoDaPoliLineeDXF(Stato& stato, Casistica& c, QString percorso);
inline const QString kDxfBinario =
    QStringLiteral("Il file è un DXF binario: salvarlo da CAD come DXF di testo (ASCII) e "
                   "ripetere l'importazione.");

// Outlines joined into one long row each (type codes dropped), and wrapped back.
void Esplodi_Proposta(QString& testo);
void Implodi_Proposta(QString& testo);

// New points that fall on points of the associated extract take their names; runs of the
// outlines get "NC" on the parcel's points and "RC" on new ones.
void SistemaProposta(Stato& stato, QString& testo, const QString& righeAParte);
// The rings of a small building get "NC" on the sides they share with the parcel.
void SistemaModestaEntita(Stato& stato, Casistica& c);

// Files of the cases, in Windows form.
QString PercorsoTempCasistiche(const Stato& stato, const QString& nome);
QString PercorsoEstrattoProvvisorio(const Stato& stato);
QString PercorsoModestaEntita(const Stato& stato);
// \TEMP\CONTORNO.TXT, where the plot writes the outlines drawn: PercorsoContorno of grafica.h.
QString PercorsoDescrizioneTipologia(const Stato& stato, const QString& codice);

// The screen Tipol10 without its window.
struct AperturaTipologia {
    QString titolo;
    QString descrizione;
    QString estrattoDaMostrare; // empty when no extract is shown
};
AperturaTipologia ApriTipologia(Stato& stato, const QString& codice);
// "Conferma": the rows into the proposal text, the description to its file.
void ConfermaTipologia(Stato& stato, const QString& codice, const QStringList& righe,
                       const QString& descrizione);
// The confirmed rows of the case appended to the libretto, and the row list rebuilt.
void InserisciPropostaNelLibretto(Stato& stato);
// "Termina Contorno": a blank line closes the outline being drawn.
void TerminaContorno(Stato& stato);
// "Componi Proposta": the outlines drawn so far go through the CAD list.
bool ComponiProposta(Stato& stato, Casistica& c);
// The next point name: the sum of the two numbers, with "*".
QString ProssimoPunto(const QString& primo, const QString& secondo);
// A vertex in the list format, as the plot writes it to CONTORNO.TXT.
QString RigaVertice(double x, double y);
void AggiungiVerticeContorno(Stato& stato, double x, double y);

} // namespace tavolet
