#include "BV_TMFusione.h"
#include "lista_titolata.h"

#include "posizione.h"

#include "censuario.h"
#include "errore.h"
#include "testata.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormTMFusione = QStringLiteral("BV_TMFusione");

} // namespace

BV_TMFusione::BV_TMFusione(Stato& stato, QWidget* parent) : QDialog(parent), stato_(stato) {
    setObjectName(kFormTMFusione);
    setWindowTitle(QStringLiteral("Fusione"));
    auto* principale = new QHBoxLayout(this);
    auto* sinistra = new QVBoxLayout;
    auto* centro = new QVBoxLayout;
    auto* destra = new QVBoxLayout;
    principale->addLayout(sinistra, 1);
    principale->addLayout(centro, 3);
    principale->addLayout(destra, 1);
    archivio_ = ListaTitolata(this, QStringLiteral("Archivio Particelle"), sinistra);
    inFusione_ = ListaTitolata(this, QStringLiteral("Particelle in Fusione"), sinistra);
    anteprima_ = ListaTitolata(this, QStringLiteral("Anteprima Censuario"), centro);
    memo_ = ListaTitolata(this, QStringLiteral("Memo"), centro);
    mantieni_ = new QCheckBox(QStringLiteral("Mantieni numerazione Mappale di Fusione"), this);
    destra->addWidget(mantieni_);
    tm_ = new QRadioButton(QStringLiteral("TM"), this);
    ausiliario_ = new QRadioButton(QStringLiteral("Ausiliario"), this);
    tm_->setChecked(true);
    destra->addWidget(tm_);
    destra->addWidget(ausiliario_);
    for (const QString& caption :
         {QStringLiteral("Rifare Fusione"), QStringLiteral("Aggiungi a Memo"),
          QStringLiteral("Azzera Memo"), QStringLiteral("Aggiungi a &Libretto"),
          QStringLiteral("Sostituisci in Libretto"), QStringLiteral("Copia Memo"),
          QStringLiteral("Stampa Memo"), QStringLiteral("Anteprima Proposta"),
          QStringLiteral("&Chiudi")}) {
        auto* b = new QPushButton(caption, this);
        b->setAutoDefault(false);
        destra->addWidget(b);
    }
    destra->addStretch();

    DecoZeroNove(stato_);
    memo = CaricaMemoFusione(stato_);
    archivio_->addItems(
        ElencoParticelle(stato_, ModelloParticelleLibretto(stato_.testata.CodiceComuneLibretto,
                                                           stato_.testata.FoglioLibretto)));

    connect(archivio_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* i) {
        ParticelleInFusione << i->text();
        Componi();
    });
    connect(inFusione_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* i) {
        ParticelleInFusione.removeAt(inFusione_->row(i));
        Componi();
    });
    connect(mantieni_, &QCheckBox::clicked, this, [this] { Componi(); });
    connect(tm_, &QRadioButton::clicked, this, [this] { Componi(); });
    connect(ausiliario_, &QRadioButton::clicked, this, [this] { Componi(); });
    connect(Pulsante(QStringLiteral("Rifare Fusione")), &QPushButton::clicked, this, [this] {
        ParticelleInFusione.clear();
        Mostra();
    });
    connect(Pulsante(QStringLiteral("Aggiungi a Memo")), &QPushButton::clicked, this, [this] {
        AggiungiMemoFusione(stato_, memo, AnteprimaFusione_);
        Mostra();
        memo_->setCurrentRow(memo_->count() - 1);
    });
    connect(Pulsante(QStringLiteral("Azzera Memo")), &QPushButton::clicked, this, [this] {
        if (stato_.piattaforma->Domanda(QStringLiteral("Azzerare Memo?"),
                                        QStringLiteral("Azzerare Memo"), Pulsanti::SiNo,
                                        Risposta::No) != Risposta::Si)
            return;
        memo.clear();
        AnteprimaFusione_.clear();
        Mostra();
    });
    connect(Pulsante(QStringLiteral("Aggiungi a &Libretto")), &QPushButton::clicked, this, [this] {
        AggiungiFusioneALibretto(stato_, memo);
        accept();
    });
    connect(Pulsante(QStringLiteral("Sostituisci in Libretto")), &QPushButton::clicked, this,
            [this] {
                SostituisciFusioneInLibretto(stato_, memo);
                accept();
            });
    connect(Pulsante(QStringLiteral("Copia Memo")), &QPushButton::clicked, this,
            [this] { stato_.piattaforma->ImpostaAppunti(TestoRighe(memo)); });
    connect(Pulsante(QStringLiteral("Stampa Memo")), &QPushButton::clicked, this, [this] {
        stato_.piattaforma->StampaTesto(QStringLiteral("Memo"), TestoRighe(memo), Carattere{});
    });
    // "Anteprima Proposta" has no action.
    connect(Pulsante(QStringLiteral("&Chiudi")), &QPushButton::clicked, this, &QDialog::reject);
    resize(1000, 560);
    RipristinaPosizioneForm(this, stato_, kFormTMFusione);
    Mostra();
}

QPushButton* BV_TMFusione::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

void BV_TMFusione::Componi() {
    AnteprimaFusione_ = AnteprimaTMFusione(stato_, memo, ParticelleInFusione,
                                           mantieni_->isChecked(), tm_->isChecked());
    Mostra();
}

void BV_TMFusione::Mostra() {
    inFusione_->clear();
    inFusione_->addItems(ParticelleInFusione);
    anteprima_->clear();
    anteprima_->addItems(AnteprimaFusione_);
    memo_->clear();
    memo_->addItems(memo);
}

void BV_TMFusione::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormTMFusione);
    QDialog::done(r);
}

void BV_TMFusione::Esegui(Stato& stato, QWidget* parent) {
    BV_TMFusione schermo(stato, parent);
    schermo.exec();
}

} // namespace tavolet
