#include "righe.h"

#include "errore.h"
#include "piattaforma_finta.h"
#include "stato.h"

#include <gtest/gtest.h>

using namespace tavolet;

TEST(Righe, TipoDaLetturaNumericaEPuntiDelContorno) {
    // A kind that is not a whole number is -1.
    const std::pair<const char*, int> tipi[] = {{"", 0},       {" 6|x|", 6}, {"6a|x|", 6},
                                                {"8|PF", 8},   {"ABC|", 0},  {"1.5|", -1},
                                                {"1E999|", -1}};
    for (const auto& [riga, tipo] : tipi) EXPECT_EQ(TipoRiga(riga), tipo) << riga;
    // A value of 0 ends the points as a type code does.
    const std::pair<const char*, int> punti[] = {{"7|2|1|2|RC|", 2},
                                                 {"7|3|10|11|12|N|", 3},
                                                 {"7|0|11|12|RC|", 2},
                                                 {"7|3|5|0|6|RC|", 1},
                                                 {"7|2|1|2|", 2}};
    for (const auto& [riga, n] : punti) EXPECT_EQ(ScomponiRiga(riga).NumeroPunti, n) << riga;
}

TEST(Righe, ScomponiRigaContaFinoAlPrimoCampoVuoto) {
    RigaScomposta r = ScomponiRiga("8|1|-12571.845|-5882.526|SF|");
    EXPECT_EQ(r.NumeroCampi, 4);
    EXPECT_EQ(r.Campo(2), "-12571.845");
    EXPECT_EQ(r.Campo(99), "");
    r = ScomponiRiga("8|1|||x|");
    EXPECT_EQ(r.NumeroCampi, 1); // an empty field in the middle makes the row shorter
    EXPECT_EQ(r.Campo(4), "x");
    EXPECT_EQ(ScomponiRiga("   ").NumeroCampi, 0);
    EXPECT_TRUE(ScomponiRiga("").campi.isEmpty());
}

TEST(Righe, CommentoLungoRestaIntero) {
    const QString lungo = "6|Una nota con | dentro che supera i quaranta caratteri|";
    ASSERT_GE(lungo.size(), 41);
    RigaScomposta r = ScomponiRiga(lungo);
    EXPECT_EQ(r.Campo(0), "6");
    EXPECT_EQ(r.Campo(1), lungo.mid(2));
    EXPECT_EQ(r.NumeroCampi, 1);
    const QString corto = "6|a|b|c|"; // under 41 characters: split as usual
    EXPECT_EQ(ScomponiRiga(corto).NumeroCampi, 3);
    const QString quaranta = QString("6|") + QString(37, 'x') + "|";
    ASSERT_EQ(quaranta.size(), 40);
    EXPECT_EQ(ScomponiRiga(quaranta).Campo(1), QString(37, 'x'));
}

TEST(Righe, TroppiCampiSonoUnErroreNonUnCrash) {
    QString riga = "1";
    for (int i = 0; i < 300; ++i) riga += "|x";
    EXPECT_NO_THROW(ScomponiRiga(riga));
    EXPECT_THROW(ScomponiRiga(riga + "|y"), Errore);
}

TEST(Righe, PulisciNoteEMarche) {
    QString r = "8|1|||";
    PulisciRigaNote(r);
    EXPECT_EQ(r, "8|1|NOTE:||"); // one pass: the pair left over waits for the next
    PulisciRigaNote(r);
    EXPECT_EQ(r, "8|1|NOTE:|NOTE:|");
    r = "2|15<P!>|1.5|";
    PulisciRigaNote(r);
    EXPECT_EQ(r, "2|15|1.5|");
    r = "  1|100<PD>|<8Q>1.55<P!>|<EL><00><PV><8P><8=>  ";
    PulisciRigaMarche(r);
    EXPECT_EQ(r, "1|100|1.55|");
}

TEST(Righe, ValoreDelleRigheTag) {
    EXPECT_EQ(ValoreTag("6|<EST>G693_0012.EMP|"), "G693_0012.EMP");
    EXPECT_EQ(ValoreTag("6|<DIT>A>B|"), "A"); // a typed '>' cuts the value
    EXPECT_EQ(ValoreTag("6|<COD>|"), "");
    EXPECT_EQ(ValoreTag("6|<ISC>"), "");
    EXPECT_EQ(ValoreTag("6"), "");
}

TEST(Righe, AggiungiRigaTagliaEChiude) {
    PiattaformaFinta p;
    Stato s(p);
    AggiungiRiga(s, "  1|A|  ");
    AggiungiRiga(s, "2|B|");
    EXPECT_EQ(s.doc.TestoLibretto, "1|A|\r\n2|B|\r\n");
}
