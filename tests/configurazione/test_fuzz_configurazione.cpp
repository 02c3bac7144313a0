// Broken files around the head dialog: the technician's record, the default head, the boards,
// the lists, and whatever is typed into the fields. The dialog opens, leaves every field and
// confirms without a crash, and the libretto keeps its rows 0 and 9.
#include "prova_configurazione.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

using FuzzConfigurazione = ConfigurazioneProva;

QByteArray ByteCasuali(QRandomGenerator& g, int massimo) {
    static const QByteArray pezzi[] = {"\"",      ",",
                                       "|",       "\r\n",
                                       "\n",      "\r",
                                       "0",       "9",
                                       "A",       "z",
                                       " ",       "\xE0",
                                       "\xFF",    QByteArray(1, '\0'),
                                       "12,3,12", "<QUOTA>",
                                       "CM",      "99999999999999999999",
                                       "-",       "."};
    QByteArray b;
    const int n = int(g.bounded(massimo + 1));
    for (int i = 0; i < n; ++i) b += pezzi[g.bounded(int(std::size(pezzi)))];
    return b;
}

} // namespace

TEST_F(FuzzConfigurazione, FileGuastiECampiCasuali) {
    QRandomGenerator g(20261123);
    const QString lavoro = s.amb.CartellaLavoroBarra;
    for (int giro = 0; giro < 150; ++giro) {
        radice.Scrivi(PercorsoFileTecnico(s, "ROSSI MARIO"), ByteCasuali(g, 60));
        radice.Scrivi(lavoro + "Catasto1.txt", ByteCasuali(g, 40));
        radice.Scrivi(lavoro + "TIPOLOGIASTRUMENTAZIONE.INI", ByteCasuali(g, 20));
        radice.Scrivi(lavoro + "SALVACOMMENTO.INI", ByteCasuali(g, 20));
        radice.Scrivi("C:\\pregeo\\exe\\collegi.txt", ByteCasuali(g, 80));
        Libretto({"0|15032026|1|G224|0012|1|ROSSI MARIO|GEOMETRA|PADOVA|", "9|0|10|20|0||FR||",
                  QString::fromLatin1(ByteCasuali(g, 10)),
                  "8|PF01/0012/G224|" + QString::number(g.bounded(100000)) + "|1e308|"});
        FormConfigurazione f = ApriConfigurazione(s);
        for (int i = 0; i < kCampiConfigurazione; ++i) {
            if (g.bounded(3) == 0) f.Campi[size_t(i)] = QString::fromLatin1(ByteCasuali(g, 12));
            EsciDalCampo(s, f, i);
        }
        p.risposte = {g.bounded(2) ? Risposta::Si : Risposta::No};
        ConfermaConfigurazione0(s, f);
        const QStringList righe = RigheLista();
        ASSERT_GE(righe.size(), 2) << giro;
        EXPECT_TRUE(righe[0].startsWith("0|")) << giro;
        EXPECT_TRUE(righe[1].startsWith("9|")) << giro;
    }
}
