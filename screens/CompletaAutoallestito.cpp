#include "CompletaAutoallestito.h"

#include "posizione.h"

#include "autoallestito.h"
#include "errore.h"
#include "estratto.h"
#include "file_testo.h"
#include "stato.h"
#include "testo.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

namespace {
const QString kFormCompletaAutoallestito = QStringLiteral("CompletaAutoallestito");
}

CompletaAutoallestito::CompletaAutoallestito(Stato& stato, const QString& nomeEstratto,
                                             const QString& tipoLavoro, QWidget* parent)
    : QDialog(parent), stato_(stato), nome_(nomeEstratto), tipo_(tipoLavoro) {
    setWindowTitle(QStringLiteral("Completa Autoallestito - ") + nomeEstratto);
    auto* principale = new QHBoxLayout(this);
    lista_ = new QListWidget(this);
    principale->addWidget(lista_, 1);
    auto* destra = new QGridLayout;
    int r = 0;
    auto riga = [&](const QString& etichetta, QWidget* w) {
        destra->addWidget(new QLabel(etichetta, this), r, 0);
        destra->addWidget(w, r++, 1);
    };
    numero = new QLineEdit(this);
    riga(QStringLiteral("Particella"), numero);
    qualita = new QLabel(QStringLiteral("-"), this);
    riga(QStringLiteral("Qualità"), qualita);
    classe = new QLabel(QStringLiteral("00"), this);
    riga(QStringLiteral("Classe"), classe);
    superficie = new QLineEdit(this);
    riga(QStringLiteral("Superficie"), superficie);
    comune = new QLineEdit(this);
    riga(QStringLiteral("Comune"), comune);
    provincia = new QLabel(this);
    riga(QStringLiteral("Provincia"), provincia);
    foglio = new QLineEdit(this);
    riga(QStringLiteral("Foglio"), foglio);
    // Types 20, 21 and 22 are buildings: the quality buttons; 01 and 02 keep the rows as typed.
    const bool fabbricati = tipo_ == u"20" || tipo_ == u"21" || tipo_ == u"22";
    for (const QualitaParticella& q : QualitaAutoallestito()) {
        auto* b = new QPushButton(q.descrizione, this);
        b->setAutoDefault(false);
        b->setEnabled(fabbricati);
        destra->addWidget(b, r++, 0, 1, 2);
        connect(b, &QPushButton::clicked, this, [this, q] {
            if (!lista_->currentItem()) {
                stato_.piattaforma->Messaggio(QStringLiteral("Selezionare una particella!"),
                                              windowTitle(), Icona::Avviso);
                return;
            }
            descrizione_ = q.descrizione;
            codice_ = q.codice;
            classe->setText(QStringLiteral("00"));
            RicalcolaParticella();
        });
    }
    auto* provinciaDi = new QPushButton(QStringLiteral("Genera Provincia di Competenza"), this);
    auto* salva = new QPushButton(QStringLiteral("Salva"), this);
    for (QPushButton* b : {provinciaDi, salva}) {
        b->setAutoDefault(false);
        destra->addWidget(b, r++, 0, 1, 2);
    }
    principale->addLayout(destra, 1);

    connect(lista_, &QListWidget::currentRowChanged, this, [this] { CaricaParticella(); });
    connect(superficie, &QLineEdit::editingFinished, this, [this] { RicalcolaParticella(); });
    connect(foglio, &QLineEdit::editingFinished, this, [this] { RicalcolaAutoAllestito(); });
    connect(comune, &QLineEdit::editingFinished, this, [this] { RicalcolaAutoAllestito(); });
    connect(numero, &QLineEdit::editingFinished, this, [this] {
        QListWidgetItem* voce = lista_->currentItem();
        if (!voce) return;
        const QString vecchio = Split(voce->text(), QStringLiteral("|")).value(2);
        const QString nuovo = Trim(numero->text());
        if (nuovo.isEmpty() || nuovo == vecchio) return;
        RinominaParticellaAutoallestito(righe_, vecchio, nuovo);
        QStringList campi = Split(voce->text(), QStringLiteral("|"));
        campi[2] = nuovo;
        voce->setText(Join(campi, QStringLiteral("|")));
        RicalcolaAutoAllestito();
    });
    connect(provinciaDi, &QPushButton::clicked, this, [this] {
        const QString sigla = ProvinciaDiCompetenza(stato_, comune->text());
        if (!sigla.isEmpty()) provincia->setText(sigla);
        RicalcolaAutoAllestito();
    });
    connect(salva, &QPushButton::clicked, this, [this] { Salva(); });

    ConTrappola(stato_, QStringLiteral("CaricaEstratto"), [&] {
        const QString percorso = PercorsoEstratto(stato_, nome_);
        righe_ = EsisteFile(percorso) ? LeggiRighe(percorso) : QStringList();
        lista_->addItems(ParticelleAutoallestito(stato_, nome_, righe_));
        const QStringList zero = Split(righe_.value(0), QStringLiteral("|"));
        comune->setText(zero.value(3));
        provincia->setText(zero.value(6));
        foglio->setText(Right(zero.value(4), 4));
    });
    RipristinaPosizioneForm(this, stato_, kFormCompletaAutoallestito);
}

void CompletaAutoallestito::Esegui(Stato& stato, const QString& nomeEstratto,
                                   const QString& tipoLavoro, QWidget* parent) {
    CompletaAutoallestito f(stato, nomeEstratto, tipoLavoro, parent);
    f.exec();
    SalvaPosizioneForm(&f, stato, kFormCompletaAutoallestito);
}

void CompletaAutoallestito::CaricaParticella() {
    const QListWidgetItem* voce = lista_->currentItem();
    if (!voce) return;
    const QStringList campi = Split(voce->text(), QStringLiteral("|"));
    numero->setText(campi.value(2));
    classe->setText(campi.value(3).isEmpty() ? QStringLiteral("00") : campi.value(3));
    descrizione_ = Trim(campi.value(4));
    qualita->setText(codice_.isEmpty() ? descrizione_
                                       : codice_ + QStringLiteral(" - ") + descrizione_);
    superficie->setText(campi.value(5));
}

void CompletaAutoallestito::RicalcolaParticella() {
    QListWidgetItem* voce = lista_->currentItem();
    if (!voce) return;
    QString c = classe->text();
    const QString riga =
        tavolet::RicalcolaParticella(voce->text(), c, descrizione_, superficie->text(), tipo_);
    if (tipo_ == u"22") codice_ = kFabbPromis.codice;
    classe->setText(c);
    qualita->setText(codice_ + QStringLiteral(" - ") + descrizione_);
    voce->setText(riga);
    UnisciParticella(righe_, riga);
}

void CompletaAutoallestito::RicalcolaAutoAllestito() {
    if (righe_.isEmpty()) return;
    QStringList nomi;
    for (int i = 0; i < lista_->count(); ++i)
        nomi << Split(lista_->item(i)->text(), QStringLiteral("|")).value(2);
    righe_[0] =
        tavolet::RicalcolaAutoAllestito(righe_[0], Trim(comune->text()), provincia->text(),
                                        Trim(foglio->text()), Join(nomi, QStringLiteral(",")));
}

void CompletaAutoallestito::Salva() {
    SalvaAutoallestito(stato_, nome_, righe_);
}

} // namespace tavolet
