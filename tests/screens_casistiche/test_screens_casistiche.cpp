// The screen of the cases, the general print screen and the information screens, clicked by
// caption on the offscreen platform.
#include "BV_StampaGenerale.h"
#include "FormInformazioni.h"
#include "Tipol10.h"
#include "casistiche.h"
#include "grafica.h"
#include "schermi.h"
#include "stampa.h"
#include "supporto.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QProcess>
#include <QRadioButton>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Schermi : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        CreaAlberoCartelle(s);
        CreaCartella(s.amb.CartellaProgramma + "\\TEMP");
    }
    QString Temp(const QString& nome) const { return s.amb.CartellaLavoro + "\\TEMP\\" + nome; }
    void Scegli(QWidget* w, const QString& caption) {
        for (QRadioButton* r : w->findChildren<QRadioButton*>())
            if (r->text() == caption) r->setChecked(true);
    }
};

} // namespace

TEST_F(Schermi, Tipol10IncollaConfermaEAnnulla) {
    radice.Scrivi("C:\\pregeo\\estratti\\particella_123.EMP",
                  Dati("casistiche/particella_123.EMP"));
    s.doc.NomeEstratto = "particella_123.EMP";
    s.testata.MappaliLibretto = "123";
    // What the last case left behind goes at the opening; its description comes back.
    radice.Scrivi(Temp("VECCHIO.TXT"), "x");
    radice.Scrivi(Temp("TIPOL08.TXT"), AWindows1252("Fabbricato di modesta entità\r\nin aderenza"));
    {
        Tipol10 form(s, "08");
        EXPECT_EQ(form.Descrizione()->toPlainText(), "Fabbricato di modesta entità\nin aderenza");
        EXPECT_FALSE(EsisteFile(Temp("VECCHIO.TXT")));
        // The extract of the libretto is copied for the plot.
        EXPECT_EQ(radice.Leggi(Temp("MODESTAENTITA.EMP")), Dati("casistiche/particella_123.EMP"));
        p.appunti = QString::fromLatin1(Dati("casistiche/lista_cad.txt"));
        Clic(&form, "Incolla Polilinee da List-CAD");
        EXPECT_EQ(Voci(form.Righe()).join(CRLF) + CRLF,
                  QString::fromLatin1(Dati("casistiche/lista_cad.DAT")));
        // The copy for Pregeo and its fixed companion; 24 square metres are over the limit of a
        // small building.
        EXPECT_EQ(radice.Leggi("C:\\pregeo\\ESTRATTI\\ESTRATTOPROVVISORIO.EMP"),
                  Dati("casistiche/lista_cad.EMP"));
        EXPECT_EQ(radice.Leggi("C:\\pregeo\\ESTRATTI\\ESTRATTOPROVVISORIO.PNG"),
                  QByteArray("8|1|-12571.845|-5882.526|SF|\r\n8|2|-12581.580|-5880.237|SF|\r\n"
                             "6|Contorno fabbricato|\r\n7|2|1|2|RC|\r\n"));
        EXPECT_EQ(p.Messaggi(), QStringList{"Tavolet: L'area del nuovo fabbricato supera i 20 mq"});
        form.Descrizione()->setPlainText("Nuova descrizione");
        Clic(&form, "Conferma");
        EXPECT_EQ(s.EsitoDialogo, 1);
        EXPECT_EQ(s.doc.TestoProposta, QString::fromLatin1(Dati("casistiche/lista_cad.DAT")));
        EXPECT_EQ(radice.Leggi(Temp("TIPOL08.TXT")), "Nuova descrizione");
    }
    // "Annulla": the outcome stays -1 and the temporary files stay.
    Tipol10 form(s, "1000");
    EXPECT_FALSE(EsisteFile(Temp("MODESTAENTITA.EMP"))); // no extract for this case
    p.appunti = "LAYER NC\r\nal punto  X=1.0000  Y=2.0000  Z=   0.0000\r\n"
                "al punto  X=3.0000  Y=4.0000  Z=   0.0000\r\n";
    Clic(&form, "Incolla Polilinee da List-CAD");
    Clic(&form, "Annulla");
    EXPECT_EQ(s.EsitoDialogo, -1);
    EXPECT_TRUE(EsisteFile(Temp("EstrattoProvvisorio.EMP")));
}

TEST_F(Schermi, Tipol10DisegnoDeiContorni) {
    Tipol10 form(s, "1000");
    form.resize(900, 600);
    form.show();
    form.Numero(0)->setText("100");
    form.Numero(1)->setText("5");
    Clic(&form, "Contorno RC");
    EXPECT_EQ(form.Pianta()->Modo(), "CONTORNOROSSO");
    EXPECT_EQ(form.Pianta()->NomePunto(), "105*");
    EXPECT_EQ(form.Numero(0)->text(), "105");
    QString atteso = "LAYER RC\r\n";
    for (auto [x, y] : {std::pair{0, 0}, {6, 0}, {6, 4}, {0, 4}, {0, 0}}) {
        form.Pianta()->ClicMondo(x, y);
        atteso += QString("al punto  X=%1.0000  Y=%2.0000  Z=   0.0000\r\n").arg(x).arg(y);
    }
    Clic(&form, "Termina Contorno");
    EXPECT_TRUE(form.Pianta()->Modo().isEmpty());
    Clic(&form, "Punto Medio");
    EXPECT_EQ(form.Pianta()->NomePunto(), "110*");
    EXPECT_EQ(radice.Leggi(PercorsoContorno(s)), atteso + " \r\n");
    Clic(&form, "Componi Proposta");
    EXPECT_EQ(Voci(form.Righe()),
              (QStringList{"8|1|.000|.000|SF|", "8|2|.000|6.000|SF|", "8|3|4.000|6.000|SF|",
                           "8|4|4.000|.000|SF|", "8|1|.000|.000|SF|", "6|Contorno fabbricato|",
                           "7|5|1|2|3|4|1|RC|"}));
    form.grab().save("/tmp/tipol10_disegno.png");
}

TEST_F(Schermi, StampaGeneraleComandi) {
    s.doc.PercorsoLibretto = "C:\\Libretti\\ROSSI.DAT";
    radice.Scrivi(s.doc.PercorsoLibretto, "");
    radice.Scrivi(CartellaModelli(s) + "\\Relazione.rtf", Dati("stampa/Relazione.rtf"));
    radice.Scrivi(s.amb.CartellaLavoro + "\\CarattereStampa.ini",
                  "12,\"Courier New\",True,False\r\n");
    BV_StampaGenerale form(s, {"RIGA UNO", "RIGA DUE", "RIGA TRE"}, "Elenco.TXT",
                           "C:\\lavoro\\ELENCO");
    EXPECT_EQ(form.Righe()->font().pointSizeF(), 12);
    EXPECT_TRUE(form.Righe()->font().bold());
    EXPECT_EQ(Voci(form.Modelli()), QStringList{"Relazione.rtf"});

    Clic(&form, "Sposta >>");
    EXPECT_EQ(form.TestoRighe()[0], " RIGA UNO");
    Clic(&form, "<< Sposta");
    Clic(&form, "Aggiungi Riga");
    EXPECT_EQ(form.TestoRighe(), (QStringList{"RIGA UNO", "RIGA DUE", " ", "RIGA TRE"}));
    form.Righe()->setCurrentRow(2);
    Clic(&form, "Elimina Riga");
    form.Righe()->setCurrentRow(0);
    Clic(&form, "Elimina Riga"); // the first line stays
    Clic(&form, "Copia");
    EXPECT_EQ(p.appunti, "RIGA UNO\r\nRIGA DUE\r\nRIGA TRE");

    // Template: nothing without a selection, the filled file opened with one.
    p.eventi.clear();
    Clic(&form, "Usa Modello");
    EXPECT_TRUE(p.eventi.isEmpty());
    form.Modelli()->setCurrentRow(0);
    Clic(&form, "Usa Modello");
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_EQ(p.eventi[0].testo, "C:\\Libretti\\ROSSI.DAT_Relazione.rtf");
    EXPECT_TRUE(radice.Leggi("C:\\Libretti\\ROSSI.DAT_Relazione.rtf")
                    .contains("RIGA UNO\\cf1\\line RIGA DUE\\cf1\\line RIGA TRE\\cf1\\line "));

    // "Usa Default" and then "Invia" as CSV: the default program on the .CSV.
    p.impostazioni.insert("Tabulino/VisualizzatoreXLS/Visualizzatore", "C:\\X\\CALC.EXE");
    Clic(&form, "Usa Default");
    EXPECT_EQ(form.findChild<QLabel*>("Visualizzatore")->text(), "Default");
    Scegli(&form, "Come CSV");
    p.eventi.clear();
    Clic(&form, "Invia");
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_EQ(p.eventi[0].tipo, "apriconprogramma");
    EXPECT_EQ(p.eventi[0].testo, "C:\\lavoro\\ELENCO.CSV");

    // The font chosen goes to the list and to the file.
    p.caratteri << Carattere{"Courier New", 9, false, true};
    Clic(&form, "Carattere");
    EXPECT_TRUE(form.Righe()->font().italic());
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\CarattereStampa.ini"),
              "9,\"Courier New\",False,True\r\n");
    form.show();
    form.grab().save("/tmp/stampa_generale.png");
}

TEST_F(Schermi, StampaGeneraleSuPdfEInformazioni) {
    QTemporaryDir dir;
    const QString pdf = dir.filePath("stampa.pdf");
    BV_StampaGenerale::ScegliStampante = [pdf](QPrinter& stampante, QWidget*) {
        stampante.setOutputFormat(QPrinter::PdfFormat);
        stampante.setOutputFileName(pdf);
        return true;
    };
    QStringList righe;
    for (int i = 1; i <= 90; ++i) righe << QStringLiteral("8|%1|-5672.583|-3732.674|SF|").arg(i);
    {
        BV_StampaGenerale form(s, righe, "Punti.TXT");
        Scegli(&form, "Orizzontale");
        form.show();
        Clic(&form, "Stampa");
        EXPECT_FALSE(form.isVisible()); // printing closes the screen
    }
    EXPECT_TRUE(LeggiFile(pdf).startsWith("%PDF"));
    // The folders of this root in the information screen; OK closes it.
    FormInformazioni form(s);
    const QString testo = form.Testo()->toPlainText();
    EXPECT_TRUE(testo.contains(s.amb.CartellaLavoro + "\\MODELLI_STAMPA"));
    form.show();
    Clic(&form, "&OK");
    EXPECT_FALSE(form.isVisible());
    FormAutore autore(s);
    EXPECT_TRUE(autore.findChild<QLabel*>("Testo")->text().startsWith(TestoAutore().left(20)));

    QProcess q;
    q.start("pdftotext", {"-layout", pdf, "-"});
    if (!q.waitForFinished(20000) || q.exitStatus() != QProcess::NormalExit || q.exitCode() != 0)
        GTEST_SKIP() << "pdftotext (poppler-utils) non installato";
    const QString stampato = QString::fromUtf8(q.readAllStandardOutput());
    for (const QString& r : righe) EXPECT_TRUE(stampato.contains(r)) << r.toStdString();
    EXPECT_GE(stampato.count('\f'), 2); // landscape: more than one page for 90 lines
}
