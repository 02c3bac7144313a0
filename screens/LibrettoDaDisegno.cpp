#include "LibrettoDaDisegno.h"

#include "BV_StampaGenerale.h"
#include "Grafica.h"
#include "posizione.h"

#include "libretto.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormLibrettoDaDisegno = QStringLiteral("LibrettoDaDisegno");
const QString kFont = QStringLiteral("Courier New");

// Colours of the plot (QB palette): points and contours, the lines of the survey, the joins
// of a station to its points.
constexpr int kColorePunto = 0;
constexpr int kColoreContorno = 12;
constexpr int kColoreLinea = 9;
constexpr int kColoreStazione = 10;

QListWidget* NuovaLista(QWidget* parent) {
    auto* l = new QListWidget(parent);
    l->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    l->setSelectionMode(QAbstractItemView::SingleSelection);
    return l;
}

} // namespace

LibrettoDaDisegno::LibrettoDaDisegno(Stato& stato, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setObjectName(kFormLibrettoDaDisegno);
    stato_.EsitoDialogo = -1;
    resize(1280, 820);

    auto* colonna = new QVBoxLayout(this);
    auto* divisore = new QSplitter(Qt::Horizontal, this);
    colonna->addWidget(divisore, 1);

    // Options.
    auto* opzioni = new QWidget(divisore);
    auto* sinistra = new QVBoxLayout(opzioni);
    sinistra->setContentsMargins(0, 0, 0, 0);
    auto* mantieni = new QGroupBox(QStringLiteral("Libretto Esistente"), opzioni);
    auto* m = new QVBoxLayout(mantieni);
    mantieni45_ = NuovaCasella(QStringLiteral("Mantieni Righe 4-5 del Libretto"), mantieni);
    mantieni37_ = NuovaCasella(
        QStringLiteral("Mantieni Poligonali e Contorni [3 - 7] del Libretto"), mantieni);
    mantieni8_ = NuovaCasella(QStringLiteral("Mantieni Righe 8 del Libretto"), mantieni);
    gps_ = NuovaCasella(QStringLiteral("Mantieni solo Punti GPS presenti nel Disegno"), mantieni);
    for (QCheckBox* c : {mantieni45_, mantieni37_, mantieni8_, gps_}) m->addWidget(c);
    sinistra->addWidget(mantieni);

    righe8_ = new QGroupBox(QStringLiteral("Generazione Righe 8"), opzioni);
    auto* r8 = new QVBoxLayout(righe8_);
    pfTaf_ = NuovaCasella(QStringLiteral("Carica Righe 8 PF da TAF"), righe8_);
    r8->addWidget(pfTaf_);
    sinistra->addWidget(righe8_);
    // The frame is there only for rows 8 that are generated, not kept.
    connect(mantieni8_, &QCheckBox::toggled, righe8_,
            [this](bool si) { righe8_->setEnabled(!si); });

    auto* orienta = new QGroupBox(QStringLiteral("Orientamento Stazioni"), opzioni);
    auto* o = new QVBoxLayout(orienta);
    orientamento_ = new QButtonGroup(this);
    azimut_ = NuovaScelta(QStringLiteral("Calcola Tutti Azimut"), orientamento_, orienta);
    precedente_ =
        NuovaScelta(QStringLiteral("Azzera su Stazione Precedente"), orientamento_, orienta);
    orientaLibretto_ = NuovaScelta(QStringLiteral("Orienta come da Libretto M. Esistente"),
                                   orientamento_, orienta);
    for (QRadioButton* r : {azimut_, precedente_, orientaLibretto_}) o->addWidget(r);
    sinistra->addWidget(orienta);

    auto* stazioni = new QGroupBox(QStringLiteral("Nomi delle Stazioni"), opzioni);
    auto* st = new QVBoxLayout(stazioni);
    incremento_ = new QButtonGroup(this);
    centesimale_ = NuovaScelta(QStringLiteral("Staz. Incremento 100 .. 1000 - 1100 - .."),
                               incremento_, stazioni);
    millesimale_ =
        NuovaScelta(QStringLiteral("Staz. Incremento 1000 - 2000 - ..."), incremento_, stazioni);
    st->addWidget(centesimale_);
    st->addWidget(millesimale_);
    sinistra->addWidget(stazioni);

    auto* altre = new QGroupBox(QStringLiteral("Righe Generate"), opzioni);
    auto* a = new QVBoxLayout(altre);
    planimetrico_ = NuovaCasella(
        QStringLiteral(
            "Considera Planimetrici i Punti con un Dislivello Max dalla Stazione di mm:"),
        altre);
    dislivello_ = new QLineEdit(altre);
    dislivello_->setObjectName(QStringLiteral("Dislivello"));
    dislivello_->setMaximumWidth(80);
    auto* riga = new QHBoxLayout;
    riga->addWidget(planimetrico_, 1);
    riga->addWidget(dislivello_);
    a->addLayout(riga);
    commenti_ = NuovaCasella(QStringLiteral("Elimina Commenti Duplicati nelle Righe7"), altre);
    cs_ = NuovaCasella(QStringLiteral("Metti CS su Note Punti Consecutive Duplicate"), altre);
    puntiNote_ = NuovaCasella(QStringLiteral("Elimina punti da Descrizioni Punti"), altre);
    noteMancanti_ = NuovaCasella(QStringLiteral("Avvisa Note Mancanti"), altre);
    riordina_ = NuovaCasella(QStringLiteral("Riordina Righe"), altre);
    report_ = NuovaCasella(QStringLiteral("Genera Report"), altre);
    for (QCheckBox* c : {commenti_, cs_, puntiNote_, noteMancanti_, riordina_, report_})
        a->addWidget(c);
    sinistra->addWidget(altre);

    auto* precisione = new QGroupBox(QStringLiteral("Precisione Angolare Strumentazione"), opzioni);
    auto* pr = new QVBoxLayout(precisione);
    precisioni_ = NuovaLista(precisione);
    precisioni_->setObjectName(QStringLiteral("Precisioni"));
    precisioni_->addItems(PrecisioniAngolari());
    // The six precisions in view at once.
    precisioni_->setFixedHeight(6 * (QFontMetrics(precisioni_->font()).height() + 4) +
                                2 * precisioni_->frameWidth() + 4);
    precisioni_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    pr->addWidget(precisioni_);
    sinistra->addWidget(precisione);
    sinistra->addStretch(1);
    divisore->addWidget(opzioni);

    // The plot, wider than tall as its fitting wants it, over the current libretto and the
    // lines of the drawing.
    auto* destra = new QSplitter(Qt::Vertical, divisore);
    grafica_ = new Grafica(stato_, destra);
    grafica_->setMinimumSize(480, 300);
    destra->addWidget(grafica_);
    auto* elenchi = new QSplitter(Qt::Horizontal, destra);
    auto* vistaLibretto = new QGroupBox(QStringLiteral("Libretto Attuale"), elenchi);
    auto* vl = new QVBoxLayout(vistaLibretto);
    libretto_ = NuovaLista(vistaLibretto);
    libretto_->setObjectName(QStringLiteral("Libretto"));
    vl->addWidget(libretto_);
    auto* vistaLinee = new QGroupBox(QStringLiteral("Elenco Linee Con Punti Estremi"), elenchi);
    auto* vli = new QVBoxLayout(vistaLinee);
    listaLinee_ = NuovaLista(vistaLinee);
    listaLinee_->setObjectName(QStringLiteral("ListaLinee"));
    vli->addWidget(listaLinee_);
    elenchi->addWidget(vistaLibretto);
    elenchi->addWidget(vistaLinee);
    elenchi->setSizes({520, 340});
    destra->addWidget(elenchi);
    destra->setStretchFactor(0, 3);
    destra->setStretchFactor(1, 2);
    destra->setSizes({500, 300});
    divisore->addWidget(destra);
    divisore->setStretchFactor(0, 0);
    divisore->setStretchFactor(1, 1);
    divisore->setSizes({400, 880});

    auto* comandi = new QHBoxLayout;
    genera_ = new QPushButton(QStringLiteral("&Genera Libretto Misure"), this);
    genera_->setAutoDefault(false);
    connect(genera_, &QPushButton::clicked, this, [this] { Genera(); });
    auto* chiudi = new QPushButton(QStringLiteral("&Chiudi"), this);
    chiudi->setAutoDefault(false);
    connect(chiudi, &QPushButton::clicked, this, [this] { Chiudi(); });
    comandi->addWidget(genera_);
    comandi->addStretch(1);
    comandi->addWidget(chiudi);
    colonna->addLayout(comandi);

    RipristinaPosizioneForm(this, stato_, kFormLibrettoDaDisegno);
    Carica();
}

bool LibrettoDaDisegno::Esegui(Stato& stato, QWidget* parent) {
    LibrettoDaDisegno form(stato, parent);
    form.exec();
    return form.ProcessoTerminato();
}

QCheckBox* LibrettoDaDisegno::NuovaCasella(const QString& caption, QWidget* parent) {
    auto* c = new QCheckBox(caption, parent);
    caselle_ << c;
    return c;
}

QRadioButton* LibrettoDaDisegno::NuovaScelta(const QString& caption, QButtonGroup* gruppo,
                                             QWidget* parent) {
    auto* r = new QRadioButton(caption, parent);
    gruppo->addButton(r);
    scelte_ << r;
    return r;
}

QCheckBox* LibrettoDaDisegno::Casella(const QString& caption) const {
    for (QCheckBox* c : caselle_)
        if (c->text() == caption) return c;
    return nullptr;
}

QRadioButton* LibrettoDaDisegno::Scelta(const QString& caption) const {
    for (QRadioButton* r : scelte_)
        if (r->text() == caption) return r;
    return nullptr;
}

QPushButton* LibrettoDaDisegno::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

OpzioniLibretto LibrettoDaDisegno::Opzioni() const {
    OpzioniLibretto o;
    o.MantieniRighe4 = mantieni45_->isChecked();
    o.Mantieni3_7 = mantieni37_->isChecked();
    o.Mantieni8 = mantieni8_->isChecked();
    o.PuntoPlanimetrico = planimetrico_->isChecked();
    o.DislivelloPlanimetrico = dislivello_->text();
    o.orientamento = azimut_->isChecked()            ? Orientamento::TuttiAzimut
                     : precedente_->isChecked()      ? Orientamento::StazionePrecedente
                     : orientaLibretto_->isChecked() ? Orientamento::Libretto
                                                     : Orientamento::Nessuno;
    o.IncrementoCentesimale = centesimale_->isChecked();
    o.IncrementoMillesimale = millesimale_->isChecked();
    o.MostraReport = report_->isChecked();
    o.CommentiDuplicati = commenti_->isChecked();
    o.MettiCS = cs_->isChecked();
    o.EliminaPuntiNote = puntiNote_->isChecked();
    o.PFDaEstratto = pfTaf_->isChecked();
    o.MantieniGPS = gps_->isChecked();
    o.NoteMancanti = noteMancanti_->isChecked();
    o.RiordinoFittizio = riordina_->isChecked();
    o.PrecisioneAngolare = precisioni_->currentRow();
    return o;
}

void LibrettoDaDisegno::ImpostaOpzioni(const OpzioniLibretto& o) {
    mantieni45_->setChecked(o.MantieniRighe4);
    mantieni37_->setChecked(o.Mantieni3_7);
    mantieni8_->setChecked(o.Mantieni8);
    righe8_->setEnabled(!o.Mantieni8);
    planimetrico_->setChecked(o.PuntoPlanimetrico);
    dislivello_->setText(o.DislivelloPlanimetrico);
    // No orientation chosen is a state of its own: the generation asks for one.
    orientamento_->setExclusive(false);
    azimut_->setChecked(o.orientamento == Orientamento::TuttiAzimut);
    precedente_->setChecked(o.orientamento == Orientamento::StazionePrecedente);
    orientaLibretto_->setChecked(o.orientamento == Orientamento::Libretto);
    orientamento_->setExclusive(true);
    // The two increments are option buttons: the thousands, read last, win a tie.
    incremento_->setExclusive(false);
    millesimale_->setChecked(o.IncrementoMillesimale);
    centesimale_->setChecked(o.IncrementoCentesimale && !o.IncrementoMillesimale);
    incremento_->setExclusive(true);
    report_->setChecked(o.MostraReport);
    commenti_->setChecked(o.CommentiDuplicati);
    cs_->setChecked(o.MettiCS);
    puntiNote_->setChecked(o.EliminaPuntiNote);
    pfTaf_->setChecked(o.PFDaEstratto);
    gps_->setChecked(o.MantieniGPS);
    noteMancanti_->setChecked(o.NoteMancanti);
    riordina_->setChecked(o.RiordinoFittizio);
    precisioni_->setCurrentRow(o.PrecisioneAngolare);
}

void LibrettoDaDisegno::Carica() {
    setWindowTitle(QStringLiteral("Libretto Fittizio : ") + stato_.doc.PercorsoLibretto);
    ConTrappola(stato_, kFormLibrettoDaDisegno, [&] { CaricaDisegno(); });
}

void LibrettoDaDisegno::CaricaDisegno() {
    OpzioniLibretto o;
    CaricaCFG(stato_, o);
    const QStringList righe = Split(stato_.doc.TestoLibretto, CRLF);
    libretto_->addItems(righe);
    // Orienting as the old libretto did needs one to look at.
    const bool esistente = righe.size() - 1 >= 3;
    if (!esistente && o.orientamento == Orientamento::Libretto)
        o.orientamento = Orientamento::Nessuno;
    ImpostaOpzioni(o);
    orientaLibretto_->setEnabled(esistente);

    disegno_ = CaricaGrafica(stato_, stato_.doc.PercorsoLibretto);
    linee_ = RiconosciLinee(disegno_);
    listaLinee_->addItems(linee_);
    Disegna();
    if (linee_.isEmpty()) {
        stato_.piattaforma->Messaggio(
            QStringLiteral("Non è stata trovata nessuna Stazione nel Disegno!"),
            QStringLiteral("Libretto da Disegno"), Icona::Informazione);
        genera_->setEnabled(false);
    }
}

void LibrettoDaDisegno::Disegna() {
    ConTrappola(stato_, QStringLiteral("LibrettoDaDisegno1"), [&] {
        grafica_->BV_Clear();
        for (const PuntoDisegno& p : disegno_.PuntiDisegno)
            grafica_->BV_AggiungiPuntoGraf(p.nome, p.X, p.Y, p.Z, QString(), kColorePunto, 0, kFont,
                                           8);
        for (const ContornoDisegno& c : disegno_.ContorniDisegno) {
            QStringList nomi = Split(c.punti, QStringLiteral("|"));
            nomi.removeAll(QString());
            for (int i = 1; i < nomi.size(); ++i)
                grafica_->BV_AggiungiLineaGraf2Punti(nomi[i - 1], nomi[i], kColoreContorno, 1, 0);
        }
        for (const QString& v : linee_)
            grafica_->BV_AggiungiLineaGraf2Punti(NomeSinistro(v), NomeDestro(v), kColoreLinea, 2,
                                                 0);
        for (const StazionePlot& s : StazioniPerGrafica(disegno_, linee_)) {
            if (s.indice < 0) continue;
            const PuntoDisegno& st = disegno_.PuntiDisegno[s.indice];
            for (int i : s.punti) {
                const PuntoDisegno& p = disegno_.PuntiDisegno[i];
                grafica_->BV_AggiungiLineaGraf(st.X, st.Y, st.Z, p.X, p.Y, p.Z, kColoreStazione, 1,
                                               2);
            }
        }
        grafica_->BV_ZoomTutto();
    });
}

void LibrettoDaDisegno::Genera() {
    const OpzioniLibretto o = Opzioni();
    QStringList rapporto;
    const EsitoGenerazione esito = GeneraLibrettoMisureAutomatico(
        stato_, disegno_, linee_, o, rapporto, [this](const QStringList& righe) {
            BV_StampaGenerale::Esegui(stato_, righe, QStringLiteral("Report Libretto da Disegno"),
                                      {}, this);
        });
    if (esito.fermato) return;
    // The run is not repeatable: the stations are already taken up.
    genera_->setVisible(false);
    libretto_->clear();
    libretto_->addItems(Split(stato_.doc.TestoLibretto, CRLF));
    if (esito.scritto) TerminaProcesso(1);
}

void LibrettoDaDisegno::Chiudi() {
    TerminaProcesso(0);
}

void LibrettoDaDisegno::TerminaProcesso(int esito) {
    // This screen is the whole run of its command word: its end is the program's, and it goes
    // the way every end of the program goes, through the platform.
    terminato_ = true;
    stato_.EsitoDialogo = esito;
    stato_.piattaforma->TerminaProcessi(QStringLiteral("tavolet.exe"));
    done(esito == 1 ? QDialog::Accepted : QDialog::Rejected);
}

void LibrettoDaDisegno::done(int r) {
    if (!terminato_) SalvaPosizioneForm(this, stato_, kFormLibrettoDaDisegno);
    if (stato_.EsitoDialogo < 0) stato_.EsitoDialogo = r == QDialog::Accepted ? 1 : 0;
    QDialog::done(r);
}

} // namespace tavolet
