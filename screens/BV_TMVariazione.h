// "TM Variazione": the rows O, V of a parcel that changes in place.
#pragma once

#include "particelle.h"
#include "stato.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace tavolet {

class BV_TMVariazione : public QDialog {
    Q_OBJECT
public:
    BV_TMVariazione(Stato& stato, const CampiParticella& particella, QWidget* parent = nullptr);
    static void Esegui(Stato& stato, const CampiParticella& particella, QWidget* parent);

    QPushButton* Pulsante(const QString& caption) const;
    QListWidget* Modello() const { return modello_; }
    QListWidget* Memo() const { return memo_; }

protected:
    void done(int r) override;

private:
    void Mostra();

    Stato& stato_;
    QStringList ModelloNuovo;
    QStringList memo;
    QListWidget* modello_ = nullptr;
    QListWidget* memo_ = nullptr;
};

} // namespace tavolet
