#include "BV_SelezionaMisurate.h"

#include "EseguiComando.h"
#include "posizione.h"

#include "ddd.h"
#include "misurate.h"
#include "stato.h"
#include "taf.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormSelezionaMisurate = QStringLiteral("BV_SelezionaMisurate");
}

BV_SelezionaMisurate::BV_SelezionaMisurate(Stato& stato, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setObjectName(kFormSelezionaMisurate);
    setWindowTitle(QStringLiteral("Seleziona archivio"));
    stato_.EsitoDialogo = -1;

    auto* colonna = new QVBoxLayout(this);
    colonna->addWidget(new QLabel(CartellaFiduciali(stato_) + QStringLiteral("*.DDD"), this));
    lista_ = new QListWidget(this);
    colonna->addWidget(lista_, 1);
    auto* riga = new QHBoxLayout;
    const QStringList captions = {QStringLiteral("&Seleziona"), QStringLiteral("&Chiudi"),
                                  QStringLiteral("Installa TAF e Misurate"),
                                  QStringLiteral("&Elimina")};
    for (int i = 0; i < captions.size(); ++i) {
        auto* b = new QPushButton(captions[i], this);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [this, i] { EseguiComando(i); });
        comandi_.insert(i, b);
        riga->addWidget(b);
    }
    colonna->addLayout(riga);
    connect(lista_, &QListWidget::itemDoubleClicked, this, [this] { EseguiComando(0); });

    resize(460, 360);
    RipristinaPosizioneForm(this, stato_, kFormSelezionaMisurate);
    Aggiorna();
}

int BV_SelezionaMisurate::Esegui(Stato& stato, QWidget* parent) {
    BV_SelezionaMisurate form(stato, parent);
    form.exec();
    return stato.EsitoDialogo;
}

void BV_SelezionaMisurate::Aggiorna() {
    lista_->clear();
    lista_->addItems(FileDdd(stato_));
}

QString BV_SelezionaMisurate::Scelto() const {
    const QListWidgetItem* item = lista_->currentItem();
    return item && item->isSelected() ? item->text() : QString();
}

void BV_SelezionaMisurate::EseguiComando(int indice) {
    switch (indice) {
    case 0:
        if (!SelezionaLeMisurate(stato_, Scelto())) return;
        stato_.EsitoDialogo = 1;
        accept();
        break;
    case 1:
        stato_.EsitoDialogo = 0;
        reject();
        break;
    case 2:
        tavolet::EseguiComando(stato_, kParolaImportTaf, QString(), this);
        break;
    case 3:
        if (EliminaDatabaseMisurate(stato_, Scelto())) Aggiorna();
        break;
    default:
        break;
    }
}

void BV_SelezionaMisurate::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormSelezionaMisurate);
    if (stato_.EsitoDialogo < 0) stato_.EsitoDialogo = 0;
    QDialog::done(r);
}

} // namespace tavolet
