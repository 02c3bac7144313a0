#include "MappaleDaMantenere.h"
#include "posizione.h"

#include "FormRiordinoRighe.h"
#include "testo.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormMappaleDaMantenere = QStringLiteral("MappaleDaMantenere");
}

MappaleDaMantenere::MappaleDaMantenere(Stato& stato, SceltaMappali& scelta, QWidget* parent)
    : QDialog(parent), stato_(stato), scelta_(scelta) {
    setWindowTitle(QStringLiteral("Mappale da Mantenere"));
    setObjectName(kFormMappaleDaMantenere);
    stato_.EsitoDialogo = -1;

    mappali_ = new QListWidget(this);
    mappali_->addItems(Split(stato_.testata.MappaliLibretto, QStringLiteral(",")));
    mappali_->setMaximumWidth(160);
    righe_ = new QListWidget(this);
    righe_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const QStringList mantenibili = RigheDaMantenere(stato_, scelta_);
    righe_->addItems(mantenibili);
    avviso_ = new QLabel(mantenibili.isEmpty() ? kNessunEnteUrbano
                                               : QStringLiteral("Mappale che mantiene il numero"),
                         this);
    connect(righe_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        QStringList elenco;
        for (int i = 0; i < mappali_->count(); ++i) elenco << mappali_->item(i)->text();
        for (int i : MappaliDellaRiga(item->text(), elenco)) mappali_->setCurrentRow(i);
    });

    auto* conferma = new QPushButton(QStringLiteral("&Conferma"), this);
    auto* annulla = new QPushButton(QStringLiteral("&Annulla"), this);
    connect(conferma, &QPushButton::clicked, this, &MappaleDaMantenere::ConfermaMappali);
    connect(annulla, &QPushButton::clicked, this, &QDialog::reject);

    auto* liste = new QHBoxLayout;
    liste->addWidget(mappali_);
    liste->addWidget(righe_);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(avviso_);
    pulsanti->addStretch();
    pulsanti->addWidget(conferma);
    pulsanti->addWidget(annulla);
    auto* colonna = new QVBoxLayout(this);
    colonna->addLayout(liste);
    colonna->addLayout(pulsanti);
    resize(760, 320);
    RipristinaPosizioneForm(this, stato_, kFormMappaleDaMantenere);
}

void MappaleDaMantenere::ConfermaMappali() {
    const QList<QListWidgetItem*> scelti = mappali_->selectedItems();
    if (scelti.isEmpty()) return;
    QStringList elenco;
    for (int i = 0; i < mappali_->count(); ++i) elenco << mappali_->item(i)->text();
    tavolet::ConfermaMappali(stato_, scelta_, elenco, mappali_->row(scelti.first()));
    accept();
}

void MappaleDaMantenere::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormMappaleDaMantenere);
    QDialog::done(r);
}

} // namespace tavolet
