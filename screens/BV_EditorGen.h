// The text editor of the libretto (381), of the print templates (382), of the censuary model (383).
#pragma once

#include "stato.h"

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

namespace tavolet {

class BV_EditorGen : public QDialog {
    Q_OBJECT
public:
    BV_EditorGen(Stato& stato, int modo, QWidget* parent = nullptr);
    // Opens the editor modally in a mode; the mode returns to 0 on closing.
    static void Esegui(Stato& stato, int modo, QWidget* parent);

    QPlainTextEdit* Testo() const { return testo_; }
    QPushButton* Pulsante(int indice) const;
    // Stores the text in the document of the mode.
    bool Memorizza();

protected:
    void closeEvent(QCloseEvent* e) override;
    void reject() override { close(); }

private:
    Stato& stato_;
    int modo_;
    QPlainTextEdit* testo_ = nullptr;
    QList<QPushButton*> pulsanti_;
    bool chiudendo_ = false;
};

} // namespace tavolet
