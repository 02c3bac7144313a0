// Renumbering of ids inside rows, as a chain of text replacements but in linear time.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

namespace tavolet {

// The rows joined by CR LF; then, pair by pair in order, every "|<old>|" replaced by
// "|<new>|" from left to right (two tokens that share a bar: only the first is caught, and a
// later pair may catch what an earlier one wrote); then split at CR LF again. An empty text
// gives no rows. The work grows with the number of fields, not with rows times pairs.
QStringList SostituisciCampi(const QStringList& righe,
                             const QList<std::pair<QString, QString>>& coppie);

} // namespace tavolet
