#include "FormConfiguraPregeo.h"

#include "posizione.h"

#include "configura_pregeo.h"
#include "testo.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {

struct ComandoPregeo {
    int indice;
    const char* caption;
};

const ComandoPregeo kComandiPregeo[] = {
    {6, "&Salva"}, {7, "&Ricarica"}, {13, "Crea Co&llegamenti"}, {0, "&Chiudi"}};

QString PerEditor(const QString& testo) {
    return Replace(testo, CRLF, QStringLiteral("\n"));
}

} // namespace

FormConfiguraPregeo::FormConfiguraPregeo(Stato& stato, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setObjectName(kNomeFormConfiguraPregeo);
    setWindowTitle(TitoloConfiguraPregeo(stato_));
    stato_.EsitoDialogo = -1;
    resize(760, 560);

    auto* colonna = new QVBoxLayout(this);
    versione_ = new QLabel(stato_.amb.VersionePregeo, this);
    versione_->setObjectName(QStringLiteral("VersionePregeo"));
    colonna->addWidget(versione_);
    editor_ = new QPlainTextEdit(this);
    editor_->setObjectName(QStringLiteral("TestoPregeoIni"));
    editor_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    editor_->setLineWrapMode(QPlainTextEdit::NoWrap);
    editor_->setPlainText(PerEditor(TestoPregeoIni(stato_)));
    colonna->addWidget(editor_, 1);

    auto* riga = new QHBoxLayout;
    for (const ComandoPregeo& d : kComandiPregeo) {
        if (d.indice == 0) riga->addStretch(1);
        auto* b = new QPushButton(QString::fromUtf8(d.caption), this);
        b->setObjectName(QStringLiteral("Command1_%1").arg(d.indice));
        b->setAutoDefault(false);
        const int indice = d.indice;
        connect(b, &QPushButton::clicked, this, [this, indice] { EseguiComando(indice); });
        riga->addWidget(b);
        comandi_.insert(d.indice, b);
    }
    colonna->addLayout(riga);
    RipristinaPosizioneForm(this, stato_, kNomeFormConfiguraPregeo);
}

int FormConfiguraPregeo::Esegui(Stato& stato, QWidget* parent) {
    FormConfiguraPregeo form(stato, parent);
    form.exec();
    return stato.EsitoDialogo;
}

void FormConfiguraPregeo::EseguiComando(int indice) {
    switch (indice) {
    case 0:
        reject();
        break;
    case 6:
        SalvaPregeoIni(stato_, editor_->toPlainText());
        break;
    case 7:
        editor_->setPlainText(PerEditor(RicaricaPregeoIni(stato_)));
        versione_->setText(stato_.amb.VersionePregeo);
        setWindowTitle(TitoloConfiguraPregeo(stato_));
        break;
    case 13:
        CollegamentiConfiguraPregeo(stato_);
        break;
    }
}

void FormConfiguraPregeo::done(int r) {
    SalvaPosizioneForm(this, stato_, kNomeFormConfiguraPregeo);
    if (stato_.EsitoDialogo < 0) stato_.EsitoDialogo = 0;
    QDialog::done(r);
}

} // namespace tavolet
