// One fuzz target per reader. A target is a body that takes any bytes; built with libFuzzer it is
// a program of its own (fuzz/CMakeLists.txt), built into the tests it replays every input kept in
// fuzz/regressioni/<name>/ (tests/fuzz).
#pragma once

#include "libretto.h"
#include "piattaforma_finta.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tavolet::fuzz {

using Corpo = void (*)(const uint8_t* dati, size_t n);
struct Bersaglio {
    const char* nome;
    Corpo corpo;
};
std::vector<Bersaglio>& Bersagli();
struct Registra {
    Registra(const char* nome, Corpo corpo) { Bersagli().push_back({nome, corpo}); }
};

// A property broken: under libFuzzer the message and an abort (the input is saved); in the
// tests an exception of its own that no reader catches.
struct Fallimento {
    std::string perche;
};
[[noreturn]] void Fallisci(const std::string& perche);
inline void Verifica(bool condizione, const std::string& perche) {
    if (!condizione) Fallisci(perche);
}

// A root in a temporary folder, made once per process with a small Pregeo tree; TAVOLET_RADICE
// points to it.
void PreparaRadice();
// The small Pregeo tree written again (PREGEO.INI, prosigle, qualita.txt, comunt.dat): a target
// that breaks one of them leaves it whole behind itself with a PregeoRipristinato.
void ScriviPregeoMinimo();
struct PregeoRipristinato {
    ~PregeoRipristinato() { ScriviPregeoMinimo(); }
};
void Scrivi(const QString& percorsoWindows, const QByteArray& byte);

// A state on that root with the environment read, on the scripted platform.
struct Banco {
    PiattaformaFinta p;
    Stato s{p};
    Banco();
};

QByteArray Byte(const uint8_t* dati, size_t n);
QString Testo(const uint8_t* dati, size_t n); // read as Windows-1252
// The input cut at the first byte 0x01 (a second file in the same input); the part after it is
// empty when there is none.
std::pair<QByteArray, QByteArray> Dividi(const QByteArray& byte);

} // namespace tavolet::fuzz

#define TAVOLET_BERSAGLIO(nome)                                                                    \
    static void Corpo_##nome(const uint8_t*, size_t);                                              \
    static const ::tavolet::fuzz::Registra registra_##nome(#nome, Corpo_##nome);                   \
    static void Corpo_##nome(const uint8_t* dati, size_t n)
