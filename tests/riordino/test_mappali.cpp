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
    QString Riordina(QString m) {
        RiordinoMappali(s, m);
        return m;
    }
};

} // namespace

TEST_F(MappaliProva, RiordinoMappaliPerAllineamentoADestra) {
    EXPECT_EQ(Riordina("12,3,12"), "3,12");
    EXPECT_EQ(Riordina("125"), "125");
    EXPECT_EQ(Riordina("   "), "   ");
    EXPECT_EQ(Riordina(""), "");
    // Right-aligned names: shorter ones first, then by character; a longer name stays whole.
    EXPECT_EQ(Riordina("10,9,A,2b, 9"), "9,A,10,2b");
    EXPECT_EQ(Riordina("PARTICELLA123,5"), "5,PARTICELLA123");
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

TEST_F(MappaliProva, ParticelleSecondoLaTipologia) {
    const QStringList estratto = {"0|G224|0010|", kSeminativo,
                                  kUrbano,        "6|particella|12|  |fabb rurale |200|200|0|0|",
                                  kDiviso,        "8|1|100.0|200.0|"};
    EXPECT_EQ(FiltraParticelle(estratto, "01"),
              (QStringList{kSeminativo, kUrbano, kRurale, kDiviso}));
    EXPECT_EQ(FiltraParticelle(estratto, "03"), QStringList{kUrbano});
    EXPECT_EQ(FiltraParticelle(estratto, "07"), (QStringList{kSeminativo, kDiviso}));
    EXPECT_EQ(FiltraParticelle(estratto, "22"), QStringList{kDiviso});
    EXPECT_EQ(FiltraParticelle(estratto, "41"), QStringList{kRurale});
    EXPECT_EQ(FiltraParticelle(estratto, "48"), (QStringList{kSeminativo, kRurale, kDiviso}));
    EXPECT_TRUE(FiltraParticelle(estratto, "FR").isEmpty());
    EXPECT_TRUE(FiltraParticelle(estratto, "1").isEmpty());

    RadiceProva radice;
    radice.Scrivi("C:\\pregeo\\estratti\\G224_0010.EMP", Righe(estratto));
    s.testata.TipologiaRilievo = "41";
    EXPECT_TRUE(ParticelleEstratto(s).isEmpty()); // no extract associated
    s.doc.NomeEstratto = "g224_0010.emp";
    EXPECT_EQ(ParticelleEstratto(s), QStringList{kRurale});
    EXPECT_EQ(TitoloSelezionaMappali(s), "Seleziona Mappali - g224_0010.emp");
    s.doc.NomeEstratto = "MANCA.EMP";
    EXPECT_TRUE(ParticelleEstratto(s).isEmpty());
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

TEST_F(MappaliProva, ConfermaDellaSelezioneEControlli) {
    SceltaMappali scelta;
    QList<bool> sel;
    // A list of one line counts as selected.
    s.testata.TipologiaRilievo = "03";
    EXPECT_TRUE(ConfermaSelezioneMappali(s, scelta, {kUrbano}, sel));
    EXPECT_EQ(sel, QList<bool>{true});
    EXPECT_EQ(s.testata.MappaliLibretto, "11");
    EXPECT_EQ(scelta.RigheEnteUrbano, kUrbano + "\r\n");
    EXPECT_EQ(s.EsitoDialogo, 1);

    s.EsitoDialogo = -1;
    s.testata.TipologiaRilievo = "22";
    sel = {true, false, true};
    EXPECT_FALSE(ConfermaSelezioneMappali(s, scelta, {kSeminativo, kUrbano, kRurale}, sel));
    EXPECT_EQ(s.EsitoDialogo, -1);
    // The parcels are taken before the check refuses them.
    EXPECT_EQ(s.testata.MappaliLibretto, "10,12");
    EXPECT_EQ(scelta.Righe, kSeminativo + "\r\n" + kRurale + "\r\n");
    EXPECT_EQ(scelta.RigheFabbRurale, kRurale + "\r\n");
    EXPECT_TRUE(scelta.RigheEnteUrbano.isEmpty());

    // Several parcels are fine for a Pregeo "Stda" under type 43.
    s.amb.VersionePregeo = "10.00-G,STDA 2.08";
    s.testata.TipologiaRilievo = "43";
    EXPECT_TRUE(ConfermaSelezioneMappali(s, scelta, {kSeminativo, kUrbano, kRurale}, sel));
    EXPECT_EQ(
        p.Messaggi(),
        QStringList{"Seleziona Mappali: Questa versione di Tavolet prevede un solo mappale."});

    // No line selected: no parcel, and the form closes.
    sel = {false, false};
    EXPECT_TRUE(ConfermaSelezioneMappali(s, scelta, {kSeminativo, kUrbano}, sel));
    EXPECT_EQ(s.testata.MappaliLibretto, "");
}

TEST_F(MappaliProva, RigheDaMantenereERigaDelMappale) {
    SceltaMappali scelta;
    scelta.RigheFabbRurale = kRurale + "\r\n";
    s.testata.TipologiaRilievo = "01";
    EXPECT_TRUE(RigheDaMantenere(s, scelta).isEmpty());
    s.testata.TipologiaRilievo = "06";
    EXPECT_EQ(RigheDaMantenere(s, scelta), QStringList{kRurale});
    scelta.RigheEnteUrbano = kUrbano + "\r\n";
    EXPECT_EQ(RigheDaMantenere(s, scelta), QStringList{kUrbano});

    const QStringList mappali = {"1", "11", "10"};
    EXPECT_EQ(MappaliDellaRiga(kUrbano, mappali), QList<int>{1});
    EXPECT_TRUE(MappaliDellaRiga(kDiviso, mappali).isEmpty());
}

TEST_F(MappaliProva, QuotaMediaDelComune) {
    RadiceProva radice;
    Inizializza(s);
    s.testata.QuotaMedia = "20";
    s.testata.NomeComuneLibretto = "PADOVA";
    EXPECT_EQ(LeggiQuotaMedia(s), "");
    radice.Scrivi(s.amb.CartellaProgramma + "\\QUOTAMEDIA.TXT",
                  Righe({"ABANO TERME|PD|14|", "PADOVA|PD|12|", "PADOVA|PD|15|", "VENEZIA|VE|1|"}));
    EXPECT_EQ(LeggiQuotaMedia(s), "15");
    EXPECT_EQ(s.testata.QuotaMedia, "15");
    s.testata.NomeComuneLibretto = "ROVIGO";
    EXPECT_EQ(LeggiQuotaMedia(s), "");
    EXPECT_EQ(s.testata.QuotaMedia, "15");
}
