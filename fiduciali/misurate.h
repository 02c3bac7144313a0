// Measured distances between fiducial points: for each pair, the distance of the survey, the
// one of the TAF coordinates and those of the province's archive; the measures of one point.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// A point of the drawing as the distances read it: name, east, north.
struct PuntoPF {
    QString nome;
    double x = 0, y = 0;
};

inline const QString kIntestazioneMisurate = QStringLiteral(
    "PF1              PF2                  Distanza     SQM     Anno Prot.       Diff.");

// CartellaDocumenti\Norvello\temp\Misurate.TXT
QString PercorsoFileMisurate(const Stato& stato);

// The report for the fiducials of a drawing. The points' names are upper-cased in place, those
// with a fiscal code in place of a municipality dropped. Writes Misurate.TXT and opens it; the
// lines are returned (empty when the routine stopped on a message or an error).
QStringList CalcolaMisuratePF(Stato& stato, QList<PuntoPF>& punti);
// The same for the fiducials of the libretto's rows 8; the line "(REALE)" shows 0.
QStringList CalcolaMisuratePF_DaLibretto(Stato& stato, const QStringList& righeLibretto);
// Every line of the archive that holds the code, under "Provincia di : ".
QStringList MisurateDa1PF(Stato& stato, const QString& codice);

// The choice of BV_SelezionaMisurate: the upper-cased name becomes the current archive and the
// answer to the calling tool. False, with the message, when nothing is chosen.
bool SelezionaLeMisurate(Stato& stato, const QString& nome);
// Deletes an archive after the question. True when it was deleted.
bool EliminaDatabaseMisurate(Stato& stato, const QString& nome);

} // namespace tavolet
