// The choice of the .DDD archive of measured distances in the fiducial folder: choose, close,
// install, delete.
#pragma once

#include <QDialog>
#include <QMap>

class QListWidget;
class QPushButton;

namespace tavolet {

struct Stato;

class BV_SelezionaMisurate : public QDialog {
    Q_OBJECT
public:
    explicit BV_SelezionaMisurate(Stato& stato, QWidget* parent = nullptr);
    // Modal. EsitoDialogo 1 when an archive was chosen.
    static int Esegui(Stato& stato, QWidget* parent);

    QListWidget* Lista() const { return lista_; }
    // 0 chooses, 1 closes, 2 the installing word, 3 deletes.
    QPushButton* Comando(int indice) const { return comandi_.value(indice); }
    void EseguiComando(int indice);
    void Aggiorna();

protected:
    void done(int r) override;

private:
    QString Scelto() const;

    Stato& stato_;
    QListWidget* lista_ = nullptr;
    QMap<int, QPushButton*> comandi_;
};

} // namespace tavolet
