// Templates, sending to a spreadsheet, the print as PDF, and the stampa commands of
// tavolet-cli.
#include "stampa.h"
#include "supporto.h"

#include <QStandardPaths>
#include <QTemporaryDir>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Stampa : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        CreaAlberoCartelle(s);
    }
};

} // namespace

TEST_F(Stampa, SenzaLibrettoNelLavoro) {
    radice.Scrivi(CartellaModelli(s) + "\\Vuoto.txt", "_data_libretto_");
    const QString scritto = CompilaModello(s, "Vuoto.txt", {});
    EXPECT_EQ(scritto, s.amb.CartellaLavoro + "\\_Vuoto.txt");
    EXPECT_FALSE(radice.Leggi(scritto).contains("_data_libretto_"));
}

TEST_F(Stampa, VisualizzatoreEInvia) {
    p.fileDaAprire << "C:\\Programmi\\Foglio\\calc.exe";
    EXPECT_TRUE(SelezionaVisualizzatore(s));
    EXPECT_EQ(EtichettaVisualizzatore(s), "CALC.EXE");
    // "Come CSV" with a viewer: the viewer runs on the file.
    p.eventi.clear();
    Invia(s, "C:\\lavoro\\STAMPE", false);
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_EQ(p.eventi[0].tipo, "avvia");
    EXPECT_TRUE(p.eventi[0].testo.contains("C:\\lavoro\\STAMPE.CSV"))
        << p.eventi[0].testo.toStdString();
    // "Come XLS": Tabulino of the program folder, when it is there.
    p.eventi.clear();
    Invia(s, "C:\\lavoro\\STAMPE", true);
    EXPECT_TRUE(p.eventi.isEmpty());
    radice.Scrivi(s.amb.CartellaProgramma + "\\Tabulino.EXE", "MZ");
    Invia(s, "C:\\lavoro\\STAMPE", true);
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_TRUE(p.eventi[0].titolo.contains("Tabulino.EXE")) << p.eventi[0].titolo.toStdString();
    EXPECT_TRUE(p.eventi[0].testo.contains("C:\\lavoro\\STAMPE.CSV"));
}

TEST_F(Stampa, ModelliDellaCartellaDelProgramma) {
    radice.Scrivi(s.amb.CartellaProgramma + "\\MODELLI_STAMPA\\Relazione.rtf",
                  Dati("stampa/Relazione.rtf"));
    PreparaModelli(s);
    EXPECT_EQ(ElencoModelli(s), QStringList{"Relazione.rtf"});
    // The surveyor's own templates are never overwritten.
    radice.Scrivi(CartellaModelli(s) + "\\Relazione.rtf", "mio");
    PreparaModelli(s);
    EXPECT_EQ(radice.Leggi(CartellaModelli(s) + "\\Relazione.rtf"), "mio");
}

TEST(StampaPdf, PaginePdfLettePdftotext) {
    QStringList righe;
    for (int i = 1; i <= 130; ++i)
        righe << QStringLiteral("8|%1|-5672.583|-3732.674|SF| (perché) \\").arg(i);
    const QByteArray pdf = PdfDaRighe(righe, Carattere{"Courier New", 10, false, false}, false);
    EXPECT_TRUE(pdf.startsWith("%PDF-1.4"));
    EXPECT_EQ(pdf.count("/Type /Page "), 3); // 64 lines a page at 10 points
    const QByteArray orizzontale = PdfDaRighe(righe, Carattere{}, true);
    EXPECT_TRUE(orizzontale.contains("/MediaBox [0 0 841.89 595.28]"));
    EXPECT_EQ(orizzontale.count("/Type /Page "), 4); // 43 lines a page

    if (QStandardPaths::findExecutable("pdftotext").isEmpty())
        GTEST_SKIP() << "pdftotext (poppler-utils) non installato";
    QTemporaryDir dir;
    QFile f(dir.filePath("r.pdf"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(pdf);
    f.close();
    Esito e =
        EseguiProgramma("pdftotext", {"-layout", "-enc", "UTF-8", dir.filePath("r.pdf"), "-"});
    const QStringList lette = e.out.remove('\f').split('\n', Qt::SkipEmptyParts);
    QStringList pulite;
    for (const QString& l : lette) pulite << l.trimmed();
    EXPECT_EQ(pulite, righe);
}

TEST(CliStampa, ModelloEPdf) {
    QTemporaryDir dir;
    RadiceProva radice;
    radice.PregeoMinimo();
    radice.Scrivi(dir.filePath("ROSSI.DAT"),
                  "0|15032024|1234|A001|0120|257,258|ROSSI MARIO|GEOMETRA|PADOVA|\r\n"
                  "9|20|10|20|1070|10.00-G,STDA 2.08|18|TIPO SENZA GEOMETRIA|\r\n"
                  "6|<DIT>ROSSI MARIO|\r\n6|<DIT>BIANCHI ANNA|\r\n");
    radice.Scrivi(dir.filePath("righe.txt"), "8|1|100.000|200.000|   \r\n7|3|1|2|1|RC|\r\n");
    Esito e =
        Esegui(radice.Percorso(),
               {"--si", "stampa", "modello", PercorsoDati("stampa/Relazione.rtf"),
                dir.filePath("ROSSI.DAT"), dir.filePath("righe.txt"), dir.filePath("out.rtf")});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(LeggiFile(dir.filePath("out.rtf")), Dati("stampa/Relazione_compilata_cli.rtf"));

    e = Esegui(radice.Percorso(),
               {"stampa", "pdf", dir.filePath("manca.txt"), dir.filePath("x.pdf")});
    EXPECT_EQ(e.codice, 1);
    e = Esegui(radice.Percorso(), {"stampa", "pdf", dir.filePath("righe.txt"),
                                   dir.filePath("out.pdf"), "--orizzontale"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_TRUE(LeggiFile(dir.filePath("out.pdf")).contains("/MediaBox [0 0 841.89 595.28]"));
    if (QStandardPaths::findExecutable("pdftotext").isEmpty())
        GTEST_SKIP() << "pdftotext (poppler-utils) non installato";
    const Esito testo = EseguiProgramma("pdftotext", {dir.filePath("out.pdf"), "-"}, 20000);
    ASSERT_EQ(testo.codice, 0) << testo.err.toStdString();
    EXPECT_TRUE(testo.out.contains("8|1|100.000|200.000|")) << testo.out.toStdString();
    EXPECT_TRUE(testo.out.contains("7|3|1|2|1|RC|"));
}
