#include "BV_TMVariazione.h"
#include "lista_titolata.h"

#include "posizione.h"

#include "censuario.h"
#include "errore.h"
#include "testata.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormTMVariazione = QStringLiteral("BV_TMVariazione");

} // namespace

BV_TMVariazione::BV_TMVariazione(Stato& stato, const CampiParticella& particella, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setObjectName(kFormTMVariazione);
    setWindowTitle(QStringLiteral("TM Variazione"));
    auto* principale = new QHBoxLayout(this);
    auto* colonna = new QVBoxLayout;
    principale->addLayout(colonna, 4);
    auto* destra = new QVBoxLayout;
    principale->addLayout(destra, 1);
    modello_ = ListaTitolata(this, QStringLiteral("Anteprima"), colonna);
    memo_ = ListaTitolata(this, QStringLiteral("Memo"), colonna);
    for (const QString& caption :
         {QStringLiteral("Aggiungi a Memo"), QStringLiteral("&Azzera Memo"),
          QStringLiteral("&SN / SR"), QStringLiteral("Copia Memo"), QStringLiteral("Stampa Memo"),
          QStringLiteral("Sostituisci nel &Libretto"), QStringLiteral("&Chiudi")}) {
        auto* b = new QPushButton(caption, this);
        b->setAutoDefault(false);
        destra->addWidget(b);
    }
    destra->addStretch();

    ConTrappola(stato_, kFormTMVariazione, [&] { ModelloNuovo = ModelloVariazione(particella); });
    ConTrappola(stato_, QStringLiteral("Decozero_108"), [&] {
        DecoZeroNove(stato_);
        memo = RigheCensuarieDi(stato_.doc.TestoLibretto);
    });

    connect(Pulsante(QStringLiteral("&Chiudi")), &QPushButton::clicked, this, &QDialog::reject);
    connect(Pulsante(QStringLiteral("Sostituisci nel &Libretto")), &QPushButton::clicked, this,
            [this] {
                if (SostituisciCensuario(stato_, memo, QStringLiteral("Decozero_107"))) accept();
            });
    connect(Pulsante(QStringLiteral("Aggiungi a Memo")), &QPushButton::clicked, this, [this] {
        AggiungiMemoVariazione(memo, ModelloNuovo);
        Mostra();
    });
    connect(Pulsante(QStringLiteral("&Azzera Memo")), &QPushButton::clicked, this, [this] {
        memo.clear();
        Mostra();
    });
    connect(Pulsante(QStringLiteral("&SN / SR")), &QPushButton::clicked, this, [this] {
        InvertiFlagModello(ModelloNuovo);
        Mostra();
    });
    // "Copia Memo" and "Stampa Memo" stand on this screen without an action, as they always
    // have.
    connect(memo_, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) {
        RimuoviRigaMemo(memo, memo_->row(i));
        Mostra();
    });
    resize(760, 420);
    RipristinaPosizioneForm(this, stato_, kFormTMVariazione);
    Mostra();
}

QPushButton* BV_TMVariazione::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

void BV_TMVariazione::Mostra() {
    modello_->clear();
    modello_->addItems(ModelloNuovo);
    memo_->blockSignals(true);
    memo_->clear();
    memo_->addItems(memo);
    memo_->blockSignals(false);
}

void BV_TMVariazione::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormTMVariazione);
    QDialog::done(r);
}

void BV_TMVariazione::Esegui(Stato& stato, const CampiParticella& particella, QWidget* parent) {
    BV_TMVariazione schermo(stato, particella, parent);
    schermo.exec();
}

} // namespace tavolet
