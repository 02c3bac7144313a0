// Failures as the BASIC runtime numbers them, and the trap that turns any failure into the
// error report instead of an end of the program.
#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

namespace tavolet {

struct Stato;

struct Errore : std::exception {
    int numero;
    QString descrizione;
    explicit Errore(int n, QString d = QString());
    const char* what() const noexcept override { return "Errore"; }
};

// Standard description of a runtime error number, in Italian.
QString DescrizioneErrore(int numero);

// Shows the error report; 32755 (a cancelled file dialog) shows nothing. Clears TagRoutine.
void MostraErrore(Stato& stato, int numero, const QString& descrizione, const QString& routine);

// Runs corpo with TagRoutine set to tag; any Errore or std::exception goes to MostraErrore
// with the tag that stands at that moment. Returns false when the body failed.
bool ConTrappola(Stato& stato, const QString& tag, const std::function<void()>& corpo);

} // namespace tavolet
