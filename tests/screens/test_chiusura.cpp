// Closing the main form saves the libretto; a save that fails keeps the form open on the rows.
#include "BV_EditorGen.h"
#include "form_demo.h"

#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QStatusBar>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QStringList Righe(QListWidget* l) {
    QStringList r;
    for (int i = 0; i < l->count(); ++i) r << l->item(i)->text();
    return r;
}

} // namespace

TEST_F(FormSuDemo, ChiusuraConSalvataggioFallitoResta) {
    Apri();
    const QStringList prima = Righe(form->Lista());
    ASSERT_GT(prima.size(), 10);

    // The folder of the libretto has vanished: the report, and the form stays.
    const QString cartella = PercorsoLocale("C:\\Libretti");
    ASSERT_TRUE(QDir(cartella).removeRecursively());
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isVisible());
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_EQ(p.Messaggi().last(), "Rilevato errore: Si è verificato questo errore : 76\r\n"
                                   "Impossibile trovare il percorso\r\n"
                                   "Nella Routine SalvaLibrettoMisure");
    EXPECT_EQ(Righe(form->Lista()), prima);
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), prima);

    // The path is now a folder: access refused, error 75 with its extra line, still open.
    ASSERT_TRUE(QDir().mkpath(PercorsoLocale("C:\\Libretti\\ESEMPIO.DAT")));
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isVisible());
    ASSERT_EQ(p.Messaggi().size(), 2);
    EXPECT_TRUE(p.Messaggi().last().contains("75\r\nErrore di accesso al percorso/file\r\n"
                                             "o il file potrebbe essere di sola lettura!\r\n"))
        << p.Messaggi().last().toStdString();
    EXPECT_EQ(Righe(form->Lista()), prima);
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
    // untouched, not a byte changes.
    const QDir libretti(qEnvironmentVariable("TAVOLET_DEMO") + "/drive_c/Libretti");
    const QStringList nomi = libretti.entryList({"*.DAT", "*.TXT", "*.dat", "*.txt"}, QDir::Files);
    ASSERT_FALSE(nomi.isEmpty());
    for (const QString& nome : nomi) {
        QFile f(libretti.filePath(nome));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        const QByteArray originale = f.readAll();
        s.doc.PercorsoLibretto = "C:\\Libretti\\" + nome;
        CaricaLibrettoMisure(s);
        CaricaLibrettoInList1(s);
        EXPECT_TRUE(ChiusuraProgramma(s));
        EXPECT_EQ(radice.Leggi("C:\\Libretti\\" + nome), originale) << nome.toStdString();
    }
    Apri();
    const QByteArray esempio = radice.Leggi("C:\\Libretti\\ESEMPIO.DAT");
    EXPECT_TRUE(form->close());
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\ESEMPIO.DAT"), esempio);
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
}
