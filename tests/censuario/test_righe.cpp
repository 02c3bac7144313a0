// The row format: recognition, head, positions, the quality lookups, moves into the libretto.
#include "supporto_censuario.h"

using namespace tavolet;
using namespace tavolet::test;

TEST(RigheCensuarie, RiconoscimentoSoloPerTipoELunghezza) {
    EXPECT_TRUE(RigaCensuaria(kTitoloCensuario));
    const QString testa = RigaTesta(kModelloStralcio, "003");
    EXPECT_EQ(testa, "6|3SPC |003|" + QString(57, u' ') + u'|');
    EXPECT_TRUE(RigaCensuaria(testa));
    // A comment of 70 characters is taken for a censuary row; one of 69 or 71 is not.
    EXPECT_TRUE(RigaCensuaria("6|" + QString(67, u'x') + u'|'));
    EXPECT_FALSE(RigaCensuaria("6|" + QString(66, u'x') + u'|'));
    EXPECT_FALSE(RigaCensuaria("6|" + QString(68, u'x') + u'|'));
    EXPECT_FALSE(RigaCensuaria("7|" + QString(67, u'x') + u'|'));
}

TEST(RigheCensuarie, ScritturaInPosizioneNonCambiaLaLunghezza) {
    QString r = "6|O|35   |000|";
    ScriviInPosizione(r, 5, "123456789");
    EXPECT_EQ(r, "6|O|123456789|");
    r = "6|51FTP|000|";
    ScriviInPosizione(r, 9, "1002", 3);
    EXPECT_EQ(r, "6|51FTP|100|");
    EXPECT_EQ(Conteggio3(7), "007");
    EXPECT_EQ(Conteggio3(1001), "001");
    QStringList memo = {kTitoloCensuario};
    EXPECT_THROW(ImpostaConteggioTesta(memo, "001"), Errore);
}

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

TEST(RigheCensuarie, SostituzioneNelTestoDelLibretto) {
    const QString corta = "6|O|35   |000|  |     |000029390|SN|  |     |001|1 |";
    const QString testo = "0|x|" + CRLF + kTitoloCensuario + CRLF +
                          RigaTesta(kModelloStralcio, "001") + CRLF + corta + CRLF + "7|3|1|2|1|" +
                          CRLF;
    EXPECT_EQ(RigheCensuarieDi(testo).size(), 2);
    // A row that lost its length after a hand edit is no longer censuary: it stays.
    const QString senza = SenzaRigheCensuarie(testo);
    EXPECT_EQ(senza, "0|x|" + CRLF + corta + CRLF + "7|3|1|2|1|" + CRLF);
    EXPECT_EQ(AccodaRighe("a" + CRLF, {"b"}), "a" + CRLF + CRLF + "b" + CRLF);
}
