// "Libretto Fittizio": the drawing list (.LXC) of the current file, its lines between points,
// the stations they reveal and the options of the libretto computed from it.
#pragma once

#include "disegno.h"
#include "stato.h"

#include <QDialog>

class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace tavolet {

class Grafica;

class LibrettoDaDisegno : public QDialog {
    Q_OBJECT
public:
    // Reads the drawing of PercorsoLibretto and the saved options at once, as the screen opens.
    explicit LibrettoDaDisegno(Stato& stato, QWidget* parent = nullptr);

    // Opens the screen modally. True when it ended the process (the libretto written, or
    // "&Chiudi"): nothing else is to open after it.
    static bool Esegui(Stato& stato, QWidget* parent);

    QCheckBox* Casella(const QString& caption) const;
    QRadioButton* Scelta(const QString& caption) const;
    QPushButton* Pulsante(const QString& caption) const;
    QGroupBox* Righe8() const { return righe8_; }
    QLineEdit* Dislivello() const { return dislivello_; }
    QListWidget* Precisioni() const { return precisioni_; }
    QListWidget* Libretto() const { return libretto_; }
    QListWidget* ListaLinee() const { return listaLinee_; }
    Grafica* grafica() const { return grafica_; }
    const Disegno& Tabelle() const { return disegno_; }
    bool ProcessoTerminato() const { return terminato_; }

    // The options as the controls hold them, and the controls from options.
    OpzioniLibretto Opzioni() const;
    void ImpostaOpzioni(const OpzioniLibretto& o);

    // "&Genera Libretto Misure" and "&Chiudi".
    void Genera();
    void Chiudi();

protected:
    void done(int r) override;

private:
    QCheckBox* NuovaCasella(const QString& caption, QWidget* parent);
    QRadioButton* NuovaScelta(const QString& caption, QButtonGroup* gruppo, QWidget* parent);
    void Carica();
    void CaricaDisegno();
    void Disegna();
    void TerminaProcesso(int esito);

    Stato& stato_;
    Disegno disegno_;
    QStringList linee_; // ListaLinee
    bool terminato_ = false;
    QList<QCheckBox*> caselle_;
    QList<QRadioButton*> scelte_;
    QCheckBox *mantieni45_ = nullptr, *mantieni37_ = nullptr, *mantieni8_ = nullptr;
    QCheckBox *planimetrico_ = nullptr, *report_ = nullptr, *commenti_ = nullptr;
    QCheckBox *cs_ = nullptr, *puntiNote_ = nullptr, *pfTaf_ = nullptr, *gps_ = nullptr;
    QCheckBox *noteMancanti_ = nullptr, *riordina_ = nullptr;
    QRadioButton *azimut_ = nullptr, *precedente_ = nullptr, *orientaLibretto_ = nullptr;
    QRadioButton *centesimale_ = nullptr, *millesimale_ = nullptr;
    QButtonGroup* orientamento_ = nullptr;
    QButtonGroup* incremento_ = nullptr;
    QLineEdit* dislivello_ = nullptr;
    QGroupBox* righe8_ = nullptr;
    QListWidget* precisioni_ = nullptr;
    QListWidget* libretto_ = nullptr;
    QListWidget* listaLinee_ = nullptr;
    QPushButton* genera_ = nullptr;
    Grafica* grafica_ = nullptr;
};

} // namespace tavolet
