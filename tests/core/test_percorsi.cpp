#include "file_testo.h"
#include "percorsi.h"
#include "supporto.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

TEST(Percorsi, UnitaNellaRadiceSenzaBadareAlleMaiuscole) {
    RadiceProva radice;
    const QString r = radice.Percorso();
    EXPECT_EQ(PercorsoLocale("C:\\pregeo\\exe\\x.txt"), r + "/drive_c/pregeo/exe/x.txt");
    QDir().mkpath(r + "/drive_c/Pregeo/Estratti");
    EXPECT_EQ(PercorsoLocale("c:\\PREGEO\\estratti\\A.EMP"), r + "/drive_c/Pregeo/Estratti/A.EMP");
    EXPECT_EQ(PercorsoLocale("\\temp\\x"), r + "/drive_c/temp/x");
    // dosdevices wins when it is there.
    QDir().mkpath(r + "/dosdevices/d:/dati");
    EXPECT_EQ(PercorsoLocale("D:\\DATI\\y"), r + "/dosdevices/d:/dati/y");
    EXPECT_EQ(PercorsoLocale("E:/a/b"), r + "/drive_e/a/b");

    // "\temp\FUSIONE.CEN" and "\temp\Fusione.CEN" are one file.
    CreaCartella("C:\\temp");
    ScriviTesto("C:\\temp\\Fusione.CEN", "x");
    EXPECT_TRUE(EsisteFile("C:\\TEMP\\FUSIONE.CEN"));
    EXPECT_EQ(LeggiTesto("c:\\temp\\fusione.cen"), "x");
    EXPECT_EQ(QDir(r + "/drive_c/temp").entryList(QDir::Files), QStringList{"Fusione.CEN"});

    // Host paths pass through, also upper-cased.
    QFile f(r + "/ospite.dat");
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    EXPECT_TRUE(EsisteFile(r + "/OSPITE.DAT"));
    EXPECT_TRUE(EsisteFile(r + "/ospite.dat"));

    EXPECT_EQ(PercorsoWindows(r + "/drive_c/Libretti/A.DAT"), "C:\\Libretti\\A.DAT");
    EXPECT_EQ(PercorsoWindows("/altrove/x"), "/altrove/x");
    EXPECT_EQ(NomeDelFile("C:\\a\\b.dat"), "b.dat");
    EXPECT_EQ(NomeDelFile("/a/b/c.dat"), "c.dat");
    EXPECT_EQ(CartellaDel("C:\\a\\b.dat"), "C:\\a");
}

TEST(Percorsi, RadiceDaVariabili) {
    const QByteArray t = qgetenv("TAVOLET_RADICE"), w = qgetenv("WINEPREFIX");
    qunsetenv("TAVOLET_RADICE");
    qputenv("WINEPREFIX", "/opt/vino");
    EXPECT_EQ(Radice(), "/opt/vino");
    qunsetenv("WINEPREFIX");
    EXPECT_EQ(Radice(), QDir::homePath() + "/.wine");
    qputenv("TAVOLET_RADICE", "/r/");
    EXPECT_EQ(Radice(), "/r");
    if (t.isEmpty())
        qunsetenv("TAVOLET_RADICE");
    else
        qputenv("TAVOLET_RADICE", t);
    if (!w.isEmpty()) qputenv("WINEPREFIX", w);
}

TEST(Percorsi, FileDiTestoRigheEScrittura) {
    RadiceProva radice;
    EXPECT_EQ(RigheDiTesto("a\r\nb\nc\rd"), (QStringList{"a", "b", "c", "d"}));
    EXPECT_EQ(RigheDiTesto("a\r\n\r\n"), (QStringList{"a", ""}));
    EXPECT_EQ(RigheDiTesto(""), QStringList{});
    EXPECT_THROW(ScriviTesto("C:\\x\\è.txt", "x"), Errore); // no folder, no file
    CreaCartella("C:\\X");
    ScriviTesto("C:\\x\\è.txt", QString("perché €\r\n"));
    EXPECT_EQ(radice.Leggi("C:\\x\\è.txt"), QByteArray("perch\xE9 \x80\r\n"));
    // A missing file is error 53, a missing folder 76.
    for (const auto& [percorso, numero] :
         {std::pair{"C:\\x\\manca.txt", 53}, {"C:\\m\\m.txt", 76}}) {
        try {
            LeggiTesto(percorso);
            ADD_FAILURE() << percorso;
        } catch (const Errore& e) {
            EXPECT_EQ(e.numero, numero);
        }
    }
    CopiaFile("C:\\x\\è.txt", "C:\\x\\copia.txt");
    EXPECT_EQ(radice.Leggi("C:\\x\\copia.txt"), radice.Leggi("C:\\x\\è.txt"));
    EliminaFile("C:\\x\\copia.txt");
    EXPECT_FALSE(EsisteFile("C:\\x\\copia.txt"));
    EXPECT_NO_THROW(EliminaFile("C:\\x\\copia.txt"));
}
