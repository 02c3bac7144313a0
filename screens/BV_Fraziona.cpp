#include "BV_Fraziona.h"
#include "lista_titolata.h"

#include "BV_EditorGen.h"
#include "posizione.h"

#include "errore.h"
#include "testo.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavolet {

namespace {

// The classic sixteen-colour table, for the cells' states.
QColor ColoreCella(int indice) {
    switch (indice) {
    case kGiallo:
        return QColor(255, 255, 85);
    case kRossoChiaro:
        return QColor(255, 85, 85);
    default:
        return QColor(255, 255, 255);
    }
}

void Riempi(QListWidget* l, const QStringList& righe) {
    if (l->count() == righe.size()) {
        bool uguali = true;
        for (int i = 0; i < righe.size() && uguali; ++i) uguali = l->item(i)->text() == righe[i];
        if (uguali) return;
    }
    l->clear();
    l->addItems(righe);
}

} // namespace

BV_Fraziona::BV_Fraziona(Stato& stato, TipoSchema tipo, const CampiParticella& particella,
                         int tipoOperazione, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    const bool stralcio = tipo == TipoSchema::Stralcio;
    setObjectName(stralcio ? QStringLiteral("BV_Stralcio") : QStringLiteral("BV_Fraziona"));
    f_.tipo = tipo;
    f_.particella = particella;
    f_.TipoOperazione = tipoOperazione;

    auto* principale = new QHBoxLayout(this);
    auto* sinistra = new QVBoxLayout;
    auto* destra = new QVBoxLayout;
    principale->addLayout(sinistra, 3);
    principale->addLayout(destra, 2);

    auto* riga = new QHBoxLayout;
    riga->addWidget(new QLabel(QStringLiteral("Numero Particelle Costituite"), this));
    numero_ = new QLineEdit(this);
    numero_->setMaximumWidth(60);
    riga->addWidget(numero_);
    mantieni_ = new QCheckBox(QStringLiteral("Mantieni Numero Particella Frazionata"), this);
    riga->addWidget(mantieni_);
    riga->addStretch();
    sinistra->addLayout(riga);

    schema_ = new QTableWidget(0, kColonneSchema, this);
    schema_->setHorizontalHeaderLabels(kIntestazioniSchema);
    schema_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    schema_->setSelectionMode(QAbstractItemView::SingleSelection);
    schema_->verticalHeader()->setDefaultSectionSize(20);
    schema_->setMinimumHeight(170);
    sinistra->addWidget(schema_);

    auto* rigaArea = new QHBoxLayout;
    etichettaArea_ = new QLabel(kEtichettaAreaRiposo, this);
    rigaArea->addWidget(etichettaArea_);
    area_ = new QLineEdit(this);
    area_->setMaximumWidth(120);
    area_->installEventFilter(this);
    rigaArea->addWidget(area_);
    rigaArea->addStretch();
    sinistra->addLayout(rigaArea);

    anteprima_ = ListaTitolata(this, QStringLiteral("Anteprima Modello"), sinistra);
    memo_ = ListaTitolata(this, QStringLiteral("Memo"), sinistra);
    memo_->setSelectionMode(QAbstractItemView::ExtendedSelection);

    aree_ = ListaTitolata(this, QStringLiteral("Aree in Proposta"), destra);
    schemaProposta_ = ListaTitolata(this, QStringLiteral("Schema da Proposta"), destra);
    if (stralcio) {
        urbano_ = ListaTitolata(this, QStringLiteral("Seleziona Derivate per l'Urbano"), destra);
        urbano_->setSelectionMode(QAbstractItemView::MultiSelection);
    }

    auto* comandi = new QGridLayout;
    const QStringList captions = {
        QStringLiteral("Censuario Automatico in Base alla Proposta di Aggiornamento in Pregeo"),
        QStringLiteral("Aggiungi a &Memo"),
        QStringLiteral("&Azzera Memo"),
        QStringLiteral("&Elimina Selezione"),
        QStringLiteral("Carica Censuario da Libretto Misure"),
        QStringLiteral("Modifica &Diretta"),
        QStringLiteral("Copia Memo"),
        QStringLiteral("Stampa Memo"),
        QStringLiteral("Aggiungi a &Libretto"),
        QStringLiteral("Sostituisci in Libretto"),
        stralcio ? QStringLiteral("Vedi Proposta Esistente") : QStringLiteral("Edita Proposta"),
        QStringLiteral("&Chiudi")};
    for (int i = 0; i < captions.size(); ++i) {
        auto* b = new QPushButton(captions[i], this);
        b->setAutoDefault(false);
        if (i == 0) {
            comandi->addWidget(b, 0, 0, 1, 2);
        } else {
            comandi->addWidget(b, 1 + (i - 1) / 2, (i - 1) % 2);
        }
    }
    destra->addLayout(comandi);

    auto azione = [this](const QString& caption, auto corpo) {
        connect(Pulsante(caption), &QPushButton::clicked, this, [this, corpo] {
            corpo();
            Dopo();
        });
    };
    azione(captions[0], [this] { PropostaAutomatica(stato_, f_); });
    azione(QStringLiteral("Aggiungi a &Memo"), [this] { AggiungiAMemo(stato_, f_); });
    azione(QStringLiteral("&Azzera Memo"), [this] { AzzeraMemo(stato_, f_); });
    azione(QStringLiteral("&Elimina Selezione"), [this] {
        QList<int> scelte;
        for (int i = 0; i < memo_->count(); ++i)
            if (memo_->item(i)->isSelected()) scelte << i;
        EliminaSelezioneMemo(stato_, f_, scelte);
    });
    azione(QStringLiteral("Carica Censuario da Libretto Misure"),
           [this] { CaricaCensuarioDaLibretto(stato_, f_); });
    azione(QStringLiteral("Modifica &Diretta"), [this] { ModificaDiretta(true); });
    azione(QStringLiteral("Copia Memo"), [this] { CopiaMemo(stato_, f_); });
    azione(QStringLiteral("Stampa Memo"), [this] { StampaMemo(stato_, f_); });
    azione(QStringLiteral("Aggiungi a &Libretto"), [this] { SalvaPropostaFile(stato_, f_); });
    azione(QStringLiteral("Sostituisci in Libretto"), [this] { SalvaPropostaFile1(stato_, f_); });
    // "Edita Proposta" and "Vedi Proposta Esistente" have never had an action.
    connect(Pulsante(QStringLiteral("&Chiudi")), &QPushButton::clicked, this, &QDialog::reject);

    connect(numero_, &QLineEdit::textEdited, this, [this](const QString& t) {
        CambiaNumeroCostituite(stato_, f_, t);
        Mostra();
    });
    connect(numero_, &QLineEdit::editingFinished, this, [this] {
        if (!aggiornando_ && isVisible()) VerificaNumeroCostituite(stato_, f_);
    });
    connect(mantieni_, &QCheckBox::clicked, this, [this](bool si) {
        CambiaMantieniNumero(stato_, f_, si);
        Mostra();
    });
    connect(area_, &QLineEdit::textEdited, this, [this](const QString& t) {
        CambiaAreaProporzionale(stato_, f_, t);
        Mostra();
    });
    connect(area_, &QLineEdit::returnPressed, this, [this] {
        RigaSuccessiva(stato_, f_);
        Mostra();
    });
    connect(aree_, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) {
        ScegliAreaProposta(stato_, f_, aree_->row(i));
        Mostra();
    });
    connect(schema_, &QTableWidget::currentCellChanged, this, [this](int r, int, int pr, int) {
        if (aggiornando_ || r < 0 || r == pr) return;
        SpostaRiga(stato_, f_, r + 1);
        Mostra();
    });
    connect(schema_, &QTableWidget::cellDoubleClicked, this, [this](int r, int c) {
        DoppioClicSchema(stato_, f_, r + 1, c);
        Mostra();
    });
    connect(memo_, &QListWidget::itemDoubleClicked, this, [this] {
        ModificaDiretta(false);
        Dopo();
    });
    if (urbano_)
        connect(urbano_, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) {
            ScegliDerivataUrbano(stato_, f_, urbano_->row(i), i->isSelected());
            Mostra();
        });

    ApriFrazionamento(stato_, f_);
    setWindowTitle(f_.Titolo);
    resize(1100, 720);
    RipristinaPosizioneForm(this, stato_, objectName());
    Mostra();
}

QPushButton* BV_Fraziona::Pulsante(const QString& caption) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == caption) return b;
    return nullptr;
}

void BV_Fraziona::Mostra() {
    aggiornando_ = true;
    const QList<QStringList>& g = f_.SchemaModello;
    schema_->setRowCount(std::max(0, int(g.size()) - 1));
    for (int i = 1; i < g.size(); ++i) {
        for (int c = 0; c < kColonneSchema; ++c) {
            QTableWidgetItem* cella = schema_->item(i - 1, c);
            if (!cella) {
                cella = new QTableWidgetItem;
                schema_->setItem(i - 1, c, cella);
            }
            cella->setText(g[i].value(c));
            cella->setBackground(ColoreCella(f_.Colore(i, c)));
        }
    }
    // Nine narrow columns: each as wide as its caption or its widest value, so that SR/SN, the
    // fixed area and the identifier are in sight without scrolling.
    schema_->resizeColumnsToContents();
    if (f_.RigaCorrente >= 1 && f_.RigaCorrente < g.size())
        schema_->setCurrentCell(f_.RigaCorrente - 1, std::max(0, schema_->currentColumn()));
    Riempi(anteprima_, f_.AnteprimaModello);
    Riempi(memo_, f_.Memo);
    Riempi(aree_, f_.AreeInProposta);
    Riempi(schemaProposta_, f_.SchemaProposta);
    if (urbano_) {
        Riempi(urbano_, f_.DerivateUrbano);
        for (int i = 0; i < urbano_->count(); ++i)
            urbano_->item(i)->setSelected(f_.UrbanoScelte.value(i));
    }
    if (numero_->text() != f_.NumeroCostituite) numero_->setText(f_.NumeroCostituite);
    if (area_->text() != f_.AreaProporzionale) {
        area_->setText(f_.AreaProporzionale);
        area_->selectAll();
    }
    etichettaArea_->setText(f_.EtichettaArea);
    mantieni_->setChecked(f_.MantieniNumero);
    aggiornando_ = false;
}

void BV_Fraziona::Dopo() {
    Mostra();
    if (f_.Chiudi) accept();
}

void BV_Fraziona::ModificaDiretta(bool scrivi) {
    PreparaModificaDiretta(stato_, f_, scrivi);
    BV_EditorGen::Esegui(stato_, kModificaDiretta, this);
    DopoModificaDiretta(stato_, f_);
}

bool BV_Fraziona::eventFilter(QObject* o, QEvent* e) {
    if (o == area_ && e->type() == QEvent::KeyPress) {
        const QString t = static_cast<QKeyEvent*>(e)->text();
        if (t.size() == 1 && TastoAreaProporzionale(stato_, f_, t.at(0))) {
            // The key turns into a blank, which changes the field and composes.
            area_->insert(QStringLiteral(" "));
            CambiaAreaProporzionale(stato_, f_, area_->text());
            Mostra();
            return true;
        }
    }
    return QDialog::eventFilter(o, e);
}

void BV_Fraziona::done(int r) {
    SalvaPosizioneForm(this, stato_, objectName());
    QDialog::done(r);
}

int BV_Fraziona::Esegui(Stato& stato, QWidget* parent) {
    return Esegui(stato, CampiParticella{}, kFrazionamento, parent);
}

int BV_Fraziona::Esegui(Stato& stato, const CampiParticella& particella, int tipoOperazione,
                        QWidget* parent) {
    BV_Fraziona schermo(stato, TipoSchema::Frazionamento, particella, tipoOperazione, parent);
    schermo.exec();
    return stato.EsitoDialogo;
}

BV_Stralcio::BV_Stralcio(Stato& stato, const CampiParticella& particella, QWidget* parent)
    : BV_Fraziona(stato, TipoSchema::Stralcio, particella, kFrazionamento, parent) {}

int BV_Stralcio::Esegui(Stato& stato, const CampiParticella& particella, QWidget* parent) {
    BV_Stralcio schermo(stato, particella, parent);
    schermo.exec();
    return stato.EsitoDialogo;
}

} // namespace tavolet
