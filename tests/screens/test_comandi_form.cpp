// The main form on the demo libretto: its commands clicked by caption, its keys, the real
// question boxes in Italian, the desktop launchers; and no work lost to a click (closing saves,
// a save that fails keeps the form open, kept versions, commands that would empty the libretto,
// files that are not libretti, file dialogs, windows that fit the screen, the wait for a helper).
#include "BV_ControlloAtto.h"
#include "BV_EditorGen.h"
#include "BV_ElcoPfGriglia.h"
#include "BV_EstrattiDiMappa1.h"
#include "BV_Fraziona.h"
#include "FormStorico.h"
#include "casistiche.h"
#include "censuario.h"
#include "form_demo.h"
#include "piattaforma_qt.h"
#include "protezioni.h"
#include "schermi.h"
#include "schermo.h"
#include "stampa.h"
#include "traduzioni.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QFrame>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScreen>
#include <QStandardPaths>
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

// "Controllo Atto": the question before "Salva in Pregeo" with the option on and off, the grid,
// the double click on a finding, Aggiorna, Esporta.
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

const QString kEsempio = QStringLiteral("C:\\Libretti\\ESEMPIO.DAT");

// Runs azione on the modal screen that the next command opens.
template <typename F> void SulModale(F azione) {
    QTimer::singleShot(0, [azione] {
        QWidget* m = QApplication::activeModalWidget();
        ASSERT_NE(m, nullptr);
        azione(m);
    });
}

// The scripted platform that also keeps the filter of every file dialog, by its title.
struct PiattaformaConFiltri : PiattaformaFinta {
    QList<std::pair<QString, QString>> dialoghi;
    QString ApriFile(const QString& titolo, const QString& cartella,
                     const QString& filtro) override {
        dialoghi.append({titolo, filtro});
        return PiattaformaFinta::ApriFile(titolo, cartella, filtro);
    }
    QString SalvaFile(const QString& titolo, const QString& cartella, const QString& nome,
                      const QString& filtro) override {
        dialoghi.append({titolo, filtro});
        return PiattaformaFinta::SalvaFile(titolo, cartella, nome, filtro);
    }
};

// The captions a window cuts at the size it has: buttons narrower than their text, check boxes
// and radio buttons narrower than their own hint, table headers narrower than their caption.
QStringList Tagliate(QWidget* w) {
    QStringList tagliate;
    for (QAbstractButton* b : w->findChildren<QAbstractButton*>()) {
        if (!b->isVisibleTo(w) || b->text().isEmpty()) continue;
        const QString testo = QString(b->text()).remove('&');
        const bool spunta = qobject_cast<QCheckBox*>(b) || qobject_cast<QRadioButton*>(b);
        const int serve =
            spunta ? b->sizeHint().width() : b->fontMetrics().horizontalAdvance(testo) + 4;
        if (b->width() < serve) tagliate << testo;
    }
    for (QHeaderView* h : w->findChildren<QHeaderView*>()) {
        if (!h->isVisibleTo(w) || h->orientation() != Qt::Horizontal) continue;
        for (int c = 0; c < h->count(); ++c) {
            const QString testo = h->model()->headerData(c, Qt::Horizontal).toString();
            if (!h->isSectionHidden(c) && !testo.isEmpty() &&
                h->sectionSize(c) < h->fontMetrics().horizontalAdvance(testo) + 4)
                tagliate << testo;
        }
    }
    return tagliate;
}

// A screen at its opening size: inside the screen, every caption whole, and its picture kept.
void Guarda(QWidget* w, const QString& nome) {
    w->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(w));
    QApplication::processEvents();
    const QRect area = w->screen()->availableGeometry();
    w->grab().save(QDir::temp().filePath(QString("tavolet_%1_%2x%3.png")
                                             .arg(nome)
                                             .arg(w->screen()->geometry().width())
                                             .arg(w->screen()->geometry().height())));
    EXPECT_TRUE(area.contains(w->frameGeometry()))
        << nome.toStdString() << ' ' << w->frameGeometry().width() << 'x'
        << w->frameGeometry().height();
    EXPECT_EQ(Tagliate(w), QStringList()) << nome.toStdString();
}

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

    // A selection says how many rows it took; Delete, answered yes, takes them away.
    Clic(form.get(), "Stazioni");
    EXPECT_EQ(Stato(), "2 righe selezionate");
    p.risposte << Risposta::Si;
    Tasto(Qt::Key_Delete, Qt::NoModifier);
    EXPECT_EQ(form->Lista()->count(), 22);
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
    EXPECT_TRUE(form->windowTitle().contains("[CF Comune : G693 - PIOVE DI SACCO]"));
}

TEST(TraduzioniItaliane, DomandeConSiNoEAnnulla) {
    ASSERT_TRUE(InstallaTraduzioniItaliane());
    PiattaformaQt qt;
    EXPECT_TRUE(static_cast<Piattaforma&>(qt).Adesso().isValid());
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

TEST_F(FormSuDemo, StoricoRipristinaLaTerzultimaEAnnulla) {
    Apri();
    // Four saves of four different documents: each keeps the one before among the versions.
    QList<QStringList> salvati;
    for (int i = 0; i < 4; ++i) {
        p.adesso = p.adesso.addSecs(60);
        p.appunti = QString("1|%1|1.5|\r\n2|%1|0|10|\r\n").arg(100 + i);
        form->Voce("Da Excel", "Righe Complete")->trigger();
        salvati << Voci(form->Lista());
        form->Voce("     &File    ", "&Salva")->trigger();
    }
    const QStringList attuali = Voci(form->Lista());
    const QString percorso = s.doc.PercorsoLibretto;
    const QByteArray suDisco = radice.Leggi(kEsempio);

    SulModale([&](QWidget* m) {
        auto* f = qobject_cast<FormStorico*>(m);
        ASSERT_NE(f, nullptr);
        QTableWidget* t = f->Versioni();
        ASSERT_EQ(t->rowCount(), 4);
        EXPECT_EQ(t->item(0, 1)->text().toInt(), salvati[2].size());
        EXPECT_EQ(t->editTriggers(), QAbstractItemView::NoEditTriggers);
        t->setCurrentCell(2, 0);
        EXPECT_TRUE(f->Righe()->isReadOnly());
        EXPECT_EQ(f->Righe()->toPlainText().split('\n').mid(0, salvati[0].size()), salvati[0]);
        f->grab().save(QDir::temp().filePath("tavolet_storico.png"));
        Clic(f, "Ripristina");
    });
    form->Voce("Utilità", "Ricarica da Storico")->trigger();
    // The third newest version is the document after the first save; the file is unchanged.
    EXPECT_EQ(Voci(form->Lista()), salvati[0]);
    EXPECT_EQ(s.doc.PercorsoLibretto, percorso);
    EXPECT_EQ(radice.Leggi(kEsempio), suDisco);
    QApplication::setActiveWindow(form.get());
    QTest::keyClick(form->Lista(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Voci(form->Lista()), attuali);
}

TEST_F(FormSuDemo, NessunComandoSvuotaIlLibretto) {
    Apri();
    const QStringList prima = Voci(form->Lista());
    const QByteArray originale = radice.Leggi(kEsempio);
    // A clipboard without a line of coordinates, an empty one, a text of no rows at all.
    for (const QString& appunti : {QString("Nessuna coordinata qui\r\n"), QString(),
                                   QString("0|solo testata|\r\n9|x|\r\n")}) {
        p.appunti = appunti;
        form->Voce("Tipologie Automatizzate", "Libretto per coordinate da Elaborazione Pregeo")
            ->trigger();
        form->Voce("Modifica Libretto", "Incolla da Appunti")->trigger();
        EXPECT_EQ(Voci(form->Lista()), prima);
    }
    EXPECT_EQ(p.Messaggi(), QStringList(6, "Tavolet: Nessun dato trovato in memoria!"));

    // "Nuovo", its head dialog closed, then the close: nothing is written over the old file;
    // the first save asks for a name.
    SulModale([](QWidget* m) { m->close(); });
    Clic(form.get(), "Nuovo");
    EXPECT_EQ(s.doc.PercorsoLibretto, "");
    EXPECT_TRUE(form->close());
    EXPECT_EQ(p.eventi.last().tipo, "salva");
    EXPECT_EQ(radice.Leggi(kEsempio), originale);
}

TEST_F(FormSuDemo, FileCheNonELibrettoChiede) {
    Apri();
    const QStringList prima = Voci(form->Lista());
    QByteArray binario(4096, '\0');
    for (int i = 0; i < binario.size(); ++i) binario[i] = char((i * 7919) % 256);
    radice.Scrivi("C:\\Libretti\\DATI.DAT", binario);
    radice.Scrivi("C:\\Libretti\\LETTERA.TXT", "Gentile geometra,\r\nin allegato\r\n1|2|\r\n");
    // A short libretto without rows 0 and 9 loads with no question.
    radice.Scrivi("C:\\Libretti\\CORTO.DAT", "1|100|1.5|\r\n2|1|0|10|\r\nNOTA\r\n");
    const QString domanda =
        "Trascina Libretto: Il file non sembra un libretto di Pregeo. Caricarlo comunque?";
    for (const char* nome : {"DATI.DAT", "LETTERA.TXT"}) {
        p.risposte = {Risposta::Si}; // replace the libretto; then the default, No
        form->Trascina(QString("C:\\Libretti\\") + nome);
        EXPECT_EQ(p.Domande().last(), domanda) << nome;
        EXPECT_EQ(Voci(form->Lista()), prima) << nome;
    }
    EXPECT_EQ(p.Domande().size(), 4);
    form->Trascina("C:\\Libretti\\CORTO.DAT");
    EXPECT_EQ(p.Domande().size(), 5);
    EXPECT_EQ(form->Lista()->count(), 5);
    // Yes to both questions loads it anyway.
    p.risposte = {Risposta::Si, Risposta::Si};
    form->Trascina("C:\\Libretti\\LETTERA.TXT");
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\Libretti\\LETTERA.TXT");
}

// Every file dialog of the program lists, under each of its filters, the files of those
// extensions whatever their case, and nothing else.
TEST(DialoghiFile, OgniDialogoElencaISuoiFile) {
    RadiceProva radice;
    CopiaDemo(radice.Percorso());
    PiattaformaConFiltri p;
    Stato s{p};
    InstallaEstratti(s);
    Inizializza(s);
    BV_LibrettoOriginale form(s);
    ASSERT_TRUE(form.Carica(kEsempio));
    // Each command that opens a dialog, the platform keeping title and filter.
    form.ApriComeTrascinamento();
    EsportaLibrettoInFile(s);
    SelezionaVisualizzatore(s);
    Casistica caso;
    GeneraLibrettoDaPoliLineeDXF(s, caso, QString());
    BV_EstrattiDiMappa1 estratti(s);
    estratti.show();
    estratti.Lista()->setCurrentRow(0);
    Clic(&estratti, "Estratto da CXF");
    Clic(&estratti, "Esporta Estratto");
    for (QPushButton* b : estratti.findChildren<QPushButton*>())
        if (b->toolTip() == "Importa Estratto") Premi(b);

    const QStringList nomi = {"a.emp", "B.EMP", "c.Png", "D.ZIP", "e.cxf", "F.DXF",
                              "g.exe", "h.dat", "I.TXT", "j.lxb", "k.pdf", "l.doc"};
    QTemporaryDir cartella;
    for (const QString& n : nomi) {
        QFile f(cartella.filePath(n));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("x");
    }
    // What each dialog, by its title, lists under each of its filters.
    const QMap<QString, QList<QStringList>> attesi = {
        {"Apri Libretto", {{"h.dat", "I.TXT", "j.lxb", "k.pdf"}, nomi}},
        {"Esporta Libretto", {{"h.dat", "I.TXT"}, nomi}},
        {"Seleziona Editor", {{"g.exe"}}},
        {"Seleziona un File DXF", {{"F.DXF"}}},
        {"Estratto da CXF", {{"e.cxf"}}},
        {"Esporta Estratto di Mappa", {{"a.emp", "B.EMP"}}},
        {"Importa Estratto di Mappa", {{"a.emp", "B.EMP"}, {"c.Png"}, {"D.ZIP"}}},
    };
    QSet<QString> visti;
    for (const auto& [titolo, filtro] : p.dialoghi) {
        visti << titolo;
        ASSERT_TRUE(attesi.contains(titolo)) << titolo.toStdString();
        const QList<QStringList>& liste = attesi[titolo];
        const auto d = CreaDialogoFile(nullptr, titolo, cartella.path(), filtro, false);
        ASSERT_EQ(d->nameFilters().size(), liste.size()) << filtro.toStdString();
        auto* vista = d->findChild<QAbstractItemView*>("listView");
        ASSERT_NE(vista, nullptr);
        for (int i = 0; i < liste.size(); ++i) {
            const QString voce = d->nameFilters()[i];
            EXPECT_FALSE(voce.contains('|')) << voce.toStdString();
            d->selectNameFilter(voce);
            QStringList elencati;
            (void)QTest::qWaitFor([&] {
                elencati.clear();
                const QModelIndex r = vista->rootIndex();
                for (int j = 0; j < vista->model()->rowCount(r); ++j)
                    elencati << vista->model()->index(j, 0, r).data().toString();
                elencati.sort(Qt::CaseInsensitive);
                return elencati == liste[i];
            });
            EXPECT_EQ(elencati, liste[i]) << titolo.toStdString() << " / " << voce.toStdString();
        }
    }
    EXPECT_EQ(visti, QSet<QString>(attesi.keyBegin(), attesi.keyEnd()));
}

TEST_F(FormSuDemo, PosizioneSalvataFuoriDalloSchermoTornaDentro) {
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    p.SalvaImpostazione("FORMx", "BV_LibrettoOriginale", "19000");
    p.SalvaImpostazione("FORMy", "BV_LibrettoOriginale", "15000");
    p.SalvaImpostazione("POSIZIONE_FORMx", "BV_LibrettoOriginale", "5000");
    p.SalvaImpostazione("POSIZIONE_FORMy", "BV_LibrettoOriginale", "-3000");
    ASSERT_TRUE(form->Carica(kEsempio));
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    const QRect dentro = DentroArea(form->frameGeometry(), area);
    // Inside, unless the form's own minimum is larger than this screen.
    EXPECT_EQ(form->frameGeometry().topLeft(), dentro.topLeft());
    EXPECT_LE(form->width(), std::max(area.width(), form->minimumSizeHint().width()));

    // "Utility" takes the place of the save options: the form does not grow.
    const QSize prima = form->size();
    Clic(form.get(), "Utility");
    QApplication::processEvents();
    EXPECT_TRUE(form->PannelloUtilita()->isVisible());
    EXPECT_EQ(form->size(), prima);

    // The rectangle is fitted whole, on every side; one already inside stays.
    const QRect schermo(0, 0, 1366, 728);
    for (const QRect& r : {QRect(-500, -500, 800, 600), QRect(1200, 700, 800, 600),
                           QRect(100, 100, 3000, 2000), QRect(10, 10, 300, 200)}) {
        const QRect f = DentroArea(r, schermo);
        EXPECT_EQ(f.size(), r.size().boundedTo(schermo.size()));
        EXPECT_TRUE(schermo.contains(f) && (f == r) == schermo.contains(r))
            << f.x() << ' ' << f.y();
    }
}

TEST(AttesaProgramma, InterrompiFermaIlProgrammaEProsegue) {
    if (QStandardPaths::findExecutable("sleep").isEmpty()) GTEST_SKIP() << "manca sleep";
    PiattaformaQt p;
    bool vista = false;
    QTimer::singleShot(800, [&] {
        QWidget* m = QApplication::activeModalWidget();
        ASSERT_NE(m, nullptr);
        EXPECT_EQ(m->objectName(), "AttesaProgramma");
        vista = Pulsante(m, "Interrompi") != nullptr;
        for (QLabel* l : m->findChildren<QLabel*>()) EXPECT_EQ(l->text(), "In attesa di sleep…");
        Clic(m, "Interrompi");
    });
    EXPECT_EQ(p.AvviaEAttendi("sleep", {"60"}), -2);
    EXPECT_TRUE(vista);
    // A quick helper gives its code with no box.
    EXPECT_EQ(p.AvviaEAttendi("true", {}), 0);
}

TEST_F(FormSuDemo, OgniSchermoEntraEMostraLeDidascalie) {
    ASSERT_TRUE(form->Carica(kEsempio));
    Guarda(form.get(), "BV_LibrettoOriginale");
    Clic(form.get(), "Utility");
    Guarda(form.get(), "BV_LibrettoOriginale_Utility");
    BV_EstrattiDiMappa1 estratti(s);
    Guarda(&estratti, "BV_EstrattiDiMappa1");
    BV_ElcoPfGriglia griglia(s, "PADOVA.TXT", "ABANO TERME", "A001", {});
    Guarda(&griglia, "BV_ElcoPfGriglia");
    BV_Fraziona fraziona(s, TipoSchema::Frazionamento, CampiParticella{}, kFrazionamento);
    Guarda(&fraziona, "BV_Fraziona");
    FormStorico storico(s);
    Guarda(&storico, "FormStorico");
}

TEST_F(FormSuDemo, ApreIlLibrettoDemoEChiudendoSalva) {
    Apri();
    // The rows have the focus from the start.
    QApplication::setActiveWindow(form.get());
    EXPECT_EQ(QApplication::focusWidget(), form->Lista());
    EXPECT_EQ(form->windowTitle(),
              "Tavolet V 5.00 - L'Evoluzione - Libretto Misure : [245 15032024] "
              "[CF Comune : G693 - PIOVE DI SACCO] [Provincia : PADOVA]");
    EXPECT_EQ(form->Contatore()->text(), "0 / 24");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();

    // The fiscal code is upper-cased as it is typed.
    QLineEdit* cf = form->findChild<QLineEdit*>("CodiceFiscaleTecnico");
    EXPECT_EQ(cf->text(), "BNCLCU70A01G224Q");
    cf->clear();
    QTest::keyClicks(cf, "rssmra");
    EXPECT_EQ(cf->text(), "RSSMRA");
    EXPECT_EQ(s.doc.CodiceFiscaleTecnico, "RSSMRA");

    // The owners typed go to the file upper-cased on close, and the form's size is kept.
    form->findChild<QPlainTextEdit*>("TestoPossessori")->setPlainText("bianchi luca");
    EXPECT_TRUE(form->close());
    const QByteArray dopo = radice.Leggi("C:\\Libretti\\ESEMPIO.DAT");
    EXPECT_TRUE(dopo.endsWith("6|<ISC>1234|\r\n6|<DIT>BIANCHI LUCA|\r\n\r\n"))
        << dopo.right(80).toStdString();
    EXPECT_EQ(p.Impostazione("FORMx", "BV_LibrettoOriginale"), QString::number(form->width()));
}

TEST_F(FormSuDemo, ChiusuraConSalvataggioFallitoResta) {
    Apri();
    const QStringList prima = Voci(form->Lista());
    // The folder of the libretto has vanished: the report, and the form stays.
    ASSERT_TRUE(QDir(PercorsoLocale("C:\\Libretti")).removeRecursively());
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isVisible());
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_EQ(p.Messaggi().last(), "Rilevato errore: Si è verificato questo errore : 76\r\n"
                                   "Impossibile trovare il percorso\r\n"
                                   "Nella Routine SalvaLibrettoMisure");
    EXPECT_EQ(Voci(form->Lista()), prima);
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), prima);

    // Exported elsewhere, then the place is writable again: the form closes and saves.
    p.fileDaSalvare << radice.Percorso() + "/copia.dat";
    form->Voce("     &File    ", "Esporta Libretto")->trigger();
    const QByteArray esportato = radice.Leggi(radice.Percorso() + "/copia.dat");
    EXPECT_TRUE(esportato.startsWith("0|15032024|")) << esportato.left(40).toStdString();
    EXPECT_EQ(esportato.count("\r\n"), prima.size());
    ASSERT_TRUE(QDir().mkpath(PercorsoLocale("C:\\Libretti")));
    EXPECT_TRUE(form->close());
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(radice.Leggi("C:\\Libretti\\ESEMPIO.DAT").startsWith("0|15032024|"));
    EXPECT_EQ(p.Messaggi().size(), 1);
}
