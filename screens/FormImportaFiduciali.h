// "Importa Fiduciali da TAF": the rows 8 of the libretto's fiducials read from their TAF, put
// into the libretto in place of its rows 8.
#pragma once

#include <QDialog>
#include <QMap>

class QCheckBox;
class QListWidget;
class QPushButton;

namespace tavolet {

struct Stato;

class FormImportaFiduciali : public QDialog {
    Q_OBJECT
public:
    explicit FormImportaFiduciali(Stato& stato, QWidget* parent = nullptr);
    // Modal. EsitoDialogo 1 when the rows went into the libretto.
    static int Esegui(Stato& stato, QWidget* parent);

    QListWidget* Lista() const { return lista_; }
    QCheckBox* Quote() const { return quote_; }
    // 0 imports and closes, 1 closes, 2 the installing word.
    QPushButton* Comando(int indice) const { return comandi_.value(indice); }
    void EseguiComando(int indice);
    void CaricaPieffe8();

protected:
    void done(int r) override;

private:
    Stato& stato_;
    QListWidget* lista_ = nullptr;
    QCheckBox* quote_ = nullptr;
    QMap<int, QPushButton*> comandi_;
};

} // namespace tavolet
