// The plot of the fiducials of a municipality: its table of records, the selection commands,
// the printed list, the measures between the selected points and the copy into the drawing.
#pragma once

#include "taf.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

struct RecordPF {
    QString codice;
    double nord = 0, est = 0;
    bool selezionato = false;
    RigaTaf taf;
};

// A measure between two records of the table, from a line of the archive.
struct MisuraPF {
    int da = 0, a = 0;
    QString riga;
};

struct TabellaPF {
    QList<RecordPF> record;
    QList<MisuraPF> misure;
    int Conta() const { return int(record.size()); }
    int Selezionati() const;
};

// The records of a TAF, in file order.
TabellaPF TabellaDaTaf(const QList<RigaTaf>& righe);
// The records of the grid's rows (each row's code): the TAF is read again for their lines.
TabellaPF TabellaDaGriglia(Stato& stato, const QString& comune, const QStringList& codici);

void SelezionaTutti(TabellaPF& t);
void SelezionaNessuno(TabellaPF& t);
void InvertiSelezione(TabellaPF& t);
// Leaves out the points with national grid coordinates (east above 1000000, north at least
// 4000000).
void TogliGaussiane(TabellaPF& t);
// The points no longer in use: a description that holds "NU", "N.U.", "NON" or "EX PF".
void SelezionaExPF(TabellaPF& t);
// The sheet of a code ("0010" of "PF01/0010/A001") and the sheets of the table, sorted.
QString FoglioDelCodice(const QString& codice);
QStringList FogliTabella(const TabellaPF& t);
// Selects exactly the points of that sheet.
void SelezionaFoglio(TabellaPF& t, const QString& foglio);
// Selects the points within raggio metres of record centro (the record too).
void SelezionaIntorno(TabellaPF& t, int centro, double raggio);
// The record nearest to (est, nord); -1 on an empty table.
int RecordVicino(const TabellaPF& t, double est, double nord);

// The status text of the plot while the pointer moves.
QString TestoStatoGraficaPF(const TabellaPF& t, double est, double nord, double scala);

// "Stampa Lista PF Selezionati": CartellaLavoro\temp\Stampa_Fiduciali .CSV and .TXT.
inline const QString kLarghezzeStampaFiduciali = QStringLiteral("15|5|2|12|12|60|2|8|60");
const QStringList& IntestazioniStampaFiduciali();
void StampaListaPFSelezionati(Stato& stato, const TabellaPF& t);

// MettiDistanzeMisurate: the measures of the archive between selected points. False after the
// message when the province has no archive.
bool MettiDistanzeMisurate(Stato& stato, TabellaPF& t);

// "Copia nel Disegno i PF Selezonati": CartellaDocumenti\Bravanta\TEMP\CopiaInFile.txt and the
// order file EseguiIncollaDaFile.TXT for the CAD program.
QString TestoCopiaInFile(const TabellaPF& t);
void CopiaPFNelDisegno(Stato& stato, const TabellaPF& t);

// "Salva in DXF": the points on the layer "Punti", their codes on "Nomi", the measures on
// "Linee", into CartellaLavoro\GraficaPF.DXF. False after the error report.
QString TestoDXFPF(const TabellaPF& t);
QString PercorsoDXFPF(const Stato& stato);
bool SalvaDXFPF(Stato& stato, const TabellaPF& t);

} // namespace tavolet
