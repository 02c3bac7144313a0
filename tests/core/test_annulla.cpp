// Undo steps of the document and the find over the rows.
#include "annulla.h"
#include "piattaforma_finta.h"
#include "trova.h"

#include <gtest/gtest.h>

using namespace tavolet;

namespace {

struct Passi : ::testing::Test {
    PiattaformaFinta p;
    Stato s{p};
    Annullamenti a;
    void Righe(const QStringList& righe) {
        s.doc.RigheLibretto.Svuota();
        for (const QString& r : righe) s.doc.RigheLibretto.Aggiungi(r);
    }
};

} // namespace

TEST_F(Passi, SoloICambiamentiDelDocumentoSonoPassi) {
    Righe({"0|A|", "9|B|", "1|1|", "2|2|"});
    EXPECT_EQ(PuntoDiAnnullamento(a, s), "");
    // A selection is no step, and a checkpoint with nothing changed records nothing.
    s.doc.RigheLibretto.Seleziona(2, true);
    EXPECT_EQ(PuntoDiAnnullamento(a, s), "");
    EXPECT_TRUE(a.indietro.isEmpty());
    EXPECT_FALSE(Annulla(a, s).has_value());

    s.doc.RigheLibretto.Rimuovi(2);
    EXPECT_EQ(PuntoDiAnnullamento(a, s), "1 riga eliminata");
    s.doc.RigheLibretto.Aggiungi("8|X|");
    s.doc.RigheLibretto.Aggiungi("8|Y|");
    EXPECT_EQ(PuntoDiAnnullamento(a, s), "2 righe aggiunte");
    s.doc.RigheLibretto.Imposta(0, "0|C|");
    EXPECT_EQ(PuntoDiAnnullamento(a, s, "Righe riordinate"), "Righe riordinate");
    s.doc.RigheLibretto.Imposta(0, "0|D|");
    EXPECT_EQ(PuntoDiAnnullamento(a, s), "1 riga modificata");
    s.doc.NumeroIscrizioneAlbo = "1234";
    EXPECT_EQ(PuntoDiAnnullamento(a, s), "Dati del libretto modificati");
    s.doc.PercorsoLibretto = "C:\\L\\X.DAT";
    EXPECT_EQ(PuntoDiAnnullamento(a, s), "Aperto C:\\L\\X.DAT");
    s.doc.PercorsoLibretto.clear();
    EXPECT_EQ(PuntoDiAnnullamento(a, s), "Nuovo libretto");
    EXPECT_EQ(a.indietro.size(), 7);

    // All the way back: the rows, the selection, the tag values as they were.
    for (const char* atteso :
         {"Nuovo libretto", "Aperto C:\\L\\X.DAT", "Dati del libretto modificati",
          "1 riga modificata", "Righe riordinate", "2 righe aggiunte", "1 riga eliminata"})
        EXPECT_EQ(Annulla(a, s), std::optional<QString>(atteso));
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), (QStringList{"0|A|", "9|B|", "1|1|", "2|2|"}));
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{2});
    EXPECT_EQ(s.doc.NumeroIscrizioneAlbo, "");
    EXPECT_FALSE(Annulla(a, s).has_value());
    EXPECT_EQ(Ripeti(a, s), std::optional<QString>("1 riga eliminata"));
    EXPECT_EQ(Ripeti(a, s), std::optional<QString>("2 righe aggiunte"));
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), (QStringList{"0|A|", "9|B|", "2|2|", "8|X|", "8|Y|"}));

    // A change after an undo drops the steps forward; one made without a checkpoint is still
    // caught by the undo and becomes the step it takes back.
    s.doc.RigheLibretto.Rimuovi(4);
    EXPECT_EQ(Annulla(a, s), std::optional<QString>("1 riga eliminata"));
    EXPECT_EQ(s.doc.RigheLibretto.Conta(), 5);
    EXPECT_EQ(a.avanti.size(), 1);
    EXPECT_EQ(Ripeti(a, s), std::optional<QString>("1 riga eliminata"));
    EXPECT_FALSE(Ripeti(a, s).has_value());
    EXPECT_EQ(s.doc.RigheLibretto.Conta(), 4);
}

TEST_F(Passi, ProfonditaLimitata) {
    Righe({"0|A|", "9|B|"});
    PuntoDiAnnullamento(a, s);
    for (int i = 0; i < Annullamenti::kPassiMassimi + 50; ++i) {
        s.doc.RigheLibretto.Aggiungi("8|" + QString::number(i) + "|");
        PuntoDiAnnullamento(a, s);
    }
    EXPECT_EQ(a.indietro.size(), Annullamenti::kPassiMassimi);
    int passi = 0;
    while (Annulla(a, s)) ++passi;
    EXPECT_EQ(passi, Annullamenti::kPassiMassimi);
    // The oldest steps were let go: the earliest state reachable holds 50 rows more.
    EXPECT_EQ(s.doc.RigheLibretto.Conta(), 2 + 50);
    while (Ripeti(a, s)) --passi;
    EXPECT_EQ(passi, 0);
    EXPECT_EQ(s.doc.RigheLibretto.Conta(), 2 + Annullamenti::kPassiMassimi + 50);
}

TEST(Trova, RigaSuccessivaSenzaMaiuscoleEDaCapo) {
    ListaRighe l;
    for (const char* r : {"0|x|", "2|PF05/0120|", "6|Città di Piove|", "8|pf05/0120|"})
        l.Aggiungi(QString::fromUtf8(r));
    EXPECT_EQ(TrovaRigaSuccessiva(l, "pf05", 0), 1);
    EXPECT_EQ(TrovaRigaSuccessiva(l, "pf05", 2), 3);
    EXPECT_EQ(TrovaRigaSuccessiva(l, "pf05", 4), 1);  // past the end: from the top
    EXPECT_EQ(TrovaRigaSuccessiva(l, "PF05", -7), 1); // an absurd start: from the top
    EXPECT_EQ(TrovaRigaSuccessiva(l, QString::fromUtf8("CITTÀ"), 0), 2);
    EXPECT_EQ(TrovaRigaSuccessiva(l, "zzz", 0), -1);
    EXPECT_EQ(TrovaRigaSuccessiva(l, "  ", 0), -1);
    EXPECT_EQ(TrovaRigaSuccessiva(ListaRighe(), "x", 0), -1);
}
