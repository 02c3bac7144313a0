// The general print screen: every report of the program leaves it here, as a list of lines.
#pragma once

#include "stato.h"

#include <QDialog>

#include <functional>

class QLabel;
class QListWidget;
class QPrinter;
class QPushButton;
class QRadioButton;

namespace tavolet {

class BV_StampaGenerale : public QDialog {
    Q_OBJECT
public:
    // nomeFile goes in the caption; radiceFile is the stem of the files of the report (its
    // .CSV for "Invia", its .TXT for the word processor), empty when there are none.
    BV_StampaGenerale(Stato& stato, const QStringList& righe, const QString& nomeFile = {},
                      const QString& radiceFile = {}, QWidget* parent = nullptr);
    // Shows the lines modally; the entry every report of the program calls.
    static void Esegui(Stato& stato, const QStringList& righe, const QString& nomeFile = {},
                       const QString& radiceFile = {}, QWidget* parent = nullptr);

    // The printer dialog; tests set a PDF file instead. False when cancelled.
    static std::function<bool(QPrinter&, QWidget*)> ScegliStampante;

    QPushButton* Pulsante(int indice) const;
    QListWidget* Righe() const { return righe_; }
    QListWidget* Modelli() const { return modelli_; }
    QStringList TestoRighe() const;
    // Runs a command by its index.
    void Comando(int indice);

protected:
    void done(int r) override;

private:
    void ImpostaRighe(const QStringList& righe);
    void AggiornaModelli();
    void Stampa();
    void StampaGrafica();
    void ScegliCarattere();
    void ApriEditor();

    Stato& stato_;
    QString radiceFile_;
    QListWidget* righe_ = nullptr;
    QListWidget* modelli_ = nullptr;
    QLabel* visualizzatore_ = nullptr;
    QRadioButton* verticale_ = nullptr;
    QRadioButton* comeXls_ = nullptr;
    QMap<int, QPushButton*> pulsanti_;
};

} // namespace tavolet
