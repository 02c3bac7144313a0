// The kept versions of a libretto from the command line: listed newest first, restored byte
// for byte.
#include "sul_demo.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

TEST_F(SulDemo, StoricoElencatoERipristinato) {
    const QString atto = radice.path() + "/drive_c/Libretti/ATTO.DAT";
    // Three saves over ATTO.DAT: the two documents it held before are kept.
    QList<QByteArray> salvati;
    for (int i = 0; i < 3; ++i) {
        const QString in =
            Scrivi(QString("in%1.dat").arg(i),
                   QString("0|01012026|%1|||||||\r\n1|10%1|1.5|\r\n").arg(i).toLatin1());
        ASSERT_EQ(Esegui({"libretto", "salva", in, atto}).codice, 0);
        salvati << LeggiFile(atto);
    }
    const Esito elenco = Esegui({"storico", "elenco", atto});
    ASSERT_EQ(elenco.codice, 0) << elenco.err.toStdString();
    const QStringList righe = elenco.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(righe.size(), 2) << elenco.out.toStdString();
    EXPECT_TRUE(righe[0].startsWith("1\t21/11/2026 ")) << righe[0].toStdString();
    EXPECT_TRUE(righe[1].startsWith("2\t")) << righe[1].toStdString();
    EXPECT_TRUE(righe[0].contains("\\Documents\\Tavolet\\Storico_Libretti\\ATTO.DAT~"));
    // The rows the version shows once loaded: its lines but the tag rows.
    const int mostrate = int(QString::fromLatin1(salvati[1])
                                 .split("\r\n", Qt::SkipEmptyParts)
                                 .filter(QRegularExpression("^(?!6\\|<)"))
                                 .size());
    EXPECT_TRUE(
        righe[0].contains(QString("\t%1 righe\t%2 byte").arg(mostrate).arg(salvati[1].size())))
        << righe[0].toStdString();

    // Version 1 is the newest kept: the bytes of the second save; 2 those of the first.
    const QString out = radice.path() + "/ripristinato.dat";
    for (int n : {1, 2}) {
        const Esito e = Esegui({"storico", "ripristina", atto, QString::number(n), out});
        ASSERT_EQ(e.codice, 0) << e.err.toStdString();
        EXPECT_EQ(LeggiFile(out), salvati[2 - n]);
    }
    const Esito troppo = Esegui({"storico", "ripristina", atto, "3", out});
    EXPECT_EQ(troppo.codice, 2);
    EXPECT_TRUE(troppo.err.contains("inesistente")) << troppo.err.toStdString();
}
