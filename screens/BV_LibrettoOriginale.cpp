#include "BV_LibrettoOriginale.h"

#include "BV_ControlloAtto.h"
#include "BV_Dapregeo.h"
#include "BV_EDM.h"
#include "BV_EditorGen.h"
#include "BV_ElcoPf.h"
#include "BV_EstrattiDiMappa1.h"
#include "EseguiComando.h"
#include "FormAssegnaDescrizione.h"
#include "FormCatasto1TXT.h"
#include "FormImportaFiduciali.h"
#include "FormInformazioni.h"
#include "FormRiordinoRighe.h"
#include "FormStorico.h"
#include "Tipol10.h"
#include "fiduciali.h"
#include "libretto.h"
#include "piattaforma_qt.h"
#include "posizione.h"
#include "pregeo.h"
#include "protezioni.h"
#include "riordino.h"
#include "trova.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFontDatabase>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormLibrettoOriginale = QStringLiteral("BV_LibrettoOriginale");
const QString kOpzioneControllo =
    QStringLiteral("Controlla l'atto prima del salvataggio in Pregeo");

struct DefinizionePulsante {
    int indice;
    const char* caption;
    const char* hint;
};

// The command buttons by their index; those without a hint here have none on the form.
const DefinizionePulsante kPulsanti[] = {
    {4, "Salva", "Salva Libretto"},
    {10, "Nuovo", "Nuovo Libretto Vuoto"},
    {16, "Modifica", "Modifica Diretta del Libretto"},
    {14, "Ordina", "Riordino Righe"},
    {17, "Censuario", "Compila Censuario/Archivio Particelle"},
    {18, "Estratti", "Gestione Estratti di Mappa"},
    {5, "[VRS] -", "ELIMINA [VRS]"},
    {11, "[VRS] +", "Assegna [VRS]"},
    {27, "Stazioni", ""},
    {28, "PF", ""},
    {30, "Inverti", ""},
    {31, "Copia", "Copia negli Appunti di Windows"},
    {6, "Pregeo", "Attiva Pregeo"},
    {20, "&Salva in Pregeo", ""},
    {25, "Utility", "Utilità Catastali"},
    {7, "Configura Provincia di Pregeo", ""},
    {1, "P. Importa", ""},
    {3, "Stampa", ""},
    {9, "Da File", ""},
    {21, "Da Pregeo", ""},
    {22, "Importa Da Estratto", ""},
    {23, "Kill Pregeo", ""},
    {24, "Trova nel Libretto :", ""},
};

} // namespace

BV_LibrettoOriginale::BV_LibrettoOriginale(Stato& stato, QWidget* parent)
    : QMainWindow(parent), stato_(stato) {
    setObjectName(kFormLibrettoOriginale);
    setWindowTitle(TitoloIniziale());
    // The command words of the command line and the PDF drop open their screens over this form.
    InstallaComandi(stato_, this);
    CostruisciMenu();
    CostruisciPannelli();
    CostruisciScorciatoie();
    resize(1280, 800);
}

QAction* BV_LibrettoOriginale::NuovaVoce(QMenu* menu, const QString& caption,
                                         std::function<void()> azione) {
    QAction* a = menu->addAction(caption);
    // Items without an action stay in the menu and do nothing.
    if (azione) connect(a, &QAction::triggered, this, [azione] { azione(); });
    return a;
}

void BV_LibrettoOriginale::CostruisciMenu() {
    QMenuBar* barra = menuBar();
    QMenu* file = barra->addMenu(QStringLiteral("     &File    "));
    NuovaVoce(file, QStringLiteral("Nuovo Libretto"), [this] { NuovoLibretto(); });
    NuovaVoce(file, QStringLiteral("Apri Libretto da Pregeo"));
    NuovaVoce(file, QStringLiteral("Apri Libretto da File"));
    NuovaVoce(file, QStringLiteral("Ripristina da Archivio Libretti"));
    file->addSeparator();
    NuovaVoce(file, QStringLiteral("&Salva"), [this] { Salva(); });
    NuovaVoce(file, QStringLiteral("Esporta Libretto"), [this] {
        Comando([this] {
            AggiornaLibrettoMisure(stato_);
            EsportaLibrettoInFile(stato_);
        });
    });
    NuovaVoce(file, QStringLiteral("Stampa Libretto"));
    file->addSeparator();
    NuovaVoce(file, QStringLiteral("Seleziona Font"), [this] {
        if (const auto c = SelezionaCarattere(stato_, CarattereDa(righe_->font())))
            righe_->setFont(FontDa(*c));
    });
    NuovaVoce(file, QStringLiteral("Kill Pregeo"), [this] { KillPregeo(stato_); });
    file->addSeparator();
    NuovaVoce(file, QStringLiteral("Chiudi"), [this] { close(); });

    QMenu* modifica = barra->addMenu(QStringLiteral("Modifica Libretto"));
    NuovaVoce(modifica, QStringLiteral("Modifica Diretta"), [this] { subModificaDiretta(); });
    NuovaVoce(modifica, QStringLiteral("Riordino Righe"),
              [this] { Comando([this] { subRiordinoRighe(stato_); }); });
    NuovaVoce(modifica, QStringLiteral("Modello Censuario"), [this] { subModelloCensuario(); });
    NuovaVoce(modifica, QStringLiteral("Riga 0-9"));
    NuovaVoce(modifica, QStringLiteral("Relazione Tecnica"));
    NuovaVoce(modifica, QStringLiteral("Importa Fiduciali da TAF"), [this] { ApriTaf(); });
    NuovaVoce(modifica, QStringLiteral("Importa Fiduciali da Estratto"));
    NuovaVoce(modifica, QStringLiteral("Incolla da Appunti"),
              [this] { Comando([this] { IncollaDaAppunti(stato_); }); });

    QMenu* cambia = barra->addMenu(QStringLiteral("Cambia"));
    NuovaVoce(cambia, QStringLiteral("Descrizione"), [this] { AssegnaDescrizione(); });
    NuovaVoce(cambia, QStringLiteral("Seleziona Stazioni"),
              [this] { Comando([this] { SelezionaTipi(stato_, {1}); }); });
    NuovaVoce(cambia, QStringLiteral("Seleziona Squadri"), [this] {
        Comando([this] { SelezionaTipi(stato_, {4, 5}); });
    });
    NuovaVoce(cambia, QStringLiteral("Seleziona Contorni"),
              [this] { Comando([this] { SelezionaTipi(stato_, {7}); }); });

    QMenu* excel = barra->addMenu(QStringLiteral("Da Excel"));
    NuovaVoce(excel, QStringLiteral("Righe 8 - (P, N, E)"),
              [this] { Comando([this] { IncollaDaExcel(stato_, DaExcel::Righe8PNE); }); });
    NuovaVoce(excel, QStringLiteral("Righe 8 Nome Auto (N, E)"),
              [this] { Comando([this] { IncollaDaExcel(stato_, DaExcel::Righe8NomeAuto); }); });
    NuovaVoce(excel, QStringLiteral("Righe Complete"),
              [this] { Comando([this] { IncollaDaExcel(stato_, DaExcel::RigheComplete); }); });

    QAction* sarvento = barra->addAction(QStringLiteral("Sarvento"));
    connect(sarvento, &QAction::triggered, this,
            [this] { AvviaProgrammaSarvento(stato_, kSarquad); });

    QMenu* utilita = barra->addMenu(QStringLiteral("Utilità"));
    NuovaVoce(utilita, QStringLiteral("Archivia Libretti"), [this] { ComandoUtilita("Unarvo2"); });
    NuovaVoce(utilita, QStringLiteral("Grafica Pregeo > DXF"), [this] { ApriDaPregeoDxf(); });
    NuovaVoce(utilita, QStringLiteral("Crea Collegamenti Pregeo"),
              [this] { CreaCollegamentiPregeo(stato_); });
    NuovaVoce(utilita, QStringLiteral("Info Misurate PF"), [this] { InfoMisuratePF(); });
    NuovaVoce(utilita, QStringLiteral("Ricarica da Storico"), [this] {
        if (const auto v = FormStorico::Esegui(stato_, this))
            Comando([this, v] { RipristinaVersione(stato_, *v); },
                    QStringLiteral("Ripristinata la versione del ") +
                        v->quando.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")));
    });
    // The browser of the TAF archive has no entry of its own in Pregeo's tools; here it has one.
    NuovaVoce(utilita, QStringLiteral("Archivio Punti Fiduciali TAF"),
              [this] { BV_ElcoPf::Esegui(stato_, this); });
    // The act's check before it leaves: what Pregeo or the registry would send back.
    NuovaVoce(utilita, QStringLiteral("Controllo Atto"), [this] {
        ApriControlloAtto();
    })->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K));

    QAction* estratti = barra->addAction(QStringLiteral("Estratti di Mappa"));
    connect(estratti, &QAction::triggered, this, [this] { ApriEstratti(); });

    QMenu* tipologie = barra->addMenu(QStringLiteral("Tipologie Automatizzate"));
    QMenu* casistiche = tipologie->addMenu(QStringLiteral("Casistiche"));
    casistiche->setObjectName(QStringLiteral("mnuTipologie1"));
    // Each case opens its screen; the rows it confirms go into the libretto.
    for (const QString& codice : {QStringLiteral("08"), QStringLiteral("1000")})
        NuovaVoce(casistiche, QStringLiteral("Casistica ") + codice, [this, codice] {
            if (Tipol10::Esegui(stato_, codice, this) == 1)
                Comando([this] { InserisciPropostaNelLibretto(stato_); });
        });
    tipologie->addSeparator();
    NuovaVoce(tipologie, QStringLiteral("Informazioni generali - operative - garanzie"), [this] {
        stato_.piattaforma->Messaggio(
            TestoInformazioniCasistiche(),
            QStringLiteral("Informazioni generali - operative - garanzie"), Icona::Informazione);
    });
    NuovaVoce(tipologie, QStringLiteral("Libretto per coordinate da Elaborazione Pregeo"),
              [this] { Comando([this] { LibrettoPerCoordinate(stato_); }); });

    QMenu* info = barra->addMenu(QStringLiteral("&?"));
    info->setObjectName(QStringLiteral("MnenuInfo"));
    NuovaVoce(info, QStringLiteral("Configurazione"),
              [this] { FormInformazioni::Esegui(stato_, this); });
    NuovaVoce(info, QStringLiteral("Autore"), [this] { FormAutore::Esegui(stato_, this); });
    NuovaVoce(info, QStringLiteral("@ WEB"),
              [this] { stato_.piattaforma->ApriConProgramma(kIndirizzoWeb); });
}

void BV_LibrettoOriginale::CostruisciPulsanti(QGridLayout* griglia) {
    int n = 0;
    for (const DefinizionePulsante& d : kPulsanti) {
        auto* b = new QPushButton(QString::fromUtf8(d.caption));
        b->setObjectName(QStringLiteral("Command%1").arg(d.indice));
        b->setToolTip(QString::fromUtf8(d.hint));
        b->setAutoDefault(false);
        b->setMinimumHeight(28);
        b->installEventFilter(this);
        griglia->addWidget(b, n / 3, n % 3);
        pulsanti_.insert(d.indice, b);
        ++n;
    }
    pulsanti_[7]->setToolTip(QStringLiteral("Configura Provincia di Pregeo"));
    auto collega = [this](int i, std::function<void()> f) {
        connect(pulsanti_[i], &QPushButton::clicked, this, [f] { f(); });
    };
    collega(4, [this] { Salva(); });
    collega(5, [this] { Comando([this] { VrsMeno(stato_); }); });
    collega(11, [this] { Comando([this] { VrsPiu(stato_); }); });
    collega(6, [this] { AvviaProgrammaSarvento(stato_, kDexaro); });
    collega(20, [this] { SalvaInPregeo(); });
    collega(10, [this] { NuovoLibretto(); });
    collega(14, [this] { Ordina(); });
    collega(16, [this] { subModificaDiretta(); });
    collega(17, [this] { subModelloCensuario(); });
    collega(18, [this] { ApriEstratti(); });
    collega(25, [this] { MostraPannelloUtilita(true); });
    collega(27, [this] { Comando([this] { SelezionaStazioni(stato_); }); });
    collega(28, [this] { Comando([this] { SelezionaPF(stato_); }); });
    collega(30, [this] { Comando([this] { InvertiSelezione(stato_); }); });
    collega(31, [this] { Copia(); });
}

void BV_LibrettoOriginale::CostruisciPannelli() {
    auto* centro = new QWidget;
    auto* orizzontale = new QHBoxLayout(centro);
    orizzontale->setContentsMargins(6, 6, 6, 6);

    // The row list fills the form, below a strip of 30 units with the file and the counter.
    auto* sinistra = new QVBoxLayout;
    auto* striscia = new QHBoxLayout;
    nomeFile_ = new QLabel;
    nomeFile_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    contatore_ = new QLabel;
    contatore_->setObjectName(QStringLiteral("Contatore"));
    contatore_->setMinimumWidth(90);
    contatore_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    striscia->addWidget(nomeFile_, 1);
    // The find field (Ctrl+F) stands beside the counter; the button that bears the caption
    // "Trova nel Libretto :" keeps doing nothing.
    trova_ = new QLineEdit;
    trova_->setObjectName(QStringLiteral("TrovaRighe"));
    trova_->setPlaceholderText(QStringLiteral("Trova nelle righe (Ctrl+F)"));
    trova_->setClearButtonEnabled(true);
    trova_->setMaximumWidth(260);
    connect(trova_, &QLineEdit::returnPressed, this, [this] { TrovaSuccessiva(); });
    striscia->addWidget(trova_);
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
    // The rows come first for the keyboard: arrows and Delete act on them from the start.
    QWidget::setTabOrder(righe_, trova_);
    sinistra->addWidget(righe_, 1);
    orizzontale->addLayout(sinistra, 1);

    auto* destra = new QVBoxLayout;
    destra->setContentsMargins(0, 0, 0, 0);
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
    possessori_->setMinimumHeight(80);
    dati->addWidget(estratto_, 0, 0, 1, 2);
    dati->addWidget(misurate_, 1, 0, 1, 2);
    dati->addWidget(new QLabel(QStringLiteral("N. Iscrizione Albo")), 2, 0);
    dati->addWidget(iscrizione_, 2, 1);
    dati->addWidget(new QLabel(QStringLiteral("Codice Fiscale")), 3, 0);
    dati->addWidget(codiceFiscale_, 3, 1);
    dati->addWidget(new QLabel(QStringLiteral("Possessori")), 4, 0, 1, 2);
    dati->addWidget(possessori_, 5, 0, 1, 2);
    dati->addWidget(versione_, 6, 0, 1, 2);
    destra->addWidget(datiBox, 2);

    auto* comandiBox = new QGroupBox(QStringLiteral("Libretto"));
    comandiBox->setObjectName(QStringLiteral("PannelloComandi"));
    auto* comandi = new QGridLayout(comandiBox);
    comandi->setSpacing(4);
    CostruisciPulsanti(comandi);
    destra->addWidget(comandiBox);

    // The utility panel shows over the save options while it is open.
    pannelloUtilita_ = new QFrame;
    pannelloUtilita_->setObjectName(QStringLiteral("ButtonPlus2"));
    pannelloUtilita_->setFrameShape(QFrame::StyledPanel);
    auto* utilita = new QGridLayout(pannelloUtilita_);
    utilita->setSpacing(4);
    int n = 0;
    for (const PulsanteUtilita& u : PulsantiUtilita()) {
        auto* b = new QPushButton(u.caption);
        b->setObjectName(QStringLiteral("ButtonPlus2_%1").arg(u.indice));
        b->setToolTip(u.hint);
        b->setAutoDefault(false);
        const QString tag = u.tag;
        connect(b, &QPushButton::clicked, this, [this, tag] { ComandoUtilita(tag); });
        utilita->addWidget(b, n / 2, n % 2);
        ++n;
    }
    // In a scroll area of its own: on a small screen the buttons scroll inside the room the
    // save options had, and the form never grows past the bottom of the screen.
    scorriUtilita_ = new QScrollArea;
    scorriUtilita_->setObjectName(QStringLiteral("ScorriUtilita"));
    scorriUtilita_->setFrameShape(QFrame::NoFrame);
    scorriUtilita_->setWidgetResizable(true);
    scorriUtilita_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scorriUtilita_->setWidget(pannelloUtilita_);
    scorriUtilita_->setVisible(false);
    destra->addWidget(scorriUtilita_, 3);

    opzioniBox_ = new QGroupBox(QStringLiteral("Opzioni di Salvataggio in Pregeo"));
    auto* opzioniBox = opzioniBox_;
    auto* opzioniLayout = new QVBoxLayout(opzioniBox);
    opzioni_ = new QListWidget;
    opzioni_->setObjectName(QStringLiteral("OpzioniSalvataggio"));
    for (const QString& o : tavolet::OpzioniSalvataggio()) {
        auto* voce = new QListWidgetItem(o, opzioni_);
        voce->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        voce->setCheckState(Qt::Checked);
    }
    // The one option that something reads: the act's check before "Salva in Pregeo".
    auto* controlla = new QListWidgetItem(kOpzioneControllo, opzioni_);
    controlla->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    controlla->setCheckState(Qt::Checked);
    opzioniLayout->addWidget(opzioni_);
    destra->addWidget(opzioniBox, 3);

    auto* pannello = new QWidget;
    pannello->setLayout(destra);
    pannello->setFixedWidth(440);
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
    connect(righe_, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* voce) { DoppioClic(righe_->row(voce)); });
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

// The utility panel stands where the save options stood: the form keeps its height, which a
// panel added below them pushed past the bottom of a small screen.
void BV_LibrettoOriginale::MostraPannelloUtilita(bool visibile) {
    opzioniBox_->setVisible(!visibile);
    scorriUtilita_->setVisible(visibile);
}

QPushButton* BV_LibrettoOriginale::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

QAction* BV_LibrettoOriginale::Voce(const QString& menu, const QString& voce) const {
    for (QAction* m : menuBar()->actions()) {
        if (m->text() != menu) continue;
        if (voce.isEmpty()) return m;
        if (!m->menu()) return nullptr;
        QList<QMenu*> daVedere{m->menu()};
        while (!daVedere.isEmpty()) {
            for (QAction* a : daVedere.takeFirst()->actions()) {
                if (a->text() == voce) return a;
                if (a->menu()) daVedere << a->menu();
            }
        }
    }
    return nullptr;
}

bool BV_LibrettoOriginale::Carica(const QString& rigaComando) {
    setWindowTitle(TitoloIniziale());
    Piattaforma& p = *stato_.piattaforma;
    const int w = p.Impostazione(QStringLiteral("FORMx"), kFormLibrettoOriginale).toInt();
    const int h = p.Impostazione(QStringLiteral("FORMy"), kFormLibrettoOriginale).toInt();
    if (w > 200 && h > 200 && w < 20000 && h < 20000) resize(w, h);
    RipristinaPosizioneForm(this, stato_, kFormLibrettoOriginale);
    if (!AvvioProgramma(stato_, rigaComando)) return false;
    ApplicaCarattere();
    MostraDocumento();
    AzzeraAnnullamenti(annullamenti_, stato_);
    Avvisa(stato_.doc.PercorsoLibretto.isEmpty()
               ? QStringLiteral("Nuovo libretto")
               : QStringLiteral("Aperto ") + stato_.doc.PercorsoLibretto);
    righe_->setFocus(Qt::OtherFocusReason);
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
    pulsanti_[7]->setText(stato_.testata.SiglaProvinciaLibretto);
    mostrando_ = false;
}

void BV_LibrettoOriginale::MostraDocumento() {
    MostraRighe();
    MostraDati();
    Righe_Indice();
    // Every command ends here: what it changed becomes one step of undo.
    ultimoPasso_ = PuntoDiAnnullamento(annullamenti_, stato_, descrizione_);
    descrizione_.clear();
    if (!ultimoPasso_.isEmpty()) Avvisa(ultimoPasso_);
}

void BV_LibrettoOriginale::LeggiSelezione() {
    ListaRighe& l = stato_.doc.RigheLibretto;
    if (l.Conta() == righe_->count()) {
        for (int i = 0; i < l.Conta(); ++i) l.Seleziona(i, righe_->item(i)->isSelected());
        l.ImpostaCorrente(righe_->currentRow());
    }
    // Every command starts here: what was typed in the fields since becomes its own step.
    PuntoDiAnnullamento(annullamenti_, stato_);
}

void BV_LibrettoOriginale::Righe_Indice() {
    setWindowTitle(TitoloLibretto(stato_));
    contatore_->setText(ContatoreRighe(stato_));
}

void BV_LibrettoOriginale::Comando(const std::function<void()>& azione,
                                   const QString& descrizione) {
    LeggiSelezione();
    const QList<int> prima = stato_.doc.RigheLibretto.Selezionate();
    descrizione_ = descrizione;
    azione();
    MostraDocumento();
    const QList<int> dopo = stato_.doc.RigheLibretto.Selezionate();
    if (ultimoPasso_.isEmpty() && dopo != prima)
        Avvisa(dopo.size() == 1
                   ? QStringLiteral("1 riga selezionata")
                   : QString::number(dopo.size()) + QStringLiteral(" righe selezionate"));
}

void BV_LibrettoOriginale::Avvisa(const QString& testo) {
    statusBar()->showMessage(testo);
}

void BV_LibrettoOriginale::CostruisciScorciatoie() {
    auto scorciatoia = [this](const QString& nome, const QList<QKeySequence>& tasti,
                              std::function<void()> azione) {
        auto* a = new QAction(nome, this);
        a->setObjectName(nome);
        a->setShortcuts(tasti);
        a->setShortcutContext(Qt::WindowShortcut);
        connect(a, &QAction::triggered, this, [azione] { azione(); });
        addAction(a);
    };
    // The fields keep their own undo of what is typed in them: they take these keys first.
    scorciatoia(QStringLiteral("Annulla"), {QKeySequence(Qt::CTRL | Qt::Key_Z)},
                [this] { AnnullaComando(); });
    scorciatoia(
        QStringLiteral("Ripeti"),
        {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)},
        [this] { RipetiComando(); });
    scorciatoia(QStringLiteral("Apri"), {QKeySequence(Qt::CTRL | Qt::Key_O)},
                [this] { ApriComeTrascinamento(); });
    scorciatoia(QStringLiteral("Trova"), {QKeySequence(Qt::CTRL | Qt::Key_F)}, [this] {
        trova_->setFocus(Qt::ShortcutFocusReason);
        trova_->selectAll();
    });
    if (QAction* salva = Voce(QStringLiteral("     &File    "), QStringLiteral("&Salva")))
        salva->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    if (QAction* info = Voce(QStringLiteral("&?"), QStringLiteral("Configurazione")))
        info->setShortcut(QKeySequence(Qt::Key_F1));
}

void BV_LibrettoOriginale::Salva() {
    bool salvato = false;
    Comando([this, &salvato] { salvato = SalvaLibrettoMisure(stato_); });
    const QString& percorso = stato_.doc.PercorsoLibretto;
    if (!salvato)
        Avvisa(QStringLiteral("Salvataggio non riuscito"));
    else if (!percorso.isEmpty())
        Avvisa(QStringLiteral("Salvato ") + percorso);
}

void BV_LibrettoOriginale::Copia() {
    Comando([this] { CopiaLibretto(stato_); });
    Avvisa(QStringLiteral("Libretto copiato negli appunti: ") +
           QString::number(stato_.doc.RigheLibretto.Conta()) + QStringLiteral(" righe"));
}

void BV_LibrettoOriginale::AnnullaComando() {
    LeggiSelezione();
    const std::optional<QString> fatto = Annulla(annullamenti_, stato_);
    MostraDocumento();
    Avvisa(fatto ? QStringLiteral("Annullato: ") + *fatto
                 : QStringLiteral("Nessuna modifica da annullare"));
}

void BV_LibrettoOriginale::RipetiComando() {
    LeggiSelezione();
    const std::optional<QString> fatto = Ripeti(annullamenti_, stato_);
    MostraDocumento();
    Avvisa(fatto ? QStringLiteral("Ripetuto: ") + *fatto
                 : QStringLiteral("Nessuna modifica da ripetere"));
}

void BV_LibrettoOriginale::ApriComeTrascinamento() {
    const Documento& d = stato_.doc;
    const QString cartella =
        d.PercorsoLibretto.isEmpty() ? stato_.amb.CartellaLavoro : CartellaDel(d.PercorsoLibretto);
    const QString scelto = stato_.piattaforma->ApriFile(
        QStringLiteral("Apri Libretto"), cartella,
        QStringLiteral("Libretti (*.dat *.DAT *.txt *.TXT *.lxb *.LXB *.pdf *.PDF);;"
                       "Tutti i file (*)"));
    if (!scelto.isEmpty()) Trascina(PercorsoWindows(scelto));
}

void BV_LibrettoOriginale::TrovaSuccessiva() {
    LeggiSelezione();
    const ListaRighe& l = stato_.doc.RigheLibretto;
    const QString testo = trova_->text();
    const int riga = TrovaRigaSuccessiva(l, testo, l.Corrente() + 1);
    if (riga < 0) {
        if (!Trim(testo).isEmpty())
            Avvisa(QStringLiteral("Nessuna riga contiene \"") + testo + u'"');
        return;
    }
    righe_->setCurrentRow(riga, QItemSelectionModel::ClearAndSelect);
    righe_->scrollToItem(righe_->item(riga));
    LeggiSelezione();
    Righe_Indice();
    Avvisa(QStringLiteral("Trovato alla riga ") + QString::number(riga + 1) +
           QStringLiteral(" di ") + QString::number(l.Conta()));
}

void BV_LibrettoOriginale::NuovoLibretto() {
    Comando([this] { tavolet::NuovoLibretto(stato_); }, QStringLiteral("Nuovo libretto"));
    ApriConfigurazione();
}

void BV_LibrettoOriginale::Ordina() {
    LeggiSelezione();
    AggiornaLibrettoMisure(stato_);
    FormRiordinoRighe::Esegui(stato_, this);
    descrizione_ = QStringLiteral("Righe riordinate");
    MostraDocumento();
}

void BV_LibrettoOriginale::subModificaDiretta() {
    LeggiSelezione();
    AggiornaLibrettoMisure(stato_);
    BV_EditorGen::Esegui(stato_, kEditorLibretto, this);
    MostraDocumento();
}

void BV_LibrettoOriginale::DoppioClic(int riga) {
    if (riga < 0 || riga >= stato_.doc.RigheLibretto.Conta()) return;
    LeggiSelezione();
    const QString testo = stato_.doc.RigheLibretto.Riga(riga);
    switch (AzioneDoppioClic(testo)) {
    case AzioneRiga::Configurazione:
        ApriConfigurazione();
        break;
    case AzioneRiga::DistanzePF:
        DistanzePF(testo);
        break;
    case AzioneRiga::Editor:
        subModificaDiretta();
        break;
    }
    Righe_Indice();
}

void BV_LibrettoOriginale::Invio() {
    const int riga = righe_->currentRow();
    if (riga < 0 || riga >= stato_.doc.RigheLibretto.Conta()) return;
    if (AzioneInvio(stato_.doc.RigheLibretto.Riga(riga)) == AzioneRiga::Configurazione)
        ApriConfigurazione();
    else
        subModificaDiretta();
}

void BV_LibrettoOriginale::EliminaRighe() {
    Comando([this] { EliminaRigheSelezionate(stato_); });
    righe_->setFocus();
}

void BV_LibrettoOriginale::ApriControlloAtto() {
    LeggiSelezione();
    if (!controllo_) {
        controllo_ = new BV_ControlloAtto(
            stato_, [this](int riga) { SelezionaRiga(riga); }, this);
    } else {
        controllo_->Aggiorna();
    }
    controllo_->show();
    controllo_->raise();
    controllo_->activateWindow();
}

void BV_LibrettoOriginale::SelezionaRiga(int riga) {
    if (riga < 1 || riga > righe_->count()) return;
    righe_->clearSelection();
    righe_->setCurrentRow(riga - 1, QItemSelectionModel::ClearAndSelect);
    righe_->scrollToItem(righe_->item(riga - 1));
    LeggiSelezione();
    Righe_Indice();
    activateWindow();
}

bool BV_LibrettoOriginale::SalvaInPregeo() {
    const QList<QListWidgetItem*> opzione =
        opzioni_->findItems(kOpzioneControllo, Qt::MatchExactly);
    if (!opzione.isEmpty() && opzione.first()->checkState() == Qt::Checked) {
        LeggiSelezione();
        const QList<Rilievo> rilievi = ControllaAtto(stato_);
        if (CiSonoErrori(rilievi)) {
            ApriControlloAtto();
            const int errori = ContaGravita(rilievi, kErrore);
            if (stato_.piattaforma->Domanda(
                    QStringLiteral("Il controllo dell'atto ha trovato %1 %2.")
                            .arg(errori)
                            .arg(errori == 1 ? QStringLiteral("errore")
                                             : QStringLiteral("errori")) +
                        CRLF + QStringLiteral("Salvare comunque?"),
                    QStringLiteral("Controllo Atto"), Pulsanti::SiNo, Risposta::No,
                    Icona::Avviso) != Risposta::Si)
                return false;
        }
    }
    AvviaProgrammaSarvento(stato_, kSarquad);
    return true;
}

void BV_LibrettoOriginale::PulisciOpzioniSalvataggio() {
    QList<bool> stati;
    PulisciOpzioni(stati);
    for (int i = 0; i < opzioni_->count(); ++i) opzioni_->item(i)->setCheckState(Qt::Unchecked);
}

void BV_LibrettoOriginale::SelezionaTutteOpzioni() {
    QList<bool> stati;
    SelezionaEMemorizzaOpzioni(stato_, stati);
    for (int i = 0; i < opzioni_->count(); ++i) opzioni_->item(i)->setCheckState(Qt::Checked);
}

// The head dialog: on return the rows, the register data and the province's button show what
// it left.
void BV_LibrettoOriginale::ApriConfigurazione() {
    LeggiSelezione();
    AggiornaLibrettoMisure(stato_);
    FormCatasto1TXT::Esegui(stato_, this);
    MostraDocumento();
}

// The screens of these commands come with their own parts of the program.
// The archive of extracts; the list is loaded again when it closes.
void BV_LibrettoOriginale::ApriEstratti() {
    LeggiSelezione();
    AggiornaLibrettoMisure(stato_);
    BV_EstrattiDiMappa1::Esegui(stato_, this);
    MostraDocumento();
}
// The particle archive and its censuary screens, then the silent regrouping of the rows.
void BV_LibrettoOriginale::subModelloCensuario() {
    const bool estratti = BV_EDM::Esegui(stato_, this);
    Comando([this] { subRiordinoRighe(stato_); });
    if (estratti) ApriEstratti();
}
// The rows 8 of the libretto's fiducials from their TAF; the rows shown again on return, and
// the change one step of undo.
void BV_LibrettoOriginale::ApriTaf() {
    LeggiSelezione();
    AggiornaLibrettoMisure(stato_);
    FormImportaFiduciali::Esegui(stato_, this);
    MostraDocumento();
}
void BV_LibrettoOriginale::ApriDaPregeoDxf() {
    LeggiSelezione();
    AggiornaLibrettoMisure(stato_);
    BV_Dapregeo::Esegui(stato_, 1, this);
    MostraDocumento();
}
void BV_LibrettoOriginale::AssegnaDescrizione() {
    LeggiSelezione();
    ApriAssegnaDescrizione(stato_, this);
    MostraDocumento();
}
void BV_LibrettoOriginale::DistanzePF(const QString& riga) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    MisurateDa1PF(stato_, Split(riga, QStringLiteral("|")).value(1));
    QApplication::restoreOverrideCursor();
}

void BV_LibrettoOriginale::InfoMisuratePF() {
    LeggiSelezione();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    CalcolaMisuratePF_DaLibretto(stato_, stato_.doc.RigheLibretto.Righe());
    QApplication::restoreOverrideCursor();
    MostraDocumento();
}
// Of the tags of the utility panel only CONFIGURA_PREGEO acts, on Pregeo's settings screen.
void BV_LibrettoOriginale::ComandoUtilita(const QString& tag) {
    if (UCase(tag) != u"CONFIGURA_PREGEO") return;
    LeggiSelezione();
    EseguiComando(stato_, UCase(tag), QString(), this);
    MostraDocumento();
}

void BV_LibrettoOriginale::Trascina(const QString& percorso) {
    LeggiSelezione();
    if (TrascinaLibretto(stato_, percorso)) MostraDocumento();
}

bool BV_LibrettoOriginale::TrascinaDati(const QMimeData* dati) {
    const QList<QUrl> urls = dati ? dati->urls() : QList<QUrl>();
    if (urls.isEmpty() || !urls.first().isLocalFile()) return false;
    // Handled after the drop returns, so that a question does not block the source program.
    const QString percorso = PercorsoWindows(urls.first().toLocalFile());
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
        } else if (e->type() == QEvent::KeyPress && o == righe_) {
            if (static_cast<QKeyEvent*>(e)->matches(QKeySequence::Copy)) {
                Copia();
                return true;
            }
            const int tasto = static_cast<QKeyEvent*>(e)->key();
            if (tasto == Qt::Key_Delete) {
                EliminaRighe();
                return true;
            }
            if (tasto == Qt::Key_Return || tasto == Qt::Key_Enter) {
                Invio();
                return true;
            }
        } else if (e->type() == QEvent::KeyRelease && o == righe_) {
            LeggiSelezione();
            Righe_Indice();
        }
    } else if (e->type() == QEvent::Enter && qobject_cast<QPushButton*>(o) &&
               o != pulsanti_.value(25)) {
        // Moving over any other command button hides the utility panel.
        MostraPannelloUtilita(false);
    }
    return QMainWindow::eventFilter(o, e);
}

void BV_LibrettoOriginale::changeEvent(QEvent* e) {
    if (e->type() == QEvent::ActivationChange && isActiveWindow() && !isMinimized()) {
        estratto_->setText(QStringLiteral("Estratto : ") + stato_.doc.NomeEstratto);
        Righe_Indice();
        mostrando_ = true;
        QString possessori = UCase(stato_.doc.TestoPossessori);
        possessori.replace(CRLF, QStringLiteral("\n"));
        if (possessori_->toPlainText() != possessori) possessori_->setPlainText(possessori);
        mostrando_ = false;
    }
    QMainWindow::changeEvent(e);
}

void BV_LibrettoOriginale::closeEvent(QCloseEvent* e) {
    LeggiSelezione();
    Piattaforma& p = *stato_.piattaforma;
    SalvaPosizioneForm(this, stato_, kFormLibrettoOriginale);
    p.SalvaImpostazione(QStringLiteral("FORMx"), kFormLibrettoOriginale, QString::number(width()));
    p.SalvaImpostazione(QStringLiteral("FORMy"), kFormLibrettoOriginale, QString::number(height()));
    // A save that fails keeps the form open on the document: the error report has been shown
    // and the surveyor can still export the rows elsewhere.
    if (!ChiusuraProgramma(stato_)) {
        e->ignore();
        MostraDocumento();
        Avvisa(QStringLiteral("Salvataggio non riuscito: il libretto resta aperto"));
        return;
    }
    e->accept();
}

} // namespace tavolet
