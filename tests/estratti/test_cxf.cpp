// CXF to .EMP: the real Rome sheet, generated sheets against the plain version, and bad input.
#include "cxf.h"
#include "estratto.h"
#include "generatore_cxf.h"
#include "riferimento_cxf.h"

#include "errore.h"
#include "supporto.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSet>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// Fast and plain version on the same input: the same text, or the same error.
void Confronta(const QString& cxf, const QStringList& sup, const std::string& caso) {
    PiattaformaFinta p;
    Stato s(p);
    const RisultatoCxf veloce = ComponiEmpDaCxf(s, cxf, sup);
    try {
        const RiferimentoCxf atteso = ComponiEmpDaCxfRiferimento(cxf, sup);
        ASSERT_TRUE(veloce.scritto) << caso << " " << p.Messaggi().join("\n").toStdString();
        ASSERT_EQ(veloce.emp, atteso.emp) << caso;
        ASSERT_EQ(p.eventi.size(), atteso.senzaCornice ? 1 : 0) << caso;
    } catch (const Errore& e) {
        ASSERT_FALSE(veloce.scritto) << caso << " reference error " << e.numero;
        ASSERT_EQ(p.eventi.size(), 1);
        EXPECT_TRUE(p.eventi[0].testo.startsWith(
            QStringLiteral("Si è verificato questo errore : %1\r\n").arg(e.numero)))
            << caso << p.eventi[0].testo.toStdString();
        EXPECT_TRUE(p.eventi[0].testo.endsWith("Nella Routine dacxfadxf1"));
    }
}

QStringList Righe(const QString& testo) {
    return RigheDiTesto(testo);
}

// A border in CXF items: name, the six items dropped, islands, total, island sizes, vertices.
QString Bordo(const QString& nome, const QList<int>& isole, const QStringList& coordinate) {
    QStringList v = {"BORDO",
                     nome,
                     "12",
                     "0.000",
                     "1",
                     "2",
                     "3",
                     "4",
                     QString::number(isole.size()),
                     QString::number(coordinate.size() / 2)};
    for (int i : isole) v << QString::number(i);
    v += coordinate;
    return v.join("\r\n") + "\r\n";
}

const QString kTesta = "MAPPA\r\nH501D076700\r\n4000.000\r\n";

} // namespace

TEST(Cxf, FoglioRealeDiRoma) {
    const QString cxf = DaWindows1252(Dati("estratti/H501D076700.CTF"));
    QElapsedTimer orologio;
    orologio.start();
    PiattaformaFinta p;
    Stato s(p);
    const RisultatoCxf r = ComponiEmpDaCxf(s, cxf, {});
    const qint64 ms = orologio.elapsed();
    ASSERT_TRUE(r.scritto);
    EXPECT_TRUE(p.eventi.isEmpty());
    EXPECT_EQ(AWindows1252(r.emp), Dati("estratti/H501D076700.EMP"));
    // Far below the plain version: a loose bound so that a slow machine does not fail it.
    EXPECT_LT(ms, 3000);

    const RiferimentoCxf atteso = ComponiEmpDaCxfRiferimento(cxf, {});
    EXPECT_EQ(r.emp, atteso.emp);

    // Read back: one point per distinct coordinate text, one ring row per border.
    QSet<QString> distinte;
    const QStringList righe = cxf.split("\r\n");
    int bordi = 0, vertici = 0;
    for (int i = 0; i < righe.size(); ++i) {
        if (righe[i] != "BORDO") continue;
        ++bordi;
        const int isole = righe[i + 8].trimmed().toInt();
        const int totale = righe[i + 9].trimmed().toInt();
        const int inizio = i + 10 + isole;
        for (int k = 0; k < totale; ++k)
            distinte.insert(righe[inizio + 2 * k].trimmed() + '|' +
                            righe[inizio + 2 * k + 1].trimmed());
        vertici += totale;
    }
    EXPECT_EQ(bordi, 516);
    EXPECT_EQ(vertici, 9109);
    const Estratto e = EsplodiTestoEstratto(s, r.emp);
    EXPECT_TRUE(p.eventi.isEmpty());
    EXPECT_EQ(e.Punti.size(), distinte.size());
    EXPECT_EQ(e.SETTE.size(), 516);
    EXPECT_EQ(e.ALTRO.size(), 1); // the scale; the distortion row lands with DISTANZA
    EXPECT_EQ(e.DISTANZA.size(), 1);
    EXPECT_EQ(e.SETTE.filter("|20|").size(), 516); // no .SUP: every parcel 20 square metres
    // North first: the rows 8 hold y then x.
    EXPECT_TRUE(e.Punti[0].contains("|46"));
    EXPECT_TRUE(r.emp.startsWith(
        "0|05102017|XX0000000/2017|A000|00180|1,2,3|XX|PUB|ABCDEF|00000000000000|\r\n8|1%|"));
}

TEST(Cxf, FogliGeneratiUgualiAllaVersioneSemplice) {
    for (unsigned seme = 1; seme <= 120; ++seme) {
        OpzioniCxf o;
        o.seme = seme;
        o.stranezze = seme % 3 == 0;
        o.righe = 2 + int(seme % 9);
        o.colonne = 3 + int(seme % 7);
        const FoglioCxf f = GeneraCxf(o);
        Confronta(f.cxf, Righe(f.sup), "seme " + std::to_string(seme));
        if (seme % 10 == 0) Confronta(f.cxf, {}, "senza sup " + std::to_string(seme));
    }
}

TEST(Cxf, CasiDellaConversione) {
    PiattaformaFinta p;
    Stato s(p);
    // Two borders share a corner of equal text; "12.50" and "12.5" stay two points.
    const QString due =
        kTesta + Bordo("12", {}, {"1.0", "2.0", "3.0", "2.0", "12.50", "9.0", "1.0", "2.0"}) +
        Bordo("13", {}, {"3.0", "2.0", "12.5", "9.0", "3.0", "2.0"});
    const RisultatoCxf r = ComponiEmpDaCxf(s, due, {"TESTATA", "123      55", "12       99"});
    ASSERT_TRUE(r.scritto);
    EXPECT_EQ(r.emp, "0|05102017|XX0000000/2017|A000|00180|1,2,3|XX|PUB|ABCDEF|00000000000000|\r\n"
                     "8|1%|2.0|1.0|\r\n"
                     "8|2%|9.0|12.50|\r\n"
                     "8|3%|9.0|12.5|\r\n"
                     "8|4%|2.0|3.0|\r\n"
                     // "12" matches the line of "123" first: the test is the start of the line.
                     "7|4|1%|4%|2%|1%|NC|12|12|55|\r\n"
                     "7|3|4%|3%|4%|NC|13|13|20|\r\n"
                     "6|DISTORSIONE|1.5|\r\n6|SCALAORIGINARIA|2000|\r\n"
                     "6|INQUADRAMENTO|3.0|2.0|0.1693333333|0|0|0|\r\n");

    // Islands: each island's size sticks to the id before it; eleven ids go on two rows.
    QStringList c;
    for (int k = 0; k < 8; ++k) c << QString::number(k) << "0";
    for (int k = 0; k < 4; ++k) c << QString::number(k) << "5";
    const RisultatoCxf isole = ComponiEmpDaCxf(s, kTesta + Bordo("7", {2, 2}, c), {});
    ASSERT_TRUE(isole.scritto);
    EXPECT_TRUE(isole.emp.contains(
        "7|8|1%|3%|5%|7%|9%|10%|11%|12%2|2%|4%2|NC|7|7|20|\r\n7|0|6%|8%|NC|\r\n"))
        << isole.emp.toStdString();
    EXPECT_TRUE(p.eventi.isEmpty());

    // No border at all: the head, the three fixed rows, and the report of the framing step.
    const RisultatoCxf vuoto = ComponiEmpDaCxf(s, kTesta + "TESTO\r\nX\r\nEOF\r\n", {});
    EXPECT_TRUE(vuoto.scritto);
    EXPECT_EQ(vuoto.emp,
              "0|05102017|XX0000000/2017|A000|00180|1,2,3|XX|PUB|ABCDEF|00000000000000|\r\n"
              "6|DISTORSIONE|1.5|\r\n6|SCALAORIGINARIA|2000|\r\n"
              "6|INQUADRAMENTO||0.1693333333|0|0|0|\r\n");
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_TRUE(p.eventi[0].testo.endsWith("Nella Routine dacxfadxf2"));
}

TEST(Cxf, RigaSetteDaCXF) {
    QString dieci = "7|11";
    for (int k = 1; k <= 10; ++k) dieci += QStringLiteral("|%1%").arg(k);
    EXPECT_EQ(RigaSetteDaCXF(dieci, "A|A|20|"), "7|11|1%|2%|3%|4%|5%|6%|7%|8%|9%|10%|NC|A|A|20|");
    EXPECT_EQ(RigaSetteDaCXF(dieci + "|11%", "A|A|20|"),
              "7|11|1%|2%|3%|4%|5%|6%|7%|8%|9%|10%|NC|A|A|20|\r\n7|0|11%|NC|");
    QString ventuno = dieci;
    for (int k = 11; k <= 21; ++k) ventuno += QStringLiteral("|%1%").arg(k);
    EXPECT_EQ(RigaSetteDaCXF(ventuno, "B|B|5|").count("\r\n7|0|"), 2);
    EXPECT_EQ(RigaSetteDaCXF("7|", "X|X|20|"), "7||NC|X|X|20|");
    EXPECT_EQ(AreaDaSup({"12       99"}, "12"), "20"); // the first line is a heading
    EXPECT_EQ(AreaDaSup({"h", "12          0"}, "12"), "20");
    EXPECT_EQ(AreaDaSup({"h", "00123    1234.5 "}, "00123"), "1234.5");
}

// Bad input of every kind: the error report under the reading stage, nothing written.
TEST(Cxf, InputRottoNonScriveNulla) {
    QStringList righe;
    for (int k = 0; k < 600; ++k) righe << "4";
    const QList<std::pair<QString, int>> casi = {
        {kTesta + "BORDO\r\n12\r\n12\r\n0.000\r\n1\r\n2\r\n3\r\n4\r\n0\r\n5\r\n1.0\r\n", 62},
        {kTesta + "BORDO\r\n12\r\n12\r\n0\r\n1\r\n2\r\n3\r\n4\r\n0\r\n1e9\r\n1.0\r\n2.0\r\n", 62},
        {kTesta + "BORDO\r\n12\r\n12\r\n0\r\n1\r\n2\r\n3\r\n4\r\n0\r\n1e12\r\n", 6},
        {kTesta + Bordo("1", {}, {"1.0", "abc", "2.0", "3.0"}), 13},
        {kTesta + "BORDO\r\n12\r\n12\r\n0\r\n1\r\n2\r\n3\r\n4\r\n600\r\n2400\r\n" +
             righe.join("\r\n"),
         9},
    };
    RadiceProva radice;
    for (const auto& [cxf, numero] : casi) {
        PiattaformaFinta p;
        Stato s(p);
        QElapsedTimer orologio;
        orologio.start();
        radice.Scrivi("C:\\CXF\\ROTTO.CXF", AWindows1252(cxf));
        radice.Scrivi("C:\\CXF\\ROTTO.SUP", QByteArray("\x00\xff\x01\r\x80\n", 6));
        EXPECT_EQ(EstrattoDaCxf(s, "C:\\CXF\\ROTTO.CXF"), "");
        EXPECT_LT(orologio.elapsed(), 2000);
        ASSERT_EQ(p.eventi.size(), 1) << p.Messaggi().join("\n").toStdString();
        EXPECT_TRUE(p.eventi[0].testo.contains(QStringLiteral(": %1\r\n").arg(numero)))
            << p.eventi[0].testo.toStdString();
        EXPECT_FALSE(QFile::exists(radice.Percorso() + "/drive_c/CXF/ROTTO.EMP"));
        EXPECT_FALSE(QFile::exists(radice.Percorso() + "/drive_c/CXF/ROTTO.PNG"));
        Confronta(cxf, {}, std::to_string(numero));
    }
}

TEST(Cxf, SuFileConSupEPng) {
    RadiceProva radice;
    PiattaformaFinta p;
    Stato s(p);
    const QString cxf =
        kTesta + Bordo("257", {}, {"1.0", "2.0", "3.0", "2.0", "3.0", "5.0", "1.0", "2.0"});
    radice.Scrivi("C:\\CXF\\Foglio.cxf", AWindows1252(cxf));
    // A .SUP of binary bytes: no name matches, the area is 20.
    radice.Scrivi("C:\\CXF\\FOGLIO.SUP", QByteArray("\x00\xff\r\n257\x00\x80", 8));
    EXPECT_EQ(EstrattoDaCxf(s, "C:\\CXF\\Foglio.cxf"), "C:\\CXF\\FOGLIO.EMP");
    EXPECT_EQ(p.Messaggi(), QStringList{"Estratto da CXF: Creato!\r\nC:\\CXF\\FOGLIO.EMP"});
    EXPECT_EQ(radice.Leggi("C:\\CXF\\FOGLIO.PNG"), "filevuoto\r\n");
    EXPECT_TRUE(radice.Leggi("C:\\CXF\\FOGLIO.EMP").contains("7|4|1%|2%|3%|1%|NC|257|257|20|\r\n"));

    // Another extension and no .SUP: the warning, and the conversion goes on.
    p.eventi.clear();
    radice.Scrivi("C:\\pregeo\\estratti\\LEGGIMI.TXT", "x");
    radice.Scrivi("C:\\CXF\\ROMA.CTF", Dati("estratti/H501D076700.CTF"));
    EXPECT_EQ(EstrattoDaCxf(s, "C:\\CXF\\ROMA.CTF", "C:\\pregeo\\estratti\\Roma.EMP"),
              "C:\\pregeo\\estratti\\Roma.EMP");
    ASSERT_EQ(p.eventi.size(), 2);
    EXPECT_EQ(p.eventi[0].testo, "FILE C:\\CXF\\ROMA.SUPNON TROVATO!\r\n\r\n Sarà impossibile "
                                 "attribuire le superfici alle particelle!");
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\estratti\\Roma.EMP"), Dati("estratti/H501D076700.EMP"));
}
