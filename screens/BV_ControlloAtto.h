// "Controllo Atto": the report of the act's check, a row a finding, sorted by row.
#pragma once

#include "controllo.h"
#include "stato.h"

#include <QDialog>

#include <functional>

class QTableWidget;

namespace tavolet {

class BV_ControlloAtto : public QDialog {
    Q_OBJECT
public:
    // vaiAllaRiga selects a row (1-based) of the main form on a double click.
    BV_ControlloAtto(Stato& stato, std::function<void(int)> vaiAllaRiga, QWidget* parent = nullptr);
    // "Aggiorna": the check again on the document as it stands.
    void Aggiorna();
    // "Esporta": the report as text beside the libretto. False when nothing was written.
    bool Esporta();
    QTableWidget* Griglia() const { return griglia_; }
    const QList<Rilievo>& Rilievi() const { return rilievi_; }

protected:
    void done(int r) override;

private:
    Stato& stato_;
    std::function<void(int)> vaiAllaRiga_;
    QTableWidget* griglia_ = nullptr;
    QList<Rilievo> rilievi_;
};

// The title with the counts: "Controllo Atto - 2 errori, 1 avviso".
QString TitoloControllo(const QList<Rilievo>& rilievi);

} // namespace tavolet
