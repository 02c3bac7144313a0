// The main form: the rows of the libretto, its head data and its commands.
#pragma once

#include "stato.h"

#include <QMainWindow>

class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QGridLayout;
class QMenu;
class QMimeData;

namespace tavolet {

class BV_LibrettoOriginale : public QMainWindow {
    Q_OBJECT
public:
    explicit BV_LibrettoOriginale(Stato& stato, QWidget* parent = nullptr);

    // The start of the form: false when the program must end at once.
    bool Carica(const QString& rigaComando);
    // Title and counter from the current row.
    void Righe_Indice();
    // Shows the rows and the data of the document again.
    void MostraDocumento();
    // A file dropped on the row list (only the first file of a drop counts).
    void Trascina(const QString& percorso);
    // The files of a drop: the first one counts. False when there is no local file.
    bool TrascinaDati(const QMimeData* dati);

    QListWidget* Lista() const { return righe_; }
    QLabel* Contatore() const { return contatore_; }
    QPushButton* Pulsante(const QString& caption) const;

protected:
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* o, QEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void CostruisciMenu();
    void CostruisciPannelli();
    QPushButton* NuovoPulsante(QGridLayout* griglia, int riga, int colonna, const QString& caption,
                               const QString& hint);
    void MostraRighe();
    void MostraDati();
    void LeggiSelezione();
    void Salva();
    void ApplicaCarattere();

    Stato& stato_;
    QListWidget* righe_ = nullptr;
    QLabel* contatore_ = nullptr;
    QLabel* nomeFile_ = nullptr;
    QLabel* misurate_ = nullptr;
    QLabel* estratto_ = nullptr;
    QLabel* versione_ = nullptr;
    QLineEdit* iscrizione_ = nullptr;
    QLineEdit* codiceFiscale_ = nullptr;
    QPlainTextEdit* possessori_ = nullptr;
    bool mostrando_ = false;
};

} // namespace tavolet
