#include "form_demo.h"
#include "libretto.h"
#include "piattaforma_finta.h"
#include "riordino.h"
#include "supporto.h"

#include <QDir>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct FormPrincipale : FormSuDemo {
    QString Etichetta(const QString& inizio) const {
        for (QLabel* l : form->findChildren<QLabel*>())
            if (l->text().startsWith(inizio)) return l->text();
        return QString();
    }
};

} // namespace

TEST_F(FormPrincipale, ApreIlLibrettoDemoConTitoloEContatore) {
    Apri();
    const QString titolo = "Tavolet V 5.00 - L'Evoluzione - Libretto Misure : [245 15032024] "
                           "[CF Comune : G693 - PIOVE DI SACCO] [Provincia : PADOVA]";
    EXPECT_EQ(form->windowTitle(), titolo);
    const int righe = form->Lista()->count();
    EXPECT_EQ(righe, 24);
    EXPECT_EQ(form->Contatore()->text(), QString("0 / %1").arg(righe));
    EXPECT_EQ(Etichetta("Estratto : "), "Estratto : G693_0012.EMP");
    EXPECT_EQ(Etichetta("Pregeo 10-G,STDA "), "Pregeo 10-G,STDA ");
    EXPECT_EQ(Etichetta("Nome del file : "), "Nome del file : C:\\LIBRETTI\\ESEMPIO.DAT");
    EXPECT_EQ(form->findChild<QLineEdit*>("CodiceFiscaleTecnico")->text(), "BNCLCU70A01G224Q");
    EXPECT_EQ(form->findChild<QPlainTextEdit*>("TestoPossessori")->toPlainText(),
              "ROSSI MARIO NATO A PADOVA IL 01/01/1950\nVERDI ANNA PROPRIETA' PER 1/2\n");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();

    // A click on the fourth row moves the counter; the title stays right.
    QListWidget* lista = form->Lista();
    const QRect r = lista->visualItemRect(lista->item(3));
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, r.center());
    EXPECT_EQ(form->Contatore()->text(), QString("4 / %1").arg(righe));
    EXPECT_EQ(form->windowTitle(), titolo);
    EXPECT_TRUE(s.doc.RigheLibretto.Selezionata(3));

    // The fiscal code is upper-cased as it is typed.
    QLineEdit* cf = form->findChild<QLineEdit*>("CodiceFiscaleTecnico");
    cf->clear();
    QTest::keyClicks(cf, "rssmra");
    EXPECT_EQ(cf->text(), "RSSMRA");
    EXPECT_EQ(s.doc.CodiceFiscaleTecnico, "RSSMRA");

    form->grab().save(QDir::tempPath() + "/tavolet_libretto_originale.png");
}

TEST_F(FormPrincipale, SalvaEChiusuraScrivonoIlFile) {
    ASSERT_TRUE(form->Carica("C:\\Libretti\\ESEMPIO.DAT"));
    form->show();
    const QByteArray originale = radice.Leggi("C:\\Libretti\\ESEMPIO.DAT");
    QPushButton* salva = form->Pulsante("Salva");
    ASSERT_NE(salva, nullptr);
    EXPECT_EQ(salva->toolTip(), "Salva Libretto");
    QTest::mouseClick(salva, Qt::LeftButton);
    // The demo libretto is stored as the writer writes it: saved untouched, its bytes stay.
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\ESEMPIO.DAT"), originale);
    EXPECT_EQ(form->statusBar()->currentMessage(), "Salvato C:\\LIBRETTI\\ESEMPIO.DAT");

    form->findChild<QPlainTextEdit*>("TestoPossessori")->setPlainText("bianchi luca");
    form->close();
    const QByteArray dopo = radice.Leggi("C:\\Libretti\\ESEMPIO.DAT");
    EXPECT_TRUE(dopo.endsWith("6|<ISC>1234|\r\n6|<DIT>BIANCHI LUCA|\r\n\r\n"))
        << dopo.right(80).toStdString();
    EXPECT_EQ(p.Impostazione("FORMx", "BV_LibrettoOriginale"), QString::number(form->width()));
}

TEST_F(FormPrincipale, TrascinareFileSullaLista) {
    ASSERT_TRUE(form->Carica(""));
    EXPECT_EQ(form->Lista()->count(), 2);
    EXPECT_EQ(form->Contatore()->text(), "0 / 2");
    radice.Scrivi("C:\\Altro\\B.TXT",
                  "0|01012025|9|L736B|0001|1|A B|G|PADOVA|\r\n9|1|\r\n1|1|\r\n2|3|\r\n");

    // A real drop event on the list: only the first file counts.
    QMimeData dati;
    dati.setUrls(
        {QUrl::fromLocalFile(PercorsoLocale("C:\\Altro\\B.TXT")), QUrl::fromLocalFile("/x.doc")});
    EXPECT_TRUE(form->TrascinaDati(&dati));
    QTest::qWait(10);
    EXPECT_EQ(p.Domande(), QStringList{"Trascina Libretto: Sostituire il Libretto Esistente?"});
    EXPECT_EQ(form->Lista()->count(), 4);
    EXPECT_EQ(form->Contatore()->text(), "0 / 4");
    EXPECT_TRUE(
        form->windowTitle().contains("[CF Comune : L736B - VENEZIA MURANO] [Provincia : VENEZIA]"));

    form->Trascina("/tmp/disegno.DXF");
    form->Trascina("/tmp/foto.jpg");
    EXPECT_EQ(p.Messaggi(),
              (QStringList{"Trascina Libretto: Processo non attivo!",
                           "Trascina Libretto: Ammessi file di Testo: .TXT, .DAT, .LXB, .PDF"}));
    EXPECT_EQ(form->Lista()->count(), 4);
}

TEST_F(FormPrincipale, EstrattoSullaRigaDiComando) {
    radice.Scrivi("C:\\Scaricati\\G693_0012.EMP",
                  radice.Leggi("C:\\pregeo\\estratti\\A001_00120.EMP"));
    Apri("\"C:\\Scaricati\\g693_0012.emp\"");
    EXPECT_EQ(radice.Leggi("C:\\pregeo\\estratti\\G693_0012.EMP"),
              radice.Leggi("C:\\Scaricati\\G693_0012.EMP"));
    ASSERT_FALSE(p.Messaggi().isEmpty());
    EXPECT_TRUE(p.Messaggi().last().startsWith(
        "Copia Estratto in Pregeo: Copiato nella cartella Estratti!\r\n"))
        << p.Messaggi().last().toStdString();
    EXPECT_EQ(s.doc.NomeEstratto, "G693_0012.EMP");
    EXPECT_EQ(Etichetta("Estratto : "), "Estratto : G693_0012.EMP");
    // No libretto was opened: the form shows the new document of rows 0 and 9.
    EXPECT_EQ(s.doc.PercorsoLibretto, "");
    EXPECT_EQ(form->Lista()->count(), 2);
}
