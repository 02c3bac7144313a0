// "Codici Fiscali di Comuni": every municipality with its codes, searched from the left or
// anywhere; the choice goes back into the head data.
#pragma once

#include "stato.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;

namespace tavolet {

class BV_CodFis : public QDialog {
    Q_OBJECT
public:
    explicit BV_CodFis(Stato& stato, QWidget* parent = nullptr);
    // Opens the screen modally; returns EsitoDialogo. "Comuni &In Pregeo" goes on to BV_Comuni8.
    static int Esegui(Stato& stato, QWidget* parent);

    QListWidget* Lista() const { return lista_; }
    QLineEdit* RicercaSinistra() const { return sinistra_; }
    QLineEdit* RicercaGenerale() const { return generale_; }
    QLabel* Codice() const { return codice_; }
    bool ComuniInPregeo() const { return inPregeo_; }

protected:
    void done(int r) override;

private:
    void Cerca(QLineEdit* campo, bool generale);
    void Copia();

    Stato& stato_;
    QStringList righe_;
    QListWidget* lista_ = nullptr;
    QLineEdit* sinistra_ = nullptr;
    QLineEdit* generale_ = nullptr;
    QLabel* codice_ = nullptr;
    bool inPregeo_ = false;
};

} // namespace tavolet
