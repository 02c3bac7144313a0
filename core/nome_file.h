// Names typed by the operator, made into the names of files.
#pragma once

#include <QString>

namespace tavolet {

// A name typed by the operator (a surname, a parcel, a code) made fit to be one file's name in
// the folder it is meant for, on Windows as on the host: each separator, each character
// Windows refuses in a name (< > : " / \ | ? * and the control characters) becomes "_", a run
// of points becomes one, points and blanks at the end go, and a device name (CON, NUL, COM1,
// LPT9, ...) gets "_" in front. An empty name stays empty; one left with nothing becomes "_".
QString NomeFileSicuro(const QString& nome);

} // namespace tavolet
