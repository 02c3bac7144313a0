// The check character of the Italian fiscal code.
#pragma once

#include <QString>

namespace tavolet {

struct Stato;

// "CORRETTO" or "ERRATO". A character outside letters and digits among the first fifteen has
// no value in the table: error 9.
QString VerificaCodiceFiscale(const QString& codice);
// The same inside the error trap: a code the table cannot read gives the error report and
// counts as "ERRATO".
QString ControllaCodiceFiscale(Stato& stato, const QString& codice);

} // namespace tavolet
