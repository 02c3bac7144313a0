#include "BV_CodFis.h"

#include "BV_Comuni8.h"
#include "comuni.h"
#include "libretto.h"
#include "posizione.h"

#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormCodFis = QStringLiteral("BV_CodFis");
}

BV_CodFis::BV_CodFis(Stato& stato, QWidget* parent) : QDialog(parent), stato_(stato) {
    setObjectName(kFormCodFis);
    setWindowTitle(QStringLiteral("Codici Fiscali di Comuni"));
    RipristinaPosizioneForm(this, stato_, kFormCodFis);
    stato_.EsitoDialogo = -1;
    auto* l = new QVBoxLayout(this);
    auto* ricerca = new QFormLayout;
    sinistra_ = new QLineEdit;
    sinistra_->setObjectName(QStringLiteral("RicercaDaSinistra"));
    generale_ = new QLineEdit;
    generale_->setObjectName(QStringLiteral("RicercaGenerale"));
    ricerca->addRow(QStringLiteral("Ricerca da Sinistra"), sinistra_);
    ricerca->addRow(QStringLiteral("Ricerca Generale"), generale_);
    l->addLayout(ricerca);
    const QFont fisso = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    auto* intestazione = new QLabel(kIntestazioneCodFis);
    intestazione->setFont(fisso);
    l->addWidget(intestazione);
    lista_ = new QListWidget;
    lista_->setObjectName(QStringLiteral("Comuni"));
    lista_->setFont(fisso);
    l->addWidget(lista_, 1);
    codice_ = new QLabel;
    codice_->setObjectName(QStringLiteral("CodiceComune"));
    l->addWidget(codice_);
    auto* comandi = new QHBoxLayout;
    auto pulsante = [&](const QString& caption, std::function<void()> azione) {
        auto* b = new QPushButton(caption);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [azione] { azione(); });
        comandi->addWidget(b);
    };
    pulsante(QStringLiteral("Copia in Libretto"), [this] { Copia(); });
    pulsante(QStringLiteral("Copia Codice &Fiscale"), [this] { Copia(); });
    pulsante(QStringLiteral("Comuni &In Pregeo"), [this] {
        inPregeo_ = true;
        reject();
    });
    pulsante(QStringLiteral("Genera Comuni HTML"), [this] {
        const int n = GeneraComuniHtml(stato_, righe_);
        stato_.piattaforma->Messaggio(QString::number(n) + QStringLiteral(" file in ") +
                                          stato_.amb.CartellaLavoro + QStringLiteral("\\RISORSE"),
                                      windowTitle(), Icona::Informazione);
    });
    pulsante(QStringLiteral("&Chiudi"), [this] { reject(); });
    l->addLayout(comandi);

    righe_ = RigheCodFis(stato_);
    lista_->addItems(righe_);
    connect(lista_, &QListWidget::currentRowChanged, this, [this](int r) {
        codice_->setText(r >= 0 && r < righe_.size() ? CodiceDellaRiga(righe_[r]) : QString());
    });
    connect(lista_, &QListWidget::itemDoubleClicked, this, [this] { Copia(); });
    connect(sinistra_, &QLineEdit::textEdited, this, [this] { Cerca(sinistra_, false); });
    connect(generale_, &QLineEdit::textEdited, this, [this] { Cerca(generale_, true); });
    resize(620, 520);
}

void BV_CodFis::Cerca(QLineEdit* campo, bool generale) {
    const QString maiuscolo = UCase(campo->text());
    if (maiuscolo != campo->text()) {
        const int cursore = campo->cursorPosition();
        campo->setText(maiuscolo);
        campo->setCursorPosition(cursore);
    }
    const int r = generale ? CercaGenerale(righe_, maiuscolo) : CercaDaSinistra(righe_, maiuscolo);
    // A text that matches nothing leaves the selection where it was.
    if (r >= 0) lista_->setCurrentRow(r);
}

void BV_CodFis::Copia() {
    const int r = lista_->currentRow();
    if (r < 0 || r >= righe_.size()) return;
    if (CopiaCodiceFiscaleCodFis(stato_, codice_->text(), righe_[r])) accept();
}

void BV_CodFis::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormCodFis);
    QDialog::done(r);
}

int BV_CodFis::Esegui(Stato& stato, QWidget* parent) {
    bool inPregeo = false;
    {
        BV_CodFis form(stato, parent);
        form.exec();
        inPregeo = form.ComuniInPregeo();
    }
    if (inPregeo) return BV_Comuni8::Esegui(stato, parent);
    return stato.EsitoDialogo;
}

} // namespace tavolet
