// The main form: the rows of the libretto, its head data and every command on them.
#pragma once

#include "annulla.h"
#include "stato.h"

#include <QMainWindow>
#include <QMap>

class QAction;
class QFrame;
class QScrollArea;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMimeData;
class QPlainTextEdit;
class QPushButton;

namespace tavolet {

class BV_ControlloAtto;

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
    // A file dropped on the row list.
    void Trascina(const QString& percorso);
    // The files of a drop: the first one counts. False when there is no local file.
    bool TrascinaDati(const QMimeData* dati);
    // Ctrl+Z and Ctrl+Y (Ctrl+Maiusc+Z): one change of the document back or forward.
    void AnnullaComando();
    void RipetiComando();
    // Ctrl+O: the file chosen in the dialog is handled as a file dropped on the row list.
    void ApriComeTrascinamento();
    // Ctrl+F moves to the find field; Enter there selects the next row that holds its text.
    QLineEdit* CampoTrova() const { return trova_; }
    void TrovaSuccessiva();

    QListWidget* Lista() const { return righe_; }
    QLabel* Contatore() const { return contatore_; }
    // The command button of that index (the indices of the system's own form).
    QPushButton* Pulsante(int indice) const { return pulsanti_.value(indice); }
    QPushButton* Pulsante(const QString& caption) const;
    QAction* Voce(const QString& menu, const QString& voce) const;
    QFrame* PannelloUtilita() const { return pannelloUtilita_; }
    QListWidget* OpzioniSalvataggio() const { return opzioni_; }
    // The two commands of the save options that have no control on the form.
    void PulisciOpzioniSalvataggio();
    void SelezionaTutteOpzioni();
    // "Controllo Atto" (Utilità, Ctrl+Maiusc+K): the report beside the form, shown again.
    void ApriControlloAtto();
    BV_ControlloAtto* ControlloAtto() const { return controllo_; }
    // Selects that row (1-based) alone and shows it, as a click on it does.
    void SelezionaRiga(int riga);
    // "&Salva in Pregeo": with the option of the check on, an act with an Errore shows its
    // report and asks before the sibling tool starts. False when the operator stopped it.
    bool SalvaInPregeo();

protected:
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* o, QEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void CostruisciMenu();
    void CostruisciPannelli();
    void CostruisciPulsanti(QGridLayout* griglia);
    void MostraPannelloUtilita(bool visibile);
    QAction* NuovaVoce(QMenu* menu, const QString& caption, std::function<void()> azione = {});
    void MostraRighe();
    void MostraDati();
    void LeggiSelezione();
    // Runs a command on the document and shows the document again. The document before it
    // becomes a step of undo when the command changed it; descrizione names the step.
    void Comando(const std::function<void()>& azione, const QString& descrizione = QString());
    // The status bar says what the last command did.
    void Avvisa(const QString& testo);
    void CostruisciScorciatoie();
    void Salva();
    void Copia();
    void ApplicaCarattere();
    void DoppioClic(int riga);
    void Invio();
    void EliminaRighe();
    void NuovoLibretto();
    void Ordina();
    void subModificaDiretta();

    // Commands whose screens belong to other parts of the program: each is the one place
    // where that screen is opened from here.
    void ApriConfigurazione();
    void ApriEstratti();
    void subModelloCensuario();
    void ApriTaf();
    void ApriDaPregeoDxf();
    void AssegnaDescrizione();
    void DistanzePF(const QString& riga);
    void InfoMisuratePF();
    void ComandoUtilita(const QString& tag);

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
    QFrame* pannelloUtilita_ = nullptr;
    QScrollArea* scorriUtilita_ = nullptr;
    QGroupBox* opzioniBox_ = nullptr;
    QListWidget* opzioni_ = nullptr;
    BV_ControlloAtto* controllo_ = nullptr;
    QMap<int, QPushButton*> pulsanti_;
    bool mostrando_ = false;
    QLineEdit* trova_ = nullptr;
    Annullamenti annullamenti_;
    QString descrizione_; // the name of the step the running command makes
    QString ultimoPasso_; // the step the last showing of the document recorded
};

} // namespace tavolet
