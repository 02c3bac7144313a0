// The two lookups of the table of qualities, and a table longer than the program keeps.
#include "supporto_censuario.h"

using namespace tavolet;
using namespace tavolet::test;

TEST_F(ConCensuario, LeDueRicercheDelleQualita) {
    const QStringList& t = s.amb.TabellaQualita;
    ASSERT_FALSE(t.isEmpty());
    EXPECT_EQ(CodiceDaQualita(t, "ente urbano"), "282");
    EXPECT_EQ(CodiceDaQualita(t, "PRATO       "), "003");
    // No match: the description itself comes back from the first lookup, nothing from the
    // second.
    EXPECT_EQ(CodiceDaQualita(t, "ULIVETO"), "ULIVETO");
    EXPECT_EQ(CodiceBreveDaQualita(t, "ULIVETO"), QString());
    EXPECT_EQ(CodiceBreveDaQualita(t, "FABB RURALE "), "279");
    EXPECT_EQ(QualitaDaCodice(t, "009"), "VIGNETO");
}

TEST_F(ConCensuario, TabellaDiSeicentoRigheNonRompeNulla) {
    QStringList righe = {"DESCRIZIONE  CODICE"};
    for (int i = 0; i < 600; ++i)
        righe << QStringLiteral("QUALITA%1 ").arg(i, 3, 10, QChar(u'0')).left(13) +
                     QStringLiteral("%1").arg(i % 999, 3, 10, QChar(u'0'));
    radice.Scrivi("C:\\pregeo\\exe\\qualita.txt", Righe(righe));
    CaricaConfig(s);
    EXPECT_LE(s.amb.TabellaQualita.size(), 501);
    // The frazionamento still composes on whatever table stands.
    Frazionamento f = Fraziona("1000", "2");
    CambiaAreaProporzionale(s, f, "500");
    EXPECT_TRUE(TutteCensuarie(f.AnteprimaModello));
}
