// The main form opened on the demo libretto and closed: closing saves the libretto; a save that
// fails keeps the form open on the rows.
#include "BV_EditorGen.h"
#include "form_demo.h"
#include "schermi.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

TEST_F(FormSuDemo, ApreIlLibrettoDemoEChiudendoSalva) {
    Apri();
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
