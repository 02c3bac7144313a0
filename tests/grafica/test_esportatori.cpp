// The four exporters: golden files, their odd corners, and the real DXF readers.
#include "grafica.h"
#include "supporto.h"

#include "file_testo.h"
#include "testo.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Esportatori : ConPregeo {
    VistaGrafica vista;
    ModelloGrafica g{&vista};
    void Estratto() { BV_CaricaEstratto_EMP(s, g, PercorsoDati("grafica/ESTRATTO.EMP")); }
};

QByteArray Byte(const QString& testo) {
    return AWindows1252(testo);
}

// With TAVOLET_RIGENERA set, the golden files are written from the output (to be read by eye
// before committing them).
void Rigenera(const QString& nome, const QString& testo) {
    if (qEnvironmentVariableIsEmpty("TAVOLET_RIGENERA")) return;
    QFile f(PercorsoDati(nome));
    if (f.open(QIODevice::WriteOnly)) f.write(Byte(testo));
}

} // namespace

TEST_F(Esportatori, IQuattroFileDiEstrattoEPropostaComeIGolden) {
    for (const QString base : {"grafica/ESTRATTO", "grafica/PROPOSTA"}) {
        VistaGrafica v; // a fresh plot for each
        ModelloGrafica m{&v};
        if (base.endsWith("ESTRATTO")) {
            BV_CaricaEstratto_EMP(s, m, PercorsoDati(base + ".EMP"));
        } else {
            m.PropostaSiNo = 1;
            CaricaRigheProposta(s, m, LeggiRighe(PercorsoDati(base + ".SUR")));
        }
        const QList<std::pair<QString, QString>> file = {{".DXF", TestoDXF(m)},
                                                         {"_STAMPE.TXT", TestoStampa(m)},
                                                         {".HTML", TestoHTML5(m)},
                                                         {"_COPIAINFILE.TXT", TestoCopiaInFile(m)}};
        for (const auto& [coda, testo] : file) {
            Rigenera(base + coda, testo);
            EXPECT_EQ(Byte(testo), Dati(base + coda)) << (base + coda).toStdString();
        }
    }
}

TEST_F(Esportatori, IFileVannoNellaCartellaDelProgrammaOAllaSegnalazione) {
    Estratto();
    ASSERT_TRUE(BV_SalvaDXF(s, g));
    EXPECT_EQ(LeggiByte(s.amb.CartellaProgramma + "\\GraficaPF.DXF"), Dati("grafica/ESTRATTO.DXF"));
    ASSERT_TRUE(GeneraStampa(s, g));
    EXPECT_TRUE(EsisteFile(s.amb.CartellaProgramma + "\\Stampe.TXT"));
    ASSERT_TRUE(GeneraHTML5_CANVAS(s, g));
    EXPECT_TRUE(EsisteFile(s.amb.CartellaProgramma + "\\Stampe.HTML"));
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_EQ(p.eventi[0].tipo, "apriconprogramma");
    ASSERT_TRUE(BV_CopiaInFile(s, g));
    EXPECT_TRUE(EsisteFile(s.amb.CartellaProgramma + "\\temp\\CopiaInFile.TXT"));
    // Names off: the parcel labels leave the DXF.
    const int conNomi = TestoDXF(g).count("TEXT\r\n");
    vista.NomiNo = 1;
    EXPECT_EQ(TestoDXF(g).count("TEXT\r\n"), conNomi - 4);
    // A write that fails goes to the error report.
    radice.Scrivi("C:\\occupato", "x"); // a file where a folder should be
    EXPECT_FALSE(BV_SalvaDXF(s, g, "C:\\occupato\\G.DXF"));
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].contains("BV_SalvaDXF"));
}

TEST_F(Esportatori, CopiaInFileVaDaBravantaQuandoCE) {
    Estratto();
    const QString bravanta = s.amb.CartellaDocumenti + "\\Bravanta";
    radice.Scrivi(bravanta + "\\Bravanta.EXE", "MZ");
    EXPECT_EQ(ApriCopiaInfile(s), bravanta + "\\temp\\CopiaInFile.TXT");
    ASSERT_TRUE(BV_CopiaInFile(s, g));
    EXPECT_EQ(LeggiByte(bravanta + "\\temp\\CopiaInFile.TXT"),
              Dati("grafica/ESTRATTO_COPIAINFILE.TXT"));
    EXPECT_TRUE(s.UltimoRisultato.isEmpty()); // nobody asked for a paste
    radice.Scrivi(s.amb.CartellaProgramma + "\\temp\\IncollaDaFileSiNo.TXT", "1");
    ASSERT_TRUE(BV_CopiaInFile(s, g));
    EXPECT_TRUE(s.UltimoRisultato.endsWith("CopiaInFile.TXT"));
}

TEST_F(Esportatori, DXFDiUnaTabellaVuotaEStratiDelleLinee) {
    const QString dxf = TestoDXF(g);
    EXPECT_EQ(dxf.count("POINT\r\n 8\r\n"), 12);
    EXPECT_EQ(dxf.count(" 10\r\n0\r\n 20\r\n0\r\n"), 12);
    EXPECT_TRUE(
        dxf.startsWith(" 0\r\nSECTION\r\n 2\r\nENTITIES\r\n 0\r\nPOINT\r\n 8\r\nLINEE_SCHEMA\r\n"));
    EXPECT_TRUE(dxf.endsWith("  0\r\nENDSEC\r\n  0\r\nEOF\r\n"));
    // A line of colour 13 takes the layer of the one before it.
    BV_AggiungiLineaGraf(g, 0, 0, 0, 1, 1, 0, 0, 1, 1);
    BV_AggiungiLineaGraf(g, 0, 0, 0, 1, 1, 0, 13, 1, 2);
    BV_AggiungiLineaGraf(g, 0, 0, 0, 1, 1, 0, 9, 1, 7);
    const QString linee = TestoDXF(g);
    EXPECT_TRUE(linee.contains("LINE\r\n 8\r\nLINEE_NT\r\n 62\r\n0\r\n"));
    EXPECT_TRUE(linee.contains("LINE\r\n 8\r\nLINEE_NTP\r\n 62\r\n13\r\n"));
    EXPECT_TRUE(linee.contains("LINE\r\n 8\r\nLINEE_B\r\n 62\r\n9\r\n"));
    const QString copia = TestoCopiaInFile(g);
    EXPECT_TRUE(copia.contains(",\"NT\"\r\n"));
    EXPECT_TRUE(copia.contains(",\"RP\"\r\n"));
    EXPECT_TRUE(copia.contains(",\"B\"\r\n"));
}

// The extract's DXF as ezdxf and ogrinfo read it: the entities of each layer.
TEST_F(Esportatori, EzdxfEOgrinfoLegganoIlDXFConIConteggiPerStrato) {
    Estratto();
    QTemporaryDir dir;
    const QString file = dir.filePath("g.dxf");
    ASSERT_TRUE(BV_SalvaDXF(s, g, file));
    const bool ezdxf = EseguiProgramma("/usr/bin/python3", {"-c", "import ezdxf"}).codice == 0;
    const bool ogrinfo = QFileInfo("/usr/bin/ogrinfo").exists();
    if (ezdxf) {
        const QString script =
            "import sys, collections\n"
            "from ezdxf import recover\n"
            "doc, auditor = recover.readfile(sys.argv[1])\n"
            "c = collections.Counter((e.dxftype(), e.dxf.layer) for e in doc.modelspace())\n"
            "for k in sorted(c): print(k[0], k[1], c[k])\n";
        const Esito e = EseguiProgramma("/usr/bin/python3", {"-c", script, file});
        const QString testo = e.out + e.err;
        ASSERT_EQ(e.codice, 0) << testo.toStdString();
        for (const char* riga :
             {"LINE LINEE_NC 24\n", "LINE LINEE_RT 2\n", "POINT PUNTI_S 33\n", "TEXT PUNTI_N 33\n",
              "POINT LINEE_SCHEMA 1\n", "POINT PUNTI_HPS 1\n"})
            EXPECT_TRUE(testo.contains(riga)) << riga << testo.toStdString();
    }
    if (!ogrinfo) GTEST_SKIP() << "ogrinfo (gdal-bin) non installato";
    const Esito e = EseguiProgramma(
        "/usr/bin/ogrinfo",
        {"-ro", "-q", "-dialect", "SQLite", "-sql",
         "SELECT Layer, ST_GeometryType(GEOMETRY) AS t, COUNT(*) AS n FROM entities "
         "GROUP BY Layer, t",
         file});
    const QString testo = e.out + e.err;
    ASSERT_EQ(e.codice, 0) << testo.toStdString();
    auto conta = [&](const QString& strato, const QString& geometria) {
        // One feature a group: "Layer (String) = X", "t (String) = Y", "n (Integer) = N".
        const QStringList righe = testo.split('\n');
        for (int i = 0; i + 2 < righe.size(); ++i)
            if (righe[i].trimmed() == "Layer (String) = " + strato &&
                righe[i + 1].trimmed() == "t (String) = " + geometria)
                return Trim(righe[i + 2].section('=', 1)).toInt();
        return -1;
    };
    EXPECT_EQ(conta("LINEE_NC", "LINESTRING"), 24) << testo.toStdString();
    EXPECT_EQ(conta("LINEE_RT", "LINESTRING"), 2);
    EXPECT_EQ(conta("PUNTI_S", "POINT"), 33);
    EXPECT_EQ(conta("PUNTI_N", "POINT"), 33); // the names, as points with their text
    EXPECT_EQ(conta("LINEE_SCHEMA", "POINT"), 1);
    if (!ezdxf) GTEST_SKIP() << "python3-ezdxf non installato (/usr/bin/python3)";
}
