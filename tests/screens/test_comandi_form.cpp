// The commands of the main form, clicked by caption, on the demo libretto.
#include "BV_EditorGen.h"
#include "form_demo.h"
#include "schermi.h"

#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct ComandiForm : FormAperto {
    QStringList Selezionate() const {
        QStringList r;
        for (QListWidgetItem* i : form->Lista()->selectedItems()) r << i->text();
        r.sort();
        return r;
    }
    // Runs passi on the editor that the next command opens.
    template <typename F> void SullEditor(F passi) {
        QTimer::singleShot(0, [passi] {
            auto* editor = qobject_cast<BV_EditorGen*>(QApplication::activeModalWidget());
            ASSERT_NE(editor, nullptr);
            passi(editor);
        });
    }
};

} // namespace

TEST_F(ComandiForm, PulsantiInertiOpzioniEPannello) {
    // Button 7 shows the sigla of the libretto's province; the inert buttons do nothing at all.
    EXPECT_EQ(form->Pulsante(7)->text(), "PD");
    const QString prima = s.doc.TestoLibretto;
    p.eventi.clear();
    for (int i : {1, 3, 7, 9, 21, 22, 23, 24}) Premi(form->Pulsante(i));
    EXPECT_EQ(s.doc.TestoLibretto, prima);
    EXPECT_TRUE(p.eventi.isEmpty());

    // The save options: eleven lines and the act's check behind them, all marked at start.
    QListWidget* opzioni = form->OpzioniSalvataggio();
    ASSERT_EQ(opzioni->count(), 12);
    EXPECT_EQ(opzioni->item(11)->text(), "Controlla l'atto prima del salvataggio in Pregeo");
    for (int i = 0; i < 12; ++i) EXPECT_EQ(opzioni->item(i)->checkState(), Qt::Checked);
    form->PulisciOpzioniSalvataggio();
    EXPECT_EQ(opzioni->item(4)->checkState(), Qt::Unchecked);
    form->SelezionaTutteOpzioni();
    EXPECT_EQ(opzioni->item(4)->checkState(), Qt::Checked);
    EXPECT_EQ(p.Impostazione("LIBRETTO_AUTOMATICO", "Riordino Righe"), "True");

    // "Utility" shows its panel; the pointer over another command hides it.
    QFrame* pannello = form->PannelloUtilita();
    EXPECT_FALSE(pannello->isVisible());
    Clic(form.get(), "Utility");
    EXPECT_TRUE(pannello->isVisible());
    form->grab().save(QDir::tempPath() + "/tavolet_form_utility.png");
    QEvent entra(QEvent::Enter);
    QApplication::sendEvent(form->Pulsante("Utility"), &entra);
    EXPECT_TRUE(pannello->isVisible());
    QApplication::sendEvent(form->Pulsante("Salva"), &entra);
    EXPECT_FALSE(pannello->isVisible());
}

TEST_F(ComandiForm, SelezioniCopiaEProgrammi) {
    Clic(form.get(), "Stazioni");
    EXPECT_EQ(Selezionate(),
              (QStringList{"1|100|1.550|Note: stazione su chiodo|", "1|200|1.520|"}));
    Clic(form.get(), "PF");
    EXPECT_EQ(Selezionate().size(), 4);
    Clic(form.get(), "Inverti");
    EXPECT_EQ(Selezionate().size(), form->Lista()->count() - 4);
    Clic(form.get(), "Copia");
    EXPECT_EQ(p.Messaggi().last(), "Copia Libretto: Il Libretto è stato copiato!");
    EXPECT_EQ(p.appunti.count("\r\n"), form->Lista()->count());
    form->Voce("Cambia", "Seleziona Contorni")->trigger();
    EXPECT_EQ(Selezionate(), (QStringList{"7|4|1|2|3|4|RC|", "7|4|1|5|3|4|N|"}));

    Clic(form.get(), "Pregeo");
    EXPECT_EQ(p.eventi.last().titolo, "C:\\Program Files (x86)\\Sarvento\\Dexaro.exe");
    // The demo's extract has expired: the check asks first, and "Si" saves all the same.
    p.risposte << Risposta::Si;
    Clic(form.get(), "&Salva in Pregeo");
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
}

TEST_F(ComandiForm, CancellaConLeRighe1e2Selezionate) {
    // Rows 0 and 9 stay whatever the selection.
    const int n = form->Lista()->count();
    for (int r : {0, 1, 3}) form->Lista()->item(r)->setSelected(true);
    p.risposte << Risposta::Si;
    form->Lista()->setFocus();
    QTest::keyClick(form->Lista(), Qt::Key_Delete);
    EXPECT_EQ(p.Domande(),
              QStringList{"Elimina righe dal Libretto: Eliminare le Righe selezionate?"});
    EXPECT_EQ(form->Lista()->count(), n - 1);
    EXPECT_TRUE(form->Lista()->item(0)->text().startsWith("0|15032024|"));
    EXPECT_TRUE(form->Lista()->item(1)->text().startsWith("9|"));
    EXPECT_FALSE(s.doc.TestoLibretto.contains("1|100|1.550|"));
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

TEST_F(ComandiForm, EditorConLaDomandaDiUscitaECtrlZ) {
    const QStringList originali = Voci(form->Lista());
    QStringList visti;
    SullEditor([&](BV_EditorGen* editor) {
        visti << editor->windowTitle();
        editor->Testo()->setPlainText("0|01012026|9|G224|0001|1|A B|G|PADOVA|\n9|1|\n\n  1|1|  \n");
        p.risposte << Risposta::Annulla << Risposta::Si;
        Premi(editor->Pulsante(5)); // &Annulla, then cancel: stays
        visti << (editor->isVisible() ? "aperto" : "chiuso");
        Premi(editor->Pulsante(6)); // TUTTO MAIUSCOLO
        Premi(editor->Pulsante(8)); // S&tampa
        Premi(editor->Pulsante(0)); // Salva e &Chiudi, yes
    });
    Clic(form.get(), "Modifica");
    EXPECT_EQ(visti, (QStringList{"Edit Libretto Misure : [24245]", "aperto"}));
    EXPECT_EQ(p.Domande(), (QStringList(2, "Uscita da Editor: Salvare Libretto modificato?")));
    EXPECT_EQ(p.eventi[p.eventi.size() - 2].tipo, "stampa");
    EXPECT_EQ(s.ModoEditor, 0);
    ASSERT_EQ(form->Lista()->count(), 3);
    EXPECT_EQ(form->Lista()->item(2)->text(), "1|1|");
    EXPECT_EQ(s.doc.TestoLibretto,
              "0|01012026|9|G224|0001|1|A B|G|PADOVA|\r\n9|1|\r\n\r\n  1|1|  \r\n");

    // "No" closes without storing; Enter on a row that is not 0 or 9 opens the editor too.
    SullEditor([&](BV_EditorGen* editor) {
        editor->Testo()->setPlainText("perso");
        p.risposte << Risposta::No;
        editor->close();
    });
    form->Lista()->setCurrentRow(2);
    QTest::keyClick(form->Lista(), Qt::Key_Return);
    EXPECT_EQ(form->Lista()->item(2)->text(), "1|1|");
    // What the editor stored is one step of undo.
    QApplication::setActiveWindow(form.get());
    QTest::keyClick(form->Lista(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Voci(form->Lista()), originali);
}
