// "Configura Pregeo": the editor of PREGEO.INI.
#pragma once

#include "stato.h"

#include <QDialog>
#include <QMap>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace tavolet {

class FormConfiguraPregeo : public QDialog {
    Q_OBJECT
public:
    explicit FormConfiguraPregeo(Stato& stato, QWidget* parent = nullptr);
    static int Esegui(Stato& stato, QWidget* parent);

    QPlainTextEdit* Editor() const { return editor_; }
    // The command of that index (0 close, 6 save, 7 reload, 13 shortcuts).
    QPushButton* Comando(int indice) const { return comandi_.value(indice); }

protected:
    void done(int r) override;

private:
    void EseguiComando(int indice);

    Stato& stato_;
    QPlainTextEdit* editor_ = nullptr;
    QLabel* versione_ = nullptr;
    QMap<int, QPushButton*> comandi_;
};

} // namespace tavolet
