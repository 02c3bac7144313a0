#include "libretto.h"
#include "mappali.h"
#include "piattaforma_finta.h"
#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kSeminativo = "6|PARTICELLA|10|01|SEMINATIVO  |1200|1200|0|0|";
const QString kUrbano = "6|PARTICELLA|11|  |ENTE URBANO |300|300|0|0|";
const QString kRurale = "6|PARTICELLA|12|  |FABB RURALE |200|200|0|0|";
const QString kDiviso = "6|PARTICELLA|13|  |FR DIV SUB  |50|50|0|0|";

struct MappaliProva : ::testing::Test {
    PiattaformaFinta p;
    Stato s{p};
};

} // namespace

TEST_F(MappaliProva, ParticelleSecondoLaTipologia) {
    const QStringList estratto = {"0|G224|0010|", kSeminativo,
                                  kUrbano,        "6|particella|12|  |fabb rurale |200|200|0|0|",
                                  kDiviso,        "8|1|100.0|200.0|"};
    const std::pair<const char*, QStringList> casi[] = {
        {"01", {kSeminativo, kUrbano, kRurale, kDiviso}},
        {"03", {kUrbano}},
        {"07", {kSeminativo, kDiviso}},
        {"22", {kDiviso}},
        {"41", {kRurale}},
        {"48", {kSeminativo, kRurale, kDiviso}},
        {"FR", {}},
        {"1", {}}};
    for (const auto& [tipologia, attese] : casi)
        EXPECT_EQ(FiltraParticelle(estratto, tipologia), attese) << tipologia;
}

TEST_F(MappaliProva, SceltaERigheDaMantenere) {
    // Several parcels are refused under type 22; under type 43 a Pregeo "Stda" takes them.
    SceltaMappali scelta;
    QList<bool> sel = {true, false, true};
    s.testata.TipologiaRilievo = "22";
    EXPECT_FALSE(ConfermaSelezioneMappali(s, scelta, {kSeminativo, kUrbano, kRurale}, sel));
    EXPECT_EQ(
        p.Messaggi(),
        QStringList{"Seleziona Mappali: Questa versione di Tavolet prevede un solo mappale."});
    s.amb.VersionePregeo = "10.00-G,STDA 2.08";
    s.testata.TipologiaRilievo = "43";
    EXPECT_TRUE(ConfermaSelezioneMappali(s, scelta, {kSeminativo, kUrbano, kRurale}, sel));
    EXPECT_EQ(p.Messaggi().size(), 1);
    EXPECT_EQ(s.testata.MappaliLibretto, "10,12");
    // Without an urban entity a type 06 keeps the rural buildings.
    s.testata.TipologiaRilievo = "06";
    EXPECT_EQ(RigheDaMantenere(s, scelta), QStringList{kRurale});
}

TEST_F(MappaliProva, QuotaMediaDelComune) {
    RadiceProva radice;
    Inizializza(s);
    s.testata.QuotaMedia = "20";
    s.testata.NomeComuneLibretto = "PADOVA";
    radice.Scrivi(s.amb.CartellaProgramma + "\\QUOTAMEDIA.TXT",
                  Righe({"ABANO TERME|PD|14|", "PADOVA|PD|12|", "PADOVA|PD|15|", "VENEZIA|VE|1|"}));
    EXPECT_EQ(LeggiQuotaMedia(s), "15");
    EXPECT_EQ(s.testata.QuotaMedia, "15");
    s.testata.NomeComuneLibretto = "ROVIGO";
    EXPECT_EQ(LeggiQuotaMedia(s), "");
    EXPECT_EQ(s.testata.QuotaMedia, "15");
}
