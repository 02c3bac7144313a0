// "Gestione Estratti di Mappa": the archive of extracts in Pregeo's folder, with the plot, the
// image preview, the head data of the selected extract and the commands on it.
#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;

namespace tavolet {

struct Stato;
class Grafica;
class Anteprima;

class BV_EstrattiDiMappa1 : public QDialog {
    Q_OBJECT
public:
    explicit BV_EstrattiDiMappa1(Stato& stato, QWidget* parent = nullptr);
    ~BV_EstrattiDiMappa1() override;
    // Modal; the caller reloads its list afterwards.
    static void Esegui(Stato& stato, QWidget* parent);

    // The list by the current filter; the selection kept when the name is still there.
    void AggiornaLista(const QString& seleziona = {});
    // Selecting an entry: the plot or the image, and the head data.
    void AnteprimaEstratto();
    QString Selezionato() const;

    QListWidget* Lista() const { return lista_; }
    QLabel* Campo(const QString& nome) const;
    QLineEdit* nuovoNome = nullptr;
    QLineEdit* particella = nullptr;
    QLineEdit* particellaNuova = nullptr;
    Grafica* grafica() const { return grafica_; }

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    QPushButton* Pulsante(const QString& testo, void (BV_EstrattiDiMappa1::*metodo)());
    bool Guardia(const QString& messaggio);
    void Duplica();
    void Rinomina();
    void Elimina();
    void Vuota();
    void Autoallestito();
    void Completa();
    void Unisci();
    void Associa();
    void AssociaInLavoro();
    void Verifica();
    void StampaEmp();
    void GestioneCensuario();
    void AzzeraDitteEstratto();
    void DaDxf();
    void DaCxf();
    void Esporta();
    void EsportaGeoPackage();
    void Importa();
    void CopiaSuffisso();
    void EliminaParticellaEstratto();
    void RinominaParticellaEstratto();
    void EliminaPuntiIsolati();
    void ChiudiAnteprime();

    Stato& stato_;
    QListWidget* lista_ = nullptr;
    QRadioButton *smp_ = nullptr, *emp_ = nullptr, *png_ = nullptr;
    QStackedWidget* vista_ = nullptr;
    Grafica* grafica_ = nullptr;
    Anteprima* anteprima_ = nullptr;
    QPlainTextEdit* testo_ = nullptr;
    QList<QLabel*> campi_;
};

} // namespace tavolet
