#include "BV_EstrattiDiMappa1.h"

#include "Anteprima.h"
#include "BV_Fraziona.h"
#include "BV_SommaEstratti.h"
#include "BV_StampaGenerale.h"
#include "CompletaAutoallestito.h"
#include "Grafica.h"
#include "posizione.h"

#include "archivio.h"
#include "blocchi_tag.h"
#include "casistiche.h"
#include "copia_estratto.h"
#include "cxf.h"
#include "errore.h"
#include "estratto.h"
#include "file_testo.h"
#include "percorsi.h"
#include "stato.h"
#include "testo.h"
#include "unisci.h"

#include <QCloseEvent>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormEstrattiDiMappa1 = QStringLiteral("BV_EstrattiDiMappa1");
const QStringList kCampiEstratto = {"formato",   "autoallestito", "comune",
                                    "provincia", "foglio",        "particelle",
                                    "data",      "validita",      "est"};

QString Estensione(const QString& nome) {
    return UCase(nome.mid(nome.lastIndexOf(u'.') + 1));
}

QString Base(const QString& nome) {
    const qsizetype punto = nome.lastIndexOf(u'.');
    return punto < 0 ? nome : nome.left(punto);
}

} // namespace

BV_EstrattiDiMappa1::BV_EstrattiDiMappa1(Stato& stato, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setWindowTitle(QStringLiteral("Gestione Estratti di Mappa - Estratto Associato = ") +
                   stato_.doc.NomeEstratto);
    auto* principale = new QHBoxLayout(this);

    auto* sinistra = new QVBoxLayout;
    lista_ = new QListWidget(this);
    sinistra->addWidget(lista_, 1);
    auto* filtri = new QHBoxLayout;
    smp_ = new QRadioButton(QStringLiteral("SMP"), this);
    emp_ = new QRadioButton(QStringLiteral("EMP"), this);
    png_ = new QRadioButton(QStringLiteral("PNG"), this);
    for (QRadioButton* r : {smp_, emp_, png_}) {
        filtri->addWidget(r);
        connect(r, &QRadioButton::toggled, this, [this](bool si) {
            if (si) AggiornaLista();
        });
    }
    sinistra->addLayout(filtri);
    principale->addLayout(sinistra, 1);

    vista_ = new QStackedWidget(this);
    grafica_ = new Grafica(stato_, vista_);
    anteprima_ = new Anteprima(stato_, vista_);
    vista_->addWidget(grafica_);
    vista_->addWidget(anteprima_);
    // Never narrower than the plot's own buttons and check boxes: a fixed minimum below them
    // made the layout cut their captions.
    vista_->setMinimumSize(vista_->minimumSizeHint().expandedTo(QSize(420, 360)));
    principale->addWidget(vista_, 3);

    auto* destra = new QVBoxLayout;
    for (const QString& c : kCampiEstratto) {
        auto* l = new QLabel(QStringLiteral("-"), this);
        l->setObjectName(c);
        l->setWordWrap(true);
        destra->addWidget(l);
        campi_.append(l);
    }
    testo_ = new QPlainTextEdit(this);
    testo_->setReadOnly(true);
    testo_->setMaximumHeight(110);
    destra->addWidget(testo_);
    auto* comandi = new QGridLayout;
    nuovoNome = new QLineEdit(this);
    nuovoNome->setPlaceholderText(QStringLiteral("Nuovo nome Estratto"));
    particella = new QLineEdit(this);
    particella->setPlaceholderText(QStringLiteral("Particella"));
    particellaNuova = new QLineEdit(this);
    particellaNuova->setPlaceholderText(QStringLiteral("Nuovo nome particella"));
    destra->addWidget(nuovoNome);
    const QList<std::pair<QString, void (BV_EstrattiDiMappa1::*)()>> voci = {
        {QStringLiteral("Duplica Estratto"), &BV_EstrattiDiMappa1::Duplica},
        {QStringLiteral("Rinomina Estratto"), &BV_EstrattiDiMappa1::Rinomina},
        {QStringLiteral("Elimina Estratto"), &BV_EstrattiDiMappa1::Elimina},
        {QStringLiteral("Vuota Estratto"), &BV_EstrattiDiMappa1::Vuota},
        {QStringLiteral("Autoallestito"), &BV_EstrattiDiMappa1::Autoallestito},
        {QStringLiteral("Completa Autoallestito"), &BV_EstrattiDiMappa1::Completa},
        {QStringLiteral("Unisci Estratti"), &BV_EstrattiDiMappa1::Unisci},
        {QStringLiteral("Associa Estratto"), &BV_EstrattiDiMappa1::Associa},
        {QStringLiteral("Associa Estratto in Lavoro"), &BV_EstrattiDiMappa1::AssociaInLavoro},
        {QStringLiteral("Verifica Estratti"), &BV_EstrattiDiMappa1::Verifica},
        {QStringLiteral("Stampa EMP"), &BV_EstrattiDiMappa1::StampaEmp},
        {QStringLiteral("Gestione Censuario"), &BV_EstrattiDiMappa1::GestioneCensuario},
        {QStringLiteral("Azzera Ditte"), &BV_EstrattiDiMappa1::AzzeraDitteEstratto},
        {QStringLiteral("Estratto da DXF"), &BV_EstrattiDiMappa1::DaDxf},
        {QStringLiteral("Estratto da CXF"), &BV_EstrattiDiMappa1::DaCxf},
        {QStringLiteral("Esporta Estratto"), &BV_EstrattiDiMappa1::Esporta},
        {QStringLiteral("Elimina Punti Isolati"), &BV_EstrattiDiMappa1::EliminaPuntiIsolati},
        {QStringLiteral("Esporta GeoPackage"), &BV_EstrattiDiMappa1::EsportaGeoPackage},
    };
    for (int i = 0; i < voci.size(); ++i)
        comandi->addWidget(Pulsante(voci[i].first, voci[i].second), i / 2, i % 2);
    // Import and the copy with suffix have no caption of their own.
    QPushButton* importa = Pulsante(QString(), &BV_EstrattiDiMappa1::Importa);
    importa->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    importa->setToolTip(QStringLiteral("Importa Estratto"));
    QPushButton* suffisso = Pulsante(QString(), &BV_EstrattiDiMappa1::CopiaSuffisso);
    suffisso->setIcon(style()->standardIcon(QStyle::SP_FileDialogNewFolder));
    suffisso->setToolTip(QStringLiteral("Copia Estratto con suffisso 1"));
    // Below the last row of captioned commands.
    const int sotto = int(voci.size() + 1) / 2;
    comandi->addWidget(importa, sotto, 0);
    comandi->addWidget(suffisso, sotto, 1);
    destra->addLayout(comandi);
    destra->addWidget(particella);
    destra->addWidget(Pulsante(QStringLiteral("Elimina Particella"),
                               &BV_EstrattiDiMappa1::EliminaParticellaEstratto));
    destra->addWidget(particellaNuova);
    destra->addWidget(Pulsante(QStringLiteral("Rinomina Particella"),
                               &BV_EstrattiDiMappa1::RinominaParticellaEstratto));
    destra->addStretch();
    principale->addLayout(destra, 1);

    connect(lista_, &QListWidget::currentRowChanged, this, [this] { AnteprimaEstratto(); });
    RipristinaPosizioneForm(this, stato_, kFormEstrattiDiMappa1);
    ScriviEstrattiDiEsempio(stato_);
    AggiornaLista();
}

BV_EstrattiDiMappa1::~BV_EstrattiDiMappa1() = default;

void BV_EstrattiDiMappa1::Esegui(Stato& stato, QWidget* parent) {
    BV_EstrattiDiMappa1 f(stato, parent);
    f.exec();
}

QPushButton* BV_EstrattiDiMappa1::Pulsante(const QString& testo,
                                           void (BV_EstrattiDiMappa1::*metodo)()) {
    auto* p = new QPushButton(testo, this);
    p->setAutoDefault(false);
    connect(p, &QPushButton::clicked, this, [this, metodo] { (this->*metodo)(); });
    return p;
}

QLabel* BV_EstrattiDiMappa1::Campo(const QString& nome) const {
    return findChild<QLabel*>(nome);
}

QString BV_EstrattiDiMappa1::Selezionato() const {
    const QListWidgetItem* voce = lista_->currentItem();
    return voce ? voce->text() : QString();
}

void BV_EstrattiDiMappa1::AggiornaLista(const QString& seleziona) {
    const QString prima = seleziona.isEmpty() ? Selezionato() : seleziona;
    QStringList estensioni = {QStringLiteral("EMP"), QStringLiteral("PNG"), QStringLiteral("AGG"),
                              QStringLiteral("SMP")};
    if (smp_->isChecked()) estensioni = {QStringLiteral("SMP")};
    if (emp_->isChecked()) estensioni = {QStringLiteral("EMP")};
    if (png_->isChecked()) estensioni = {QStringLiteral("PNG")};
    QStringList nomi;
    const QDir dir(PercorsoLocale(CartellaEstratti(stato_)));
    for (const QString& f : dir.entryList(QDir::Files, QDir::Name | QDir::IgnoreCase)) {
        const QString e = Estensione(f);
        // With SMP every extract is listed through its .SMP twin.
        if (smp_->isChecked() && e == u"EMP")
            nomi.append(Base(f) + QStringLiteral(".SMP"));
        else if (estensioni.contains(e))
            nomi.append(f);
    }
    nomi.removeDuplicates();
    const QSignalBlocker blocco(lista_);
    lista_->clear();
    lista_->addItems(nomi);
    const auto trovati = lista_->findItems(prima, Qt::MatchFixedString);
    if (!trovati.isEmpty()) lista_->setCurrentItem(trovati.first());
    AnteprimaEstratto();
}

void BV_EstrattiDiMappa1::AnteprimaEstratto() {
    const QString nome = Selezionato();
    for (QLabel* l : campi_) l->setText(QStringLiteral("-"));
    testo_->clear();
    if (nome.isEmpty()) return;
    ConTrappola(stato_, QStringLiteral("AnteprimaEstratto3 ") + nome, [&] {
        const QString ext = Estensione(nome);
        QString percorso = CartellaEstratti(stato_) + nome;
        if (ext == u"SMP" && !EsisteFile(percorso))
            percorso = CartellaEstratti(stato_) + Base(nome) + QStringLiteral(".EMP");
        if (ext == u"PNG" || ext == u"TIF" || ext == u"JPG") {
            vista_->setCurrentWidget(anteprima_);
            anteprima_->LoadImmagine(percorso);
            return;
        }
        const QString testo = LeggiTesto(percorso);
        grafica_->BV_CaricaEstratto_EMP(percorso);
        vista_->setCurrentWidget(grafica_);
        const Estratto e = EsplodiEstratto(stato_, percorso);
        auto metti = [&](const QString& c, const QString& v) { Campo(c)->setText(v); };
        metti(QStringLiteral("formato"), VersioneFormato(testo));
        metti(QStringLiteral("autoallestito"), testo.contains(QStringLiteral("|AUTOALLESTITO|"))
                                                   ? QStringLiteral("AUTOALLESTITO")
                                                   : QString());
        QString comune = e.EstrattoComune, provincia = e.EstrattoProvincia;
        for (const Comune& c : stato_.amb.TabellaComuni)
            if (c.CodiceComune == e.EstrattoComune) comune += QStringLiteral(" - ") + c.NomeComune;
        for (const Provincia& p : stato_.amb.TabellaProvince)
            if (p.SiglaProvincia == e.EstrattoProvincia)
                provincia += QStringLiteral(" - ") + p.NomeProvincia;
        metti(QStringLiteral("comune"), comune);
        metti(QStringLiteral("provincia"), provincia);
        metti(QStringLiteral("foglio"), e.EstrattoFoglio);
        metti(QStringLiteral("particelle"), e.EstrattoParticelle);
        const QString d = e.EstrattoData;
        metti(QStringLiteral("data"), QStringLiteral("Rilasciato il ") + Left(d, 2) + u'-' +
                                          Mid(d, 3, 2) + u'-' + Mid(d, 5, 4));
        metti(QStringLiteral("validita"), TestoValidita(e.EstrattoMesi));
        metti(QStringLiteral("est"), QStringLiteral("Est Med. ") + e.EstrattoEstMedio);
        testo_->setPlainText(Replace(e.EstrattoParticelleTesto + e.EstrattoDitte,
                                     QStringLiteral("|"), QStringLiteral(" ")));
    });
}

bool BV_EstrattiDiMappa1::Guardia(const QString& messaggio) {
    if (!Selezionato().isEmpty()) return true;
    stato_.piattaforma->Messaggio(messaggio, windowTitle(), Icona::Avviso);
    return false;
}

void BV_EstrattiDiMappa1::Duplica() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    const QString nuovo = Trim(nuovoNome->text());
    if (nuovo.isEmpty()) {
        stato_.piattaforma->Messaggio(QStringLiteral("Nuovo nome Estratto!"), windowTitle(),
                                      Icona::Avviso);
        return;
    }
    const QString nome = Selezionato();
    if (!QDir(PercorsoLocale(CartellaEstratti(stato_)))
             .entryList({Base(nuovo) + QStringLiteral(".*")}, QDir::Files)
             .isEmpty()) {
        if (stato_.piattaforma->Domanda(QStringLiteral("Estratto ") + nuovo +
                                            QStringLiteral(" esistente!") + CRLF +
                                            QStringLiteral("Sostituire??"),
                                        QStringLiteral("Estratto da duplicare esistente"),
                                        Pulsanti::SiNo, Risposta::No) != Risposta::Si)
            return;
    }
    if (stato_.piattaforma->Domanda(
            QStringLiteral("Duplicare Estratto : ") + CRLF + QStringLiteral(" da : ") + nome +
                CRLF + QStringLiteral(" a : ") + nuovo + QStringLiteral(" ?? "),
            QStringLiteral("Duplica Estratto"), Pulsanti::SiNo, Risposta::Si) != Risposta::Si)
        return;
    if (DuplicaEstratto(stato_, nome, Base(nuovo) + QStringLiteral(".EMP")))
        AggiornaLista(Base(nuovo) + QStringLiteral(".EMP"));
}

void BV_EstrattiDiMappa1::Rinomina() {
    if (!Guardia(QStringLiteral("Selezionare un Estratto!"))) return;
    const QString nome = Selezionato(), nuovo = Trim(nuovoNome->text());
    if (nuovo.isEmpty()) return;
    if (stato_.piattaforma->Domanda(
            QStringLiteral("Rinominare Estratto : ") + CRLF + QStringLiteral(" da : ") + nome +
                CRLF + QStringLiteral(" a : ") + nuovo,
            QStringLiteral("Rinomina Estratto"), Pulsanti::SiNo, Risposta::Si) != Risposta::Si)
        return;
    if (RinominaEstratto(stato_, nome, Base(nuovo) + QStringLiteral(".EMP")))
        AggiornaLista(Base(nuovo) + QStringLiteral(".EMP"));
}

void BV_EstrattiDiMappa1::Elimina() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    const QString nome = Selezionato();
    if (stato_.piattaforma->Domanda(QStringLiteral("Eliminare Estratto : ") + CRLF + CRLF +
                                        Base(nome) + QStringLiteral(".* ?? "),
                                    QStringLiteral("Elimina Estratto"), Pulsanti::SiNo,
                                    Risposta::Si) != Risposta::Si)
        return;
    EliminaEstratto(stato_, nome);
    AggiornaLista();
}

void BV_EstrattiDiMappa1::Vuota() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    if (stato_.piattaforma->Domanda(QStringLiteral("Vuotare Estratto?"), windowTitle(),
                                    Pulsanti::SiNo, Risposta::Si) != Risposta::Si)
        return;
    VuotaEstratto(stato_, Selezionato());
    AnteprimaEstratto();
}

void BV_EstrattiDiMappa1::Autoallestito() {
    if (!Guardia(QStringLiteral("Selezionare un Estratto!"))) return;
    if (stato_.piattaforma->Domanda(QStringLiteral("Trasformare in Autoallestito?"), windowTitle(),
                                    Pulsanti::SiNo, Risposta::Si) != Risposta::Si)
        return;
    RendiAutoallestito(stato_, Selezionato());
    AnteprimaEstratto();
}

// Comune, sheet and parcels typed into the selected extract, with the choices of the libretto's
// job type; the head shown again on return.
void BV_EstrattiDiMappa1::Completa() {
    if (Selezionato().isEmpty() || Estensione(Selezionato()) != u"EMP") {
        stato_.piattaforma->Messaggio(QStringLiteral("Selezionare un Estratto!"), windowTitle(),
                                      Icona::Avviso);
        return;
    }
    CompletaAutoallestito::Esegui(stato_, Selezionato(), stato_.testata.TipologiaRilievo, this);
    AnteprimaEstratto();
}

void BV_EstrattiDiMappa1::Unisci() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    const QString risultato = BV_SommaEstratti::Esegui(stato_, Selezionato(), this);
    if (!risultato.isEmpty()) AggiornaLista(risultato);
}

void BV_EstrattiDiMappa1::Associa() {
    if (Selezionato().isEmpty() || Estensione(Selezionato()) == u"PNG") {
        stato_.piattaforma->Messaggio(QStringLiteral("Indicare un Estratto di Mappa!"),
                                      QStringLiteral("Operazione Impossibile!"), Icona::Avviso);
        return;
    }
    ConTrappola(stato_, QStringLiteral("AssociaEstratto"), [&] {
        stato_.doc.NomeEstratto = Selezionato();
        ScriviTag(stato_, QStringLiteral("[TAG1000]ASSOCIA_ESTRATTO|") + Selezionato());
    });
    setWindowTitle(QStringLiteral("Gestione Estratti di Mappa - Estratto Associato = ") +
                   stato_.doc.NomeEstratto);
}

void BV_EstrattiDiMappa1::AssociaInLavoro() {
    const auto trovati = lista_->findItems(stato_.doc.NomeEstratto, Qt::MatchFixedString);
    if (!trovati.isEmpty()) lista_->setCurrentItem(trovati.first());
    Associa();
}

void BV_EstrattiDiMappa1::Verifica() {
    QStringList righe;
    for (const ConteggioEstratto& c : VerificaEstratti(stato_, CartellaEstratti(stato_)))
        righe << QStringLiteral("%1 punti %2 PF %3 DISTANZA %4 PARTICELLA %5")
                     .arg(c.nome)
                     .arg(c.punti)
                     .arg(c.pf)
                     .arg(c.distanze)
                     .arg(c.particelle);
    testo_->setPlainText(righe.join(u'\n'));
}

void BV_EstrattiDiMappa1::StampaEmp() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    QStringList righe;
    if (!ConTrappola(stato_, QStringLiteral("StampaEMP"),
                     [&] { righe = LeggiRighe(CartellaEstratti(stato_) + Selezionato()); }))
        return;
    BV_StampaGenerale::Esegui(stato_, righe, Selezionato(), {}, this);
}

void BV_EstrattiDiMappa1::GestioneCensuario() {
    close();
    BV_Fraziona::Esegui(stato_, parentWidget());
}

void BV_EstrattiDiMappa1::AzzeraDitteEstratto() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    AzzeraDitte(stato_, Selezionato());
    AnteprimaEstratto();
}

void BV_EstrattiDiMappa1::DaDxf() {
    // The polylines of a DXF chosen in the dialog, as the case without an extract of its own;
    // the generator writes ESTRATTOPROVVISORIO.EMP into this folder.
    Casistica caso;
    caso.Codice = QStringLiteral("1000");
    if (!GeneraLibrettoDaPoliLineeDXF(stato_, caso, QString())) return;
    AggiornaLista(QStringLiteral("ESTRATTOPROVVISORIO.EMP"));
}

void BV_EstrattiDiMappa1::DaCxf() {
    const QString cxf = stato_.piattaforma->ApriFile(
        QStringLiteral("Estratto da CXF"), QStringLiteral("c:\\pregeo\\estratti\\"),
        QStringLiteral("File CXF mappa (*.CXF)|*.CXF|"));
    if (cxf.isEmpty()) return;
    const QString emp = EstrattoDaCxf(stato_, cxf);
    if (!emp.isEmpty()) AggiornaLista(NomeDelFile(emp));
}

void BV_EstrattiDiMappa1::Esporta() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    const QString destinazione =
        stato_.piattaforma->SalvaFile(QStringLiteral("Esporta Estratto di Mappa"), QString(),
                                      Selezionato(), QStringLiteral("Esporta EdM *.EMP|*.EMP|"));
    if (!destinazione.isEmpty()) EsportaEstratto(stato_, Selezionato(), destinazione);
}

void BV_EstrattiDiMappa1::EsportaGeoPackage() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    grafica_->EsportaGeoPackage(CartellaEstratti(stato_) + Selezionato());
}

void BV_EstrattiDiMappa1::Importa() {
    const QString file = stato_.piattaforma->ApriFile(
        QStringLiteral("Importa Estratto di Mappa"), QString(),
        QStringLiteral("Importa EdM *.EMP|*.EMP|*.PNG|*.PNG|Estratto ZIP *.ZIP|*.ZIP|"));
    if (file.isEmpty()) return;
    const QStringList copiati = CopiaEstrattoInPregeo(stato_, file);
    AggiornaLista(copiati.isEmpty() ? QString() : copiati.first());
}

void BV_EstrattiDiMappa1::CopiaSuffisso() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    if (Estensione(Selezionato()) != u"EMP") return;
    const QString copia = CopiaEstrattoConSuffisso(stato_, Selezionato());
    if (!copia.isEmpty()) AggiornaLista(copia);
}

void BV_EstrattiDiMappa1::EliminaParticellaEstratto() {
    if (Selezionato().isEmpty()) {
        stato_.piattaforma->Messaggio(QStringLiteral("Indicare un Estratto di Mappa!"),
                                      QStringLiteral("Impossibile continuare"), Icona::Avviso);
        return;
    }
    const QString nome = Trim(particella->text());
    if (nome.isEmpty()) {
        stato_.piattaforma->Messaggio(
            QStringLiteral("Indicare il nome della particella da eliminare!"),
            QStringLiteral("Impossibile continuare"), Icona::Avviso);
        return;
    }
    if (stato_.piattaforma->Domanda(QStringLiteral("Eliminare definitivamente la particella ") +
                                        nome + QStringLiteral("  ?"),
                                    QStringLiteral("Elimina Particella"), Pulsanti::SiNo,
                                    Risposta::Si) != Risposta::Si)
        return;
    EliminaParticella(stato_, Selezionato(), nome);
    AnteprimaEstratto();
}

void BV_EstrattiDiMappa1::RinominaParticellaEstratto() {
    const QString titolo = QStringLiteral("Operazione Impossibile!");
    if (Selezionato().isEmpty()) {
        stato_.piattaforma->Messaggio(QStringLiteral("Indicare un Estratto di Mappa!"), titolo,
                                      Icona::Avviso);
        return;
    }
    const QString vecchio = Trim(particella->text()), nuovo = Trim(particellaNuova->text());
    if (vecchio.isEmpty()) {
        stato_.piattaforma->Messaggio(QStringLiteral("Indicare il nome Attuale della particella!"),
                                      titolo, Icona::Avviso);
        return;
    }
    if (nuovo.isEmpty()) {
        stato_.piattaforma->Messaggio(QStringLiteral("Indicare il nome Nuovo della particella!"),
                                      titolo, Icona::Avviso);
        return;
    }
    if (stato_.piattaforma->Domanda(QStringLiteral("Rinominare la Particella ") + vecchio +
                                        QStringLiteral(" in ") + nuovo + QStringLiteral(" ?"),
                                    QStringLiteral("Rinomina Particella"), Pulsanti::SiNo,
                                    Risposta::Si) != Risposta::Si)
        return;
    RinominaParticella(stato_, Selezionato(), vecchio, nuovo);
    AnteprimaEstratto();
}

void BV_EstrattiDiMappa1::EliminaPuntiIsolati() {
    if (!Guardia(QStringLiteral("Selezionare un estratto!"))) return;
    if (stato_.piattaforma->Domanda(QStringLiteral("Eliminare i Punti Isolati?"), windowTitle(),
                                    Pulsanti::SiNo, Risposta::Si) != Risposta::Si)
        return;
    PulisciEstratto(stato_, Selezionato());
    AnteprimaEstratto();
}

void BV_EstrattiDiMappa1::ChiudiAnteprime() {
    const QString temp = stato_.amb.CartellaLavoro + QStringLiteral("\\TEMP\\");
    const QDir dir(PercorsoLocale(temp));
    for (const QString& f : dir.entryList({QStringLiteral("TavoAnte*.*")}, QDir::Files))
        EliminaFile(temp + f);
}

void BV_EstrattiDiMappa1::closeEvent(QCloseEvent* e) {
    SalvaPosizioneForm(this, stato_, kFormEstrattiDiMappa1);
    ConTrappola(stato_, QStringLiteral("ChiudiEstratti"), [&] { ChiudiAnteprime(); });
    QDialog::closeEvent(e);
}

} // namespace tavolet
