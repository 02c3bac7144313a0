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
};

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
