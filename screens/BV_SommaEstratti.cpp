#include "BV_SommaEstratti.h"

#include "Grafica.h"
#include "posizione.h"

#include "archivio.h"
#include "file_testo.h"
#include "percorsi.h"
#include "stato.h"
#include "testo.h"
#include "unisci.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormSommaEstratti = QStringLiteral("BV_SommaEstratti");
const QString kTitolo = QStringLiteral("Unisci Estratti");
} // namespace

BV_SommaEstratti::BV_SommaEstratti(Stato& stato, const QString& estrattoBase, QWidget* parent)
    : QDialog(parent), stato_(stato), base_(estrattoBase) {
    setWindowTitle(kTitolo + QStringLiteral(" - ") + estrattoBase);
    auto* principale = new QHBoxLayout(this);
    auto* sinistra = new QVBoxLayout;
    sinistra->addWidget(new QLabel(QStringLiteral("Estratto Base: ") + estrattoBase, this));
    lista_ = new QListWidget(this);
    const QDir dir(PercorsoLocale(CartellaEstratti(stato_)));
    for (const QString& f : dir.entryList({QStringLiteral("*")}, QDir::Files, QDir::Name))
        if (f.endsWith(QStringLiteral(".EMP"), Qt::CaseInsensitive)) lista_->addItem(f);
    sinistra->addWidget(lista_, 1);
    nome_ = new QLineEdit(this);
    nome_->setPlaceholderText(QStringLiteral("Nome dell'Estratto Risultante"));
    sinistra->addWidget(nome_);
    auto* conferma = new QPushButton(QStringLiteral("Conferma"), this);
    auto* comune = new QPushButton(QStringLiteral("Unisci Estratti del Comune"), this);
    for (QPushButton* b : {conferma, comune}) b->setAutoDefault(false);
    sinistra->addWidget(conferma);
    sinistra->addWidget(comune);
    avanzamento_ = new QProgressBar(this);
    avanzamento_->setVisible(false);
    sinistra->addWidget(avanzamento_);
    principale->addLayout(sinistra, 1);
    grafica_ = new Grafica(stato_, this);
    grafica_->setMinimumSize(420, 360);
    principale->addWidget(grafica_, 3);
    connect(lista_, &QListWidget::currentRowChanged, this, [this] { SelezionaAggiunto(); });
    connect(conferma, &QPushButton::clicked, this, [this] { Conferma(); });
    connect(comune, &QPushButton::clicked, this, [this] { SommaComune(); });
    RipristinaPosizioneForm(this, stato_, kFormSommaEstratti);
}

QString BV_SommaEstratti::Esegui(Stato& stato, const QString& estrattoBase, QWidget* parent) {
    BV_SommaEstratti f(stato, estrattoBase, parent);
    f.exec();
    SalvaPosizioneForm(&f, stato, kFormSommaEstratti);
    return f.Risultato();
}

void BV_SommaEstratti::SelezionaAggiunto() {
    const QListWidgetItem* voce = lista_->currentItem();
    if (!voce) return;
    aggiunto_ = voce->text();
    if (UnisciDueEstratti(stato_, base_, aggiunto_) && EsisteFile(PercorsoTempestratto(stato_)))
        grafica_->BV_CaricaEstratto_EMP(PercorsoTempestratto(stato_));
}

void BV_SommaEstratti::Conferma() {
    if (aggiunto_.isEmpty()) {
        stato_.piattaforma->Messaggio(QStringLiteral("Selezionare l'Estratto da Aggiungere"),
                                      kTitolo, Icona::Avviso);
        return;
    }
    const QString nome = Trim(nome_->text());
    if (nome.isEmpty()) {
        stato_.piattaforma->Messaggio(QStringLiteral("Inserire il Nome dell'Estratto Risultante"),
                                      kTitolo, Icona::Avviso);
        return;
    }
    risultato_ = GeneraSommaEstratti(stato_, base_, nome);
    if (!risultato_.isEmpty()) accept();
}

void BV_SommaEstratti::SommaComune() {
    avanzamento_->setVisible(true);
    avanzamento_->setValue(0);
    risultato_ = SommaEstrattiComune(stato_, base_, [this](int fatti, int totale) {
        avanzamento_->setMaximum(totale);
        avanzamento_->setValue(fatti);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    avanzamento_->setVisible(false);
    if (!risultato_.isEmpty()) accept();
}

} // namespace tavolet
