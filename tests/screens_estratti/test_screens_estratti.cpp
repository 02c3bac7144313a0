// The archive of extracts, clicked by caption on the offscreen platform: its commands, the sum,
// Completa Autoallestito on the selected extract, the extract from a DXF, and Esporta GeoPackage
// read back by GDAL's own ogrinfo as a GIS user would.
#include "BV_EstrattiDiMappa1.h"
#include "BV_SommaEstratti.h"
#include "BV_StampaGenerale.h"
#include "CompletaAutoallestito.h"
#include "Grafica.h"
#include "casistiche.h"
#include "schermi.h"
#include "supporto.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

void Seleziona(BV_EstrattiDiMappa1& f, const QString& nome) {
    const auto voci = f.Lista()->findItems(nome, Qt::MatchFixedString);
    ASSERT_FALSE(voci.isEmpty()) << nome.toStdString();
    f.Lista()->setCurrentItem(voci.first());
}

void Filtro(BV_EstrattiDiMappa1& f, const QString& caption) {
    for (QRadioButton* r : f.findChildren<QRadioButton*>())
        if (r->text() == caption) r->setChecked(true);
}

// The count the line under the plot gives, or -1.
int ParticelleScritte(Grafica* g, const QString& file) {
    const QRegularExpression re("^(\\d+) particelle scritte in " +
                                QRegularExpression::escape(file));
    for (QLabel* l : g->findChildren<QLabel*>())
        if (const auto m = re.match(l->text()); m.hasMatch()) return m.captured(1).toInt();
    return -1;
}

const QString kCartella = "C:\\pregeo\\estratti\\";

} // namespace

struct SchermoEstratti : ConPregeo {};

TEST_F(SchermoEstratti, EsempiTestaComandiEPng) {
    p.adesso = QDateTime(QDate(2024, 5, 15), QTime(12, 0));
    s.doc.NomeEstratto = "F120.EMP";
    {
        // An empty folder gets the two sample extracts.
        BV_EstrattiDiMappa1 f(s);
        EXPECT_EQ(Voci(f.Lista()), (QStringList{"ESTRATTO.emp", "ESTRATTO1.emp"}));
        EXPECT_EQ(f.windowTitle(), "Gestione Estratti di Mappa - Estratto Associato = F120.EMP");
    }
    radice.Scrivi(kCartella + "F120.EMP", Dati("estratti/realistico.EMP"));
    radice.Scrivi(kCartella + "F120.PNG", Dati("estratti/realistico.PNG"));
    CreaCartella(s.amb.CartellaLavoro + "\\TEMP");
    ScriviTesto(s.amb.CartellaLavoro + "\\TEMP\\TavoAnte1.png", "x");
    BV_EstrattiDiMappa1 f(s);
    f.resize(1100, 700);
    Seleziona(f, "F120.EMP");
    EXPECT_EQ(f.Campo("comune")->text().left(4), "A001");
    EXPECT_EQ(f.Campo("foglio")->text(), "00120");
    EXPECT_EQ(f.Campo("data")->text(), "Rilasciato il 15-03-2024");
    EXPECT_EQ(f.Campo("validita")->text(), "L'Estratto scade tra    -4 mesi");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
    f.show();
    EXPECT_TRUE(f.grab().save("/tmp/estratti_archivio.png"));

    // Guards of the commands, then a duplicate with its questions.
    f.Lista()->setCurrentRow(-1);
    Clic(&f, "Duplica Estratto");
    EXPECT_EQ(p.eventi.last().testo, "Selezionare un estratto!");
    Seleziona(f, "F120.EMP");
    Clic(&f, "Duplica Estratto");
    EXPECT_EQ(p.eventi.last().testo, "Nuovo nome Estratto!");
    f.nuovoNome->setText("COPIA");
    p.risposte = {Risposta::Si};
    Clic(&f, "Duplica Estratto");
    EXPECT_EQ(radice.Leggi(kCartella + "COPIA.EMP"), Dati("estratti/realistico.EMP"));
    EXPECT_EQ(f.Selezionato(), "COPIA.EMP");
    Filtro(f, "PNG");
    EXPECT_EQ(Voci(f.Lista()), (QStringList{"COPIA.PNG", "F120.PNG"}));
    Filtro(f, "SMP");
    EXPECT_TRUE(Voci(f.Lista()).contains("F120.SMP"));
    Filtro(f, "EMP");

    // A parcel renamed in the rings, then removed; the copy deleted.
    Seleziona(f, "COPIA.EMP");
    f.particella->setText("257");
    f.particellaNuova->setText("300");
    p.risposte = {Risposta::Si};
    Clic(&f, "Rinomina Particella");
    EXPECT_EQ(p.eventi.last().testo, "Rinominare la Particella 257 in 300 ?");
    EXPECT_TRUE(radice.Leggi(kCartella + "COPIA.EMP").contains("|NC|300|300|"));
    p.risposte = {Risposta::Si};
    Clic(&f, "Elimina Estratto");
    EXPECT_EQ(p.eventi.last().testo, "Eliminare Estratto : \r\n\r\nCOPIA.* ?? ");
    EXPECT_FALSE(Voci(f.Lista()).contains("COPIA.EMP"));

    Seleziona(f, "F120.EMP");
    Clic(&f, "Associa Estratto");
    EXPECT_EQ(s.doc.NomeEstratto, "F120.EMP");
    Clic(&f, "Verifica Estratti");
    // "Stampa EMP": the rows of the extract in the print screen.
    QStringList stampate;
    QTimer::singleShot(0, [&] {
        if (auto* st = qobject_cast<BV_StampaGenerale*>(QApplication::activeModalWidget())) {
            stampate = st->TestoRighe();
            st->close();
        }
    });
    Clic(&f, "Stampa EMP");
    EXPECT_EQ(stampate, LeggiRighe(kCartella + "F120.EMP"));
    EXPECT_FALSE(stampate.isEmpty());
    f.close();
    EXPECT_FALSE(EsisteFile(s.amb.CartellaLavoro + "\\TEMP\\TavoAnte1.png"));
}

TEST_F(SchermoEstratti, SommaDiDueEstratti) {
    radice.Scrivi(kCartella + "A.EMP",
                  "0|15032024|P|A001|00120|1|PD|0|0|0|\r\n8|1%|0|0|\r\n"
                  "8|2%|0|10|\r\n8|3%|10|10|\r\n7|4|1%|2%|3%|1%|NC|1|1|50|\r\n");
    radice.Scrivi(kCartella + "A.PNG", "png");
    radice.Scrivi(kCartella + "B.EMP",
                  "0|15032024|P|A001|00121|1|PD|0|0|0|\r\n8|1%|10|10|\r\n"
                  "8|2%|20|10|\r\n8|3%|20|20|\r\n7|4|1%|2%|3%|1%|NC|2|2|50|\r\n");
    BV_SommaEstratti f(s, "A.EMP");
    f.resize(900, 600);
    Clic(&f, "Conferma");
    EXPECT_EQ(p.eventi.last().testo, "Selezionare l'Estratto da Aggiungere");
    f.Lista()->setCurrentRow(1); // B.EMP
    Clic(&f, "Conferma");
    EXPECT_EQ(p.eventi.last().testo, "Inserire il Nome dell'Estratto Risultante");
    f.show();
    EXPECT_TRUE(f.grab().save("/tmp/estratti_somma.png"));
    f.Nome()->setText("AB");
    Clic(&f, "Conferma");
    EXPECT_EQ(f.Risultato(), "AB.emp");
    EXPECT_EQ(radice.Leggi(kCartella + "AB.PNG"), "png");
    EXPECT_EQ(LeggiTesto(kCartella + "AB.emp").count("\r\n8|"), 5);
}

TEST_F(SchermoEstratti, CompletaAutoallestitoDallArchivioEstratti) {
    const QString emp = kCartella + "AUTO.EMP";
    radice.Scrivi(emp, "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n8|1%|0|0|\r\n8|2%|0|10|\r\n"
                       "8|3%|10|10|\r\n7|4|1%|2%|3%|1%|NC|1|1|50|\r\n");
    radice.Scrivi(kCartella + "AUTO.PNG", "png");
    s.testata.TipologiaRilievo = "22";
    BV_EstrattiDiMappa1 f(s);
    for (const char* nome : {"", "AUTO.PNG"}) {
        f.Lista()->setCurrentItem(f.Lista()->findItems(nome, Qt::MatchFixedString).value(0));
        Clic(&f, "Completa Autoallestito");
        EXPECT_EQ(p.eventi.last().testo, "Selezionare un Estratto!");
    }
    Seleziona(f, "AUTO.EMP");
    QTimer::singleShot(0, [&] {
        auto* c = qobject_cast<CompletaAutoallestito*>(QApplication::activeModalWidget());
        ASSERT_NE(c, nullptr);
        EXPECT_EQ(c->windowTitle(), "Completa Autoallestito - AUTO.EMP");
        ASSERT_EQ(c->Lista()->count(), 1);
        Clic(c, "ENTE URBANO");
        EXPECT_EQ(p.eventi.last().testo, "Selezionare una particella!");
        c->Lista()->setCurrentRow(0);
        c->superficie->setText("250,4"); // rounded to the square metre
        Clic(c, "ENTE URBANO");          // the libretto's job type 22 makes it FABB PROMIS
        c->foglio->setText("12");
        c->RicalcolaAutoAllestito();
        EXPECT_TRUE(c->grab().save("/tmp/completa_autoallestito.png"));
        Clic(c, "Salva");
        c->reject();
    });
    Clic(&f, "Completa Autoallestito");
    EXPECT_EQ(LeggiTesto(emp).section("\r\n", 0, 0), "0|AUTOALLESTITO|0|0|00012|1|0|0|0|0|");
    EXPECT_TRUE(LeggiTesto(emp).endsWith("\r\n6|PARTICELLA|1|00|FABB PROMIS |250|250|||SN|\r\n"));
    EXPECT_EQ(f.Campo("foglio")->text(), "00012"); // the head shown again
}

TEST_F(SchermoEstratti, EstrattoDaDxf) {
    radice.Scrivi(kCartella + "F120.EMP", Dati("estratti/realistico.EMP"));
    radice.Scrivi("C:\\Rilievi\\rc_nc.dxf", Dati("casistiche/disegno_rc_nc.dxf"));
    radice.Scrivi("C:\\Rilievi\\binario.dxf", Dati("casistiche/bin_dxf_r12.dxf"));
    BV_EstrattiDiMappa1 f(s);
    Seleziona(f, "F120.EMP");

    // The dialog cancelled: its message, the list as it was.
    Clic(&f, "Estratto da DXF");
    EXPECT_EQ(p.Messaggi().value(0), "Seleziona Editor: Nessuna File selezionato!");
    EXPECT_EQ(Voci(f.Lista()), QStringList{"F120.EMP"});
    EXPECT_EQ(f.Selezionato(), "F120.EMP");

    // A binary DXF is refused and nothing is written.
    p.eventi.clear();
    p.fileDaAprire = {"C:\\Rilievi\\binario.dxf"};
    Clic(&f, "Estratto da DXF");
    EXPECT_EQ(p.Messaggi(), QStringList{"Importa Polilinee da DXF: " + kDxfBinario});
    EXPECT_FALSE(EsisteFile(kCartella + "ESTRATTOPROVVISORIO.EMP"));

    // Layers RC and NC: the provisional extract, selected in the list and plotted.
    p.eventi.clear();
    p.fileDaAprire = {"C:\\Rilievi\\rc_nc.dxf"};
    Clic(&f, "Estratto da DXF");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
    EXPECT_EQ(radice.Leggi(kCartella + "ESTRATTOPROVVISORIO.EMP"),
              Dati("casistiche/disegno_rc_nc.EMP"));
    EXPECT_EQ(f.Selezionato(), "ESTRATTOPROVVISORIO.EMP");
    EXPECT_EQ(f.Campo("autoallestito")->text(), "AUTOALLESTITO");
    EXPECT_GT(f.grafica()->Modello().ContaPunti(), 0);
    EXPECT_GT(f.grafica()->Modello().ContaLinee(), 0);
}

TEST_F(SchermoEstratti, EsportaGeoPackageDallArchivioEDalMenuDellaGrafica) {
    radice.Scrivi(kCartella + "F120.EMP", Dati("estratti/realistico.EMP"));
    CreaCartella("C:\\GIS");
    BV_EstrattiDiMappa1 f(s);
    f.Lista()->setCurrentRow(-1);
    Clic(&f, "Esporta GeoPackage");
    EXPECT_EQ(p.eventi.last().testo, "Selezionare un estratto!");

    Seleziona(f, "F120.EMP");
    p.eventi.clear();
    p.fileDaSalvare = {"C:\\GIS\\F120.gpkg"};
    Clic(&f, "Esporta GeoPackage");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
    ASSERT_EQ(p.eventi.value(0).tipo, "salva");
    EXPECT_EQ(p.eventi.value(0).titolo, "Esporta GeoPackage");
    EXPECT_EQ(p.eventi.value(0).testo, "|F120.gpkg");
    const int n = ParticelleScritte(f.grafica(), "C:\\GIS\\F120.gpkg");
    ASSERT_GT(n, 0);
    EXPECT_TRUE(radice.Leggi("C:\\GIS\\F120.gpkg").startsWith(QByteArray("SQLite format 3\0", 16)));

    // The same from the plot's right-click menu, on the extract it shows.
    QAction* azione = nullptr;
    for (QMenu* m : f.grafica()->findChildren<QMenu*>())
        for (QAction* a : m->actions())
            if (a->text() == "Esporta GeoPackage") azione = a;
    ASSERT_NE(azione, nullptr);
    p.fileDaSalvare = {"C:\\GIS\\MENU.gpkg"};
    azione->trigger();
    EXPECT_EQ(ParticelleScritte(f.grafica(), "C:\\GIS\\MENU.gpkg"), n);

    const QString ogrinfo = QStandardPaths::findExecutable("ogrinfo");
    if (ogrinfo.isEmpty()) GTEST_SKIP() << "ogrinfo (gdal-bin) non installato: lettura saltata";
    QProcess pr;
    pr.start(ogrinfo, {"-so", PercorsoLocale("C:\\GIS\\MENU.gpkg"), "particelle"});
    ASSERT_TRUE(pr.waitForFinished(60000));
    const QString uscita = QString::fromUtf8(pr.readAllStandardOutput());
    EXPECT_TRUE(uscita.contains(QStringLiteral("Feature Count: %1").arg(n)))
        << uscita.toStdString();
}
