// SalvaEstratto1: the bytes written, step by step where the steps show.
#include "estratto.h"

#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kTesta = QStringLiteral("0|15032024|PD0012345/2024|A001|00120|257|PD|0|0|0|");

struct Scrittura : ::testing::Test {
    PiattaformaFinta piattaforma;
    Stato stato{piattaforma};
    RadiceProva radice;
    const QString percorso = QStringLiteral("C:\\pregeo\\estratti\\E.EMP");

    // Writes the rows as a file, reads it and saves it; the bytes of the result.
    QByteArray Ciclo(const QByteArray& byte) {
        radice.Scrivi(percorso, byte);
        Estratto e = EsplodiEstratto(stato, percorso);
        SalvaEstratto1(stato, e);
        return radice.Leggi(percorso);
    }
    QByteArray Ciclo(const QStringList& righe) { return Ciclo(Righe(righe)); }
    // The ring rows (kind 7, not continuations) of a file, by name.
    static QStringList Nomi(const QByteArray& byte) {
        QStringList nomi;
        for (const QString& r : RigheDiTesto(DaWindows1252(byte)))
            if (r.startsWith("7|") && !r.startsWith("7|0|") && !r.contains("L|"))
                nomi << r.split('|').at(r.count('|') - 2);
        return nomi;
    }
};

} // namespace

TEST_F(Scrittura, EstrattoRealisticoComeIlFileAtteso) {
    EXPECT_EQ(Ciclo(Dati("estratti/realistico.EMP")), Dati("estratti/realistico_salvato.EMP"));
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());
}

TEST_F(Scrittura, SoloLaRigaZero) {
    // Reading reports the missing vertices; the save still writes row 0 and an empty line.
    EXPECT_EQ(Ciclo({kTesta}), Righe({kTesta, ""}));
    EXPECT_EQ(piattaforma.Messaggi().size(), 1);
    // A self-made head is written as it was, though its age was counted from 2009.
    const QString autoallestito = "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|";
    EXPECT_EQ(Ciclo({autoallestito, "8|1%|0|0|"}), Righe({autoallestito, "8|1%|0|0|", ""}));
}

TEST_F(Scrittura, DieciEUndiciIdPerRiga) {
    QStringList punti;
    for (int i = 1; i <= 10; ++i)
        punti << QStringLiteral("8|%1%|%2|%3|").arg(i).arg(i % 2 * 10).arg(i / 2 * 3);
    const QByteArray dieci = Ciclo(QStringList{kTesta} + punti +
                                   QStringList{"7|10|1%|2%|3%|4%|5%|6%|7%|8%|9%|1%|NC|A|A|0|"});
    EXPECT_TRUE(dieci.contains("\r\n7|10|1%|2%|3%|4%|5%|6%|7%|8%|9%|1%|NC|A|A|"));
    EXPECT_FALSE(dieci.contains("7|0|"));
    const QByteArray undici =
        Ciclo(QStringList{kTesta} + punti +
              QStringList{"7|11|1%|2%|3%|4%|5%|6%|7%|8%|9%|10%|NC|A|A|0|", "7|0|1%|NC|"});
    EXPECT_TRUE(undici.contains("|10%|NC|A|A|"));
    EXPECT_TRUE(undici.contains("\r\n7|0|1%|NC|\r\n"));
    // Field 1 is copied, never recounted.
    const QByteArray conta =
        Ciclo(QStringList{kTesta} + punti + QStringList{"7|99|1%|2%|3%|1%|NC|A|A|0|"});
    EXPECT_TRUE(conta.contains("\r\n7|99|1%|2%|3%|1%|NC|A|A|"));
}

TEST_F(Scrittura, DueCicliRipristinanoLOrdineDegliAnelli) {
    const QByteArray uno = Ciclo(Dati("estratti/realistico.EMP"));
    const QByteArray due = Ciclo(uno);
    const QByteArray tre = Ciclo(due);
    QStringList rovescio = Nomi(uno);
    std::reverse(rovescio.begin(), rovescio.end());
    EXPECT_EQ(Nomi(uno), QStringList({"258+", "258", "257", "257-"}));
    EXPECT_EQ(Nomi(due), rovescio);
    EXPECT_EQ(tre, uno);
}

TEST_F(Scrittura, AreeIsoleEArrotondamento) {
    const QStringList punti = {"8|1%|0|0|",      "8|2%|0|10|",        "8|3%|10|10|",
                               "8|4%|10|0|",     "8|5%|2|2|",         "8|6%|2|6|",
                               "8|7%|6|6|",      "8|8%|6|2|",         "8|9%|20|0|",
                               "8|10%|20|5.04|", "8|11%|25.04|5.04|", "8|12%|25.04|0|"};
    // File order is reversed on reading: C comes first in the lists, B last.
    const QByteArray byte =
        Ciclo(QStringList{kTesta} + punti +
              QStringList{"7|5|9%|10%|11%|12%|9%|NC|B|B|0|", "7|5|5%|6%|7%|8%|5%|NC|A-|A-|0|",
                          "7|5|1%|2%|3%|4%|1%|NC|A|A|0|", "7|5|9%|10%|11%|12%|9%|NC|C|C|0|"});
    // A loses its island (100 - 16), which comes after it; 25.4016 gives 25 either way.
    EXPECT_TRUE(byte.contains("NC|C|C|25|")) << byte.constData();
    EXPECT_TRUE(byte.contains("NC|A|A|84|"));
    EXPECT_TRUE(byte.contains("NC|A-|A-|16|"));
    EXPECT_TRUE(byte.contains("NC|B|B|25|"));
    const QStringList q = {"8|1%|0|0|", "8|2%|0|5.7|", "8|3%|5.7|5.7|", "8|4%|5.7|0|"};
    const QStringList r = {"8|1%|0|0|", "8|2%|0|5.8|", "8|3%|5.8|5.8|", "8|4%|5.8|0|"};
    const QByteArray b =
        Ciclo(QStringList{kTesta} + r +
              QStringList{"7|5|1%|2%|3%|4%|1%|NC|Y|Y|0|", "7|5|1%|2%|3%|4%|1%|NC|X|X|0|"});
    // 5.8 x 5.8 = 33.64: cut to 33 when not last, rounded to 34 when last.
    EXPECT_TRUE(b.contains("NC|X|X|33|")) << b.constData();
    EXPECT_TRUE(b.contains("NC|Y|Y|34|"));
    // A ring of two points has no area: the picture writes nothing.
    const QByteArray piatto =
        Ciclo(QStringList{kTesta} + q + QStringList{"7|3|1%|2%|1%|NC|Z|Z|9|"});
    EXPECT_TRUE(piatto.contains("NC|Z|Z||"));
}

TEST_F(Scrittura, OrdineRinumerazioneEPuntiDiLineeLibere) {
    const QByteArray byte = Ciclo(
        {kTesta, "8|12%|0|0|", "8|007%|0|10|", "8|3%|10|10|", "8|PF01/0120/A001|1|1|",
         "8|9T|5|5|0|V|", "8|1L|0|0|", "8|2L|0|1|", "8|3L|0|2|", "7|4|12%|007%|3%|12%|NC|P|P|0|",
         "7|3|1L|2L|3L|NT|||0|", "6|SCALAORIGINARIA|2000|", "6|DISTORSIONE|1.5|", "6|NUOVO|x|",
         "6|PFCART|PF01|1|1|", "6|PARTICELLA|P|01|PRATO       |50|50|0|0|", "6|DITTA|P|VERDI|LUCA|",
         "6|DISTANZA|a|b|1|"});
    // Numbers go up (1L..3L become 5L..7L): walked from the last, no chain.
    // Sorted as text in ten columns: "007%" stands after "12%".
    EXPECT_EQ(byte,
              Righe({kTesta, "8|1%|10|10|", "8|2%|0|0|", "8|3%|0|10|", "8|4T|5|5|0|V|", "8|5L|0|0|",
                     "8|6L|0|1|", "8|7L|0|2|", "8|PF01/0120/A001|1|1|",
                     "7|4|2%|3%|1%|2%|NC|P|P|50|", "7|3|5L|6L|7L|NT|||0|", "6|DITTA|P|VERDI|LUCA|",
                     "6|PARTICELLA|P|01|PRATO       |50|50|0|0|", "6|PFCART|PF01|1|1|",
                     "6|DISTORSIONE|1.5|", "6|DISTANZA|a|b|1|", "6|SCALAORIGINARIA|2000|", ""}));
    // Numbers go down: walked from the first.
    const QByteArray giu =
        Ciclo({kTesta, "8|1%|0|0|", "8|20L|0|0|", "8|21L|0|1|", "7|2|20L|21L|NT|||0|"});
    EXPECT_TRUE(giu.contains("\r\n7|2|2L|3L|NT|||0|\r\n")) << giu.constData();
}

TEST_F(Scrittura, AnelloTroppoLungoLasciaIlFileVecchio) {
    QStringList righe{kTesta};
    QString anello = "7|0|";
    for (int i = 1; i <= 520; ++i) {
        righe << QStringLiteral("8|%1%|%2|%3|").arg(i).arg(i).arg(i * i % 97);
        anello += QString::number(i) + "%|";
    }
    righe << "7|521|1%|NC|G|G|0|" << anello + "1%|NC|";
    const QByteArray vecchio = Righe(righe);
    EXPECT_EQ(Ciclo(vecchio), vecchio);
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_EQ(piattaforma.Messaggi()[0],
              "Rilevato errore: Si è verificato questo errore : 9\r\n"
              "Indice non incluso nell'intervallo\r\nNella Routine SalvaEstratto1");
}

TEST_F(Scrittura, CalcolaAreaETabelleDeiVertici) {
    Estratto e;
    e.Punti = {"8|1%|0|0|", "8|2%|0|4|", "8|3%|3|4|", "8|1%|99|99|"};
    // The first row of an id counts; 3 x 4 triangle.
    ASSERT_TRUE(CalcolaAreaRigaSette(stato, e, "7|6|1%|2%|3%|2%|3%|1%|NC|T|T|0|"));
    EXPECT_DOUBLE_EQ(e.AreaRigaSette, 6);
    EXPECT_DOUBLE_EQ(e.XVertici[5], 4);
    // The style slot (the fifth here) keeps what the ring before left there; closed rings
    // cancel its two edges.
    ASSERT_TRUE(CalcolaAreaRigaSette(stato, e, "7|4|1%|2%|3%|1%|NC|T|T|0|"));
    EXPECT_DOUBLE_EQ(e.XVertici[5], 4);
    EXPECT_DOUBLE_EQ(e.YVertici[5], 3);
    EXPECT_DOUBLE_EQ(e.AreaRigaSette, 6);
    EXPECT_DOUBLE_EQ(e.PerimetroRigaSette, 12 + 2 * 5);
    ASSERT_TRUE(CalcolaAreaRigaSette(stato, e, "7|3|1%|2%|1%|NC|T|T|0|"));
    EXPECT_DOUBLE_EQ(e.AreaRigaSette, 0);
    ASSERT_TRUE(CalcolaAreaRigaSette(stato, e, "7|1|1%|NC|T|T|0|"));
    EXPECT_DOUBLE_EQ(e.AreaRigaSette, 0);
    // Past the tables: the report, under the caller's tag.
    stato.TagRoutine = "Chiamante";
    QString lungo = "7|600|";
    for (int i = 0; i < 600; ++i) lungo += "1%|";
    EXPECT_FALSE(CalcolaAreaRigaSette(stato, e, lungo + "NC|L|L|0|"));
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi()[0].endsWith("Nella Routine Chiamante"));
}

TEST_F(Scrittura, CartellaMancanteNessunFile) {
    Estratto e = EsplodiTestoEstratto(stato, DaWindows1252(Righe({kTesta, "8|1%|0|0|"})),
                                      "C:\\non\\esiste\\E.EMP");
    EXPECT_FALSE(SalvaEstratto1(stato, e));
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi()[0].contains(": 76\r\n"));
    // The form is kept after a failed save; a good save drops it.
    EXPECT_EQ(e.Punti.size(), 1);
    e.Percorso = percorso;
    CreaCartella("C:\\pregeo\\estratti");
    EXPECT_TRUE(SalvaEstratto1(stato, e));
    EXPECT_TRUE(e.Punti.isEmpty());
    EXPECT_EQ(radice.Leggi(percorso), Righe({kTesta, "8|1%|0|0|", ""}));
}
