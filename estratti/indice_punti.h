// Where a ring's points are: for each id, the index of the first row of Punti that begins with
// "8|<id>|", as the area routine finds them.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace tavolet {

QHash<QString, int> IndicePuntiEstratto(const QStringList& punti);

} // namespace tavolet
