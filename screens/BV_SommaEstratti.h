// "Unisci Estratti": a base extract and a second one chosen from the list, joined into one
// self-made extract shown in the plot before it is stored.
#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;
class QProgressBar;

namespace tavolet {

struct Stato;
class Grafica;

class BV_SommaEstratti : public QDialog {
    Q_OBJECT
public:
    BV_SommaEstratti(Stato& stato, const QString& estrattoBase, QWidget* parent = nullptr);
    // Modal; returns the name of the extract written, empty when none.
    static QString Esegui(Stato& stato, const QString& estrattoBase, QWidget* parent);

    QListWidget* Lista() const { return lista_; }
    QLineEdit* Nome() const { return nome_; }
    QString Risultato() const { return risultato_; }
    void SelezionaAggiunto();
    void Conferma();
    void SommaComune();

private:
    Stato& stato_;
    QString base_, aggiunto_, risultato_;
    QListWidget* lista_ = nullptr;
    QLineEdit* nome_ = nullptr;
    Grafica* grafica_ = nullptr;
    QProgressBar* avanzamento_ = nullptr;
};

} // namespace tavolet
