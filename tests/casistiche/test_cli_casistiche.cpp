// The casistica and proposta commands of tavolet-cli.
#include "supporto.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet::test;

namespace {} // namespace

TEST(CliCasistiche, ListaDxfEProposte) {
    QTemporaryDir dir;
    RadiceProva radice;
    radice.PregeoMinimo();
    radice.Scrivi("C:\\pregeo\\estratti\\particella_123.EMP",
                  Dati("casistiche/particella_123.EMP"));

    const Esito lista =
        Esegui(radice.Percorso(), {"casistica", "lista", PercorsoDati("casistiche/lista_cad.txt"),
                                   dir.filePath("lista.DAT"), "--casistica", "08", "--mappali",
                                   "123", "--estratto", "particella_123.EMP"});
    EXPECT_EQ(lista.codice, 0) << lista.err.toStdString();
    EXPECT_EQ(LeggiFile(dir.filePath("lista.DAT")), Dati("casistiche/lista_cad.DAT"));
    EXPECT_EQ(LeggiFile(dir.filePath("lista.EMP")), Dati("casistiche/lista_cad.EMP"));
    EXPECT_TRUE(lista.err.contains("L'area del nuovo fabbricato supera i 20 mq"));

    const Esito dxf =
        Esegui(radice.Percorso(), {"casistica", "dxf", PercorsoDati("casistiche/disegno_rc_nc.dxf"),
                                   dir.filePath("dxf.DAT")});
    EXPECT_EQ(dxf.codice, 0) << dxf.err.toStdString();
    EXPECT_EQ(LeggiFile(dir.filePath("dxf.DAT")), Dati("casistiche/disegno_rc_nc.DAT"));
    EXPECT_EQ(LeggiFile(dir.filePath("dxf.EMP")), Dati("casistiche/disegno_rc_nc.EMP"));

    const Esito binario =
        Esegui(radice.Percorso(), {"casistica", "dxf", PercorsoDati("casistiche/bin_dxf_r12.dxf"),
                                   dir.filePath("bin.DAT")});
    EXPECT_EQ(binario.codice, 1);
    EXPECT_TRUE(binario.err.contains("DXF binario"));
    EXPECT_FALSE(QFile::exists(dir.filePath("bin.DAT")));

    const Esito vuoto =
        Esegui(radice.Percorso(),
               {"casistica", "dxf", PercorsoDati("casistiche/usa.dxf"), dir.filePath("usa.DAT")});
    EXPECT_EQ(vuoto.codice, 1);
    EXPECT_TRUE(vuoto.err.contains("Nessun dato trovato in memoria!"));

    // Exploded and imploded back: the wrapped rows again.
    QFile f(dir.filePath("anelli.txt"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("7|12|1*|2*|3*|4*|5*|6*|7*|8*|9*|10*|RC|5+|5|30|\r\n7|0|11*|1*|RC|\r\n");
    f.close();
    EXPECT_EQ(Esegui(radice.Percorso(), {"proposta", "esplodi", dir.filePath("anelli.txt"),
                                         dir.filePath("esplosi.txt")})
                  .codice,
              0);
    EXPECT_EQ(LeggiFile(dir.filePath("esplosi.txt")),
              "7|12|1*|2*|3*|4*|5*|6*|7*|8*|9*|10*|11*|1*|5+|5|30|\r\n");
    QFile g(dir.filePath("tipizzati.txt"));
    ASSERT_TRUE(g.open(QIODevice::WriteOnly));
    g.write("7|12|1*|2*|3*|4*|5*|6*|7*|8*|9*|10*|11*|1*|RC|5+|5|30|\r\n");
    g.close();
    EXPECT_EQ(Esegui(radice.Percorso(), {"proposta", "implodi", dir.filePath("tipizzati.txt"),
                                         dir.filePath("impl.txt")})
                  .codice,
              0);
    EXPECT_EQ(LeggiFile(dir.filePath("impl.txt")),
              "7|12|1*|2*|3*|4*|5*|6*|7*|8*|9*|10*|RC|5+|5|30|\r\n7|0|11*|1*|RC|\r\n");
}
