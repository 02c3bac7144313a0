#include "BV_NuovaCostruzione.h"
#include "lista_titolata.h"

#include "posizione.h"

#include "censuario.h"
#include "errore.h"
#include "testata.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormNuovaCostruzione = QStringLiteral("BV_NuovaCostruzione");

} // namespace

BV_NuovaCostruzione::BV_NuovaCostruzione(Stato& stato, const CampiParticella& particella,
                                         QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setObjectName(kFormNuovaCostruzione);
    setWindowTitle(QStringLiteral("TM Nuova Costruzione"));
    auto* principale = new QHBoxLayout(this);
    auto* colonna = new QVBoxLayout;
    principale->addLayout(colonna, 4);
    auto* destra = new QVBoxLayout;
    principale->addLayout(destra, 1);
    modello_ = ListaTitolata(this, QStringLiteral("Anteprima"), colonna);
    memo_ = ListaTitolata(this, QStringLiteral("Memo"), colonna);
    identificativi_ = ListaTitolata(this, QStringLiteral("Identificativi"), destra);
    for (const QString& caption :
         {QStringLiteral("Aggiungi a &Memo"), QStringLiteral("&Azzera Memo"),
          QStringLiteral("&SN / SR"), QStringLiteral("Copia Memo"), QStringLiteral("Stampa Memo"),
          QStringLiteral("Sostituisci in Libretto"), QStringLiteral("&Chiudi")}) {
        auto* b = new QPushButton(caption, this);
        b->setAutoDefault(false);
        destra->addWidget(b);
    }

    ConTrappola(stato_, QStringLiteral("Decozero_106"), [&] {
        DecoZeroNove(stato_);
        memo = RigheCensuarieDi(stato_.doc.TestoLibretto);
        ModelloNuovo = ModelloNuovaCostruzione(particella);
    });
    identificativi_->addItems(ListaIdentificativi());

    connect(Pulsante(QStringLiteral("&Chiudi")), &QPushButton::clicked, this, &QDialog::reject);
    connect(Pulsante(QStringLiteral("Sostituisci in Libretto")), &QPushButton::clicked, this,
            [this] {
                if (SostituisciCensuario(stato_, memo, QStringLiteral("Decozero_106"))) accept();
            });
    connect(Pulsante(QStringLiteral("Aggiungi a &Memo")), &QPushButton::clicked, this, [this] {
        ConTrappola(stato_, kFormNuovaCostruzione,
                    [&] { AggiungiMemoNuovaCostruzione(memo, ModelloNuovo); });
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
    connect(Pulsante(QStringLiteral("Copia Memo")), &QPushButton::clicked, this,
            [this] { stato_.piattaforma->ImpostaAppunti(TestoRighe(memo)); });
    connect(Pulsante(QStringLiteral("Stampa Memo")), &QPushButton::clicked, this, [this] {
        stato_.piattaforma->StampaTesto(QStringLiteral("Memo"), TestoRighe(memo), Carattere{});
    });
    connect(identificativi_, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) {
        ScegliIdentificativo(ModelloNuovo, i->text());
        Mostra();
    });
    connect(memo_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* i) {
        RimuoviRigaMemo(memo, memo_->row(i));
        Mostra();
    });
    resize(760, 480);
    RipristinaPosizioneForm(this, stato_, kFormNuovaCostruzione);
    Mostra();
}

QPushButton* BV_NuovaCostruzione::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

void BV_NuovaCostruzione::Mostra() {
    modello_->clear();
    modello_->addItems(ModelloNuovo);
    memo_->clear();
    memo_->addItems(memo);
}

void BV_NuovaCostruzione::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormNuovaCostruzione);
    QDialog::done(r);
}

void BV_NuovaCostruzione::Esegui(Stato& stato, const CampiParticella& particella, QWidget* parent) {
    BV_NuovaCostruzione schermo(stato, particella, parent);
    schermo.exec();
}

} // namespace tavolet
