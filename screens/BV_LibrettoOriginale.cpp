#include "BV_LibrettoOriginale.h"

#include "libretto.h"
#include "piattaforma_qt.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kNomeForm = QStringLiteral("BV_LibrettoOriginale");
}

BV_LibrettoOriginale::BV_LibrettoOriginale(Stato& stato, QWidget* parent)
    : QMainWindow(parent), stato_(stato) {
    setObjectName(kNomeForm);
    setWindowTitle(TitoloIniziale());
    CostruisciMenu();
    CostruisciPannelli();
    resize(1280, 800);
}

void BV_LibrettoOriginale::CostruisciMenu() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("     &File    "));
    file->addAction(QStringLiteral("&Salva"), this, [this] { Salva(); });
    file->addAction(QStringLiteral("Esporta Libretto"), this, [this] {
        LeggiSelezione();
        AggiornaLibrettoMisure(stato_);
        EsportaLibrettoInFile(stato_);
    });
    file->addSeparator();
    file->addAction(QStringLiteral("Chiudi"), this, [this] { close(); });
    QMenu* modifica = menuBar()->addMenu(QStringLiteral("Modifica Libretto"));
    modifica->addAction(QStringLiteral("Incolla da Appunti"), this, [this] {
        IncollaDaAppunti(stato_);
        MostraDocumento();
    });
}

QPushButton* BV_LibrettoOriginale::NuovoPulsante(QGridLayout* griglia, int riga, int colonna,
                                                 const QString& caption, const QString& hint) {
    auto* b = new QPushButton(caption);
    b->setToolTip(hint);
    b->setMinimumHeight(30);
    griglia->addWidget(b, riga, colonna);
    return b;
}

void BV_LibrettoOriginale::CostruisciPannelli() {
    auto* centro = new QWidget;
    auto* orizzontale = new QHBoxLayout(centro);
    orizzontale->setContentsMargins(6, 6, 6, 6);

    // The row list fills the form, below a strip of 30 units with the counter.
    auto* sinistra = new QVBoxLayout;
    auto* striscia = new QHBoxLayout;
    nomeFile_ = new QLabel;
    nomeFile_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    contatore_ = new QLabel;
    contatore_->setObjectName(QStringLiteral("Contatore"));
    contatore_->setMinimumWidth(90);
    contatore_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    striscia->addWidget(nomeFile_, 1);
    striscia->addWidget(contatore_);
    sinistra->addLayout(striscia);
    righe_ = new QListWidget;
    righe_->setObjectName(QStringLiteral("RigheLibretto"));
    righe_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    righe_->setUniformItemSizes(true);
    righe_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    righe_->setAcceptDrops(true);
    righe_->viewport()->setAcceptDrops(true);
    righe_->viewport()->installEventFilter(this);
    righe_->installEventFilter(this);
    sinistra->addWidget(righe_, 1);
    orizzontale->addLayout(sinistra, 1);

    auto* destra = new QVBoxLayout;
    auto* datiBox = new QGroupBox(QStringLiteral("Dati del Libretto"));
    auto* dati = new QGridLayout(datiBox);
    estratto_ = new QLabel;
    misurate_ = new QLabel;
    versione_ = new QLabel(kEtichettaPregeo);
    iscrizione_ = new QLineEdit;
    iscrizione_->setObjectName(QStringLiteral("NumeroIscrizioneAlbo"));
    codiceFiscale_ = new QLineEdit;
    codiceFiscale_->setObjectName(QStringLiteral("CodiceFiscaleTecnico"));
    possessori_ = new QPlainTextEdit;
    possessori_->setObjectName(QStringLiteral("TestoPossessori"));
    possessori_->setMinimumHeight(120);
    dati->addWidget(estratto_, 0, 0, 1, 2);
    dati->addWidget(misurate_, 1, 0, 1, 2);
    dati->addWidget(new QLabel(QStringLiteral("N. Iscrizione Albo")), 2, 0);
    dati->addWidget(iscrizione_, 2, 1);
    dati->addWidget(new QLabel(QStringLiteral("Codice Fiscale")), 3, 0);
    dati->addWidget(codiceFiscale_, 3, 1);
    dati->addWidget(new QLabel(QStringLiteral("Possessori")), 4, 0, 1, 2);
    dati->addWidget(possessori_, 5, 0, 1, 2);
    dati->addWidget(versione_, 6, 0, 1, 2);
    destra->addWidget(datiBox);

    auto* comandiBox = new QGroupBox(QStringLiteral("Libretto"));
    comandiBox->setObjectName(QStringLiteral("PannelloComandi"));
    auto* comandi = new QGridLayout(comandiBox);
    connect(NuovoPulsante(comandi, 0, 0, QStringLiteral("Salva"), QStringLiteral("Salva Libretto")),
            &QPushButton::clicked, this, [this] { Salva(); });
    destra->addWidget(comandiBox);
    destra->addStretch(1);
    auto* pannello = new QWidget;
    pannello->setLayout(destra);
    pannello->setFixedWidth(360);
    orizzontale->addWidget(pannello);
    setCentralWidget(centro);

    connect(righe_, &QListWidget::itemSelectionChanged, this, [this] {
        if (mostrando_) return;
        LeggiSelezione();
        Righe_Indice();
    });
    // The current row is read with the selection: the list makes its first row current when
    // it takes the focus, and a libretto just shown has no row selected.
    connect(righe_, &QListWidget::clicked, this, [this] {
        LeggiSelezione();
        Righe_Indice();
    });
    connect(iscrizione_, &QLineEdit::textEdited, this,
            [this](const QString& t) { stato_.doc.NumeroIscrizioneAlbo = t; });
    connect(codiceFiscale_, &QLineEdit::textEdited, this, [this](const QString& t) {
        const QString maiuscolo = UCase(t);
        if (maiuscolo != t) {
            const int cursore = codiceFiscale_->cursorPosition();
            codiceFiscale_->setText(maiuscolo);
            codiceFiscale_->setCursorPosition(cursore);
        }
        stato_.doc.CodiceFiscaleTecnico = maiuscolo;
    });
    connect(possessori_, &QPlainTextEdit::textChanged, this, [this] {
        if (mostrando_) return;
        QString t = possessori_->toPlainText();
        t.replace(u'\n', CRLF);
        stato_.doc.TestoPossessori = t;
    });
}

QPushButton* BV_LibrettoOriginale::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

bool BV_LibrettoOriginale::Carica(const QString& rigaComando) {
    setWindowTitle(TitoloIniziale());
    const QString x =
        stato_.piattaforma->Impostazione(QStringLiteral("POSIZIONE_FORMx"), kNomeForm);
    const QString y =
        stato_.piattaforma->Impostazione(QStringLiteral("POSIZIONE_FORMy"), kNomeForm);
    const QString w = stato_.piattaforma->Impostazione(QStringLiteral("FORMx"), kNomeForm);
    const QString h = stato_.piattaforma->Impostazione(QStringLiteral("FORMy"), kNomeForm);
    if (!w.isEmpty() && !h.isEmpty() && w.toInt() > 200 && h.toInt() > 200)
        resize(w.toInt(), h.toInt());
    if (!x.isEmpty() && !y.isEmpty()) move(x.toInt(), y.toInt());
    if (!AvvioProgramma(stato_, rigaComando)) return false;
    ApplicaCarattere();
    MostraDocumento();
    // Under a bare X server the title set before mapping can be lost: set it once more.
    QTimer::singleShot(0, this, [this] { Righe_Indice(); });
    return true;
}

void BV_LibrettoOriginale::ApplicaCarattere() {
    if (const auto c = LeggiConfiguraCarattere(stato_)) righe_->setFont(FontDa(*c));
}

void BV_LibrettoOriginale::MostraRighe() {
    mostrando_ = true;
    const ListaRighe& l = stato_.doc.RigheLibretto;
    righe_->setUpdatesEnabled(false);
    righe_->clear();
    righe_->addItems(l.Righe());
    for (int i : l.Selezionate()) righe_->item(i)->setSelected(true);
    if (l.Corrente() >= 0) righe_->setCurrentRow(l.Corrente(), QItemSelectionModel::NoUpdate);
    righe_->setUpdatesEnabled(true);
    mostrando_ = false;
}

void BV_LibrettoOriginale::MostraDati() {
    mostrando_ = true;
    const Documento& d = stato_.doc;
    nomeFile_->setText(QStringLiteral("Nome del file : ") + d.PercorsoLibretto);
    misurate_->setText(QStringLiteral("Misurate associate : ") + d.NomeMisurate);
    estratto_->setText(QStringLiteral("Estratto : ") + d.NomeEstratto);
    iscrizione_->setText(d.NumeroIscrizioneAlbo);
    codiceFiscale_->setText(d.CodiceFiscaleTecnico);
    QString possessori = UCase(d.TestoPossessori);
    possessori.replace(CRLF, QStringLiteral("\n"));
    possessori_->setPlainText(possessori);
    mostrando_ = false;
}

void BV_LibrettoOriginale::MostraDocumento() {
    MostraRighe();
    MostraDati();
    Righe_Indice();
}

void BV_LibrettoOriginale::LeggiSelezione() {
    ListaRighe& l = stato_.doc.RigheLibretto;
    if (l.Conta() != righe_->count()) return;
    for (int i = 0; i < l.Conta(); ++i) l.Seleziona(i, righe_->item(i)->isSelected());
    l.ImpostaCorrente(righe_->currentRow());
}

void BV_LibrettoOriginale::Righe_Indice() {
    setWindowTitle(TitoloLibretto(stato_));
    contatore_->setText(ContatoreRighe(stato_));
}

void BV_LibrettoOriginale::Salva() {
    LeggiSelezione();
    AggiornaLibrettoMisure(stato_);
    SalvaLibrettoMisure(stato_);
    MostraDocumento();
}

void BV_LibrettoOriginale::Trascina(const QString& percorso) {
    if (TrascinaLibretto(stato_, percorso)) MostraDocumento();
}

bool BV_LibrettoOriginale::TrascinaDati(const QMimeData* dati) {
    const QList<QUrl> urls = dati ? dati->urls() : QList<QUrl>();
    if (urls.isEmpty() || !urls.first().isLocalFile()) return false;
    // Handled after the drop returns, so that a question does not block the source program.
    const QString percorso = urls.first().toLocalFile();
    QTimer::singleShot(0, this, [this, percorso] { Trascina(percorso); });
    return true;
}

bool BV_LibrettoOriginale::eventFilter(QObject* o, QEvent* e) {
    if (o == righe_->viewport() || o == righe_) {
        if (e->type() == QEvent::DragEnter || e->type() == QEvent::DragMove) {
            auto* d = static_cast<QDropEvent*>(e);
            if (d->mimeData()->hasUrls()) {
                d->acceptProposedAction();
                return true;
            }
        } else if (e->type() == QEvent::Drop) {
            auto* d = static_cast<QDropEvent*>(e);
            if (TrascinaDati(d->mimeData())) {
                d->acceptProposedAction();
                return true;
            }
        } else if (e->type() == QEvent::KeyRelease && o == righe_) {
            LeggiSelezione();
            Righe_Indice();
        }
    }
    return QMainWindow::eventFilter(o, e);
}

void BV_LibrettoOriginale::changeEvent(QEvent* e) {
    if (e->type() == QEvent::ActivationChange && isActiveWindow() && !isMinimized()) {
        estratto_->setText(QStringLiteral("Estratto : ") + stato_.doc.NomeEstratto);
        Righe_Indice();
    }
    QMainWindow::changeEvent(e);
}

void BV_LibrettoOriginale::closeEvent(QCloseEvent* e) {
    LeggiSelezione();
    Piattaforma& p = *stato_.piattaforma;
    AggiornaLibrettoMisure(stato_);
    stato_.doc.TestoPossessori = UCase(stato_.doc.TestoPossessori);
    p.SalvaImpostazione(QStringLiteral("POSIZIONE_FORMx"), kNomeForm, QString::number(x()));
    p.SalvaImpostazione(QStringLiteral("POSIZIONE_FORMy"), kNomeForm, QString::number(y()));
    p.SalvaImpostazione(QStringLiteral("FORMx"), kNomeForm, QString::number(width()));
    p.SalvaImpostazione(QStringLiteral("FORMy"), kNomeForm, QString::number(height()));
    SalvaLibrettoMisure(stato_);
    e->accept();
}

} // namespace tavolet
