// The one place that reads and writes files: Windows-1252 text with CRLF, paths in Windows
// form mapped to the host. Failures throw Errore with the runtime numbers (53, 75, 76).
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tavolet {

bool EsisteFile(const QString& percorso);
bool EsisteCartella(const QString& percorso);

QByteArray LeggiByte(const QString& percorso);
// The whole file as one text, no line handling.
QString LeggiTesto(const QString& percorso);
// Line by line: CRLF, a lone LF or a lone CR end a line; a last line without end is a line.
QStringList LeggiRighe(const QString& percorso);
QStringList RigheDiTesto(const QString& testo);

// Writes exactly these bytes: a temporary file in the same folder renamed over the target.
void ScriviByte(const QString& percorso, const QByteArray& byte);
void ScriviTesto(const QString& percorso, const QString& testo);

void CopiaFile(const QString& da, const QString& a); // overwrites a
void EliminaFile(const QString& percorso);           // nothing when absent
// Makes the folder and its missing parents.
void CreaCartella(const QString& percorso);

} // namespace tavolet
