// A parcel file that lacks its number, quality or area is refused by every composition with the
// error report and no rows, never composed with values made up for the missing fields.
#include "supporto_censuario.h"

using namespace tavolet;
using namespace tavolet::test;

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
