#include "FormRiordinoRighe.h"

#include "posizione.h"

#include "documento.h"

#include <QFont>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormRiordinoRighe = QStringLiteral("FormRiordinoRighe");

struct Riquadro {
    Gruppo gruppo;
    const char* titolo;
    int riga, colonna, colonne;
};

// Where each group stands on the form, in Pregeo's order from left to right.
const Riquadro kRiquadri[] = {
    {Gruppo::Riga0, "Riga 0", 0, 0, 1},
    {Gruppo::Riga9, "Riga 9", 0, 1, 1},
    {Gruppo::Commento, "Riga Commento", 0, 2, 1},
    {Gruppo::Appunti, "Appunti da Libretto", 0, 3, 1},
    {Gruppo::Poligonali, "Poligonali", 1, 0, 1},
    {Gruppo::GPS, "Righe GPS", 1, 1, 1},
    {Gruppo::Stazioni, "Stazioni-P.Battuti", 1, 2, 1},
    {Gruppo::Righe45, "Righe 4-5", 1, 3, 1},
    {Gruppo::Contorni, "Contorni", 2, 0, 1},
    {Gruppo::Relazione, "Relazione Tecnica", 2, 1, 1},
    {Gruppo::Fiduciali, "Punti Fiduciali", 2, 2, 1},
    {Gruppo::Censuario, "Modello Censuario", 2, 3, 1},
    {Gruppo::Proposta, "Proposta di Aggiornamento", 3, 0, 2},
};

} // namespace

FormRiordinoRighe::FormRiordinoRighe(Stato& stato, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setWindowTitle(QStringLiteral("Riordino Righe"));
    setObjectName(kFormRiordinoRighe);
    stato_.EsitoDialogo = -1;

    QFont fisso = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    auto* griglia = new QGridLayout(this);
    for (const Riquadro& r : kRiquadri) {
        auto* riquadro = new QGroupBox(QString::fromLatin1(r.titolo), this);
        auto* colonna = new QVBoxLayout(riquadro);
        auto* lista = new QListWidget(riquadro);
        lista->setFont(fisso);
        lista->setToolTip(
            r.gruppo == Gruppo::Censuario
                ? QStringLiteral("Fare doppio click per ELIMINARE il Modello Censuario")
                : QStringLiteral("Fare doppio clik per eliminare la riga"));
        if (r.gruppo == Gruppo::Riga0 || r.gruppo == Gruppo::Riga9) lista->setMaximumHeight(60);
        // The hint speaks of deleting; a double click has only ever copied the group.
        const Gruppo g = r.gruppo;
        connect(lista, &QListWidget::itemDoubleClicked, this, [this, g] {
            stato_.piattaforma->ImpostaAppunti(TestoGruppoPerAppunti(gruppi_, g));
        });
        colonna->addWidget(lista);
        liste_[g] = lista;
        const auto& eliminazioni = EliminazioniGruppi();
        for (int i = 0; i < int(eliminazioni.size()); ++i) {
            if (eliminazioni[i].gruppo != g) continue;
            auto* pulsante = new QPushButton(QStringLiteral("Elimina"), riquadro);
            pulsante->setAutoDefault(false); // Enter must never ask to delete a group
            pulsante->setToolTip(eliminazioni[i].domanda);
            connect(pulsante, &QPushButton::clicked, this, [this, i] {
                if (EliminaGruppo(stato_, gruppi_, i)) MostraGruppi();
            });
            colonna->addWidget(pulsante, 0, Qt::AlignRight);
            elimina_[i] = pulsante;
        }
        griglia->addWidget(riquadro, r.riga, r.colonna, 1, r.colonne);
    }

    iscrizione_ = new QLabel(this);
    codiceFiscale_ = new QLabel(this);
    auto* etichette = new QVBoxLayout;
    etichette->addWidget(iscrizione_);
    etichette->addWidget(codiceFiscale_);
    etichette->addStretch();
    griglia->addLayout(etichette, 3, 2);

    auto* conferma = new QPushButton(QStringLiteral("&Conferma"), this);
    auto* annulla = new QPushButton(QStringLiteral("&Annulla"), this);
    conferma->setAutoDefault(false);
    annulla->setAutoDefault(false);
    connect(conferma, &QPushButton::clicked, this, &FormRiordinoRighe::Conferma);
    connect(annulla, &QPushButton::clicked, this, &FormRiordinoRighe::Annulla);
    auto* pulsanti = new QVBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(conferma);
    pulsanti->addWidget(annulla);
    griglia->addLayout(pulsanti, 3, 3);
    for (int c = 0; c < 4; ++c) griglia->setColumnStretch(c, 1);

    resize(1180, 760);
    RipristinaPosizioneForm(this, stato_, kFormRiordinoRighe);
}

int FormRiordinoRighe::Esegui(Stato& stato, QWidget* parent) {
    FormRiordinoRighe form(stato, parent);
    form.exec();
    return stato.EsitoDialogo;
}

void FormRiordinoRighe::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    if (esploso_) return;
    esploso_ = true;
    gruppi_ = EsplodiLibretto(stato_);
    iscrizione_->setText(EtichettaIscrizioneAlbo(stato_));
    codiceFiscale_->setText(EtichettaCodiceFiscale(stato_));
    MostraGruppi();
}

void FormRiordinoRighe::MostraGruppi() {
    for (const auto& [gruppo, lista] : liste_) {
        lista->clear();
        lista->addItems(gruppi_.Lista(gruppo));
    }
}

void FormRiordinoRighe::Conferma() {
    if (gruppi_.completo) RicomponiLibretto(stato_, gruppi_);
    CaricaLibrettoInList1(stato_);
    stato_.EsitoDialogo = 1;
    accept();
}

void FormRiordinoRighe::Annulla() {
    stato_.EsitoDialogo = 0;
    reject();
}

void FormRiordinoRighe::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormRiordinoRighe);
    QDialog::done(r);
}

} // namespace tavolet
