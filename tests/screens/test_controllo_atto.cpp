// "Controllo Atto" from the main form: the grid, the double click on a finding, Aggiorna,
// Esporta, and the question before "Salva in Pregeo" with the option on and off.
#include "BV_ControlloAtto.h"
#include "form_demo.h"
#include "schermi.h"

#include <QAction>
#include <QDir>
#include <QTableWidget>

#include <algorithm>

using namespace tavolet;
using namespace tavolet::test;

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
