// The start of a program on this host, apart from the wait: the desktop waits in its own way,
// keeping its window painted and letting the operator stop the child.
#pragma once

#include <QString>
#include <QStringList>

class QProcess;

namespace tavolet {

// Starts the program as ShellInfinita's platform does (a path in Windows form mapped to the
// host, a ".exe" through wine off Windows, a bare name from the PATH): false when it could not.
bool AvviaProcesso(QProcess& processo, const QString& programma, const QStringList& argomenti);
// The exit code of a program that has ended; -2 when it crashed or was stopped.
int EsitoProcesso(const QProcess& processo);

} // namespace tavolet
