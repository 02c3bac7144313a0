#include "BV_Comuni8.h"

#include "libretto.h"
#include "posizione.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormComuni8 = QStringLiteral("BV_Comuni8");
}

BV_Comuni8::BV_Comuni8(Stato& stato, QWidget* parent) : QDialog(parent), stato_(stato) {
    setObjectName(kFormComuni8);
    setWindowTitle(TitoloComuni8(stato_));
    RipristinaPosizioneForm(this, stato_, kFormComuni8);
    stato_.EsitoDialogo = -1;
    auto* l = new QVBoxLayout(this);
    auto* etichette = new QHBoxLayout;
    file_ = new QLabel;
    provincia_ = new QLabel;
    comune_ = new QLabel;
    comune_->setObjectName(QStringLiteral("EtichettaComune"));
    file_->setMinimumWidth(160);
    provincia_->setMinimumWidth(40);
    etichette->addWidget(file_);
    etichette->addWidget(provincia_);
    etichette->addWidget(comune_, 1);
    l->addLayout(etichette);
    auto* liste = new QHBoxLayout;
    province_ = new QListWidget;
    province_->setObjectName(QStringLiteral("Province"));
    province_->setMaximumWidth(160);
    comuni_ = new QListWidget;
    comuni_->setObjectName(QStringLiteral("Comuni"));
    comuni_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    liste->addWidget(province_);
    liste->addWidget(comuni_, 1);
    l->addLayout(liste, 1);
    auto* comandi = new QHBoxLayout;
    auto pulsante = [&](const QString& caption, std::function<void()> azione) {
        auto* b = new QPushButton(caption);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [azione] {
            if (azione) azione();
        });
        comandi->addWidget(b);
    };
    pulsante(QStringLiteral("Copia in Libretto"), [this] { Copia(); });
    pulsante(QStringLiteral("Copia Codice &Fiscale"), [this] { Copia(); });
    pulsante(QStringLiteral("&Stampa"), [this] {
        if (Stampa)
            Stampa(stato_, e_.Comuni);
        else
            stato_.piattaforma->StampaTesto(windowTitle(), e_.Comuni.join(CRLF), Carattere());
    });
    pulsante(QStringLiteral("Aggiungi Provincia"), {});
    pulsante(QStringLiteral("&Chiudi"), [this] { reject(); });
    l->addLayout(comandi);

    connect(province_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        ScegliProvincia8(stato_, e_, item->text());
        Mostra();
    });
    connect(comuni_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        ScegliComune8(e_, comuni_->row(item));
        Mostra();
    });
    connect(comuni_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        ScegliComune8(e_, comuni_->row(item));
        Copia();
    });
    RicaricaProvince(stato_, e_);
    province_->addItems(e_.Province);
    resize(760, 480);
    Mostra();
}

void BV_Comuni8::Mostra() {
    QStringList attuali;
    for (int i = 0; i < comuni_->count(); ++i) attuali << comuni_->item(i)->text();
    if (attuali != e_.Comuni) {
        comuni_->clear();
        comuni_->addItems(e_.Comuni);
    }
    if (e_.Selezionato >= 0) comuni_->setCurrentRow(e_.Selezionato);
    file_->setText(e_.EtichettaFile);
    provincia_->setText(e_.EtichettaProvincia);
    comune_->setText(e_.EtichettaComune);
}

void BV_Comuni8::Copia() {
    if (CopiaCodiceFiscale8(stato_, e_)) accept();
}

void BV_Comuni8::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormComuni8);
    QDialog::done(r);
}

int BV_Comuni8::Esegui(Stato& stato, QWidget* parent) {
    BV_Comuni8 form(stato, parent);
    form.exec();
    return stato.EsitoDialogo;
}

} // namespace tavolet
