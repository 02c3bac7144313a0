// The estratto commands of tavolet-cli, as a script would call them.
#include "supporto.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet::test;

namespace {

// On a fixed day, on the root the environment gives.
Esito Estratto(const QStringList& argomenti) {
    return Esegui(QStringList{"--oggi", "15012026"} + argomenti);
}

} // namespace

TEST(CliEstratti, InfoDatiRiscriviPulisci) {
    QTemporaryDir dir;
    const QString in = PercorsoDati("estratti/realistico.EMP");
    const Esito info = Estratto({"estratto", "info", in});
    EXPECT_EQ(info.codice, 0) << info.err.toStdString();
    EXPECT_EQ(info.out, QString::fromLatin1(Dati("estratti/realistico_info.txt")));

    const Esito dati = Estratto({"estratto", "dati", in});
    EXPECT_EQ(dati.out, "Comune=A001\nFoglio=0120\nParticelle=257,258\nEstMedio=-3725\n");

    const QString out = dir.filePath("copia.EMP");
    EXPECT_EQ(Estratto({"estratto", "riscrivi", in, out}).codice, 0);
    EXPECT_EQ(LeggiFile(out), Dati("estratti/realistico_salvato.EMP"));
    EXPECT_EQ(LeggiFile(in), Dati("estratti/realistico.EMP")); // the input stays as it was

    QFile::copy(in, dir.filePath("p.EMP"));
    EXPECT_EQ(Estratto({"estratto", "pulisci", dir.filePath("p.EMP")}).codice, 0);
    EXPECT_EQ(LeggiFile(dir.filePath("p.EMP")), Dati("estratti/realistico_pulito.EMP"));

    // An extract without vertices: the error report on stderr, exit status 1.
    QFile f(dir.filePath("vuoto.EMP"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("0|15032024|P|A001|00120|1|PD|0|0|0|\r\n");
    f.close();
    const Esito vuoto = Estratto({"estratto", "info", dir.filePath("vuoto.EMP")});
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
    // Another writer: the extract only in a folder, the image in lower case.
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\estratti\\F0120.EMP"), Dati("estratti/realistico.EMP"));
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\estratti\\F0120.PNG"), Dati("estratti/realistico.PNG"));

    const Esito manca = Esegui(r + QStringList{"estratto", "copia", "C:\\Download\\manca.zip"});
    EXPECT_EQ(manca.codice, 1);
    EXPECT_EQ(manca.err, "Copia Estratto in Pregeo: C:\\DOWNLOAD\\MANCA.ZIP\nNON trovato!\n");

    const Esito dxf = Esegui(r + QStringList{"estratto", "copia", "C:\\Download\\Foglio.dxf"});
    EXPECT_EQ(dxf.codice, 2);
    EXPECT_EQ(dxf.err, "Ammessi file .EMP, .PNG, .ZIP\n");
}

// The archive commands, a CXF and a join, each on its own copy; names without a folder are
// Pregeo's extracts.
TEST(CliEstratti, ArchivioCxfUnione) {
    RadiceProva radice;
    radice.PregeoMinimo();
    const QStringList r = {"--radice", radice.Percorso()};
    const QString cartella = "C:\\pregeo\\estratti\\";
    radice.Scrivi(cartella + "F120.EMP", Dati("estratti/realistico.EMP"));
    radice.Scrivi(cartella + "F121.EMP", Dati("estratti/realistico_salvato.EMP"));

    const Esito validita = Esegui(r + QStringList{"estratto", "validita", "F120.EMP"});
    EXPECT_EQ(validita.codice, 0) << validita.err.toStdString();
    EXPECT_TRUE(validita.out.startsWith("L'Estratto ")) << validita.out.toStdString();

    const Esito verifica = Esegui(
        r + QStringList{"estratto", "verifica", radice.Percorso() + "/drive_c/pregeo/estratti"});
    EXPECT_EQ(verifica.codice, 0);
    // Points (rows 8 but the PF), PF, DISTANZA and PARTICELLA rows, as grep counts them.
    EXPECT_EQ(verifica.out, "F120.EMP 27 2 1 2\nF121.EMP 27 2 1 2\n");

    // Each command, then what the file it changed holds or no longer holds (the self-made head
    // before the points).
    const struct {
        QStringList comando;
        QString file;
        QByteArray testo;
        bool tiene;
    } comandi[] = {
        {{"rinomina-particella", "F120.EMP", "257", "300"}, "F120.EMP", "|NC|300|300|", true},
        {{"elimina-particella", "F120.EMP", "300"}, "F120.EMP", "|300|300|", false},
        {{"autoallestito", "F121.EMP"}, "F121.EMP", "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n8|", true},
        {{"azzera-ditte", "F120.EMP"}, "F120.EMP", "6|DITTA|", false},
    };
    for (const auto& c : comandi) {
        SCOPED_TRACE(c.comando.join(' ').toStdString());
        EXPECT_EQ(Esegui(r + QStringList{"estratto"} + c.comando).codice, 0);
        EXPECT_EQ(radice.Leggi(cartella + c.file).contains(c.testo), c.tiene);
    }
    EXPECT_EQ(Esegui(r + QStringList{"estratto", "vuota", "F121.EMP"}).codice, 0);
    EXPECT_EQ(radice.Leggi(cartella + "F121.EMP").count("\r\n"), 2);

    // The quotes of a pasted path are no part of the extension.
    radice.Scrivi("C:\\X\\q.emp", Dati("estratti/realistico.EMP"));
    const Esito copia = Esegui(r + QStringList{"estratto", "copia", "\"C:\\X\\q.emp\""});
    EXPECT_EQ(copia.codice, 0) << copia.err.toStdString();
    EXPECT_EQ(radice.Leggi(cartella + "Q.EMP"), Dati("estratti/realistico.EMP"));

    // The Rome sheet: no .SUP, the warning on stderr, the golden extract.
    QTemporaryDir dir;
    QFile::copy(PercorsoDati("estratti/H501D076700.CTF"), dir.filePath("roma.ctf"));
    const Esito cxf =
        Estratto({"estratto", "dacxf", dir.filePath("roma.ctf"), dir.filePath("R.EMP")});
    EXPECT_EQ(cxf.codice, 0) << cxf.err.toStdString();
    EXPECT_TRUE(cxf.err.contains("NON TROVATO!\n\n Sarà impossibile attribuire le superfici"));
    EXPECT_EQ(LeggiFile(dir.filePath("R.EMP")), Dati("estratti/H501D076700.EMP"));
    EXPECT_EQ(LeggiFile(dir.filePath("R.PNG")), "filevuoto\r\n");

    const Esito unisci = Estratto({"estratto", "unisci", dir.filePath("R.EMP"),
                                   dir.filePath("R.EMP"), dir.filePath("RR.EMP")});
    EXPECT_EQ(unisci.codice, 0);
    EXPECT_EQ(LeggiFile(dir.filePath("RR.EMP")).count("\r\n8|"),
              LeggiFile(dir.filePath("R.EMP")).count("\r\n8|"));
    const Esito manca = Estratto({"estratto", "unisci", dir.filePath("R.EMP"),
                                  dir.filePath("NO.EMP"), dir.filePath("X.EMP")});
    EXPECT_EQ(manca.codice, 1);
    EXPECT_FALSE(QFile::exists(dir.filePath("X.EMP")));
}

TEST(CliEstratti, CompletaAutoallestito) {
    QTemporaryDir dir;
    const QString emp = dir.filePath("AUTO.EMP");
    QFile f(emp);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n8|1%|0|0|\r\n7|4|1%|2%|3%|1%|NC|12|12|50|\r\n"
            "6|PARTICELLA|14|00|ENTE URBANO |90|90|1|2|SN|\r\n6|INQUADRAMENTO|0|0|1|0|0|1|\r\n");
    f.close();
    const QStringList comando = {"estratto", "completa", emp, "g224", "12"};
    EXPECT_EQ(Estratto(comando + QStringList{"12=SEMINATIVO:1"}).codice, 2); // no such button
    const Esito e =
        Estratto(comando + QStringList{"12=282:120,5", "14=fu d accert:300", "--provincia", "pd"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(LeggiFile(emp), Dati("estratti/autoallestito_completato.EMP"));
    // Job type 22 makes a parcel FABB PROMIS.
    EXPECT_EQ(Estratto(comando + QStringList{"12=282:7", "--tipo", "22", "--provincia", "XY"}).out,
              "0|AUTOALLESTITO|XY|G224|00012|12,14|XY|0|0|0|\n"
              "6|PARTICELLA|14|00|FU D ACCERT |300|300|1|2|SN|\n"
              "6|PARTICELLA|12|00|FABB PROMIS |7|7|||SN|\n");
}
