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
