// The head dialog and the archive screens, clicked by caption on the offscreen platform.
#include "ArchivioPossessori.h"
#include "BV_CodFis.h"
#include "BV_Comuni8.h"
#include "FormCatasto1TXT.h"
#include "schermi.h"
#include "supporto.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// Types a text into a field and leaves it, as the operator does with Tab.
void Digita(QLineEdit* campo, const QString& testo) {
    campo->setFocus();
    campo->clear();
    QTest::keyClicks(campo, testo);
    emit campo->editingFinished();
}

struct SchermiProva : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        CaricaComuni(s);
        CaricaProvince(s);
        CreaAlberoCartelle(s);
        radice.Scrivi("C:\\Lavori\\ATTO.DAT",
                      Righe({"0|15012026|245|G224|0012|145|ROSSI MARIO|GEOMETRA|PADOVA|",
                             "9|8|10|20|1540||FR|STAZIONE TOTALE|", "6|Vecchio|", "1|100|1.5|",
                             "8|1|100|300|", "8|2|50|100|"}));
        ASSERT_TRUE(TrascinaLibretto(s, "C:\\Lavori\\ATTO.DAT"));
        p.eventi.clear();
    }
};

} // namespace

TEST_F(SchermiProva, ConfiguraLibrettoConfermatoDaiPulsanti) {
    FormCatasto1TXT form(s);
    form.show();
    EXPECT_EQ(form.Campo(15)->text(), "Vecchio");
    EXPECT_EQ(form.Combo(2)->currentText(), "FR - Frazionamento");
    // The job's code from its type, the point count from rows 8.
    form.Combo(2)->setCurrentIndex(3);
    emit form.Combo(2)->activated(3);
    EXPECT_EQ(form.Campo(13)->text(), "CM");
    form.Campo(11)->clear();
    Clic(&form, "da Righe &8");
    Digita(form.Campo(15), "Nuovo commento");
    Digita(form.Campo(17), "RSSMRA80A01G224W");
    form.grab().save("/tmp/FormCatasto1TXT.png");
    Clic(&form, "&Conferma");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(s.EsitoDialogo, 1);
    EXPECT_EQ(s.doc.RigheLibretto.Righe().mid(1, 3),
              (QStringList{"9|8|10|20|200|" + kVersionePregeo + "|CM|STAZIONE TOTALE|",
                           "6|conferma|", "6|Nuovo commento|"}));
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join('\n').toStdString();
}

TEST_F(SchermiProva, ArchivioCodiciComuniDalForm) {
    radice.Scrivi("C:\\pregeo\\arch\\VEcomuni.dat", Righe({"VE|L736|x|y|VENEZIA|"}));
    FormCatasto1TXT form(s);
    form.show();
    // The archive opens modally: it is answered as soon as it shows.
    QTimer::singleShot(0, [] {
        auto* c = qobject_cast<BV_Comuni8*>(QApplication::activeModalWidget());
        ASSERT_NE(c, nullptr);
        const auto trovati = c->Province()->findItems("VEcomuni.dat", Qt::MatchExactly);
        ASSERT_EQ(trovati.size(), 1);
        c->Province()->setCurrentItem(trovati[0]);
        emit c->Province()->itemClicked(trovati[0]);
        c->Comuni()->setCurrentRow(0);
        emit c->Comuni()->itemClicked(c->Comuni()->item(0));
        EXPECT_EQ(c->EtichettaComune()->text(), "VENEZIA");
        Clic(c, "Copia Codice &Fiscale");
    });
    Clic(&form, "Archivio Codici Comuni");
    EXPECT_EQ(form.Campo(2)->text(), "L736");
    EXPECT_EQ(s.testata.NomeProvinciaLibretto, "VENEZIA");
}

TEST_F(SchermiProva, CodiciFiscaliEPossessoriCopiatiInLibretto) {
    {
        BV_CodFis form(s);
        form.show();
        EXPECT_EQ(form.Lista()->count(), 3);
        QTest::keyClicks(form.RicercaSinistra(), "ven");
        EXPECT_EQ(form.RicercaSinistra()->text(), "VEN");
        EXPECT_EQ(form.Lista()->currentRow(), 2);
        EXPECT_EQ(form.Codice()->text(), "L736");
        QTest::keyClicks(form.RicercaSinistra(), "x"); // nothing matches: the selection stays
        EXPECT_EQ(form.Lista()->currentRow(), 2);
        QTest::keyClicks(form.RicercaGenerale(), "terme");
        EXPECT_EQ(form.Lista()->currentRow(), 0);
        Clic(&form, "Copia in Libretto");
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(s.testata.CodiceComuneLibretto, "A001");
        EXPECT_EQ(p.appunti, "A001");
    }
    radice.Scrivi("C:\\FIDUCIAL\\VISURE\\A.VIS", Righe({"ROSSI MARIO", "VERDI ANNA"}));
    radice.Scrivi("C:\\FIDUCIAL\\VISURE\\B.DIT", Righe({"6|DITTA|1|BIANCHI,LUCA|PADOVA|"}));
    ArchivioPossessori form(s);
    form.show();
    QTest::keyClicks(form.Cerca(), "bianchi");
    EXPECT_EQ(form.File()->currentRow(), 1);
    EXPECT_EQ(form.TestoFile()->toPlainText(), ""); // nothing chosen yet
    emit form.File()->itemClicked(form.File()->item(0));
    EXPECT_EQ(form.NomeFile()->text(), "A.VIS");
    EXPECT_EQ(form.TestoFile()->toPlainText(), "ROSSI MARIO\nVERDI ANNA\n");
    form.grab().save("/tmp/ArchivioPossessori.png");
    Clic(&form, "Copia in Libretto");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(s.doc.TestoPossessori, "ROSSI MARIO\r\nVERDI ANNA\r\n");
    EXPECT_EQ(s.EsitoDialogo, 1);
}
