#include "BV_ControlloAtto.h"

#include "posizione.h"

#include "errore.h"
#include "file_testo.h"
#include "testo.h"

#include <QColor>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kNomeControllo = QStringLiteral("BV_ControlloAtto");
const QString kTitolo = QStringLiteral("Controllo Atto");
} // namespace

QString TitoloControllo(const QList<Rilievo>& rilievi) {
    const int errori = ContaGravita(rilievi, kErrore), avvisi = ContaGravita(rilievi, kAvviso);
    return kTitolo + QStringLiteral(" - %1 %2, %3 %4")
                         .arg(errori)
                         .arg(errori == 1 ? QStringLiteral("errore") : QStringLiteral("errori"))
                         .arg(avvisi)
                         .arg(avvisi == 1 ? QStringLiteral("avviso") : QStringLiteral("avvisi"));
}

BV_ControlloAtto::BV_ControlloAtto(Stato& stato, std::function<void(int)> vaiAllaRiga,
                                   QWidget* parent)
    : QDialog(parent), stato_(stato), vaiAllaRiga_(std::move(vaiAllaRiga)) {
    setObjectName(kNomeControllo);
    auto* colonna = new QVBoxLayout(this);
    griglia_ = new QTableWidget(0, 4, this);
    griglia_->setHorizontalHeaderLabels({QStringLiteral("Gravità"), QStringLiteral("Riga"),
                                         QStringLiteral("Codice"), QStringLiteral("Messaggio")});
    griglia_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    griglia_->setSelectionBehavior(QAbstractItemView::SelectRows);
    griglia_->verticalHeader()->setVisible(false);
    griglia_->horizontalHeader()->setStretchLastSection(true);
    colonna->addWidget(griglia_, 1);
    auto* pulsanti = new QHBoxLayout;
    auto* aggiorna = new QPushButton(QStringLiteral("Aggiorna"), this);
    auto* esporta = new QPushButton(QStringLiteral("Esporta"), this);
    auto* chiudi = new QPushButton(QStringLiteral("Chiudi"), this);
    for (QPushButton* b : {aggiorna, esporta, chiudi}) {
        b->setAutoDefault(false);
        pulsanti->addWidget(b);
    }
    pulsanti->insertStretch(2, 1);
    colonna->addLayout(pulsanti);
    connect(aggiorna, &QPushButton::clicked, this, [this] { Aggiorna(); });
    connect(esporta, &QPushButton::clicked, this, [this] { Esporta(); });
    connect(chiudi, &QPushButton::clicked, this, &QDialog::accept);
    connect(griglia_, &QTableWidget::cellDoubleClicked, this, [this](int r, int) {
        if (r >= 0 && r < rilievi_.size() && rilievi_[r].riga > 0 && vaiAllaRiga_)
            vaiAllaRiga_(rilievi_[r].riga);
    });
    resize(900, 420);
    RipristinaPosizioneForm(this, stato_, kNomeControllo);
    Aggiorna();
}

void BV_ControlloAtto::Aggiorna() {
    rilievi_ = ControllaAtto(stato_);
    griglia_->setRowCount(int(rilievi_.size()));
    for (int i = 0; i < rilievi_.size(); ++i) {
        const Rilievo& r = rilievi_[i];
        const QStringList celle = {r.gravita, QString::number(r.riga), r.codice, r.messaggio};
        for (int c = 0; c < celle.size(); ++c) {
            auto* voce = new QTableWidgetItem(celle[c]);
            if (r.gravita == kErrore) voce->setForeground(QColor(170, 0, 0));
            griglia_->setItem(i, c, voce);
        }
    }
    griglia_->resizeColumnsToContents();
    griglia_->horizontalHeader()->setStretchLastSection(true);
    setWindowTitle(TitoloControllo(rilievi_));
}

bool BV_ControlloAtto::Esporta() {
    Piattaforma& p = *stato_.piattaforma;
    if (Trim(stato_.doc.PercorsoLibretto).isEmpty()) {
        p.Messaggio(QStringLiteral("Salvare il libretto prima di esportarne il controllo."),
                    kTitolo, Icona::Avviso);
        return false;
    }
    const QString percorso = PercorsoRapporto(stato_.doc.PercorsoLibretto);
    bool fatto = false;
    ConTrappola(stato_, QStringLiteral("EsportaControllo"), [&] {
        ScriviTesto(percorso, TestoRapporto(rilievi_));
        fatto = true;
    });
    if (fatto)
        p.Messaggio(QStringLiteral("Controllo esportato in") + CRLF + percorso, kTitolo,
                    Icona::Informazione);
    return fatto;
}

void BV_ControlloAtto::done(int r) {
    SalvaPosizioneForm(this, stato_, kNomeControllo);
    QDialog::done(r);
}

} // namespace tavolet
