// The BASIC-compatible text helpers; the digits of long numbers are checked in test_numeri.
#include "testo.h"

#include "errore.h"

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
