// Pieces the files of the check share.
#pragma once

#include "controllo.h"

#include <QStringView>

namespace tavolet::controllo {

// A number as Pregeo reads a field: optional sign, digits, one point unless intero.
bool Numero(QStringView s, bool intero);
void Aggiungi(QList<Rilievo>& r, const char* codice, bool errore, int riga,
              const QString& messaggio);
// The value between double quotes, as the messages name it.
QString Virgolette(QStringView valore);
// A point's name as a row names it, without working marks.
QString NomePunto(QStringView campo);

} // namespace tavolet::controllo
