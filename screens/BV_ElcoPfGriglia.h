// The grid of a municipality's fiducial points from its TAF, with the labels above, the printed
// selection, the plot and the registry's monograph of a point.
#pragma once

#include "taf.h"

#include <QAbstractTableModel>
#include <QDialog>

class QLabel;
class QMenuBar;
class QTableView;

namespace tavolet {

struct Stato;

// The rows of the grid for the view: row 0 of the grid is the header, the others the points.
class ModelloGrigliaTaf : public QAbstractTableModel {
public:
    explicit ModelloGrigliaTaf(QList<QStringList> griglia, QObject* parent = nullptr);
    int rowCount(const QModelIndex& genitore = {}) const override;
    int columnCount(const QModelIndex& genitore = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo) const override;
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override;
    const QList<QStringList>& Griglia() const { return griglia_; }

private:
    QList<QStringList> griglia_;
};

class BV_ElcoPfGriglia : public QDialog {
    Q_OBJECT
public:
    BV_ElcoPfGriglia(Stato& stato, const QString& provincia, const QString& nome,
                     const QString& codice, const QList<RigaTaf>& righe, QWidget* parent = nullptr);

    QTableView* Tabella() const { return tabella_; }
    const QList<QStringList>& Griglia() const { return modello_->Griglia(); }
    QLabel* Etichetta(int indice) const { return etichette_.value(indice); }
    QAction* Voce(const QString& caption) const;
    // The base unit of the widths, from the grid's font.
    int UnitaBase() const;

    // The menu's commands.
    void ApriGrafica();
    void Stampa_selezione();
    void Monografie();
    // The registry's page of the point of that grid row (1 the first point).
    void Monografia(int riga);

protected:
    void done(int r) override;

private:
    Stato& stato_;
    QString comune_;
    ModelloGrigliaTaf* modello_ = nullptr;
    QTableView* tabella_ = nullptr;
    QList<QLabel*> etichette_;
    QMenuBar* menu_ = nullptr;
};

} // namespace tavolet
