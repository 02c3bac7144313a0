#include "ArchivioPossessori.h"

#include "libretto.h"
#include "posizione.h"
#include "possessori.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormArchivioPossessori = QStringLiteral("ArchivioPossessori");

QString DaSchermo(QString testo) {
    return testo.replace(u'\n', CRLF);
}
} // namespace

ArchivioPossessori::ArchivioPossessori(Stato& stato, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setObjectName(kFormArchivioPossessori);
    setWindowTitle(TitoloPossessori(stato_));
    RipristinaPosizioneForm(this, stato_, kFormArchivioPossessori);
    stato_.EsitoDialogo = -1;
    auto* l = new QVBoxLayout(this);
    auto* campi = new QFormLayout;
    cerca_ = new QLineEdit;
    cerca_->setObjectName(QStringLiteral("CercaPossessore"));
    nome_ = new QLineEdit;
    nome_->setObjectName(QStringLiteral("NomeFile"));
    campi->addRow(QStringLiteral("Cerca Possessore"), cerca_);
    campi->addRow(QStringLiteral("Nome File"), nome_);
    l->addLayout(campi);
    auto* centro = new QHBoxLayout;
    file_ = new QListWidget;
    file_->setObjectName(QStringLiteral("File"));
    file_->setMaximumWidth(260);
    testo_ = new QPlainTextEdit;
    testo_->setObjectName(QStringLiteral("TestoFile"));
    centro->addWidget(file_);
    centro->addWidget(testo_, 1);
    l->addLayout(centro, 1);
    auto* comandi = new QHBoxLayout;
    auto pulsante = [&](const QString& caption, std::function<void()> azione) {
        auto* b = new QPushButton(caption);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [azione] {
            if (azione) azione();
        });
        comandi->addWidget(b);
    };
    auto associa = [this] {
        if (Associapossessori(stato_, nome_->text(), DaSchermo(testo_->toPlainText()))) accept();
    };
    pulsante(QStringLiteral("Copia in Libretto"), associa);
    pulsante(QStringLiteral("&Salva Modifiche"), [this] {
        if (SalvaModifichePossessori(stato_, nome_->text(), DaSchermo(testo_->toPlainText())))
            Ricarica();
    });
    pulsante(QStringLiteral("&Elimina Archivio"), [this] {
        if (file_->currentRow() < 0) return;
        EliminaArchivioPossessori(stato_, file_->currentItem()->text());
        Ricarica();
    });
    pulsante(QStringLiteral("Importa Tutti Intestatari da Pregeo"), {});
    pulsante(QStringLiteral("&Chiudi"), [this] { reject(); });
    l->addLayout(comandi);

    connect(file_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Scegli(file_->row(item)); });
    connect(file_, &QListWidget::itemDoubleClicked, this, [this, associa](QListWidgetItem* item) {
        Scegli(file_->row(item));
        associa();
    });
    connect(cerca_, &QLineEdit::textEdited, this, [this](const QString& testo) {
        // The search marks the file; its text is read when the file is chosen.
        const int r = CercaPossessore(stato_, elenco_, testo);
        if (r >= 0) file_->setCurrentRow(r);
    });
    Ricarica();
    resize(760, 460);
}

void ArchivioPossessori::Ricarica() {
    elenco_ = ElencoPossessori(stato_);
    file_->clear();
    file_->addItems(elenco_);
}

void ArchivioPossessori::Scegli(int riga) {
    if (riga < 0 || riga >= elenco_.size()) return;
    file_->setCurrentRow(riga);
    QString testo = LeggiFilePossessori(stato_, elenco_[riga]);
    testo_->setPlainText(testo.replace(CRLF, QStringLiteral("\n")));
    nome_->setText(elenco_[riga]);
}

void ArchivioPossessori::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormArchivioPossessori);
    QDialog::done(r);
}

int ArchivioPossessori::Esegui(Stato& stato, QWidget* parent) {
    ArchivioPossessori form(stato, parent);
    form.exec();
    return stato.EsitoDialogo;
}

} // namespace tavolet
