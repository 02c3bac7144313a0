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
    // Four characters: the format message, then today. A past date asks; "no" keeps it, "yes"
    // (the default) takes today. A later date is kept without a question.
    const QString domanda = "Verifica data Libretto: La data indicata è precedente la data "
                            "attuale del PC!!\r\nInserire data attuale?";
    const std::tuple<const char*, QList<Risposta>, const char*, QStringList, QStringList> date[] = {
        {"3112", {}, "15032026", {"Errore nella data: Formato Data Errato!!"}, {}},
        {"01022026", {Risposta::No}, "01022026", {}, {domanda}},
        {"01022026", {}, "15032026", {}, {domanda}},
        {"01012027", {}, "01012027", {}, {}}};
    for (const auto& [data, risposte, attesa, messaggi, domande] : date) {
        FormConfigurazione f = Apri({kZero, kNove});
        f.Check2 = false;
        f.Campi[0] = data;
        p.risposte = risposte;
        EXPECT_TRUE(ConfermaConfigurazione0(s, f));
        EXPECT_EQ(p.Messaggi(), messaggi) << data;
        EXPECT_EQ(p.Domande(), domande) << data;
        EXPECT_TRUE(RigheLista()[0].startsWith("0|" + QString(attesa) + "|")) << data;
    }
}

TEST_F(ConfermaProva, RigaDelCommento) {
    // The comment goes in front of a station in third place, leaves a Relazione Tecnica alone;
    // the detail of the update goes round unchanged, and emptied its row goes.
    const QString stazione = "1|100|1.5|", relazione = "6|***** Relazione  Tecnica *****|";
    const QString dettaglio = "6|DettaglioTipoAgg=VARIAZIONE|";
    const std::tuple<QStringList, const char*, QStringList> casi[] = {
        {{stazione}, " X ", {"6|X|", stazione}},
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
