// "Configura Libretto ": the head data of the libretto (rows 0 and 9), the technician and the
// comment row, over the logic of configurazione/.
#pragma once

#include "configurazione.h"
#include "stato.h"

#include <QDialog>
#include <QMap>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tavolet {

class FormCatasto1TXT : public QDialog {
    Q_OBJECT
public:
    explicit FormCatasto1TXT(Stato& stato, QWidget* parent = nullptr, bool perComando = false);

    // Opens the form modally; returns EsitoDialogo (1 after "&Conferma").
    static int Esegui(Stato& stato, QWidget* parent, bool perComando = false);

    QLineEdit* Campo(int indice) const { return campi_[size_t(indice)]; }
    QPushButton* Comando(int indice) const { return comandi_.value(indice); }
    QComboBox* Combo(int numero) const { return combo_.value(numero); }
    QListWidget* Tecnici() const { return tecnici_; }
    const FormConfigurazione& Form() const { return f_; }

protected:
    void done(int r) override;

private:
    QPushButton* NuovoComando(int indice, const QString& caption);
    void Mostra();
    void Leggi();
    void Esegui(int indice);

    Stato& stato_;
    FormConfigurazione f_;
    std::array<QLineEdit*, kCampiConfigurazione> campi_{};
    QMap<int, QPushButton*> comandi_;
    QMap<int, QComboBox*> combo_;
    QCheckBox* check1_ = nullptr;
    QCheckBox* check2_ = nullptr;
    QListWidget* tecnici_ = nullptr;
    QLabel* estratto_ = nullptr;
    QLabel* misurate_ = nullptr;
    QLabel* misurate2_ = nullptr;
    bool mostrando_ = false;
};

} // namespace tavolet
