// The commands of the main form, clicked by caption, on the demo libretto; its keys, its real
// question boxes and the desktop launchers.
#include "BV_ControlloAtto.h"
#include "BV_EditorGen.h"
#include "form_demo.h"
#include "piattaforma_qt.h"
#include "schermi.h"
#include "traduzioni.h"

#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct ComandiForm : FormAperto {
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

TEST_F(ComandiForm, PulsantiInertiOpzioniPannelloEProgrammi) {
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

    // The sibling programs, and the warning that comes with the automated cases.
    Clic(form.get(), "Pregeo");
    EXPECT_EQ(p.eventi.last().titolo, "C:\\Program Files (x86)\\Sarvento\\Dexaro.exe");
    form->Voce("Sarvento", "")->trigger();
    EXPECT_EQ(p.eventi.last().titolo, "C:\\Program Files (x86)\\Sarvento\\Sarquad.exe");
    form->Voce("Tipologie Automatizzate", "Informazioni generali - operative - garanzie")
        ->trigger();
    EXPECT_TRUE(
        p.Messaggi().last().startsWith("Informazioni generali - operative - garanzie: Si avvisa"));
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
    Tasto(Qt::Key_Z);
    EXPECT_EQ(Voci(form->Lista()), originali);

    // A store that cannot write its file: "Si" keeps the editor open with the report, "No"
    // closes it.
    s.GestoriEditor[kEditorStampe] = {
        [](tavolet::Stato&) { return QStringLiteral("modello"); },
        [](tavolet::Stato&, const QString& t) { ScriviTesto("C:\\Non\\Esiste\\STAMPA.TXT", t); }};
    bool apertoDopoSi = false;
    SullEditor([&](BV_EditorGen* editor) {
        p.risposte << Risposta::Si << Risposta::No;
        editor->close();
        apertoDopoSi = editor->isVisible();
        editor->close();
    });
    BV_EditorGen::Esegui(s, kEditorStampe, form.get());
    EXPECT_TRUE(apertoDopoSi);
    EXPECT_TRUE(p.Messaggi().last().endsWith("Nella Routine BV_EditorGen_Salva"));
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
    EXPECT_EQ(Stato(), "Aperto C:\\Lavori\\COMPLETO.DAT");
    const QStringList caricate = Voci(form->Lista());
    ASSERT_NE(caricate, esempio);
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "G224");

    QTimer::singleShot(0, [] { Clic(QApplication::activeModalWidget(), "&Conferma"); });
    Clic(form.get(), "Ordina");
    ASSERT_NE(Voci(form->Lista()), caricate);
    EXPECT_EQ(Stato(), "Righe riordinate");

    Tasto(Qt::Key_Z);
    EXPECT_EQ(Voci(form->Lista()), caricate);
    // The drop is a step too: its libretto and its file name go back together.
    Tasto(Qt::Key_Z);
    EXPECT_EQ(Voci(form->Lista()), esempio);
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\LIBRETTI\\ESEMPIO.DAT");
    // The head comes back with rows 0 and 9: the title as before.
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "G693");
    EXPECT_TRUE(form->windowTitle().contains("[CF Comune : G693 - PIOVE DI SACCO]"));
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

TEST_F(ControlloDalForm, SalvaInPregeoGrigliaDoppioClicAggiornaEsporta) {
    auto avviati = [&] {
        return std::count_if(p.eventi.begin(), p.eventi.end(),
                             [](const Evento& e) { return e.tipo == "avvia"; });
    };
    // With errors "Salva in Pregeo" asks first; the default answer, No, leaves the report on
    // screen and Sarquad not started.
    Clic(form.get(), "&Salva in Pregeo");
    EXPECT_EQ(p.Domande(), QStringList{"Controllo Atto: Il controllo dell'atto ha trovato 2 "
                                       "errori.\r\nSalvare comunque?"});
    EXPECT_EQ(avviati(), 0);
    BV_ControlloAtto* c = form->ControlloAtto();
    ASSERT_NE(c, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(c));
    QAction* voce = form->Voce("Utilità", "Controllo Atto");
    EXPECT_EQ(voce->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K));
    voce->trigger();
    EXPECT_EQ(form->ControlloAtto(), c);
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

    // "Si" saves all the same; with the option off nothing is asked.
    p.risposte << Risposta::Si;
    Clic(form.get(), "&Salva in Pregeo");
    EXPECT_EQ(p.Domande().size(), 2);
    EXPECT_EQ(avviati(), 1);
    QListWidget* opzioni = form->OpzioniSalvataggio();
    opzioni->item(opzioni->count() - 1)->setCheckState(Qt::Unchecked);
    Clic(form.get(), "&Salva in Pregeo");
    EXPECT_EQ(p.Domande().size(), 2);
    EXPECT_EQ(avviati(), 2);
}

} // namespace

// What a desktop user meets without thinking: Italian standard buttons, Ctrl+C, Ctrl+F, F1, the
// status bar that says what the last command did, and desktop launchers.
namespace {

using Scorciatoie = FormAperto;

// Answers the real question box that the next command opens with that key.
void RispondiCon(Qt::Key tasto, QStringList* visti = nullptr) {
    QTimer::singleShot(0, [=] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        if (visti)
            *visti << box->windowTitle() << box->text() << box->button(QMessageBox::Yes)->text()
                   << box->button(QMessageBox::No)->text() << box->defaultButton()->text();
        QTest::keyClick(box, tasto);
    });
}

} // namespace

TEST(TraduzioniItaliane, DomandeConSiNoEAnnulla) {
    ASSERT_TRUE(InstallaTraduzioniItaliane());
    PiattaformaQt qt;
    EXPECT_TRUE(qt.Adesso().isValid());
    // The real question box: its standard buttons in Italian, "S" answers yes, "N" no.
    QStringList visti;
    RispondiCon(Qt::Key_S, &visti);
    const QString domanda = "Eliminare le Righe selezionate?",
                  titolo = "Elimina righe dal Libretto";
    EXPECT_EQ(qt.Domanda(domanda, titolo, Pulsanti::SiNo, Risposta::No), Risposta::Si);
    EXPECT_EQ(visti, (QStringList{titolo, domanda, "&Sì", "&No", "&No"}));
    RispondiCon(Qt::Key_N);
    EXPECT_EQ(qt.Domanda(domanda, titolo, Pulsanti::SiNo, Risposta::Si), Risposta::No);
    // Annulla on a three-button question.
    QString annulla;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        annulla = box->button(QMessageBox::Cancel)->text();
        box->button(QMessageBox::Cancel)->click();
    });
    EXPECT_EQ(qt.Domanda("Salvare?", "Uscita da Editor", Pulsanti::SiNoAnnulla, Risposta::Si),
              Risposta::Annulla);
    EXPECT_EQ(annulla, "Annulla");
}
TEST_F(Scorciatoie, CtrlCCtrlFF1) {
    QTest::keyClick(form->Lista(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(p.Messaggi(), QStringList{"Copia Libretto: Il Libretto è stato copiato!"});
    EXPECT_TRUE(p.appunti.startsWith("0|15032024|245|G693|"));
    EXPECT_EQ(Stato(), "Libretto copiato negli appunti: 24 righe");

    // Ctrl+F: the find field; Enter selects the next row holding the text, case ignored.
    QTest::keyClick(form.get(), Qt::Key_F, Qt::ControlModifier);
    QLineEdit* trova = form->CampoTrova();
    EXPECT_TRUE(trova->hasFocus());
    QTest::keyClicks(trova, "pf05");
    QTest::keyClick(trova, Qt::Key_Return);
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{12});
    EXPECT_EQ(form->Contatore()->text(), "13 / 24");
    EXPECT_EQ(Stato(), "Trovato alla riga 13 di 24");
    trova->setText("zzz");
    QTest::keyClick(trova, Qt::Key_Return);
    EXPECT_EQ(Stato(), "Nessuna riga contiene \"zzz\"");
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{12});

    // F1: the information on version and folders.
    form->Lista()->setFocus();
    QString informazioni;
    QTimer::singleShot(0, [&] {
        QWidget* modale = QApplication::activeModalWidget();
        ASSERT_NE(modale, nullptr);
        if (auto* elenco = modale->findChild<QPlainTextEdit*>("Elenco"))
            informazioni = elenco->toPlainText();
        modale->close();
    });
    QTest::keyClick(form.get(), Qt::Key_F1);
    EXPECT_TRUE(informazioni.contains("Elenco Cartelle utilizzate da Tavolet"));
    EXPECT_EQ(p.Messaggi().size(), 1);
}

TEST(PiattaformaQtProva, CollegamentiComeLanciatoriDelDesktop) {
    RadiceProva radice;
    QTemporaryDir casa;
    const QByteArray vecchiaCasa = qgetenv("HOME"), vecchiDati = qgetenv("XDG_DATA_HOME");
    qputenv("HOME", casa.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", (casa.path() + "/.local/share").toLocal8Bit());
    PiattaformaQt p;
    const QString nome = "PREGEO 10.00-G APAG 2.12";
    ASSERT_TRUE(
        p.CreaCollegamento(LuogoCollegamento::Desktop, nome, "C:\\PREGEO\\EXE\\PREGEO.EXE"));
    ASSERT_TRUE(
        p.CreaCollegamento(LuogoCollegamento::MenuProgrammi, nome, "C:\\PREGEO\\EXE\\PREGEO.EXE"));
    QDir().mkpath(radice.Percorso() + "/drive_c/PREGEO");
    ASSERT_TRUE(p.CreaCollegamento(LuogoCollegamento::Desktop, "PREGEO", "C:\\PREGEO"));
    qputenv("HOME", vecchiaCasa);
    if (vecchiDati.isEmpty())
        qunsetenv("XDG_DATA_HOME");
    else
        qputenv("XDG_DATA_HOME", vecchiDati);

    const QString programma = casa.path() + "/Desktop/" + nome + ".desktop";
    const QString voce = QString::fromUtf8(LeggiFile(programma));
    EXPECT_TRUE(voce.startsWith("[Desktop Entry]\nName=" + nome + "\nType=Application\n"));
    // The backslashes of a quoted argument are written four times in a launcher.
    EXPECT_TRUE(voce.contains("Exec=env WINEPREFIX=\"" + radice.Percorso() +
                              "\" wine \"C:\\\\\\\\PREGEO\\\\\\\\EXE\\\\\\\\PREGEO.EXE\"\n"))
        << voce.toStdString();
    EXPECT_TRUE(QFile::permissions(programma) & QFileDevice::ExeOwner);
    EXPECT_TRUE(QFile::exists(casa.path() + "/.local/share/applications/" + nome + ".desktop"));
    EXPECT_EQ(QString::fromUtf8(LeggiFile(casa.path() + "/Desktop/PREGEO.desktop")),
              "[Desktop Entry]\nName=PREGEO\nType=Link\nURL=file://" + radice.Percorso() +
                  "/drive_c/PREGEO\n");
}
