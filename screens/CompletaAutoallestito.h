// "Completa Autoallestito": the head data and the PARTICELLA rows of a self-made extract,
// typed by hand into the rows of the file.
#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;

namespace tavolet {

struct Stato;

class CompletaAutoallestito : public QDialog {
    Q_OBJECT
public:
    // tipoLavoro: the job type of the calling screen ("01", "02", "20", "21", "22").
    CompletaAutoallestito(Stato& stato, const QString& nomeEstratto, const QString& tipoLavoro,
                          QWidget* parent = nullptr);
    static void Esegui(Stato& stato, const QString& nomeEstratto, const QString& tipoLavoro,
                       QWidget* parent);

    QListWidget* Lista() const { return lista_; }
    QLineEdit *superficie = nullptr, *comune = nullptr, *foglio = nullptr, *numero = nullptr;
    QLabel *classe = nullptr, *qualita = nullptr, *provincia = nullptr;
    const QStringList& Righe() const { return righe_; }

    void CaricaParticella();
    void RicalcolaParticella();
    void RicalcolaAutoAllestito();
    void Salva();

private:
    Stato& stato_;
    QString nome_, tipo_, descrizione_, codice_;
    QStringList righe_; // List2: every row of the file
    QListWidget* lista_ = nullptr;
};

} // namespace tavolet
