#include "FormStorico.h"

#include "posizione.h"

#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "testo.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormStorico = QStringLiteral("FormStorico");

QTableWidgetItem* Cella(const QString& testo, Qt::Alignment allineamento = Qt::AlignLeft) {
    auto* c = new QTableWidgetItem(testo);
    c->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    c->setTextAlignment(allineamento | Qt::AlignVCenter);
    return c;
}

} // namespace

FormStorico::FormStorico(Stato& stato, QWidget* parent) : QDialog(parent), stato_(stato) {
    setObjectName(kFormStorico);
    const QString& libretto = stato_.doc.PercorsoLibretto;
    setWindowTitle(
        QStringLiteral("Storico Libretti - ") +
        (libretto.isEmpty() ? QStringLiteral("nessun libretto aperto") : NomeDelFile(libretto)));
    versioni_ = VersioniLibretto(stato_, libretto);

    auto* colonna = new QVBoxLayout(this);
    auto* spiega = new QLabel(
        versioni_.isEmpty()
            ? QStringLiteral("Nessuna versione conservata per questo libretto.")
            : QStringLiteral("Versioni conservate a ogni salvataggio, la più recente in alto. "
                             "\"Ripristina\" carica la versione scelta: Ctrl+Z la annulla, e "
                             "il file cambia solo al prossimo salvataggio."),
        this);
    spiega->setWordWrap(true);
    colonna->addWidget(spiega);

    auto* divisore = new QSplitter(Qt::Vertical, this);
    tabella_ = new QTableWidget(int(versioni_.size()), 3, divisore);
    tabella_->setObjectName(QStringLiteral("Versioni"));
    tabella_->setHorizontalHeaderLabels(
        {QStringLiteral("Data e ora"), QStringLiteral("Righe"), QStringLiteral("Dimensione")});
    tabella_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabella_->setSelectionMode(QAbstractItemView::SingleSelection);
    tabella_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tabella_->verticalHeader()->setVisible(false);
    tabella_->horizontalHeader()->setStretchLastSection(true);
    const QLocale italiano(QLocale::Italian, QLocale::Italy);
    for (int i = 0; i < versioni_.size(); ++i) {
        const VersioneLibretto& v = versioni_[i];
        tabella_->setItem(i, 0, Cella(v.quando.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"))));
        tabella_->setItem(i, 1, Cella(QString::number(v.righe), Qt::AlignRight));
        tabella_->setItem(
            i, 2, Cella(italiano.toString(v.byte) + QStringLiteral(" byte"), Qt::AlignRight));
    }
    tabella_->resizeColumnsToContents();
    righe_ = new QPlainTextEdit(divisore);
    righe_->setObjectName(QStringLiteral("RigheVersione"));
    righe_->setReadOnly(true);
    righe_->setLineWrapMode(QPlainTextEdit::NoWrap);
    righe_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    divisore->setStretchFactor(1, 1);
    colonna->addWidget(divisore, 1);

    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch(1);
    ripristina_ = new QPushButton(QStringLiteral("Ripristina"), this);
    ripristina_->setEnabled(false);
    auto* chiudi = new QPushButton(QStringLiteral("Chiudi"), this);
    pulsanti->addWidget(ripristina_);
    pulsanti->addWidget(chiudi);
    colonna->addLayout(pulsanti);

    connect(tabella_, &QTableWidget::currentCellChanged, this,
            [this](int riga) { MostraVersione(riga); });
    connect(tabella_, &QTableWidget::cellDoubleClicked, this, [this] { ripristina_->click(); });
    connect(ripristina_, &QPushButton::clicked, this, [this] {
        const int i = tabella_->currentRow();
        if (i < 0 || i >= versioni_.size()) return;
        scelta_ = versioni_[i];
        accept();
    });
    connect(chiudi, &QPushButton::clicked, this, &QDialog::reject);
    if (!versioni_.isEmpty()) tabella_->setCurrentCell(0, 0);
    resize(640, 520);
    RipristinaPosizioneForm(this, stato_, kFormStorico);
}

void FormStorico::MostraVersione(int indice) {
    ripristina_->setEnabled(indice >= 0 && indice < versioni_.size());
    if (!ripristina_->isEnabled()) {
        righe_->clear();
        return;
    }
    QString testo;
    ConTrappola(stato_, QStringLiteral("FormStorico"), [&] {
        QStringList righe;
        for (const QString& r : LeggiRighe(versioni_[indice].percorso))
            if (Trim(r).size() > 2) righe << Trim(r);
        testo = righe.join(u'\n');
    });
    righe_->setPlainText(testo);
}

std::optional<VersioneLibretto> FormStorico::Esegui(Stato& stato, QWidget* parent) {
    FormStorico form(stato, parent);
    form.exec();
    return form.Scelta();
}

void FormStorico::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormStorico);
    QDialog::done(r);
}

} // namespace tavolet
