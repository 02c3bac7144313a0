#include "prova_configurazione.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

using AperturaProva = ConfigurazioneProva;

TEST_F(AperturaProva, CampiDalleRigheZeroNoveECommento) {
    Libretto({"0|150326|245|G224|0012|145,146|ROSSI MARIO|INGEGNERE|VENEZIA|",
              "9|8|11|22|1540|10.00-G,STDA 2.08|MC|STAZIONE TOTALE|", "6|Frazionamento|",
              "1|100|1.550|", "8|1|100|300|", "8|2|50|100|", "8|3|150|200|"});
    p.eventi.clear();
    const FormConfigurazione f = ApriConfigurazione(s);
    const QStringList attesi =
        QString("150326|245|G224|0012|145,146|ROSSI|INGEGNERE|VENEZIA|8|10|20|1540|%1|MC|"
                "STAZIONE TOTALE|Frazionamento||||MARIO")
            .arg(kVersionePregeo)
            .split(u'|');
    for (int i = 0; i < kCampiConfigurazione; ++i)
        EXPECT_EQ(f.Campi[i], attesi.value(i)) << "campo " << i;
    EXPECT_EQ(f.TestoCombo10, "Frazionamento");
    EXPECT_EQ(f.IndiceCombo2, 1); // "MC - ..."
    EXPECT_TRUE(f.Check1);
    EXPECT_TRUE(f.Check2);
    EXPECT_EQ(f.Strumentazioni, StrumentazioniPredefinite());
    EXPECT_EQ(f.Commenti, CommentiPredefiniti());
    EXPECT_EQ(f.Province, (QStringList{"PADOVA", "VENEZIA"}));
    EXPECT_EQ(s.EsitoDialogo, -1);
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join('\n').toStdString();

    // Blank quota and east: the quota in its picture, the east from the rows 8.
    Libretto({"0|15032026|1|G224|0012|1|ROSSI MARIO|GEOMETRA|PADOVA|", "9|12.6|10|20||V|FR||",
              "8|1|100|300|", "8|2|50|100|", "8|PF01/0010/G224|0|9000|"});
    const FormConfigurazione g = ApriConfigurazione(s);
    EXPECT_EQ(g.Campi[8], "12.6"); // not blank: as the row has it
    EXPECT_EQ(g.Campi[11], "200");
    EXPECT_EQ(s.testata.EstMedio, "200");
}

TEST_F(AperturaProva, TerzaRigaDettaglioERelazioneNonSonoCommenti) {
    const QString zero = "0|15032026|1|G224|0012|1|ROSSI MARIO|GEOMETRA|PADOVA|";
    const auto commento = [&](const QString& tipologia, const QString& terza) {
        Libretto({zero, "9|0|10|20|0||" + tipologia + "|STAZIONE TOTALE|", terza});
        return ApriConfigurazione(s).Campi[15];
    };
    EXPECT_EQ(commento("CM", "6|DettaglioTipoAgg=CONFERMA|"), "DettaglioTipoAgg=CONFERMA");
    EXPECT_EQ(commento("FR", "6|***** Relazione  Tecnica *****|"), "");
    EXPECT_EQ(commento("FR", "6|UNO|DUE|"), ""); // three bars: not a comment
    // A saved default comment stays when the libretto has none; the libretto's rows win over
    // the rest of the default head.
    radice.Scrivi(s.amb.CartellaLavoro + "\\Catasto1.txt",
                  Righe({"0|01012020|7|A001|0001|9|X Y|ARCHITETTO|ROVIGO|",
                         "9|5|1|2|3|4|TM|CORDELLA METRICA|", "6|Salvato|"}));
    EXPECT_EQ(commento("FR", "1|100|1.5|"), "Salvato");
    EXPECT_EQ(ApriConfigurazione(s).Campi[2], "G224");
}

TEST_F(AperturaProva, TecnicoDaPregeoIniEDalSuoFile) {
    // A record whose recapito holds a comma: the values behind it shift, nothing breaks.
    radice.Scrivi(
        PercorsoFileTecnico(s, "VERDI ANNA"),
        Righe({"\"VERDI ANNA\",\"ARCHITETTO\",\"ROVIGO\"", "\"10\",\"20\",\"STAZIONE TOTALE\"",
               "\"5678\",\"VRDNNA80A41H620X\"", "\"VERDI\"", "\"ANNA\"", "\"Via Roma, 1\""}));
    Libretto({"0|15032026|1|G224|0012|1|VERDI ANNA||PADOVA|", "9|0|10|20|0||FR||"});
    FormConfigurazione f = ApriConfigurazione(s);
    EXPECT_EQ(f.Campi[5], "VERDI");
    EXPECT_EQ(f.Campi[19], "ANNA");
    EXPECT_EQ(f.Campi[6], "GEOMETRA"); // the row's blank qualifica takes the default
    EXPECT_EQ(f.Campi[16], "5678");
    EXPECT_EQ(f.Campi[17], "VRDNNA80A41H620X");
    EXPECT_EQ(f.Campi[18], "Via Roma");
    EXPECT_EQ(s.testata.Recapito, "Via Roma");
    EXPECT_EQ(f.Campi[14], "STAZIONE TOTALE");

    // A record of one line: the later values read as blanks; Cognome falls back on Tecnico.
    radice.Scrivi(PercorsoFileTecnico(s, "NERI PAOLO"),
                  Righe({"\"NERI PAOLO\",\"GEOMETRA\",\"PD\""}));
    Libretto({"0|15032026|1|G224|0012|1|NERI PAOLO|GEOMETRA|PADOVA|", "9|0|10|20|0||FR||"});
    f = ApriConfigurazione(s);
    EXPECT_EQ(f.Campi[5], "NERI");
    EXPECT_EQ(f.Campi[19], "PAOLO");
    EXPECT_EQ(s.doc.NumeroIscrizioneAlbo, "");
    EXPECT_EQ(f.Campi[18], "");
    f.FileTecnici = ElencoFileTecnici(s);
    EXPECT_EQ(f.FileTecnici, (QStringList{"NERI PAOLO.PFS", "VERDI ANNA.PFS"}));

    // Clicking a record fills the technician's fields.
    ScegliFileTecnico(s, f, "VERDI ANNA.PFS");
    EXPECT_EQ(f.Campi[5], "VERDI");
    EXPECT_EQ(f.Campi[6], "ARCHITETTO");
    EXPECT_EQ(f.Campi[7], "ROVIGO");
    EXPECT_EQ(f.Campi[17], "VRDNNA80A41H620X");
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

TEST_F(AperturaProva, ElenchiDaiFileEDaCollegi) {
    const QString lavoro = s.amb.CartellaLavoroBarra;
    // An instrument file that exists but is empty gives an empty list, not the built-in one.
    radice.Scrivi(lavoro + "TIPOLOGIASTRUMENTAZIONE.INI", "");
    radice.Scrivi(lavoro + "SALVACOMMENTO.INI", Righe({"UNO", "DUE"}));
    radice.Scrivi(lavoro + "Catasto1.txt", ""); // an empty default head changes nothing
    radice.Scrivi("C:\\pregeo\\exe\\collegi.txt", Righe({" TREVISO , TV", "", "ROVIGO,RO"}));
    Libretto({"0|15032026|1|G224|0012|1|ROSSI MARIO|GEOMETRA|PADOVA|", "9|0|10|20|0||FR||"});
    FormConfigurazione f = ApriConfigurazione(s);
    EXPECT_TRUE(f.Strumentazioni.isEmpty());
    EXPECT_EQ(f.Commenti, (QStringList{"UNO", "DUE"}));
    EXPECT_EQ(f.Province, (QStringList{"PADOVA", "VENEZIA", "TREVISO", "ROVIGO"}));
    EXPECT_EQ(f.Campi[14], "STAZIONE TOTALE");
    EXPECT_TRUE(p.Messaggi().isEmpty());

    // More boards than the table holds: the error report, and the form still opens.
    QStringList collegi;
    for (int i = 0; i < 500; ++i) collegi << QString("COLLEGIO %1,C%1").arg(i);
    radice.Scrivi("C:\\pregeo\\exe\\collegi.txt", Righe(collegi));
    f = ApriConfigurazione(s);
    EXPECT_EQ(f.Province.size(), 2 + 130);
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].contains("FormCatasto1TXT Bottone1"));
    EXPECT_EQ(f.Campi[2], "G224");
    EXPECT_EQ(f.Campi[9], "10");
}
