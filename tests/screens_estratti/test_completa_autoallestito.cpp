// "Completa Autoallestito" opened from the archive of extracts on the selected extract.
#include "BV_EstrattiDiMappa1.h"
#include "CompletaAutoallestito.h"
#include "libretto.h"
#include "schermi.h"
#include "supporto.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

TEST_F(ConPregeo, CompletaAutoallestitoDallArchivioEstratti) {
    const QString emp = "C:\\pregeo\\estratti\\AUTO.EMP";
    radice.Scrivi(emp, "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n8|1%|0|0|\r\n8|2%|0|10|\r\n"
                       "8|3%|10|10|\r\n7|4|1%|2%|3%|1%|NC|1|1|50|\r\n");
    radice.Scrivi("C:\\pregeo\\estratti\\AUTO.PNG", "png");
    s.testata.TipologiaRilievo = "22";
    BV_EstrattiDiMappa1 f(s);
    for (const char* nome : {"", "AUTO.PNG"}) {
        f.Lista()->setCurrentItem(f.Lista()->findItems(nome, Qt::MatchFixedString).value(0));
        Clic(&f, "Completa Autoallestito");
        EXPECT_EQ(p.eventi.last().testo, "Selezionare un Estratto!");
    }
    f.Lista()->setCurrentItem(f.Lista()->findItems("AUTO.EMP", Qt::MatchFixedString).value(0));
    QTimer::singleShot(0, [&] {
        auto* c = qobject_cast<CompletaAutoallestito*>(QApplication::activeModalWidget());
        ASSERT_NE(c, nullptr);
        EXPECT_EQ(c->windowTitle(), "Completa Autoallestito - AUTO.EMP");
        c->Lista()->setCurrentRow(0);
        c->superficie->setText("250");
        Clic(c, "ENTE URBANO"); // the libretto's job type 22 makes it FABB PROMIS
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
