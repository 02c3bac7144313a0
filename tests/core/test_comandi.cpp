#include "libretto.h"
#include "piattaforma_finta.h"
#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kTesta =
    "0|01012024|7|G224|0001|5|ROSSI MARIO|GEOMETRA|PADOVA|\r\n9|1|10|20|5|v|18|X|\r\n";

struct Comandi : ConPregeo {
    void Documento(const QString& corpo) {
        s.doc.TestoLibretto = kTesta + corpo;
        CaricaLibrettoInList1(s);
    }
    QStringList Righe() const { return s.doc.RigheLibretto.Righe(); }
};

// Rows 3 and 4 are plain; rows 5 (index 4) and 7 are GPS rows with seven fields.
const QString kGps = "6|appunto|\r\n1|100|1.5|\r\n1|G1|0.1,0.2,0.3|a|b|c|BASE [VRS]|\r\n2|P|x|\r\n"
                     "1|G2|0.4,0.5,0.6|a|b|c|ALTRA|\r\n";

} // namespace

TEST_F(Comandi, VrsMenoTogliendoIlMarchio) {
    Documento("1|1|\r\n2|2|\r\n");
    VrsMeno(s);
    EXPECT_EQ(p.Messaggi(), QStringList{"[VRS]: Il libretto contiene meno di 5 righe"});
    Documento("1|1|\r\n2|2|\r\n2|3|\r\n");
    VrsMeno(s);
    EXPECT_EQ(p.Messaggi().last(), "[VRS]: 2|3|\r\nNon è una riga GPS");
    Documento(kGps);
    VrsMeno(s);
    EXPECT_EQ(Righe()[4], "1|G1|0.1,0.2,0.3|a|b|c|BASE|");
    EXPECT_TRUE(s.doc.TestoLibretto.contains("1|G1|0.1,0.2,0.3|a|b|c|BASE|\r\n"));
    // A GPS row too short for field 6 is reported, never a crash.
    Documento("6|a|\r\n6|b|\r\n1|G1|0.1,0.2|\r\n");
    VrsMeno(s);
    EXPECT_TRUE(
        p.Messaggi().last().startsWith("Rilevato errore: Si è verificato questo errore : 9"));
}

TEST_F(Comandi, VrsPiuScambiaSoloDietroLaQuinta) {
    Documento(kGps);
    s.doc.RigheLibretto.Seleziona(3, true);
    s.doc.RigheLibretto.Seleziona(6, true);
    VrsPiu(s);
    EXPECT_EQ(p.Messaggi().last(), "[VRS]: Selezionare una riga solamente!");

    // The seventh row takes the fifth place with the mark; the old fifth goes without it (the
    // mark is taken out of the whole row, so the blank before it stays in field 6).
    s.doc.RigheLibretto.DeselezionaTutte();
    s.doc.RigheLibretto.Seleziona(6, true);
    VrsPiu(s);
    EXPECT_EQ(Righe()[4], "1|G2|0.4,0.5,0.6|a|b|c|ALTRA [VRS]|");
    EXPECT_EQ(Righe()[6], "1|G1|0.1,0.2,0.3|a|b|c|BASE |");

    // A selected row before the fifth swaps nothing; the fifth gets the mark anyway.
    Documento("1|G0|1,2|a|b|c|PRIMA|\r\n6|x|\r\n1|G1|0.1,0.2,0.3|a|b|c|BASE|\r\n");
    s.doc.RigheLibretto.Seleziona(2, true);
    VrsPiu(s);
    EXPECT_EQ(Righe()[2], "1|G0|1,2|a|b|c|PRIMA|");
    EXPECT_EQ(Righe()[4], "1|G1|0.1,0.2,0.3|a|b|c|BASE [VRS]|");

    // A selected row without a comma is refused with its text.
    s.doc.RigheLibretto.DeselezionaTutte();
    s.doc.RigheLibretto.Seleziona(3, true);
    VrsPiu(s);
    EXPECT_EQ(p.Messaggi().last(), "[VRS]: 6|x|\r\nNon è una riga GPS");
}

TEST_F(Comandi, EliminaMaiLePrimeDueRighe) {
    Documento("1|1|\r\n2|2|\r\n2|3|\r\n");
    for (int i = 0; i < 5; ++i) s.doc.RigheLibretto.Seleziona(i, i != 3);
    p.risposte << Risposta::No;
    EXPECT_FALSE(EliminaRigheSelezionate(s));
    EXPECT_EQ(Righe().size(), 5);
    EXPECT_FALSE(EliminaRigheSelezionate(s)); // no scripted answer: default is no
    EXPECT_EQ(Righe().size(), 5);
    p.risposte << Risposta::Si;
    EXPECT_TRUE(EliminaRigheSelezionate(s));
    EXPECT_EQ(Righe(), (QStringList{Righe()[0], Righe()[1], "2|2|"}));
    EXPECT_EQ(s.doc.TestoLibretto, kTesta + "2|2|\r\n");
    EXPECT_EQ(p.Domande().first(), "Elimina righe dal Libretto: Eliminare le Righe selezionate?");
}

TEST_F(Comandi, SelezioniDiStazioniPfTipi) {
    Documento("1|100|\r\n11|x|\r\n2|pf01/0001/G224|\r\n8|PF02/0001/"
              "G224|1|2|\r\n4|1|0.00|\r\n5|2|1|\r\n7|2|1|2|RC|\r\n");
    auto scelte = [&] { return s.doc.RigheLibretto.Selezionate(); };
    SelezionaStazioni(s);
    EXPECT_EQ(scelte(), QList<int>{2}); // "11|" does not begin "1|"
    SelezionaPF(s);
    EXPECT_EQ(scelte(), (QList<int>{4, 5}));
    InvertiSelezione(s);
    EXPECT_EQ(scelte(), (QList<int>{0, 1, 2, 3, 6, 7, 8}));
    SelezionaTipi(s, {4, 5});
    EXPECT_EQ(scelte(), (QList<int>{6, 7}));
    SelezionaTipi(s, {7});
    EXPECT_EQ(scelte(), QList<int>{8});
    CopiaLibretto(s);
    EXPECT_TRUE(p.appunti.startsWith(kTesta + "1|100|\r\n11|x|\r\n"));
    EXPECT_TRUE(p.appunti.endsWith("7|2|1|2|RC|\r\n"));
    EXPECT_EQ(p.Messaggi(), QStringList{"Copia Libretto: Il Libretto è stato copiato!"});
}

TEST_F(Comandi, IncollaDaExcelConESenzaACapoFinale) {
    // Without a last line end the last row is lost, as in any paste.
    const std::tuple<const char*, DaExcel, QStringList> casi[] = {
        {"10\t100,5\t200,25\r\n11\t101\t201\r\n12\t102\t202\r\n",
         DaExcel::Righe8PNE,
         {"2|10|100.5|200.25|", "2|11|101|201|", "2|12|102|202|"}},
        {"10\t100\t200\r\n11\t101\t201\r\n12\t102\t202",
         DaExcel::Righe8PNE,
         {"2|10|100|200|", "2|11|101|201|"}},
        {"100\t200\r\n101\t201\r\n", DaExcel::Righe8NomeAuto, {"2|1|100|200|", "2|2|101|201|"}},
        {"8\t\t5\t\t\t6\r\n7\t2\r\n", DaExcel::RigheComplete, {"8|5|6|", "7|2|"}}};
    for (const auto& [appunti, modo, attese] : casi) {
        Documento("1|1|\r\n");
        p.appunti = appunti;
        IncollaDaExcel(s, modo);
        EXPECT_EQ(Righe().mid(3), attese) << appunti;
    }
    // A text that lost its last line end does not glue the pasted row to its last row.
    s.doc.TestoLibretto = kTesta + "1|1|";
    p.appunti = "3\t4\r\n";
    IncollaDaExcel(s, DaExcel::Righe8PNE);
    EXPECT_EQ(Righe().mid(2), (QStringList{"1|1|", "2|3|4|"}));
}

TEST_F(Comandi, LibrettoPerCoordinateDaElaborazione) {
    Documento("1|1|\r\n");
    p.appunti = "  Punti elaborati\r\n"
                "  101     -1234.567  +/-   0.012     5678.901  +/-   0.010\r\n"
                "PF01/0001/G224   -100.000 +/- 0.001 200.000 +/- 0.002\r\n"
                "102 1.0 +/- 2.0\r\n"
                "103   -1.5   +/-  0.1   2.5  +/-  0.1\r\n";
    LibrettoPerCoordinate(s);
    EXPECT_EQ(s.doc.TestoLibretto, "8|101|-1234.567|0.012|\r\n8|PF01/0001/G224|-100.000|0.001|\r\n"
                                   "8|103|-1.5|0.1|\r\n");
    // Rows 0 and 9 come back in front.
    EXPECT_EQ(Righe().size(), 5);
    EXPECT_EQ(TipoRiga(Righe()[0]), 0);
    EXPECT_EQ(TipoRiga(Righe()[1]), 9);
}

TEST_F(Comandi, PropostaEStralcio) {
    Documento("1|1|\r\n6|ESTRATTO DI MAPPA|\r\n7|3|1|2|3|RC|\r\n8|1|5|6|\r\n6|<fine>|\r\n");
    CatturaPropostaInLibretto(s);
    EXPECT_EQ(s.doc.TestoProposta, "6|ESTRATTO DI MAPPA|\r\n7|3|1|2|3|RC|\r\n8|1|5|6|\r\n");

    s.doc.NomeEstratto = "G224_0001.EMP";
    radice.Scrivi("C:\\pregeo\\estratti\\G224_0001.EMP",
                  test::Righe({"0|G224|0001|1|2|x|", "8|10|1|2|", "8|PF01/0001/G224|1|2|",
                               "8|5%|3|4|", "7|3|10|11|12|RC|", "7|3|1%|2%|3%|RC|", "6|PFCART|1|",
                               "6|DITTA|ROSSI|", "6|ALTRO|", "6|PARTICELLA|5|"}));
    const QString testo = GeneraLibrettoConStralcio(s, "7|2|A|B|RC|\r\n6|nota|\r\n8|9|9|9|\r\n");
    EXPECT_EQ(testo,
              "6|ESTRATTO DI MAPPA|\r\n7|2|A|B|RC|\r\n8|10|1|2|\r\n6|nota|\r\n7|3|10|11|12|RC|\r\n"
              "6|PFCART|1|\r\n6|DITTA|ROSSI|\r\n6|PARTICELLA|5|\r\n");
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

TEST_F(Comandi, ProgrammiCollegamentiOpzioni) {
    AvviaProgrammaSarvento(s, kSarquad);
    EXPECT_EQ(p.eventi.last().tipo, "avvia");
    EXPECT_EQ(p.eventi.last().titolo, "C:\\Program Files (x86)\\Sarvento\\Sarquad.exe");

    CreaCollegamentiPregeo(s);
    QStringList collegamenti;
    for (const Evento& e : p.eventi)
        if (e.tipo == "collegamento") collegamenti << e.titolo + " -> " + e.testo;
    EXPECT_EQ(collegamenti,
              (QStringList{"Desktop|PREGEO 10.00-G APAG 2.12 -> C:\\PREGEO\\EXE\\PREGEO.EXE",
                           "Programmi|PREGEO 10.00-G APAG 2.12 -> C:\\PREGEO\\EXE\\PREGEO.EXE",
                           "Desktop|PREGEO -> C:\\PREGEO"}));

    QList<bool> stati;
    PulisciOpzioni(stati);
    EXPECT_EQ(stati, QList<bool>(11, false));
    SelezionaEMemorizzaOpzioni(s, stati);
    EXPECT_EQ(stati, QList<bool>(11, true));
    EXPECT_EQ(p.Impostazione("LIBRETTO_AUTOMATICO", "Mantiene solo il 1^ Mappale in riga 0"),
              "True");
    EXPECT_EQ(p.impostazioni.size(), 11);

    p.caratteri << Carattere{"Courier New", 12, true, true};
    CreaCartella(s.amb.CartellaLavoro);
    EXPECT_TRUE(SelezionaCarattere(s, Carattere{}).has_value());
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\CONFIGURACARATTERE.INI"),
              "12,\"Courier New\",True,True\r\n");
    EXPECT_EQ(LeggiConfiguraCarattere(s), (Carattere{"Courier New", 12, true, true}));
    EXPECT_FALSE(SelezionaCarattere(s, Carattere{}).has_value()); // cancelled: file kept
    EXPECT_EQ(LeggiConfiguraCarattere(s), (Carattere{"Courier New", 12, true, true}));

    EXPECT_TRUE(TestoConfigurazione(s).contains(
        "Elenco Cartelle utilizzate da Tavolet\r\nC:\\FIDUCIAL  ->  " + radice.Percorso() +
        "/drive_c/FIDUCIAL"));
}

TEST_F(Comandi, AzioniDelDoppioClicEModiDellEditor) {
    EXPECT_EQ(AzioneDoppioClic("0|x|"), AzioneRiga::Configurazione);
    EXPECT_EQ(AzioneDoppioClic("9|x|"), AzioneRiga::Configurazione);
    EXPECT_EQ(AzioneDoppioClic("8|PF01/0001/G224|1|2|"), AzioneRiga::DistanzePF);
    EXPECT_EQ(AzioneDoppioClic("8|1|PF|"), AzioneRiga::Editor);
    EXPECT_EQ(AzioneDoppioClic("6|DettaglioTipoAgg=1|"), AzioneRiga::Configurazione);
    EXPECT_EQ(AzioneInvio("6|DettaglioTipoAgg=1|"), AzioneRiga::Editor);
    EXPECT_EQ(AzioneInvio("ABC"), AzioneRiga::Configurazione); // a letter row is of kind 0

    Documento("1|1|\r\n");
    CreaCartella(s.amb.CartellaLavoro);
    ScriviTesto(s.amb.CartellaLavoro + "\\libretto.lib", "vecchio");
    EXPECT_EQ(ApriEditor(s, kEditorLibretto), s.doc.TestoLibretto);
    EXPECT_FALSE(EsisteFile(s.amb.CartellaLavoro + "\\libretto.lib"));
    EXPECT_EQ(TitoloEditor(s, kEditorLibretto), "Edit Libretto Misure : [247]");
    MemorizzaEditor(s, kEditorLibretto, kTesta + "  1|2|  \r\n\r\n   \r\n2|3|");
    EXPECT_EQ(Righe(), (QStringList{Righe()[0], Righe()[1], "1|2|", "2|3|"}));
    EXPECT_EQ(s.doc.TestoLibretto, kTesta + "  1|2|  \r\n\r\n   \r\n2|3|");

    // The other modes go through the handlers their owners install.
    EXPECT_EQ(TitoloEditor(s, kEditorCensuario), "Edit Modello Censuario");
    EXPECT_EQ(DomandaUscitaEditor(kEditorStampe), "Salvare Stampa modificata?");
    EXPECT_EQ(ApriEditor(s, kEditorCensuario), "");
    QString memorizzato;
    s.GestoriEditor[kEditorCensuario] = {[](Stato&) { return QString("6|O|"); },
                                         [&](Stato&, const QString& t) { memorizzato = t; }};
    EXPECT_EQ(ApriEditor(s, kEditorCensuario), "6|O|");
    MemorizzaEditor(s, kEditorCensuario, "6|S|");
    EXPECT_EQ(memorizzato, "6|S|");
}
