#include "FormCatasto1TXT.h"

#include "BV_Comuni8.h"
#include "libretto.h"
#include "posizione.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

FormCatasto1TXT::FormCatasto1TXT(Stato& stato, QWidget* parent, bool perComando)
    : QDialog(parent), stato_(stato) {
    setObjectName(kNomeFormConfigurazione);
    setWindowTitle(kTitoloConfigurazione);
    RipristinaPosizioneForm(this, stato_, kNomeFormConfigurazione);
    f_ = ApriConfigurazione(stato_);
    f_.ApertaPerComando = perComando;
    f_.schermi.ApriComuni = [this](Stato& s) { return BV_Comuni8::Esegui(s, this); };

    auto* principale = new QHBoxLayout(this);
    auto* sinistra = new QVBoxLayout;
    principale->addLayout(sinistra, 3);

    // The fields of rows 0 and 9, the comment and the technician, with their lists beside.
    auto* riquadroCampi = new QGroupBox(QStringLiteral("Dati del Libretto"));
    auto* griglia = new QGridLayout(riquadroCampi);
    const QStringList& etichette = EtichetteCampi();
    const int ordine[] = {0, 1, 2, 3, 4, 8, 9, 10, 11, 12, 13, 14, 15, 5, 19, 6, 7, 16, 17, 18};
    int riga = 0;
    for (int i : ordine) {
        auto* campo = new QLineEdit;
        campo->setObjectName(QStringLiteral("Text1_%1").arg(i));
        campi_[size_t(i)] = campo;
        griglia->addWidget(new QLabel(etichette[i]), riga, 0);
        griglia->addWidget(campo, riga, 1);
        connect(campo, &QLineEdit::editingFinished, this, [this, i] {
            if (mostrando_) return;
            Leggi();
            EsciDalCampo(stato_, f_, i);
            Mostra();
        });
        ++riga;
    }
    for (int i : {9, 10, 12}) campi_[size_t(i)]->setReadOnly(true);
    for (QLineEdit* campo : campi_) campo->setMinimumWidth(240);
    griglia->setColumnStretch(1, 2);
    griglia->setColumnStretch(2, 1);
    auto combo = [&](int numero, int campo, bool modificabile) {
        auto* c = new QComboBox;
        c->setObjectName(QStringLiteral("Combo%1").arg(numero));
        c->setEditable(modificabile);
        combo_.insert(numero, c);
        for (int r = 0; r < griglia->rowCount(); ++r) {
            QLayoutItem* it = griglia->itemAtPosition(r, 1);
            if (it && it->widget() == campi_[size_t(campo)]) griglia->addWidget(c, r, 2);
        }
        return c;
    };
    QComboBox* c1 = combo(1, 6, false);
    c1->addItems(ElencoQualifiche());
    QComboBox* c2 = combo(2, 13, false);
    c2->addItems(ElencoTipologie());
    QComboBox* c6 = combo(6, 7, false);
    c6->addItems(f_.Province);
    combo(9, 14, true);
    combo(10, 15, true);
    for (int n : {1, 6, 9, 10}) {
        connect(combo_[n], &QComboBox::textActivated, this, [this, n](const QString& t) {
            if (mostrando_) return;
            Leggi();
            ScegliVoce(f_, n, t);
            Mostra();
        });
    }
    connect(c2, &QComboBox::activated, this, [this](int indice) {
        if (mostrando_) return;
        Leggi();
        ScegliTipologia(stato_, f_, indice);
        Mostra();
    });
    sinistra->addWidget(riquadroCampi);

    check1_ = new QCheckBox(QStringLiteral("Aggiorna su Pregeo.INI [Default di Pregeo ]"));
    check2_ =
        new QCheckBox(QStringLiteral("Aggiorna alla Data di Oggi in Automatico alla Conferma"));
    sinistra->addWidget(check1_);
    sinistra->addWidget(check2_);
    estratto_ = new QLabel;
    estratto_->setObjectName(QStringLiteral("EtichettaEstratto"));
    misurate_ = new QLabel;
    misurate2_ = new QLabel;
    sinistra->addWidget(estratto_);
    sinistra->addWidget(misurate_);
    sinistra->addWidget(misurate2_);

    auto* conferma = new QHBoxLayout;
    conferma->addWidget(NuovoComando(0, QStringLiteral("&Conferma")));
    conferma->addWidget(NuovoComando(1, QStringLiteral("&Annulla")));
    sinistra->addLayout(conferma);

    // The commands of the right side, in groups.
    auto* destra = new QVBoxLayout;
    principale->addLayout(destra, 2);
    auto gruppo = [&](const QString& titolo, const QList<std::pair<int, QString>>& voci) {
        auto* g = new QGroupBox(titolo);
        auto* l = new QGridLayout(g);
        int n = 0;
        for (const auto& [indice, caption] : voci) {
            l->addWidget(NuovoComando(indice, caption), n / 2, n % 2);
            ++n;
        }
        destra->addWidget(g);
        return g;
    };
    gruppo(QStringLiteral("Default"), {{2, QStringLiteral("Salva &Default")},
                                       {21, QStringLiteral("Carica Default")},
                                       {22, QStringLiteral("Elimina Default")},
                                       {3, QStringLiteral("Data di &Oggi")},
                                       {28, QStringLiteral("Protocollo")}});
    gruppo(QStringLiteral("Quote ed Est Medio"), {{4, QStringLiteral("da Righe8")},
                                                  {5, QStringLiteral("Da Archivio")},
                                                  {10, QStringLiteral("Archivio Quote Medie")},
                                                  {13, QStringLiteral("da Righe &8")}});
    gruppo(QStringLiteral("Estratto e Comuni"), {{6, QStringLiteral("Archivio Codici Comuni")},
                                                 {7, QStringLiteral("Copia dati da Estratto &EMP")},
                                                 {27, QStringLiteral("da Estratto.EMP")},
                                                 {18, QStringLiteral("&Disassocia Estratto")},
                                                 {23, QStringLiteral("Disassocia Misurate")},
                                                 {24, QStringLiteral("Seleziona Casistica")}});
    gruppo(QStringLiteral("Strumentazione"), {{9, QStringLiteral("Aggiungi all'Archivio")},
                                              {12, QStringLiteral("Aggiungi all'Archivio")},
                                              {16, QStringLiteral("Aggiungi")},
                                              {20, QStringLiteral("Elimina")}});
    gruppo(QStringLiteral("Commento"), {{11, QStringLiteral("Aggiungi all'Archivio")},
                                        {15, QStringLiteral("Aggiungi all'Archivio")},
                                        {17, QStringLiteral("Aggiungi")},
                                        {30, QStringLiteral("Elimina")}});
    for (int i : {9, 11}) comandi_[i]->setToolTip(QStringLiteral("In MAIUSCOLO"));
    for (int i : {12, 15}) comandi_[i]->setToolTip(QStringLiteral("in minuscolo"));
    auto* tecnici =
        gruppo(QStringLiteral("Tecnici"), {{14, QStringLiteral("Elimina Tecnico")},
                                           {19, QStringLiteral("Archivio Tecnici")},
                                           {26, QStringLiteral("Importa da Pregeo.INI")},
                                           {8, QStringLiteral("Nuovo Arch2.DB VUOTO")}});
    tecnici_ = new QListWidget;
    tecnici_->setObjectName(QStringLiteral("FileTecnici"));
    static_cast<QGridLayout*>(tecnici->layout())->addWidget(tecnici_, 2, 0, 1, 2);
    connect(tecnici_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        Leggi();
        ScegliFileTecnico(stato_, f_, item->text());
        Mostra();
    });
    destra->addStretch(1);

    comandi_[0]->setDefault(true);
    Mostra();
}

QPushButton* FormCatasto1TXT::NuovoComando(int indice, const QString& caption) {
    auto* b = new QPushButton(caption);
    b->setObjectName(QStringLiteral("Command1_%1").arg(indice));
    b->setAutoDefault(false);
    comandi_.insert(indice, b);
    connect(b, &QPushButton::clicked, this, [this, indice] { Esegui(indice); });
    return b;
}

void FormCatasto1TXT::Mostra() {
    mostrando_ = true;
    for (int i = 0; i < kCampiConfigurazione; ++i)
        if (campi_[size_t(i)]->text() != f_.Campi[size_t(i)])
            campi_[size_t(i)]->setText(f_.Campi[size_t(i)]);
    check1_->setChecked(f_.Check1);
    check2_->setChecked(f_.Check2);
    combo_[1]->setCurrentText(f_.TestoCombo1);
    combo_[2]->setCurrentIndex(f_.IndiceCombo2);
    combo_[6]->setCurrentText(f_.TestoCombo6);
    for (auto [n, voci, testo] : {std::tuple{9, &f_.Strumentazioni, &f_.TestoCombo9},
                                  std::tuple{10, &f_.Commenti, &f_.TestoCombo10}}) {
        QComboBox* c = combo_[n];
        QStringList attuali;
        for (int i = 0; i < c->count(); ++i) attuali << c->itemText(i);
        if (attuali != *voci) {
            c->clear();
            c->addItems(*voci);
        }
        c->setEditText(*testo);
    }
    QStringList nomi;
    for (int i = 0; i < tecnici_->count(); ++i) nomi << tecnici_->item(i)->text();
    if (nomi != f_.FileTecnici) {
        tecnici_->clear();
        tecnici_->addItems(f_.FileTecnici);
    }
    estratto_->setText(QStringLiteral("Estratto : ") + f_.EtichettaEstratto);
    misurate_->setText(QStringLiteral("Misurate : ") + f_.EtichettaMisurate);
    misurate2_->setText(f_.EtichettaMisurate2);
    mostrando_ = false;
}

void FormCatasto1TXT::Leggi() {
    for (int i = 0; i < kCampiConfigurazione; ++i) f_.Campi[size_t(i)] = campi_[size_t(i)]->text();
    f_.Check1 = check1_->isChecked();
    f_.Check2 = check2_->isChecked();
    f_.TestoCombo9 = combo_[9]->currentText();
    f_.TestoCombo10 = combo_[10]->currentText();
}

void FormCatasto1TXT::Esegui(int indice) {
    Leggi();
    const bool chiudi = ComandoConfigurazione(stato_, f_, indice);
    Mostra();
    if (chiudi) indice == 0 ? accept() : reject();
}

void FormCatasto1TXT::done(int r) {
    SalvaPosizioneForm(this, stato_, kNomeFormConfigurazione);
    QDialog::done(r);
}

int FormCatasto1TXT::Esegui(Stato& stato, QWidget* parent, bool perComando) {
    FormCatasto1TXT form(stato, parent, perComando);
    form.exec();
    return stato.EsitoDialogo;
}

} // namespace tavolet
