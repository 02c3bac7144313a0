// The command words that sibling tools send on the command line (path|WORD|parameter).
#pragma once

#include <QList>
#include <QString>

namespace tavolet {

struct ParolaComando {
    QString parola;
    bool finestra; // the word opens a screen
};

// The words the dispatcher knows, in its order; any other word does nothing.
const QList<ParolaComando>& ParoleComando();
// The known word, or nullptr.
const ParolaComando* TrovaParola(const QString& parola);

} // namespace tavolet
