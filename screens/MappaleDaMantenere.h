// Which parcel of row 0 keeps its number: it goes first in the list of parcels.
#pragma once

#include "mappali.h"
#include "stato.h"

#include <QDialog>

class QLabel;
class QListWidget;

namespace tavolet {

class MappaleDaMantenere : public QDialog {
    Q_OBJECT
public:
    MappaleDaMantenere(Stato& stato, SceltaMappali& scelta, QWidget* parent = nullptr);

    QListWidget* Mappali() const { return mappali_; }
    QListWidget* Righe() const { return righe_; }
    QLabel* Avviso() const { return avviso_; }

protected:
    void done(int r) override;

private:
    void ConfermaMappali();

    Stato& stato_;
    SceltaMappali& scelta_;
    QListWidget* mappali_ = nullptr;
    QListWidget* righe_ = nullptr;
    QLabel* avviso_ = nullptr;
};

} // namespace tavolet
