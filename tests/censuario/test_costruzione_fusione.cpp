// Nuova costruzione, variazione and fusione: fixed blocks from the archive's parcels.
#include "supporto_censuario.h"

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QStringList kParticelle = {"6|PARTICELLA|35|02|SEMINATIVO  |29380|29380|120.50|80.25|SN|",
                                 "6|PARTICELLA|36|00|ENTE URBANO |1200|1200|0|0|SN|",
                                 "6|PARTICELLA|37|  |PRATO       |500|500|1.00|2.00|SN|"};

} // namespace

// The models themselves are the command line's and the screens' golden files; here the corners.
TEST_F(ConCensuario, CampiLunghiEMemoDiUnAltroModello) {
    const CampiParticella p35 =
        CampiDaParticella("A001_00012_35.MAP", kParticelle[0], s.amb.TabellaQualita);
    // Long numbers are cut, long areas lose their leftmost digits, a one-letter classe fills
    // only character 50.
    CampiParticella lungo = p35;
    lungo.Mappale = "1234567";
    lungo.SupCatastale = "123456789012";
    lungo.Classe = "3";
    const QStringList l = ModelloNuovaCostruzione(lungo);
    EXPECT_EQ(Mid(l[2], 5, 5), "12345");
    EXPECT_EQ(Mid(l[2], 24, 9), "456789012");
    EXPECT_EQ(Mid(l[2], 50, 2), "3 ");
    EXPECT_TRUE(TutteCensuarie(l));

    // A variazione under a memo of another model gets its own head.
    QStringList altra = {kTitoloCensuario, RigaTesta(kModelloFrazionamento, "001"),
                         Attese("frazionamento_341.txt")[4]};
    const QStringList v = ModelloVariazione(p35);
    AggiungiMemoVariazione(altra, v);
    ASSERT_EQ(altra.size(), 6);
    EXPECT_EQ(altra[3], RigaTesta(kModelloStralcio, "002"));
    AggiungiMemoVariazione(altra, v);
    EXPECT_EQ(altra[3], RigaTesta(kModelloStralcio, "004"));
    EXPECT_EQ(altra[1], RigaTesta(kModelloFrazionamento, "001"));

    // Two nuove costruzioni in one memo; the model of the libretto is replaced, once however
    // often.
    QStringList memo;
    AggiungiMemoNuovaCostruzione(memo, ModelloNuovaCostruzione(p35));
    AggiungiMemoNuovaCostruzione(memo, ModelloNuovaCostruzione(p35));
    EXPECT_EQ(Mid(memo[1], 9, 3), "006");
    Libretto();
    for (int volta = 0; volta < 2; ++volta) {
        ASSERT_TRUE(SostituisciCensuario(s, memo, "Decozero_106"));
        EXPECT_EQ(RigheCensuarieDi(s.doc.TestoLibretto), memo);
    }
}

TEST_F(ConCensuario, FusioneMantenutaDiUnaONessunaParticellaEGorizia) {
    OpzioniFusione o;
    o.particelle = kParticelle;
    o.MantieniNumerazione = true;
    EXPECT_EQ(AnteprimaFusione({}, o, s.amb.TabellaQualita), Attese("fusione_mantieni.txt"));

    // One parcel: rows O, S, C under a count of 3. None: title and head, count 1.
    o.MantieniNumerazione = false;
    o.particelle = kParticelle.mid(0, 1);
    const QStringList una = AnteprimaFusione({}, o, s.amb.TabellaQualita);
    ASSERT_EQ(una.size(), 5);
    EXPECT_EQ(Mid(una[1], 9, 3), "003");
    EXPECT_TRUE(una[3].startsWith("6|S|35   |000|  |     |000000000|  |  |"));
    o.particelle.clear();
    EXPECT_EQ(AnteprimaFusione({}, o, s.amb.TabellaQualita),
              (QStringList{kTitoloCensuario, RigaTesta(kModelloStralcio, "001")}));

    // Gorizia's office: fields padded, the length stays 70.
    o.particelle = kParticelle;
    o.SiglaProvincia = "GO";
    const QStringList go = AnteprimaFusione({}, o, s.amb.TabellaQualita);
    EXPECT_TRUE(TutteCensuarie(go));
    EXPECT_EQ(Split(go[2], "|").value(2), "35        ");
}

TEST_F(ConCensuario, DueFusioniNelloStessoMemo) {
    for (int i = 0; i < 3; ++i)
        radice.Scrivi(CartellaParticelle(s) + QStringLiteral("A001_00012_%1.MAP").arg(35 + i),
                      Righe({kParticelle[i]}));
    QStringList memo = CaricaMemoFusione(s);
    EXPECT_TRUE(memo.isEmpty());
    EXPECT_TRUE(EsisteFile(PercorsoCensuario(s, kFileFusione)));
    const QStringList file = ElencoParticelle(s, "*.MAP");
    ASSERT_EQ(file.size(), 3);
    QStringList a = AnteprimaTMFusione(s, memo, file.mid(0, 2), false, true);
    AggiungiMemoFusione(s, memo, a);
    EXPECT_TRUE(a.isEmpty());
    EXPECT_EQ(memo.size(), 2 + 5);
    a = AnteprimaTMFusione(s, memo, file.mid(1, 2), false, true);
    // The next group takes the next letter.
    EXPECT_EQ(Mid(a[3], 37, 8), "B |BBB  ");
    AggiungiMemoFusione(s, memo, a);
    EXPECT_EQ(Mid(memo[1], 9, 3), "010");
    EXPECT_TRUE(TutteCensuarie(memo));
    EXPECT_EQ(CaricaMemoFusione(s), memo);

    // Into the libretto: the censuary rows already there come first, one title stays.
    Libretto();
    s.doc.TestoLibretto += kTitoloCensuario + CRLF + RigaTesta(kModelloStralcio, "000") + CRLF;
    QStringList m = memo;
    AggiungiFusioneALibretto(s, m);
    const QStringList righe = RigheCensuarieDi(s.doc.TestoLibretto);
    EXPECT_EQ(righe.count(kTitoloCensuario), 1);
    EXPECT_EQ(righe.size(), memo.size() + 1);
    SostituisciFusioneInLibretto(s, memo);
    EXPECT_EQ(RigheCensuarieDi(s.doc.TestoLibretto), memo);
}
