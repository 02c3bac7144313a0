#include "prova_configurazione.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

using CampiProva = ConfigurazioneProva;

TEST_F(CampiProva, RegoleAllUscitaDaiCampiEQuotaDalleRigheOtto) {
    Libretto({"0|15012026|1|G224|0012|1|ROSSI MARIO|GEOMETRA|PADOVA|", "9|0|10|20|0||FR||",
              "8|1|100|300|", "8|2|50.4|100|", "8|PF01/0010/G224|0|9000|"});
    radice.Scrivi(PercorsoFileTecnico(s, "BIANCHI LUCA"), "Nome=LUCA\r\n");
    radice.Scrivi(PercorsoFileTecnico(s, "ZETA ANNA"), "Nome=ANNA\r\n");
    const QStringList tecnici = ElencoFileTecnici(s);
    ASSERT_GE(tecnici.size(), 2);
    EXPECT_TRUE(tecnici.first().startsWith("BIANCHI", Qt::CaseInsensitive));
    EXPECT_TRUE(tecnici.last().startsWith("ZETA", Qt::CaseInsensitive));
    FormConfigurazione f = ApriConfigurazione(s);
    // Six digits of date expanded at 80, the sheet padded, parcels in order without doubles,
    // the fields that always reset, the east from the rows 8 when blank.
    const std::tuple<int, const char*, QString> casi[] = {{0, "010295", "01021995"},
                                                          {0, "", "15012026"},
                                                          {3, "12a", "012A"},
                                                          {4, "12,3,12", "3,12"},
                                                          {9, "5", "10"},
                                                          {10, "5", "20"},
                                                          {11, "", "200"},
                                                          {12, "X", kVersionePregeo},
                                                          {13, " ", "FR"}};
    for (const auto& [campo, testo, atteso] : casi) {
        f.Campi[campo] = testo;
        EsciDalCampo(s, f, campo);
        EXPECT_EQ(f.Campi[campo], atteso) << campo << " " << testo;
    }
    // Field 2 of the rows 8 of fewer than five fields.
    EXPECT_EQ(QuotaMediaDaRighe8(s), "50");
    EXPECT_TRUE(p.Messaggi().isEmpty());

    ScegliTipologia(s, f, 3);
    EXPECT_EQ(f.Campi[13], "CM");
    EXPECT_EQ(s.testata.TipologiaRilievo, "CM");
    ScegliVoce(f, 9, "STAZIONE TOTALE");
    EXPECT_EQ(f.Campi[14], "STAZIONE TOTALE");
    ScegliVoce(f, 10, "DEROGA");
    EXPECT_EQ(f.Campi[15], "DEROGA");
}

TEST_F(CampiProva, ComandiDegliElenchiEDelDefault) {
    Libretto({"0|15012026|1|G224|0012|1|ROSSI MARIO|GEOMETRA|PADOVA|", "9|0|10|20|0||FR||"});
    FormConfigurazione f = ApriConfigurazione(s);
    const QString ini = s.amb.CartellaLavoroBarra + "TIPOLOGIASTRUMENTAZIONE.INI";
    f.TestoCombo9 = "stazione totale";
    EXPECT_FALSE(ComandoConfigurazione(s, f, 12)); // lower case: the item takes that spelling
    EXPECT_EQ(f.Strumentazioni[4], "stazione totale");
    f.TestoCombo9 = "Laser Scanner";
    ComandoConfigurazione(s, f, 16); // added as typed
    f.TestoCombo9 = "cordella metrica";
    ComandoConfigurazione(s, f, 20); // removed, case ignored
    f.TestoCombo9 = "gps";
    ComandoConfigurazione(s, f, 9);
    EXPECT_EQ(f.TestoCombo9, "GPS");
    ConfrontaConOro(ini, "strumentazione.ini");

    f.TestoCombo10 = "deroga";
    ComandoConfigurazione(s, f, 30);
    f.TestoCombo10 = "Nuovo commento";
    ComandoConfigurazione(s, f, 17);
    f.TestoCombo10 = "variazione";
    ComandoConfigurazione(s, f, 15);
    ConfrontaConOro(s.amb.CartellaLavoroBarra + "SALVACOMMENTO.INI", "salvacommento.ini");
    FormConfigurazione g = ApriConfigurazione(s);
    EXPECT_EQ(g.Strumentazioni, f.Strumentazioni);
    EXPECT_EQ(g.Commenti, f.Commenti);

    // "Salva &Default" in upper case, "Carica Default", "Elimina Default".
    f.Campi[15] = "commento";
    f.Campi[7] = "venezia";
    ComandoConfigurazione(s, f, 2);
    ConfrontaConOro(PercorsoCatasto1(s), "catasto1.txt");
    FormConfigurazione h;
    ComandoConfigurazione(s, h, 21);
    EXPECT_EQ(h.Campi[7], "VENEZIA");
    EXPECT_EQ(h.Campi[15], "COMMENTO");
    ComandoConfigurazione(s, h, 22);
    EXPECT_FALSE(EsisteFile(PercorsoCatasto1(s)));
    ComandoConfigurazione(s, h, 22); // nothing to delete: nothing happens
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join('\n').toStdString();
}

TEST_F(CampiProva, AltriComandiPerIndice) {
    radice.Scrivi("C:\\pregeo\\estratti\\G224_0012.EMP",
                  Righe({"0|01012026|PD1/2026|G224|10120|145|PD|0|0|0|", "8|1%|1000|5000|",
                         "8|2%|2000|7000|", "8|3%|1500|6000|", "7|4|1%|2%|3%|1%|NC|145|145|10|"}));
    Libretto({"0|15012026|7|A001|0010|9|ROSSI MARIO|GEOMETRA|PADOVA|", "9|0|10|20|0||FR||",
              "8|1|100|300|", "8|2|50|100|"});
    s.doc.NomeMisurate = "MIS.TXT";
    FormConfigurazione f = ApriConfigurazione(s);
    EXPECT_EQ(f.EtichettaMisurate, "MIS.TXT");
    const FormConfigurazione prima = f;
    for (int i : {10, 19, 24, 26, 28}) EXPECT_FALSE(ComandoConfigurazione(s, f, i));
    EXPECT_EQ(f.Campi, prima.Campi);
    EXPECT_TRUE(ComandoConfigurazione(s, f, 1)); // "&Annulla" closes
    EXPECT_EQ(s.EsitoDialogo, -1);

    ComandoConfigurazione(s, f, 3);
    EXPECT_EQ(f.Campi[0], "15012026");
    ComandoConfigurazione(s, f, 4);
    EXPECT_EQ(f.Campi[8], "75");
    ComandoConfigurazione(s, f, 13);
    EXPECT_EQ(f.Campi[11], "200");
    ComandoConfigurazione(s, f, 23);
    EXPECT_EQ(s.doc.NomeMisurate, "");
    EXPECT_EQ(f.EtichettaMisurate, "");

    // From the extract: with none associated the extracts screen is asked for one.
    int aperture = 0;
    f.schermi.ApriEstratti = [&](Stato& st) {
        ++aperture;
        st.doc.NomeEstratto = "G224_0012.EMP";
        return 1;
    };
    ComandoConfigurazione(s, f, 7);
    EXPECT_EQ(aperture, 1);
    EXPECT_EQ(f.Campi[2], "G224");
    EXPECT_EQ(f.Campi[3], "0120");
    EXPECT_EQ(f.Campi[4], "145");
    EXPECT_EQ(f.Campi[11], "6000");
    EXPECT_EQ(f.EtichettaEstratto, "G224_0012.EMP");
    f.Campi[4] = "9";
    f.ApertaPerComando = true;
    s.testata.Protocollo = "77";
    ComandoConfigurazione(s, f, 27); // the parcels are kept
    EXPECT_EQ(aperture, 1);
    EXPECT_EQ(f.Campi[4], "9");
    EXPECT_EQ(f.Campi[1], "77");
    ComandoConfigurazione(s, f, 18);
    EXPECT_EQ(f.EtichettaEstratto, "");

    // The archive of comuni gives its code back on confirmation only.
    for (const int esito : {0, 1}) {
        f.schermi.ApriComuni = [esito](Stato& st) {
            st.testata.CodiceComuneLibretto = "L736";
            return esito;
        };
        ComandoConfigurazione(s, f, 6);
        EXPECT_EQ(f.Campi[2], esito ? "L736" : "G224");
    }

    // "Nuovo Arch2.DB VUOTO" without an archive in the program's folder.
    p.eventi.clear();
    ComandoConfigurazione(s, f, 8);
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_EQ(p.Messaggi()[0], "Usa Libretto Singolo: Il File " + s.amb.CartellaProgramma +
                                   "\\arch2.db\r\nNon è stato trovato!\r\nComando NON eseguito!");
    // With one, Pregeo's archive is replaced after a backup.
    radice.Scrivi(s.amb.CartellaProgramma + "\\arch2.db", "VUOTO");
    radice.Scrivi("C:\\pregeo\\arch\\arch2.db", "PIENO");
    f.NomeBackup = "x";
    p.eventi.clear();
    ComandoConfigurazione(s, f, 8);
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join('\n').toStdString();
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\arch\\arch2.db"), "VUOTO");
    EXPECT_EQ(f.NomeBackup, "");

    // "Elimina Tecnico": nothing without a choice, the chosen file otherwise.
    radice.Scrivi(PercorsoFileTecnico(s, "A B"), Righe({"\"A B\""}));
    f.FileTecnici = ElencoFileTecnici(s);
    ComandoConfigurazione(s, f, 14);
    EXPECT_EQ(f.FileTecnici, QStringList{"A B.PFS"});
    ScegliFileTecnico(s, f, "A B.PFS");
    ComandoConfigurazione(s, f, 14);
    EXPECT_TRUE(f.FileTecnici.isEmpty());
    EXPECT_FALSE(EsisteFile(PercorsoFileTecnico(s, "A B")));
}
