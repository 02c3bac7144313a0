// The screens of the fiducial points on a small root with a TAF, a province file and a .DDD:
// the browser and its grid, the plot, the import into the libretto, the choice of the archive.
#include "BV_ElcoPFGrafica.h"
#include "BV_ElcoPf.h"
#include "BV_ElcoPfGriglia.h"
#include "BV_LibrettoOriginale.h"
#include "BV_SelezionaMisurate.h"
#include "BV_StampaGenerale.h"
#include "EseguiComando.h"
#include "FormImportaFiduciali.h"
#include "Grafica.h"
#include "fiduciali.h"
#include "schermi.h"
#include "supporto.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QInputDialog>
#include <QItemSelectionModel>
#include <QLabel>
#include <QTableView>
#include <QTimer>

#include <functional>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// Runs fai on the first modal window of kind T that opens (within five seconds).
template <class T> void QuandoSiApre(std::function<void(T*)> fai) {
    auto* timer = new QTimer;
    auto prove = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, [timer, fai, prove] {
        auto* w = qobject_cast<T*>(QApplication::activeModalWidget());
        if (!w && ++*prove < 250) return;
        timer->stop();
        timer->deleteLater();
        if (w) fai(w);
    });
    timer->start(20);
}

struct SchermiFiduciali : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        CreaAlberoCartelle(s);
        radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
        radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", Dati("fiduciali/PD2020.DDD"));
        radice.Scrivi("C:\\fiducial\\DATI\\PD2015.DDD", "");
        radice.Scrivi("C:\\pregeo\\arch\\PADOVA.TXT",
                      Righe({"|A|001|D3AB| ABANO TERME |", "|G|224|D3PD|PADOVA|"}));
    }
    QStringList Scelti(const TabellaPF& t) const {
        QStringList c;
        for (const RecordPF& r : t.record)
            if (r.selezionato) c << r.codice;
        return c;
    }
};

// The canvas pixel of a world point of the plot.
QPoint Pixel(BV_ElcoPFGrafica& f, double est, double nord) {
    const VistaGrafica& v = *f.Disegno()->Modello().Vista;
    const double a = AltezzaEffettiva(v);
    const double w = f.Tela()->width(), h = f.Tela()->height();
    return QPoint(qRound(w / 2 + (est - v.CentroX) * h / a),
                  qRound(h / 2 - (nord - v.CentroY) * h / a));
}

void ClicSulPunto(BV_ElcoPFGrafica& f, const RecordPF& r) {
    QTest::mouseClick(f.Tela(), Qt::LeftButton, {}, Pixel(f, r.est, r.nord));
}

} // namespace

TEST_F(SchermiFiduciali, ElencoProvinceComuniEGriglia) {
    BV_ElcoPf form(s);
    form.show();
    const int padova = Voci(form.FileProvince()).indexOf("PADOVA.TXT");
    ASSERT_GE(padova, 0);
    Clic(form.FileProvince(), padova);
    EXPECT_EQ(form.Provincia(), "PADOVA.TXT");
    EXPECT_EQ(Voci(form.Comuni()),
              QStringList({"|A|001|D3AB| ABANO TERME |", "|G|224|D3PD|PADOVA|"}));

    // PADOVA has no TAF: no grid, no message.
    form.SelezionaComune(1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(p.eventi.isEmpty());

    // ABANO TERME: its grid opens as a dialog.
    QStringList etichette;
    QuandoSiApre<BV_ElcoPfGriglia>([&](BV_ElcoPfGriglia* g) {
        for (int i = 0; i < 3; ++i) etichette << g->Etichetta(i)->text();
        g->close();
    });
    Clic(form.Comuni(), 0);
    EXPECT_EQ(etichette, QStringList({"Provincia di PADOVA.TXT", "Comune di ABANO TERME A001",
                                      "PF Totali 8"}));
    form.grab().save("/tmp/bv_elcopf.png");
}

TEST_F(SchermiFiduciali, GrigliaColonneStampaEMonografia) {
    BV_ElcoPfGriglia g(s, "PADOVA.TXT", "ABANO TERME", "A001", LeggiTafComune(s, "A001"));
    g.resize(1400, 420);
    g.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&g));
    QHeaderView* testata = g.Tabella()->horizontalHeader();
    // Widths in halves of the base unit: 2, 1/2, 1/2, 3/2, 3/2, 4, 1/2, 1, 4, 2; a heading wider
    // than its share widens its column, so that no heading is cut.
    const int u = g.UnitaBase();
    const QList<int> quote{2 * u, u / 2, u / 2, 3 * u / 2, 3 * u / 2,
                           4 * u, u / 2, u,     4 * u,     2 * u};
    for (int c = 0; c < 10; ++c)
        EXPECT_EQ(testata->sectionSize(c), std::max(quote[c], testata->sectionSizeHint(c))) << c;

    // The three first points, chosen from the third up.
    for (int r : {2, 0, 1})
        g.Tabella()->selectionModel()->select(g.Tabella()->model()->index(r, 0),
                                              QItemSelectionModel::Select |
                                                  QItemSelectionModel::Rows);
    // The columns reach the print screen, header first.
    QStringList stampate;
    QString titolo;
    QuandoSiApre<BV_StampaGenerale>([&](BV_StampaGenerale* f) {
        stampate = f->TestoRighe();
        titolo = f->windowTitle();
        f->close();
    });
    g.Voce("Stampa_selezione")->trigger();
    const QString stelo = s.amb.CartellaLavoro + "\\temp\\Stampa_TAF";
    EXPECT_EQ(stampate, RigheDiTesto(LeggiTesto(stelo + ".TXT")));
    EXPECT_EQ(titolo, "Stampe : Stampa_TAF.TXT");
    g.grab().save("/tmp/bv_elcopfgriglia.png");

    // The monograph of the point double-clicked, on the registry's page.
    const QRect cella = g.Tabella()->visualRect(g.Tabella()->model()->index(3, 0));
    QTest::mouseClick(g.Tabella()->viewport(), Qt::LeftButton, {}, cella.center());
    QTest::mouseDClick(g.Tabella()->viewport(), Qt::LeftButton, {}, cella.center());
    EXPECT_EQ(p.eventi.last().testo, "https://www1.agenziaentrate.gov.it/servizi/Monografie/"
                                     "risultato.php?comune=A001&co=PF05/012A/A001");
    // mnuMonografie sends the installing word, which has no entry here: nothing happens.
    const int eventi = int(p.eventi.size());
    g.findChild<QAction*>("mnuMonografie")->trigger();
    EXPECT_EQ(p.eventi.size(), eventi);
    EXPECT_EQ(s.ErroriMostrati, 0);

    // "&Grafica" opens the plot on the grid's points.
    int punti = 0;
    QuandoSiApre<BV_ElcoPFGrafica>([&](BV_ElcoPFGrafica* f) {
        punti = f->Tabella().Conta();
        f->close();
    });
    g.Voce("&Grafica")->trigger();
    EXPECT_EQ(punti, 8);
}

TEST_F(SchermiFiduciali, GraficaSelezioniEComandi) {
    // The grid's codes without the point in national coordinates, which is far from the others.
    QStringList codici;
    for (const RigaTaf& r : LeggiTafComune(s, "A001"))
        if (r.Codice() != "PF07/0140/A001") codici << r.Codice();
    BV_ElcoPFGrafica f(s, "A001", codici);
    f.resize(1100, 760);
    f.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f));
    TabellaPF& t = f.Tabella();
    ASSERT_EQ(t.Conta(), 7);
    Premi(f.Pulsante("Tutti"));
    EXPECT_EQ(f.Disegno()->Modello().Punti[0].Colore, 12); // the selected in red
    Premi(f.Pulsante("Inverti"));
    EXPECT_EQ(f.Disegno()->Modello().Punti[0].Colore, 9);

    // A click selects the nearest point, another click on it takes it away; the pointer over a
    // point shows its code and the scale, with two selected their distance.
    ClicSulPunto(f, t.record[1]);
    EXPECT_EQ(Scelti(t), QStringList({"PF02/0100/A001"}));
    Premi(f.Pulsante("Stampa Lista PF Selezionati"));
    EXPECT_TRUE(EsisteFile(s.amb.CartellaLavoro + "\\temp\\Stampa_Fiduciali.TXT"));
    ClicSulPunto(f, t.record[1]);
    ClicSulPunto(f, t.record[2]);
    ClicSulPunto(f, t.record[0]);
    QTest::mouseMove(f.Tela(), Pixel(f, t.record[0].est, t.record[0].nord));
    const QString stato = f.TestoStato()->text();
    EXPECT_TRUE(stato.contains(" Scala : ")) << stato.toStdString();
    EXPECT_TRUE(stato.contains("PF01/0100/A001")) << stato.toStdString();
    EXPECT_TRUE(stato.contains("420.215 / -354.480 / 225.665")) << stato.toStdString();

    // "Intorno" the point last clicked (PF01), 450 metres; "Foglio", one of the table's sheets.
    QuandoSiApre<QInputDialog>([](QInputDialog* d) {
        d->setDoubleValue(450);
        d->accept();
    });
    Premi(f.Pulsante("Intorno"));
    EXPECT_EQ(t.Selezionati(), 4);
    QStringList fogli;
    QuandoSiApre<QInputDialog>([&](QInputDialog* d) {
        fogli = d->comboBoxItems();
        d->setTextValue("012A");
        d->accept();
    });
    Premi(f.Pulsante("Foglio"));
    EXPECT_EQ(fogli, QStringList({"0100", "012A", "0150"}));
    EXPECT_EQ(Scelti(t), QStringList({"PF05/012A/A001", "PF12/012A/A001"}));
    p.eventi.clear();
    Premi(f.Pulsante("Monografia PF Selezionato"));
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_TRUE(p.eventi[0].testo.endsWith("comune=A001&co=PF05/012A/A001"));

    // The measures of the archive between PF01, PF02, PF03 and PF05 drawn, then the exports.
    Premi(f.Pulsante("Nessuno"));
    for (int i : {0, 1, 2, 3}) ClicSulPunto(f, t.record[i]);
    Premi(f.Pulsante("Mostra Misurate"));
    EXPECT_EQ(f.Disegno()->Modello().ContaLinee(), 3);
    Premi(f.Pulsante("Copia nel Disegno i PF Selezonati"));
    EXPECT_EQ(p.Messaggi().last(), "Copia PF in Disegno: PF copiati!");
    f.grab().save("/tmp/bv_elcopfgrafica.png");
    p.risposte << Risposta::Si;
    Premi(f.Pulsante("Salva in DXF"));
    EXPECT_EQ(LeggiByte(s.amb.CartellaLavoro + "\\GraficaPF.DXF"), Dati("fiduciali/GraficaPF.DXF"));
    EXPECT_EQ(p.Domande().last(), "Apertura file DXF : Aprire il file DXF ?");
    EXPECT_TRUE(p.eventi.last().testo.endsWith("GraficaPF.DXF"));
    Premi(f.Pulsante("Copia Schermo"));
    EXPECT_EQ(p.Messaggi().last(), "Copia Schermo: Contenuto Schermo copiato negli Appunti!");
    EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
    // The print file of the plot, then Print.exe on it.
    Premi(f.Pulsante("Anteprima di Stampa Grafica"));
    EXPECT_EQ(("\r\n" + LeggiTesto(s.amb.CartellaProgramma + "\\Stampe.TXT")).count("\r\nL,"), 3);
    EXPECT_TRUE(p.eventi.last().titolo.endsWith("print.exe", Qt::CaseInsensitive))
        << p.eventi.last().titolo.toStdString();
}

TEST_F(SchermiFiduciali, ImportaFiducialiDalFormPrincipale) {
    radice.Scrivi("C:\\Libretti\\PF.DAT",
                  Righe({"0|15032024|245|A001|0100|125|ROSSI MARIO|GEOMETRA|PADOVA|",
                         "9|8|10|20|1540|10.00-G,STDA 2.08|18|STAZIONE TOTALE|", "1|100|1.550|",
                         "2|PF03/0100/A001|123.4567|99.8765|210.432|1.500|",
                         "2|PF01/0100/A001|56.7890|100.3456|180.102|1.500|",
                         "8|PF09/0150/A001|1.000|2.000|SF|"}));
    BV_LibrettoOriginale form(s);
    ASSERT_TRUE(form.Carica("C:\\Libretti\\PF.DAT"));
    form.show();
    auto righe = [&] { return Voci(form.Lista()); };
    const QStringList prima = righe();
    ASSERT_EQ(prima.size(), 6);

    // Closed without importing: nothing changes.
    QuandoSiApre<FormImportaFiduciali>([](FormImportaFiduciali* f) { Premi(f->Comando(1)); });
    form.Voce("Modifica Libretto", "Importa Fiduciali da TAF")->trigger();
    EXPECT_EQ(righe(), prima);

    QStringList elenco, conQuote;
    QuandoSiApre<FormImportaFiduciali>([&](FormImportaFiduciali* f) {
        elenco = Voci(f->Lista());
        f->Quote()->click(); // ticking the box reads the TAF anew, with the heights
        conQuote = Voci(f->Lista());
        Premi(f->Comando(2)); // the installing word: nothing here
        f->grab().save("/tmp/form_importa_fiduciali.png");
        Premi(f->Comando(0));
    });
    form.Voce("Modifica Libretto", "Importa Fiduciali da TAF")->trigger();
    EXPECT_EQ(elenco.size(), 2);
    ASSERT_EQ(conQuote.size(), 4);
    EXPECT_EQ(conQuote[3], "8|PF03/0100/A001|11.980|04|Base Spigolo|");
    // The old row 8 is gone, the four new ones close the libretto, the document follows.
    QStringList attese = prima.mid(0, 5);
    attese << conQuote;
    EXPECT_EQ(righe(), attese);
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), attese);

    // One step of undo brings the old rows back, and redo the new ones.
    form.AnnullaComando();
    EXPECT_EQ(righe(), prima);
    form.RipetiComando();
    EXPECT_EQ(righe(), attese);

    // The distances of the libretto's fiducials and of a row 8 double-clicked still reach the
    // archive.
    p.eventi.clear();
    form.Voce("Utilità", "Info Misurate PF")->trigger();
    bool browser = false;
    QuandoSiApre<BV_ElcoPf>([&](BV_ElcoPf* f) {
        browser = true;
        f->close();
    });
    form.Voce("Utilità", "Archivio Punti Fiduciali TAF")->trigger();
    EXPECT_TRUE(browser);
    const QString misurate = LeggiTesto(PercorsoFileMisurate(s));
    EXPECT_TRUE(misurate.contains("PF01/0100/A001 - PF03/0100/A001 ")) << misurate.toStdString();
    EXPECT_TRUE(misurate.contains("( Media )"));
    Clic(form.Lista(), form.Lista()->count() - 1, true);
    EXPECT_TRUE(LeggiTesto(PercorsoFileMisurate(s)).startsWith("Provincia di : PD2020.DDD"));
}

TEST_F(SchermiFiduciali, SelezionaMisurateDallaParola) {
    QStringList elenco;
    QuandoSiApre<BV_SelezionaMisurate>([&](BV_SelezionaMisurate* f) {
        elenco = Voci(f->Lista());
        Premi(f->Comando(0)); // nothing chosen
        Premi(f->Comando(3));
        f->Lista()->setCurrentRow(0); // PD2015.DDD: deleted after the question
        p.risposte << Risposta::Si;
        Premi(f->Comando(3));
        f->grab().save("/tmp/bv_selezionamisurate.png");
        f->Lista()->setCurrentRow(0);
        Premi(f->Comando(0));
    });
    EseguiComando(s, "SELEZIONA_MISURATE", "", nullptr);
    EXPECT_EQ(elenco, QStringList({"PD2015.DDD", "PD2020.DDD"}));
    EXPECT_EQ(p.Messaggi(), QStringList({"Seleziona archivio: Selezionare un Database!!",
                                         "Seleziona archivio: Selezionare un Database!!"}));
    EXPECT_EQ(p.Domande(),
              QStringList({"Eliminazione Database: Eliminare definitivamente PD2015.DDD ??"}));
    EXPECT_FALSE(EsisteFile("C:\\fiducial\\DATI\\PD2015.DDD"));
    EXPECT_EQ(s.EsitoDialogo, 1);
    EXPECT_EQ(s.doc.NomeMisurate, "PD2020.DDD");

    // Closed by its second command: nothing chosen.
    QuandoSiApre<BV_SelezionaMisurate>([](BV_SelezionaMisurate* f) { Premi(f->Comando(1)); });
    EseguiComando(s, "SELEZIONA_MISURATE", "", nullptr);
    EXPECT_EQ(s.EsitoDialogo, 0);
}
