// A parcel file that lacks its number, quality or area is refused by every composition with the
// error report and no rows, never composed with values made up for the missing fields.
#include "supporto_censuario.h"

using namespace tavolet;
using namespace tavolet::test;

TEST_F(ConCensuario, ParticellaIncompletaRifiutataDaOgniComposizione) {
    const QString buona = QStringLiteral("6|PARTICELLA|40|02|SEMINATIVO  |1200|1200|3|2|SN|");
    const QStringList cattive = {
        QString(), QStringLiteral("6|PARTICELLA|35"), QStringLiteral("6|PARTICELLA|35|02|"),
        QStringLiteral("6|PARTICELLA|35|02|SEMINATIVO  |"),
        QStringLiteral("6|PARTICELLA|35|02|            |1200|1200|3|2|SN|")};
    const QString cartella = CartellaParticelle(s);
    // Each composition of one parcel file: its rows, empty when refused.
    const auto componi = [&](const QString& nome, int tipo) {
        const CampiParticella c =
            CampiDaParticella(nome, LeggiRigaParticella(s, nome), s.amb.TabellaQualita);
        QStringList righe;
        if (tipo == 0) ConTrappola(s, "Decozero_106", [&] { righe = ModelloNuovaCostruzione(c); });
        if (tipo == 1) ConTrappola(s, "BV_TMVariazione", [&] { righe = ModelloVariazione(c); });
        if (tipo == 2) righe = AnteprimaTMFusione(s, {}, {"A001_00012_40.MAP", nome}, false, true);
        if (tipo == 3) righe = AnteprimaTMFusione(s, {}, {nome}, true, false);
        if (tipo >= 4) {
            Frazionamento f;
            f.tipo = tipo == 4 ? TipoSchema::Frazionamento : TipoSchema::Stralcio;
            f.particella = c;
            righe = MemoDaSchema(s, f, SchemaDaTesto("C|a|600||||SN|\nC|b|600||||SN|"));
        }
        return righe;
    };
    radice.Scrivi(cartella + "A001_00012_40.MAP", buona.toLatin1() + "\r\n");
    for (int tipo = 0; tipo < 6; ++tipo) {
        EXPECT_GE(componi("A001_00012_40.MAP", tipo).size(), 4) << tipo;
        EXPECT_EQ(s.ErroriMostrati, 0) << tipo;
    }
    for (const QString& riga : cattive) {
        radice.Scrivi(cartella + "A001_00012_35.MAP", riga.isEmpty() ? "" : riga.toLatin1());
        for (int tipo = 0; tipo < 6; ++tipo) {
            const int prima = s.ErroriMostrati;
            EXPECT_EQ(componi("A001_00012_35.MAP", tipo), QStringList())
                << "tipo " << tipo << ": " << riga.toStdString();
            EXPECT_EQ(s.ErroriMostrati, prima + 1) << "tipo " << tipo << ": " << riga.toStdString();
            EXPECT_TRUE(
                p.Messaggi().value(p.Messaggi().size() - 1).startsWith("Rilevato errore: "));
        }
    }
}
