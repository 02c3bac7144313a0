#include "BV_EDM.h"
#include "lista_titolata.h"

#include "BV_CodFis.h"
#include "BV_Fraziona.h"
#include "BV_NuovaCostruzione.h"
#include "BV_TMFusione.h"
#include "BV_TMVariazione.h"
#include "posizione.h"

#include "censuario.h"
#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "testata.h"
#include "testo.h"

#include <QFontDatabase>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormEDM = QStringLiteral("BV_EDM");
const QStringList kCampiEDM = {
    "Comune",         "Foglio",       "Mappale",      "Qualita",
    "Classe",         "SupCatastale", "SupGrafica",   "RedditoDominicale",
    "RedditoAgrario", "Flag",         "CodiceQualita"};

} // namespace

BV_EDM::BV_EDM(Stato& stato, QWidget* parent) : QDialog(parent), stato_(stato) {
    setObjectName(kFormEDM);
    DecoZeroNove(stato_);
    const Testata& t = stato_.testata;
    setWindowTitle(QStringLiteral("Archivio Particelle - ") + t.CodiceComuneLibretto + u'-' +
                   t.FoglioLibretto + QStringLiteral("  Libretto: ") +
                   NomeDelFile(stato_.doc.PercorsoLibretto) + QStringLiteral(" Estratto: ") +
                   stato_.doc.NomeEstratto);

    auto* principale = new QHBoxLayout(this);
    auto* liste = new QVBoxLayout;
    auto* centro = new QVBoxLayout;
    auto* comandi = new QGridLayout;
    principale->addLayout(liste, 2);
    principale->addLayout(centro, 3);
    principale->addLayout(comandi, 2);

    archivio_ = ListaTitolata(this, QStringLiteral("Archivio Particelle"), liste);
    libretto_ = ListaTitolata(this, QStringLiteral("Mappali in Libretto Misure"), liste);
    proposta_ = ListaTitolata(this, QStringLiteral("Mappali in Proposta"), liste);

    struttura_ = new QLabel(QStringLiteral("Struttura Particella"), this);
    struttura_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    struttura_->setWordWrap(true);
    centro->addWidget(struttura_);
    auto* modulo = new QFormLayout;
    for (const QString& nome : kCampiEDM) {
        auto* e = new QLineEdit(this);
        e->setObjectName(nome);
        campi_[nome] = e;
        modulo->addRow(nome, e);
    }
    centro->addLayout(modulo);
    estratto_ = new QLabel(this);
    centro->addWidget(estratto_);
    centro->addStretch();

    const QStringList captions = {QStringLiteral("&Frazionamento"),
                                  QStringLiteral("Frazion&a 282"),
                                  QStringLiteral("TM &Nuova Costruzione"),
                                  QStringLiteral("TM &Variazione"),
                                  QStringLiteral("TM &Stralcio d'Area"),
                                  QStringLiteral("F&usione"),
                                  QStringLiteral("Archivia &Nuova Particella"),
                                  QStringLiteral("Archivia Modifiche Particella"),
                                  QStringLiteral("&Elimina Particella"),
                                  QStringLiteral("Azzera Archivio Particelle"),
                                  QStringLiteral("Particelle in Archivio"),
                                  QStringLiteral("Particelle in Libretto"),
                                  QStringLiteral("Genera Particelle da Estratto"),
                                  QStringLiteral("Genera Particelle da Fraz. in Censuario"),
                                  QStringLiteral("C&omuni"),
                                  QStringLiteral("SN/SR"),
                                  QStringLiteral("Trova &Qualità"),
                                  QStringLiteral("&Gestione Estratti"),
                                  QStringLiteral("&Chiudi")};
    for (int i = 0; i < captions.size(); ++i) {
        auto* b = new QPushButton(captions[i], this);
        b->setAutoDefault(false);
        comandi->addWidget(b, i, 0);
    }

    auto su = [this](const QString& caption, auto corpo) {
        connect(Pulsante(caption), &QPushButton::clicked, this, corpo);
    };
    su(QStringLiteral("&Frazionamento"), [this] {
        if (Scelta(false)) BV_Fraziona::Esegui(stato_, Campi(), kFrazionamento, this);
    });
    su(QStringLiteral("Frazion&a 282"), [this] {
        if (Scelta(false)) BV_Fraziona::Esegui(stato_, Campi(), kFrazionamento282, this);
    });
    su(QStringLiteral("TM &Nuova Costruzione"), [this] {
        if (Scelta(true)) BV_NuovaCostruzione::Esegui(stato_, Campi(), this);
    });
    su(QStringLiteral("TM &Variazione"), [this] {
        if (!Scelta(true)) return;
        if (Val(campi_["CodiceQualita"]->text()) < 200)
            stato_.piattaforma->Messaggio(QStringLiteral("Non è un Fabbricato!"),
                                          QStringLiteral("Attenzione!!!"), Icona::Avviso);
        BV_TMVariazione::Esegui(stato_, Campi(), this);
        accept();
    });
    su(QStringLiteral("TM &Stralcio d'Area"), [this] {
        if (!Scelta(true)) return;
        BV_Stralcio::Esegui(stato_, Campi(), this);
        accept();
    });
    su(QStringLiteral("F&usione"), [this] {
        BV_TMFusione::Esegui(stato_, this);
        Aggiorna();
    });
    auto archivia = [this] {
        ConTrappola(stato_, kFormEDM, [&] {
            CampiParticella c = Campi();
            struttura_->setText(ArchiviaParticella(stato_, c));
            campi_["SupGrafica"]->setText(c.SupGrafica);
        });
        Aggiorna();
    };
    su(QStringLiteral("Archivia &Nuova Particella"), archivia);
    su(QStringLiteral("Archivia Modifiche Particella"), archivia);
    su(QStringLiteral("&Elimina Particella"), [this] {
        if (!Scelta(true)) return;
        EliminaFileParticella(stato_, archivio_->currentItem()->text());
        Aggiorna();
    });
    su(QStringLiteral("Azzera Archivio Particelle"), [this] {
        if (archivio_->count() > 0) AzzeraArchivioParticelle(stato_);
        Aggiorna();
    });
    su(QStringLiteral("Particelle in Archivio"), [this] {
        modello_ = QStringLiteral("*.MAP");
        Aggiorna();
    });
    su(QStringLiteral("Particelle in Libretto"), [this] {
        modello_ = ModelloParticelleLibretto(stato_.testata.CodiceComuneLibretto,
                                             stato_.testata.FoglioLibretto);
        Aggiorna();
    });
    su(QStringLiteral("Genera Particelle da Estratto"), [this] {
        GeneraParticelleDaEstratto(stato_, stato_.doc.NomeEstratto);
        Aggiorna();
    });
    su(QStringLiteral("Genera Particelle da Fraz. in Censuario"), [this] {
        GeneraParticelleDaCensuario(stato_);
        Aggiorna();
    });
    su(QStringLiteral("SN/SR"),
       [this] { campi_["Flag"]->setText(InvertiFlag(campi_["Flag"]->text())); });
    // The code search works on the current comune: the field's comune goes there first, and
    // the chosen one comes back into the field.
    su(QStringLiteral("C&omuni"), [this] { ScegliComune(false); });
    // "Trova &Qualità" has never had an action.
    su(QStringLiteral("&Gestione Estratti"), [this] {
        estratti_ = true;
        accept();
    });
    su(QStringLiteral("&Chiudi"), [this] { reject(); });

    connect(archivio_, &QListWidget::currentTextChanged, this, &BV_EDM::ScegliFile);
    connect(libretto_, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) {
        archivio_->setCurrentRow(-1);
        const QList<QListWidgetItem*> trovati =
            archivio_->findItems(i->text(), Qt::MatchFixedString);
        if (!trovati.isEmpty()) archivio_->setCurrentItem(trovati.first());
    });
    // Enter in an empty Comune opens the search too; its choice comes back only when confirmed.
    connect(campi_["Comune"], &QLineEdit::returnPressed, this, [this] {
        if (campi_["Comune"]->text().isEmpty()) ScegliComune(true);
    });
    connect(campi_["Foglio"], &QLineEdit::editingFinished, this,
            [this] { campi_["Foglio"]->setText(NormalizzaFoglio(campi_["Foglio"]->text())); });
    connect(campi_["Classe"], &QLineEdit::editingFinished, this,
            [this] { campi_["Classe"]->setText(NormalizzaClasse(campi_["Classe"]->text())); });

    EsplodiAreeProposta(stato_);
    proposta_->addItems(MappaliInProposta(LeggiModelloCensuario(stato_)));
    resize(1100, 640);
    RipristinaPosizioneForm(this, stato_, kFormEDM);
    modello_ = ModelloParticelleLibretto(t.CodiceComuneLibretto, t.FoglioLibretto);
    Aggiorna();
}

QPushButton* BV_EDM::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

CampiParticella BV_EDM::Campi() const {
    CampiParticella c;
    c.Comune = campi_["Comune"]->text();
    c.Foglio = campi_["Foglio"]->text();
    c.Mappale = campi_["Mappale"]->text();
    c.Qualita = campi_["Qualita"]->text();
    c.Classe = campi_["Classe"]->text();
    c.SupCatastale = campi_["SupCatastale"]->text();
    c.SupGrafica = campi_["SupGrafica"]->text();
    c.RedditoDominicale = campi_["RedditoDominicale"]->text();
    c.RedditoAgrario = campi_["RedditoAgrario"]->text();
    c.Flag = campi_["Flag"]->text();
    c.CodiceQualita = campi_["CodiceQualita"]->text();
    return c;
}

void BV_EDM::MostraCampi(const CampiParticella& c) {
    campi_["Comune"]->setText(c.Comune);
    campi_["Foglio"]->setText(c.Foglio);
    campi_["Mappale"]->setText(c.Mappale);
    campi_["Qualita"]->setText(c.Qualita);
    campi_["Classe"]->setText(c.Classe);
    campi_["SupCatastale"]->setText(c.SupCatastale);
    campi_["SupGrafica"]->setText(c.SupGrafica);
    campi_["RedditoDominicale"]->setText(c.RedditoDominicale);
    campi_["RedditoAgrario"]->setText(c.RedditoAgrario);
    campi_["Flag"]->setText(c.Flag);
    campi_["CodiceQualita"]->setText(c.CodiceQualita);
}

void BV_EDM::ScegliComune(bool soloConfermato) {
    QString& corrente = stato_.testata.CodiceComuneLibretto;
    const QString prima = corrente;
    corrente = campi_["Comune"]->text();
    const bool confermato = BV_CodFis::Esegui(stato_, this) == 1;
    if (confermato || !soloConfermato) campi_["Comune"]->setText(corrente);
    // A search closed without a choice leaves the libretto's own comune as it was.
    if (!confermato) corrente = prima;
}

void BV_EDM::ScegliFile(const QString& nome) {
    if (nome.isEmpty()) return;
    ConTrappola(stato_, kFormEDM, [&] {
        const QString riga = LeggiRigaParticella(stato_, nome);
        struttura_->setText(riga);
        MostraCampi(CampiDaParticella(nome, riga, stato_.amb.TabellaQualita));
    });
}

bool BV_EDM::Scelta(bool conMessaggio) {
    if (archivio_->currentItem() && archivio_->currentItem()->isSelected()) return true;
    if (conMessaggio)
        stato_.piattaforma->Messaggio(QStringLiteral("Selezionare una Particella!"),
                                      QStringLiteral("Impossibile continuare"), Icona::Avviso);
    return false;
}

void BV_EDM::Aggiorna() {
    const QString scelto = archivio_->currentItem() ? archivio_->currentItem()->text() : QString();
    archivio_->blockSignals(true);
    archivio_->clear();
    archivio_->addItems(ElencoParticelle(stato_, modello_));
    const QList<QListWidgetItem*> trovati = archivio_->findItems(scelto, Qt::MatchFixedString);
    if (!scelto.isEmpty() && !trovati.isEmpty()) archivio_->setCurrentItem(trovati.first());
    archivio_->blockSignals(false);
    libretto_->clear();
    libretto_->addItems(MappaliInLibretto(stato_.testata.CodiceComuneLibretto,
                                          stato_.testata.FoglioLibretto,
                                          stato_.testata.MappaliLibretto));
    const bool associato = !Trim(stato_.doc.NomeEstratto).isEmpty();
    estratto_->setText(associato ? QStringLiteral("Estratto: ") + stato_.doc.NomeEstratto
                                 : QStringLiteral("Estratto NON Associato!"));
    Pulsante(QStringLiteral("Genera Particelle da Fraz. in Censuario"))->setEnabled(associato);
}

void BV_EDM::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    Aggiorna();
}

void BV_EDM::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormEDM);
    QDialog::done(r);
}

bool BV_EDM::Esegui(Stato& stato, QWidget* parent) {
    BV_EDM archivio(stato, parent);
    archivio.exec();
    return archivio.ChiedeEstratti();
}

} // namespace tavolet
