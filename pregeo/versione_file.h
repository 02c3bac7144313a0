// The file version of a Windows program, as its version resource records it.
#pragma once

#include <QByteArray>
#include <QString>

namespace tavolet {

// "a.b.c.d" from the fixed version block of the bytes; empty when there is none.
QString VersioneDaDati(const QByteArray& dati);
// The same for a file in Windows form; empty when it is missing.
QString VersioneFile(const QString& percorso);

} // namespace tavolet
