// The archive of extracts in Pregeo's folder \pregeo\estratti\: the commands of the archive
// screen on whole files (duplicate, rename, delete, empty, holders, parcels), the validity text
// and the verification of the folder. Each works on one extract and all its companions.
#pragma once

#include "unisci.h"

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;
struct Estratto;

// UnitaPregeoExe\pregeo\estratti\.
QString CartellaEstratti(const Stato& stato);

// "L'Estratto è scaduto da <m> mesi" or "L'Estratto scade tra    <m> mesi", m = months - 6
// (the second keeps its minus sign).
QString TestoValidita(int mesi);
// "Pregeo 10" when the text holds "DISTORSIONE", else "Pregeo 9".
QString VersioneFormato(const QString& testo);

// The four counts of "Verifica Estratti" for one extract.
struct ConteggioEstratto {
    QString nome;
    int punti = 0, pf = 0, distanze = 0, particelle = 0;
};
ConteggioEstratto ContaRigheEstratto(const QString& nome, const QStringList& righe);
// Every .EMP of the folder, by name; avanzamento after each.
QList<ConteggioEstratto> VerificaEstratti(Stato& stato, const QString& cartella,
                                          const Avanzamento& avanzamento = {});

// The companions of an extract that exist, by the fixed list .EMP .PNG .TIF .JPG.
QStringList CompagniEsistenti(const QString& percorsoSenzaEstensione);

// "Duplica Estratto": .EMP and .PNG to the new name; true when done. A missing .PNG gives the
// error report of the copy, as the registry's program does.
bool DuplicaEstratto(Stato& stato, const QString& nome, const QString& nuovo);
// "Rinomina Estratto": every companion <name>.* to the new name.
bool RinominaEstratto(Stato& stato, const QString& nome, const QString& nuovo);
// "Elimina Estratto": <name>.*.
bool EliminaEstratto(Stato& stato, const QString& nome);
// Copy with suffix: .EMP and the images that exist to <name>1.
QString CopiaEstrattoConSuffisso(Stato& stato, const QString& nome);
// "Vuota Estratto": the first line and the last line only.
bool VuotaEstratto(Stato& stato, const QString& nome);
// "Azzera Ditte": backup in \TEMP\<name>.BAK, holders archived, DITTA rows dropped, message.
bool AzzeraDitte(Stato& stato, const QString& nome);
// "Rinomina Particella": "|NC|<old>|<old>|" becomes "|NC|<new>|<new>|" in the file's text.
bool RinominaParticella(Stato& stato, const QString& nome, const QString& vecchio,
                        const QString& nuovo);
// "Elimina Particella": read, drop the parcel's rings and the points left alone, save.
bool EliminaParticella(Stato& stato, const QString& nome, const QString& particella);
// "Esporta Estratto": the .EMP and the .PNG of the same name to the chosen .EMP path.
bool EsportaEstratto(Stato& stato, const QString& nome, const QString& destinazione);

// ESTRATTO.emp and ESTRATTO1.emp written into an empty folder. True when written.
bool ScriviEstrattiDiEsempio(Stato& stato);

// The extract of the folder whose row 0 holds that protocol in field 2: the first match; a file
// with an empty first line ends the search. Empty when none.
QString TrovaEstrattoPerProtocollo(Stato& stato, const QStringList& nomi,
                                   const QString& protocollo);
// The same over the .EMP files of the folder, in the archive's order (by name, case ignored).
// A blank protocol names no extract.
QString TrovaEstrattoAssociato(Stato& stato, const QString& protocollo);

} // namespace tavolet
