// The BASIC-compatible text helpers (the digits of long numbers are checked in test_numeri) and
// the libretto's rows.
#include "testo.h"

#include "errore.h"
#include "righe.h"

#include <gtest/gtest.h>

using namespace tavolet;

TEST(Testo, LetturaTaglioECodicePagina) {
    // Leading blanks, a letter or a second point end the number; the comma is no decimal
    // separator; an E or D without digits ends it too.
    const std::pair<const char*, double> casi[] = {{"", 0},          {"  6|x|", 6}, {"ABC", 0},
                                                   {"12.5.3", 12.5}, {"12,75", 12}, {"2D2", 200},
                                                   {"1E", 1},        {"7EST", 7},   {"-", 0}};
    for (const auto& [testo, atteso] : casi) EXPECT_EQ(Val(testo), atteso) << testo;
    EXPECT_EQ(ValIntero(u"4449090000|8|"), 2147483647);
    EXPECT_THROW(Mid("ABC", 0), Errore);
    EXPECT_EQ(InStrRev("a|b|c", "|"), 4);
    EXPECT_EQ(InStrRev("abc", ""), 3);
    EXPECT_EQ(Split("abc", ""), QStringList{"abc"});
    EXPECT_EQ(Split("a\r\nb", "\r\n"), (QStringList{"a", "b"}));
    // Letters without a partner in the code page stay as they are.
    EXPECT_EQ(UCase("però àèìòù ÿ µß"), "PERÒ ÀÈÌÒÙ Ÿ µß");
    EXPECT_EQ(LCase("PERÒ"), "però");
    // Every byte comes back, the undefined ones as themselves; what the page lacks is '?'.
    QByteArray tutti;
    for (int i = 0; i < 256; ++i) tutti.append(char(i));
    EXPECT_EQ(DaWindows1252(tutti)[0x80], QChar(0x20AC));
    EXPECT_EQ(AWindows1252(DaWindows1252(tutti)), tutti);
    EXPECT_EQ(AWindows1252(QStringLiteral("a€ł")), QByteArray("a\x80?"));
}

TEST(Righe, TipoERigheAssurde) {
    // A kind that is not a whole number, or past the doubles, is -1.
    EXPECT_EQ(TipoRiga("1.5|"), -1);
    EXPECT_EQ(TipoRiga("1E999|"), -1);
    EXPECT_EQ(TipoRiga(" 6|x|"), 6);
    // Too many fields are an error, not a crash.
    QString riga = "1";
    for (int i = 0; i < 300; ++i) riga += "|x";
    EXPECT_NO_THROW(ScomponiRiga(riga));
    EXPECT_THROW(ScomponiRiga(riga + "|y"), Errore);
}
