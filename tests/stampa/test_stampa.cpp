// Templates, the font file, sending to a spreadsheet, the lines of the print screen, and the
// stampa commands of tavolet-cli.
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
    void Libretto() {
        radice.Scrivi("C:\\Libretti\\ROSSI.DAT", "");
        s.doc.PercorsoLibretto = "C:\\Libretti\\ROSSI.DAT";
        s.doc.TestoPossessori = "ROSSI MARIO\r\nBIANCHI ANNA\r\n";
        s.doc.Riga0 = "0|15032024|1234|A001|0120|257,258|ROSSI MARIO|GEOMETRA|PADOVA|";
        s.doc.Riga9 = "9|20|10|20|1070|10.00-G,STDA 2.08|18|TIPO SENZA GEOMETRIA|";
    }
};

} // namespace

TEST_F(Stampa, ModelloCompilatoNellOrdineDeiSegnaposti) {
    Libretto();
    radice.Scrivi(CartellaModelli(s) + "\\Relazione.rtf", Dati("stampa/Relazione.rtf"));
    const QString scritto =
        CompilaModello(s, "Relazione.rtf", {"8|1|100.000|200.000|   ", "7|3|1|2|1|RC|"});
    EXPECT_EQ(scritto, "C:\\Libretti\\ROSSI.DAT_Relazione.rtf");
    EXPECT_EQ(radice.Leggi(scritto), Dati("stampa/Relazione_compilata.rtf"));
    // Opened with the default program.
    ASSERT_FALSE(p.eventi.isEmpty());
    EXPECT_EQ(p.eventi.last().tipo, "apriconprogramma");
}

TEST_F(Stampa, SegnapostiParticolari) {
    Libretto();
    // The name of the municipality always goes out empty; a placeholder not in the table stays;
    // a plain text template takes the rich-text control words as they stand.
    const QByteArray piano = "_nome_comune_rilievo_|_sconosciuto_|_stampa_generale_|"
                             "_elenco_possessori_|_codice_comune_rilievo_";
    DecoZeroNove(s);
    EXPECT_EQ(RiempiModello(s, piano, {"a  ", " b"}),
              "|_sconosciuto_|a\\cf1\\line  b\\cf1\\line |ROSSI MARIO\\cf1\\line BIANCHI "
              "ANNA\\cf1\\line |A001");
    s.doc.TestoPossessori.clear();
    EXPECT_EQ(RiempiModello(s, "[_elenco_possessori_]", {}), "[]");
    // A value that holds a later placeholder is replaced again further on, one that holds an
    // earlier one is not: the order counts.
    s.testata.NomeArchivio = "_codice_comune_rilievo_";
    s.doc.TestoPossessori = "_data_libretto_";
    EXPECT_EQ(RiempiModello(s, "_nome_dos_libretto_ _elenco_possessori_", {}),
              "A001 _data_libretto_");
}

TEST_F(Stampa, SenzaLibrettoENomeDelFile) {
    radice.Scrivi(CartellaModelli(s) + "\\Vuoto.txt", "_data_libretto_");
    const QString scritto = CompilaModello(s, "Vuoto.txt", {});
    EXPECT_EQ(NomeDelFile(scritto), "_Vuoto.txt");
    EXPECT_FALSE(radice.Leggi(scritto).contains("_data_libretto_"));
    // No template selected: nothing happens.
    p.eventi.clear();
    EXPECT_TRUE(CompilaModello(s, "", {}).isEmpty());
    EXPECT_TRUE(p.eventi.isEmpty());
    // A template that is missing: the error report under its caption.
    EXPECT_TRUE(CompilaModello(s, "Manca.rtf", {}).isEmpty());
    EXPECT_TRUE(p.Messaggi().last().contains("Buttonplus1_Click"))
        << p.Messaggi().join("\n").toStdString();
}

TEST_F(Stampa, ModelloDiVentiMegabyte) {
    QByteArray grande;
    grande.reserve(20 * 1024 * 1024);
    while (grande.size() < 20 * 1024 * 1024) grande += "{\\rtf1 testo _stampa_generale_ }\r\n";
    radice.Scrivi(CartellaModelli(s) + "\\Grande.rtf", grande);
    const QString scritto = CompilaModello(s, "Grande.rtf", {"RIGA"});
    ASSERT_FALSE(scritto.isEmpty());
    const QByteArray uscita = radice.Leggi(scritto);
    EXPECT_FALSE(uscita.contains("_stampa_generale_"));
    EXPECT_EQ(uscita.count("RIGA\\cf1\\line "), grande.count("_stampa_generale_"));
}

TEST_F(Stampa, CarattereStampaIni) {
    EXPECT_FALSE(LeggiCarattereStampa(s).has_value()); // no file: the font as designed
    ScriviCarattereStampa(s, {"Lucida Console", 11.5, true, false});
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\CarattereStampa.ini"),
              "11.5,\"Lucida Console\",True,False\r\n");
    const auto c = LeggiCarattereStampa(s);
    ASSERT_TRUE(c.has_value());
    EXPECT_EQ(*c, (Carattere{"Lucida Console", 11.5, true, false}));
    // A file written by hand the old way, and one that says nothing.
    radice.Scrivi(s.amb.CartellaLavoro + "\\CarattereStampa.ini",
                  "9,\"Courier New\",#FALSE#,#TRUE#\r\n");
    EXPECT_EQ(*LeggiCarattereStampa(s), (Carattere{"Courier New", 9, false, true}));
    radice.Scrivi(s.amb.CartellaLavoro + "\\CarattereStampa.ini", "abc\r\n");
    EXPECT_FALSE(LeggiCarattereStampa(s).has_value());
}

TEST_F(Stampa, VisualizzatoreEInvia) {
    EXPECT_EQ(EtichettaVisualizzatore(s), "Default");
    EXPECT_FALSE(SelezionaVisualizzatore(s));
    EXPECT_EQ(p.Messaggi(), QStringList{"Seleziona Editor: Nessuna Editor selezionato!"});
    p.fileDaAprire << "C:\\Programmi\\Foglio\\calc.exe";
    EXPECT_TRUE(SelezionaVisualizzatore(s));
    EXPECT_EQ(p.impostazioni.value("Tabulino/VisualizzatoreXLS/Visualizzatore"),
              "C:\\PROGRAMMI\\FOGLIO\\CALC.EXE");
    EXPECT_EQ(EtichettaVisualizzatore(s), "CALC.EXE");

    // "Come CSV" with a viewer: the viewer runs on the file.
    p.eventi.clear();
    Invia(s, "C:\\lavoro\\STAMPE", false);
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_EQ(p.eventi[0].tipo, "avvia");
    EXPECT_TRUE(p.eventi[0].testo.contains("C:\\lavoro\\STAMPE.CSV"))
        << p.eventi[0].testo.toStdString();

    // "Usa Default" and then "Invia": the default program.
    UsaVisualizzatorePredefinito(s);
    EXPECT_EQ(EtichettaVisualizzatore(s), "Default");
    p.eventi.clear();
    Invia(s, "C:\\lavoro\\STAMPE", false);
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_EQ(p.eventi[0].tipo, "apriconprogramma");
    EXPECT_EQ(p.eventi[0].testo, "C:\\lavoro\\STAMPE.CSV");

    // "Come XLS": Tabulino of the program folder, when it is there.
    p.eventi.clear();
    Invia(s, "C:\\lavoro\\STAMPE", true);
    EXPECT_TRUE(p.eventi.isEmpty());
    radice.Scrivi(s.amb.CartellaProgramma + "\\Tabulino.EXE", "MZ");
    Invia(s, "C:\\lavoro\\STAMPE", true);
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_TRUE(p.eventi[0].titolo.contains("Tabulino.EXE")) << p.eventi[0].titolo.toStdString();
    EXPECT_TRUE(p.eventi[0].testo.contains("C:\\lavoro\\STAMPE.CSV"));
    // Without a stem nothing is sent.
    p.eventi.clear();
    Invia(s, "", true);
    Invia(s, "", false);
    EXPECT_TRUE(p.eventi.isEmpty());
    // "Copia" answers the caller too.
    CopiaRigheStampa(s, {"uno", "due"});
    EXPECT_EQ(p.appunti, "uno\r\ndue");
    EXPECT_EQ(s.UltimoRisultato, "uno\r\ndue");
}

TEST(StampaRighe, ComandiSulleRighe) {
    QStringList r = {"  uno", " due", "tre"};
    SpostaASinistra(r);
    EXPECT_EQ(r, (QStringList{" uno", "due", "re"}));
    SpostaADestra(r);
    EXPECT_EQ(r, (QStringList{"  uno", " due", " re"}));
    EXPECT_FALSE(EliminaRigaStampa(r, 0)); // the first line stays
    EXPECT_FALSE(EliminaRigaStampa(r, -1));
    EXPECT_TRUE(EliminaRigaStampa(r, 2));
    EXPECT_EQ(r.size(), 2);
    AggiungiRigaStampa(r);
    EXPECT_EQ(r, (QStringList{"  uno", " due", " "}));
    QStringList una = {"sola"};
    AggiungiRigaStampa(una);
    EXPECT_EQ(una, (QStringList{"sola", " "}));
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
