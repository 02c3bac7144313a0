// The desktop platform where it can be checked without a person: launchers and settings.
#include "piattaforma_qt.h"
#include "supporto.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

TEST(PiattaformaQtProva, CollegamentiComeLanciatoriDelDesktop) {
    RadiceProva radice;
    QTemporaryDir casa;
    const QByteArray vecchiaCasa = qgetenv("HOME"), vecchiDati = qgetenv("XDG_DATA_HOME");
    qputenv("HOME", casa.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", (casa.path() + "/.local/share").toLocal8Bit());
    PiattaformaQt p;
    ASSERT_TRUE(p.CreaCollegamento(LuogoCollegamento::Desktop, "PREGEO 10.00-G APAG 2.12",
                                   "C:\\PREGEO\\EXE\\PREGEO.EXE"));
    ASSERT_TRUE(p.CreaCollegamento(LuogoCollegamento::MenuProgrammi, "PREGEO 10.00-G APAG 2.12",
                                   "C:\\PREGEO\\EXE\\PREGEO.EXE"));
    QDir().mkpath(radice.Percorso() + "/drive_c/PREGEO");
    ASSERT_TRUE(p.CreaCollegamento(LuogoCollegamento::Desktop, "PREGEO", "C:\\PREGEO"));
    qputenv("HOME", vecchiaCasa);
    if (vecchiDati.isEmpty())
        qunsetenv("XDG_DATA_HOME");
    else
        qputenv("XDG_DATA_HOME", vecchiDati);

    QFile programma(casa.path() + "/Desktop/PREGEO 10.00-G APAG 2.12.desktop");
    ASSERT_TRUE(programma.open(QIODevice::ReadOnly));
    const QString voce = QString::fromUtf8(programma.readAll());
    EXPECT_TRUE(
        voce.startsWith("[Desktop Entry]\nName=PREGEO 10.00-G APAG 2.12\nType=Application\n"));
    // The backslashes of a quoted argument are written four times in a launcher.
    EXPECT_TRUE(voce.contains("Exec=env WINEPREFIX=\"" + radice.Percorso() +
                              "\" wine \"C:\\\\\\\\PREGEO\\\\\\\\EXE\\\\\\\\PREGEO.EXE\"\n"))
        << voce.toStdString();
    EXPECT_TRUE(programma.permissions() & QFileDevice::ExeOwner);
    EXPECT_TRUE(
        QFile::exists(casa.path() + "/.local/share/applications/PREGEO 10.00-G APAG 2.12.desktop"));
    QFile cartella(casa.path() + "/Desktop/PREGEO.desktop");
    ASSERT_TRUE(cartella.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(cartella.readAll()),
              "[Desktop Entry]\nName=PREGEO\nType=Link\nURL=file://" + radice.Percorso() +
                  "/drive_c/PREGEO\n");
}
