// The picture of "grafica png" lives in a module of its own, loaded only by that command: the
// GUI libraries it needs would otherwise weigh on every batch run of tavolet-cli (a rewrite of a
// whole comune's extract must stay within a few times the file's size).
#pragma once

#include <QString>

class QCoreApplication;

namespace tavolet {
struct ModelloGrafica;
}

namespace tavolet::cli {

struct ModuloDisegno {
    // The GUI application, on the offscreen platform unless another is set.
    QCoreApplication* (*applicazione)(int* argc, char** argv) = nullptr;
    // Draws the plot into a PNG of w x h, thinned as on screen when dirada: 0 when written.
    int (*png)(const ModelloGrafica* g, int w, int h, const QString* file, bool dirada) = nullptr;
    bool Caricato() const { return applicazione && png; }
};

// The module beside the program, loaded at the first call; empty when it is missing.
const ModuloDisegno& Disegno();

} // namespace tavolet::cli
