// What a desktop user types without thinking: Italian standard buttons, Ctrl+O, Ctrl+C, Ctrl+F,
// F1, Ctrl+S, and the status bar that says what the last command did.
#include "form_demo.h"
#include "piattaforma_qt.h"
#include "traduzioni.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Scorciatoie : FormSuDemo {
    void SetUp() override {
        FormSuDemo::SetUp();
        Apri();
        QApplication::setActiveWindow(form.get());
        form->Lista()->setFocus();
    }
    QString Stato() const { return form->statusBar()->currentMessage(); }
};

QStringList TestiDi(QWidget* w) {
    QStringList t;
    for (QLabel* l : w->findChildren<QLabel*>()) t << l->text();
    for (QAbstractButton* b : w->findChildren<QAbstractButton*>()) t << b->text();
    return t;
}

} // namespace

TEST(TraduzioniItaliane, DomandaDiEliminazioneConSiENo) {
    ASSERT_TRUE(InstallaTraduzioniItaliane());
    RadiceProva radice;
    CopiaDemo(radice.Percorso());
    PiattaformaQt qt;
    Stato s(qt);
    Inizializza(s);
    CaricaConfig(s);
    CaricaComuni(s);
    CaricaProvince(s);
    s.doc.PercorsoLibretto = "C:\\Libretti\\ESEMPIO.DAT";
    CaricaLibrettoMisure(s);
    CaricaLibrettoInList1(s);
    BV_LibrettoOriginale form(s);
    qt.ImpostaFinestra(&form);
    form.MostraDocumento();
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    const int n = form.Lista()->count();

    // The real question box: its standard buttons in Italian, "S" answers yes.
    QStringList visti;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        visti << box->windowTitle() << box->text() << box->button(QMessageBox::Yes)->text()
              << box->button(QMessageBox::No)->text() << box->defaultButton()->text();
        box->grab().save(QDir::tempPath() + "/tavolet_domanda_elimina.png");
        QTest::keyClick(box, Qt::Key_S);
    });
    form.Lista()->item(3)->setSelected(true);
    form.Lista()->setFocus();
    QTest::keyClick(form.Lista(), Qt::Key_Delete);
    EXPECT_EQ(visti, (QStringList{"Elimina righe dal Libretto", "Eliminare le Righe selezionate?",
                                  "&Sì", "&No", "&No"}));
    EXPECT_EQ(form.Lista()->count(), n - 1);

    // "N" answers no; Annulla on a three-button question.
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        QTest::keyClick(box, Qt::Key_N);
    });
    form.Lista()->item(3)->setSelected(true);
    QTest::keyClick(form.Lista(), Qt::Key_Delete);
    EXPECT_EQ(form.Lista()->count(), n - 1);
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

TEST(TraduzioniItaliane, DialoghiDiFileEDiCarattere) {
    ASSERT_TRUE(InstallaTraduzioniItaliane());
    QFileDialog file(nullptr, "Apri Libretto", QDir::tempPath());
    file.setOption(QFileDialog::DontUseNativeDialog);
    file.setAcceptMode(QFileDialog::AcceptSave);
    file.show();
    const QStringList testiFile = TestiDi(&file);
    EXPECT_TRUE(testiFile.contains("&Nome del file:")) << testiFile.join(" | ").toStdString();
    EXPECT_TRUE(testiFile.contains("&Salva") || testiFile.contains("Salva"))
        << testiFile.join(" | ").toStdString();
    EXPECT_TRUE(testiFile.contains("Annulla")) << testiFile.join(" | ").toStdString();
    file.close();
}

TEST_F(Scorciatoie, CtrlOComeUnTrascinamento) {
    radice.Scrivi("C:\\Altro\\B.TXT",
                  "0|01012025|9|L736B|0001|1|A B|G|PADOVA|\r\n9|1|\r\n1|1|\r\n2|3|\r\n");
    // Cancelled: nothing happens.
    QTest::keyClick(form.get(), Qt::Key_O, Qt::ControlModifier);
    ASSERT_FALSE(p.eventi.isEmpty());
    EXPECT_EQ(p.eventi.last().tipo, "apri");
    EXPECT_EQ(p.eventi.last().titolo, "Apri Libretto");
    EXPECT_EQ(p.eventi.last().testo, "C:\\LIBRETTI");
    EXPECT_TRUE(p.Domande().isEmpty());
    EXPECT_EQ(form->Lista()->count(), 24);

    // The dialog answers with a host path, as the real one does: the same question as a drop,
    // then the libretto under its Windows name.
    p.fileDaAprire << PercorsoLocale("C:\\Altro\\B.TXT");
    QTest::keyClick(form.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(p.Domande(), QStringList{"Trascina Libretto: Sostituire il Libretto Esistente?"});
    EXPECT_EQ(form->Lista()->count(), 4);
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\Altro\\B.TXT");
    EXPECT_EQ(Stato(), "Aperto C:\\Altro\\B.TXT");
    EXPECT_TRUE(
        form->windowTitle().contains("[CF Comune : L736B - VENEZIA MURANO] [Provincia : VENEZIA]"));

    // Answered no, or a kind that is not a libretto: the drop's answers.
    p.risposte << Risposta::No;
    p.fileDaAprire << PercorsoLocale("C:\\Libretti\\ESEMPIO.DAT") << "/tmp/disegno.DXF";
    QTest::keyClick(form.get(), Qt::Key_O, Qt::ControlModifier);
    QTest::keyClick(form.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(form->Lista()->count(), 4);
    EXPECT_EQ(p.Messaggi(), QStringList{"Trascina Libretto: Processo non attivo!"});

    // The menu entries kept without action stay so.
    const int eventi = p.eventi.size();
    form->Voce("     &File    ", "Apri Libretto da File")->trigger();
    EXPECT_EQ(p.eventi.size(), eventi);
    EXPECT_EQ(form->Lista()->count(), 4);
}

TEST_F(Scorciatoie, CtrlCCtrlFF1CtrlS) {
    const QString titolo = form->windowTitle();
    QTest::keyClick(form->Lista(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(p.Messaggi(), QStringList{"Copia Libretto: Il Libretto è stato copiato!"});
    EXPECT_EQ(p.appunti.count("\r\n"), 24);
    EXPECT_TRUE(p.appunti.startsWith("0|15032024|245|G693|"));
    EXPECT_EQ(Stato(), "Libretto copiato negli appunti: 24 righe");

    // Ctrl+F: the find field; Enter selects the next row holding the text, case ignored.
    QTest::keyClick(form.get(), Qt::Key_F, Qt::ControlModifier);
    QLineEdit* trova = form->CampoTrova();
    ASSERT_NE(trova, nullptr);
    EXPECT_TRUE(trova->hasFocus());
    QTest::keyClicks(trova, "pf05");
    QTest::keyClick(trova, Qt::Key_Return);
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{12});
    EXPECT_EQ(form->Contatore()->text(), "13 / 24");
    EXPECT_EQ(Stato(), "Trovato alla riga 13 di 24");
    QTest::keyClick(trova, Qt::Key_Return);
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{18});
    EXPECT_EQ(form->Lista()->selectedItems().value(0)->text(),
              "8|PF05/0120/G693|-1388.102|3021.775|SF|");
    QTest::keyClick(trova, Qt::Key_Return); // from the top again
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{12});
    trova->setText("zzz");
    QTest::keyClick(trova, Qt::Key_Return);
    EXPECT_EQ(Stato(), "Nessuna riga contiene \"zzz\"");
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{12});
    // The button of that caption is still there and still does nothing.
    QTest::mouseClick(form->Pulsante("Trova nel Libretto :"), Qt::LeftButton);
    EXPECT_EQ(p.Messaggi().size(), 1);

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
    QApplication::setActiveWindow(form.get()); // the offscreen platform does not give it back

    // Ctrl+S saves; the title stays the Part's own.
    QTest::keyClick(form.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Stato(), "Salvato C:\\LIBRETTI\\ESEMPIO.DAT");
    EXPECT_EQ(form->windowTitle(), titolo);

    // Selections say how many rows they took.
    QTest::mouseClick(form->Pulsante("Stazioni"), Qt::LeftButton);
    EXPECT_EQ(Stato(), "2 righe selezionate");
    form->grab().save(QDir::tempPath() + "/tavolet_form_barra_stato.png");
}
