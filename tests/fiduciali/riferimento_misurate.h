// The plain version of the report of measured distances: every step as it reads, each fiducial
// looked up in its TAF with a read of its own, the archive read into lines and searched for
// every pair. The fast routines must give the same lines, files and messages.
#pragma once

#include "misurate.h"
#include "taf.h"

#include <QStringList>

namespace tavolet::test {

QStringList CalcolaMisuratePFRiferimento(Stato& stato, QList<PuntoPF>& punti);
QStringList CalcolaMisuratePF_DaLibrettoRiferimento(Stato& stato, const QStringList& righeLibretto);
// TrovaPFNellaTAF as it reads: the TAF of the code's municipality read line by line.
PFNellaTaf TrovaPFNellaTAFRiferimento(Stato& stato, const QString& codice);

} // namespace tavolet::test
