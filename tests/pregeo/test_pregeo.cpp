// The archive's backups, the helper's contract through a scripted double, the import of an
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
        Mappa(PercorsoDati("pregeo/ponticello_finto.sh"));
        p.esegui = AvviaProcessoHost;
        CreaAlberoCartelle(s);
    }
    void Mappa(const QString& script) {
        for (const QString nome : {"PONTICELLO.EXE", "PONTICELLO.EXE2", "PONTICELLO2.EXE"})
            p.impostazioni.insert(
                kSezioneProgrammi + u'/' + nome,
                QStringLiteral("/bin/sh \"%1\" \"%2\" \"%3\" %4")
                    .arg(script, documenti, PercorsoDati("pregeo/ponticello"), nome));
    }
    QStringList Chiamate() const {
        QFile f(documenti + "/ponticello.log");
        if (!f.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(f.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }
};

} // namespace

TEST_F(ConPregeo, BackupDiArch2ConLaDataDiSistemaEUsaLibrettoSingolo) {
    radice.Scrivi("C:\\pregeo\\arch\\arch2.db", "VECCHIO");
    CreaCartella("C:\\pregeo\\arch\\BackupDB");
    p.adesso = QDateTime(QDate(2026, 3, 7), QTime(9, 5, 2));
    // Year, then day and month as the characters of "07/03/2026" give them.
    EXPECT_EQ(NomeBackupArch2(s), "_2026-07-03_09-05-02.db");
    s.doc.PercorsoLibretto = "C:\\Libretti\\PROVA.1.DAT";
    EXPECT_EQ(NomeBackupArch2(s), "PROVA_2026-07-03_09-05-02.db");
    SalvaArch2Db(s);
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\arch\\BackupDB\\PROVA_2026-07-03_09-05-02.db"), "VECCHIO");
    // A second backup in the same second overwrites the first.
    radice.Scrivi("C:\\pregeo\\arch\\arch2.db", "SECONDO");
    SalvaArch2Db(s);
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\arch\\BackupDB\\PROVA_2026-07-03_09-05-02.db"), "SECONDO");

    EXPECT_FALSE(UsaLibrettoSingolo(s));
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_EQ(p.Messaggi()[0], "Usa Libretto Singolo: Il File " + s.amb.CartellaProgramma +
                                   "\\arch2.db\r\nNon è stato trovato!\r\nComando NON eseguito!");
    radice.Scrivi(s.amb.CartellaProgramma + "\\arch2.db", "VUOTO");
    p.adesso = p.adesso.addSecs(1);
    EXPECT_TRUE(UsaLibrettoSingolo(s));
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\arch\\arch2.db"), "VUOTO");
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\arch\\BackupDB\\PROVA_2026-07-03_09-05-03.db"), "SECONDO");
    // Without the backups' folder the copy is reported under the routine's tag.
    QDir(PercorsoLocale("C:\\pregeo\\arch\\BackupDB")).removeRecursively();
    SalvaArch2Db(s);
    EXPECT_TRUE(p.Messaggi().last().endsWith("Nella Routine salvarch2.db"));
}

TEST_F(ConPregeo, TecnicoScrittoInPregeoIni) {
    s.doc.TestoLibretto = "0|15032025|123|G224|0012|45|VERDI ANNA|GEOMETRA|PADOVA|\r\n9|1|\r\n";
    CaricaLibrettoInList1(s);
    s.testata.Nome.clear();
    s.doc.NumeroIscrizioneAlbo = "4321";
    ASSERT_TRUE(AggiornaPregeoIni(s));
    const QString ini = DaWindows1252(radice.Leggi("C:\\windows\\PREGEO.INI"));
    EXPECT_TRUE(ini.startsWith("[Pregeo]\r\nDskAPPLexe=C:\r\nDskAPPLada=C:\r\n"))
        << ini.toStdString();
    EXPECT_TRUE(ini.contains("NumeroIscrizione=4321\r\n")) << ini.toStdString();
    EXPECT_TRUE(ini.contains("SiglaProvinciaAlbo=PD")) << ini.toStdString();
}

TEST_F(ConPonticello, ElencoDegliAttiPrimaComeMessaggioPoiNellaGriglia) {
    DaPregeo dp;
    CaricaPregeo800(s, dp);
    // The contract: Ponticello2 with nothing behind it, then the list with the digit after
    // the extension; the result lies under the documents folder.
    EXPECT_EQ(Chiamate(), (QStringList{"PONTICELLO2.EXE ", "PONTICELLO.EXE2 ELENCO_LIBRETTI"}));
    const QStringList avviati = [&] {
        QStringList a;
        for (const Evento& e : p.eventi)
            if (e.tipo == "avvia") a << e.titolo;
        return a;
    }();
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].startsWith("Elaborazione Pregeo: 1|2025|000123|ELABORATO|"));
    ASSERT_EQ(dp.Atti.size(), 3);
    EXPECT_EQ(dp.Atti[0], (QStringList{"1", "2025", "000123", "ROSSI MARIO", "G224", "0012",
                                       "ELABORATO", " ", "25000123"}));
    // A line of two fields still gives a row, with empty cells.
    EXPECT_EQ(dp.Atti[2], (QStringList{"3", "2024", "77", "", "", "", "", " ", "2477"}));
}

TEST_F(ConPonticello, PuntiElaboratiConLeDescrizioniEIlLibrettoPerCoordinate) {
    DaPregeo dp;
    CaricaPregeo800(s, dp);
    const QString elab = MostraListaPregeo(s, dp, 0);
    EXPECT_EQ(Chiamate().last(), "PONTICELLO.EXE ESPORTA_TUTTO 25000123");
    EXPECT_EQ(s.doc.NomeEstratto, "G224_0012.EMP");
    EXPECT_EQ(dp.RigheProposta.size(), 2);
    ASSERT_EQ(dp.Punti.size(), 5);
    // The first description found holds; a planimetric row 2 is marked; a number is a note.
    EXPECT_EQ(dp.Punti[0], (QStringList{"101", "5012.345", "1520.5", "10.2", "<P!>CONFINE NORD"}));
    EXPECT_EQ(dp.Punti[1][kDescrizione], "Note:");
    EXPECT_EQ(dp.Punti[2][kDescrizione], "SPIGOLO FABBRICATO");
    EXPECT_EQ(dp.Punti[3][kDescrizione], "STAZIONE UNO");
    EXPECT_EQ(dp.Punti[4][kDescrizione], "");
    EXPECT_EQ(elab, s.amb.CartellaLavoro + "\\temp\\elab.sur");
    EXPECT_EQ(radice.Leggi(elab),
              Righe({"8|101|5012.345|1520.5|", "8|102|5020.1|1530.25|", "8|103|5030|1540.125|",
                     "8|S1|5000|1500|", "8|999|5100.5|1600.75|", "7|101|102|103|101|"}));

    // A point with no row in the libretto keeps an empty description: its row 8 ends "||".
    EXPECT_TRUE(TestoRighe8(dp).contains("\r\n8|999|5100.500|1600.750||\r\n"));
    CreaCartella("C:\\Libretti");
    s.doc.PercorsoLibretto = "C:\\Libretti\\COORDINATE.DAT";
    ImportaRighe8InLibretto(s, dp);
    EXPECT_EQ(s.TagRoutine, "Decozero_129 ");
    AggiornaLibrettoMisure(s);
    ScriviLibrettoMisure(s);
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\COORDINATE.DAT"), Dati("pregeo/coordinate.dat"));
    EXPECT_TRUE(p.Messaggi().size() == 1) << p.Messaggi().join("\n").toStdString();
}

TEST_F(ConPonticello, AttoSenzaPuntiFileVecchiEHelperCheNonRisponde) {
    DaPregeo dp;
    CaricaPregeo800(s, dp);
    MostraListaPregeo(s, dp, 0);
    EliminaFile(s.amb.CartellaLavoro + "\\temp\\elab.sur");
    // The second act writes no extract's name and no points: the files of the first act are
    // read as new, as the helper leaves them.
    s.doc.NomeEstratto.clear();
    MostraListaPregeo(s, dp, 1);
    EXPECT_EQ(s.doc.NomeEstratto, "G224_0012.EMP");
    EXPECT_EQ(dp.RigheLibretto.size(), 2);
    EXPECT_EQ(dp.Punti.size(), 5);
    // No row chosen: both lists empty, the helper not called.
    const int chiamate = int(Chiamate().size());
    EXPECT_TRUE(MostraListaPregeo(s, dp, -1).isEmpty());
    EXPECT_TRUE(dp.Punti.isEmpty());
    EXPECT_EQ(Chiamate().size(), chiamate);

    // A helper that crashes before writing: no error report, the stale or missing files.
    QDir(documenti + "/Tavolet/TEMP").removeRecursively();
    QDir(documenti + "/TEMP").removeRecursively();
    Mappa(PercorsoDati("pregeo/ponticello_rotto.sh"));
    p.eventi.clear();
    CaricaPregeo800(s, dp);
    EXPECT_TRUE(dp.Atti.isEmpty());
    EXPECT_EQ(p.Messaggi(), QStringList{"Elaborazione Pregeo: "});
    dp.Atti = {RigaAtto("1|2025|000123")};
    EXPECT_TRUE(MostraListaPregeo(s, dp, 0).isEmpty());
    EXPECT_TRUE(dp.Punti.isEmpty());
    EXPECT_FALSE(EsisteFile(s.amb.CartellaLavoro + "\\temp\\elab.sur"));

    // A helper that is not there gives the error report, not a hang.
    for (const QString nome : {"PONTICELLO.EXE", "PONTICELLO.EXE2", "PONTICELLO2.EXE"})
        p.impostazioni.insert(kSezioneProgrammi + u'/' + nome, "/non/esiste/ponticello");
    p.eventi.clear();
    MostraListaPregeo(s, dp, 0);
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].contains("Programma non trovato: /non/esiste/ponticello"));
    EXPECT_TRUE(p.Messaggi()[0].endsWith("Nella Routine 3105"));
}

TEST(DaPregeo, TestoBreveNonSiDisegnaEDescrizioni) {
    DaPregeo dp;
    dp.Punti = {RigaPunto("1,2,3,4")};
    // "8|1|2|3|" and its line end: 10 characters, nothing to draw.
    EXPECT_EQ(TestoGrafica(dp).size(), 10);
    dp.Punti = {RigaPunto("P1,1,2,3,GIA' DESCRITTO,ALTRO"), RigaPunto("P2,1,2")};
    EXPECT_EQ(dp.Punti[0], (QStringList{"P1", "1", "2", "3", "GIA' DESCRITTO"}));
    EXPECT_EQ(dp.Punti[1], (QStringList{"P2", "1", "2", "", ""}));
    AssegnaDescrizione(dp, " P1 ", "NUOVA");
    AssegnaDescrizione(dp, "P2", "   ");
    EXPECT_EQ(dp.Punti[0][kDescrizione], "GIA' DESCRITTO");
    EXPECT_EQ(dp.Punti[1][kDescrizione], "");
    dp.RigheLibretto = {"0|x|", "4|P2|1|2|MURO|", "5|P1|1|2|3|"};
    CaricaDescrizione(dp);
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
