#include "BV_ElcoPf.h"

#include "BV_ElcoPfGriglia.h"
#include "posizione.h"

#include "file_testo.h"
#include "stato.h"
#include "testo.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormElcoPf = QStringLiteral("BV_ElcoPf");
}

BV_ElcoPf::BV_ElcoPf(Stato& stato, QWidget* parent) : QDialog(parent), stato_(stato) {
    setObjectName(kFormElcoPf);
    setWindowTitle(QStringLiteral("Archivio Punti Fiduciali"));
    stato_.EsitoDialogo = -1;

    auto* colonna = new QVBoxLayout(this);
    etichetta_ = new QLabel(CartellaProvince(stato_), this);
    colonna->addWidget(etichetta_);
    auto* liste = new QHBoxLayout;
    file_ = new QListWidget(this);
    file_->setObjectName(QStringLiteral("FileProvince"));
    file_->setMaximumWidth(200);
    file_->addItems(tavolet::FileProvince(stato_));
    comuni_ = new QListWidget(this);
    comuni_->setObjectName(QStringLiteral("Comuni"));
    comuni_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    liste->addWidget(file_);
    liste->addWidget(comuni_, 1);
    colonna->addLayout(liste, 1);
    auto* comandi = new QHBoxLayout;
    comandi->addStretch();
    auto* chiudi = new QPushButton(QStringLiteral("&Chiudi"), this);
    chiudi->setAutoDefault(false);
    connect(chiudi, &QPushButton::clicked, this, &QDialog::reject);
    comandi->addWidget(chiudi);
    colonna->addLayout(comandi);

    connect(file_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { CaricaProvincia(item->text()); });
    connect(comuni_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { SelezionaComune(comuni_->row(item)); });
    resize(720, 480);
    RipristinaPosizioneForm(this, stato_, kFormElcoPf);
}

int BV_ElcoPf::Esegui(Stato& stato, QWidget* parent) {
    BV_ElcoPf form(stato, parent);
    form.exec();
    return stato.EsitoDialogo;
}

void BV_ElcoPf::CaricaProvincia(const QString& file) {
    provincia_ = UCase(file);
    elenco_ = LeggiComuniProvincia(stato_, file);
    comuni_->clear();
    for (const ComuneTaf& c : elenco_) comuni_->addItem(c.riga);
    etichetta_->setText(EtichettaProvincia(provincia_));
}

void BV_ElcoPf::SelezionaComune(int riga) {
    if (riga < 0 || riga >= elenco_.size()) return;
    const ComuneTaf& c = elenco_[riga];
    const QString comune = Left(c.codice, 4);
    if (Trim(comune).isEmpty() || !EsisteFile(PercorsoTaf(stato_, comune))) return;
    BV_ElcoPfGriglia griglia(stato_, provincia_, c.nome, c.codice, LeggiTafComune(stato_, comune),
                             this);
    griglia.exec();
}

void BV_ElcoPf::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormElcoPf);
    if (stato_.EsitoDialogo < 0) stato_.EsitoDialogo = 0;
    QDialog::done(r);
}

} // namespace tavolet
