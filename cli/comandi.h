// Commands of tavolet-cli. Each file comandi_*.cpp registers its own at start.
#pragma once

#include "libretto.h"
#include "piattaforma_finta.h"

#include <QStringList>
#include <QTextStream>

#include <functional>

namespace tavolet::cli {

struct Contesto {
    Stato& stato;
    PiattaformaFinta& piattaforma;
    QStringList argomenti; // what follows the command words
    QTextStream& out;
};

struct Comando {
    QStringList parole;  // "libretto", "salva"
    QString uso;         // "IN OUT"
    QString descrizione; // one line for --help
    int argomentiMinimi = 0;
    std::function<int(Contesto&)> esegui; // exit status
};

struct Registra {
    explicit Registra(Comando c);
};

// The environment of a start: folders, Pregeo, the tables.
void PreparaAmbiente(Stato& stato);
// Loads a libretto as a drop on the main form does.
bool CaricaComeTrascinamento(Stato& stato, const QString& percorso);
// A path given on the command line, made absolute.
QString PercorsoArgomento(const QString& argomento);
// An input file of a command: false, after the "not found" message, when it is missing or a
// folder; X.LXB is there when X.DAT is, and a file of 0 bytes is empty input. Every argument
// that a command's usage names as an input (IN, FILE, PERCORSO, LIBRETTO, IN.EMP, FILE...) is
// checked so before the command runs.
bool FileDiIngresso(Piattaforma& piattaforma, const QString& argomento);
bool IngressiLeggibili(const Comando& comando, const QStringList& argomenti,
                       Piattaforma& piattaforma);

} // namespace tavolet::cli
