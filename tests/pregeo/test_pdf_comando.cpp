// Pregeo's PDF reopened as its libretto, the command line's words, the answers to a sibling
// tool, and broken input for the tag-block reader (fuzzed in fuzz/bersagli/blocchi_tag.cpp).
#include "pregeo.h"

#include "supporto.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// tests/dati/pregeo/atto.pdf: a small PDF made by hand whose page content carries the blocks
// as comments, uncompressed.
struct ConPdf : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        InstallaPregeo(s);
        radice.Scrivi("C:\\pregeo\\estratti\\g224_0012.emp",
                      "0|15032025|XX0000001/2025|G224|00012|\r\n");
    }
    // The drop of the main form, confirmed.
    void Trascina(const QString& percorsoWindows) {
        p.risposte << Risposta::Si;
        ASSERT_TRUE(TrascinaLibretto(s, PercorsoLocale(percorsoWindows)));
    }
};

} // namespace

TEST_F(ConPdf, IlPdfDiventaIlSuoLibretto) {
    radice.Scrivi("C:\\Atti\\atto.pdf", Dati("pregeo/atto.pdf"));
    Trascina("C:\\Atti\\atto.pdf");
    EXPECT_EQ(p.Domande(), QStringList{"Trascina Libretto: Sostituire il Libretto Esistente?"});
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
    EXPECT_TRUE(s.doc.PercorsoLibretto.endsWith("/ATTI/ATTO.TXT"))
        << s.doc.PercorsoLibretto.toStdString();
    // The extract is the one of that protocol in Pregeo's folder, named as it stands there.
    EXPECT_EQ(s.doc.NomeEstratto, "g224_0012.emp");
    // Block 4000: "9|", bars and backslashes gone.
    EXPECT_EQ(s.doc.TestoPossessori, "ROSSI MARIO\r\nBIANCHI LUCA");
    EXPECT_EQ(s.testata.Protocollo, "000123");
    ScriviLibrettoMisure(s);
    EXPECT_EQ(radice.Leggi("C:\\Atti\\ATTO.TXT"), Dati("pregeo/atto_da_pdf.txt"));

    const AttoDaPdf atto = LeggiBlocchiTag(s, PercorsoLocale("C:\\Atti\\atto.pdf"));
    EXPECT_EQ(atto.TipoAtto, "F");
    EXPECT_EQ(atto.TestataEstratto, "F\r\nX\r\nXX0000001/2025\r\nFOGLIO 12\r\nSCALA\r\n1000");

    // Rewritten by qpdf with its streams compressed: the same libretto.
    const QString qpdf = QStandardPaths::findExecutable("qpdf");
    if (qpdf.isEmpty()) GTEST_SKIP() << "qpdf non installato: prova del PDF compresso saltata";
    const int esito = QProcess::execute(qpdf, {"--object-streams=generate", "--compress-streams=y",
                                               PercorsoLocale("C:\\Atti\\atto.pdf"),
                                               PercorsoLocale("C:\\Atti") + "/compresso.pdf"});
    ASSERT_TRUE(esito == 0 || esito == 3) << esito;
    ASSERT_FALSE(radice.Leggi("C:\\Atti\\compresso.pdf").contains("[TAG")) << "testo in chiaro";
    Trascina("C:\\Atti\\compresso.pdf");
    ScriviLibrettoMisure(s);
    EXPECT_EQ(radice.Leggi("C:\\Atti\\COMPRESSO.TXT"), Dati("pregeo/atto_da_pdf.txt"));
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
}

TEST_F(ConPdf, AutoallestitoEPdfSenzaBlocchi) {
    QByteArray pdf = Dati("pregeo/atto.pdf");
    pdf.replace("XX0000001/2025", "autoallestito");
    radice.Scrivi("C:\\Atti\\C.PDF", pdf);
    Trascina("C:\\Atti\\C.PDF");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
    EXPECT_EQ(s.doc.NomeEstratto, "autoallestito");

    // A PDF without blocks has no row to give: the rows stay as they were.
    const QString prima = s.doc.TestoLibretto;
    radice.Scrivi("C:\\Atti\\VUOTO.PDF", "%PDF-1.4\nniente\n%%EOF\n");
    Trascina("C:\\Atti\\VUOTO.PDF");
    EXPECT_EQ(s.doc.TestoLibretto, prima);
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi().last().endsWith("Nessun dato trovato in memoria!"))
        << p.Messaggi().last().toStdString();
    // Refused on the question: nothing changes.
    p.risposte << Risposta::No;
    s.doc.PercorsoLibretto = "X";
    EXPECT_FALSE(TrascinaLibretto(s, PercorsoLocale("C:\\Atti\\C.PDF")));
    EXPECT_EQ(s.doc.PercorsoLibretto, "X");
}

TEST_F(ConPregeo, RigaDiComandoConParola) {
    QStringList parole;
    s.EseguiComando = [&](Stato&, const QString& parola, const QString& parametro) {
        parole << parola + "=" + parametro;
    };
    radice.Scrivi("C:\\Libretti\\L.DAT", "0|01012024|77|G224|0001|1|A B|G|PADOVA|\r\n9|1|\r\n");
    // An empty first field opens Nuovo.DAT; the bars appended give an empty parameter.
    EXPECT_FALSE(AvvioProgramma(s, "|da_pregeo"));
    EXPECT_EQ(s.doc.PercorsoLibretto, s.amb.CartellaLavoro + "\\Nuovo.DAT");
    EXPECT_EQ(s.UltimoRisultato, "DA_PREGEO");
    EXPECT_TRUE(ComandoTag(s, "\"C:\\Libretti\\l.dat\"|Misurate_Da1_PF|pf01/0010/g224"));
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\LIBRETTI\\L.DAT");
    EXPECT_EQ(parole, (QStringList{"DA_PREGEO=", "MISURATE_DA1_PF=PF01/0010/G224"}));
    // A lower-case ".zip" is an extract to copy, since the text is upper-cased first.
    QStringList estratti;
    s.DrageDrop = [&](Stato&, const QString& percorso) { estratti << percorso; };
    EXPECT_FALSE(ComandoTag(s, "c:\\download\\foglio.zip"));
    EXPECT_EQ(estratti, QStringList{"C:\\DOWNLOAD\\FOGLIO.ZIP"});
    EXPECT_EQ(parole.size(), 2);
    EXPECT_NE(TrovaParola("info_misurate"), nullptr);
    EXPECT_EQ(TrovaParola("Unarvo2"), nullptr);
    EXPECT_EQ(TrovaParola("IMPORT-INST_TAF-MISURATE"), nullptr);
}

TEST_F(ConPregeo, RispostaAlProgrammaChiamanteNelFileTag) {
    CreaAlberoCartelle(s);
    RispondiTag(s, "G224");
    EXPECT_EQ(p.appunti, "G224");
    EXPECT_EQ(s.UltimoRisultato, "G224");
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\temp\\TagUno.tag"), Dati("pregeo/TagUno.tag"));
    ScriviTag(s, "ALTRO");
    EXPECT_EQ(p.appunti, "G224");
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\temp\\TagUno.tag"), "ALTRO\r\n");
}

// The cut block, the absurd number and the large PDF are the reader's own tests; here a block
// that opens inside another, a stream that does not inflate and one that would grow to a
// gigabyte.
TEST(BlocchiTag, IngressiRotti) {
    const BlocchiTag b = LeggiBlocchiTagDaDati("[TAG1000]|1|A|[TAG2000]|2|B|[/TAG]");
    ASSERT_EQ(b.blocchi.size(), 1);
    EXPECT_EQ(b.Testo(2000), "2|B|");
    EXPECT_TRUE(LeggiBlocchiTagDaDati("1 0 obj<</Filter/FlateDecode>>stream\nx\x9cGARBAGE\n"
                                      "endstream")
                    .Vuoto());
    // A "stream" not followed by its line end is a word of the text, not a stream.
    const QByteArray flusso = qCompress(QByteArray("[TAG2000]|2|B|[/TAG]")).mid(4);
    EXPECT_EQ(LeggiBlocchiTagDaDati("streamline\nstream\n" + flusso + "\nendstream\n").Testo(2000),
              "2|B|");
    const QByteArray bomba = "stream\n" + qCompress(QByteArray(1 << 20, '\0'), 9).mid(4);
    EXPECT_TRUE(LeggiBlocchiTagDaDati((bomba + "\nendstream\n").repeated(4)).Vuoto());
}
