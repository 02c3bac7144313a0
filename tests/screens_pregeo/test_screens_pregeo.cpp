// BV_Dapregeo over a scripted double of Ponticello, FormConfiguraPregeo, and the main form's
// entries that reach them, on the offscreen platform.
#include "BV_Dapregeo.h"
#include "BV_LibrettoOriginale.h"
#include "EseguiComando.h"
#include "FormConfiguraPregeo.h"
#include "Grafica.h"
#include "pregeo.h"
#include "supporto.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct SchermiPregeo : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        CreaAlberoCartelle(s);
        const QString documenti = PercorsoLocale(s.amb.CartellaDocumenti);
        for (const QString nome : {"PONTICELLO.EXE", "PONTICELLO.EXE2", "PONTICELLO2.EXE"})
            p.impostazioni.insert(kSezioneProgrammi + u'/' + nome,
                                  QStringLiteral("/bin/sh \"%1\" \"%2\" \"%3\" %4")
                                      .arg(PercorsoDati("pregeo/ponticello_finto.sh"), documenti,
                                           PercorsoDati("pregeo/ponticello"), nome));
        p.esegui = AvviaProcessoHost;
    }
};

QString Cella(QTableWidget* g, int r, int c) {
    return g->item(r, c) ? g->item(r, c)->text() : QString();
}

} // namespace

TEST_F(SchermiPregeo, DaPregeoGriglieGraficaEDxf) {
    BV_Dapregeo form(s, 0);
    form.resize(1100, 720);
    form.show();
    QTest::qWait(50);
    // The dump came first, then the grid.
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].startsWith("Elaborazione Pregeo: 1|2025|000123"));
    QTableWidget* atti = form.GrigliaAtti();
    ASSERT_EQ(atti->rowCount(), 3);
    EXPECT_EQ(Cella(atti, 0, 3), "ROSSI MARIO");
    EXPECT_EQ(Cella(atti, 0, 8), "25000123");

    const QRect cella = atti->visualItemRect(atti->item(0, 2));
    QTest::mouseClick(atti->viewport(), Qt::LeftButton, {}, cella.center());
    QTableWidget* punti = form.GrigliaPunti();
    ASSERT_EQ(punti->rowCount(), 5);
    EXPECT_EQ(Cella(punti, 0, 4), "<P!>CONFINE NORD");
    EXPECT_EQ(Cella(punti, 2, 0), "103");
    EXPECT_FALSE(form.Disegno()->Modello().Punti.isEmpty());
    form.grab().save("/tmp/bv_dapregeo.png");

    p.risposte << Risposta::No;
    QTest::mouseClick(form.Pulsante("Genera DXF"), Qt::LeftButton);
    EXPECT_EQ(p.Messaggi().last(),
              "Salva in DXF: Salvato il file \r\n" + s.amb.CartellaLavoro + "\\GraficaPF.DXF");
    EXPECT_EQ(p.Domande().last(), "Apertura file DXF : Aprire il file DXF ?");
    EXPECT_TRUE(EsisteFile(s.amb.CartellaLavoro + "\\GraficaPF.DXF"));
    // Esc closes the screen; the position is kept.
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(p.impostazioni.contains("POSIZIONE_FORMx/BV_Dapregeo"));
}

TEST_F(SchermiPregeo, ConfiguraPregeoEParoleDelFormPrincipale) {
    {
        FormConfiguraPregeo form(s);
        form.show();
        EXPECT_EQ(form.windowTitle(), "Versione Pregeo.EXE =  - C:\\windows\\PREGEO.INI");
        form.Editor()->setPlainText(form.Editor()->toPlainText() + "Qualifica=GEOMETRA\n");
        QTest::mouseClick(form.Comando(6), Qt::LeftButton);
        EXPECT_EQ(radice.Leggi("C:\\windows\\PREGEO.INI"),
                  Righe({"[Pregeo]", "DskAPPLexe=C:", "DskAPPLada=C:", "Cognome=Rossi",
                         "Nome=Mario", "Qualifica=GEOMETRA"}));
        EXPECT_EQ(s.amb.RigheIni.last(), "Qualifica=GEOMETRA");
        form.Editor()->setPlainText("perso");
        QTest::mouseClick(form.Comando(7), Qt::LeftButton);
        EXPECT_TRUE(form.Editor()->toPlainText().endsWith("Qualifica=GEOMETRA\n"));
        QTest::mouseClick(form.Comando(13), Qt::LeftButton);
        EXPECT_EQ(p.Messaggi().last(), "Configura Pregeo: Creato Collegamento sul DeskTop");
        QTest::mouseClick(form.Comando(0), Qt::LeftButton);
        EXPECT_FALSE(form.isVisible());
    }
    // The command words and the main form's entries: each modal screen is closed as it shows.
    BV_LibrettoOriginale form(s);
    QStringList aperti;
    QTimer chiudi;
    QObject::connect(&chiudi, &QTimer::timeout, [&] {
        if (QWidget* w = QApplication::activeModalWidget()) {
            aperti << w->metaObject()->className();
            w->close();
        }
    });
    chiudi.start(20);
    EseguiComando(s, "CONFIGURA_PREGEO", "", &form);
    EseguiComando(s, "UNARVO2", "", &form);
    form.Voce("Utilità", "Grafica Pregeo > DXF")->trigger();
    for (QPushButton* b : form.PannelloUtilita()->findChildren<QPushButton*>())
        if (b->text() == "Configura Pregeo" || b->text() == "Tecnici") b->click();
    EXPECT_EQ(aperti, (QStringList{"tavolet::FormConfiguraPregeo", "tavolet::BV_Dapregeo",
                                   "tavolet::FormConfiguraPregeo"}));
}
