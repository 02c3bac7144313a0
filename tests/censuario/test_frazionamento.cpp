// The Proposta's areas (EsplodiAreeProposta and its exchange files); frazionamento and
// stralcio: apportioning, rounding, letters, memo.
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

TEST(Proposta, SenzaRigaAggiornataFileVuoti) {
    const QString testo = "6|ESTRATTO DI MAPPA|\r\n7|5|1%|2%|3%|4%|1%|NC|35|35|100|\r\n";
    const AreeProposta a = AreeDaProposta(testo);
    EXPECT_TRUE(a.aree.isEmpty());
    EXPECT_TRUE(a.modello.isEmpty());
    EXPECT_TRUE(AreeDaProposta(QString()).aree.isEmpty());
}

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
    // The areas and the model as Pregeo wants them (also through the command line): BBB's
    // parent 99 has no area and takes the one of the row before; the parts with "+" never
    // reach the files; an outline of area 0 is passed over.
    EXPECT_EQ(s.ErroriMostrati, 0);
    ASSERT_FALSE(p.eventi.isEmpty());
    EXPECT_EQ(p.eventi.first().tipo, "avvia");
    EXPECT_TRUE(p.eventi.first().testo.contains(" ESPORTA_TUTTO 26123"));
    const QByteArray aree = radice.Leggi(PercorsoCensuario(s, kFileAree));
    EXPECT_EQ(aree, Dati("censuario/aree_attese.txt"));
    EXPECT_EQ(radice.Leggi(PercorsoCensuario(s, kFileModello)),
              Dati("censuario/modello_atteso.txt"));
    // TempProposta: the text as read plus one further line end.
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\TEMP\\TempProposta"),
              Dati("censuario/proposta.txt") + "\r\n");
}

TEST_F(ConCensuario, SenzaPonticelloIFileEsistonoVuoti) {
    EsplodiAreeProposta(s);
    QStringList aree = {"x"};
    EXPECT_TRUE(LeggiAreeCensuario(s, aree));
    EXPECT_TRUE(aree.isEmpty());
    EXPECT_TRUE(LeggiModelloCensuario(s).isEmpty());
}

TEST_F(ConCensuario, FrazionamentoAutomaticoDallaProposta) {
    PropostaPronta();
    Libretto();
    Frazionamento f = Fraziona("29380");
    EXPECT_EQ(f.Titolo, "Fraziona Particella 35");
    EXPECT_FALSE(f.MantieniNumero);
    ASSERT_EQ(f.SchemaProposta.size(), 2);
    EXPECT_EQ(f.NumeroCostituite, "2");
    EXPECT_EQ(f.AreeInProposta.size(), 5);
    PropostaAutomatica(s, f);
    EXPECT_EQ(f.AnteprimaModello, Attese("frazionamento_341.txt"));
    EXPECT_TRUE(TutteCensuarie(f.AnteprimaModello));
    EXPECT_EQ(SommaColonna(f, 2), 29380);
    // The proposal's areas sum in row 1; the incomes are shared to the cent.
    EXPECT_EQ(f.SchemaModello[1][5], "29390");
    EXPECT_EQ(f.SchemaModello[3][3], "61.50");
    EXPECT_EQ(f.SchemaModello[4][3], "59.00");
    EXPECT_EQ(f.SchemaModello[4][4], "39.29");
    EXPECT_EQ(f.Colore(1, 2), kBianco);
    EXPECT_EQ(f.Colore(1, 3), kBianco);
    EXPECT_EQ(f.RigaCorrente, 3);
    EXPECT_EQ(f.EtichettaArea, "Area Propoprzionale Particella 35 - a");

    AggiungiAMemo(s, f);
    EXPECT_EQ(p.Domande().value(0), "Frazionamento: Frazionare un nuovo Mappale ?");
    EXPECT_TRUE(f.Chiudi);
    QStringList memo = Attese("frazionamento_341.txt");
    EXPECT_EQ(f.Memo, memo);
    EXPECT_EQ(radice.Leggi(PercorsoCensuario(s, "51FTP.CEN")),
              Dati("censuario/frazionamento_341.txt"));
}

TEST_F(ConCensuario, TreParticelleSommanoAllaMadreDiUnSoloMetro) {
    Frazionamento f = Fraziona("1000", "3");
    ASSERT_EQ(f.SchemaModello.size(), 6);
    EXPECT_EQ(f.SchemaModello[5][1], "c");
    for (const char* area : {"333.4", "333.4", "333.2"}) {
        CambiaAreaProporzionale(s, f, area);
        RigaSuccessiva(s, f);
    }
    // Back at row 3 after the last row; the grid carries the corrected square metre, the
    // rows composed before the correction keep 333 each.
    EXPECT_EQ(f.RigaCorrente, 3);
    EXPECT_EQ(f.SchemaModello[3][2], "334");
    EXPECT_EQ(SommaColonna(f, 2), 1000);
    EXPECT_EQ(f.Colore(1, 2), kGiallo);
    EXPECT_EQ(f.AnteprimaModello, Attese("frazionamento_tre.txt"));
    // A registered area that the rounding misses by more moves only one square metre:
    // four parcels of 250.5 each round to 251.
    f.SchemaModello[1][2] = "1002";
    CambiaNumeroCostituite(s, f, "4");
    for (int i = 0; i < 4; ++i) {
        CambiaAreaProporzionale(s, f, "1");
        RigaSuccessiva(s, f);
    }
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
    EXPECT_EQ(f.SchemaModello[4][1], "a");
    CambiaAreaProporzionale(s, f, "600");
    RigaSuccessiva(s, f);
    CambiaAreaProporzionale(s, f, "400");
    // "SR" on a row "C" fixes it as well.
    DoppioClicSchema(s, f, 4, 6);
    EXPECT_EQ(f.SchemaModello[4][7], "FISSA");
    EXPECT_EQ(f.Colore(4, 6), kRossoChiaro);
    // An "SR" row stays fixed on a double click of column 7.
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
    EXPECT_EQ(g.Memo.size(), 6);
    CambiaNumeroCostituite(s, g, "2");
    CambiaAreaProporzionale(s, g, "100");
    EXPECT_EQ(Mid(g.AnteprimaModello[4], 18, 5), "AAC  ");
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

TEST_F(ConCensuario, DivisionePerZeroVaAlRapportoEAnteprimaResta) {
    Frazionamento f = Fraziona("0", "2");
    const QStringList prima = f.AnteprimaModello;
    CambiaAreaProporzionale(s, f, "500");
    EXPECT_EQ(f.AnteprimaModello, prima);
    ASSERT_GE(s.ErroriMostrati, 1);
    bool trovato = false;
    for (const Evento& e : p.eventi)
        if (e.testo.contains("Fraziona Particella 35ComponiFrazionamento")) trovato = true;
    EXPECT_TRUE(trovato);
}

TEST_F(ConCensuario, SommaZeroNumeriAssurdiEValoriConVirgola) {
    Frazionamento f = Fraziona("1000", "2");
    CambiaAreaProporzionale(s, f, "0");
    EXPECT_EQ(f.AnteprimaModello[4].mid(23, 9), "000000000");
    EXPECT_EQ(f.AnteprimaModello[5].mid(23, 9), "000000000");
    // The grid then takes the one square metre on its first derived row.
    EXPECT_EQ(f.SchemaModello[3][2], "1");
    EXPECT_EQ(f.SchemaModello[4][2], "0");
    // The comma stops the number: "400,7" counts 400.
    CambiaAreaProporzionale(s, f, "400,7");
    EXPECT_EQ(f.SchemaModello[1][5], "400");
    // Absurd, negative or text areas: the error report or a result, never a crash, and the
    // preview rows keep their length.
    for (const char* a : {"1e12", "-500", "abc"}) {
        CambiaAreaProporzionale(s, f, a);
        EXPECT_TRUE(TutteCensuarie(f.AnteprimaModello.mid(2))) << a;
    }
    f.SchemaModello[1][2] = "1e12";
    CambiaAreaProporzionale(s, f, "5");
    EXPECT_EQ(f.AnteprimaModello[2].size(), 70);
    // Not above 0: the message when the field is left.
    CambiaNumeroCostituite(s, f, "0");
    EXPECT_FALSE(VerificaNumeroCostituite(s, f));
    EXPECT_EQ(p.Messaggi().last(), "Impossibile continuare: Inserire un valore > 0");
}

TEST_F(ConCensuario, MilleParticelleDerivateDannoIlRapportoNonUnCrash) {
    Frazionamento f = Fraziona("1000", "150");
    ASSERT_EQ(f.SchemaModello.size(), 153);
    CambiaAreaProporzionale(s, f, "10");
    // Over 26 the letters run past "z" and nothing stops them.
    EXPECT_EQ(f.AnteprimaModello.size(), 2 + 152);
    EXPECT_EQ(f.SchemaModello[29][1], "{");
    const int errori = s.ErroriMostrati;
    CambiaNumeroCostituite(s, f, "1000");
    EXPECT_GT(s.ErroriMostrati, errori);
    EXPECT_LE(f.SchemaModello.size(), 1003);
}

TEST_F(ConCensuario, StralcioEreditaQualitaEUrbano) {
    PropostaPronta();
    Libretto();
    Frazionamento f;
    f.tipo = TipoSchema::Stralcio;
    f.particella = Particella("35", "29380");
    ApriFrazionamento(s, f);
    EXPECT_EQ(f.Titolo, "Stralcio Particella 35");
    ASSERT_EQ(f.DerivateUrbano.size(), 2);
    // AAB stands in the Proposta as "AAB+": it is chosen for the urban at opening.
    EXPECT_EQ(f.UrbanoScelte, (QList<bool>{false, true}));
    PropostaAutomatica(s, f);
    EXPECT_EQ(f.AnteprimaModello, Attese("stralcio.txt"));
    EXPECT_TRUE(f.SchemaModello[3][8].isEmpty());
    ScegliDerivataUrbano(s, f, 1, false);
    EXPECT_EQ(Mid(f.AnteprimaModello[5], 46, 6), "001|2 ");
    // Only "Azzera Memo" writes the head "3SPC "; the reload puts "51FTP".
    AzzeraMemo(s, f);
    EXPECT_EQ(f.Memo[1], RigaTesta(kModelloStralcio, "000"));
    EliminaFile(PercorsoCensuario(s, "3SPC.CEN"));
    Carica51FTPCen(s, f);
    EXPECT_EQ(f.Memo[1], RigaTesta(kModelloFrazionamento, "000"));
    p.risposte << Risposta::No;
    AggiungiAMemo(s, f);
    EXPECT_EQ(p.Domande().last(), "Stralcio: Stralciare un nuovo Mappale ?");
    EXPECT_FALSE(f.Chiudi);
    EXPECT_TRUE(EsisteFile(PercorsoCensuario(s, "3SPC.CEN")));
}

TEST_F(ConCensuario, PropostaAssenteQuandoIlFileNonSiPuoScrivere) {
    QDir().mkpath(PercorsoLocale(PercorsoCensuario(s, kFileAree)));
    Frazionamento f = Fraziona("1000");
    EXPECT_TRUE(p.Messaggi().contains("Impossibile continuare: Proposta Assente!"));
    EXPECT_TRUE(f.AreeInProposta.isEmpty());
    EXPECT_EQ(f.SchemaModello.size(), 3);
}

TEST_F(ConCensuario, ModificaDirettaPassaPerIlFileDelMemo) {
    Frazionamento f = Fraziona("1000", "1");
    CambiaAreaProporzionale(s, f, "1000");
    f.Memo = f.AnteprimaModello;
    PreparaModificaDiretta(s, f, true);
    EXPECT_EQ(f.TipoOperazione, kModificaDiretta);
    ASSERT_TRUE(s.GestoriEditor.contains(383));
    const QString testo = s.GestoriEditor[383].leggi(s);
    EXPECT_EQ(RigheDiTesto(testo), f.Memo);
    // The editor gives "\n"; the file keeps CR LF, and a row cut by hand is not read back.
    QStringList modificate = f.Memo;
    modificate[3] = modificate[3].left(60);
    s.GestoriEditor[383].memorizza(s, modificate.join(u'\n'));
    DopoModificaDiretta(s, f);
    EXPECT_EQ(f.Memo.size(), 4);
    EXPECT_EQ(Mid(f.Memo[1], 9, 3), "002");
    EXPECT_EQ(f.TipoOperazione, kFrazionamento);
}

TEST_F(ConCensuario, AggiungiESostituisciNelLibretto) {
    Libretto();
    Frazionamento f = Fraziona("1000", "1");
    CambiaAreaProporzionale(s, f, "1000");
    f.Memo = f.AnteprimaModello;
    const QString prima = s.doc.TestoLibretto;
    SalvaPropostaFile(s, f);
    EXPECT_TRUE(f.Chiudi);
    EXPECT_EQ(s.doc.TestoLibretto, prima + CRLF + TestoRighe(f.Memo));
    // Replacing: the model stands once, behind the rest.
    SalvaPropostaFile1(s, f);
    EXPECT_EQ(RigheCensuarieDi(s.doc.TestoLibretto), f.Memo);
    // A memo of title and head alone replaces nothing.
    const QString dopo = s.doc.TestoLibretto;
    f.Memo = f.Memo.mid(0, 2);
    SalvaPropostaFile1(s, f);
    EXPECT_EQ(s.doc.TestoLibretto, dopo);
}
