// "Da Pregeo": the acts of Pregeo's archive, the points that Pregeo computed for the chosen act
// and their plot; from here a libretto by coordinates.
#pragma once

#include "dapregeo.h"
#include "stato.h"

#include <QDialog>

class QPushButton;
class QTableWidget;

namespace tavolet {

class Grafica;

class BV_Dapregeo : public QDialog {
    Q_OBJECT
public:
    // flag: 0 for DA_PREGEO, 1 for DA_PREGEO_DXF and the menu.
    BV_Dapregeo(Stato& stato, int flag, QWidget* parent = nullptr);

    // Opens the screen modally. Returns EsitoDialogo.
    static int Esegui(Stato& stato, int flag, QWidget* parent);

    const DaPregeo& Dati() const { return dp_; }
    QTableWidget* GrigliaAtti() const { return atti_; }
    QTableWidget* GrigliaPunti() const { return punti_; }
    Grafica* Disegno() const { return grafica_; }
    QPushButton* Pulsante(const QString& caption) const;
    // A click on a row of the acts.
    void ScegliAtto(int riga);

protected:
    void showEvent(QShowEvent* e) override;
    void done(int r) override;

private:
    void MostraAtti();
    void MostraPunti();
    void LibrettoPerCoordinate();
    void GeneraDxf();
    void Disegna(const QString& elabSur);

    Stato& stato_;
    DaPregeo dp_;
    bool caricato_ = false;
    QTableWidget* atti_ = nullptr;
    QTableWidget* punti_ = nullptr;
    Grafica* grafica_ = nullptr;
};

} // namespace tavolet
