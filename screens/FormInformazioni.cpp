#include "FormInformazioni.h"

#include "posizione.h"

#include "ambiente.h"
#include "comandi.h"
#include "testo.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {

const QString kNomeInformazioni = QStringLiteral("FormInformazioni");
const QString kNomeAutore = QStringLiteral("autore");

QPushButton* PulsanteOk(QDialog* d, QVBoxLayout* colonna) {
    auto* riga = new QHBoxLayout;
    riga->addStretch(1);
    auto* ok = new QPushButton(QStringLiteral("&OK"), d);
    ok->setDefault(true);
    riga->addWidget(ok);
    colonna->addLayout(riga);
    QObject::connect(ok, &QPushButton::clicked, d, &QDialog::accept);
    return ok;
}

} // namespace

FormInformazioni::FormInformazioni(Stato& stato, QWidget* parent) : QDialog(parent), stato_(stato) {
    setObjectName(kNomeInformazioni);
    setWindowTitle(QStringLiteral("Configurazione"));
    auto* colonna = new QVBoxLayout(this);
    auto* titolo = new QLabel(QStringLiteral("Tavolet V 5.00 - L'Evoluzione"), this);
    QFont f = titolo->font();
    f.setPointSize(f.pointSize() + 4);
    f.setBold(true);
    titolo->setFont(f);
    colonna->addWidget(titolo);
    testo_ = new QPlainTextEdit(this);
    testo_->setObjectName(QStringLiteral("Elenco"));
    testo_->setReadOnly(true);
    testo_->setLineWrapMode(QPlainTextEdit::NoWrap);
    testo_->setPlainText(QString(TestoConfigurazione(stato_)).replace(CRLF, QStringLiteral("\n")));
    colonna->addWidget(testo_, 1);
    PulsanteOk(this, colonna);
    resize(760, 420);
    RipristinaPosizioneForm(this, stato_, kNomeInformazioni);
}

void FormInformazioni::Esegui(Stato& stato, QWidget* parent) {
    FormInformazioni form(stato, parent);
    form.exec();
}

void FormInformazioni::done(int r) {
    SalvaPosizioneForm(this, stato_, kNomeInformazioni);
    QDialog::done(r);
}

QString TestoAutore() {
    return QStringLiteral("Tavolet V 5.00 - L'Evoluzione") + CRLF + QStringLiteral("Ver 5.00 ") +
           kVersioneMinore + u'.' + kRevisione + CRLF + CRLF +
           QStringLiteral("Libretto delle misure per Pregeo: caricamento, modifica, riordino, "
                          "estratti di mappa, modello censuario, casistiche automatizzate.") +
           CRLF + CRLF + QStringLiteral("Scritto dagli autori di Tavolet.") + CRLF +
           QStringLiteral("Pregeo è un programma dell'Agenzia delle Entrate; i nomi dei "
                          "programmi citati appartengono ai loro titolari.");
}

FormAutore::FormAutore(Stato& stato, QWidget* parent) : QDialog(parent), stato_(stato) {
    setObjectName(kNomeAutore);
    setWindowTitle(QStringLiteral("Autore"));
    auto* colonna = new QVBoxLayout(this);
    auto* testo = new QLabel(QString(TestoAutore()).replace(CRLF, QStringLiteral("\n")), this);
    testo->setObjectName(QStringLiteral("Testo"));
    testo->setWordWrap(true);
    colonna->addWidget(testo, 1);
    PulsanteOk(this, colonna);
    resize(480, 220);
    RipristinaPosizioneForm(this, stato_, kNomeAutore);
}

void FormAutore::Esegui(Stato& stato, QWidget* parent) {
    FormAutore form(stato, parent);
    form.exec();
}

void FormAutore::done(int r) {
    SalvaPosizioneForm(this, stato_, kNomeAutore);
    QDialog::done(r);
}

} // namespace tavolet
