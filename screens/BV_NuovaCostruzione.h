// "TM Nuova Costruzione": the rows O, S, C of a new building's ground on the chosen parcel.
#pragma once

#include "particelle.h"
#include "stato.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace tavolet {

class BV_NuovaCostruzione : public QDialog {
    Q_OBJECT
public:
    BV_NuovaCostruzione(Stato& stato, const CampiParticella& particella, QWidget* parent = nullptr);
    static void Esegui(Stato& stato, const CampiParticella& particella, QWidget* parent);

    QPushButton* Pulsante(const QString& caption) const;
    QListWidget* Modello() const { return modello_; }
    QListWidget* Memo() const { return memo_; }
    QListWidget* Identificativi() const { return identificativi_; }

protected:
    void done(int r) override;

private:
    void Mostra();

    Stato& stato_;
    QStringList ModelloNuovo;
    QStringList memo;
    QListWidget* modello_ = nullptr;
    QListWidget* memo_ = nullptr;
    QListWidget* identificativi_ = nullptr;
};

} // namespace tavolet
