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
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QStringList Attese(const QString& nome) {
    return RigheDiTesto(DaWindows1252(Dati(QStringLiteral("censuario/") + nome)));
}

void Foto(QWidget* w, const QString& nome) {
    w->show();
    QApplication::processEvents();
    EXPECT_TRUE(w->grab().save(QStringLiteral("/tmp/") + nome + QStringLiteral(".png")));
}

const QStringList kParticelle = {
    QStringLiteral("6|PARTICELLA|35|02|SEMINATIVO  |29380|29380|120.50|80.25|SN|"),
    QStringLiteral("6|PARTICELLA|36|00|ENTE URBANO |1200|1200|0|0|SN|"),
    QStringLiteral("6|PARTICELLA|37|  |PRATO       |500|500|1.00|2.00|SN|")};

struct SchermiCensuario : ConPregeo {
    void SetUp() override {
        radice.PregeoMinimo();
        radice.Scrivi("C:\\pregeo\\exe\\qualita.txt", Dati("censuario/qualita.txt"));
        Inizializza(s);
        CaricaConfig(s);
        radice.Scrivi("C:\\Lavori\\NC.DAT", Dati("censuario/libretto.dat"));
        ASSERT_TRUE(TrascinaLibretto(s, PercorsoLocale("C:\\Lavori\\NC.DAT")));
        for (int i = 0; i < 3; ++i)
            radice.Scrivi(CartellaParticelle(s) + QStringLiteral("A001_00012_%1.MAP").arg(35 + i),
                          Righe({kParticelle[i]}));
        p.eventi.clear();
    }
    CampiParticella Particella(int i) {
        return CampiDaParticella(QStringLiteral("A001_00012_%1.MAP").arg(35 + i), kParticelle[i],
                                 s.amb.TabellaQualita);
    }
};

} // namespace

TEST_F(SchermiCensuario, ArchivioParticelle) {
    BV_EDM edm(s);
    EXPECT_EQ(edm.windowTitle(),
              QStringLiteral("Archivio Particelle - A001-0012  Libretto: NC.DAT Estratto: "));
    Foto(&edm, QStringLiteral("BV_EDM"));
    ASSERT_EQ(Voci(edm.Archivio()).size(), 3);
    EXPECT_EQ(Voci(edm.MappaliLibretto()), QStringList{QStringLiteral("A001_00012_35.MAP")});
    // The frazionamenti want a parcel and say nothing; the TM commands ask for one.
    Premi(edm.Pulsante(QStringLiteral("&Frazionamento")));
    EXPECT_TRUE(p.Messaggi().isEmpty());
    Premi(edm.Pulsante(QStringLiteral("TM &Nuova Costruzione")));
    EXPECT_EQ(p.Messaggi().value(0),
              QStringLiteral("Impossibile continuare: Selezionare una Particella!"));
    // A parcel of the libretto chooses its file.
    Clic(edm.MappaliLibretto(), 0);
    EXPECT_EQ(edm.Campo("Mappale")->text(), QStringLiteral("35"));
    EXPECT_EQ(edm.Campo("CodiceQualita")->text(), QStringLiteral("001"));
    EXPECT_EQ(edm.Struttura()->text(), kParticelle[0]);
    Premi(edm.Pulsante(QStringLiteral("SN/SR")));
    EXPECT_EQ(edm.Campo("Flag")->text(), QStringLiteral("SR"));
    edm.Campo("RedditoDominicale")->setText(QStringLiteral("99,5"));
    Premi(edm.Pulsante(QStringLiteral("Archivia Modifiche Particella")));
    EXPECT_EQ(
        radice.Leggi(CartellaParticelle(s) + QStringLiteral("A001_00012_35.MAP")).toStdString(),
        "6|PARTICELLA|35|02|SEMINATIVO  |29380|29380|99.5|80.25|SR|\r\n");
    Foto(&edm, QStringLiteral("BV_EDM_scelta"));
    // Generation from an extract that is not associated.
    Premi(edm.Pulsante(QStringLiteral("Genera Particelle da Estratto")));
    EXPECT_EQ(p.Messaggi().last(),
              QStringLiteral("Estratto non Associato: Estratto NON Associato!"));
    EXPECT_FALSE(
        edm.Pulsante(QStringLiteral("Genera Particelle da Fraz. in Censuario"))->isEnabled());
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
    Premi(edm.Pulsante(QStringLiteral("C&omuni")));
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
    Premi(edm.Pulsante(QStringLiteral("&Gestione Estratti")));
    EXPECT_TRUE(edm.ChiedeEstratti());
}

TEST_F(SchermiCensuario, FrazionaParticellaDallaProposta) {
    radice.Scrivi(s.amb.CartellaLavoro + QStringLiteral("\\TEMP\\ESPORTA_PROPOSTA.txt"),
                  Dati("censuario/proposta.txt"));
    CampiParticella c = Particella(0);
    BV_Fraziona f(s, TipoSchema::Frazionamento, c, kFrazionamento);
    EXPECT_EQ(f.windowTitle(), QStringLiteral("Fraziona Particella 35"));
    EXPECT_EQ(f.NumeroCostituite()->text(), QStringLiteral("2"));
    Premi(f.Pulsante(
        QStringLiteral("Censuario Automatico in Base alla Proposta di Aggiornamento in Pregeo")));
    EXPECT_EQ(Voci(f.Anteprima()), Attese("frazionamento_341.txt"));
    EXPECT_EQ(f.Schema()->item(2, 2)->text(), QStringLiteral("14995"));
    Foto(&f, QStringLiteral("BV_Fraziona"));
    // "r" in the area field marks the current row "SR" and turns into a blank.
    f.AreaProporzionale()->setFocus();
    QTest::keyClick(f.AreaProporzionale(), Qt::Key_R);
    EXPECT_EQ(f.Schema()->item(2, 6)->text(), QStringLiteral("SR"));
    EXPECT_EQ(f.Schema()->item(2, 6)->background().color(), QColor(255, 85, 85));
    EXPECT_EQ(Mid(f.Anteprima()->item(4)->text(), 34, 2), QStringLiteral("SR"));
    p.risposte << Risposta::No;
    Premi(f.Pulsante(QStringLiteral("Aggiungi a &Memo")));
    EXPECT_EQ(p.Domande().last(), QStringLiteral("Frazionamento: Frazionare un nuovo Mappale ?"));
    EXPECT_EQ(f.Memo()->count(), 6);
    const QString prima = s.doc.TestoLibretto;
    Premi(f.Pulsante(QStringLiteral("Aggiungi a &Libretto")));
    EXPECT_EQ(f.result(), QDialog::Accepted);
    EXPECT_EQ(s.doc.TestoLibretto, prima + CRLF + TestoRighe(Voci(f.Memo())));
}

TEST_F(SchermiCensuario, FrazionaSenzaPropostaPerTreParticelle) {
    CampiParticella c = Particella(0);
    c.SupCatastale = QStringLiteral("1000");
    BV_Fraziona f(s, TipoSchema::Frazionamento, c, kFrazionamento);
    QTest::keyClicks(f.NumeroCostituite(), QStringLiteral("3"));
    ASSERT_EQ(f.Schema()->rowCount(), 5);
    for (const char* area : {"333.4", "333.4", "333.2"}) {
        f.AreaProporzionale()->selectAll();
        QTest::keyClicks(f.AreaProporzionale(), QString::fromLatin1(area));
        QTest::keyClick(f.AreaProporzionale(), Qt::Key_Return);
    }
    EXPECT_EQ(Voci(f.Anteprima()), Attese("frazionamento_tre.txt"));
    EXPECT_EQ(f.Schema()->item(2, 2)->text(), QStringLiteral("334"));
    EXPECT_EQ(f.Schema()->item(0, 2)->background().color(), QColor(255, 255, 85));
    Foto(&f, QStringLiteral("BV_Fraziona_tre"));
    // Leaving the count with 0 tells so.
    f.NumeroCostituite()->setText(QString());
    QTest::keyClicks(f.NumeroCostituite(), QStringLiteral("0"));
    QTest::keyClick(f.NumeroCostituite(), Qt::Key_Return);
    EXPECT_TRUE(
        p.Messaggi().contains(QStringLiteral("Impossibile continuare: Inserire un valore > 0")));
}

TEST_F(SchermiCensuario, StralcioConDerivateUrbane) {
    radice.Scrivi(s.amb.CartellaLavoro + QStringLiteral("\\TEMP\\ESPORTA_PROPOSTA.txt"),
                  Dati("censuario/proposta.txt"));
    BV_Stralcio f(s, Particella(0));
    EXPECT_EQ(f.windowTitle(), QStringLiteral("Stralcio Particella 35"));
    ASSERT_NE(f.Urbano(), nullptr);
    ASSERT_EQ(f.Urbano()->count(), 2);
    EXPECT_TRUE(f.Urbano()->item(1)->isSelected());
    EXPECT_NE(f.Pulsante(QStringLiteral("Vedi Proposta Esistente")), nullptr);
    Premi(f.Pulsante(
        QStringLiteral("Censuario Automatico in Base alla Proposta di Aggiornamento in Pregeo")));
    EXPECT_EQ(Voci(f.Anteprima()), Attese("stralcio.txt"));
    Clic(f.Urbano(), 0);
    EXPECT_EQ(Mid(f.Anteprima()->item(4)->text(), 46, 3), QStringLiteral("282"));
    Foto(&f, QStringLiteral("BV_Stralcio"));
    Premi(f.Pulsante(QStringLiteral("&Azzera Memo")));
    EXPECT_EQ(Voci(f.Memo()).value(1), RigaTesta(kModelloStralcio, QStringLiteral("000")));
}

TEST_F(SchermiCensuario, NuovaCostruzioneEVariazione) {
    BV_NuovaCostruzione nc(s, Particella(0));
    EXPECT_EQ(nc.windowTitle(), QStringLiteral("TM Nuova Costruzione"));
    Clic(nc.Identificativi(), 2);
    EXPECT_EQ(Voci(nc.Modello()), Attese("nuova_costruzione.txt"));
    Premi(nc.Pulsante(QStringLiteral("Aggiungi a &Memo")));
    EXPECT_EQ(nc.Memo()->count(), 5);
    Foto(&nc, QStringLiteral("BV_NuovaCostruzione"));
    Premi(nc.Pulsante(QStringLiteral("Sostituisci in Libretto")));
    EXPECT_EQ(nc.result(), QDialog::Accepted);
    EXPECT_EQ(RigheCensuarieDi(s.doc.TestoLibretto), Attese("nuova_costruzione.txt"));

    BV_TMVariazione v(s, Particella(1));
    // The memo opens with the model of the libretto.
    EXPECT_EQ(v.Memo()->count(), 5);
    Premi(v.Pulsante(QStringLiteral("&SN / SR")));
    EXPECT_EQ(Voci(v.Modello()), Attese("variazione.txt"));
    Premi(v.Pulsante(QStringLiteral("Aggiungi a Memo")));
    EXPECT_EQ(v.Memo()->count(), 7);
    EXPECT_EQ(Voci(v.Memo()).value(1), RigaTesta(kModelloStralcio, QStringLiteral("005")));
    Foto(&v, QStringLiteral("BV_TMVariazione"));
    // A single click removes a row and counts again; "Copia Memo" does nothing here.
    Clic(v.Memo(), 6);
    EXPECT_EQ(v.Memo()->count(), 6);
    EXPECT_EQ(Voci(v.Memo()).value(1), RigaTesta(kModelloStralcio, QStringLiteral("004")));
    Premi(v.Pulsante(QStringLiteral("Copia Memo")));
    EXPECT_TRUE(p.appunti.isEmpty());
    BV_TMVariazione vuota(s, Particella(1));
    Premi(vuota.Pulsante(QStringLiteral("&Azzera Memo")));
    Premi(vuota.Pulsante(QStringLiteral("Sostituisci nel &Libretto")));
    EXPECT_EQ(p.Messaggi().last(),
              QStringLiteral("Memo Vuoto: Nessuna informazone da aggiungere al Libretto!"));
}

TEST_F(SchermiCensuario, FusioneDiTreParticelle) {
    BV_TMFusione fu(s);
    ASSERT_EQ(fu.Archivio()->count(), 3);
    for (int i = 0; i < 3; ++i) Clic(fu.Archivio(), i, true);
    EXPECT_EQ(fu.InFusione()->count(), 3);
    EXPECT_EQ(Voci(fu.Anteprima()), Attese("fusione_tm.txt"));
    fu.Ausiliario()->click();
    EXPECT_EQ(Voci(fu.Anteprima()), Attese("fusione_ausiliario.txt"));
    Foto(&fu, QStringLiteral("BV_TMFusione"));
    Premi(fu.Pulsante(QStringLiteral("Aggiungi a Memo")));
    EXPECT_EQ(fu.Memo()->count(), 9);
    EXPECT_EQ(fu.Anteprima()->count(), 0);
    // "Azzera Memo" asks, and No keeps the memo.
    p.risposte << Risposta::No;
    Premi(fu.Pulsante(QStringLiteral("Azzera Memo")));
    EXPECT_EQ(p.Domande().last(), QStringLiteral("Azzerare Memo: Azzerare Memo?"));
    EXPECT_EQ(fu.Memo()->count(), 9);
    Clic(fu.InFusione(), 0, true);
    EXPECT_EQ(fu.InFusione()->count(), 2);
    Premi(fu.Pulsante(QStringLiteral("Sostituisci in Libretto")));
    EXPECT_EQ(RigheCensuarieDi(s.doc.TestoLibretto), Attese("fusione_ausiliario.txt"));
}
