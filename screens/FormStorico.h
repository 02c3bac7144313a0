// "Ricarica da Storico": the kept versions of the open libretto, newest first, the rows of the
// one selected shown read-only, and "Ripristina", which hands that version back to the main
// form to load as the document.
#pragma once

#include "stato.h"
#include "storico.h"

#include <QDialog>
#include <QList>

#include <optional>

class QPlainTextEdit;
class QPushButton;
class QTableWidget;

namespace tavolet {

class FormStorico : public QDialog {
    Q_OBJECT
public:
    explicit FormStorico(Stato& stato, QWidget* parent = nullptr);
    // The version chosen with "Ripristina"; nothing when the screen was closed otherwise.
    static std::optional<VersioneLibretto> Esegui(Stato& stato, QWidget* parent = nullptr);

    QTableWidget* Versioni() const { return tabella_; }
    QPlainTextEdit* Righe() const { return righe_; }
    QPushButton* PulsanteRipristina() const { return ripristina_; }
    std::optional<VersioneLibretto> Scelta() const { return scelta_; }

protected:
    void done(int r) override;

private:
    void MostraVersione(int indice);

    Stato& stato_;
    QList<VersioneLibretto> versioni_;
    QTableWidget* tabella_ = nullptr;
    QPlainTextEdit* righe_ = nullptr;
    QPushButton* ripristina_ = nullptr;
    std::optional<VersioneLibretto> scelta_;
};

} // namespace tavolet
