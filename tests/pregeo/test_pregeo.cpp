// The backup's name, the helper's contract through a scripted double, the import of an
// elaboration into a libretto by coordinates.
#include "pregeo.h"

#include "supporto.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// The state with the helper's three programs mapped to the scripted double.
struct ConPonticello : ConPregeo {
    QString documenti;
    void SetUp() override {
        ConPregeo::SetUp();
        documenti = PercorsoLocale(s.amb.CartellaDocumenti);
        QDir().mkpath(documenti);
        for (const QString nome : {"PONTICELLO.EXE", "PONTICELLO.EXE2", "PONTICELLO2.EXE"})
            p.impostazioni.insert(kSezioneProgrammi + u'/' + nome,
                                  QStringLiteral("/bin/sh \"%1\" \"%2\" \"%3\" %4")
                                      .arg(PercorsoDati("pregeo/ponticello_finto.sh"), documenti,
                                           PercorsoDati("pregeo/ponticello"), nome));
        p.esegui = AvviaProcessoHost;
        CreaAlberoCartelle(s);
    }
    QStringList Chiamate() const {
        QFile f(documenti + "/ponticello.log");
        if (!f.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(f.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }
};

} // namespace

TEST_F(ConPregeo, NomeDelBackupDiArch2) {
    p.adesso = QDateTime(QDate(2026, 3, 7), QTime(9, 5, 2));
    // Year, then day and month as the characters of "07/03/2026" give them.
    EXPECT_EQ(NomeBackupArch2(s), "_2026-07-03_09-05-02.db");
    s.doc.PercorsoLibretto = "C:\\Libretti\\PROVA.1.DAT";
    EXPECT_EQ(NomeBackupArch2(s), "PROVA_2026-07-03_09-05-02.db");
}

TEST_F(ConPonticello, PuntiElaboratiNelLibrettoPerCoordinate) {
    DaPregeo dp;
    CaricaPregeo800(s, dp);
    MostraListaPregeo(s, dp, 0);
    EXPECT_EQ(Chiamate().last(), "PONTICELLO.EXE ESPORTA_TUTTO 25000123");
    ASSERT_EQ(dp.Punti.size(), 5);
    // A point with no row in the libretto keeps an empty description: its row 8 ends "||".
    EXPECT_TRUE(TestoRighe8(dp).contains("\r\n8|999|5100.500|1600.750||\r\n"));
    CreaCartella("C:\\Libretti");
    s.doc.PercorsoLibretto = "C:\\Libretti\\COORDINATE.DAT";
    ImportaRighe8InLibretto(s, dp);
    EXPECT_EQ(s.TagRoutine, "Decozero_129 ");
    AggiornaLibrettoMisure(s);
    ScriviLibrettoMisure(s);
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\COORDINATE.DAT"), Dati("pregeo/coordinate.dat"));

    // No row chosen: both lists empty, the helper not called.
    const qsizetype chiamate = Chiamate().size();
    EXPECT_TRUE(MostraListaPregeo(s, dp, -1).isEmpty());
    EXPECT_TRUE(dp.Punti.isEmpty());
    EXPECT_EQ(Chiamate().size(), chiamate);
}

TEST(DaPregeo, DescrizioniDalleRigheDelLibretto) {
    DaPregeo dp;
    dp.Punti = {RigaPunto("P1,1,2,3,GIA' DESCRITTO,ALTRO"), RigaPunto("P2,1,2")};
    dp.RigheLibretto = {"0|x|", "4|P2|1|2|MURO|", "5|P1|1|2|3|"};
    CaricaDescrizione(dp);
    // The first description found holds; a row 4 of four fields is planimetric.
    EXPECT_EQ(dp.Punti[1][kDescrizione], "<P!>MURO");
    EXPECT_EQ(TestoRighe8(dp), "8|P1|1.000|2.000|GIA' DESCRITTO|\r\n8|P2|1.000|2.000|MURO|\r\n");
}

TEST(Versione, DalBloccoFissoDelProgramma) {
    QByteArray exe("MZ....");
    exe += QByteArray("\xBD\x04\xEF\xFE\x00\x00\x01\x00", 8);
    exe += QByteArray("\x00\x00\x0A\x00\x0C\x00\x02\x00", 8); // 10.0.2.12
    EXPECT_EQ(VersioneDaDati(exe), "10.0.2.12");
    EXPECT_EQ(VersioneDaDati(exe.left(exe.size() - 1)), "");
    EXPECT_EQ(VersioneDaDati("MZ"), "");
}
