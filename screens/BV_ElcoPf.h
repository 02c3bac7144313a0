// The browser of the fiducial archive: the province files of Pregeo's arch folder, the
// municipalities of the chosen one, and the grid of a municipality's TAF.
#pragma once

#include "taf.h"

#include <QDialog>

class QLabel;
class QListWidget;

namespace tavolet {

struct Stato;

class BV_ElcoPf : public QDialog {
    Q_OBJECT
public:
    explicit BV_ElcoPf(Stato& stato, QWidget* parent = nullptr);
    static int Esegui(Stato& stato, QWidget* parent);

    QListWidget* FileProvince() const { return file_; }
    QListWidget* Comuni() const { return comuni_; }
    QString Provincia() const { return provincia_; }

    // A province file clicked: its lines become the list.
    void CaricaProvincia(const QString& file);
    // A municipality chosen: its TAF in the grid, as a dialog; nothing when there is no TAF.
    void SelezionaComune(int riga);

protected:
    void done(int r) override;

private:
    Stato& stato_;
    QListWidget* file_ = nullptr;
    QListWidget* comuni_ = nullptr;
    QLabel* etichetta_ = nullptr;
    QString provincia_;
    QList<ComuneTaf> elenco_;
};

} // namespace tavolet
