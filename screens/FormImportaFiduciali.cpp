#include "FormImportaFiduciali.h"

#include "EseguiComando.h"
#include "posizione.h"

#include "stato.h"
#include "taf.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormImportaFiduciali = QStringLiteral("FormImportaFiduciali");
}

FormImportaFiduciali::FormImportaFiduciali(Stato& stato, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setObjectName(kFormImportaFiduciali);
    setWindowTitle(QStringLiteral("Importa Fiduciali da TAF"));
    stato_.EsitoDialogo = -1;

    auto* colonna = new QVBoxLayout(this);
    lista_ = new QListWidget(this);
    lista_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    colonna->addWidget(lista_, 1);
    quote_ = new QCheckBox(QStringLiteral("Aggiungi Righe Quota"), this);
    colonna->addWidget(quote_);
    auto* riga = new QHBoxLayout;
    const QStringList captions = {QStringLiteral("&Importa nel Libretto"),
                                  QStringLiteral("&Chiudi"),
                                  QStringLiteral("Installa TAF e Misurate")};
    for (int i = 0; i < captions.size(); ++i) {
        auto* b = new QPushButton(captions[i], this);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [this, i] { EseguiComando(i); });
        comandi_.insert(i, b);
        riga->addWidget(b);
        if (i == 0) riga->addStretch();
    }
    colonna->addLayout(riga);
    connect(quote_, &QCheckBox::toggled, this, [this] { CaricaPieffe8(); });

    resize(760, 420);
    RipristinaPosizioneForm(this, stato_, kFormImportaFiduciali);
    CaricaPieffe8();
}

int FormImportaFiduciali::Esegui(Stato& stato, QWidget* parent) {
    FormImportaFiduciali form(stato, parent);
    form.exec();
    return stato.EsitoDialogo;
}

void FormImportaFiduciali::CaricaPieffe8() {
    lista_->clear();
    lista_->addItems(
        tavolet::CaricaPieffe8(stato_, stato_.doc.RigheLibretto.Righe(), quote_->isChecked()));
}

void FormImportaFiduciali::EseguiComando(int indice) {
    switch (indice) {
    case 0: {
        QStringList righe;
        for (int i = 0; i < lista_->count(); ++i) righe << lista_->item(i)->text();
        ImportaRighe8(stato_, righe);
        stato_.EsitoDialogo = 1;
        accept();
        break;
    }
    case 1:
        reject();
        break;
    case 2:
        tavolet::EseguiComando(stato_, kParolaImportTaf, QString(), this);
        break;
    default:
        break;
    }
}

void FormImportaFiduciali::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormImportaFiduciali);
    if (stato_.EsitoDialogo < 0) stato_.EsitoDialogo = 0;
    QDialog::done(r);
}

} // namespace tavolet
