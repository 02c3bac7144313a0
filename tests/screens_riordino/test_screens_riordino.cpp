// The regrouping form and the two parcel dialogs, clicked on the offscreen platform.
#include "FormRiordinoRighe.h"
#include "MappaleDaMantenere.h"
#include "SelezionaMappali.h"
#include "libretto.h"
#include "piattaforma_finta.h"
#include "riordino.h"
#include "schermi.h"
#include "supporto.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QGroupBox* Riquadro(QWidget* w, const QString& titolo) {
    for (QGroupBox* g : w->findChildren<QGroupBox*>())
        if (g->title() == titolo) return g;
    return nullptr;
}

struct SchermiRiordino : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        radice.Scrivi("C:\\Lavori\\COMPLETO.DAT", Dati("riordino/completo.dat"));
        ASSERT_TRUE(TrascinaLibretto(s, PercorsoLocale("C:\\Lavori\\COMPLETO.DAT")));
        p.eventi.clear();
    }
};

} // namespace

TEST_F(SchermiRiordino, EliminareUnGruppoEAnnullareLasciaIlLibretto) {
    const QString prima = s.doc.TestoLibretto;
    FormRiordinoRighe form(s);
    form.show();
    EXPECT_EQ(form.windowTitle(), "Riordino Righe");
    EXPECT_EQ(s.EsitoDialogo, -1);
    for (const char* titolo :
         {"Riga 0", "Riga 9", "Riga Commento", "Appunti da Libretto", "Poligonali", "Righe GPS",
          "Stazioni-P.Battuti", "Righe 4-5", "Contorni", "Relazione Tecnica", "Punti Fiduciali",
          "Modello Censuario", "Proposta di Aggiornamento"})
        EXPECT_NE(Riquadro(&form, titolo), nullptr) << titolo;
    EXPECT_EQ(form.findChildren<QPushButton*>().size(), 13);
    QGroupBox* stazioni = Riquadro(&form, "Stazioni-P.Battuti");
    EXPECT_EQ(
        Voci(stazioni->findChild<QListWidget*>()).mid(2, 3),
        (QStringList{"2|4|50.1111|99.5000|30.005|1.600|", "2|9|120.0000|100.2000|22.300|1.600|",
                     "2|10|23.4521|99.1234|45.120|1.600|"}));
    bool etichette = false;
    for (QLabel* l : form.findChildren<QLabel*>())
        if (l->text() == "Numero Iscrizione Albo 1234") etichette = true;
    EXPECT_TRUE(etichette);

    // No is the default: the first press changes nothing, the second with yes empties.
    QGroupBox* poligonali = Riquadro(&form, "Poligonali");
    auto* lista = poligonali->findChild<QListWidget*>();
    QTest::mouseClick(Pulsante(poligonali, "Elimina"), Qt::LeftButton);
    EXPECT_EQ(lista->count(), 1);
    p.risposte << Risposta::Si;
    QTest::mouseClick(Pulsante(poligonali, "Elimina"), Qt::LeftButton);
    EXPECT_EQ(lista->count(), 0);
    EXPECT_TRUE(form.Gruppi().GruppoPoligonali.isEmpty());
    EXPECT_EQ(p.Domande(), (QStringList{"Eliminazione Poligonali: Eliminare Poligonali?",
                                        "Eliminazione Poligonali: Eliminare Poligonali?"}));
    form.grab().save("/tmp/FormRiordinoRighe.png");

    QTest::mouseClick(Pulsante(&form, "&Annulla"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(s.EsitoDialogo, 0);
    EXPECT_EQ(s.doc.TestoLibretto, prima);
    EXPECT_TRUE(s.doc.RigheLibretto.Righe().contains("3|100|200|500|"));
    EXPECT_TRUE(p.impostazioni.contains("POSIZIONE_FORMx/FormRiordinoRighe"));
}

TEST_F(SchermiRiordino, EliminareLeRigheGpsEConfermare) {
    FormRiordinoRighe form(s);
    form.show();
    p.risposte << Risposta::Si;
    QTest::mouseClick(Pulsante(Riquadro(&form, "Righe GPS"), "Elimina"), Qt::LeftButton);
    EXPECT_EQ(p.Domande(), QStringList{"Eliminazione Punti Fiduciali: Eliminare le Righe GPS?"});
    QTest::mouseClick(Pulsante(&form, "&Conferma"), Qt::LeftButton);
    EXPECT_EQ(s.EsitoDialogo, 1);
    const QStringList righe = s.doc.RigheLibretto.Righe();
    EXPECT_EQ(righe.size(), 39);
    EXPECT_EQ(righe[4], "3|100|200|500|");
    EXPECT_EQ(righe[5], "1|100|1.550|Note: stazione sul marciapiede|");
    for (const QString& r : righe) EXPECT_FALSE(r.contains("PDOP")) << r.toStdString();
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

TEST_F(SchermiRiordino, DoppioClicCopiaENonElimina) {
    FormRiordinoRighe form(s);
    form.show();
    auto* stazioni = Riquadro(&form, "Stazioni-P.Battuti")->findChild<QListWidget*>();
    EXPECT_EQ(stazioni->toolTip(), "Fare doppio clik per eliminare la riga");
    Clic(stazioni, 3, true);
    EXPECT_EQ(Split(p.appunti, CRLF).size(), 10);
    EXPECT_TRUE(p.appunti.startsWith("1|100|1.550|Note: stazione sul marciapiede|\r\n2|PF01/"));
    EXPECT_EQ(stazioni->count(), 9);

    auto* censuario = Riquadro(&form, "Modello Censuario")->findChild<QListWidget*>();
    EXPECT_EQ(censuario->toolTip(), "Fare doppio click per ELIMINARE il Modello Censuario");
    Clic(censuario, 0, true);
    EXPECT_EQ(censuario->count(), 6);

    Clic(Riquadro(&form, "Riga 0")->findChild<QListWidget*>(), 0, true);
    EXPECT_EQ(p.appunti, "0|15012026|123|G224|0010|125|ROSSI MARIO|GEOMETRA|PADOVA|");
}

TEST_F(SchermiRiordino, OrdinaApreLaFormModale) {
    // The main form's "Ordina": the form runs modally and "&Conferma" composes the document.
    s.doc.TestoLibretto.replace("2|4|50.1111", "2|4bis|50.1111");
    QTimer::singleShot(0, [] {
        QWidget* modale = QApplication::activeModalWidget();
        ASSERT_NE(modale, nullptr);
        QTest::mouseClick(Pulsante(modale, "&Conferma"), Qt::LeftButton);
    });
    EXPECT_EQ(FormRiordinoRighe::Esegui(s, nullptr), 1);
    EXPECT_EQ(s.doc.RigheLibretto.Riga(12), "2|9|120.0000|100.2000|22.300|1.600|");
    EXPECT_EQ(s.doc.RigheLibretto.Riga(14), "2|4bis|50.1111|99.5000|30.005|1.600|");
}

TEST_F(SchermiRiordino, SelezionaMappaliConIControlli) {
    radice.Scrivi("C:\\pregeo\\estratti\\G224_0010.EMP",
                  Righe({"0|G224|0010|", "6|PARTICELLA|125|01|SEMINATIVO  |29390|29390|0|0|",
                         "6|PARTICELLA|126|  |ENTE URBANO |300|300|0|0|",
                         "6|PARTICELLA|127|  |FABB RURALE |200|200|0|0|"}));
    s.testata.TipologiaRilievo = "01";
    s.amb.VersionePregeo = "10.00-G,Stda 2.08";
    SceltaMappali scelta;
    SelezionaMappali form(s, scelta);
    form.show();
    EXPECT_EQ(form.windowTitle(), "Seleziona Mappali - G224_0010.EMP");
    EXPECT_EQ(form.Lista()->count(), 3);
    Clic(form.Lista(), 0);
    Clic(form.Lista(), 1);
    form.EstMedio()->setText("1500");
    form.grab().save("/tmp/SelezionaMappali.png");
    QTest::mouseClick(Pulsante(&form, "&Conferma"), Qt::LeftButton);
    EXPECT_EQ(p.Messaggi(),
              QStringList{"Seleziona Mappali: Questa versione di Pregeo prevede un solo mappale."});
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(s.EsitoDialogo, -1);
    EXPECT_EQ(s.testata.EstMedio, "1500");

    Clic(form.Lista(), 0); // deselects the first
    QTest::mouseClick(Pulsante(&form, "&Conferma"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(s.EsitoDialogo, 1);
    EXPECT_EQ(s.testata.MappaliLibretto, "126");
    EXPECT_EQ(scelta.RigheEnteUrbano, "6|PARTICELLA|126|  |ENTE URBANO |300|300|0|0|\r\n");
}

TEST_F(SchermiRiordino, MappaleDaMantenereSceltoDallaRiga) {
    s.testata.MappaliLibretto = "10,11,12";
    s.testata.TipologiaRilievo = "01";
    SceltaMappali scelta;
    {
        MappaleDaMantenere vuota(s, scelta);
        vuota.show();
        EXPECT_EQ(vuota.Avviso()->text(), "Nessun Ente Urbano selezionabile.");
        QTest::mouseClick(Pulsante(&vuota, "&Conferma"), Qt::LeftButton);
        EXPECT_TRUE(vuota.isVisible());
        EXPECT_EQ(s.EsitoDialogo, -1);
    }
    scelta.RigheEnteUrbano = "6|PARTICELLA|11|  |ENTE URBANO |300|300|0|0|\r\n";
    MappaleDaMantenere form(s, scelta);
    form.show();
    EXPECT_EQ(Voci(form.Mappali()), (QStringList{"10", "11", "12"}));
    Clic(form.Righe(), 0);
    EXPECT_EQ(form.Mappali()->currentRow(), 1);
    form.grab().save("/tmp/MappaleDaMantenere.png");
    QTest::mouseClick(Pulsante(&form, "&Conferma"), Qt::LeftButton);
    EXPECT_EQ(s.EsitoDialogo, 1);
    EXPECT_EQ(s.testata.MappaliLibretto, "11,10,12");
    EXPECT_EQ(scelta.MappaleMantenuto, "11");
}
