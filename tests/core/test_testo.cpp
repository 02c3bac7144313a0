// The BASIC-compatible text helpers (the digits of long numbers are checked in test_numeri) and
// the libretto's rows.
#include "testo.h"

#include "errore.h"
#include "piattaforma_finta.h"
#include "righe.h"
#include "stato.h"

#include <gtest/gtest.h>

using namespace tavolet;

TEST(Testo, ValLeggeDaSinistraComeIlBasic) {
    // Leading blanks, a letter or a second point end the number; the comma is no decimal
    // separator; an E or D without digits ends it too.
    const std::pair<const char*, double> casi[] = {
        {"", 0},          {"6|ABC|", 6}, {"  6|x|", 6},
        {"6a|x|", 6},     {"ABC", 0},    {"-12571.845|x", -12571.845},
        {"12.5.3", 12.5}, {".5", 0.5},   {"+3", 3},
        {"-", 0},         {".", 0},      {"12,75", 12},
        {"1E3|", 1000},   {"2D2", 200},  {"1E", 1},
        {"7EST", 7},      {"1 2", 1},    {"-0.25", -0.25}};
    for (const auto& [testo, atteso] : casi) EXPECT_EQ(Val(testo), atteso) << testo;
    // Whole: truncated, and held at the ends of int.
    EXPECT_EQ(ValIntero(u"8|PF"), 8);
    EXPECT_EQ(ValIntero(u"-3.7|"), -3);
    EXPECT_EQ(ValIntero(u"4449090000|8|"), 2147483647);
    EXPECT_EQ(ValIntero(u"-9E99"), -2147483647 - 1);
    EXPECT_EQ(ValIntero(u""), 0);
}

TEST(Testo, FormatoConFigura) {
    // The shapes the pictures give; the digits of every double are in test_numeri.
    const std::tuple<double, const char*, const char*> casi[] = {
        {-0.0004, "###0.##0", "0.000"},
        {-5882.5265, "###0.##0", "-5882.527"},
        {2.675, "0.00", "2.68"},
        {-2.5, "0", "-3"},
        {9.9996, "0.000", "10.000"},
        {7, "000", "007"},
        {0.5, "#.##", ".5"},
        {3, "0.##", "3."},
        {0.1 + 0.2, "0.000000", "0.300000"}};
    for (const auto& [valore, figura, atteso] : casi)
        EXPECT_EQ(Formato(valore, figura), atteso) << figura;
}

TEST(Testo, TaglioConPosizioniDaUno) {
    EXPECT_EQ(Left("ABCDE", 2), "AB");
    EXPECT_EQ(Left("AB", 9), "AB");
    EXPECT_EQ(Right("ABCDE", 2), "DE");
    EXPECT_EQ(Right("AB", 9), "AB");
    EXPECT_EQ(Mid("ABCDE", 2, 3), "BCD");
    EXPECT_EQ(Mid("ABCDE", 3), "CDE");
    EXPECT_EQ(Mid("ABCDE", 9), "");
    EXPECT_EQ(Mid("ABCDE", 4, 9), "DE");
    EXPECT_THROW(Mid("ABC", 0), Errore);
    EXPECT_THROW(Left("ABC", -1), Errore);
    EXPECT_EQ(InStr("6|<EST>x|", "<EST>"), 3);
    EXPECT_EQ(InStr("abc", "z"), 0);
    EXPECT_EQ(InStr("abc", ""), 1);
    EXPECT_EQ(InStr(3, "a|b|c", "|"), 4);
    EXPECT_EQ(InStrRev("a|b|c", "|"), 4);
}

TEST(Testo, SplitTrimCasoReplace) {
    EXPECT_EQ(Split("", "|"), QStringList{""});
    EXPECT_EQ(Split("a\r\nb", "\r\n"), (QStringList{"a", "b"}));
    EXPECT_EQ(Split("abc", ""), QStringList{"abc"});
    // The pieces as views are the pieces of Split, and Val reads a view as it reads the text.
    std::vector<QStringView> pezzi;
    for (const QString t : {"", "|", "7|2|", "8|12%|-5.5e2|3|", "||a||"}) {
        SplitVista(t, u'|', pezzi);
        QStringList come;
        for (QStringView v : pezzi) come << v.toString();
        EXPECT_EQ(come, Split(t, "|")) << t.toStdString();
        for (QStringView v : pezzi) EXPECT_EQ(Val(v), Val(v.toString()));
    }
    EXPECT_EQ(Split("7|2|", "|"), (QStringList{"7", "2", ""}));
    EXPECT_EQ(Val(QStringView(u"12.5|9").left(4)), 12.5);
    EXPECT_EQ(Trim("  a b \t "), "a b \t");
    EXPECT_EQ(LTrim("  a "), "a ");
    EXPECT_EQ(RTrim("  a "), "  a");
    // Letters without a partner in the code page stay as they are.
    EXPECT_EQ(UCase("però àèìòù ÿ µß"), "PERÒ ÀÈÌÒÙ Ÿ µß");
    EXPECT_EQ(LCase("PERÒ"), "però");
    EXPECT_EQ(Replace("||||", "||", "|NOTE:|"), "|NOTE:||NOTE:|");
    EXPECT_EQ(Replace("|5%|5%|", "|5%|", "|7%|"), "|7%|5%|");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
}

TEST(Testo, Windows1252AvantiEIndietro) {
    QByteArray tutti;
    for (int i = 0; i < 256; ++i) tutti.append(char(i));
    const QString testo = DaWindows1252(tutti);
    EXPECT_EQ(testo.size(), 256);
    EXPECT_EQ(testo[0x80], QChar(0x20AC));
    EXPECT_EQ(testo[0xE8], QChar(u'è'));
    EXPECT_EQ(testo[0x81], QChar(0x81)); // undefined byte kept
    EXPECT_EQ(AWindows1252(testo), tutti);
    EXPECT_EQ(AWindows1252(QStringLiteral("a€ł")), QByteArray("a\x80?"));
}

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
