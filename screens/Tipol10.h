// The screen of the ready-made cases: the proposal drawn or pasted from CAD, with its rows.
#pragma once

#include "casistiche.h"
#include "stato.h"

#include <QDialog>
#include <QWidget>

class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace tavolet {

// The plot of the case: the points and outlines of the extract and of the proposal; in a
// drawing mode a click adds a vertex to \TEMP\CONTORNO.TXT (on the nearest point when one is
// near).
class PiantaTipologia : public QWidget {
    Q_OBJECT
public:
    PiantaTipologia(Stato& stato, QWidget* parent = nullptr);
    // The rows shown: those of an extract and those of the proposal.
    void Mostra(const QStringList& righe);
    void ImpostaModo(const QString& modo, const QString& nomePunto);
    QString Modo() const { return modo_; }
    QString NomePunto() const { return nomePunto_; }
    // A click at a point of the world, as the mouse gives it.
    void ClicMondo(double x, double y);
    QPointF DaSchermo(const QPointF& p) const;
    QPointF ASchermo(double x, double y) const;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* e) override;

private:
    struct Punto {
        QString nome;
        double x, y;
    };
    void Scala();
    Stato& stato_;
    QList<Punto> punti_;
    QList<QPair<QList<QPointF>, bool>> linee_; // vertices, new
    QString modo_, nomePunto_;
    std::optional<QPointF> primoMedio_;
    double minX_ = 0, minY_ = 0, scala_ = 1;
};

class Tipol10 : public QDialog {
    Q_OBJECT
public:
    Tipol10(Stato& stato, const QString& casistica, QWidget* parent = nullptr);
    // Opens the screen of the case modally; the outcome in EsitoDialogo, the rows in
    // TestoProposta.
    static int Esegui(Stato& stato, const QString& casistica, QWidget* parent = nullptr);

    QPushButton* Pulsante(const QString& caption) const;
    QListWidget* Righe() const { return righe_; }
    QPlainTextEdit* Descrizione() const { return descrizione_; }
    PiantaTipologia* Pianta() const { return pianta_; }
    QLineEdit* Numero(int i) const { return i == 0 ? primo_ : secondo_; }
    const Casistica& Lavoro() const { return lavoro_; }

protected:
    void done(int r) override;

private:
    void DopoGenerazione(bool fatto);
    void Disegna(const QString& modo);
    Stato& stato_;
    Casistica lavoro_;
    QString estratto_;
    QListWidget* righe_ = nullptr;
    QPlainTextEdit* descrizione_ = nullptr;
    PiantaTipologia* pianta_ = nullptr;
    QLineEdit* primo_ = nullptr;
    QLineEdit* secondo_ = nullptr;
    QList<QPushButton*> pulsanti_;
};

} // namespace tavolet
