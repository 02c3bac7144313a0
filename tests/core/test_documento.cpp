// The document: load, save, paste, drop, export, and the head decoded from rows 0 and 9.
#include "libretto.h"
#include "piattaforma_finta.h"
#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct DocumentoProva : ConPregeo {
    void Carica(const QString& percorso) {
        s.doc.PercorsoLibretto = percorso;
        CaricaLibrettoMisure(s);
        CaricaLibrettoInList1(s);
    }
    void Decodifica(const QString& testo) {
        s.doc.TestoLibretto = testo;
        DecoZeroNove(s);
    }
};

using Testa = DocumentoProva;

} // namespace

TEST_F(DocumentoProva, CaricaESalvaConITagInFondo) {
    radice.Scrivi("C:\\Libretti\\PROVA.DAT", Dati("libretto/ingresso.dat"));
    Carica("C:\\LIBRETTI\\prova.dat");
    EXPECT_EQ(s.doc.NomeEstratto, "G693_0012.EMP");
    EXPECT_EQ(s.doc.CodiceFiscaleTecnico, "BNCLCU70A01G224X");
    EXPECT_EQ(s.doc.NumeroIscrizioneAlbo, "1234");
    EXPECT_EQ(s.doc.TestoPossessori, "ROSSI MARIO\r\nverdi anna\r\n");
    const QStringList prima = s.doc.RigheLibretto.Righe();
    // No tag row and no blank row reaches the list; the last line without line end is kept
    // because the file is read line by line.
    for (const QString& r : prima) {
        EXPECT_FALSE(r.contains("<EST>") || r.contains("<DIT>") || r.contains("<COD>"))
            << r.toStdString();
        EXPECT_GT(r.size(), 2);
    }
    EXPECT_EQ(prima.last(), "8|2|-12.5|33.25|");

    AggiornaLibrettoMisure(s);
    s.doc.PercorsoLibretto = "C:\\Libretti\\USCITA.DAT";
    ScriviLibrettoMisure(s);
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\USCITA.DAT"), Dati("libretto/salvato.dat"));
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();

    // Loading the saved file again shows the same rows.
    const QStringList salvate = s.doc.RigheLibretto.Righe();
    Carica("C:\\Libretti\\USCITA.DAT");
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), salvate);
    EXPECT_EQ(s.doc.TestoPossessori, "ROSSI MARIO\r\nverdi anna\r\n");
}

TEST_F(DocumentoProva, TagVuotiScrittiComunqueEDitteSoloPerRigheVere) {
    s.doc.TestoLibretto =
        "0|15032024|245|G693|0012|145|BIANCHI LUCA|GEOMETRA|PADOVA|\r\n"
        "9|8|10|20|1540|10.00-G,STDA 2.08|18|STAZIONE TOTALE|\r\n1|100|1.550|\r\n";
    s.doc.TestoPossessori = "  \r\n\r\n";
    s.doc.PercorsoLibretto = "C:\\Libretti\\VUOTE.DAT";
    CreaCartella("C:\\Libretti");
    SalvaLibrettoMisure(s);
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\VUOTE.DAT"), Dati("libretto/senza_ditte.dat"));
}

TEST_F(DocumentoProva, DoppiAdiacentiENoteAlSalvataggio) {
    s.doc.TestoLibretto = "0|01012024|1|G224|0001|1|A B|GEOMETRA|PADOVA|\r\n9|1|10|20|1|v|18|x|\r\n"
                          "6|A|\r\n6|a|\r\n6|B|\r\n6|A|\r\n8|1|||\r\n0|x||y|\r\n";
    CaricaLibrettoInList1(s);
    AggiornaLibrettoMisure(s);
    // Only neighbours are doubles; rows 0 keep their empty fields.
    EXPECT_EQ(s.doc.TestoLibretto,
              "0|01012024|1|G224|0001|1|A B|GEOMETRA|PADOVA|\r\n9|1|10|20|1|v|18|x|\r\n"
              "6|A|\r\n6|B|\r\n6|A|\r\n8|1|NOTE:||\r\n0|x||y|\r\n");
}

TEST_F(DocumentoProva, RighePiccoleERighe0e9Mancanti) {
    // An empty document shows rows 0 and 9.
    s.doc.TestoLibretto.clear();
    s.doc.Riga0.clear();
    s.doc.Riga9.clear();
    CaricaLibrettoInList1(s);
    ASSERT_EQ(s.doc.RigheLibretto.Conta(), 2);
    EXPECT_EQ(s.doc.RigheLibretto.Riga(0),
              "0|15012026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|");
    EXPECT_EQ(s.doc.RigheLibretto.Riga(1), kRiga9Predefinita);

    // A document without its head gets rows 0 and 9 in front; short rows are dropped.
    const QString riga0 = s.doc.Riga0, riga9 = s.doc.Riga9;
    s.doc.TestoLibretto = "1|100|1.5|\r\nab\r\n2|1|3.2|\r\n";
    CaricaLibrettoInList1(s);
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), (QStringList{riga0, riga9, "1|100|1.5|", "2|1|3.2|"}));
    // The head is decoded from the first two rows of the text, whatever their kind.
    EXPECT_EQ(s.doc.Riga0, "1|100|1.5|");
    EXPECT_EQ(ContatoreRighe(s), "0 / 4");
}

TEST_F(DocumentoProva, IncollaSenzaACapoFinalePerdeLUltimaRiga) {
    p.appunti =
        "0|01012024|1|G224|0001|1|A B|GEOMETRA|PADOVA|\r\n9|1|10|20|1|v|18|x|\r\n1|1|\r\n2|5|";
    IncollaDaAppunti(s);
    EXPECT_EQ(s.doc.RigheLibretto.Righe().last(), "1|1|");
    p.appunti += "\r\n";
    IncollaDaAppunti(s);
    EXPECT_EQ(s.doc.RigheLibretto.Righe().last(), "2|5|");
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "G224");
    EXPECT_EQ(s.testata.NomeComuneLibretto, "PADOVA");
}

TEST_F(DocumentoProva, LxbSenzaFileVieneAppertoComeDat) {
    radice.Scrivi("C:\\Libretti\\X.DAT",
                  "0|01012024|7|G224|0001|1|A B|G|PADOVA|\r\n9|1|\r\n1|1|\r\n");
    s.doc.PercorsoLibretto = "C:\\Libretti\\x.lxb";
    CaricaLibrettoMisure(s);
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\LIBRETTI\\X.DAT");
    EXPECT_TRUE(s.doc.TestoLibretto.startsWith("0|01012024|7|"));

    // A path that does not exist leaves the document as it was.
    s.doc.PercorsoLibretto = "C:\\Libretti\\NESSUNO.DAT";
    CaricaLibrettoMisure(s);
    EXPECT_TRUE(s.doc.TestoLibretto.startsWith("0|01012024|7|"));
}

TEST_F(DocumentoProva, EsportaSenzaTagESenzaToccareIlPercorso) {
    s.doc.TestoLibretto = "1|A<P!>|\r\n\r\n\r\n2|B|\r\n";
    s.doc.NomeEstratto = "X.EMP";
    s.doc.PercorsoLibretto = "C:\\orig.dat";
    EsportaLibrettoInFile(s); // cancelled: nothing written
    p.fileDaSalvare << radice.Percorso() + "/esportato.dat";
    EsportaLibrettoInFile(s);
    EXPECT_EQ(radice.Leggi(radice.Percorso() + "/esportato.dat"), "1|A<P!>|\r\n2|B|\r\n");
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\orig.dat");
    ASSERT_EQ(p.eventi.size(), 2);
    EXPECT_EQ(p.eventi[0].testo, "c:\\|zzz.dat");

    // With no file open, saving is exporting.
    s.doc.PercorsoLibretto.clear();
    SalvaLibrettoMisure(s);
    EXPECT_EQ(p.eventi.last().tipo, "salva");
}

TEST_F(DocumentoProva, TrascinamentoSecondoLEstensione) {
    radice.Scrivi("C:\\Libretti\\A.TXT", "0|01012024|9|G224|0001|1|A B|G|PADOVA|\r\n9|1|\r\n");
    p.risposte << Risposta::No;
    EXPECT_FALSE(TrascinaLibretto(s, PercorsoLocale("C:\\Libretti\\A.TXT")));
    EXPECT_TRUE(TrascinaLibretto(s, PercorsoLocale("C:\\Libretti\\A.TXT")));
    EXPECT_EQ(s.testata.Protocollo, "9");
    EXPECT_FALSE(TrascinaLibretto(s, "/tmp/x.dxf"));
    EXPECT_FALSE(TrascinaLibretto(s, "/tmp/x.doc"));
    EXPECT_EQ(p.Domande(), (QStringList{"Trascina Libretto: Sostituire il Libretto Esistente?",
                                        "Trascina Libretto: Sostituire il Libretto Esistente?"}));
    EXPECT_EQ(p.Messaggi(),
              (QStringList{"Trascina Libretto: Processo non attivo!",
                           "Trascina Libretto: Ammessi file di Testo: .TXT, .DAT, .LXB, .PDF"}));
}

// Every field of the head of the demo's libretto is in the command line's golden file.
TEST_F(Testa, TitoloEArchivioDalleRighe0e9) {
    s.testata.Cognome = "BIANCHI";
    s.testata.Nome = "LUCA";
    Decodifica("0|15032024|245|G224|0012|1,2,3|BIANCHI LUCA|GEOMETRA|PADOVA|\r\n"
               "9|8|10|20|1540|10.00-G,STDA 2.08|09|STAZIONE TOTALE|\r\n1|1|\r\n");
    EXPECT_EQ(s.testata.NomeArchivio, "2024_BIANCHI LUCA_M_09_245_G224_0012_1_2_3");
    EXPECT_EQ(TitoloLibretto(s), "Tavolet V 5.00 - L'Evoluzione - Libretto Misure : [245 15032024] "
                                 "[CF Comune : G224 - PADOVA] [Provincia : PADOVA]");
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

TEST_F(Testa, DateASeiCifreETipoAtto) {
    // Six digits: 20xx below the threshold, 19xx from it on.
    Decodifica("0|010279|1|G224|\r\n9|1|\r\n");
    EXPECT_EQ(s.testata.DataLibretto, "01022079");
    EXPECT_EQ(s.testata.AnnoLibretto, "2079");
    Decodifica("0|010280|1|G224|\r\n9|1|\r\n");
    EXPECT_EQ(s.testata.DataLibretto, "01021980");
    EXPECT_EQ(EspandiAnno("010288", 88), "01021988");
    EXPECT_EQ(EspandiAnno("010287", 88), "01022087");
    // The kind of act from the last two characters; one character is compared as it stands.
    const std::pair<const char*, const char*> tipi[] = {{"09", "M"},  {"18", "S"}, {"TM", "M"},
                                                        {"XTM", "M"}, {"9", "S"},  {"", "S"}};
    for (const auto& [tipologia, atto] : tipi) EXPECT_EQ(CalcolaTipoAtto(tipologia), atto);
}

TEST_F(Testa, ComuneSconosciutoLasciaLUltimoTrovato) {
    Decodifica("0|01012024|1|L736|\r\n9|1|\r\n");
    EXPECT_EQ(s.testata.NomeComuneLibretto, "VENEZIA");
    Decodifica("0|01012024|1|Z999|\r\n9|1|\r\n");
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "Z999");
    EXPECT_EQ(s.testata.NomeComuneLibretto, "VENEZIA");
    EXPECT_EQ(s.testata.NomeProvinciaLibretto, "VENEZIA");
}

TEST_F(Testa, DocumentoDiUnaRigaTieneLaRiga9Precedente) {
    Decodifica("0|01012024|1|G224|\r\n9|33|10|20|999|v|TM|X|\r\n");
    EXPECT_EQ(s.testata.QuotaMedia, "33");
    // One CRLF: the first row becomes row 0, row 9 is decoded from the one kept before.
    Decodifica("0|01012025|2|G224|\r\n");
    EXPECT_EQ(s.testata.Protocollo, "2");
    EXPECT_EQ(s.testata.QuotaMedia, "33");
    EXPECT_EQ(s.testata.TipoAtto, "M");
    // No CRLF at all (and at least 10 characters): nothing of the text is taken.
    Decodifica("0|01012026|3|G224|");
    EXPECT_EQ(s.testata.Protocollo, "2");
}

TEST_F(Testa, TestoCortoPrendeLeRigheDiDefault) {
    s.doc.Riga0.clear();
    s.doc.Riga9.clear();
    Decodifica("x");
    EXPECT_EQ(s.doc.TestoLibretto, "0|15012026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|\r\n" +
                                       kRiga9Predefinita + "\r\n");
    EXPECT_EQ(s.testata.Tecnico, "COGNOME NOME");
    EXPECT_EQ(s.testata.TipologiaRilievo, "18");
    EXPECT_EQ(s.testata.TipoAtto, "S");
    EXPECT_EQ(s.doc.RigheLibretto.Conta(), 2);
    // Missing fields read as empty.
    Decodifica("0|01012024|\r\n9|\r\n1|1|\r\n");
    EXPECT_EQ(s.testata.FoglioLibretto, "");
    EXPECT_EQ(s.testata.Strumentazione, "");
}

TEST_F(Testa, AggiornaConfigurazioneDivideIlTecnico) {
    s.testata.Nome.clear();
    s.testata.Cognome.clear();
    s.doc.TestoLibretto =
        "0|01012024|1|L736|0001|5|VERDI ANNA MARIA|GEOMETRA|PADOVA|\r\n9|1|10|20|5|v|18|X|\r\n";
    const SigleConfigurazione sigle = AggiornaConfigurazionePregeo(s);
    EXPECT_EQ(s.testata.Cognome, "VERDI");
    EXPECT_EQ(s.testata.Nome, "ANNA");
    EXPECT_EQ(sigle.SiglaComune, "VE");
    EXPECT_EQ(sigle.SiglaProvinciaAlbo, "PD");
    EXPECT_EQ(s.testata.NomeArchivio, "2024_VERDI ANNA_S_18_1_L736_0001_5");
}
