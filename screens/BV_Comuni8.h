// "Comuni ": the province files of Pregeo and their municipalities; the choice goes back into
// the head data.
#pragma once

#include "comuni.h"
#include "stato.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace tavolet {

class BV_Comuni8 : public QDialog {
    Q_OBJECT
public:
    explicit BV_Comuni8(Stato& stato, QWidget* parent = nullptr);
    // Opens the screen modally; returns EsitoDialogo (1 when a municipality was taken).
    static int Esegui(Stato& stato, QWidget* parent);

    QListWidget* Province() const { return province_; }
    QListWidget* Comuni() const { return comuni_; }
    QLabel* EtichettaComune() const { return comune_; }
    // Prints the list of municipalities; installed by the print screen when there is one.
    static inline std::function<void(Stato&, const QStringList&)> Stampa;

protected:
    void done(int r) override;

private:
    void Mostra();
    void Copia();

    Stato& stato_;
    ElencoComuni8 e_;
    QListWidget* province_ = nullptr;
    QListWidget* comuni_ = nullptr;
    QLabel* file_ = nullptr;
    QLabel* provincia_ = nullptr;
    QLabel* comune_ = nullptr;
};

} // namespace tavolet
