// The main form opened on the demo libretto or on an extract, and closed: closing saves the
// libretto; a save that fails keeps the form open on the rows.
#include "BV_EditorGen.h"
#include "form_demo.h"
#include "schermi.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QString Etichetta(QWidget* w, const QString& inizio) {
    for (QLabel* l : w->findChildren<QLabel*>())
        if (l->text().startsWith(inizio)) return l->text();
    return QString();
}

} // namespace

TEST_F(FormSuDemo, ApreIlLibrettoDemoEChiudendoSalva) {
    Apri();
    const QString titolo = "Tavolet V 5.00 - L'Evoluzione - Libretto Misure : [245 15032024] "
                           "[CF Comune : G693 - PIOVE DI SACCO] [Provincia : PADOVA]";
    EXPECT_EQ(form->windowTitle(), titolo);
    EXPECT_EQ(form->Contatore()->text(), "0 / 24");
    EXPECT_EQ(Etichetta(form.get(), "Estratto : "), "Estratto : G693_0012.EMP");
    EXPECT_EQ(Etichetta(form.get(), "Nome del file : "),
              "Nome del file : C:\\LIBRETTI\\ESEMPIO.DAT");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();

    // A click on the fourth row moves the counter; the title stays right.
    Clic(form->Lista(), 3);
    EXPECT_EQ(form->Contatore()->text(), "4 / 24");
    EXPECT_EQ(form->windowTitle(), titolo);
    EXPECT_TRUE(s.doc.RigheLibretto.Selezionata(3));

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

TEST_F(FormSuDemo, EstrattoSullaRigaDiComando) {
    radice.Scrivi("C:\\Scaricati\\G693_0012.EMP",
                  radice.Leggi("C:\\pregeo\\estratti\\A001_00120.EMP"));
    Apri("\"C:\\Scaricati\\g693_0012.emp\"");
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\estratti\\G693_0012.EMP"),
              radice.Leggi("C:\\Scaricati\\G693_0012.EMP"));
    ASSERT_FALSE(p.Messaggi().isEmpty());
    EXPECT_TRUE(p.Messaggi().last().startsWith(
        "Copia Estratto in Pregeo: Copiato nella cartella Estratti!\r\n"))
        << p.Messaggi().last().toStdString();
    EXPECT_EQ(Etichetta(form.get(), "Estratto : "), "Estratto : G693_0012.EMP");
    // No libretto was opened: the form shows the new document of rows 0 and 9.
    EXPECT_EQ(s.doc.PercorsoLibretto, "");
    EXPECT_EQ(form->Lista()->count(), 2);
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

    // The path is now a folder: access refused, error 75 with its extra line, still open.
    ASSERT_TRUE(QDir().mkpath(PercorsoLocale("C:\\Libretti\\ESEMPIO.DAT")));
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isVisible());
    ASSERT_EQ(p.Messaggi().size(), 2);
    EXPECT_TRUE(p.Messaggi().last().contains("75\r\nErrore di accesso al percorso/file\r\n"
                                             "o il file potrebbe essere di sola lettura!\r\n"))
        << p.Messaggi().last().toStdString();
    EXPECT_EQ(Voci(form->Lista()), prima);
    EXPECT_FALSE(form->statusBar()->currentMessage().isEmpty());

    // Exported elsewhere, then the place is writable again: the form closes and saves.
    p.fileDaSalvare << radice.Percorso() + "/copia.dat";
    form->Voce("     &File    ", "Esporta Libretto")->trigger();
    const QByteArray esportato = radice.Leggi(radice.Percorso() + "/copia.dat");
    EXPECT_TRUE(esportato.startsWith("0|15032024|")) << esportato.left(40).toStdString();
    EXPECT_EQ(esportato.count("\r\n"), prima.size());
    ASSERT_TRUE(QDir(PercorsoLocale("C:\\Libretti\\ESEMPIO.DAT")).removeRecursively());
    EXPECT_TRUE(form->close());
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(radice.Leggi("C:\\Libretti\\ESEMPIO.DAT").startsWith("0|15032024|"));
    EXPECT_EQ(p.Messaggi().size(), 2);
}

TEST_F(FormSuDemo, ChiusuraSenzaFileEsportaOAnnulla) {
    Apri("");
    EXPECT_EQ(form->Contatore()->text(), "0 / 2");
    // No libretto open: the close asks where to export; a cancelled dialog is no failure.
    EXPECT_TRUE(form->close());
    EXPECT_EQ(p.eventi.last().tipo, "salva");
    EXPECT_TRUE(p.Messaggi().isEmpty());

    // A chosen place that cannot be written keeps the form open.
    form->show();
    p.fileDaSalvare << radice.Percorso() + "/manca/zzz.dat";
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isVisible());
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi().first().endsWith("Nella Routine EsportaLibrettoInFile"));
}

TEST_F(FormSuDemo, EditorCheNonPuoMemorizzareResta) {
    Apri();
    // A mode whose store writes a file in a folder that is not there.
    s.GestoriEditor[kEditorStampe] = {
        [](Stato&) { return QStringLiteral("modello"); },
        [](Stato&, const QString& t) { ScriviTesto("C:\\Non\\Esiste\\STAMPA.TXT", t); }};
    bool apertoDopoSi = false;
    QTimer::singleShot(0, [&] {
        auto* editor = qobject_cast<BV_EditorGen*>(QApplication::activeModalWidget());
        ASSERT_NE(editor, nullptr);
        p.risposte << Risposta::Si << Risposta::No;
        editor->close();
        apertoDopoSi = editor->isVisible();
        editor->close();
    });
    BV_EditorGen::Esegui(s, kEditorStampe, form.get());
    EXPECT_TRUE(apertoDopoSi);
    EXPECT_EQ(p.Domande().size(), 2);
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi().first().endsWith("Nella Routine BV_EditorGen_Salva"));
}

TEST_F(FormSuDemo, LibrettiDemoApertiEChiusiRestanoUguali) {
    // The demo tree keeps its libretti as the program writes them: opened and closed
    // untouched, not a byte changes; the button "Salva" keeps them too.
    const QDir libretti(qEnvironmentVariable("TAVOLET_DEMO") + "/drive_c/Libretti");
    const QStringList nomi = libretti.entryList({"*.DAT", "*.TXT", "*.dat", "*.txt"}, QDir::Files);
    ASSERT_FALSE(nomi.isEmpty());
    for (const QString& nome : nomi) {
        const QByteArray originale = LeggiFile(libretti.filePath(nome));
        s.doc.PercorsoLibretto = "C:\\Libretti\\" + nome;
        CaricaLibrettoMisure(s);
        CaricaLibrettoInList1(s);
        EXPECT_TRUE(ChiusuraProgramma(s));
        EXPECT_EQ(radice.Leggi("C:\\Libretti\\" + nome), originale) << nome.toStdString();
    }
    Apri();
    const QByteArray esempio = radice.Leggi("C:\\Libretti\\ESEMPIO.DAT");
    Clic(form.get(), "Salva");
    EXPECT_EQ(form->statusBar()->currentMessage(), "Salvato C:\\LIBRETTI\\ESEMPIO.DAT");
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\ESEMPIO.DAT"), esempio);
    EXPECT_TRUE(form->close());
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\ESEMPIO.DAT"), esempio);
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
}
