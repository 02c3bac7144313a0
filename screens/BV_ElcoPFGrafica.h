// The plot of a municipality's fiducial points: selection by command and by click, the measures
// of the archive between the selected points, the printed list, the copy into the drawing, the
// picture, the print file and the DXF.
#pragma once

#include "grafica_pf.h"

#include <QDialog>

#include <functional>

class QLabel;
class QPushButton;

namespace tavolet {

struct Stato;
class Grafica;

class BV_ElcoPFGrafica : public QDialog {
    Q_OBJECT
public:
    // The points of the grid's codes, read again from the municipality's TAF.
    BV_ElcoPFGrafica(Stato& stato, const QString& comune, const QStringList& codici,
                     QWidget* parent = nullptr);
    static int Esegui(Stato& stato, const QString& comune, const QStringList& codici,
                      QWidget* parent);

    TabellaPF& Tabella() { return tabella_; }
    Grafica* Disegno() const { return grafica_; }
    QLabel* TestoStato() const { return stato_label_; }
    QPushButton* Pulsante(const QString& caption) const;
    // The canvas of the plot, where the mouse works.
    QWidget* Tela() const { return tela_; }

    // The picture again from the table; adatta fits the view to the points.
    void Ridisegna(bool adatta = false);
    // World position of a point of the canvas.
    QPointF Mondo(const QPointF& pixel) const;
    // A click on the canvas: the nearest point changes its selection.
    void Clic(const QPointF& pixel);
    void MuoviMouse(const QPointF& pixel);

    // The commands that open a small dialog.
    void Foglio();
    void Intorno();

protected:
    bool eventFilter(QObject* o, QEvent* e) override;
    void done(int r) override;

private:
    void Comando(const std::function<void()>& azione);
    void MostraMisurate();
    void MonografiaSelezionato();
    void CopiaSchermo();
    void AnteprimaStampa();
    void SalvaDxf();

    Stato& stato_;
    TabellaPF tabella_;
    Grafica* grafica_ = nullptr;
    QWidget* tela_ = nullptr;
    QLabel* stato_label_ = nullptr;
    int scelto_ = -1; // the point last clicked: the centre of "Intorno"
};

} // namespace tavolet
