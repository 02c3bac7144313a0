// Ctrl+Z and Ctrl+Y on the main form: every change of the rows can be taken back and done again.
#include "form_demo.h"
#include "schermi.h"

#include <QApplication>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct AnnullaForm : FormAperto {
    QStringList Righe() const { return Voci(form->Lista()); }
    void Tasto(Qt::Key k, Qt::KeyboardModifiers m = Qt::ControlModifier) {
        // After a modal screen the window manager gives the form back its activation.
        QApplication::setActiveWindow(form.get());
        QTest::keyClick(form->Lista(), k, m);
    }
    void Elimina(const QList<int>& righe) {
        form->Lista()->clearSelection();
        for (int r : righe) form->Lista()->item(r)->setSelected(true);
        p.risposte << Risposta::Si;
        Tasto(Qt::Key_Delete, Qt::NoModifier);
    }
};

} // namespace

TEST_F(AnnullaForm, CtrlZDopoEliminazioneEPassiMultipli) {
    const QStringList originali = Righe();
    Elimina({3, 4, 5});
    ASSERT_EQ(Righe().size(), originali.size() - 3);
    EXPECT_EQ(Stato(), "3 righe eliminate");

    Tasto(Qt::Key_Z);
    EXPECT_EQ(Righe(), originali);
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), originali);
    EXPECT_EQ(Stato(), "Annullato: 3 righe eliminate");
    // The rows deleted come back selected, as they were when the command ran.
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), (QList<int>{3, 4, 5}));
    EXPECT_EQ(form->Contatore()->text().section(" / ", 1), QString::number(originali.size()));

    Tasto(Qt::Key_Y);
    EXPECT_EQ(Righe().size(), originali.size() - 3);
    EXPECT_EQ(Stato(), "Ripetuto: 3 righe eliminate");
    Tasto(Qt::Key_Z);
    Tasto(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Righe().size(), originali.size() - 3);

    // Many steps deep, and back to the file's rows; one more finds nothing to take back.
    QList<QStringList> passi{Righe()};
    for (int i = 0; i < 5; ++i) {
        Elimina({2});
        passi << Righe();
    }
    for (int i = 4; i >= 0; --i) {
        Tasto(Qt::Key_Z);
        EXPECT_EQ(Righe(), passi[i]) << i;
    }
    Tasto(Qt::Key_Z);
    EXPECT_EQ(Righe(), originali);
    Tasto(Qt::Key_Z);
    EXPECT_EQ(Righe(), originali);
    EXPECT_EQ(Stato(), "Nessuna modifica da annullare");

    // A new change drops the steps forward.
    Elimina({6});
    Tasto(Qt::Key_Y);
    EXPECT_EQ(Righe().size(), originali.size() - 1);
    EXPECT_EQ(Stato(), "Nessuna modifica da ripetere");
}

TEST_F(AnnullaForm, AnnullaNonToccaIFile) {
    const QByteArray file = radice.Leggi("C:\\Libretti\\ESEMPIO.DAT");
    const QStringList originali = Righe();
    Elimina({10});
    QTest::keyClick(form.get(), Qt::Key_S, Qt::ControlModifier);
    const QByteArray salvato = radice.Leggi("C:\\Libretti\\ESEMPIO.DAT");
    EXPECT_NE(salvato, file);
    Tasto(Qt::Key_Z);
    EXPECT_EQ(Righe(), originali);
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\ESEMPIO.DAT"), salvato);
    // The next save writes what is shown.
    QTest::keyClick(form.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\ESEMPIO.DAT"), file);
}

TEST_F(AnnullaForm, CtrlZDopoRiordinoEDopoTrascinamento) {
    const QStringList esempio = Righe();
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
    const QStringList caricate = Righe();
    ASSERT_NE(caricate, esempio);
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "G224");

    QTimer::singleShot(0, [] { Clic(QApplication::activeModalWidget(), "&Conferma"); });
    Clic(form.get(), "Ordina");
    const QStringList riordinate = Righe();
    ASSERT_NE(riordinate, caricate);
    EXPECT_EQ(Stato(), "Righe riordinate");

    Tasto(Qt::Key_Z);
    EXPECT_EQ(Righe(), caricate);
    // The drop is a step too: its libretto and its file name go back together.
    Tasto(Qt::Key_Z);
    EXPECT_EQ(Righe(), esempio);
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\LIBRETTI\\ESEMPIO.DAT");
    EXPECT_EQ(s.doc.NomeEstratto, "G693_0012.EMP");
    // The head comes back with rows 0 and 9: the title as before.
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "G693");
    EXPECT_TRUE(form->windowTitle().contains("[CF Comune : G693 - PIOVE DI SACCO]"));
    Tasto(Qt::Key_Y);
    Tasto(Qt::Key_Y);
    EXPECT_EQ(Righe(), riordinate);
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\Lavori\\COMPLETO.DAT");
}

TEST_F(AnnullaForm, PasteNuovoEDatiScrittiSonoPassi) {
    const QStringList originali = Righe();
    // What is typed in the owners' field is its own step, before the command that follows.
    auto* possessori = form->findChild<QPlainTextEdit*>("TestoPossessori");
    possessori->setPlainText("BIANCHI LUCA");
    p.appunti = "50\t1,5\t2,5\r\n";
    form->Voce("Da Excel", "Righe 8 - (P, N, E)")->trigger();
    EXPECT_EQ(Righe().size(), originali.size() + 1);
    EXPECT_EQ(Stato(), "1 riga aggiunta");

    // "Nuovo" goes on to the head dialog: closed as it comes.
    QTimer::singleShot(0, [] {
        if (QWidget* m = QApplication::activeModalWidget()) m->close();
    });
    Clic(form.get(), "Nuovo");
    EXPECT_EQ(Righe().size(), 2);
    EXPECT_EQ(Stato(), "Nuovo libretto");

    Tasto(Qt::Key_Z);
    EXPECT_EQ(Righe().size(), originali.size() + 1);
    EXPECT_EQ(s.doc.TestoPossessori, "BIANCHI LUCA");
    Tasto(Qt::Key_Z);
    EXPECT_EQ(Righe(), originali);
    EXPECT_EQ(s.doc.TestoPossessori, "BIANCHI LUCA");
    Tasto(Qt::Key_Z);
    EXPECT_EQ(possessori->toPlainText(),
              "ROSSI MARIO NATO A PADOVA IL 01/01/1950\nVERDI ANNA PROPRIETA' PER 1/2\n");
}
