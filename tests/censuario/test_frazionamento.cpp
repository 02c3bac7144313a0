// The Proposta's areas (EsplodiAreeProposta and its exchange files); frazionamento and
// stralcio: apportioning, rounding, letters, memo. The flows of the screens are theirs to check.
#include "supporto_censuario.h"

using namespace tavolet;
using namespace tavolet::test;

namespace {

int SommaColonna(const Frazionamento& f, int colonna) {
    int somma = 0;
    for (int i = 3; i < f.SchemaModello.size(); ++i) somma += int(Val(f.SchemaModello[i][colonna]));
    return somma;
}

} // namespace

TEST_F(ConCensuario, IlDoppioDiPonticelloLasciaLaPropostaEIFileSiScrivono) {
    // A scripted double of the helper, mapped as the settings map the real one.
    const QString destinazione =
        PercorsoLocale(s.amb.CartellaLavoro + "\\TEMP\\ESPORTA_PROPOSTA.txt");
    CreaCartella(s.amb.CartellaLavoro + "\\TEMP");
    const QString script = radice.Percorso() + "/ponticello.sh";
    radice.Scrivi(script, QString("#!/bin/sh\n[ \"$1\" = ESPORTA_TUTTO ] || exit 3\ncp '%1' '%2'\n")
                              .arg(PercorsoDati("censuario/proposta.txt"), destinazione)
                              .toUtf8());
    p.impostazioni[kSezioneProgrammi + "/PONTICELLO.EXE"] = "/bin/sh " + script;
    p.esegui = AvviaProcessoHost;
    Libretto();
    EsplodiAreeProposta(s);
    EXPECT_EQ(s.ErroriMostrati, 0);
    ASSERT_FALSE(p.eventi.isEmpty());
    EXPECT_TRUE(p.eventi.first().testo.contains(" ESPORTA_TUTTO 26123"));
    EXPECT_EQ(radice.Leggi(PercorsoCensuario(s, kFileAree)), Dati("censuario/aree_attese.txt"));
    EXPECT_EQ(radice.Leggi(PercorsoCensuario(s, kFileModello)),
              Dati("censuario/modello_atteso.txt"));
    // TempProposta: the text as read plus one further line end.
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\TEMP\\TempProposta"),
              Dati("censuario/proposta.txt") + "\r\n");

    // Without the helper the files exist, empty.
    EliminaFile(destinazione);
    p.impostazioni.remove(kSezioneProgrammi + "/PONTICELLO.EXE");
    p.esegui = nullptr;
    EsplodiAreeProposta(s);
    QStringList aree = {"x"};
    EXPECT_TRUE(LeggiAreeCensuario(s, aree));
    EXPECT_TRUE(aree.isEmpty());
    EXPECT_TRUE(LeggiModelloCensuario(s).isEmpty());
}

TEST_F(ConCensuario, RedditiRipartitiAlCentesimoEStralcio) {
    PropostaPronta();
    Libretto();
    Frazionamento f = Fraziona("29380");
    PropostaAutomatica(s, f);
    EXPECT_EQ(SommaColonna(f, 2), 29380);
    // The proposal's areas sum in row 1; the incomes are shared to the cent.
    EXPECT_EQ(f.SchemaModello[1][5], "29390");
    EXPECT_EQ(std::tuple(f.SchemaModello[3][3], f.SchemaModello[4][3], f.SchemaModello[4][4]),
              std::tuple("61.50", "59.00", "39.29"));
    EXPECT_EQ(f.EtichettaArea, "Area Propoprzionale Particella 35 - a");
    p.risposte << Risposta::Si;
    AggiungiAMemo(s, f);
    EXPECT_EQ(radice.Leggi(PercorsoCensuario(s, "51FTP.CEN")),
              Dati("censuario/frazionamento_341.txt"));

    // The stralcio: only "Azzera Memo" writes the head "3SPC "; the reload puts "51FTP".
    Frazionamento g;
    g.tipo = TipoSchema::Stralcio;
    g.particella = Particella("35", "29380");
    ApriFrazionamento(s, g);
    PropostaAutomatica(s, g);
    ScegliDerivataUrbano(s, g, 1, false);
    EXPECT_EQ(Mid(g.AnteprimaModello[5], 46, 6), "001|2 ");
    AzzeraMemo(s, g);
    EXPECT_EQ(g.Memo[1], RigaTesta(kModelloStralcio, "000"));
    EliminaFile(PercorsoCensuario(s, "3SPC.CEN"));
    Carica51FTPCen(s, g);
    EXPECT_EQ(g.Memo[1], RigaTesta(kModelloFrazionamento, "000"));
    p.risposte << Risposta::No;
    AggiungiAMemo(s, g);
    EXPECT_EQ(p.Domande().last(), "Stralcio: Stralciare un nuovo Mappale ?");
    EXPECT_FALSE(g.Chiudi);
    EXPECT_TRUE(EsisteFile(PercorsoCensuario(s, "3SPC.CEN")));
}

TEST_F(ConCensuario, UnArrotondamentoLontanoSpostaUnSoloMetro) {
    // A registered area that the rounding misses by more moves only one square metre: four
    // parcels of 250.5 each round to 251.
    Frazionamento f = Fraziona("1002", "4");
    for (int i = 0; i < 4; ++i) {
        CambiaAreaProporzionale(s, f, "1");
        RigaSuccessiva(s, f);
    }
    EXPECT_EQ(f.RigaCorrente, 3);
    EXPECT_EQ(f.SchemaModello[3][2], "250");
    EXPECT_EQ(SommaColonna(f, 2), 1003);
}

TEST_F(ConCensuario, Frazionamento282MantieneIlNumero) {
    Frazionamento f;
    f.TipoOperazione = kFrazionamento282;
    f.particella = Particella("35", "1000");
    ApriFrazionamento(s, f);
    EXPECT_TRUE(f.MantieniNumero);
    CambiaNumeroCostituite(s, f, "2");
    ASSERT_EQ(f.SchemaModello.size(), 5);
    EXPECT_EQ(f.SchemaModello[3][0], "V");
    CambiaAreaProporzionale(s, f, "600");
    RigaSuccessiva(s, f);
    CambiaAreaProporzionale(s, f, "400");
    // "SR" on a row "C" fixes it as well; a second double click leaves it fixed.
    DoppioClicSchema(s, f, 4, 6);
    EXPECT_EQ(f.Colore(4, 6), kRossoChiaro);
    DoppioClicSchema(s, f, 4, 7);
    EXPECT_EQ(f.SchemaModello[4][7], "FISSA");
    EXPECT_EQ(f.AnteprimaModello, Attese("frazionamento_342.txt"));
    // The head counts the row "S" that writes nothing; the memo counts its rows.
    AggiungiAMemo(s, f);
    ASSERT_EQ(f.Memo.size(), 5);
    EXPECT_EQ(Mid(f.Memo[1], 9, 3), "003");
}

TEST_F(ConCensuario, LeLettereProseguonoNelMemo) {
    Frazionamento f = Fraziona("1000", "2");
    CambiaAreaProporzionale(s, f, "500");
    p.risposte << Risposta::Si;
    AggiungiAMemo(s, f);
    Frazionamento g;
    g.particella = Particella("40", "300");
    ApriFrazionamento(s, g);
    EXPECT_EQ(g.UltimaLettera, 2);
    CambiaNumeroCostituite(s, g, "2");
    CambiaAreaProporzionale(s, g, "100");
    EXPECT_EQ(Mid(g.AnteprimaModello[5], 18, 5), "AAD  ");
    AggiungiAMemo(s, g);
    EXPECT_EQ(Mid(g.Memo[1], 9, 3), "008");
    EXPECT_TRUE(TutteCensuarie(g.Memo));
    // Deleting rows leaves the count as it was; "Azzera Memo" starts again.
    EliminaSelezioneMemo(s, g, {7, 6});
    EXPECT_EQ(g.Memo.size(), 8);
    EXPECT_EQ(Mid(g.Memo[1], 9, 3), "008");
    AzzeraMemo(s, g);
    EXPECT_EQ(g.Memo, (QStringList{kTitoloCensuario, RigaTesta(kModelloFrazionamento, "000")}));
    EXPECT_EQ(g.UltimaLettera, 0);
}

// Zero, commas, absurd areas and counts: the error report or a result, never a crash, and the
// preview rows keep their length.
TEST_F(ConCensuario, AreeECostituiteAssurde) {
    Frazionamento zero = Fraziona("0", "2");
    const QStringList prima = zero.AnteprimaModello;
    CambiaAreaProporzionale(s, zero, "500");
    EXPECT_EQ(zero.AnteprimaModello, prima);
    EXPECT_GE(s.ErroriMostrati, 1);
    EXPECT_TRUE(p.Messaggi().join("").contains("Fraziona Particella 35ComponiFrazionamento"));

    Frazionamento f = Fraziona("1000", "2");
    CambiaAreaProporzionale(s, f, "0");
    EXPECT_EQ(f.AnteprimaModello[4].mid(23, 9), "000000000");
    // The grid then takes the one square metre on its first derived row.
    EXPECT_EQ(f.SchemaModello[3][2], "1");
    // The comma stops the number: "400,7" counts 400.
    CambiaAreaProporzionale(s, f, "400,7");
    EXPECT_EQ(f.SchemaModello[1][5], "400");
    for (const char* a : {"1e12", "-500", "abc"}) {
        CambiaAreaProporzionale(s, f, a);
        EXPECT_TRUE(TutteCensuarie(f.AnteprimaModello.mid(2))) << a;
    }
    f.SchemaModello[1][2] = "1e12";
    CambiaAreaProporzionale(s, f, "5");
    EXPECT_EQ(f.AnteprimaModello[2].size(), 70);
    CambiaNumeroCostituite(s, f, "0");
    EXPECT_FALSE(VerificaNumeroCostituite(s, f));
    EXPECT_EQ(p.Messaggi().last(), "Impossibile continuare: Inserire un valore > 0");

    // Over 26 the letters run past "z" and nothing stops them; a thousand is the report.
    f = Fraziona("1000", "150");
    CambiaAreaProporzionale(s, f, "10");
    EXPECT_EQ(f.AnteprimaModello.size(), 2 + 152);
    EXPECT_EQ(f.SchemaModello[29][1], "{");
    const int errori = s.ErroriMostrati;
    CambiaNumeroCostituite(s, f, "1000");
    EXPECT_GT(s.ErroriMostrati, errori);
    EXPECT_LE(f.SchemaModello.size(), 1003);
}

TEST_F(ConCensuario, PropostaAssenteQuandoIlFileNonSiPuoScrivere) {
    QDir().mkpath(PercorsoLocale(PercorsoCensuario(s, kFileAree)));
    Frazionamento f = Fraziona("1000");
    EXPECT_TRUE(p.Messaggi().contains("Impossibile continuare: Proposta Assente!"));
    EXPECT_TRUE(f.AreeInProposta.isEmpty());
    EXPECT_EQ(f.SchemaModello.size(), 3);
}

TEST_F(ConCensuario, ModificaDirettaEMemoSoloDiTesta) {
    Libretto();
    Frazionamento f = Fraziona("1000", "1");
    CambiaAreaProporzionale(s, f, "1000");
    f.Memo = f.AnteprimaModello;
    PreparaModificaDiretta(s, f, true);
    EXPECT_EQ(f.TipoOperazione, kModificaDiretta);
    ASSERT_TRUE(s.GestoriEditor.contains(383));
    EXPECT_EQ(RigheDiTesto(s.GestoriEditor[383].leggi(s)), f.Memo);
    // The editor gives "\n"; the file keeps CR LF, and a row cut by hand is not read back.
    QStringList modificate = f.Memo;
    modificate[3] = modificate[3].left(60);
    s.GestoriEditor[383].memorizza(s, modificate.join(u'\n'));
    DopoModificaDiretta(s, f);
    EXPECT_EQ(f.Memo.size(), 4);
    EXPECT_EQ(Mid(f.Memo[1], 9, 3), "002");
    EXPECT_EQ(f.TipoOperazione, kFrazionamento);
    // A memo of title and head alone replaces nothing in the libretto.
    const QString prima = s.doc.TestoLibretto;
    f.Memo = f.Memo.mid(0, 2);
    SalvaPropostaFile1(s, f);
    EXPECT_EQ(s.doc.TestoLibretto, prima);
}
