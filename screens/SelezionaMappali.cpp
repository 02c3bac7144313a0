#include "SelezionaMappali.h"
#include "posizione.h"

#include "FormRiordinoRighe.h"

#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormSelezionaMappali = QStringLiteral("SelezionaMappali");
}

SelezionaMappali::SelezionaMappali(Stato& stato, SceltaMappali& scelta, QWidget* parent)
    : QDialog(parent), stato_(stato), scelta_(scelta) {
    setWindowTitle(TitoloSelezionaMappali(stato_));
    setObjectName(kFormSelezionaMappali);
    stato_.EsitoDialogo = -1;

    lista_ = new QListWidget(this);
    lista_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lista_->setSelectionMode(QAbstractItemView::MultiSelection);
    lista_->addItems(ParticelleEstratto(stato_));

    quota_ = new QLineEdit(LeggiQuotaMedia(stato_), this);
    quota_->setReadOnly(true);
    estMedio_ = new QLineEdit(stato_.testata.EstMedio, this);
    auto* dati = new QFormLayout;
    dati->addRow(QStringLiteral("Quota Media"), quota_);
    dati->addRow(QStringLiteral("Est Medio"), estMedio_);

    auto* conferma = new QPushButton(QStringLiteral("&Conferma"), this);
    auto* annulla = new QPushButton(QStringLiteral("&Annulla"), this);
    connect(conferma, &QPushButton::clicked, this, &SelezionaMappali::Conferma);
    connect(annulla, &QPushButton::clicked, this, &QDialog::reject);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addLayout(dati);
    pulsanti->addStretch();
    pulsanti->addWidget(conferma);
    pulsanti->addWidget(annulla);

    auto* colonna = new QVBoxLayout(this);
    colonna->addWidget(lista_);
    colonna->addLayout(pulsanti);
    resize(760, 420);
    RipristinaPosizioneForm(this, stato_, kFormSelezionaMappali);
}

void SelezionaMappali::Conferma() {
    stato_.testata.EstMedio = estMedio_->text();
    QStringList righe;
    QList<bool> selezionate;
    for (int i = 0; i < lista_->count(); ++i) {
        righe << lista_->item(i)->text();
        selezionate << lista_->item(i)->isSelected();
    }
    const bool chiude = ConfermaSelezioneMappali(stato_, scelta_, righe, selezionate);
    for (int i = 0; i < lista_->count(); ++i) lista_->item(i)->setSelected(selezionate[i]);
    if (chiude) accept();
}

void SelezionaMappali::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormSelezionaMappali);
    QDialog::done(r);
}

} // namespace tavolet
