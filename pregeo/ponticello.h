// The helper Ponticello: the only way to read Pregeo's archive arch2.db. It is a sibling
// program; the system knows only its command lines and the files it leaves behind.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

inline const QString kPonticello = QStringLiteral("\\Ponticello.exe");
inline const QString kPonticello2 = QStringLiteral("\\0Sarvento\\Ponticello2.exe");
inline const QString kEsportaLibretto = QStringLiteral("ESPORTA_LIBRETTO.txt");
inline const QString kEsportaProposta = QStringLiteral("ESPORTA_PROPOSTA.txt");
inline const QString kEsportaPunti = QStringLiteral("ESPORTA_PUNTI_ELABORATI.txt");
inline const QString kAssociaEstratto = QStringLiteral("ASSOCIA_ESTRATTO.txt");
inline const QString kElencoLibretti = QStringLiteral("ELENCO_LIBRETTI.txt");

// Key of an act: the last two characters of its year, then its protocol.
QString ChiaveAtto(const QString& anno, const QString& protocollo);

// The command lines, as the helper expects them.
QString RigaEsportaTutto(const Stato& stato, const QString& chiave);
QString RigaElencoLibretti(const Stato& stato);
QString RigaPonticello2(const Stato& stato);

// Where the results lie: the export under CartellaLavoro\TEMP, the list under
// CartellaDocumenti\TEMP.
QString PercorsoEsportazione(const Stato& stato, const QString& nome);
QString PercorsoElencoLibretti(const Stato& stato);

// Runs ESPORTA_TUTTO for the act and waits for the helper's end.
void EsportaTutto(Stato& stato, const QString& chiave);
// Runs Ponticello2, then the list of the acts, each waited for.
void ElencoLibretti(Stato& stato);

// A result file as text; a missing or unreadable one is an empty text. A file left by an
// earlier run is read as if new.
QString LeggiRisultato(const QString& percorso);

} // namespace tavolet
