// The estratto commands of tavolet-cli, as a script would call them.
#include "supporto.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet::test;

namespace {

struct Esito {
    int codice = -1;
    QString out, err;
};

Esito Esegui(const QStringList& argomenti) {
    QProcess p;
    p.start(TAVOLET_CLI, QStringList{"--oggi", "15012026"} + argomenti);
    p.waitForFinished(60000);
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}

QByteArray Leggi(const QString& p) {
    QFile f(p);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

TEST(CliEstratti, InfoDatiRiscriviPulisci) {
    QTemporaryDir dir;
    const QString in = PercorsoDati("estratti/realistico.EMP");
    const Esito info = Esegui({"estratto", "info", in});
    EXPECT_EQ(info.codice, 0) << info.err.toStdString();
    EXPECT_EQ(info.out, QString::fromLatin1(Dati("estratti/realistico_info.txt")));

    const Esito dati = Esegui({"estratto", "dati", in});
    EXPECT_EQ(dati.out, "Comune=A001\nFoglio=0120\nParticelle=257,258\nEstMedio=-3725\n");

    const QString out = dir.filePath("copia.EMP");
    EXPECT_EQ(Esegui({"estratto", "riscrivi", in, out}).codice, 0);
    EXPECT_EQ(Leggi(out), Dati("estratti/realistico_salvato.EMP"));
    EXPECT_EQ(Leggi(in), Dati("estratti/realistico.EMP")); // the input stays as it was

    QFile::copy(in, dir.filePath("p.EMP"));
    EXPECT_EQ(Esegui({"estratto", "pulisci", dir.filePath("p.EMP")}).codice, 0);
    EXPECT_EQ(Leggi(dir.filePath("p.EMP")), Dati("estratti/realistico_pulito.EMP"));

    // An extract without vertices: the error report on stderr, exit status 1.
    QFile f(dir.filePath("vuoto.EMP"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("0|15032024|P|A001|00120|1|PD|0|0|0|\r\n");
    f.close();
    const Esito vuoto = Esegui({"estratto", "info", dir.filePath("vuoto.EMP")});
    EXPECT_EQ(vuoto.codice, 1);
    EXPECT_TRUE(vuoto.err.contains("Nella Routine EsplodiEstratto"));
    EXPECT_TRUE(vuoto.out.contains("EstrattoComune=A001\n"));
}

TEST(CliEstratti, CopiaNellaCartellaEstratti) {
    RadiceProva radice;
    radice.PregeoMinimo();
    radice.Scrivi("C:\\Download\\Foglio.emp", Dati("estratti/realistico.EMP"));
    radice.Scrivi("C:\\Download\\Foglio.png", Dati("estratti/realistico.PNG"));
    const QStringList r = {"--radice", radice.Percorso()};

    const Esito emp = Esegui(r + QStringList{"estratto", "copia", "C:\\Download\\Foglio.emp"});
    EXPECT_EQ(emp.codice, 0) << emp.err.toStdString();
    EXPECT_EQ(emp.out, "NomeEstratto=FOGLIO.EMP\n");
    EXPECT_EQ(emp.err, "Copia Estratto in Pregeo: Copiato nella cartella Estratti!\n"
                       "C:\\DOWNLOAD\\FOGLIO\n");
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\estratti\\FOGLIO.EMP"), Dati("estratti/realistico.EMP"));
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\estratti\\FOGLIO.PNG"), Dati("estratti/realistico.PNG"));

    // A host path, upper-cased by the routine, still finds the file.
    radice.Scrivi("C:\\Download\\F0120.zip", Dati("zip/altro_scrittore.zip"));
    const Esito zip = Esegui(
        r + QStringList{"estratto", "copia", radice.Percorso() + "/drive_c/Download/F0120.zip"});
    EXPECT_EQ(zip.codice, 0) << zip.err.toStdString();
    EXPECT_EQ(zip.out, "NomeEstratto=F0120.EMP\n");
    EXPECT_TRUE(zip.err.startsWith("Copia Estratto in Pregeo: Esploso e Copiato nella cartella "
                                   "Estratti!\n"))
        << zip.err.toStdString();
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\estratti\\F0120.EMP"), Dati("estratti/realistico.EMP"));

    const Esito manca = Esegui(r + QStringList{"estratto", "copia", "C:\\Download\\manca.zip"});
    EXPECT_EQ(manca.codice, 1);
    EXPECT_EQ(manca.err, "Copia Estratto in Pregeo: C:\\DOWNLOAD\\MANCA.ZIP\nNON trovato!\n");

    radice.Scrivi("C:\\Download\\rotto.zip", "PK\x03\x04 non un archivio");
    const Esito rotto = Esegui(r + QStringList{"estratto", "copia", "C:\\Download\\rotto.zip"});
    EXPECT_EQ(rotto.codice, 1);
    EXPECT_TRUE(rotto.err.contains("Nella Routine DrageDrop")) << rotto.err.toStdString();

    const Esito dxf = Esegui(r + QStringList{"estratto", "copia", "C:\\Download\\Foglio.dxf"});
    EXPECT_EQ(dxf.codice, 2);
    EXPECT_EQ(dxf.err, "Ammessi file .EMP, .PNG, .ZIP\n");
}
