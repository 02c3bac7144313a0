// The logic of BV_Dapregeo: the acts of Pregeo's archive, the points that Pregeo computed for
// one act, their descriptions from the act's libretto, and the libretto by coordinates.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

inline const QString kCaptionDaPregeo = QStringLiteral("Elaborazione Pregeo");
inline const QStringList kColonneAtti = {"Progr",  "Anno",  "Protocollo",       "Tecnico", "Comune",
                                         "Foglio", "Stato", "Nome File-Utente", "Nome Dat"};
inline const QStringList kColonnePunti = {"Nome", "Nord", "Est", "Quota", "Descrizione"};
enum ColonnaPunto { kNome = 0, kNord, kEst, kQuota, kDescrizione };
inline const QString kPlanimetrico = QStringLiteral("<P!>");

// What the screen holds: both grids as rows of cells, the act's libretto and Proposta.
struct DaPregeo {
    QString Caption = kCaptionDaPregeo; // the head of every tag
    int Flag = 1;                       // 0 for DA_PREGEO, 1 for DA_PREGEO_DXF and the menu
    QList<QStringList> Atti;            // 9 cells a row
    QList<QStringList> Punti;           // 5 cells a row
    QStringList RigheLibretto;
    QStringList RigheProposta;
};

// The cells of the first grid for one line of ELENCO_LIBRETTI.txt.
QStringList RigaAtto(const QString& riga);
// The cells of the second grid for one line of ESPORTA_PUNTI_ELABORATI.txt.
QStringList RigaPunto(const QString& riga);

// On opening: the helper's list of acts, shown first as a plain dump, then in the grid.
void CaricaPregeo800(Stato& stato, DaPregeo& dp);
// A click on an act: its export, the points and their descriptions, and elab.sur for the plot.
// Returns the path of elab.sur, or empty when there was nothing to draw.
QString MostraListaPregeo(Stato& stato, DaPregeo& dp, int riga);
// The same for the act of that key.
QString MostraAtto(Stato& stato, DaPregeo& dp, const QString& chiave);
// Descriptions of the points from the rows 1, 2, 4 and 5 of the act's libretto.
void CaricaDescrizione(DaPregeo& dp);
// The first description found for a point holds.
void AssegnaDescrizione(DaPregeo& dp, const QString& nome, const QString& descrizione);
// The text drawn: a row 8 a point, then the act's rows 7.
QString TestoGrafica(const DaPregeo& dp);
// Rows 8 of the points with their descriptions, then the act's rows 7.
QString TestoRighe8(const DaPregeo& dp);
// Appends those rows to the libretto and loads it; the regrouping follows on screen.
void ImportaRighe8InLibretto(Stato& stato, const DaPregeo& dp);
// The points of the elaboration for a topographic CAD: a file of "name,north,east,height,
// description" lines in CartellaLavoro\TEMP, handed to the Sarvento converter. Returns the file.
QString EsportaElaborazioneCad(Stato& stato, const DaPregeo& dp);
inline const QString kConvertitoreCad = QStringLiteral("\\Sarvento\\Dexaro.exe");

} // namespace tavolet
