// The commands of the main form, clicked by caption, on the demo libretto.
#include "BV_EditorGen.h"
#include "form_demo.h"
#include "libretto.h"
#include "piattaforma_finta.h"
#include "riordino.h"
#include "supporto.h"

#include <QAction>
#include <QDir>
#include <QDirIterator>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct ComandiForm : FormSuDemo {
    void SetUp() override {
        FormSuDemo::SetUp();
        Apri();
    }
    void Clic(const QString& caption) {
        QPushButton* b = form->Pulsante(caption);
        ASSERT_NE(b, nullptr) << caption.toStdString();
        QTest::mouseClick(b, Qt::LeftButton);
    }
    void Seleziona(const QList<int>& righe) {
        QListWidget* l = form->Lista();
        l->clearSelection();
        for (int r : righe) l->item(r)->setSelected(true);
    }
    QStringList Selezionate() const {
        QStringList r;
        for (QListWidgetItem* i : form->Lista()->selectedItems()) r << i->text();
        r.sort();
        return r;
    }
};

} // namespace

TEST_F(ComandiForm, PulsantiConCaptionESuggerimento) {
    const QList<std::tuple<int, QString, QString>> attesi = {
        {4, "Salva", "Salva Libretto"},
        {5, "[VRS] -", "ELIMINA [VRS]"},
        {6, "Pregeo", "Attiva Pregeo"},
        {10, "Nuovo", "Nuovo Libretto Vuoto"},
        {11, "[VRS] +", "Assegna [VRS]"},
        {14, "Ordina", "Riordino Righe"},
        {16, "Modifica", "Modifica Diretta del Libretto"},
        {17, "Censuario", "Compila Censuario/Archivio Particelle"},
        {18, "Estratti", "Gestione Estratti di Mappa"},
        {20, "&Salva in Pregeo", ""},
        {25, "Utility", "Utilità Catastali"},
        {27, "Stazioni", ""},
        {28, "PF", ""},
        {30, "Inverti", ""},
        {31, "Copia", "Copia negli Appunti di Windows"},
        {1, "P. Importa", ""},
        {3, "Stampa", ""},
        {9, "Da File", ""},
        {21, "Da Pregeo", ""},
        {22, "Importa Da Estratto", ""},
        {23, "Kill Pregeo", ""},
        {24, "Trova nel Libretto :", ""}};
    for (const auto& [indice, caption, hint] : attesi) {
        QPushButton* b = form->Pulsante(indice);
        ASSERT_NE(b, nullptr) << indice;
        EXPECT_EQ(b->text(), caption);
        EXPECT_EQ(b->toolTip(), hint) << caption.toStdString();
        EXPECT_TRUE(b->isVisible());
    }
    // Button 7 shows the sigla of the libretto's province.
    EXPECT_EQ(form->Pulsante(7)->text(), "PD");
    // The inert buttons do nothing at all.
    const QString prima = s.doc.TestoLibretto;
    p.eventi.clear();
    for (int i : {1, 3, 7, 9, 21, 22, 23, 24}) QTest::mouseClick(form->Pulsante(i), Qt::LeftButton);
    EXPECT_EQ(s.doc.TestoLibretto, prima);
    EXPECT_TRUE(p.eventi.isEmpty());

    // The save options: eleven lines and the act's check behind them, all marked at start.
    QListWidget* opzioni = form->OpzioniSalvataggio();
    ASSERT_EQ(opzioni->count(), 12);
    EXPECT_EQ(opzioni->item(0)->text(), "Avvisa Protocollo NON Numerico");
    EXPECT_EQ(opzioni->item(10)->text(), "Attiva Pregeo");
    EXPECT_EQ(opzioni->item(11)->text(), "Controlla l'atto prima del salvataggio in Pregeo");
    for (int i = 0; i < 12; ++i) EXPECT_EQ(opzioni->item(i)->checkState(), Qt::Checked);
    form->PulisciOpzioniSalvataggio();
    EXPECT_EQ(opzioni->item(4)->checkState(), Qt::Unchecked);
    form->SelezionaTutteOpzioni();
    EXPECT_EQ(opzioni->item(4)->checkState(), Qt::Checked);
    EXPECT_EQ(p.Impostazione("LIBRETTO_AUTOMATICO", "Riordino Righe"), "True");

    form->grab().save(QDir::tempPath() + "/tavolet_form_1280x800.png");
}

TEST_F(ComandiForm, PannelloUtilitaENascondeAlPassaggio) {
    QFrame* pannello = form->PannelloUtilita();
    EXPECT_FALSE(pannello->isVisible());
    Clic("Utility");
    EXPECT_TRUE(pannello->isVisible());
    EXPECT_NE(form->Pulsante("Configura Pregeo"), nullptr);
    EXPECT_EQ(form->Pulsante("Esamina Proposta")->toolTip(),
              "Esamina/Corregge Proposta di Aggiornamento");
    form->grab().save(QDir::tempPath() + "/tavolet_form_utility.png");
    QEvent entra(QEvent::Enter);
    QApplication::sendEvent(form->Pulsante("Utility"), &entra);
    EXPECT_TRUE(pannello->isVisible());
    QApplication::sendEvent(form->Pulsante("Salva"), &entra);
    EXPECT_FALSE(pannello->isVisible());
}

TEST_F(ComandiForm, SelezioniCopiaEProgrammi) {
    Clic("Stazioni");
    EXPECT_EQ(Selezionate(),
              (QStringList{"1|100|1.550|Note: stazione su chiodo|", "1|200|1.520|"}));
    Clic("PF");
    EXPECT_EQ(Selezionate().size(), 4);
    Clic("Inverti");
    EXPECT_EQ(Selezionate().size(), form->Lista()->count() - 4);
    Clic("Copia");
    EXPECT_EQ(p.Messaggi().last(), "Copia Libretto: Il Libretto è stato copiato!");
    EXPECT_EQ(p.appunti.count("\r\n"), form->Lista()->count());

    form->Voce("Cambia", "Seleziona Contorni")->trigger();
    EXPECT_EQ(Selezionate(), (QStringList{"7|4|1|2|3|4|RC|", "7|4|1|5|3|4|N|"}));

    Clic("Pregeo");
    EXPECT_EQ(p.eventi.last().titolo, "C:\\Program Files (x86)\\Sarvento\\Dexaro.exe");
    // The demo's extract has expired: the check asks first, and "Si" saves all the same.
    p.risposte << Risposta::Si;
    Clic("&Salva in Pregeo");
    EXPECT_EQ(p.eventi.last().titolo, "C:\\Program Files (x86)\\Sarvento\\Sarquad.exe");
    form->Voce("Sarvento", "")->trigger();
    EXPECT_EQ(p.eventi.last().tipo, "avvia");
    p.processiAttivi = {"fire.exe"};
    form->Voce("     &File    ", "Kill Pregeo")->trigger();
    EXPECT_EQ(p.Messaggi().last(), "Kill Pregeo: Il programma fire.exe è stato terminato!");
    form->Voce("Tipologie Automatizzate", "Informazioni generali - operative - garanzie")
        ->trigger();
    EXPECT_TRUE(
        p.Messaggi().last().startsWith("Informazioni generali - operative - garanzie: Si avvisa"));
    form->Voce("&?", "@ WEB")->trigger();
    EXPECT_EQ(p.eventi.last().tipo, "apriconprogramma");
    for (const char* voce : {"Apri Libretto da Pregeo", "Apri Libretto da File",
                             "Ripristina da Archivio Libretti", "Stampa Libretto"})
        EXPECT_NE(form->Voce("     &File    ", voce), nullptr) << voce;
}

TEST_F(ComandiForm, CancellaConLeRighe1e2Selezionate) {
    const int n = form->Lista()->count();
    Seleziona({0, 1, 3});
    p.risposte << Risposta::Si;
    form->Lista()->setFocus();
    QTest::keyClick(form->Lista(), Qt::Key_Delete);
    EXPECT_EQ(p.Domande(),
              QStringList{"Elimina righe dal Libretto: Eliminare le Righe selezionate?"});
    EXPECT_EQ(form->Lista()->count(), n - 1);
    EXPECT_TRUE(form->Lista()->item(0)->text().startsWith("0|15032024|"));
    EXPECT_TRUE(form->Lista()->item(1)->text().startsWith("9|"));
    EXPECT_EQ(form->Lista()->item(2)->text(),
              "6|Frazionamento della particella 145 per cessione a terzi|");
    EXPECT_FALSE(s.doc.TestoLibretto.contains("1|100|1.550|"));
    EXPECT_EQ(form->Contatore()->text().section(" / ", 1), QString::number(n - 1));
}

TEST_F(ComandiForm, DaExcelELibrettoPerCoordinate) {
    const int n = form->Lista()->count();
    p.appunti = "50\t1,5\t2,5\r\n51\t3\t4\r\n";
    form->Voce("Da Excel", "Righe 8 - (P, N, E)")->trigger();
    EXPECT_EQ(form->Lista()->count(), n + 2);
    EXPECT_EQ(form->Lista()->item(n)->text(), "2|50|1.5|2.5|");
    p.appunti = "50\t1,5\t2,5\r\n51\t3\t4";
    form->Voce("Da Excel", "Righe 8 Nome Auto (N, E)")->trigger();
    EXPECT_EQ(form->Lista()->count(), n + 3);
    EXPECT_EQ(form->Lista()->item(n + 2)->text(), "2|1|50|1.5|2.5|");

    p.appunti = "  7   10.000  +/-  0.010   20.000  +/-  0.010\r\n";
    form->Voce("Tipologie Automatizzate", "Libretto per coordinate da Elaborazione Pregeo")
        ->trigger();
    // A document of one row gets row 9 behind it first, then rows 0 and 9 in front: the
    // list then holds row 9 twice, as the list has always been rebuilt.
    ASSERT_EQ(form->Lista()->count(), 4);
    EXPECT_EQ(form->Lista()->item(2)->text(), "8|7|10.000|0.010|");
    EXPECT_EQ(form->Lista()->item(3)->text(), form->Lista()->item(1)->text());
}

TEST_F(ComandiForm, EditorConLaDomandaDiUscita) {
    // The editor is modal: the steps run when it is on screen.
    QStringList visti;
    QTimer::singleShot(0, [&] {
        auto* editor = qobject_cast<BV_EditorGen*>(QApplication::activeModalWidget());
        ASSERT_NE(editor, nullptr);
        visti << editor->windowTitle();
        editor->Testo()->setPlainText("0|01012026|9|G224|0001|1|A B|G|PADOVA|\n9|1|\n\n  1|1|  \n");
        p.risposte << Risposta::Annulla << Risposta::Si;
        QTest::mouseClick(editor->Pulsante(5), Qt::LeftButton); // &Annulla, then cancel: stays
        visti << (editor->isVisible() ? "aperto" : "chiuso");
        QTest::mouseClick(editor->Pulsante(6), Qt::LeftButton); // TUTTO MAIUSCOLO
        QTest::mouseClick(editor->Pulsante(8), Qt::LeftButton); // S&tampa
        QTest::mouseClick(editor->Pulsante(0), Qt::LeftButton); // Salva e &Chiudi, yes
    });
    Clic("Modifica");
    EXPECT_EQ(visti, (QStringList{"Edit Libretto Misure : [24245]", "aperto"}));
    EXPECT_EQ(p.Domande(), (QStringList{"Uscita da Editor: Salvare Libretto modificato?",
                                        "Uscita da Editor: Salvare Libretto modificato?"}));
    EXPECT_EQ(p.eventi[p.eventi.size() - 2].tipo, "stampa");
    EXPECT_EQ(s.ModoEditor, 0);
    ASSERT_EQ(form->Lista()->count(), 3);
    EXPECT_EQ(form->Lista()->item(2)->text(), "1|1|");
    EXPECT_EQ(s.doc.TestoLibretto,
              "0|01012026|9|G224|0001|1|A B|G|PADOVA|\r\n9|1|\r\n\r\n  1|1|  \r\n");

    // "No" closes without storing; Enter on a row that is not 0 or 9 opens the editor too.
    QTimer::singleShot(0, [&] {
        auto* editor = qobject_cast<BV_EditorGen*>(QApplication::activeModalWidget());
        ASSERT_NE(editor, nullptr);
        editor->Testo()->setPlainText("perso");
        p.risposte << Risposta::No;
        editor->close();
    });
    form->Lista()->setCurrentRow(2);
    QTest::keyClick(form->Lista(), Qt::Key_Return);
    EXPECT_EQ(form->Lista()->item(2)->text(), "1|1|");
}
