// The commands of the main form, clicked by caption, on the demo libretto.
#include "BV_ControlloAtto.h"
#include "BV_EditorGen.h"
#include "form_demo.h"
#include "schermi.h"

#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>

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
    void Tasto(Qt::Key k, Qt::KeyboardModifiers m = Qt::ControlModifier) {
        // After a modal screen the window manager gives the form back its activation.
        QApplication::setActiveWindow(form.get());
        QTest::keyClick(form->Lista(), k, m);
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

TEST_F(ComandiForm, CtrlZDopoRiordinoEDopoTrascinamento) {
    const QStringList esempio = Voci(form->Lista());
    radice.Scrivi("C:\\Lavori\\COMPLETO.DAT", Dati("riordino/completo.dat"));
    // A real drop event on the list: only the first file counts.
    QMimeData dati;
    dati.setUrls({QUrl::fromLocalFile(PercorsoLocale("C:\\Lavori\\COMPLETO.DAT")),
                  QUrl::fromLocalFile("/x.doc")});
    p.risposte << Risposta::Si;
    ASSERT_TRUE(form->TrascinaDati(&dati));
    QTest::qWait(10);
    EXPECT_EQ(p.Domande(), QStringList{"Trascina Libretto: Sostituire il Libretto Esistente?"});
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\Lavori\\COMPLETO.DAT");
    EXPECT_EQ(Stato(), "Aperto C:\\Lavori\\COMPLETO.DAT");
    const QStringList caricate = Voci(form->Lista());
    ASSERT_NE(caricate, esempio);
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "G224");

    QTimer::singleShot(0, [] { Clic(QApplication::activeModalWidget(), "&Conferma"); });
    Clic(form.get(), "Ordina");
    const QStringList riordinate = Voci(form->Lista());
    ASSERT_NE(riordinate, caricate);
    EXPECT_EQ(Stato(), "Righe riordinate");

    Tasto(Qt::Key_Z);
    EXPECT_EQ(Voci(form->Lista()), caricate);
    // The drop is a step too: its libretto and its file name go back together.
    Tasto(Qt::Key_Z);
    EXPECT_EQ(Voci(form->Lista()), esempio);
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\LIBRETTI\\ESEMPIO.DAT");
    EXPECT_EQ(s.doc.NomeEstratto, "G693_0012.EMP");
    // The head comes back with rows 0 and 9: the title as before.
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "G693");
    EXPECT_TRUE(form->windowTitle().contains("[CF Comune : G693 - PIOVE DI SACCO]"));
    Tasto(Qt::Key_Y);
    Tasto(Qt::Key_Y);
    EXPECT_EQ(Voci(form->Lista()), riordinate);
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\Lavori\\COMPLETO.DAT");
}

// "Controllo Atto": the grid, the double click on a finding, Aggiorna, Esporta, and the question
// before "Salva in Pregeo" with the option on and off.
namespace {

struct ControlloDalForm : FormSuDemo {
    void SetUp() override {
        FormSuDemo::SetUp();
        // Point 9 of the second outline is neither observed nor given coordinates.
        QByteArray libretto = radice.Leggi("C:\\Libretti\\ESEMPIO.DAT");
        libretto.replace("7|4|1|5|3|4|N|", "7|4|1|5|3|9|N|");
        radice.Scrivi("C:\\Libretti\\ESEMPIO.DAT", libretto);
        Apri();
    }
};

TEST_F(ControlloDalForm, GrigliaDoppioClicAggiornaEsporta) {
    QAction* voce = form->Voce("Utilità", "Controllo Atto");
    ASSERT_NE(voce, nullptr);
    EXPECT_EQ(voce->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K));
    voce->trigger();
    BV_ControlloAtto* c = form->ControlloAtto();
    ASSERT_NE(c, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(c));
    // The unknown point and the extract's age (today is 15 January 2026); sorted by row.
    EXPECT_EQ(c->windowTitle(), "Controllo Atto - 2 errori, 2 avvisi");
    QTableWidget* g = c->Griglia();
    ASSERT_EQ(g->rowCount(), 4);
    EXPECT_EQ(g->horizontalHeaderItem(0)->text(), "Gravità");
    QStringList righe;
    for (int r = 0; r < g->rowCount(); ++r) righe << g->item(r, 1)->text() + g->item(r, 2)->text();
    EXPECT_EQ(righe,
              (QStringList{"0RELAZIONE", "0ESTRATTO_SCADUTO", "1DATA_PASSATA", "17PUNTO_IGNOTO"}));
    c->grab().save(QDir::tempPath() + "/tavolet_controllo_atto.png");

    const QPoint cella = g->visualItemRect(g->item(3, 3)).center();
    QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, cella);
    QTest::mouseDClick(g->viewport(), Qt::LeftButton, {}, cella);
    EXPECT_EQ(form->Lista()->currentRow(), 16);
    EXPECT_EQ(form->Lista()->selectedItems().size(), 1);
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{16});

    // The operator mends the row: "Aggiorna" finds the act without that fault.
    form->Lista()->item(16)->setText("7|4|1|5|3|4|N|");
    s.doc.RigheLibretto.Imposta(16, "7|4|1|5|3|4|N|");
    Clic(c, "Aggiorna");
    EXPECT_EQ(c->windowTitle(), "Controllo Atto - 1 errore, 2 avvisi");

    Clic(c, "Esporta");
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\ESEMPIO_CONTROLLO.TXT"),
              AWindows1252(TestoRapporto(c->Rilievi())));
    EXPECT_EQ(p.Messaggi().last(), "Controllo Atto: Controllo esportato in\r\n" +
                                       PercorsoRapporto(s.doc.PercorsoLibretto));
}

TEST_F(ControlloDalForm, SalvaInPregeoChiedeSeCiSonoErrori) {
    const QString domanda = "Controllo Atto: Il controllo dell'atto ha trovato 2 errori.\r\n"
                            "Salvare comunque?";
    auto avviati = [&] {
        return std::count_if(p.eventi.begin(), p.eventi.end(),
                             [](const Evento& e) { return e.tipo == "avvia"; });
    };
    // The default answer is No: the report stays on screen and Sarquad does not start.
    Clic(form.get(), "&Salva in Pregeo");
    EXPECT_EQ(p.Domande(), QStringList{domanda});
    EXPECT_EQ(avviati(), 0);
    ASSERT_NE(form->ControlloAtto(), nullptr);
    EXPECT_TRUE(form->ControlloAtto()->isVisible());
    p.risposte << Risposta::Si;
    Clic(form.get(), "&Salva in Pregeo");
    EXPECT_EQ(p.Domande().size(), 2);
    EXPECT_EQ(avviati(), 1);
    // With the option off nothing is asked.
    QListWidget* opzioni = form->OpzioniSalvataggio();
    opzioni->item(opzioni->count() - 1)->setCheckState(Qt::Unchecked);
    Clic(form.get(), "&Salva in Pregeo");
    EXPECT_EQ(p.Domande().size(), 2);
    EXPECT_EQ(avviati(), 2);
}

} // namespace
