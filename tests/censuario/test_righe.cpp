// The row format: recognition, head, positions, the quality lookups, moves into the libretto.
#include "supporto_censuario.h"

using namespace tavolet;
using namespace tavolet::test;

TEST(RigheCensuarie, RiconoscimentoSoloPerTipoELunghezza) {
    EXPECT_EQ(kTitoloCensuario.size(), 70);
    EXPECT_TRUE(RigaCensuaria(kTitoloCensuario));
    const QString testa = RigaTesta(kModelloStralcio, QStringLiteral("003"));
    EXPECT_EQ(testa, QStringLiteral("6|3SPC |003|") + QString(57, u' ') + u'|');
    EXPECT_TRUE(RigaCensuaria(testa));
    // A comment of 70 characters is taken for a censuary row; one of 69 or 71 is not.
    EXPECT_TRUE(RigaCensuaria(QStringLiteral("6|") + QString(67, u'x') + u'|'));
    EXPECT_FALSE(RigaCensuaria(QStringLiteral("6|") + QString(66, u'x') + u'|'));
    EXPECT_FALSE(RigaCensuaria(QStringLiteral("6|") + QString(68, u'x') + u'|'));
    EXPECT_FALSE(RigaCensuaria(QStringLiteral("7|") + QString(67, u'x') + u'|'));
    // The split gives fourteen parts, the last empty, at the separators of the format.
    const QString o =
        QStringLiteral("6|O|35   |000|  |     |000029390|SN|  |     |001|1 |                 |");
    const QStringList parti = Split(o, QStringLiteral("|"));
    ASSERT_EQ(parti.size(), 14);
    EXPECT_EQ(parti[6], QStringLiteral("000029390"));
    EXPECT_EQ(parti[10], QStringLiteral("001"));
    EXPECT_TRUE(parti[13].isEmpty());
}

TEST(RigheCensuarie, ScritturaInPosizioneNonCambiaLaLunghezza) {
    QString r = QStringLiteral("6|O|35   |000|");
    ScriviInPosizione(r, 5, QStringLiteral("123456789"));
    EXPECT_EQ(r, QStringLiteral("6|O|123456789|"));
    r = QStringLiteral("6|51FTP|000|");
    ScriviInPosizione(r, 9, QStringLiteral("1002"), 3);
    EXPECT_EQ(r, QStringLiteral("6|51FTP|100|"));
    EXPECT_EQ(Conteggio3(7), QStringLiteral("007"));
    EXPECT_EQ(Conteggio3(1001), QStringLiteral("001"));
    QStringList memo = {kTitoloCensuario};
    EXPECT_THROW(ImpostaConteggioTesta(memo, QStringLiteral("001")), Errore);
}

TEST_F(ConCensuario, LeDueRicercheDelleQualita) {
    const QStringList& t = s.amb.TabellaQualita;
    ASSERT_FALSE(t.isEmpty());
    EXPECT_EQ(CodiceDaQualita(t, QStringLiteral("ente urbano")), QStringLiteral("282"));
    EXPECT_EQ(CodiceDaQualita(t, QStringLiteral("PRATO       ")), QStringLiteral("003"));
    // No match: the description itself comes back from the first lookup, nothing from the
    // second.
    EXPECT_EQ(CodiceDaQualita(t, QStringLiteral("ULIVETO")), QStringLiteral("ULIVETO"));
    EXPECT_EQ(CodiceBreveDaQualita(t, QStringLiteral("ULIVETO")), QString());
    EXPECT_EQ(CodiceBreveDaQualita(t, QStringLiteral("FABB RURALE ")), QStringLiteral("279"));
    EXPECT_EQ(QualitaDaCodice(t, QStringLiteral("009")), QStringLiteral("VIGNETO"));
}

TEST_F(ConCensuario, TabellaDiSeicentoRigheNonRompeNulla) {
    QStringList righe = {QStringLiteral("DESCRIZIONE  CODICE")};
    for (int i = 0; i < 600; ++i)
        righe << QStringLiteral("QUALITA%1 ").arg(i, 3, 10, QChar(u'0')).left(13) +
                     QStringLiteral("%1").arg(i % 999, 3, 10, QChar(u'0'));
    radice.Scrivi("C:\\pregeo\\exe\\qualita.txt", Righe(righe));
    CaricaConfig(s);
    EXPECT_LE(s.amb.TabellaQualita.size(), 501);
    // The frazionamento still composes on whatever table stands.
    Frazionamento f;
    f.particella = Particella(QStringLiteral("35"), QStringLiteral("1000"));
    ApriFrazionamento(s, f);
    CambiaNumeroCostituite(s, f, QStringLiteral("2"));
    CambiaAreaProporzionale(s, f, QStringLiteral("500"));
    EXPECT_TRUE(TutteCensuarie(f.AnteprimaModello));
}

TEST(RigheCensuarie, SostituzioneNelTestoDelLibretto) {
    const QString corta = QStringLiteral("6|O|35   |000|  |     |000029390|SN|  |     |001|1 |");
    const QString testo = QStringLiteral("0|x|") + CRLF + kTitoloCensuario + CRLF +
                          RigaTesta(kModelloStralcio, QStringLiteral("001")) + CRLF + corta + CRLF +
                          QStringLiteral("7|3|1|2|1|") + CRLF;
    EXPECT_EQ(RigheCensuarieDi(testo).size(), 2);
    // A row that lost its length after a hand edit is no longer censuary: it stays.
    const QString senza = SenzaRigheCensuarie(testo);
    EXPECT_EQ(senza,
              QStringLiteral("0|x|") + CRLF + corta + CRLF + QStringLiteral("7|3|1|2|1|") + CRLF);
    EXPECT_EQ(AccodaRighe(QStringLiteral("a") + CRLF, {QStringLiteral("b")}),
              QStringLiteral("a") + CRLF + CRLF + QStringLiteral("b") + CRLF);
}
