// EsplodiEstratto: where each row goes, the merged rings and lines, the head values.
#include "estratto.h"

#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Lettura : ::testing::Test {
    PiattaformaFinta piattaforma; // today is 15 January 2026
    Stato stato{piattaforma};

    Estratto Leggi(const QStringList& righe) {
        return EsplodiTestoEstratto(stato, DaWindows1252(Righe(righe)),
                                    QStringLiteral("C:\\x.EMP"));
    }
};

const QString kTesta = QStringLiteral("0|15032024|PD0012345/2024|A001|00120|257,258|PD|0|0|0|");

// Every list and value the reader fills, one per line, rows indented under their list.
QString Liste(const Estratto& e) {
    QString t;
    const std::pair<const char*, const QStringList*> liste[] = {
        {"ZERO", &e.ZERO},
        {"Punti", &e.Punti},
        {"PF", &e.PF},
        {"Toponimi", &e.Toponimi},
        {"PLinee", &e.PLinee},
        {"SETTE", &e.SETTE},
        {"Linee", &e.Linee},
        {"DITTA", &e.DITTA},
        {"PARTICELLA", &e.PARTICELLA},
        {"PFCART", &e.PFCART},
        {"DISTANZA", &e.DISTANZA},
        {"ALTRO", &e.ALTRO},
        {"INQUADRAMENTO", &e.INQUADRAMENTO}};
    for (const auto& [nome, righe] : liste) {
        t += QStringLiteral("%1 (%2)\n").arg(nome).arg(righe->size());
        for (const QString& r : *righe) t += "  " + r + '\n';
    }
    const std::pair<const char*, QString> valori[] = {
        {"EstrattoPercorso", e.EstrattoPercorso},
        {"EstrattoRigaZero", e.EstrattoRigaZero},
        {"EstrattoData", e.EstrattoData},
        {"EstrattoComune", e.EstrattoComune},
        {"EstrattoFoglio", e.EstrattoFoglio},
        {"EstrattoParticelle", e.EstrattoParticelle},
        {"EstrattoProvincia", e.EstrattoProvincia},
        {"EstrattoMesi", QString::number(e.EstrattoMesi)},
        {"EstrattoEstMedio", e.EstrattoEstMedio},
        {"EstrattoDitte", e.EstrattoDitte},
        {"EstrattoParticelleTesto", e.EstrattoParticelleTesto},
        {"EstrattoSette", e.EstrattoSette},
        {"EstrattoSetteSemplici", e.EstrattoSetteSemplici},
        {"EstrattoSetteIsole", e.EstrattoSetteIsole}};
    for (const auto& [nome, valore] : valori)
        t += nome + ('=' + QString(valore).replace("\r\n", "\\r\\n")) + '\n';
    return t;
}

} // namespace

// The realistic extract (rings reversed, a continuation row merged, "6|DIST" tested first so
// that DISTORSIONE lands with the distances, the framing row then its fields, the mean east of
// the map vertices only) and hand-made ones (tests/dati/estratti/lettura/LEGGIMI.txt).
TEST_F(Lettura, ListeComeIFileAttesi) {
    for (const char* nome :
         {"realistico", "lettura/linee_isole", "lettura/continuazioni", "lettura/autoallestito"}) {
        SCOPED_TRACE(nome);
        const QString base = QStringLiteral("estratti/") + nome;
        const Estratto e = EsplodiTestoEstratto(stato, DaWindows1252(Dati(base + ".EMP")),
                                                QStringLiteral("C:\\x.EMP"));
        EXPECT_TRUE(piattaforma.Messaggi().isEmpty());
        EXPECT_EQ(stato.TagRoutine, "EsplodiEstratto1");
        EXPECT_EQ(Liste(e), QString::fromUtf8(Dati(base + ".txt")));
    }
}

TEST_F(Lettura, EtaInMesiDiCalendario) {
    const QStringList punto = {"8|1%|-5.0|-7.0|"};
    piattaforma.adesso = QDateTime(QDate(2026, 2, 1), QTime(9, 0));
    EXPECT_EQ(Leggi(QStringList{"0|31012026|P|A001|00001|1|PD|0|0|0|"} + punto).EstrattoMesi, 1);
    EXPECT_EQ(Leggi(QStringList{"0|01022025|P|A001|00001|1|PD|0|0|0|"} + punto).EstrattoMesi, 12);
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());
    // A date that is no date is a type mismatch.
    Leggi(QStringList{"0|31022024|P|A001|00001|1|PD|0|0|0|"} + punto);
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi()[0].contains(": 13\r\n"));
}

TEST_F(Lettura, SenzaVerticiRapportoDiErrore) {
    const Estratto e = Leggi({kTesta, "7|3|1%|2%|1%|NC|1|1|0|"});
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_EQ(piattaforma.Messaggi()[0],
              "Rilevato errore: Si è verificato questo errore : 9\r\n"
              "Indice non incluso nell'intervallo\r\nNella Routine EsplodiEstratto");
    // What came before the error stays.
    EXPECT_EQ(e.EstrattoComune, "A001");
    EXPECT_EQ(e.SETTE.size(), 1);
    EXPECT_TRUE(e.EstrattoEstMedio.isEmpty());

    // A row 8 without an id stops the reading there.
    const Estratto corto = Leggi({kTesta, "8|1%|1|2|", "8", "8|2%|1|2|"});
    EXPECT_EQ(piattaforma.Messaggi().size(), 2);
    EXPECT_EQ(corto.Punti.size(), 1);
}

TEST_F(Lettura, NomiEPercorsi) {
    RadiceProva radice;
    stato.amb.UnitaPregeoExe = "C:";
    radice.Scrivi("C:\\pregeo\\estratti\\PROVA.EMP", Righe({kTesta, "8|1%|1|2|"}));
    const Estratto e = EsplodiEstratto(stato, "PROVA.EMP");
    EXPECT_EQ(e.Percorso, "C:\\pregeo\\estratti\\PROVA.EMP");
    EXPECT_EQ(e.Punti.size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());

    // A name ending in a backslash: nothing was selected, nothing is said.
    const Estratto nulla = EsplodiEstratto(stato, "C:\\pregeo\\estratti\\");
    EXPECT_TRUE(nulla.ZERO.isEmpty());
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());

    // A missing file: empty lists, and the head step reports.
    const Estratto manca = EsplodiEstratto(stato, "C:\\pregeo\\estratti\\MANCA.EMP");
    EXPECT_TRUE(manca.ZERO.isEmpty());
    EXPECT_EQ(manca.Percorso, "C:\\pregeo\\estratti\\MANCA.EMP");
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi()[0].endsWith("Nella Routine EsplodiEstratto"));
}
