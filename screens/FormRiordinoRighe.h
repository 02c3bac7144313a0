// "Riordino Righe": the groups of the libretto side by side; groups can be deleted before the
// libretto is composed again.
#pragma once

#include "riordino.h"
#include "stato.h"

#include <QDialog>

#include <array>
#include <map>

class QLabel;
class QListWidget;
class QPushButton;

namespace tavolet {

class FormRiordinoRighe : public QDialog {
    Q_OBJECT
public:
    explicit FormRiordinoRighe(Stato& stato, QWidget* parent = nullptr);

    // The "Ordina" command of the main form: opens the form modally; on "&Conferma" the
    // document is composed again and the row list rebuilt. Returns EsitoDialogo.
    static int Esegui(Stato& stato, QWidget* parent);

    const GruppiLibretto& Gruppi() const { return gruppi_; }
    QListWidget* Lista(Gruppo g) const { return liste_.at(g); }
    QPushButton* PulsanteElimina(int indice) const { return elimina_.at(indice); }

protected:
    void showEvent(QShowEvent* e) override;
    void done(int r) override;

private:
    void MostraGruppi();
    void Conferma();
    void Annulla();

    Stato& stato_;
    GruppiLibretto gruppi_;
    bool esploso_ = false;
    std::map<Gruppo, QListWidget*> liste_;
    std::array<QPushButton*, 11> elimina_{};
    QLabel* iscrizione_ = nullptr;
    QLabel* codiceFiscale_ = nullptr;
};

} // namespace tavolet
