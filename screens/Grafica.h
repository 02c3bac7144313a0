// The plot control: a canvas painted through a QPainter Tela, the menu "Comandi", the button
// row, the mouse work and the "Grafica"/"Originale" views. Host screens place it and load an
// extract, a Proposta or a drawing into it.
#pragma once

#include "grafica.h"

#include <QWidget>

class QLabel;
class QMenu;
class QPlainTextEdit;
class QRadioButton;
class QCheckBox;
class QPrinter;
class QPushButton;

namespace tavolet {

struct Stato;
class CanvasGrafica;

class Grafica : public QWidget {
    Q_OBJECT
public:
    explicit Grafica(Stato& stato, QWidget* parent = nullptr);
    ~Grafica() override; // saves the four switches

    ModelloGrafica& Modello() { return modello_; }
    const ModelloGrafica& Modello() const { return modello_; }

    // Loaders: each fills the row lists, rebuilds the tables, fits the view and repaints.
    void BV_CaricaEstratto_EMP(const QString& percorso);
    void BV_CaricaPropostaDaLibretto(const QString& percorso);
    void BV_CaricaProposta_SUR(const QString& percorso);
    void BV_Elaborazione_SUR(const QString& percorso);
    void EsplodiPDF(const QString& percorso);
    void BV_LoadFileCSV(const QString& percorso);
    // By the file's kind, as tavolet-cli does. False when the file does not exist.
    bool CaricaFile(const QString& percorso);
    void GeneraGrafica();

    // Tables, for hosts that draw their own things.
    void BV_AggiungiPuntoGraf(const QString& nome, double x, double y, double z,
                              const QString& testo, int colore, double angolo, const QString& font,
                              double dimensione);
    void BV_AggiungiLineaGraf(double x1, double y1, double z1, double x2, double y2, double z2,
                              int colore, int spessore, int stile);
    void BV_AggiungiLineaGraf2Punti(const QString& nome1, const QString& nome2, int colore,
                                    int spessore, int stile);
    void BV_Clear();

    // View.
    void BV_ZoomTutto();
    void BV_RidisegnaGrafica();
    void BV_ZoomPiu();
    void BV_ZoomMeno();
    void BV_ZoomUP();
    void BV_ZoomDown();
    void BV_ZoomLeft();
    void BV_ZoomRight();
    void CentraMouse(double x, double y);

    // Commands.
    void BV_CopiaImmagineGrafica();
    void BV_Stampa(); // printer dialog: a real printer or a PDF file
    // The four drawing passes on a printer already set up (a PDF file in the tests).
    void StampaSu(QPrinter& stampante);
    void BV_SalvaDXF();
    void BV_CopiaInFile();
    void GeneraStampa(); // then \print.exe
    void GeneraHTML5_CANVAS();
    void BV_PuntiCoincidenti();
    // The extract or CXF sheet on show (or the one named) as a GeoPackage for a GIS, after a
    // save dialog; the line under the plot says how many parcels were written.
    void EsportaGeoPackage(const QString& sorgente = {});

    // Drawing modes set by the host: "NUOVOPUNTO", "CONTORNOROSSO", "CONTORNONERO",
    // "PUNTOMEDIO", "PUNTOBILATERA", or empty.
    void ImpostaModo(const QString& modo, const QString& nomeNuovo = {});

    // Whether the button row is shown (hosts with little room hide it).
    void MostraPulsanti(bool si);
    // The picture of the canvas as painted now.
    QImage Immagine() const;

signals:
    // After every change of the tables by a click (a point added, a contour line).
    void GraficaModificata();

private:
    void Impagina(); // the "Grafica"/"Originale" choice
    void CambiaOpzione();
    // The fit of the whole drawing to the canvas's shape, and whether the view is still the one
    // it gave (then a canvas of another shape is fitted again).
    void Adatta();
    bool Adattata() const;
    struct {
        double altezza = 0, centroX = 0, centroY = 0;
    } adattata_;
    Stato& stato_;
    ModelloGrafica modello_;
    CanvasGrafica* canvas_ = nullptr;
    QPlainTextEdit* originale_ = nullptr;
    QRadioButton* opzGrafica_ = nullptr;
    QRadioButton* opzOriginale_ = nullptr;
    QCheckBox *nomiNo_ = nullptr, *toponimiNo_ = nullptr, *pfNo_ = nullptr, *proposta_ = nullptr;
    // Unticked, the picture on screen thins what would cover itself; ticked, every name.
    QCheckBox* tuttiNomi_ = nullptr;
    OpzioniDisegno OpzioniSchermo() const;
    QWidget* pulsanti_ = nullptr;
    QLabel* etichetta1_ = nullptr;
    QLabel* etichetta2_ = nullptr;
    QMenu* menu_ = nullptr;
    QString sorgente_; // the file last loaded from disk, as the host named it
    friend class CanvasGrafica;
};

} // namespace tavolet
