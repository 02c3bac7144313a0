// The regrouping form and the two parcel dialogs, clicked on the offscreen platform.
#include "FormRiordinoRighe.h"
#include "MappaleDaMantenere.h"
#include "SelezionaMappali.h"
#include "riordino.h"
#include "schermi.h"
#include "supporto.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct SchermiRiordino : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        radice.Scrivi("C:\\Lavori\\COMPLETO.DAT", Dati("riordino/completo.dat"));
        ASSERT_TRUE(TrascinaLibretto(s, PercorsoLocale("C:\\Lavori\\COMPLETO.DAT")));
        p.eventi.clear();
    }
    static QGroupBox* Riquadro(QWidget* w, const QString& titolo) {
        for (QGroupBox* g : w->findChildren<QGroupBox*>())
            if (g->title() == titolo) return g;
        return nullptr;
    }
    // The list of the frame of that title.
    static QListWidget* Gruppo(QWidget* w, const QString& titolo) {
        return Riquadro(w, titolo)->findChild<QListWidget*>();
    }
    static void Elimina(QWidget* w, const QString& titolo) {
        Premi(Pulsante(Riquadro(w, titolo), "Elimina"));
    }
};

} // namespace

TEST_F(SchermiRiordino, DoppioClicEliminaEAnnullaLascianoIlLibretto) {
    const QString prima = s.doc.TestoLibretto;
    FormRiordinoRighe form(s);
    form.show();
    EXPECT_EQ(s.EsitoDialogo, -1);
    bool albo = false;
    for (QLabel* l : form.findChildren<QLabel*>())
        albo |= l->text() == "Numero Iscrizione Albo 1234";
    EXPECT_TRUE(albo);
    // A double click copies a station's group, and removes it; on the censuary model it
    // removes the model; on row 0 it copies the row.
    auto* stazioni = Gruppo(&form, "Stazioni-P.Battuti");
    Clic(stazioni, 3, true);
    EXPECT_EQ(Split(p.appunti, CRLF).size(), 10);
    EXPECT_TRUE(p.appunti.startsWith("1|100|1.550|Note: stazione sul marciapiede|\r\n2|PF01/"));
    EXPECT_EQ(stazioni->count(), 9);
    Clic(Gruppo(&form, "Modello Censuario"), 0, true);
    EXPECT_EQ(Gruppo(&form, "Modello Censuario")->count(), 6);
    Clic(Gruppo(&form, "Riga 0"), 0, true);
    EXPECT_EQ(p.appunti, "0|15012026|123|G224|0010|125|ROSSI MARIO|GEOMETRA|PADOVA|");

    // No is the default: the first press changes nothing, the second with yes empties.
    Elimina(&form, "Poligonali");
    EXPECT_EQ(Gruppo(&form, "Poligonali")->count(), 1);
    p.risposte << Risposta::Si;
    Elimina(&form, "Poligonali");
    EXPECT_EQ(Gruppo(&form, "Poligonali")->count(), 0);
    EXPECT_TRUE(form.Gruppi().GruppoPoligonali.isEmpty());
    EXPECT_EQ(p.Domande(), (QStringList(2, "Eliminazione Poligonali: Eliminare Poligonali?")));
    form.grab().save("/tmp/FormRiordinoRighe.png");

    Clic(&form, "&Annulla");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(s.EsitoDialogo, 0);
    EXPECT_EQ(s.doc.TestoLibretto, prima);
    EXPECT_TRUE(p.impostazioni.contains("POSIZIONE_FORMx/FormRiordinoRighe"));
}

TEST_F(SchermiRiordino, OrdinaModaleEliminaEConferma) {
    // The main form's "Ordina": the form runs modally and "&Conferma" composes the document.
    s.doc.TestoLibretto.replace("2|4|50.1111", "2|4bis|50.1111");
    p.risposte << Risposta::Si;
    QTimer::singleShot(0, [] {
        QWidget* w = QApplication::activeModalWidget();
        Elimina(w, "Righe GPS");
        Clic(w, "&Conferma");
    });
    EXPECT_EQ(FormRiordinoRighe::Esegui(s, nullptr), 1);
    EXPECT_EQ(p.Domande(), QStringList{"Eliminazione Punti Fiduciali: Eliminare le Righe GPS?"});
    const QStringList righe = s.doc.RigheLibretto.Righe();
    EXPECT_EQ(righe.size(), 39);
    EXPECT_EQ(righe[4], "3|100|200|500|");
    for (const QString& r : righe) EXPECT_FALSE(r.contains("PDOP")) << r.toStdString();
}

TEST_F(SchermiRiordino, SelezionaMappaliEMappaleDaMantenere) {
    radice.Scrivi("C:\\pregeo\\estratti\\G224_0010.EMP",
                  Righe({"0|G224|0010|", "6|PARTICELLA|125|01|SEMINATIVO  |29390|29390|0|0|",
                         "6|PARTICELLA|126|  |ENTE URBANO |300|300|0|0|",
                         "6|PARTICELLA|127|  |FABB RURALE |200|200|0|0|"}));
    s.testata.TipologiaRilievo = "01";
    s.amb.VersionePregeo = "10.00-G,Stda 2.08";
    SceltaMappali scelta;
    {
        SelezionaMappali form(s, scelta);
        form.show();
        EXPECT_EQ(form.windowTitle(), "Seleziona Mappali - G224_0010.EMP");
        EXPECT_EQ(form.Lista()->count(), 3);
        Clic(form.Lista(), 0);
        Clic(form.Lista(), 1);
        form.EstMedio()->setText("1500");
        Clic(&form, "&Conferma");
        EXPECT_EQ(p.Messaggi(), QStringList{"Seleziona Mappali: Questa versione di Pregeo "
                                            "prevede un solo mappale."});
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(s.EsitoDialogo, -1);
        EXPECT_EQ(s.testata.EstMedio, "1500");
        Clic(form.Lista(), 0); // deselects the first
        Clic(&form, "&Conferma");
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(s.EsitoDialogo, 1);
        EXPECT_EQ(s.testata.MappaliLibretto, "126");
        EXPECT_EQ(scelta.RigheEnteUrbano, "6|PARTICELLA|126|  |ENTE URBANO |300|300|0|0|\r\n");
    }
    // The parcel to keep: none without an urban entity; then the one of the row clicked.
    s.testata.MappaliLibretto = "10,11,12";
    scelta = SceltaMappali{};
    {
        MappaleDaMantenere vuota(s, scelta);
        vuota.show();
        EXPECT_EQ(vuota.Avviso()->text(), "Nessun Ente Urbano selezionabile.");
        Clic(&vuota, "&Conferma");
        EXPECT_TRUE(vuota.isVisible());
    }
    scelta.RigheEnteUrbano = "6|PARTICELLA|11|  |ENTE URBANO |300|300|0|0|\r\n";
    MappaleDaMantenere form(s, scelta);
    form.show();
    EXPECT_EQ(Voci(form.Mappali()), (QStringList{"10", "11", "12"}));
    Clic(form.Righe(), 0);
    EXPECT_EQ(form.Mappali()->currentRow(), 1);
    Clic(&form, "&Conferma");
    EXPECT_EQ(s.EsitoDialogo, 1);
    EXPECT_EQ(s.testata.MappaliLibretto, "11,10,12");
    EXPECT_EQ(scelta.MappaleMantenuto, "11");
}
