// SalvaEstratto1: the bytes written, step by step where the steps show.
#include "estratto.h"

#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kTestaScrittura =
    QStringLiteral("0|15032024|PD0012345/2024|A001|00120|257|PD|0|0|0|");

struct Scrittura : ::testing::Test {
    PiattaformaFinta piattaforma;
    Stato stato{piattaforma};
    RadiceProva radice;
    const QString percorso = QStringLiteral("C:\\pregeo\\estratti\\E.EMP");

    // Writes the rows as a file, reads it and saves it; the bytes of the result.
    QByteArray Ciclo(const QByteArray& byte) {
        radice.Scrivi(percorso, byte);
        Estratto e = EsplodiEstratto(stato, percorso);
        SalvaEstratto1(stato, e);
        return radice.Leggi(percorso);
    }
};

} // namespace

// Hand-made extracts beside the bytes the save writes (the realistic one is the command line's)
// (tests/dati/estratti/scrittura/LEGGIMI.txt says what each one shows), and the routine named by
// the report when there is one.
TEST_F(Scrittura, FileComeIFileAttesi) {
    const struct {
        const char *ingresso, *atteso, *routine;
    } casi[] = {
        {"scrittura/riga_zero.EMP", "scrittura/riga_zero_salvato.EMP", "EsplodiEstratto"},
        {"scrittura/autoallestito.EMP", "scrittura/autoallestito_salvato.EMP", nullptr},
        {"scrittura/dieci_undici.EMP", "scrittura/dieci_undici_salvato.EMP", nullptr},
        {"scrittura/aree.EMP", "scrittura/aree_salvato.EMP", nullptr},
        {"scrittura/ordine.EMP", "scrittura/ordine_salvato.EMP", nullptr},
        {"scrittura/linee_giu.EMP", "scrittura/linee_giu_salvato.EMP", nullptr},
        // Past the area tables: the report, and the old file stays.
        {"scrittura/anello_lungo.EMP", "scrittura/anello_lungo.EMP", "SalvaEstratto1"},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.ingresso);
        piattaforma.eventi.clear();
        EXPECT_EQ(Ciclo(Dati(QStringLiteral("estratti/") + c.ingresso)),
                  Dati(QStringLiteral("estratti/") + c.atteso));
        if (!c.routine) {
            EXPECT_TRUE(piattaforma.Messaggi().isEmpty());
            continue;
        }
        ASSERT_EQ(piattaforma.Messaggi().size(), 1);
        EXPECT_EQ(piattaforma.Messaggi()[0],
                  QStringLiteral("Rilevato errore: Si è verificato questo errore : 9\r\n"
                                 "Indice non incluso nell'intervallo\r\nNella Routine ") +
                      c.routine);
    }
}

// The save's area, on its own: the first row of an id counts (a 3 x 4 triangle); past the
// tables, the report under the caller's tag.
TEST_F(Scrittura, CalcolaAreaRigaSette) {
    Estratto e;
    e.Punti = {"8|1%|0|0|", "8|2%|0|4|", "8|3%|3|4|", "8|1%|99|99|"};
    ASSERT_TRUE(CalcolaAreaRigaSette(stato, e, "7|4|1%|2%|3%|1%|NC|T|T|0|"));
    EXPECT_DOUBLE_EQ(e.AreaRigaSette, 6);
    stato.TagRoutine = "Chiamante";
    EXPECT_FALSE(
        CalcolaAreaRigaSette(stato, e, "7|600|" + QString("1%|").repeated(600) + "NC|L|L|0|"));
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi()[0].endsWith("Nella Routine Chiamante"));
}

TEST_F(Scrittura, CartellaMancanteNessunFile) {
    Estratto e = EsplodiTestoEstratto(stato, DaWindows1252(Righe({kTestaScrittura, "8|1%|0|0|"})),
                                      "C:\\non\\esiste\\E.EMP");
    EXPECT_FALSE(SalvaEstratto1(stato, e));
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi()[0].contains(": 76\r\n"));
    // The form is kept after a failed save; a good save drops it.
    EXPECT_EQ(e.Punti.size(), 1);
    e.Percorso = percorso;
    CreaCartella("C:\\pregeo\\estratti");
    EXPECT_TRUE(SalvaEstratto1(stato, e));
    EXPECT_TRUE(e.Punti.isEmpty());
    EXPECT_EQ(radice.Leggi(percorso), Righe({kTestaScrittura, "8|1%|0|0|", ""}));
}
