// ShellInfinita: the one way the program starts another program and waits for its end.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// Section of the per-user settings that maps a sibling program to a host command. The key is
// the program's file name in upper case as the command line spells it ("PONTICELLO.EXE",
// "PONTICELLO.EXE2", "PRINT.EXE"); the value a host command line, to which the arguments are
// appended ("/usr/bin/python3 /opt/ponticello.py").
inline const QString kSezioneProgrammi = QStringLiteral("PROGRAMMI_ESTERNI");

struct ComandoAvvio {
    QString programma; // as written in the command line (Windows form)
    QStringList argomenti;
};

// Splits a command line in Windows form: a quoted program, or the text up to the end of its
// ".exe" (and any characters stuck behind it, as "Ponticello.exe2"), or up to the first blank.
ComandoAvvio ScomponiComando(const QString& riga);

// The program and arguments handed to the platform: the host command of the mapping in the
// settings with the arguments behind it, else the program as written.
ComandoAvvio ComandoDaAvviare(Stato& stato, const QString& riga);

// Starts a program on this host and waits for its end without time limit: a path in Windows
// form is mapped to the host, and off Windows a ".exe" runs through wine. Returns the exit
// code, -1 when it could not start, -2 when it crashed. The platforms call it; nothing else
// should.
int AvviaProcessoHost(const QString& programma, const QStringList& argomenti);

// Why a program could not start, in words for the operator.
QString MotivoMancatoAvvio(const QString& programma);

// Tag "3105": starts the command line and waits for its end without time limit; a program that
// cannot start gives the error report (53, with the reason). Returns the exit code, -1 when it
// did not start.
int ShellInfinita(Stato& stato, const QString& riga, int stile = 1);

} // namespace tavolet
