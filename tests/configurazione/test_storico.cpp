#include "protezioni.h"
#include "prova_configurazione.h"
#include "storico.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

using StoricoProva = ConfigurazioneProva;

QStringList Versioni(const Stato& s) {
    return QDir(PercorsoLocale(CartellaStorico(s))).entryList(QDir::Files);
}

} // namespace

TEST_F(StoricoProva, NuovoAnnullatoEChiusoSiRecupera) {
    const QByteArray originale = Righe({"0|15032026|245|G224|0012|145|ROSSI MARIO|GEOMETRA|PADOVA|",
                                        "9|8|10|20|1540||FR|STAZIONE TOTALE|", "1|100|1.5|",
                                        "6|<EST>|", "6|<COD>|", "6|<ISC>|"});
    radice.Scrivi("C:\\Lavori\\ATTO.DAT", originale);
    ASSERT_TRUE(TrascinaLibretto(s, "C:\\Lavori\\ATTO.DAT"));
    // Saving the same bytes keeps no version.
    ScriviLibrettoMisure(s);
    EXPECT_TRUE(Versioni(s).isEmpty());

    // "Nuovo", "Annulla", then the close: the new document belongs to no file, so the close
    // asks where to write it and the old file stays as it was.
    NuovoLibretto(s);
    EXPECT_TRUE(ChiusuraProgramma(s));
    EXPECT_EQ(p.eventi.last().tipo, "salva");
    EXPECT_EQ(radice.Leggi("C:\\Lavori\\ATTO.DAT"), originale);
    EXPECT_TRUE(Versioni(s).isEmpty());

    // Saved over the old file on purpose, its bytes are kept.
    s.doc.PercorsoLibretto = "C:\\Lavori\\ATTO.DAT";
    ChiusuraProgramma(s);
    EXPECT_NE(radice.Leggi("C:\\Lavori\\ATTO.DAT"), originale);
    const QStringList v = Versioni(s);
    ASSERT_EQ(v, QStringList{"ATTO.DAT~20260115-103000"});
    EXPECT_EQ(radice.Leggi(CartellaStorico(s) + "\\" + v[0]), originale);

    // Ten versions of a name are kept, the oldest go; another name has its own.
    for (int i = 0; i < 12; ++i) {
        s.doc.TestoLibretto = QString("0|%1|\r\n").arg(i);
        ScriviLibrettoMisure(s);
    }
    radice.Scrivi("C:\\Altro\\ATTO2.DAT", "X\r\n");
    s.doc.PercorsoLibretto = "C:\\Altro\\ATTO2.DAT";
    ScriviLibrettoMisure(s);
    const QStringList tutte = Versioni(s);
    EXPECT_EQ(tutte.size(), 11);
    EXPECT_EQ(tutte.filter("ATTO.DAT~").size(), 10);
    EXPECT_EQ(tutte.filter("ATTO2.DAT~"), QStringList{"ATTO2.DAT~20260115-103000"});
    // The newest version holds the bytes of the save before the last one.
    EXPECT_EQ(radice.Leggi(CartellaStorico(s) + "\\" + tutte.filter("ATTO.DAT~").last()),
              QByteArray("0|10|\r\n") + "6|<EST>|\r\n6|<COD>|\r\n6|<ISC>|\r\n");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join('\n').toStdString();
}
