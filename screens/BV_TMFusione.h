// "Fusione": parcels of the archive merged into one, as "TM" or "Ausiliario".
#pragma once

#include "stato.h"

#include <QDialog>

class QCheckBox;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace tavolet {

class BV_TMFusione : public QDialog {
    Q_OBJECT
public:
    explicit BV_TMFusione(Stato& stato, QWidget* parent = nullptr);
    static void Esegui(Stato& stato, QWidget* parent);

    QPushButton* Pulsante(const QString& caption) const;
    QListWidget* Archivio() const { return archivio_; }
    QListWidget* InFusione() const { return inFusione_; }
    QListWidget* Anteprima() const { return anteprima_; }
    QListWidget* Memo() const { return memo_; }
    QCheckBox* Mantieni() const { return mantieni_; }
    QRadioButton* Ausiliario() const { return ausiliario_; }

protected:
    void done(int r) override;

private:
    void Componi();
    void Mostra();

    Stato& stato_;
    QStringList ParticelleInFusione;
    QStringList AnteprimaFusione_;
    QStringList memo;
    QListWidget* archivio_ = nullptr;
    QListWidget* inFusione_ = nullptr;
    QListWidget* anteprima_ = nullptr;
    QListWidget* memo_ = nullptr;
    QCheckBox* mantieni_ = nullptr;
    QRadioButton* tm_ = nullptr;
    QRadioButton* ausiliario_ = nullptr;
};

} // namespace tavolet
