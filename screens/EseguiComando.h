// The command words with which sibling tools drive the program (path|WORD|parameter), and the
// tags of the utility panel: each word opens its screen.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace tavolet {

struct Stato;

// Runs one word with its parameter; parent is the window the screens open over.
void EseguiComando(Stato& stato, const QString& parola, const QString& parametro, QWidget* parent);
// Installs the dispatcher and the Pregeo bridge into the state, for the command line at start.
void InstallaComandi(Stato& stato, QWidget* parent);

} // namespace tavolet
