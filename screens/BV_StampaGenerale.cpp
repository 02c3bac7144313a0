#include "BV_StampaGenerale.h"

#include "BV_EditorGen.h"
#include "piattaforma_qt.h"
#include "posizione.h"

#include "comandi.h"
#include "errore.h"
#include "stampa.h"
#include "testo.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kFormStampaGenerale = QStringLiteral("BV_StampaGenerale");

struct ComandoStampa {
    int indice;
    const char* caption;
};
const ComandoStampa kComandiStampa[] = {
    {1, "Stampa"},        {2, "Copia"},        {3, "Carattere"},        {4, "Grafica"},
    {5, "Editor"},        {6, "<< Sposta"},    {7, "Sposta >>"},        {8, "Elimina Riga"},
    {9, "Aggiungi Riga"}, {10, "Usa Modello"}, {11, "Aggiorna Elenco"}, {12, "Seleziona Editor"},
    {13, "Usa Default"},  {14, "Invia"},       {0, "Chiudi"},
};

} // namespace

std::function<bool(QPrinter&, QWidget*)> BV_StampaGenerale::ScegliStampante =
    [](QPrinter& stampante, QWidget* padre) {
        QPrintDialog dialogo(&stampante, padre);
        return dialogo.exec() == QDialog::Accepted;
    };

BV_StampaGenerale::BV_StampaGenerale(Stato& stato, const QStringList& righe,
                                     const QString& nomeFile, const QString& radiceFile,
                                     QWidget* parent)
    : QDialog(parent), stato_(stato), radiceFile_(radiceFile) {
    setObjectName(kFormStampaGenerale);
    setWindowTitle(QStringLiteral("Stampe : ") + nomeFile);
    auto* principale = new QVBoxLayout(this);
    auto* menu = new QMenuBar(this);
    QAction* word = menu->addAction(QStringLiteral("Elaboratore di Testi"));
    connect(word, &QAction::triggered, this, [this] {
        if (!Trim(radiceFile_).isEmpty())
            stato_.piattaforma->ApriConProgramma(radiceFile_ + QStringLiteral(".TXT"));
    });
    principale->setMenuBar(menu);

    auto* corpo = new QHBoxLayout;
    righe_ = new QListWidget(this);
    righe_->setObjectName(QStringLiteral("List1"));
    righe_->setFont(FontDa(Carattere()));
    if (const auto c = LeggiCarattereStampa(stato_)) righe_->setFont(FontDa(*c));
    corpo->addWidget(righe_, 3);

    auto* lato = new QVBoxLayout;
    auto* orientamento = new QGroupBox(QStringLiteral("Orientamento"), this);
    auto* o = new QVBoxLayout(orientamento);
    verticale_ = new QRadioButton(QStringLiteral("Verticale"), orientamento);
    verticale_->setChecked(true);
    o->addWidget(verticale_);
    o->addWidget(new QRadioButton(QStringLiteral("Orizzontale"), orientamento));
    lato->addWidget(orientamento);

    auto* gruppoModelli = new QGroupBox(QStringLiteral("Modelli di Stampa"), this);
    auto* m = new QVBoxLayout(gruppoModelli);
    modelli_ = new QListWidget(gruppoModelli);
    modelli_->setObjectName(QStringLiteral("File1"));
    m->addWidget(modelli_);
    lato->addWidget(gruppoModelli);
    connect(modelli_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* voce) {
        stato_.piattaforma->ApriConProgramma(CartellaModelli(stato_) + u'\\' + voce->text());
    });

    auto* gruppoInvia = new QGroupBox(QStringLiteral("Tabulino"), this);
    auto* t = new QVBoxLayout(gruppoInvia);
    visualizzatore_ = new QLabel(gruppoInvia);
    visualizzatore_->setObjectName(QStringLiteral("Visualizzatore"));
    t->addWidget(visualizzatore_);
    comeXls_ = new QRadioButton(QStringLiteral("Come XLS"), gruppoInvia);
    comeXls_->setChecked(true);
    t->addWidget(comeXls_);
    t->addWidget(new QRadioButton(QStringLiteral("Come CSV"), gruppoInvia));
    lato->addWidget(gruppoInvia);
    corpo->addLayout(lato, 1);
    principale->addLayout(corpo, 1);

    auto* griglia = new QGridLayout;
    int n = 0;
    for (const ComandoStampa& d : kComandiStampa) {
        auto* b = new QPushButton(QString::fromUtf8(d.caption), this);
        b->setObjectName(QStringLiteral("Command%1").arg(d.indice));
        b->setAutoDefault(false);
        pulsanti_.insert(d.indice, b);
        griglia->addWidget(b, n / 5, n % 5);
        ++n;
        const int indice = d.indice;
        connect(b, &QPushButton::clicked, this, [this, indice] { Comando(indice); });
    }
    // Moved into groups where they belong.
    griglia->removeWidget(pulsanti_[11]);
    m->addWidget(pulsanti_[11]);
    griglia->removeWidget(pulsanti_[10]);
    m->addWidget(pulsanti_[10]);
    for (int i : {12, 13, 14}) {
        griglia->removeWidget(pulsanti_[i]);
        t->addWidget(pulsanti_[i]);
    }
    principale->addLayout(griglia);

    ImpostaRighe(righe);
    PreparaModelli(stato_);
    AggiornaModelli();
    visualizzatore_->setText(EtichettaVisualizzatore(stato_));
    resize(900, 560);
    RipristinaPosizioneForm(this, stato_, kFormStampaGenerale);
}

void BV_StampaGenerale::Esegui(Stato& stato, const QStringList& righe, const QString& nomeFile,
                               const QString& radiceFile, QWidget* parent) {
    BV_StampaGenerale form(stato, righe, nomeFile, radiceFile, parent);
    form.exec();
}

QPushButton* BV_StampaGenerale::Pulsante(int indice) const {
    return pulsanti_.value(indice);
}

QStringList BV_StampaGenerale::TestoRighe() const {
    QStringList r;
    for (int i = 0; i < righe_->count(); ++i) r << righe_->item(i)->text();
    return r;
}

void BV_StampaGenerale::ImpostaRighe(const QStringList& righe) {
    righe_->clear();
    righe_->addItems(righe);
}

void BV_StampaGenerale::AggiornaModelli() {
    modelli_->clear();
    modelli_->addItems(ElencoModelli(stato_));
}

void BV_StampaGenerale::Comando(int indice) {
    QStringList righe = TestoRighe();
    switch (indice) {
    case 0:
        close();
        break;
    case 1:
        Stampa();
        break;
    case 2:
        CopiaRigheStampa(stato_, righe);
        break;
    case 3:
        ScegliCarattere();
        break;
    case 4:
        StampaGrafica();
        break;
    case 5:
        ApriEditor();
        break;
    case 6:
        SpostaASinistra(righe);
        ImpostaRighe(righe);
        righe_->setCurrentRow(-1);
        break;
    case 7:
        SpostaADestra(righe);
        ImpostaRighe(righe);
        break;
    case 8:
        if (EliminaRigaStampa(righe, righe_->currentRow())) ImpostaRighe(righe);
        break;
    case 9:
        AggiungiRigaStampa(righe);
        ImpostaRighe(righe);
        break;
    case 10:
        if (modelli_->currentItem()) CompilaModello(stato_, modelli_->currentItem()->text(), righe);
        break;
    case 11:
        AggiornaModelli();
        break;
    case 12:
        SelezionaVisualizzatore(stato_);
        visualizzatore_->setText(EtichettaVisualizzatore(stato_));
        break;
    case 13:
        UsaVisualizzatorePredefinito(stato_);
        visualizzatore_->setText(EtichettaVisualizzatore(stato_));
        break;
    case 14:
        Invia(stato_, radiceFile_, comeXls_->isChecked());
        break;
    default:
        break;
    }
}

void BV_StampaGenerale::Stampa() {
    ConTrappola(stato_, QStringLiteral(" Buttonplus1_Click"), [&] {
        QPrinter stampante;
        stampante.setDocName(windowTitle());
        const bool orizzontale = !verticale_->isChecked();
        stampante.setPageOrientation(orizzontale ? QPageLayout::Landscape : QPageLayout::Portrait);
        if (!ScegliStampante(stampante, this)) return;
        const Carattere carattere = CarattereDa(righe_->font());
        QPainter pittore;
        if (!pittore.begin(&stampante)) throw Errore(482, QStringLiteral("Errore di stampa"));
        QFont font = righe_->font();
        font.setPointSizeF(carattere.dimensione);
        pittore.setFont(font);
        // The lines as the PDF of the command line lays them out, in device pixels.
        const QRectF pagina = stampante.pageRect(QPrinter::DevicePixel);
        const double perPunto = stampante.resolution() / 72.0;
        const double interlinea = carattere.dimensione * 1.2 * perPunto;
        const int perPagina = qMax(1, int(pagina.height() / interlinea));
        int riga = 0;
        for (const QString& r : TestoRighe()) {
            if (riga == perPagina) {
                stampante.newPage();
                riga = 0;
            }
            pittore.drawText(QPointF(0, (riga + 1) * interlinea - interlinea * 0.2), RTrim(r));
            ++riga;
        }
        pittore.end();
    });
    close();
}

void BV_StampaGenerale::StampaGrafica() {
    ConTrappola(stato_, QStringLiteral(" Buttonplus1_Click"), [&] {
        QPrinter stampante;
        if (!ScegliStampante(stampante, this)) return;
        const QPixmap immagine = grab();
        QPainter pittore(&stampante);
        const QRectF pagina = stampante.pageRect(QPrinter::DevicePixel);
        const QSize misura = immagine.size().scaled(pagina.size().toSize(), Qt::KeepAspectRatio);
        pittore.drawPixmap(QRect(QPoint(0, 0), misura), immagine);
    });
}

void BV_StampaGenerale::ScegliCarattere() {
    const auto scelto = stato_.piattaforma->ScegliCarattere(CarattereDa(righe_->font()));
    if (!scelto) return;
    righe_->setFont(FontDa(*scelto));
    ScriviCarattereStampa(stato_, *scelto);
}

void BV_StampaGenerale::ApriEditor() {
    // The editor works on the lines of this screen while it is open.
    stato_.GestoriEditor[kEditorStampe] =
        GestoreEditor{[this](Stato&) { return Join(TestoRighe(), CRLF); },
                      [this](Stato&, const QString& testo) {
                          QStringList righe = Split(testo, CRLF);
                          if (!righe.isEmpty() && righe.last().isEmpty()) righe.removeLast();
                          ImpostaRighe(righe);
                      }};
    BV_EditorGen::Esegui(stato_, kEditorStampe, this);
    stato_.GestoriEditor.remove(kEditorStampe);
    stato_.ModoEditor = 0;
}

void BV_StampaGenerale::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormStampaGenerale);
    QDialog::done(r);
}

} // namespace tavolet
