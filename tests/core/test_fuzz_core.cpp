// Random and broken input through the readers of the core: reports are allowed, crashes not.
#include "libretto.h"
#include "piattaforma_finta.h"
#include "supporto.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QString RigaCasuale(QRandomGenerator& g) {
    static const QStringList pezzi = {"0",       "9", "1",  "2",  "6",    "7",       "8",
                                      "|",       "|", "|",  "||", "<P!>", "<EST>",   "<DIT>",
                                      "6|<COD>", ">", ",",  ".",  "-",    "1E400",   "PF",
                                      "RC",      " ", "\t", "è",  "A",    "12345678"};
    QString r;
    const int n = g.bounded(0, 40);
    for (int i = 0; i < n; ++i) r += pezzi[g.bounded(int(pezzi.size()))];
    return r;
}

} // namespace

TEST(FuzzCore, LibrettiCasualiNonFannoCadereNulla) {
    RadiceProva radice;
    radice.PregeoMinimo();
    PiattaformaFinta p;
    Stato s(p);
    Inizializza(s);
    CaricaConfig(s);
    QRandomGenerator g(20261121);
    for (int giro = 0; giro < 400; ++giro) {
        QByteArray file;
        const int righe = g.bounded(0, 30);
        for (int i = 0; i < righe; ++i) {
            file += AWindows1252(RigaCasuale(g));
            const int fine = g.bounded(4);
            file += fine == 0 ? "\n" : fine == 1 ? "\r" : "\r\n";
        }
        if (g.bounded(3) == 0) file.truncate(g.bounded(file.size() + 1));
        radice.Scrivi("C:\\f\\F.DAT", file);
        s.doc.PercorsoLibretto = g.bounded(2) ? "C:\\f\\F.DAT" : "C:\\f\\F.LXB";
        CaricaLibrettoMisure(s);
        CaricaLibrettoInList1(s);
        ASSERT_GE(s.doc.RigheLibretto.Conta(), 2);
        for (const QString& r : s.doc.RigheLibretto.Righe()) ScomponiRiga(r.left(200));
        AggiornaLibrettoMisure(s);
        s.doc.PercorsoLibretto = "C:\\f\\G.DAT";
        ScriviLibrettoMisure(s);
        ASSERT_TRUE(EsisteFile("C:\\f\\G.DAT"));
        // What was written loads again to the same rows, less the marks that saving removes.
        QStringList attese;
        bool tag = false;
        for (QString r : s.doc.RigheLibretto.Righe()) {
            r.remove("<P!>");
            r = Trim(r);
            tag = tag || r.contains("6|<");
            if (r.size() > 2) attese << r;
        }
        CaricaLibrettoMisure(s);
        CaricaLibrettoInList1(s);
        if (!tag && TipoRiga(attese.value(0)) == 0 && TipoRiga(attese.value(1)) == 9) {
            ASSERT_EQ(s.doc.RigheLibretto.Righe(), attese);
        }
    }
}

TEST(FuzzCore, TabelleDiPregeoGuastate) {
    RadiceProva radice;
    radice.PregeoMinimo();
    const QByteArray buono = Dati("pregeo/comunt.dat").left(20000);
    QRandomGenerator g(7);
    for (int giro = 0; giro < 60; ++giro) {
        QByteArray guasto = buono.left(g.bounded(buono.size()));
        for (int k = 0; k < 30 && !guasto.isEmpty(); ++k)
            guasto[g.bounded(guasto.size())] = char(g.bounded(256));
        radice.Scrivi("C:\\pregeo\\arch\\comunt.dat", guasto);
        radice.Scrivi("C:\\pregeo\\exe\\prosigle", guasto.left(g.bounded(3000)));
        radice.Scrivi("C:\\pregeo\\exe\\qualita.txt", guasto.left(g.bounded(4000)));
        radice.Scrivi("C:\\windows\\PREGEO.INI",
                      guasto.left(g.bounded(400)) + "\r\nDskAPPLexe=C:\r\n");
        PiattaformaFinta p;
        Stato s(p);
        Inizializza(s);
        CaricaConfig(s);
        CaricaComuni(s);
        CaricaProvince(s);
        s.doc.TestoLibretto = "0|01012024|1|A001|\r\n9|1|\r\n";
        DecoZeroNove(s);
        for (const Comune& c : s.amb.TabellaComuni) ASSERT_LE(c.NomeComune.size(), 34);
    }
}

TEST(FuzzCore, NumeriEFigureEstremi) {
    QRandomGenerator g(3);
    const QStringList figure = {"#########0.##0", "###0.##0", "0", "#.##", "000.0", ""};
    for (int i = 0; i < 20000; ++i) {
        const double v = (g.generateDouble() - 0.5) * std::pow(10.0, g.bounded(-8, 18));
        const QString f = figure[g.bounded(int(figure.size()))];
        const QString testo = Formato(v, f);
        if (f == "###0.##0" && std::fabs(v) < 1e12) {
            // What is written reads back within the rounding.
            ASSERT_NEAR(Val(testo), v, 0.0005 + std::fabs(v) * 1e-15) << testo.toStdString();
        }
    }
}
