#include "BV_ElcoPfGriglia.h"

#include "BV_ElcoPFGrafica.h"
#include "BV_StampaGenerale.h"
#include "EseguiComando.h"
#include "posizione.h"

#include "errore.h"
#include "file_testo.h"
#include "grafica_pf.h"
#include "stato.h"
#include "testo.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace tavolet {

namespace {
const QString kFormElcoPfGriglia = QStringLiteral("BV_ElcoPfGriglia");
}

ModelloGrigliaTaf::ModelloGrigliaTaf(QList<QStringList> griglia, QObject* parent)
    : QAbstractTableModel(parent), griglia_(std::move(griglia)) {}

int ModelloGrigliaTaf::rowCount(const QModelIndex& genitore) const {
    return genitore.isValid() ? 0 : std::max(0, int(griglia_.size()) - 1);
}

int ModelloGrigliaTaf::columnCount(const QModelIndex& genitore) const {
    return genitore.isValid() ? 0 : int(IntestazioniGriglia().size());
}

QVariant ModelloGrigliaTaf::data(const QModelIndex& indice, int ruolo) const {
    if (ruolo != Qt::DisplayRole || !indice.isValid()) return {};
    return griglia_.value(indice.row() + 1).value(indice.column());
}

QVariant ModelloGrigliaTaf::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    if (ruolo != Qt::DisplayRole) return {};
    if (verso == Qt::Horizontal) return IntestazioniGriglia().value(sezione);
    return sezione + 1;
}

BV_ElcoPfGriglia::BV_ElcoPfGriglia(Stato& stato, const QString& provincia, const QString& nome,
                                   const QString& codice, const QList<RigaTaf>& righe,
                                   QWidget* parent)
    : QDialog(parent), stato_(stato), comune_(Left(codice, 4)) {
    setObjectName(kFormElcoPfGriglia);
    setWindowTitle(QStringLiteral("Punti Fiduciali - ") + EtichettaComune(nome, codice));
    stato_.EsitoDialogo = -1;

    auto* colonna = new QVBoxLayout(this);
    menu_ = new QMenuBar(this);
    menu_->addAction(QStringLiteral("&Grafica"), this, [this] { ApriGrafica(); });
    menu_->addAction(QStringLiteral("Stampa_selezione"), this, [this] { Stampa_selezione(); });
    menu_->addAction(QStringLiteral("Monografie"), this, [this] { Monografie(); })
        ->setObjectName(QStringLiteral("mnuMonografie"));
    colonna->setMenuBar(menu_);

    auto* alto = new QHBoxLayout;
    for (const QString& testo : {EtichettaProvincia(provincia), EtichettaComune(nome, codice),
                                 EtichettaTotali(int(righe.size()))}) {
        auto* e = new QLabel(testo, this);
        etichette_ << e;
        alto->addWidget(e);
        alto->addSpacing(24);
    }
    alto->addStretch();
    colonna->addLayout(alto);

    modello_ = new ModelloGrigliaTaf(GrigliaTaf(righe), this);
    tabella_ = new QTableView(this);
    tabella_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    tabella_->setModel(modello_);
    tabella_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabella_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tabella_->verticalHeader()->setDefaultSectionSize(tabella_->fontMetrics().height() + 4);
    tabella_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    tabella_->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    const QList<int>& mezzi = MezziLarghezzeGriglia();
    // The widths of the grid, each at least its heading's.
    for (int c = 0; c < mezzi.size(); ++c)
        tabella_->setColumnWidth(c, std::max(mezzi[c] * UnitaBase() / 2,
                                             tabella_->horizontalHeader()->sectionSizeHint(c)));
    colonna->addWidget(tabella_, 1);
    // A double click on a point opens its monograph.
    connect(tabella_, &QTableView::doubleClicked, this,
            [this](const QModelIndex& i) { Monografia(i.row() + 1); });

    resize(1100, 600);
    RipristinaPosizioneForm(this, stato_, kFormElcoPfGriglia);
}

int BV_ElcoPfGriglia::UnitaBase() const {
    // Eight characters of the grid's font: a code of fourteen fits in two units.
    return tabella_->fontMetrics().horizontalAdvance(QStringLiteral("00000000")) + 6;
}

QAction* BV_ElcoPfGriglia::Voce(const QString& caption) const {
    for (QAction* a : menu_->actions())
        if (a->text() == caption) return a;
    return nullptr;
}

void BV_ElcoPfGriglia::ApriGrafica() {
    QStringList codici;
    for (int r = 1; r < Griglia().size(); ++r) codici << Griglia()[r].value(0);
    BV_ElcoPFGrafica::Esegui(stato_, comune_, codici, this);
}

void BV_ElcoPfGriglia::Stampa_selezione() {
    // The rows between the two ends of the selection; none chosen is the header row alone.
    int da = 0, a = 0;
    const QModelIndexList scelte = tabella_->selectionModel()->selectedRows();
    if (!scelte.isEmpty()) {
        da = a = scelte.first().row() + 1;
        for (const QModelIndex& i : scelte) {
            da = std::min(da, i.row() + 1);
            a = std::max(a, i.row() + 1);
        }
    }
    if (!StampaSelezioneTaf(stato_, Griglia(), da, a)) return;
    // The columns in a fixed pitch go to the print screen, with the files as its report.
    const QString stelo = stato_.amb.CartellaLavoro + QStringLiteral("\\temp\\Stampa_TAF");
    QStringList righe;
    ConTrappola(stato_, QStringLiteral("Stampa_selezione"),
                [&] { righe = LeggiRighe(stelo + QStringLiteral(".TXT")); });
    BV_StampaGenerale::Esegui(stato_, righe, QStringLiteral("Stampa_TAF.TXT"), stelo, this);
}

void BV_ElcoPfGriglia::Monografie() {
    EseguiComando(stato_, kParolaImportTaf, QString(), this);
}

void BV_ElcoPfGriglia::Monografia(int riga) {
    if (riga < 1 || riga >= Griglia().size()) return;
    ApriMonografia(stato_, Griglia()[riga].value(0));
}

void BV_ElcoPfGriglia::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormElcoPfGriglia);
    if (stato_.EsitoDialogo < 0) stato_.EsitoDialogo = 0;
    QDialog::done(r);
}

} // namespace tavolet
