// "Cambia > Descrizione": one description given to the selected rows of the libretto.
#pragma once

#include "stato.h"

#include <QDialog>

class QLineEdit;

namespace tavolet {

class FormAssegnaDescrizione : public QDialog {
    Q_OBJECT
public:
    explicit FormAssegnaDescrizione(Stato& stato, QWidget* parent = nullptr);
    QLineEdit* Descrizione() const { return descrizione_; }

protected:
    void done(int r) override;

private:
    void Assegna();

    Stato& stato_;
    QLineEdit* descrizione_ = nullptr;
};

// Opens the form modally over the main form. Returns EsitoDialogo.
int ApriAssegnaDescrizione(Stato& stato, QWidget* parent);

} // namespace tavolet
