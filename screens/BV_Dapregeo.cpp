#include "BV_Dapregeo.h"

#include "FormRiordinoRighe.h"
#include "Grafica.h"
#include "posizione.h"

#include "errore.h"
#include "grafica.h"
#include "testo.h"

#include <QFontDatabase>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QSplitter>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormDapregeo = QStringLiteral("BV_Dapregeo");

QTableWidget* NuovaGriglia(const QStringList& colonne, QWidget* parent) {
    auto* g = new QTableWidget(0, int(colonne.size()), parent);
    g->setHorizontalHeaderLabels(colonne);
    g->setSelectionBehavior(QAbstractItemView::SelectRows);
    g->setSelectionMode(QAbstractItemView::SingleSelection);
    g->setEditTriggers(QAbstractItemView::NoEditTriggers);
    g->verticalHeader()->setVisible(false);
    g->verticalHeader()->setDefaultSectionSize(20);
    g->horizontalHeader()->setStretchLastSection(true);
    g->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return g;
}

void Riempi(QTableWidget* g, const QList<QStringList>& righe) {
    g->setUpdatesEnabled(false);
    g->clearContents();
    g->setRowCount(int(righe.size()));
    for (int r = 0; r < righe.size(); ++r)
        for (int c = 0; c < g->columnCount(); ++c)
            g->setItem(r, c, new QTableWidgetItem(righe[r].value(c)));
    g->resizeColumnsToContents();
    g->setUpdatesEnabled(true);
}

} // namespace

BV_Dapregeo::BV_Dapregeo(Stato& stato, int flag, QWidget* parent) : QDialog(parent), stato_(stato) {
    setObjectName(kFormDapregeo);
    dp_.Flag = flag;
    setWindowTitle(dp_.Caption);
    stato_.EsitoDialogo = -1;
    resize(1100, 720);

    auto* colonna = new QVBoxLayout(this);
    auto* verticale = new QSplitter(Qt::Vertical, this);
    atti_ = NuovaGriglia(kColonneAtti, verticale);
    atti_->setObjectName(QStringLiteral("GrigliaAtti"));
    verticale->addWidget(atti_);

    auto* orizzontale = new QSplitter(Qt::Horizontal, verticale);
    punti_ = NuovaGriglia(kColonnePunti, orizzontale);
    punti_->setObjectName(QStringLiteral("GrigliaPunti"));
    orizzontale->addWidget(punti_);
    grafica_ = new Grafica(stato_, orizzontale);
    grafica_->setMinimumSize(360, 300);
    orizzontale->addWidget(grafica_);
    orizzontale->setStretchFactor(0, 2);
    orizzontale->setStretchFactor(1, 3);
    orizzontale->setSizes({440, 660});
    verticale->addWidget(orizzontale);
    verticale->setStretchFactor(0, 2);
    verticale->setStretchFactor(1, 3);
    colonna->addWidget(verticale, 1);

    auto* comandi = new QHBoxLayout;
    auto pulsante = [&](const QString& caption, auto azione) {
        auto* b = new QPushButton(caption, this);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, azione);
        comandi->addWidget(b);
        return b;
    };
    pulsante(QStringLiteral("Libretto x Coordinate"), [this] { LibrettoPerCoordinate(); });
    pulsante(QStringLiteral("Genera DXF"), [this] { GeneraDxf(); });
    pulsante(QStringLiteral("&Esporta Elaborazione x CAD Topografico"),
             [this] { EsportaElaborazioneCad(stato_, dp_); });
    comandi->addStretch(1);
    pulsante(QStringLiteral("&Chiudi"), [this] { reject(); });
    colonna->addLayout(comandi);

    connect(atti_, &QTableWidget::cellClicked, this, [this](int riga, int) { ScegliAtto(riga); });
    RipristinaPosizioneForm(this, stato_, kFormDapregeo);
}

int BV_Dapregeo::Esegui(Stato& stato, int flag, QWidget* parent) {
    BV_Dapregeo form(stato, flag, parent);
    form.exec();
    return stato.EsitoDialogo;
}

QPushButton* BV_Dapregeo::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

void BV_Dapregeo::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    if (caricato_) return;
    caricato_ = true;
    // The list of acts comes once the window stands, after its plain dump.
    QTimer::singleShot(0, this, [this] {
        CaricaPregeo800(stato_, dp_);
        MostraAtti();
        MostraPunti();
    });
}

void BV_Dapregeo::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormDapregeo);
    if (stato_.EsitoDialogo < 0) stato_.EsitoDialogo = r == QDialog::Accepted ? 1 : 0;
    QDialog::done(r);
}

void BV_Dapregeo::MostraAtti() {
    Riempi(atti_, dp_.Atti);
}

void BV_Dapregeo::MostraPunti() {
    Riempi(punti_, dp_.Punti);
}

void BV_Dapregeo::ScegliAtto(int riga) {
    const QString elab = MostraListaPregeo(stato_, dp_, riga);
    MostraPunti();
    Disegna(elab);
}

void BV_Dapregeo::Disegna(const QString& elabSur) {
    grafica_->BV_Clear();
    if (!elabSur.isEmpty()) {
        grafica_->BV_Elaborazione_SUR(elabSur);
        grafica_->BV_ZoomTutto();
    }
    grafica_->BV_RidisegnaGrafica();
}

void BV_Dapregeo::LibrettoPerCoordinate() {
    ImportaRighe8InLibretto(stato_, dp_);
    FormRiordinoRighe::Esegui(stato_, parentWidget() ? parentWidget() : this);
    stato_.EsitoDialogo = 1;
    accept();
}

void BV_Dapregeo::GeneraDxf() {
    // The plot's writer, into the working folder.
    const QString percorso = stato_.amb.CartellaLavoro + QStringLiteral("\\GraficaPF.DXF");
    if (!BV_SalvaDXF(stato_, grafica_->Modello(), percorso)) return;
    Piattaforma& p = *stato_.piattaforma;
    p.Messaggio(QStringLiteral("Salvato il file ") + CRLF + percorso,
                QStringLiteral("Salva in DXF"), Icona::Informazione);
    if (p.Domanda(QStringLiteral("Aprire il file DXF ?"), QStringLiteral("Apertura file DXF "),
                  Pulsanti::SiNo, Risposta::No) == Risposta::Si)
        p.ApriConProgramma(percorso);
}

} // namespace tavolet
