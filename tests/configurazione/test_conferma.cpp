// The head dialog confirmed: the rows, the technician's file, PREGEO.INI; and the versions a
// save keeps of the bytes it replaces.
#include "protezioni.h"
#include "prova_configurazione.h"
#include "storico.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// A valid fiscal code (check character computed by the published rule).
const QString kCodice = "RSSMRA80A01G224W";

struct ConfermaProva : ConfigurazioneProva {
    void SetUp() override {
        ConfigurazioneProva::SetUp();
        p.adesso = QDateTime(QDate(2026, 3, 15), QTime(9, 0));
    }
    // The dialog opened on the rows, with today's date and a valid fiscal code typed in.
    FormConfigurazione Apri(const QStringList& righe) {
        Libretto(righe);
        FormConfigurazione f = ApriConfigurazione(s);
        f.Campi[17] = kCodice;
        p.eventi.clear();
        return f;
    }
};

const QString kZero = "0|15032026|245|G224|0012|145|ROSSI MARIO|GEOMETRA|PADOVA|";
const QString kNove = "9|8|10|20|1540|10.00-G,STDA 2.08|FR|STAZIONE TOTALE|";

QStringList Versioni(const Stato& s) {
    return QDir(PercorsoLocale(CartellaStorico(s))).entryList(QDir::Files);
}

} // namespace

TEST_F(ConfermaProva, FormVuotoConfermato) {
    Libretto({});
    FormConfigurazione f;
    f.Check1 = false;
    EXPECT_FALSE(ConfermaConfigurazione0(s, f)); // an empty fiscal code: "no" keeps it open
    EXPECT_EQ(p.Messaggi(), QStringList{"Protocollo non Numerico: Protocollo non numerico!"});
    EXPECT_EQ(p.Domande(), QStringList{"Verifica Codice Fiscale: Probabile Codice Fiscale non "
                                       "Corretto!\r\nContinuare?"});
    const QStringList righe = RigheLista();
    ASSERT_EQ(righe.size(), 2);
    EXPECT_EQ(righe[0], "0|15032026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|");
    EXPECT_EQ(righe[1], "9|0|10|20|||FR|GEODIMETRO INTEGRATO|");
    EXPECT_EQ(s.doc.TestoLibretto, righe.join("\r\n") + "\r\n");
    EXPECT_EQ(s.testata.Tecnico, "COGNOME NOME");
    // The technician's file of the default name, byte for byte.
    ConfrontaConOro(PercorsoFileTecnico(s, "COGNOME NOME"), "cognome_nome.pfs");
    EXPECT_EQ(p.impostazioni.value("RELAZIONE_TECNICA/INCLUDIDATITECNICO"), "True");
    EXPECT_EQ(p.impostazioni.value("Aggiorna_Default_Pregeo/FormCatasto1TXT"), "0");
    EXPECT_EQ(p.impostazioni.value("Aggiorna_Default_Data/FormCatasto1TXT"), "1");

    // "Si" to the question closes the form.
    p.risposte = {Risposta::Si};
    FormConfigurazione g;
    EXPECT_TRUE(ConfermaConfigurazione0(s, g));
}

TEST_F(ConfermaProva, DataControllata) {
    FormConfigurazione f = Apri({kZero, kNove});
    f.Check2 = false;
    f.Campi[0] = "3112"; // four characters: the format message, then today
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_EQ(p.Messaggi(), QStringList{"Errore nella data: Formato Data Errato!!"});
    EXPECT_TRUE(RigheLista()[0].startsWith("0|15032026|245|"));

    // A past date asks; "no" keeps it, "yes" (the default) takes today.
    f = Apri({kZero, kNove});
    f.Check2 = false;
    f.Campi[0] = "01022026";
    p.risposte = {Risposta::No};
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_EQ(p.Domande(), QStringList{"Verifica data Libretto: La data indicata è precedente la "
                                       "data attuale del PC!!\r\nInserire data attuale?"});
    EXPECT_TRUE(RigheLista()[0].startsWith("0|01022026|"));
    f.Campi[0] = "01022026";
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_TRUE(RigheLista()[0].startsWith("0|15032026|"));
    // A later date is kept without a question.
    p.eventi.clear();
    f.Campi[0] = "01012027";
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_TRUE(p.Domande().isEmpty());
    EXPECT_TRUE(RigheLista()[0].startsWith("0|01012027|"));
}

TEST_F(ConfermaProva, MappaliRiordinatiEMaiuscole) {
    FormConfigurazione f = Apri({kZero, kNove});
    f.Campi[4] = "12,3,12";
    f.Campi[2] = " g224 ";
    f.Campi[5] = "verdi";
    f.Campi[19] = " anna ";
    f.Campi[14] = "gps";
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_EQ(RigheLista()[0], "0|15032026|245|G224|0012|3,12|VERDI ANNA|GEOMETRA|PADOVA|");
    EXPECT_EQ(RigheLista()[1], "9|8|10|20|1540|" + kVersionePregeo + "|FR|GPS|");
    EXPECT_EQ(s.testata.MappaliLibretto, "3,12");
    EXPECT_EQ(s.testata.Cognome, "VERDI");
    EXPECT_EQ(s.testata.Nome, "ANNA");
    EXPECT_EQ(s.doc.CodiceFiscaleTecnico, kCodice);
    EXPECT_EQ(s.testata.NomeComuneLibretto, "PADOVA");
}

TEST_F(ConfermaProva, RigaDelCommento) {
    // The comment goes in front of a station in third place, replaces a comment there, leaves
    // a Relazione Tecnica alone; the detail of the update goes round unchanged, and emptied its
    // row goes.
    const QString stazione = "1|100|1.5|", relazione = "6|***** Relazione  Tecnica *****|";
    const QString dettaglio = "6|DettaglioTipoAgg=VARIAZIONE|";
    const std::tuple<QStringList, const char*, QStringList> casi[] = {
        {{stazione}, " X ", {"6|X|", stazione}},
        {{"6|Y|", stazione}, "X", {"6|X|", stazione}},
        {{relazione, "6|testo|"}, "X", {"6|X|", relazione, "6|testo|"}},
        {{dettaglio, stazione}, nullptr, {dettaglio, stazione}},
        {{dettaglio, stazione}, "  ", {stazione}}};
    for (const auto& [dopo, commento, attese] : casi) {
        FormConfigurazione f = Apri(QStringList{kZero, kNove} + dopo);
        if (commento) f.Campi[15] = commento;
        EXPECT_TRUE(ConfermaConfigurazione0(s, f));
        EXPECT_EQ(RigheLista().mid(2), attese) << dopo.join(' ').toStdString();
    }
}

TEST_F(ConfermaProva, ConfermaDiMappaCM) {
    FormConfigurazione f = Apri({kZero, kNove, "1|100|1.5|"});
    f.Campi[13] = "cm";
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_EQ(RigheLista()[2], "6|conferma|");
    // Once there, it is not doubled.
    f = Apri(RigheLista());
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_EQ(RigheLista().mid(2), (QStringList{"6|conferma|", "1|100|1.5|"}));
    // Another type removes it.
    f = Apri(RigheLista());
    f.Campi[13] = "FR";
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_EQ(RigheLista().mid(2), QStringList{"1|100|1.5|"});
}

TEST_F(ConfermaProva, LibrettoTecnicoEPregeoIniScritti) {
    radice.Scrivi("C:\\Lavori\\ATTO.DAT",
                  Righe({kZero, kNove, "6|Vecchio|", "1|100|1.5|", "8|1|100|300|", "6|<ISC>9|"}));
    ASSERT_TRUE(TrascinaLibretto(s, "C:\\Lavori\\ATTO.DAT"));
    s.doc.NomeEstratto = "G224_0012.EMP";
    FormConfigurazione f = ApriConfigurazione(s);
    EXPECT_EQ(f.EtichettaEstratto, "G224_0012.EMP");
    f.Campi[15] = "Frazionamento della particella 145";
    f.Campi[16] = "4321";
    f.Campi[17] = kCodice;
    f.Campi[18] = "Via Roma 1";
    f.Campi[13] = "TM";
    p.eventi.clear();
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join('\n').toStdString();
    EXPECT_EQ(s.testata.TipoAtto, "M");
    ScriviLibrettoMisure(s);
    ConfrontaConOro("C:\\Lavori\\ATTO.DAT", "confermato.dat");
    ConfrontaConOro(PercorsoFileTecnico(s, "ROSSI MARIO"), "rossi_mario.pfs");
    ConfrontaConOro("C:\\windows\\PREGEO.INI", "pregeo.ini");

    // With "Aggiorna su Pregeo.INI" off the file is not touched.
    const QByteArray ini = radice.Leggi("C:\\windows\\PREGEO.INI");
    f = ApriConfigurazione(s);
    f.Check1 = false;
    f.Campi[17] = kCodice;
    f.Campi[16] = "1";
    EXPECT_TRUE(ConfermaConfigurazione0(s, f));
    EXPECT_EQ(radice.Leggi("C:\\windows\\PREGEO.INI"), ini);
    EXPECT_EQ(p.impostazioni.value("Aggiorna_Default_Pregeo/FormCatasto1TXT"), "0");
    EXPECT_FALSE(ApriConfigurazione(s).Check1);
}

TEST_F(ConfermaProva, CodiceFiscaleConCaratteriEstranei) {
    FormConfigurazione f = Apri({kZero, kNove});
    f.Campi[17] = "RSSMRA80A01G22*K";
    // The error report, then the question as for a wrong code; no crash.
    EXPECT_FALSE(ConfermaConfigurazione0(s, f));
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].contains("VerificaCodiceFiscale"));
    EXPECT_EQ(p.Domande().size(), 1);
}

TEST_F(ConfigurazioneProva, NuovoAnnullatoEChiusoSiRecupera) {
    const QByteArray originale = Righe({"0|15032026|245|G224|0012|145|ROSSI MARIO|GEOMETRA|PADOVA|",
                                        "9|8|10|20|1540||FR|STAZIONE TOTALE|", "1|100|1.5|",
                                        "6|<EST>|", "6|<COD>|", "6|<ISC>|"});
    radice.Scrivi("C:\\Lavori\\ATTO.DAT", originale);
    ASSERT_TRUE(TrascinaLibretto(s, "C:\\Lavori\\ATTO.DAT"));
    // Saving the same bytes keeps no version.
    ScriviLibrettoMisure(s);
    EXPECT_TRUE(Versioni(s).isEmpty());

    // "Nuovo", "Annulla", then the close: the new document belongs to no file, so the close
    // asks where to write it and the old file stays as it was.
    NuovoLibretto(s);
    EXPECT_TRUE(ChiusuraProgramma(s));
    EXPECT_EQ(p.eventi.last().tipo, "salva");
    EXPECT_EQ(radice.Leggi("C:\\Lavori\\ATTO.DAT"), originale);
    EXPECT_TRUE(Versioni(s).isEmpty());

    // Saved over the old file on purpose, its bytes are kept.
    s.doc.PercorsoLibretto = "C:\\Lavori\\ATTO.DAT";
    ChiusuraProgramma(s);
    EXPECT_NE(radice.Leggi("C:\\Lavori\\ATTO.DAT"), originale);
    const QStringList v = Versioni(s);
    ASSERT_EQ(v, QStringList{"ATTO.DAT~20260115-103000"});
    EXPECT_EQ(radice.Leggi(CartellaStorico(s) + "\\" + v[0]), originale);

    // Ten versions of a name are kept, the oldest go; another name has its own.
    for (int i = 0; i < 12; ++i) {
        s.doc.TestoLibretto = QString("0|%1|\r\n").arg(i);
        ScriviLibrettoMisure(s);
    }
    radice.Scrivi("C:\\Altro\\ATTO2.DAT", "X\r\n");
    s.doc.PercorsoLibretto = "C:\\Altro\\ATTO2.DAT";
    ScriviLibrettoMisure(s);
    const QStringList tutte = Versioni(s);
    EXPECT_EQ(tutte.size(), 11);
    EXPECT_EQ(tutte.filter("ATTO.DAT~").size(), 10);
    EXPECT_EQ(tutte.filter("ATTO2.DAT~"), QStringList{"ATTO2.DAT~20260115-103000"});
    // The newest version holds the bytes of the save before the last one.
    EXPECT_EQ(radice.Leggi(CartellaStorico(s) + "\\" + tutte.filter("ATTO.DAT~").last()),
              QByteArray("0|10|\r\n") + "6|<EST>|\r\n6|<COD>|\r\n6|<ISC>|\r\n");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join('\n').toStdString();
}
