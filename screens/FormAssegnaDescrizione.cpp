#include "FormAssegnaDescrizione.h"

#include "posizione.h"

#include "descrizione.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormAssegnaDescrizione = QStringLiteral("AssegnaDescrizione");
}

FormAssegnaDescrizione::FormAssegnaDescrizione(Stato& stato, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setObjectName(kFormAssegnaDescrizione);
    setWindowTitle(QStringLiteral("Assegna Descrizione"));
    stato_.EsitoDialogo = -1;
    auto* colonna = new QVBoxLayout(this);
    colonna->addWidget(new QLabel(
        QStringLiteral("Descrizione da assegnare alle righe selezionate (1, 2, 4, 5, 8):"), this));
    descrizione_ = new QLineEdit(this);
    descrizione_->setObjectName(QStringLiteral("Descrizione"));
    descrizione_->setMaxLength(60);
    colonna->addWidget(descrizione_);
    auto* riga = new QHBoxLayout;
    riga->addStretch(1);
    auto* assegna = new QPushButton(QStringLiteral("&Assegna"), this);
    assegna->setDefault(true);
    auto* chiudi = new QPushButton(QStringLiteral("&Chiudi"), this);
    chiudi->setAutoDefault(false);
    riga->addWidget(assegna);
    riga->addWidget(chiudi);
    colonna->addLayout(riga);
    connect(assegna, &QPushButton::clicked, this, [this] { Assegna(); });
    connect(chiudi, &QPushButton::clicked, this, [this] { reject(); });
    resize(460, 110);
    RipristinaPosizioneForm(this, stato_, kFormAssegnaDescrizione);
}

void FormAssegnaDescrizione::Assegna() {
    if (AssegnaDescrizioneRighe(stato_, descrizione_->text()) > 0) {
        stato_.EsitoDialogo = 1;
        accept();
    }
}

void FormAssegnaDescrizione::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormAssegnaDescrizione);
    if (stato_.EsitoDialogo < 0) stato_.EsitoDialogo = 0;
    QDialog::done(r);
}

int ApriAssegnaDescrizione(Stato& stato, QWidget* parent) {
    FormAssegnaDescrizione form(stato, parent);
    form.exec();
    return stato.EsitoDialogo;
}

} // namespace tavolet
