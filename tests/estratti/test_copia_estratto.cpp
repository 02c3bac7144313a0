// Copying extracts into Pregeo: a path from the command line (with its companion, or a .ZIP
// of the registry unpacked in \pregeo\tmp\) and the import of the extract screen.
#include "copia_estratto.h"
#include "zip.h"

#include "supporto.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kEstratti = QStringLiteral("C:\\pregeo\\estratti\\");
const QString kTmp = QStringLiteral("C:\\pregeo\\tmp\\");

struct CopiaEstratto : ::testing::Test {
    PiattaformaFinta piattaforma;
    Stato stato{piattaforma};
    RadiceProva radice;
    const QByteArray emp = Dati("estratti/realistico.EMP");
    const QByteArray png = Dati("estratti/realistico.PNG");

    // The names in a folder of the root, as the host has them.
    QStringList Elenco(const QString& cartella) const {
        return QDir(PercorsoLocale(cartella)).entryList(QDir::Files, QDir::Name);
    }
    // An archive written by ZipClass at a path in Windows form.
    void Zip(const QString& percorso, const QList<std::pair<QString, QByteArray>>& membri) {
        ZipClass z;
        int i = 0;
        for (const auto& [nome, byte] : membri) {
            const QString sorgente = QStringLiteral("C:\\sorgenti\\") + QString::number(i++);
            radice.Scrivi(sorgente, byte);
            ASSERT_TRUE(z.AddFile(PercorsoLocale(sorgente), nome));
        }
        radice.Scrivi(percorso, "");
        ASSERT_TRUE(z.WriteZip(PercorsoLocale(percorso), true));
    }
    QStringList Messaggi() {
        const QStringList m = piattaforma.Messaggi();
        piattaforma.eventi.clear();
        return m;
    }
};

const QString kTitolo = QStringLiteral("Copia Estratto in Pregeo: ");

} // namespace

// The drop of an extract with its image, of a missing one and of a hostile archive are the
// command line's, the main form's and the unpacker's tests; here the choice among the members.
TEST_F(CopiaEstratto, ZipDelCatastoInTmpEPoiNegliEstratti) {
    radice.Scrivi(kTmp + "VECCHIO.EMP", "di una volta");
    radice.Scrivi(kTmp + "Vecchia\\x.txt", "resta");
    Zip("C:\\Download\\A001_0120.zip", {{"leggimi.txt", "Estratto di mappa"},
                                        {"b.emp", "secondo"},
                                        {"a.EMP", emp},
                                        {"0/0.EMP", "in una cartella"},
                                        {"mappa.png", png}});
    const QByteArray archivio = radice.Leggi("C:\\Download\\A001_0120.zip");
    EXPECT_TRUE(DrageDrop(stato, "C:\\Download\\A001_0120.zip"));
    EXPECT_EQ(Messaggi(), QStringList({kTitolo + "Esploso e Copiato nella cartella Estratti!\r\n"
                                                 "C:\\DOWNLOAD\\A001_0120.ZIP"}));
    // The first extract at the top of the archive, by name, under the archive's name.
    EXPECT_EQ(Elenco(kEstratti), QStringList({"A001_0120.EMP", "A001_0120.PNG"}));
    EXPECT_EQ(radice.Leggi(kEstratti + "A001_0120.EMP"), emp);
    EXPECT_EQ(stato.doc.NomeEstratto, "A001_0120.EMP");
    // tmp was emptied of its files, then holds the archive and its members.
    EXPECT_EQ(Elenco(kTmp),
              QStringList({"A001_0120.ZIP", "a.EMP", "b.emp", "leggimi.txt", "mappa.png"}));
    EXPECT_EQ(radice.Leggi(kTmp + "A001_0120.ZIP"), archivio);
    EXPECT_EQ(radice.Leggi(kTmp + "0\\0.EMP"), "in una cartella");
    EXPECT_EQ(radice.Leggi(kTmp + "Vecchia\\x.txt"), "resta");

    // The archive may already lie in tmp, which is emptied first.
    Zip(kTmp + "Qui.zip", {{"Q.EMP", "q"}});
    EXPECT_TRUE(DrageDrop(stato, kTmp + "Qui.zip"));
    EXPECT_EQ(radice.Leggi(kEstratti + "QUI.EMP"), "q");
    EXPECT_EQ(stato.ErroriMostrati, 0);
}

TEST_F(CopiaEstratto, ImportDelloSchermo) {
    // The import copies the chosen file alone, under its own name.
    radice.Scrivi("C:\\Download\\Foglio.emp", emp);
    radice.Scrivi("C:\\Download\\Foglio.png", png);
    EXPECT_EQ(CopiaEstrattoInPregeo(stato, "C:\\Download\\Foglio.emp"),
              QStringList({"Foglio.emp"}));
    EXPECT_EQ(Messaggi(), QStringList({kTitolo + "Copiato nella cartella Estratti!"}));
    EXPECT_EQ(Elenco(kEstratti), QStringList({"Foglio.emp"}));
    EXPECT_EQ(radice.Leggi(kEstratti + "Foglio.emp"), emp);

    // A .ZIP: every extract and image of it, each under its own name; tmp is not emptied.
    radice.Scrivi(kTmp + "PREGEO.EMP", "di Pregeo");
    Zip("C:\\Download\\Tutti.zip",
        {{"b.emp", "b"}, {"leggimi.txt", "x"}, {"Sub/c.EMP", "c"}, {"b.PNG", png}});
    EXPECT_EQ(CopiaEstrattoInPregeo(stato, "C:\\Download\\Tutti.zip"),
              QStringList({"b.emp", "c.EMP", "b.PNG"}));
    EXPECT_EQ(Messaggi(), QStringList({kTitolo + "Esploso e Copiato nella cartella Estratti!"}));
    EXPECT_EQ(radice.Leggi(kEstratti + "c.EMP"), "c");
    EXPECT_EQ(radice.Leggi(kEstratti + "b.PNG"), png);
    EXPECT_EQ(radice.Leggi(kTmp + "PREGEO.EMP"), "di Pregeo");
    EXPECT_TRUE(stato.doc.NomeEstratto.isEmpty());
    EXPECT_TRUE(CopiaEstrattoInPregeo(stato, "C:\\Download\\manca.zip").isEmpty());
    EXPECT_EQ(Messaggi(), QStringList({kTitolo + "C:\\Download\\manca.zip\r\nNON trovato!"}));
}
