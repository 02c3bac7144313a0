// The particle archive: parcel files, the associated extract kept in step, generation.
#include "supporto_censuario.h"

using namespace tavolet;
using namespace tavolet::test;

TEST(Particelle, NormalizzaFoglio) {
    EXPECT_EQ(NormalizzaFoglio("12"), "00012");
    EXPECT_EQ(NormalizzaFoglio("12a"), "0012A");
    EXPECT_EQ(NormalizzaFoglio(QString()), QString());
}

TEST_F(ConCensuario, ArchiviareRiscriveFileEdEstratto) {
    radice.Scrivi("C:\\pregeo\\estratti\\A001_00012.EMP", Dati("censuario/archivia.EMP"));
    s.doc.NomeEstratto = "A001_00012.EMP";
    CampiParticella c = Particella("35", "29380");
    c.SupGrafica.clear();
    c.RedditoDominicale = "130,5";
    c.Classe = "1";
    c.Qualita = "seminativo";
    const QString riga = ArchiviaParticella(s, c);
    EXPECT_EQ(riga, "6|PARTICELLA|35|01|seminativo  |29380|29380|130,5|120.50|SN|");
    const QString scritta = "6|PARTICELLA|35|01|SEMINATIVO  |29380|29380|130.5|120.50|SN|";
    EXPECT_EQ(radice.Leggi(CartellaParticelle(s) + "A001_00012_35.MAP"),
              AWindows1252(scritta + CRLF));
    // The rows come back regrouped; the parcel replaced, unknown rows gone, framing last
    // without a line end.
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\estratti\\A001_00012.EMP"),
              Dati("censuario/archivia_atteso.EMP"));
    const QStringList elenco = ElencoParticelle(s, "*.map");
    EXPECT_EQ(elenco, QStringList{"A001_00012_35.MAP"});
    EXPECT_EQ(CampiDaParticella(elenco[0], LeggiRigaParticella(s, elenco[0]), s.amb.TabellaQualita)
                  .CodiceQualita,
              "001");
}

TEST_F(ConCensuario, ParticelleDalModelloDelFrazionamento) {
    const QStringList fraz = Attese("frazionamento_341.txt");
    const QStringList stralcio = Attese("stralcio.txt");
    // A row "C" before any row "O": blank quality, classe "00".
    const QString cPrima = "6|C|     |000|z |ZZZ  |000000000|SN|  |     |000|  |                 |";
    const QString testo =
        TestoRighe(QStringList{"0|x|", fraz[0], fraz[1], cPrima} + fraz.mid(2) + stralcio.mid(1));
    const QList<FileParticella> f =
        ParticelleDaModello(testo, "A001", "0012", s.amb.TabellaQualita);
    ASSERT_EQ(f.size(), 3);
    EXPECT_EQ(f[0].nome, "A001_00012_ZZZ.MAP");
    // The leading-zero strip of "000000000" leaves an empty area.
    EXPECT_EQ(f[0].riga, "6|PARTICELLA|ZZZ|00|            |||0|0|");
    EXPECT_EQ(f[1].riga, "6|PARTICELLA|AAA|02|SEMINATIVO  |14995|14995|0|0|");
    EXPECT_EQ(f[2].nome, "A001_00012_AAB.MAP");

    Libretto();
    s.doc.TestoLibretto += TestoRighe(fraz);
    EXPECT_EQ(GeneraParticelleDaCensuario(s), 2);
    EXPECT_EQ(ElencoParticelle(s, ModelloParticelleLibretto("A001", "0012")).size(), 2);
}

TEST_F(ConCensuario, ParticelleDaEstratto) {
    // Parcel rows are the command line's; an extract of outlines alone gives their parcels.
    const QStringList soloContorni = {
        "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|",
        "7|5|1%|2%|3%|4%|1%|NC|35|35|29380|",
        "7|0|5%|NC|",
        "7|5|1%|2%|3%|4%|1%|NC|37+|37+|50|",
        "7|3|1L|2L|1L|NT|x|x|0|",
        "7|2|1%",
    };
    const QList<FileParticella> b = ParticelleDaEstratto(soloContorni, "A001", "0012");
    ASSERT_EQ(b.size(), 1);
    EXPECT_EQ(b[0].nome, "A001_00012_35.Map");
    EXPECT_EQ(b[0].riga, "6|PARTICELLA|35|  |            |29380|29380|0|0|");
    EXPECT_TRUE(ParticelleDaEstratto({}, "A001", "0012").isEmpty());

    // The messages of a missing association or file.
    EXPECT_EQ(GeneraParticelleDaEstratto(s, QString()), 0);
    EXPECT_EQ(p.Messaggi().last(), "Estratto non Associato: Estratto NON Associato!");
    EXPECT_EQ(GeneraParticelleDaEstratto(s, "NESSUNO.EMP"), 0);
    EXPECT_TRUE(p.Messaggi().last().startsWith("Estratto non trovato: L'Estratto \r\n"));
    EXPECT_TRUE(p.Messaggi().last().endsWith("\r\nNon esiste!"));
}

// A parcel file that lacks its number, quality or area is refused by every composition with the
// error report and no rows, never composed with values made up for the missing fields.
TEST_F(ConCensuario, ParticellaIncompletaRifiutataDaOgniComposizione) {
    const auto componi = [&](const QString& nome, int tipo) {
        const CampiParticella c =
            CampiDaParticella(nome, LeggiRigaParticella(s, nome), s.amb.TabellaQualita);
        QStringList r;
        if (tipo == 0) ConTrappola(s, "Decozero_106", [&] { r = ModelloNuovaCostruzione(c); });
        if (tipo == 1) ConTrappola(s, "BV_TMVariazione", [&] { r = ModelloVariazione(c); });
        if (tipo == 2) r = AnteprimaTMFusione(s, {}, {"A001_00012_40.MAP", nome}, false, true);
        if (tipo == 3) r = AnteprimaTMFusione(s, {}, {nome}, true, false);
        Frazionamento f;
        f.tipo = tipo == 4 ? TipoSchema::Frazionamento : TipoSchema::Stralcio;
        f.particella = c;
        if (tipo >= 4) r = MemoDaSchema(s, f, SchemaDaTesto("C|a|600||||SN|\nC|b|600||||SN|"));
        return r;
    };
    radice.Scrivi(CartellaParticelle(s) + "A001_00012_40.MAP",
                  "6|PARTICELLA|40|02|SEMINATIVO  |1200|1200|3|2|SN|\r\n");
    for (int tipo = 0; tipo < 6; ++tipo) EXPECT_GE(componi("A001_00012_40.MAP", tipo).size(), 4);
    EXPECT_EQ(s.ErroriMostrati, 0);
    for (const char* riga :
         {"", "6|PARTICELLA|35", "6|PARTICELLA|35|02|", "6|PARTICELLA|35|02|SEMINATIVO  |",
          "6|PARTICELLA|35|02|            |1200|1200|3|2|SN|"}) {
        radice.Scrivi(CartellaParticelle(s) + "A001_00012_35.MAP", riga);
        for (int tipo = 0; tipo < 6; ++tipo) {
            const int prima = s.ErroriMostrati;
            EXPECT_EQ(componi("A001_00012_35.MAP", tipo), QStringList()) << tipo << riga;
            EXPECT_EQ(s.ErroriMostrati, prima + 1) << tipo << riga;
        }
    }
    EXPECT_TRUE(p.Messaggi().value(0).startsWith("Rilevato errore: "));
}
