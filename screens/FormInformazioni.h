// The information screens of the "?" menu: "Configurazione" (version and the working folders)
// and "Autore".
#pragma once

#include "stato.h"

#include <QDialog>

class QPlainTextEdit;

namespace tavolet {

class FormInformazioni : public QDialog {
    Q_OBJECT
public:
    explicit FormInformazioni(Stato& stato, QWidget* parent = nullptr);
    static void Esegui(Stato& stato, QWidget* parent = nullptr);
    QPlainTextEdit* Testo() const { return testo_; }

protected:
    void done(int r) override;

private:
    Stato& stato_;
    QPlainTextEdit* testo_ = nullptr;
};

// The form "autore": who wrote the program, its version and where to find it on the web.
class FormAutore : public QDialog {
    Q_OBJECT
public:
    explicit FormAutore(Stato& stato, QWidget* parent = nullptr);
    static void Esegui(Stato& stato, QWidget* parent = nullptr);

protected:
    void done(int r) override;

private:
    Stato& stato_;
};

// The text of the form "autore".
QString TestoAutore();

} // namespace tavolet
