// The commands of the archive of extracts on files.
#include "archivio.h"
#include "autoallestito.h"
#include "estratto.h"

#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kCartella = "C:\\pregeo\\estratti\\";

struct Archivio : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        radice.Scrivi(kCartella + "F120.EMP", Dati("estratti/realistico.EMP"));
        radice.Scrivi(kCartella + "F120.PNG", Dati("estratti/realistico.PNG"));
    }
    QByteArray Leggi(const QString& nome) { return radice.Leggi(kCartella + nome); }
};

} // namespace

TEST(ArchivioTesti, ValiditaEFormato) {
    EXPECT_EQ(TestoValidita(2), "L'Estratto scade tra    -4 mesi"); // the minus sign stays
    EXPECT_EQ(TestoValidita(6), "L'Estratto scade tra    0 mesi");  // exactly six months
    EXPECT_EQ(TestoValidita(9), "L'Estratto è scaduto da 3 mesi");
    EXPECT_EQ(VersioneFormato("0|\r\n6|DISTORSIONE|1.5|\r\n"), "Pregeo 10");
    EXPECT_EQ(VersioneFormato("0|\r\n"), "Pregeo 9");
    const ConteggioEstratto c =
        ContaRigheEstratto("X.EMP", {"0|", "8|1%|0|0|", "8|PF01/0001/A001|1|1|", "6|DISTANZA|x|",
                                     "6|PARTICELLA|1|", "6|PARTICELLA|2|", "7|2|1%|1%|NC|"});
    EXPECT_EQ(std::tuple(c.punti, c.pf, c.distanze, c.particelle), std::tuple(1, 1, 1, 2));
}

TEST_F(Archivio, DuplicaRinominaEliminaCopia) {
    ASSERT_TRUE(DuplicaEstratto(s, "F120.EMP", "DOPPIO"));
    EXPECT_EQ(Leggi("DOPPIO.EMP"), Dati("estratti/realistico.EMP"));
    EXPECT_EQ(Leggi("DOPPIO.PNG"), Dati("estratti/realistico.PNG"));
    // Without its image the copy fails, and the extract is not copied either.
    radice.Scrivi(kCartella + "SOLO.EMP", "0|\r\n");
    EXPECT_FALSE(DuplicaEstratto(s, "SOLO.EMP", "SOLO2"));
    EXPECT_TRUE(p.Messaggi().last().contains("Nella Routine DuplicaEstratto"));
    EXPECT_FALSE(EsisteFile(kCartella + "SOLO2.EMP"));

    ASSERT_TRUE(RinominaEstratto(s, "DOPPIO.EMP", "NUOVO"));
    EXPECT_FALSE(EsisteFile(kCartella + "DOPPIO.EMP"));
    EXPECT_FALSE(EsisteFile(kCartella + "DOPPIO.PNG"));
    EXPECT_EQ(Leggi("NUOVO.PNG"), Dati("estratti/realistico.PNG"));

    EXPECT_EQ(CopiaEstrattoConSuffisso(s, "NUOVO.EMP"), "NUOVO1.EMP");
    EXPECT_TRUE(EsisteFile(kCartella + "NUOVO1.PNG"));
    ASSERT_TRUE(EliminaEstratto(s, "NUOVO.EMP"));
    EXPECT_FALSE(EsisteFile(kCartella + "NUOVO.EMP"));
    EXPECT_FALSE(EsisteFile(kCartella + "NUOVO.PNG"));
    EXPECT_TRUE(EsisteFile(kCartella + "NUOVO1.EMP"));
}

TEST_F(Archivio, VuotaDitteParticelle) {
    const QStringList righe = RigheDiTesto(DaWindows1252(Dati("estratti/realistico.EMP")));
    ASSERT_TRUE(VuotaEstratto(s, "F120.EMP"));
    EXPECT_EQ(DaWindows1252(Leggi("F120.EMP")), righe.first() + "\r\n" + righe.last() + "\r\n");

    radice.Scrivi(kCartella + "F120.EMP", Dati("estratti/realistico.EMP"));
    const int ditte = righe.filter("6|DITTA|").size();
    ASSERT_GT(ditte, 0);
    ASSERT_TRUE(AzzeraDitte(s, "F120.EMP"));
    EXPECT_EQ(p.Messaggi().last(),
              "Azzera Ditte: Intestatari archiviati ed eliminati dall'Estratto!");
    const QString dopo = DaWindows1252(Leggi("F120.EMP"));
    EXPECT_FALSE(dopo.contains("6|DITTA|"));
    EXPECT_EQ(RigheDiTesto(dopo).size(), righe.size() - ditte);
    EXPECT_EQ(LeggiByte(s.amb.CartellaLavoro + "\\TEMP\\F120.BAK"),
              Dati("estratti/realistico.EMP"));

    // A parcel in no ring: the file stays as it was, with no message.
    const QByteArray prima = Leggi("F120.EMP");
    const int messaggi = p.Messaggi().size();
    ASSERT_TRUE(RinominaParticella(s, "F120.EMP", "999", "1000"));
    EXPECT_EQ(Leggi("F120.EMP"), prima);
    EXPECT_EQ(p.Messaggi().size(), messaggi);
    ASSERT_TRUE(RinominaParticella(s, "F120.EMP", "257", "300"));
    EXPECT_TRUE(Leggi("F120.EMP").contains("6|PARTICELLA|257")); // the parcel rows keep theirs

    radice.Scrivi("C:\\Esportati\\LEGGIMI.TXT", "");
    ASSERT_TRUE(EsportaEstratto(s, "F120.EMP", "C:\\Esportati\\COPIA.EMP"));
    EXPECT_EQ(radice.Leggi("C:\\Esportati\\COPIA.EMP"), Leggi("F120.EMP"));
    EXPECT_EQ(radice.Leggi("C:\\Esportati\\COPIA.PNG"), Leggi("F120.PNG"));
}

TEST_F(Archivio, EsempiEProtocollo) {
    EXPECT_FALSE(ScriviEstrattiDiEsempio(s)); // the folder is not empty
    EliminaFile(kCartella + "F120.EMP");
    EliminaFile(kCartella + "F120.PNG");
    ASSERT_TRUE(ScriviEstrattiDiEsempio(s));
    const Estratto a = EsplodiEstratto(s, "ESTRATTO.emp");
    EXPECT_EQ(std::pair(a.Punti.size(), a.SETTE.size()), std::pair(qsizetype(12), qsizetype(2)));
    const Estratto b = EsplodiEstratto(s, "ESTRATTO1.emp");
    EXPECT_EQ(std::pair(b.Punti.size(), b.SETTE.size()), std::pair(qsizetype(18), qsizetype(3)));
    EXPECT_EQ(a.ZERO[0], "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|");
    EXPECT_TRUE(p.Messaggi().isEmpty());

    radice.Scrivi(kCartella + "P.EMP", "0|01012025|XX1/2025|A001|\r\n");
    radice.Scrivi(kCartella + "VUOTO.EMP", "\r\n8|1%|0|0|\r\n");
    EXPECT_EQ(TrovaEstrattoPerProtocollo(s, {"ESTRATTO.emp", "P.EMP"}, "XX1/2025"), "P.EMP");
    // A file with an empty first line ends the search.
    EXPECT_EQ(TrovaEstrattoPerProtocollo(s, {"VUOTO.EMP", "P.EMP"}, "XX1/2025"), "");
}

TEST(Autoallestito, ParticelleETesta) {
    QString classe = "01", descrizione = "ENTE URBANO E ALTRO";
    // A surface with a comma: the number stops there; the description is cut to twelve.
    const QString riga =
        RicalcolaParticella(RigaParticellaVuota("12"), classe, descrizione, "1234,56", "01");
    EXPECT_EQ(riga, "6|PARTICELLA|12|01|ENTE URBANO |1234|1234|||SN|");

    QStringList righe = {"0|AUTOALLESTITO|0|0|0|0|0|0|0|0|", "7|4|1%|2%|3%|1%|NC|12|12|50|",
                         "6|PARTICELLA|12|old|"};
    UnisciParticella(righe, riga);
    EXPECT_EQ(righe[2], riga);
    UnisciParticella(righe, RigaParticellaVuota("13"));
    EXPECT_EQ(righe.size(), 4);
    righe[0] = RicalcolaAutoAllestito(righe[0], "A001", "PD", "120", "12,13");
    EXPECT_EQ(righe[0], "0|AUTOALLESTITO|PD|A001|00120|12,13|PD|0|0|0|");
    RinominaParticellaAutoallestito(righe, "12", "14");
    EXPECT_EQ(righe[0], "0|AUTOALLESTITO|PD|A001|00120|14,13|PD|0|0|0|");
    EXPECT_EQ(righe[1], "7|4|1%|2%|3%|1%|NC|14|12|50|");
}
