// Windows paths in the root, text files, and names typed by the operator made into one file's
// name.
#include "file_testo.h"
#include "nome_file.h"
#include "percorsi.h"
#include "supporto.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>

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

TEST(NomiFile, UnNomeDigitatoRestaNellaSuaCartella) {
    // What Windows takes as one name of a folder, and nothing else.
    const QRegularExpression vietato(QStringLiteral("[<>:\"/\\\\|?*\\x00-\\x1F]|\\.\\.|[. ]$"));
    const QRegularExpression dispositivo(
        QStringLiteral("^(CON|PRN|AUX|NUL|COM[1-9]|LPT[1-9])( *\\..*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const QString pezzi[] = {"..", ".", "/", "\\", ":",  "CON", "nul",  "Com1",  "lpt9", " ", "?",
                             "*",  "<", ">", "|",  "\"", "\t",  "\x01", "ROSSI", "è",    "A", "1"};
    QRandomGenerator g(6);
    for (int i = 0; i < 3000; ++i) {
        QString nome;
        for (int k = g.bounded(1, 7); k > 0; --k) nome += pezzi[g.bounded(int(std::size(pezzi)))];
        const QString sicuro = NomeFileSicuro(nome);
        ASSERT_FALSE(sicuro.isEmpty()) << nome.toStdString();
        EXPECT_FALSE(vietato.match(sicuro).hasMatch()) << nome.toStdString();
        EXPECT_FALSE(dispositivo.match(sicuro).hasMatch()) << nome.toStdString();
        EXPECT_EQ(NomeFileSicuro(sicuro), sicuro) << nome.toStdString();
        // A plain name is left as typed.
        const bool semplice = !nome.contains(QRegularExpression("[^A-Z0-9è]"));
        if (semplice && !dispositivo.match(nome).hasMatch()) {
            EXPECT_EQ(sicuro, nome);
        }
    }
    EXPECT_EQ(NomeFileSicuro("../../ESCAPE X"), "_._ESCAPE X");
    EXPECT_EQ(NomeFileSicuro("..\\..\\ESC2"), "_._ESC2");
    EXPECT_EQ(NomeFileSicuro("con.txt"), "_con.txt");
    EXPECT_EQ(NomeFileSicuro("A001_0012_35.Map"), "A001_0012_35.Map");
    EXPECT_EQ(NomeFileSicuro(""), "");
}
