// The report of measured distances, from a drawing and from a libretto, the measures of one
// point, the choice and deletion of an archive, and the search of the pairs against a plain one.
#include "fiduciali.h"
#include "generatore_taf.h"
#include "supporto.h"

namespace tavolet::test {

namespace {

struct Misurate : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
        radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", Dati("fiduciali/PD2020.DDD"));
        // An older archive of the same province: the last one by name is taken.
        radice.Scrivi("C:\\fiducial\\DATI\\PD2015.DDD", "");
    }
    QList<PuntoPF> Disegno() const {
        return {{"100", 0, 0},
                {"pf02/0100/A001", 23790.43, -12512.09},
                {"PF01/0100/A001", 23456.78, -12345.67},
                {"PF03/0100/A001", 23102.31, -12120.01}};
    }
};

} // namespace

TEST_F(Misurate, RapportoDalDisegnoGolden) {
    QList<PuntoPF> punti = Disegno();
    const QStringList r = CalcolaMisuratePF(s, punti);
    EXPECT_EQ(punti[1].nome, "PF02/0100/A001"); // upper-cased in place
    EXPECT_EQ(s.doc.NomeMisurate, "PD2020.DDD");
    ConfrontaGolden(LeggiByte(PercorsoFileMisurate(s)), "fiduciali/Misurate_disegno.TXT");
    EXPECT_EQ(Join(r, CRLF), DaWindows1252(Dati("fiduciali/Misurate_disegno.TXT")));
    EXPECT_EQ(p.Messaggi(), QStringList());
    ASSERT_FALSE(p.eventi.isEmpty());
    EXPECT_EQ(p.eventi.last().tipo, "apriconprogramma");
}

TEST_F(Misurate, CinquantaSiCinquantunoNo) {
    QList<PuntoPF> punti;
    for (int i = 0; i < 50; ++i) punti.append({CodiceGenerato(i, "A001"), double(i), 0});
    punti.append(punti[7]); // a fiducial twice counts once
    QList<PuntoPF> copia = punti;
    EXPECT_EQ(CalcolaMisuratePF(s, copia).count(kIntestazioneMisurate), 50 * 49 / 2);
    EXPECT_FALSE(p.Messaggi().contains("Problema !!: Troppi PF da elaborare"));
    punti.append({CodiceGenerato(60, "A001"), 1, 1});
    p.eventi.clear();
    EXPECT_TRUE(CalcolaMisuratePF(s, punti).isEmpty());
    EXPECT_EQ(p.Messaggi(), QStringList({"Problema !!: Troppi PF da elaborare"}));
}

TEST_F(Misurate, MessaggiDelDisegno) {
    QList<PuntoPF> punti = {{"100", 0, 0}, {"PF01/0100/A00X", 1, 1}};
    EXPECT_TRUE(CalcolaMisuratePF(s, punti).isEmpty());
    EXPECT_EQ(p.Messaggi(),
              QStringList({"MISURATE PF: Trovato PF con C.F. Catastale \r\nSCARTATO!\r\n"
                           "PF01/0100/A00X",
                           "MISURATE PF: Nessun PF trovato nel disegno"}));
    EXPECT_EQ(punti.size(), 1);
    p.eventi.clear();
    EXPECT_TRUE(CalcolaMisuratePF_DaLibretto(s, {"0|x|", "2|PF01/0100/A001|"}).isEmpty());
    EXPECT_EQ(p.Messaggi(), QStringList({"MISURATE PF: Nessun PF trovato nel libretto"}));
    // Fifty-one fiducials are more than the report takes.
    p.eventi.clear();
    QStringList molti;
    for (int i = 1; i <= 51; ++i)
        molti << QString("8|PF%1/0100/A001|1|2|").arg(i, 2, 10, QChar('0'));
    EXPECT_TRUE(CalcolaMisuratePF_DaLibretto(s, molti).isEmpty());
    EXPECT_EQ(p.Messaggi(), QStringList({"Problema !!: Troppi PF da elaborare"}));

    // A province with no archive.
    p.eventi.clear();
    punti = {{"PF01/0100/L736", 0, 0}, {"PF02/0100/L736", 1, 1}};
    EXPECT_TRUE(CalcolaMisuratePF(s, punti).isEmpty());
    EXPECT_EQ(p.Messaggi(), QStringList({"Archivio Misurate: Archivio C:\\fiducial\\DATI\\VE Non "
                                         "installato. Provvedere e ritentare!"}));
    p.eventi.clear();
    p.risposte = {Risposta::Si};
    EXPECT_TRUE(CalcolaMisuratePF_DaLibretto(s, {"8|PF01/0100/L736|1|2|"}).isEmpty());
    EXPECT_EQ(p.Domande(), QStringList({"Archivio Misurate: Archivio C:\\fiducial\\DATI\\VE Non "
                                        "installato. Scaricare Archivio?"}));
}

// The lines themselves are the command line's "misurate pf"; here the misses.
TEST_F(Misurate, MisurateDa1PF) {
    EXPECT_EQ(
        MisurateDa1PF(s, "PF09/0100/A001"),
        QStringList({"Provincia di : PD2020.DDD", "Nessuna relazione con altri PF trovata!"}));
    p.eventi.clear();
    EXPECT_TRUE(MisurateDa1PF(s, "PF01/0100/L736").isEmpty());
    EXPECT_EQ(p.Domande(), QStringList({"Misurate non Trovate: File VE non trovato!!\r\nVuoi "
                                        "scaricarlo ora?"}));
}

// The choice and the deletion are clicked on their screen, which always answers yes.
TEST_F(Misurate, EliminazioneRifiutata) {
    p.risposte = {Risposta::No};
    EXPECT_FALSE(EliminaDatabaseMisurate(s, "PD2015.DDD"));
    EXPECT_TRUE(EsisteFile("C:\\fiducial\\DATI\\PD2015.DDD"));
}

TEST(RigaDdd, CampiEBrevi) {
    const MisuraDdd m =
        LeggiRigaDdd("PF01/0100/A001   PF02/0100/A001       383.512   0.030  2009  PD0012345");
    EXPECT_EQ(std::tuple(m.codice1, m.codice2, m.distanza),
              std::tuple("PF01/0100/A001", "PF02/0100/A001", 383.512));
    EXPECT_EQ(LeggiRigaDdd("PF01/0100/").distanza, 0);
}

TEST(CoppieNellArchivio, UgualeAllaRicercaSemplice) {
    std::mt19937 rng(13);
    for (int prova = 0; prova < 80; ++prova) {
        const int fiduciali = 5 + int(rng() % 60);
        QString testo = DddGenerato(int(rng() % 200), fiduciali, "A001", rng);
        // Lone CR and LF ends, accented and undefined bytes, a code in lower case.
        testo.replace(int(rng() % (testo.size() + 1)), 0,
                      "\r" + CodiceGenerato(2, "A001") + " \u00e8~ " + CodiceGenerato(3, "A001"));
        testo.replace(int(rng() % (testo.size() + 1)), 0, "\n" + CodiceGenerato(2, "a001") + " ");
        QByteArray byte = AWindows1252(testo);
        byte.replace('~', '\x81');
        QStringList nomi;
        for (int i = 0; i < fiduciali; ++i)
            if (rng() % 3 == 0) nomi << CodiceGenerato(i, "A001");
        if (rng() % 4 == 0) nomi << "0100/A001"; // not a fiducial code: searched plainly
        if (rng() % 4 == 0) nomi << CodiceGenerato(1, "A001") + "@";
        if (rng() % 4 == 0) nomi << "\u00e8\u0081 "; // found through the decoded bytes
        if (rng() % 4 == 0) nomi << "PF\u4e2d";      // no byte gives it: never found
        nomi.removeDuplicates();
        ASSERT_EQ(CoppieTrovate(byte, nomi), CoppieRiferimento(byte, nomi)) << "prova " << prova;
    }
}

} // namespace tavolet::test
