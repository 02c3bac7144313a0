// The censuary screens clicked by caption on the offscreen platform.
#include "BV_CodFis.h"
#include "BV_EDM.h"
#include "BV_Fraziona.h"
#include "BV_NuovaCostruzione.h"
#include "BV_TMFusione.h"
#include "BV_TMVariazione.h"
#include "censuario.h"
#include "schermi.h"
#include "supporto.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTableWidget>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QStringList Attese(const QString& nome) {
    return RigheDiTesto(DaWindows1252(Dati("censuario/" + nome)));
}

void Foto(QWidget* w, const QString& nome) {
    w->show();
    EXPECT_TRUE(w->grab().save("/tmp/" + nome + ".png"));
}

const QStringList kParticelle = {"6|PARTICELLA|35|02|SEMINATIVO  |29380|29380|120.50|80.25|SN|",
                                 "6|PARTICELLA|36|00|ENTE URBANO |1200|1200|0|0|SN|",
                                 "6|PARTICELLA|37|  |PRATO       |500|500|1.00|2.00|SN|"};

struct SchermiCensuario : ConPregeo {
    void SetUp() override {
        radice.PregeoMinimo();
        radice.Scrivi("C:\\pregeo\\exe\\qualita.txt", Dati("censuario/qualita.txt"));
        Inizializza(s);
        CaricaConfig(s);
        radice.Scrivi("C:\\Lavori\\NC.DAT", Dati("censuario/libretto.dat"));
        ASSERT_TRUE(TrascinaLibretto(s, PercorsoLocale("C:\\Lavori\\NC.DAT")));
        for (int i = 0; i < 3; ++i)
            radice.Scrivi(CartellaParticelle(s) + QString("A001_00012_%1.MAP").arg(35 + i),
                          Righe({kParticelle[i]}));
        p.eventi.clear();
    }
    CampiParticella Particella(int i) {
        return CampiDaParticella(QString("A001_00012_%1.MAP").arg(35 + i), kParticelle[i],
                                 s.amb.TabellaQualita);
    }
};

} // namespace

TEST_F(SchermiCensuario, ArchivioParticelle) {
    BV_EDM edm(s);
    EXPECT_EQ(edm.windowTitle(), "Archivio Particelle - A001-0012  Libretto: NC.DAT Estratto: ");
    Foto(&edm, "BV_EDM");
    ASSERT_EQ(Voci(edm.Archivio()).size(), 3);
    EXPECT_EQ(Voci(edm.MappaliLibretto()), QStringList{"A001_00012_35.MAP"});
    // The frazionamenti want a parcel and say nothing; the TM commands ask for one.
    Premi(edm.Pulsante("&Frazionamento"));
    EXPECT_TRUE(p.Messaggi().isEmpty());
    Premi(edm.Pulsante("TM &Nuova Costruzione"));
    EXPECT_EQ(p.Messaggi().value(0), "Impossibile continuare: Selezionare una Particella!");
    // A parcel of the libretto chooses its file.
    Clic(edm.MappaliLibretto(), 0);
    EXPECT_EQ(edm.Campo("Mappale")->text(), "35");
    EXPECT_EQ(edm.Campo("CodiceQualita")->text(), "001");
    EXPECT_EQ(edm.Struttura()->text(), kParticelle[0]);
    Premi(edm.Pulsante("SN/SR"));
    EXPECT_EQ(edm.Campo("Flag")->text(), "SR");
    edm.Campo("RedditoDominicale")->setText("99,5");
    Premi(edm.Pulsante("Archivia Modifiche Particella"));
    EXPECT_EQ(radice.Leggi(CartellaParticelle(s) + "A001_00012_35.MAP").toStdString(),
              "6|PARTICELLA|35|02|SEMINATIVO  |29380|29380|99.5|80.25|SR|\r\n");
    // Generation from an extract that is not associated.
    Premi(edm.Pulsante("Genera Particelle da Estratto"));
    EXPECT_EQ(p.Messaggi().last(), "Estratto non Associato: Estratto NON Associato!");
    EXPECT_FALSE(edm.Pulsante("Genera Particelle da Fraz. in Censuario")->isEnabled());
    // "C&omuni": the code chosen in the search comes back into the field; Enter in an empty
    // field opens the search, and closing it without a choice leaves the field empty.
    QString scelto;
    QTimer::singleShot(0, [&] {
        auto* codfis = qobject_cast<BV_CodFis*>(QApplication::activeModalWidget());
        ASSERT_NE(codfis, nullptr);
        ASSERT_GT(codfis->Lista()->count(), 0);
        Clic(codfis->Lista(), 0, true);
        scelto = codfis->Codice()->text();
    });
    Premi(edm.Pulsante("C&omuni"));
    EXPECT_FALSE(scelto.isEmpty());
    EXPECT_EQ(edm.Campo("Comune")->text(), scelto);
    edm.Campo("Comune")->clear();
    bool aperta = false;
    QTimer::singleShot(0, [&] {
        auto* codfis = qobject_cast<BV_CodFis*>(QApplication::activeModalWidget());
        aperta = codfis != nullptr;
        if (codfis) codfis->Lista()->setCurrentRow(1), codfis->reject();
    });
    edm.Campo("Comune")->setFocus();
    QTest::keyClick(edm.Campo("Comune"), Qt::Key_Return);
    EXPECT_TRUE(aperta);
    EXPECT_EQ(edm.Campo("Comune")->text(), QString());
    EXPECT_EQ(s.testata.CodiceComuneLibretto, scelto); // the confirmed choice, not the blank
    Premi(edm.Pulsante("&Gestione Estratti"));
    EXPECT_TRUE(edm.ChiedeEstratti());
}

TEST_F(SchermiCensuario, FrazionaParticellaDallaProposta) {
    radice.Scrivi(s.amb.CartellaLavoro + "\\TEMP\\ESPORTA_PROPOSTA.txt",
                  Dati("censuario/proposta.txt"));
    CampiParticella c = Particella(0);
    BV_Fraziona f(s, TipoSchema::Frazionamento, c, kFrazionamento);
    EXPECT_EQ(f.windowTitle(), "Fraziona Particella 35");
    EXPECT_EQ(f.NumeroCostituite()->text(), "2");
    Premi(f.Pulsante("Censuario Automatico in Base alla Proposta di Aggiornamento in Pregeo"));
    EXPECT_EQ(Voci(f.Anteprima()), Attese("frazionamento_341.txt"));
    EXPECT_EQ(f.Schema()->item(2, 2)->text(), "14995");
    Foto(&f, "BV_Fraziona");
    // At its opening size the nine columns are in sight, SR/SN and the fixed area included.
    EXPECT_LE(f.Schema()->horizontalHeader()->length(), f.Schema()->viewport()->width());
    // "r" in the area field marks the current row "SR" and turns into a blank.
    f.AreaProporzionale()->setFocus();
    QTest::keyClick(f.AreaProporzionale(), Qt::Key_R);
    EXPECT_EQ(f.Schema()->item(2, 6)->text(), "SR");
    EXPECT_EQ(f.Schema()->item(2, 6)->background().color(), QColor(255, 85, 85));
    EXPECT_EQ(Mid(f.Anteprima()->item(4)->text(), 34, 2), "SR");
    p.risposte << Risposta::No;
    Premi(f.Pulsante("Aggiungi a &Memo"));
    EXPECT_EQ(p.Domande().last(), "Frazionamento: Frazionare un nuovo Mappale ?");
    EXPECT_EQ(f.Memo()->count(), 6);
    const QString prima = s.doc.TestoLibretto;
    Premi(f.Pulsante("Aggiungi a &Libretto"));
    EXPECT_EQ(f.result(), QDialog::Accepted);
    EXPECT_EQ(s.doc.TestoLibretto, prima + CRLF + TestoRighe(Voci(f.Memo())));
}

TEST_F(SchermiCensuario, FrazionaSenzaPropostaPerTreParticelle) {
    CampiParticella c = Particella(0);
    c.SupCatastale = "1000";
    BV_Fraziona f(s, TipoSchema::Frazionamento, c, kFrazionamento);
    QTest::keyClicks(f.NumeroCostituite(), "3");
    ASSERT_EQ(f.Schema()->rowCount(), 5);
    for (const char* area : {"333.4", "333.4", "333.2"}) {
        f.AreaProporzionale()->selectAll();
        QTest::keyClicks(f.AreaProporzionale(), QString::fromLatin1(area));
        QTest::keyClick(f.AreaProporzionale(), Qt::Key_Return);
    }
    EXPECT_EQ(Voci(f.Anteprima()), Attese("frazionamento_tre.txt"));
    EXPECT_EQ(f.Schema()->item(2, 2)->text(), "334");
    EXPECT_EQ(f.Schema()->item(0, 2)->background().color(), QColor(255, 255, 85));
    Foto(&f, "BV_Fraziona_tre");
    // Leaving the count with 0 tells so.
    f.NumeroCostituite()->setText(QString());
    QTest::keyClicks(f.NumeroCostituite(), "0");
    QTest::keyClick(f.NumeroCostituite(), Qt::Key_Return);
    EXPECT_TRUE(p.Messaggi().contains("Impossibile continuare: Inserire un valore > 0"));
}

TEST_F(SchermiCensuario, StralcioConDerivateUrbane) {
    radice.Scrivi(s.amb.CartellaLavoro + "\\TEMP\\ESPORTA_PROPOSTA.txt",
                  Dati("censuario/proposta.txt"));
    BV_Stralcio f(s, Particella(0));
    EXPECT_EQ(f.windowTitle(), "Stralcio Particella 35");
    ASSERT_NE(f.Urbano(), nullptr);
    ASSERT_EQ(f.Urbano()->count(), 2);
    EXPECT_TRUE(f.Urbano()->item(1)->isSelected());
    Premi(f.Pulsante("Censuario Automatico in Base alla Proposta di Aggiornamento in Pregeo"));
    EXPECT_EQ(Voci(f.Anteprima()), Attese("stralcio.txt"));
    Clic(f.Urbano(), 0);
    EXPECT_EQ(Mid(f.Anteprima()->item(4)->text(), 46, 3), "282");
    Foto(&f, "BV_Stralcio");
    Premi(f.Pulsante("&Azzera Memo"));
    EXPECT_EQ(Voci(f.Memo()).value(1), RigaTesta(kModelloStralcio, "000"));
}

TEST_F(SchermiCensuario, NuovaCostruzioneEVariazione) {
    BV_NuovaCostruzione nc(s, Particella(0));
    Clic(nc.Identificativi(), 2);
    EXPECT_EQ(Voci(nc.Modello()), Attese("nuova_costruzione.txt"));
    Premi(nc.Pulsante("Aggiungi a &Memo"));
    EXPECT_EQ(nc.Memo()->count(), 5);
    Premi(nc.Pulsante("Sostituisci in Libretto"));
    EXPECT_EQ(nc.result(), QDialog::Accepted);
    EXPECT_EQ(RigheCensuarieDi(s.doc.TestoLibretto), Attese("nuova_costruzione.txt"));

    BV_TMVariazione v(s, Particella(1));
    // The memo opens with the model of the libretto.
    EXPECT_EQ(v.Memo()->count(), 5);
    Premi(v.Pulsante("&SN / SR"));
    EXPECT_EQ(Voci(v.Modello()), Attese("variazione.txt"));
    Premi(v.Pulsante("Aggiungi a Memo"));
    EXPECT_EQ(v.Memo()->count(), 7);
    EXPECT_EQ(Voci(v.Memo()).value(1), RigaTesta(kModelloStralcio, "005"));
    // A single click removes a row and counts again; "Copia Memo" does nothing here.
    Clic(v.Memo(), 6);
    EXPECT_EQ(v.Memo()->count(), 6);
    EXPECT_EQ(Voci(v.Memo()).value(1), RigaTesta(kModelloStralcio, "004"));
    Premi(v.Pulsante("Copia Memo"));
    EXPECT_TRUE(p.appunti.isEmpty());
    BV_TMVariazione vuota(s, Particella(1));
    Premi(vuota.Pulsante("&Azzera Memo"));
    Premi(vuota.Pulsante("Sostituisci nel &Libretto"));
    EXPECT_EQ(p.Messaggi().last(), "Memo Vuoto: Nessuna informazone da aggiungere al Libretto!");
}

TEST_F(SchermiCensuario, FusioneDiTreParticelle) {
    BV_TMFusione fu(s);
    ASSERT_EQ(fu.Archivio()->count(), 3);
    for (int i = 0; i < 3; ++i) Clic(fu.Archivio(), i, true);
    EXPECT_EQ(fu.InFusione()->count(), 3);
    EXPECT_EQ(Voci(fu.Anteprima()), Attese("fusione_tm.txt"));
    fu.Ausiliario()->click();
    EXPECT_EQ(Voci(fu.Anteprima()), Attese("fusione_ausiliario.txt"));
    Foto(&fu, "BV_TMFusione");
    Premi(fu.Pulsante("Aggiungi a Memo"));
    EXPECT_EQ(fu.Memo()->count(), 9);
    EXPECT_EQ(fu.Anteprima()->count(), 0);
    // "Azzera Memo" asks, and No keeps the memo.
    p.risposte << Risposta::No;
    Premi(fu.Pulsante("Azzera Memo"));
    EXPECT_EQ(p.Domande().last(), "Azzerare Memo: Azzerare Memo?");
    EXPECT_EQ(fu.Memo()->count(), 9);
    Clic(fu.InFusione(), 0, true);
    EXPECT_EQ(fu.InFusione()->count(), 2);
    Premi(fu.Pulsante("Sostituisci in Libretto"));
    EXPECT_EQ(RigheCensuarieDi(s.doc.TestoLibretto), Attese("fusione_ausiliario.txt"));
}
