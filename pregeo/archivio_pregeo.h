// Pregeo's archive arch2.db: its backups, the single-libretto archive, and the technician's
// keys written back to PREGEO.INI.
#pragma once

#include <QDateTime>
#include <QString>

namespace tavolet {

struct Stato;

// The date and the time as an Italian system writes them ("07/03/2026", "09:05:02").
QString DataDiSistema(const QDateTime& quando);
QString OraDiSistema(const QDateTime& quando);
// Name of a backup: the libretto's stem, "_", year-day-month from the characters of the
// system date, "_", the time with "-" for ":", ".db".
QString NomeBackupArch2(const Stato& stato);
// "salvarch2.db": copies PercorsoArch2 into \pregeo\arch\BackupDB\ under that name.
void SalvaArch2Db(Stato& stato);
// "Usa Libretto Singolo": the arch2.db of the program folder replaces Pregeo's archive, after a
// backup. Returns false when it is missing (the stop message tells it).
bool UsaLibrettoSingolo(Stato& stato);
// The head brought in line with the tables, then the technician's keys written into PREGEO.INI
// (when Pregeo is installed). Returns false when PREGEO.INI was not found.
bool AggiornaPregeoIni(Stato& stato);

} // namespace tavolet
