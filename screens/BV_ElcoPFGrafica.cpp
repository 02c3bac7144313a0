#include "BV_ElcoPFGrafica.h"

#include "Grafica.h"
#include "posizione.h"

#include "grafica.h"
#include "stato.h"
#include "testo.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormElcoPFGrafica = QStringLiteral("BV_ElcoPFGrafica");
// The colours of the plot: points blue, the selected red, the measures green.
constexpr int kColorePunto = 9, kColoreScelto = 12, kColoreMisura = 2;

} // namespace

BV_ElcoPFGrafica::BV_ElcoPFGrafica(Stato& stato, const QString& comune, const QStringList& codici,
                                   QWidget* parent)
    : QDialog(parent), stato_(stato), tabella_(TabellaDaGriglia(stato, comune, codici)) {
    setObjectName(kFormElcoPFGrafica);
    setWindowTitle(QStringLiteral("Grafica Punti Fiduciali ") + comune);
    stato_.EsitoDialogo = -1;

    auto* riga = new QHBoxLayout(this);
    auto* sinistra = new QVBoxLayout;
    grafica_ = new Grafica(stato_, this);
    grafica_->MostraPulsanti(false); // the commands of this screen stand on the right
    grafica_->setMinimumSize(480, 400);
    sinistra->addWidget(grafica_, 1);
    stato_label_ = new QLabel(this);
    stato_label_->setObjectName(QStringLiteral("TestoStato"));
    stato_label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    sinistra->addWidget(stato_label_);
    riga->addLayout(sinistra, 1);

    auto* destra = new QVBoxLayout;
    auto pulsante = [&](const QString& caption, std::function<void()> azione) {
        auto* b = new QPushButton(caption, this);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [azione] { azione(); });
        destra->addWidget(b);
    };
    auto* titoloSelezione = new QLabel(QStringLiteral("Selezione"), this);
    destra->addWidget(titoloSelezione);
    pulsante(QStringLiteral("Tutti"), [this] { Comando([this] { SelezionaTutti(tabella_); }); });
    pulsante(QStringLiteral("Nessuno"),
             [this] { Comando([this] { SelezionaNessuno(tabella_); }); });
    pulsante(QStringLiteral("Inverti"),
             [this] { Comando([this] { InvertiSelezione(tabella_); }); });
    pulsante(QStringLiteral("Gaussiane"),
             [this] { Comando([this] { TogliGaussiane(tabella_); }); });
    pulsante(QStringLiteral("Foglio"), [this] { Foglio(); });
    pulsante(QStringLiteral("Intorno"), [this] { Intorno(); });
    pulsante(QStringLiteral("Seleziona EX PF"),
             [this] { Comando([this] { SelezionaExPF(tabella_); }); });
    destra->addSpacing(16);
    pulsante(QStringLiteral("Mostra Misurate"), [this] { MostraMisurate(); });
    pulsante(QStringLiteral("Copia nel Disegno i PF Selezonati"),
             [this] { CopiaPFNelDisegno(stato_, tabella_); });
    pulsante(QStringLiteral("Stampa Lista PF Selezionati"),
             [this] { StampaListaPFSelezionati(stato_, tabella_); });
    pulsante(QStringLiteral("Monografia PF Selezionato"), [this] { MonografiaSelezionato(); });
    pulsante(QStringLiteral("Copia Schermo"), [this] { CopiaSchermo(); });
    pulsante(QStringLiteral("Anteprima di Stampa Grafica"), [this] { AnteprimaStampa(); });
    pulsante(QStringLiteral("Salva in DXF"), [this] { SalvaDxf(); });
    destra->addStretch();
    pulsante(QStringLiteral("&Chiudi"), [this] { reject(); });
    riga->addLayout(destra);

    // The mouse over the plot selects and tells: its canvas is the first page of the control.
    if (auto* pila = grafica_->findChild<QStackedWidget*>(QStringLiteral("pila")))
        tela_ = pila->widget(0);
    if (tela_) tela_->installEventFilter(this);

    resize(1100, 760);
    RipristinaPosizioneForm(this, stato_, kFormElcoPFGrafica);
    Ridisegna(true);
}

int BV_ElcoPFGrafica::Esegui(Stato& stato, const QString& comune, const QStringList& codici,
                             QWidget* parent) {
    BV_ElcoPFGrafica form(stato, comune, codici, parent);
    form.exec();
    return stato.EsitoDialogo;
}

QPushButton* BV_ElcoPFGrafica::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

void BV_ElcoPFGrafica::Comando(const std::function<void()>& azione) {
    azione();
    Ridisegna();
}

void BV_ElcoPFGrafica::Ridisegna(bool adatta) {
    ModelloGrafica& g = grafica_->Modello();
    g.Punti.clear();
    g.Linee.clear();
    ++g.Versione;
    g.IndiceNomi.clear();
    for (const MisuraPF& m : tabella_.misure) {
        const RecordPF& a = tabella_.record[m.da];
        const RecordPF& b = tabella_.record[m.a];
        tavolet::BV_AggiungiLineaGraf(g, a.est, a.nord, 0, b.est, b.nord, 0, kColoreMisura, 1, 0);
    }
    for (const RecordPF& r : tabella_.record)
        tavolet::BV_AggiungiPuntoGraf(g, r.codice, r.est, r.nord, r.taf.quotaN, r.taf.rifPlan,
                                      r.selezionato ? kColoreScelto : kColorePunto, 0,
                                      QStringLiteral("Arial"), 8);
    if (adatta) {
        // Every point counts in the fit, whatever the switch of the toponyms says.
        VistaGrafica& v = *g.Vista;
        const qint16 toponimi = v.ToponimiNo;
        v.ToponimiNo = 0;
        tavolet::BV_ZoomTutto(g);
        v.ToponimiNo = toponimi;
        v.Altezza *= 1.15; // room for the codes of the points at the edges
        // The markers are drawn inside the box of the drawing only: it grows with the view.
        v.XMin = v.CentroX - v.Altezza;
        v.XMax = v.CentroX + v.Altezza;
        v.YMin = v.CentroY - v.Altezza;
        v.YMax = v.CentroY + v.Altezza;
    }
    grafica_->BV_RidisegnaGrafica();
}

QPointF BV_ElcoPFGrafica::Mondo(const QPointF& pixel) const {
    const VistaGrafica& v = *grafica_->Modello().Vista;
    const double a = AltezzaEffettiva(v);
    const double w = std::max(tela_ ? tela_->width() : 1, 1);
    const double h = std::max(tela_ ? tela_->height() : 1, 1);
    return {v.CentroX + (pixel.x() - w / 2) * a / h, v.CentroY + (h / 2 - pixel.y()) * a / h};
}

void BV_ElcoPFGrafica::Clic(const QPointF& pixel) {
    const QPointF p = Mondo(pixel);
    const int i = RecordVicino(tabella_, p.x(), p.y());
    if (i < 0) return;
    tabella_.record[i].selezionato = !tabella_.record[i].selezionato;
    scelto_ = i;
    Ridisegna();
    MuoviMouse(pixel);
}

void BV_ElcoPFGrafica::MuoviMouse(const QPointF& pixel) {
    if (!tela_) return;
    const QPointF p = Mondo(pixel);
    // The scale of the picture: metres shown over metres of screen.
    const double metriSchermo = tela_->height() / std::max(1, tela_->logicalDpiY()) * 0.0254;
    const double scala =
        AltezzaEffettiva(*grafica_->Modello().Vista) / std::max(metriSchermo, 1e-9);
    stato_label_->setText(TestoStatoGraficaPF(tabella_, p.x(), p.y(), scala));
}

bool BV_ElcoPFGrafica::eventFilter(QObject* o, QEvent* e) {
    if (o == tela_) {
        if (e->type() == QEvent::MouseMove) {
            MuoviMouse(static_cast<QMouseEvent*>(e)->position());
        } else if (e->type() == QEvent::MouseButtonPress) {
            auto* m = static_cast<QMouseEvent*>(e);
            // The left button selects here; the others keep the plot's menu and dragging.
            if (m->button() == Qt::LeftButton) {
                Clic(m->position());
                return true;
            }
        }
    }
    return QDialog::eventFilter(o, e);
}

void BV_ElcoPFGrafica::Foglio() {
    const QStringList fogli = FogliTabella(tabella_);
    if (fogli.isEmpty()) return;
    bool ok = false;
    const QString foglio = QInputDialog::getItem(this, QStringLiteral("Foglio"),
                                                 QStringLiteral("Foglio"), fogli, 0, false, &ok);
    if (ok) Comando([&] { SelezionaFoglio(tabella_, foglio); });
}

void BV_ElcoPFGrafica::Intorno() {
    int centro = scelto_;
    for (int i = 0; centro < 0 && i < tabella_.Conta(); ++i)
        if (tabella_.record[i].selezionato) centro = i;
    if (centro < 0) return;
    bool ok = false;
    const double raggio = QInputDialog::getDouble(this, QStringLiteral("Intorno"),
                                                  QStringLiteral("Raggio in metri intorno a ") +
                                                      tabella_.record[centro].codice,
                                                  500, 0, 1e7, 1, &ok);
    if (ok) Comando([&] { SelezionaIntorno(tabella_, centro, raggio); });
}

void BV_ElcoPFGrafica::MostraMisurate() {
    Comando([this] { MettiDistanzeMisurate(stato_, tabella_); });
}

void BV_ElcoPFGrafica::MonografiaSelezionato() {
    for (const RecordPF& r : tabella_.record) {
        if (!r.selezionato) continue;
        ApriMonografia(stato_, r.codice);
        return;
    }
}

void BV_ElcoPFGrafica::CopiaSchermo() {
    // The platform carries text only: the picture goes to the clipboard here.
    if (QClipboard* appunti = QGuiApplication::clipboard()) appunti->setImage(grafica_->Immagine());
    stato_.piattaforma->Messaggio(QStringLiteral("Contenuto Schermo copiato negli Appunti!"),
                                  QStringLiteral("Copia Schermo"), Icona::Informazione);
}

void BV_ElcoPFGrafica::AnteprimaStampa() {
    // The plot's print file, Stampe.TXT, then Print.exe on it.
    grafica_->GeneraStampa();
}

void BV_ElcoPFGrafica::SalvaDxf() {
    if (!SalvaDXFPF(stato_, tabella_)) return;
    const QString percorso = PercorsoDXFPF(stato_);
    Piattaforma& p = *stato_.piattaforma;
    p.Messaggio(QStringLiteral("Salvato il file ") + percorso, QStringLiteral("Salva in DXF"),
                Icona::Informazione);
    if (p.Domanda(QStringLiteral("Aprire il file DXF ?"), QStringLiteral("Apertura file DXF "),
                  Pulsanti::SiNo, Risposta::No) == Risposta::Si)
        p.ApriConProgramma(percorso);
}

void BV_ElcoPFGrafica::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormElcoPFGrafica);
    if (stato_.EsitoDialogo < 0) stato_.EsitoDialogo = 0;
    QDialog::done(r);
}

} // namespace tavolet
