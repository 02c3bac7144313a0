// What a desktop user meets without thinking: Italian standard buttons, Ctrl+C, Ctrl+F,
// F1, Ctrl+S, the status bar that says what the last command did, and desktop launchers.
#include "form_demo.h"
#include "piattaforma_qt.h"
#include "schermi.h"
#include "traduzioni.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

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
    RadiceProva radice;
    CopiaDemo(radice.Percorso());
    PiattaformaQt qt;
    Stato s(qt);
    Inizializza(s);
    CaricaConfig(s);
    s.doc.PercorsoLibretto = "C:\\Libretti\\ESEMPIO.DAT";
    CaricaLibrettoMisure(s);
    CaricaLibrettoInList1(s);
    BV_LibrettoOriginale form(s);
    qt.ImpostaFinestra(&form);
    form.MostraDocumento();
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    const int n = form.Lista()->count();

    // The real question box: its standard buttons in Italian, "S" answers yes, "N" no.
    QStringList visti;
    RispondiCon(Qt::Key_S, &visti);
    form.Lista()->item(3)->setSelected(true);
    form.Lista()->setFocus();
    QTest::keyClick(form.Lista(), Qt::Key_Delete);
    EXPECT_EQ(visti, (QStringList{"Elimina righe dal Libretto", "Eliminare le Righe selezionate?",
                                  "&Sì", "&No", "&No"}));
    EXPECT_EQ(form.Lista()->count(), n - 1);
    RispondiCon(Qt::Key_N);
    form.Lista()->item(3)->setSelected(true);
    QTest::keyClick(form.Lista(), Qt::Key_Delete);
    EXPECT_EQ(form.Lista()->count(), n - 1);
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

TEST_F(Scorciatoie, CtrlCCtrlFF1CtrlS) {
    const QString titolo = form->windowTitle();
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
    QTest::keyClick(trova, Qt::Key_Return);
    EXPECT_EQ(form->Lista()->selectedItems().value(0)->text(),
              "8|PF05/0120/G693|-1388.102|3021.775|SF|");
    QTest::keyClick(trova, Qt::Key_Return); // from the top again
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{12});
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
    QApplication::setActiveWindow(form.get()); // the offscreen platform does not give it back

    // Ctrl+S saves; the title stays.
    QTest::keyClick(form.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Stato(), "Salvato C:\\LIBRETTI\\ESEMPIO.DAT");
    EXPECT_EQ(form->windowTitle(), titolo);
    // Selections say how many rows they took.
    Clic(form.get(), "Stazioni");
    EXPECT_EQ(Stato(), "2 righe selezionate");
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
