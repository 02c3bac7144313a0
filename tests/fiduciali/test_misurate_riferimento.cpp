// The report of measured distances against its plain version, on many generated archives with
// odd lines: the same lines, the same Misurate.TXT, the same messages.
#include "fiduciali.h"
#include "generatore_taf.h"
#include "riferimento_misurate.h"
#include "supporto.h"

#include <random>

namespace tavolet::test {

namespace {

QString FineRiga(std::mt19937& rng) {
    static const char* const fini[] = {"\n", "\r", "\r\n", "\r\n", "\r\n", "\r\n"};
    return QString::fromLatin1(fini[rng() % 6]);
}

// Lines of a text joined again with mixed line ends, some blank lines, no end at the last one.
QString Rimescola(const QString& testo, std::mt19937& rng) {
    QString r;
    const QStringList righe = RigheDiTesto(testo);
    for (int i = 0; i < righe.size(); ++i) {
        r += righe[i];
        if (i + 1 < righe.size() || rng() % 2) r += FineRiga(rng);
        if (rng() % 25 == 0) r += FineRiga(rng);
    }
    return r;
}

QString TafStrana(int n, std::mt19937& rng) {
    QString t = TafGenerata(n, "A001", rng);
    CampiTaf c;
    // The same code twice with other coordinates: the first line counts.
    c.foglio = "1";
    c.numero = "3";
    c.nord = "1.000";
    c.est = "2.000";
    t += RigaTafCampi(c) + "\r\n";
    // Blanks in the sheet: the composition reads them as zeroes.
    QString bianchi = RigaTafCampi(c);
    bianchi.replace(5, 5, "    2");
    bianchi.replace(13, 4, "   4");
    t += bianchi + "\r\n";
    t += "A001    1     5" + QString(200, u'x') + "\r\n"; // no coordinates in their columns
    t += "A001    1\r\n";                                 // cut short
    c.rifPlan = QString::fromUtf8("CHIESA DI SANT\u00c9LIA \u201cVECCHIA\u201d");
    c.numero = "6";
    t += RigaTafCampi(c) + "\r\n";
    return Rimescola(t, rng);
}

QString DddStrano(int n, int fiduciali, std::mt19937& rng) {
    QString t = DddGenerato(n, fiduciali, "A001", rng);
    for (int k = 0; k < 6; ++k) {
        const QString a = CodiceGenerato(int(rng() % fiduciali), "A001");
        const QString b = CodiceGenerato(int(rng() % fiduciali), "A001");
        const QString c = CodiceGenerato(int(rng() % fiduciali), "A001");
        t += a + " " + b + "\r\n";                               // short: no distance
        t += a + "   " + b + "   12,500   0.020  2001  PD1\r\n"; // decimal comma
        t += a.leftJustified(17) + b.leftJustified(16) + "  99999999999999999999999  x\r\n";
        t += "nota " + a + " e " + b + " e " + c + "  \u00e8 ~ ok\r\n"; // three codes, odd bytes
        t += a.toLower() + "  " + b + "      10.000\r\n";               // one in lower case
        t += a + "@ " + b + "@     20.000   0.010  2002  PD2\r\n";
    }
    return Rimescola(t, rng);
}

struct Confronto : ::testing::Test {
    RadiceProva radice;
    PiattaformaFinta pVeloce, pPiano;
    Stato veloce{pVeloce}, piano{pPiano};
    void SetUp() override {
        radice.PregeoMinimo();
        for (Stato* s : {&veloce, &piano}) {
            Inizializza(*s);
            CaricaConfig(*s);
        }
    }
    QStringList Nomi(int fiduciali, std::mt19937& rng) const {
        QStringList nomi;
        const int n = 1 + int(rng() % 12);
        for (int k = 0; k < n; ++k) {
            QString nome = CodiceGenerato(int(rng() % (fiduciali + 5)), "A001");
            const unsigned caso = rng() % 8;
            if (caso == 0) nome = nome.toLower();
            if (caso == 1) nome += "@";
            if (caso == 2) nome = "PF04/0020/A001"; // the line with blanks in its sheet
            if (caso == 3) nome = "PF0" + QString::number(rng() % 10) + "/0010/A001";
            if (caso == 4 && rng() % 3 == 0) nome += "\u4e2d"; // no byte of the files gives it
            nomi << nome;
        }
        return nomi;
    }
    int conMedia = 0, conTaf = 0, nonTrovati = 0;
    void Verifica(const QStringList& a, const QStringList& b, int prova) {
        ASSERT_EQ(a, b) << "prova " << prova;
        conMedia += a.join(u'\n').contains("( Media )");
        conTaf += a.join(u'\n').contains("( TAF )");
        nonTrovati += pPiano.Messaggi().join(u'\n').contains("PF Non trovato");
        ASSERT_EQ(pVeloce.Messaggi(), pPiano.Messaggi()) << "prova " << prova;
        ASSERT_EQ(pVeloce.Domande(), pPiano.Domande()) << "prova " << prova;
        ASSERT_EQ(veloce.ErroriMostrati, piano.ErroriMostrati) << "prova " << prova;
        ASSERT_EQ(veloce.doc.NomeMisurate, piano.doc.NomeMisurate);
    }
};

} // namespace

TEST_F(Confronto, RapportoUgualeAlPiano) {
    std::mt19937 rng(77);
    for (int prova = 0; prova < 150; ++prova) {
        const int fiduciali = 5 + int(rng() % 120);
        radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", AWindows1252(TafStrana(fiduciali, rng)));
        QByteArray ddd = AWindows1252(DddStrano(int(rng() % 400), fiduciali, rng));
        ddd.replace('~', '\x81'); // a byte that Windows-1252 leaves undefined
        radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", ddd);
        const QStringList nomi = Nomi(fiduciali, rng);
        pVeloce.eventi.clear();
        pPiano.eventi.clear();
        QStringList libretto = {"0|x|", "9|20|"};
        for (const QString& n : nomi) libretto << "8|" + n + "|1.000|2.000|01|X|";
        libretto << "2|" + nomi.first() + "|";
        QList<PuntoPF> punti;
        std::uniform_real_distribution<double> u(-20000, 20000);
        for (const QString& n : nomi) punti.append({n, u(rng), u(rng)});
        if (rng() % 5 == 0) punti.append({"PF01/0010/A00X", 0, 0}); // a fiscal code: dropped
        QList<PuntoPF> copia = punti;
        // Even trials from the libretto, odd ones from the drawing.
        const QStringList r1 = prova % 2 == 0 ? CalcolaMisuratePF_DaLibretto(veloce, libretto)
                                              : CalcolaMisuratePF(veloce, punti);
        const QByteArray f1 = LeggiByte(PercorsoFileMisurate(veloce));
        const QStringList r2 = prova % 2 == 0
                                   ? CalcolaMisuratePF_DaLibrettoRiferimento(piano, libretto)
                                   : CalcolaMisuratePFRiferimento(piano, copia);
        Verifica(r1, r2, prova);
        ASSERT_EQ(f1, LeggiByte(PercorsoFileMisurate(piano))) << "prova " << prova;
    }
    // The inputs reach every kind of line of the report.
    EXPECT_GT(conMedia, 30);
    EXPECT_GT(conTaf, 30);
    EXPECT_GT(nonTrovati, 30);
}

TEST_F(Confronto, TrovaPFNellaTAFUgualeAlPiano) {
    std::mt19937 rng(5);
    for (int prova = 0; prova < 30; ++prova) {
        const int fiduciali = 5 + int(rng() % 200);
        radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", AWindows1252(TafStrana(fiduciali, rng)));
        QStringList codici = Nomi(fiduciali, rng);
        codici << " PF04/0020/A001 "
               << "PF01/0010/G224"
               << "PF01"
               << "";
        const QList<PFNellaTaf> tutti = TrovaPFNellaTAF(veloce, codici);
        ASSERT_EQ(tutti.size(), codici.size());
        for (int i = 0; i < codici.size(); ++i) {
            const PFNellaTaf uno = TrovaPFNellaTAFRiferimento(piano, codici[i]);
            EXPECT_EQ(tutti[i].trovato, uno.trovato) << codici[i].toStdString();
            EXPECT_EQ(tutti[i].nord, uno.nord);
            EXPECT_EQ(tutti[i].est, uno.est);
            const PFNellaTaf singolo = TrovaPFNellaTAF(veloce, codici[i]);
            EXPECT_EQ(singolo.trovato, uno.trovato);
            EXPECT_EQ(singolo.nord, uno.nord);
        }
    }
}

} // namespace tavolet::test
