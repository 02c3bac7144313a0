// Helpers for the tests: a temporary Wine-style root and files of tests/dati.
#pragma once

#include "libretto.h"
#include "piattaforma_finta.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

// Readable QString in the messages of failed assertions.
void PrintTo(const QString& s, std::ostream* os);

namespace tavolet::test {

// A fresh root in a temporary folder, set as TAVOLET_RADICE for the life of the object.
class RadiceProva {
public:
    RadiceProva();
    ~RadiceProva();
    QString Percorso() const { return dir_.path(); }
    // Writes bytes at a path in Windows form ("C:\windows\PREGEO.INI"), making the folders.
    void Scrivi(const QString& percorsoWindows, const QByteArray& byte) const;
    QByteArray Leggi(const QString& percorsoWindows) const;
    // A small Pregeo tree: PREGEO.INI, Pregeo.EXE, prosigle, qualita.txt, comunt.dat.
    void PregeoMinimo() const;

private:
    QTemporaryDir dir_;
    QByteArray vecchia_;
    bool cera_;
};

// The demo tree (TAVOLET_DEMO) copied into a folder.
void CopiaDemo(const QString& destinazione);

// A fresh state on the small Pregeo tree: root, scripted platform, environment read.
struct ConPregeo : ::testing::Test {
    RadiceProva radice;
    PiattaformaFinta p;
    Stato s{p};
    void SetUp() override {
        radice.PregeoMinimo();
        Inizializza(s);
        CaricaConfig(s);
    }
};

// Bytes of a file in tests/dati.
QByteArray Dati(const QString& nome);
QString PercorsoDati(const QString& nome);

// CRLF-joined text of the lines, each followed by CRLF.
QByteArray Righe(const QStringList& righe);

// A comunt.dat record as Pregeo's table holds it (the 2-byte header "@B" in front).
QByteArray RecordComune(QChar sezione, const QString& codice, const QString& sigla,
                        const QString& nome, const QString& aggiuntivo);

// Bytes of any file; empty when it cannot be read.
QByteArray LeggiFile(const QString& percorso);

// A program run as a script runs it: exit status, stdout and stderr.
struct Esito {
    int codice = -1;
    QString out, err;
};
Esito EseguiProgramma(const QString& programma, const QStringList& argomenti,
                      int attesaMs = 120000);

#ifdef TAVOLET_CLI
// tavolet-cli with those arguments.
inline Esito Esegui(const QStringList& argomenti, int attesaMs = 120000) {
    return EseguiProgramma(QStringLiteral(TAVOLET_CLI), argomenti, attesaMs);
}
// On a root, on a fixed day.
inline Esito Esegui(const QString& radice, const QStringList& argomenti,
                    const QString& oggi = QStringLiteral("15012026")) {
    return Esegui(QStringList{"--radice", radice, "--oggi", oggi} + argomenti);
}
#endif

} // namespace tavolet::test
