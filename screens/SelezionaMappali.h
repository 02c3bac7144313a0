// "Seleziona Mappali": the parcels of the associated extract that the act may touch.
#pragma once

#include "mappali.h"
#include "stato.h"

#include <QDialog>

class QLineEdit;
class QListWidget;

namespace tavolet {

class SelezionaMappali : public QDialog {
    Q_OBJECT
public:
    SelezionaMappali(Stato& stato, SceltaMappali& scelta, QWidget* parent = nullptr);

    QListWidget* Lista() const { return lista_; }
    QLineEdit* EstMedio() const { return estMedio_; }

protected:
    void done(int r) override;

private:
    void Conferma();

    Stato& stato_;
    SceltaMappali& scelta_;
    QListWidget* lista_ = nullptr;
    QLineEdit* quota_ = nullptr;
    QLineEdit* estMedio_ = nullptr;
};

} // namespace tavolet
