// The logic of FormConfiguraPregeo, the editor of PREGEO.INI.
#pragma once

#include <QString>

namespace tavolet {

struct Stato;

inline const QString kNomeFormConfiguraPregeo = QStringLiteral("FormConfiguraPregeo");

QString PercorsoPregeoIni(const Stato& stato);
QString PercorsoPregeoExe(const Stato& stato);
// "Versione Pregeo.EXE = " version " - " path of PREGEO.INI.
QString TitoloConfiguraPregeo(const Stato& stato);
// The text shown on opening: the file as it stands (empty when missing).
QString TestoPregeoIni(const Stato& stato);
// Index 6: RigheIni from the text, the text written to PREGEO.INI. False on a failure.
bool SalvaPregeoIni(Stato& stato, const QString& testo);
// Index 7: Pregeo discovered again; RigheIni joined with line ends.
QString RicaricaPregeoIni(Stato& stato);
// Index 13: the shortcuts to Pregeo, with the message for the desktop's.
void CollegamentiConfiguraPregeo(Stato& stato);

} // namespace tavolet
