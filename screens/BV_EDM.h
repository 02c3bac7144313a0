// "Archivio Particelle": the parcel files of the surveyor's cadastre, their fields, and the way
// into the censuary screens.
#pragma once

#include "particelle.h"
#include "stato.h"

#include <QDialog>
#include <QMap>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tavolet {

class BV_EDM : public QDialog {
    Q_OBJECT
public:
    explicit BV_EDM(Stato& stato, QWidget* parent = nullptr);
    // Opens the archive modally. True when it closed asking for the extracts screen.
    static bool Esegui(Stato& stato, QWidget* parent);

    QPushButton* Pulsante(const QString& caption) const;
    QListWidget* Archivio() const { return archivio_; }
    QListWidget* MappaliLibretto() const { return libretto_; }
    QListWidget* MappaliProposta() const { return proposta_; }
    QLabel* Struttura() const { return struttura_; }
    QLineEdit* Campo(const QString& nome) const { return campi_.value(nome); }
    bool ChiedeEstratti() const { return estratti_; }
    // The fields of the screen as the censuary screens read them.
    CampiParticella Campi() const;

protected:
    void showEvent(QShowEvent* e) override;
    void done(int r) override;

private:
    void Aggiorna(); // the list by the pattern, the libretto's parcels, the extract
    void ScegliFile(const QString& nome);
    bool Scelta(bool conMessaggio);
    void MostraCampi(const CampiParticella& c);
    void ScegliComune(bool soloConfermato);

    Stato& stato_;
    QString modello_ = QStringLiteral("*.MAP");
    QListWidget* archivio_ = nullptr;
    QListWidget* libretto_ = nullptr;
    QListWidget* proposta_ = nullptr;
    QLabel* struttura_ = nullptr;
    QLabel* estratto_ = nullptr;
    QMap<QString, QLineEdit*> campi_;
    bool estratti_ = false;
};

} // namespace tavolet
