#include "BV_EditorGen.h"

#include "libretto.h"
#include "piattaforma_qt.h"
#include "posizione.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormEditorGen = QStringLiteral("BV_EditorGen");

QString DaEditore(QString t) {
    return t.replace(u'\n', CRLF);
}
QString PerEditore(QString t) {
    t.replace(CRLF, QStringLiteral("\n"));
    return t.replace(u'\r', u'\n');
}
} // namespace

BV_EditorGen::BV_EditorGen(Stato& stato, int modo, QWidget* parent)
    : QDialog(parent), stato_(stato), modo_(modo) {
    setObjectName(kFormEditorGen);
    setWindowTitle(TitoloEditor(stato, modo));
    testo_ = new QPlainTextEdit;
    testo_->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    f.setPointSize(10);
    testo_->setFont(f);
    testo_->setPlainText(PerEditore(ApriEditor(stato, modo)));

    // Buttons by their index: 0 and 5 close, 1 stores, 2-4 sizes, 6-7 case, 8 prints.
    const QStringList caption = {
        "Salva e &Chiudi", "&Salva",          "8",      "10", "12", "&Annulla",
        "TUTTO MAIUSCOLO", "tutto minuscolo", "S&tampa"};
    auto* riga = new QHBoxLayout;
    for (int i = 0; i < caption.size(); ++i) {
        auto* b = new QPushButton(caption[i]);
        b->setAutoDefault(false);
        pulsanti_ << b;
        riga->addWidget(b);
    }
    pulsanti_[2]->setToolTip(QStringLiteral("Carattere 8"));
    pulsanti_[3]->setToolTip(QStringLiteral("Carattere 10"));
    pulsanti_[4]->setToolTip(QStringLiteral("Carattere 12"));
    connect(pulsanti_[0], &QPushButton::clicked, this, [this] { close(); });
    connect(pulsanti_[5], &QPushButton::clicked, this, [this] { close(); });
    connect(pulsanti_[1], &QPushButton::clicked, this, [this] { Memorizza(); });
    for (int i = 2; i <= 4; ++i) {
        const int punti = 8 + (i - 2) * 2;
        connect(pulsanti_[i], &QPushButton::clicked, this, [this, punti] {
            QFont f = testo_->font();
            f.setPointSize(punti);
            testo_->setFont(f);
        });
    }
    connect(pulsanti_[6], &QPushButton::clicked, this,
            [this] { testo_->setPlainText(UCase(testo_->toPlainText())); });
    connect(pulsanti_[7], &QPushButton::clicked, this,
            [this] { testo_->setPlainText(LCase(testo_->toPlainText())); });
    connect(pulsanti_[8], &QPushButton::clicked, this, [this] {
        stato_.piattaforma->StampaTesto(windowTitle(), DaEditore(testo_->toPlainText()),
                                        CarattereDa(testo_->font()));
    });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(testo_, 1);
    layout->addLayout(riga);
    resize(900, 640);
    RipristinaPosizioneForm(this, stato_, kFormEditorGen);
}

QPushButton* BV_EditorGen::Pulsante(int indice) const {
    return pulsanti_.value(indice);
}

bool BV_EditorGen::Memorizza() {
    return MemorizzaEditor(stato_, modo_, DaEditore(testo_->toPlainText()));
}

void BV_EditorGen::closeEvent(QCloseEvent* e) {
    if (!chiudendo_) {
        const Risposta r = stato_.piattaforma->Domanda(DomandaUscitaEditor(modo_),
                                                       QStringLiteral("Uscita da Editor"),
                                                       Pulsanti::SiNoAnnulla, Risposta::Si);
        if (r == Risposta::Annulla) {
            e->ignore();
            return;
        }
        // A text that could not be stored stays in the editor.
        if (r == Risposta::Si && !Memorizza()) {
            e->ignore();
            return;
        }
        chiudendo_ = true;
    }
    SalvaPosizioneForm(this, stato_, kFormEditorGen);
    stato_.ModoEditor = 0;
    e->accept();
    QDialog::done(QDialog::Accepted);
}

void BV_EditorGen::Esegui(Stato& stato, int modo, QWidget* parent) {
    BV_EditorGen editor(stato, modo, parent);
    editor.exec();
    stato.ModoEditor = 0;
}

} // namespace tavolet
