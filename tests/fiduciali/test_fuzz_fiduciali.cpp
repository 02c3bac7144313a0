// Random and mutated TAF and .DDD texts: the readers never crash and give sane fields.
#include "fiduciali.h"
#include "generatore_taf.h"
#include "supporto.h"

#include <random>

namespace tavolet::test {

namespace {

QString Muta(QString testo, std::mt19937& rng) {
    const int n = 1 + int(rng() % 20);
    for (int k = 0; k < n && !testo.isEmpty(); ++k) {
        const int pos = int(rng() % testo.size());
        switch (rng() % 5) {
        case 0:
            testo.truncate(pos);
            break;
        case 1:
            testo[pos] = QChar(char16_t(rng() % 256));
            break;
        case 2:
            testo.insert(pos, QStringLiteral("\r\n"));
            break;
        case 3:
            testo.remove(pos, int(rng() % 40));
            break;
        default:
            testo.insert(pos, QString(int(rng() % 300), QChar(u'9')));
            break;
        }
    }
    return testo;
}

} // namespace

TEST(FuzzFiduciali, TafCasualeEMutata) {
    std::mt19937 rng(2026);
    const QString base = DaWindows1252(Dati("fiduciali/A001.TAF")) + TafGenerata(30, "A001", rng);
    for (int prova = 0; prova < 400; ++prova) {
        const QString testo = Muta(base, rng);
        const QList<RigaTaf> righe = LeggiTaf(testo);
        EXPECT_LE(righe.size(), RigheDiTesto(testo).size());
        for (const RigaTaf& r : righe) {
            EXPECT_EQ(r.foglio.size(), 3);
            EXPECT_EQ(r.allegato.size(), 1);
            EXPECT_EQ(r.numero.size(), 4);
            EXPECT_FALSE(r.rifPlan.contains(u'"'));
            EXPECT_EQ(CelleGriglia(r).size(), 10);
        }
        for (const QString& riga : RigheDiTesto(testo)) CodiceComposto(riga);
        TestoColonne(IntestazioniGriglia(), GrigliaTaf(righe), kLarghezzeStampaTaf);
    }
}

TEST(FuzzFiduciali, DddCasualeEMutato) {
    std::mt19937 rng(9);
    const QString base =
        DaWindows1252(Dati("fiduciali/PD2020.DDD")) + DddGenerato(50, 40, "A001", rng);
    const QStringList nomi = {CodiceGenerato(1, "A001"), CodiceGenerato(2, "A001"),
                              "PF01/0100/A001", "PF02/0100/A001", "PF"};
    for (int prova = 0; prova < 300; ++prova) {
        const QString testo = Muta(base, rng);
        for (const QString& r : RigheDiTesto(testo)) {
            const MisuraDdd m = LeggiRigaDdd(r);
            EXPECT_LE(m.codice1.size(), 33);
        }
        const QByteArray byte = AWindows1252(testo);
        ASSERT_EQ(CoppieTrovate(byte, nomi), CoppieRiferimento(byte, nomi));
    }
}

TEST_F(ConPregeo, FuzzRapportoSuArchivioGuasto) {
    std::mt19937 rng(4);
    radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
    const QString base = DaWindows1252(Dati("fiduciali/PD2020.DDD"));
    for (int prova = 0; prova < 40; ++prova) {
        radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", AWindows1252(Muta(base, rng)));
        QList<PuntoPF> punti = {{"PF01/0100/A001", 1, 1},
                                {"PF02/0100/A001", 1, 1},
                                {"PF03/0100/A001", 23102.31, -12120.01}};
        const QStringList r = CalcolaMisuratePF(s, punti);
        // An overflowing distance in the archive is the error report; else the report stands.
        EXPECT_TRUE(!r.isEmpty() || s.ErroriMostrati > 0);
    }
    // Absurd coordinates in the drawing: the error report, no crash.
    radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", Dati("fiduciali/PD2020.DDD"));
    s.ErroriMostrati = 0;
    QList<PuntoPF> assurdi = {{"PF01/0100/A001", 1e308, 1e308}, {"PF02/0100/A001", -1e308, -1e308}};
    EXPECT_TRUE(CalcolaMisuratePF(s, assurdi).isEmpty());
    EXPECT_EQ(s.ErroriMostrati, 1);
}

} // namespace tavolet::test
