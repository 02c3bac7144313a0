// CXF to .EMP: generated sheets and the real Rome sheet against the plain version, hand-made
// sheets, and bad input.
#include "cxf.h"
#include "estratto.h"
#include "generatore_cxf.h"
#include "riferimento_cxf.h"

#include "errore.h"
#include "supporto.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// Fast and plain version on the same input: the same text, or the same error.
void Confronta(const QString& cxf, const QStringList& sup, const std::string& caso) {
    PiattaformaFinta p;
    Stato s(p);
    const RisultatoCxf veloce = ComponiEmpDaCxf(s, cxf, sup);
    try {
        const RiferimentoCxf atteso = ComponiEmpDaCxfRiferimento(cxf, sup);
        ASSERT_TRUE(veloce.scritto) << caso << " " << p.Messaggi().join("\n").toStdString();
        ASSERT_EQ(veloce.emp, atteso.emp) << caso;
        ASSERT_EQ(p.eventi.size(), atteso.senzaCornice ? 1 : 0) << caso;
    } catch (const Errore& e) {
        ASSERT_FALSE(veloce.scritto) << caso << " reference error " << e.numero;
        ASSERT_EQ(p.eventi.size(), 1);
        EXPECT_TRUE(p.eventi[0].testo.startsWith(
            QStringLiteral("Si è verificato questo errore : %1\r\n").arg(e.numero)))
            << caso << p.eventi[0].testo.toStdString();
        EXPECT_TRUE(p.eventi[0].testo.endsWith("Nella Routine dacxfadxf1"));
    }
}

const QString kTestaCxf = "MAPPA\r\nH501D076700\r\n4000.000\r\n";

} // namespace

TEST(Cxf, FogliGeneratiUgualiAllaVersioneSemplice) {
    for (unsigned seme = 1; seme <= 120; ++seme) {
        OpzioniCxf o;
        o.seme = seme;
        o.stranezze = seme % 3 == 0;
        o.righe = 2 + int(seme % 9);
        o.colonne = 3 + int(seme % 7);
        const FoglioCxf f = GeneraCxf(o);
        Confronta(f.cxf, RigheDiTesto(f.sup), "seme " + std::to_string(seme));
        if (seme % 10 == 0) Confronta(f.cxf, {}, "senza sup " + std::to_string(seme));
    }
    // The real Rome sheet (its expected .EMP is the command line's test).
    Confronta(DaWindows1252(Dati("estratti/H501D076700.CTF")), {}, "Roma");
}

// Hand-made sheets with their .SUP beside the .EMP written (tests/dati/estratti/cxf/LEGGIMI.txt);
// the routine named when the framing step finds no coordinate.
TEST(Cxf, FogliComeIFileAttesi) {
    const std::pair<QString, const char*> casi[] = {
        {"DUE", nullptr}, {"ISOLE", nullptr}, {"VUOTO", "dacxfadxf2"}, {"BINARIO", nullptr}};
    RadiceProva radice;
    for (const auto& [nome, rapporto] : casi) {
        SCOPED_TRACE(nome.toStdString());
        PiattaformaFinta p;
        Stato s(p);
        for (const QString ext : {".CXF", ".SUP"})
            radice.Scrivi("C:\\CXF\\" + nome + ext, Dati("estratti/cxf/" + nome + ext));
        const QString emp = "C:\\CXF\\" + nome + ".EMP";
        EXPECT_EQ(EstrattoDaCxf(s, "C:\\CXF\\" + nome + ".CXF"), emp);
        EXPECT_EQ(radice.Leggi(emp), Dati("estratti/cxf/" + nome + ".EMP"));
        EXPECT_EQ(radice.Leggi("C:\\CXF\\" + nome + ".PNG"), "filevuoto\r\n");
        ASSERT_EQ(p.eventi.size(), rapporto ? 2 : 1);
        if (rapporto) {
            EXPECT_TRUE(p.eventi[0].testo.endsWith(QString("Nella Routine ") + rapporto));
        }
        EXPECT_EQ(p.Messaggi().last(), "Estratto da CXF: Creato!\r\n" + emp);
    }
}

// Input that ends before its counts, a billion vertices among them: the error report under the
// reading stage, soon, and nothing written, as the plain version fails.
TEST(Cxf, InputRottoNonScriveNulla) {
    const QList<std::pair<QString, int>> casi = {
        {kTestaCxf + "BORDO\r\n12\r\n12\r\n0.000\r\n1\r\n2\r\n3\r\n4\r\n0\r\n5\r\n1.0\r\n", 62},
        {kTestaCxf + "BORDO\r\n12\r\n12\r\n0\r\n1\r\n2\r\n3\r\n4\r\n0\r\n1e9\r\n1.0\r\n2.0\r\n",
         62},
    };
    RadiceProva radice;
    for (const auto& [cxf, numero] : casi) {
        PiattaformaFinta p;
        Stato s(p);
        QElapsedTimer orologio;
        orologio.start();
        radice.Scrivi("C:\\CXF\\ROTTO.CXF", AWindows1252(cxf));
        radice.Scrivi("C:\\CXF\\ROTTO.SUP", QByteArray("\x00\xff\x01\r\x80\n", 6));
        EXPECT_EQ(EstrattoDaCxf(s, "C:\\CXF\\ROTTO.CXF"), "");
        EXPECT_LT(orologio.elapsed(), 2000);
        ASSERT_EQ(p.eventi.size(), 1) << p.Messaggi().join("\n").toStdString();
        EXPECT_TRUE(p.eventi[0].testo.contains(QStringLiteral(": %1\r\n").arg(numero)))
            << p.eventi[0].testo.toStdString();
        EXPECT_FALSE(QFile::exists(radice.Percorso() + "/drive_c/CXF/ROTTO.EMP"));
        EXPECT_FALSE(QFile::exists(radice.Percorso() + "/drive_c/CXF/ROTTO.PNG"));
        Confronta(cxf, {}, std::to_string(numero));
    }
}
