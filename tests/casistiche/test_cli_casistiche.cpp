// The casistica and proposta commands of tavolet-cli.
#include "supporto.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet::test;

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

    const Esito vuoto = Esegui(radice.Percorso(),
                               {"casistica", "dxf", PercorsoDati("casistiche/Leica_Disto_S910.dxf"),
                                dir.filePath("leica.DAT")});
    EXPECT_EQ(vuoto.codice, 1);
    EXPECT_TRUE(vuoto.err.contains("Nessun dato trovato in memoria!"));

    // Exploded and imploded back: the wrapped rows again.
    const QByteArray avvolte =
        "7|12|1*|2*|3*|4*|5*|6*|7*|8*|9*|10*|RC|5+|5|30|\r\n7|0|11*|1*|RC|\r\n";
    const QByteArray esplose = "7|12|1*|2*|3*|4*|5*|6*|7*|8*|9*|10*|11*|1*|5+|5|30|\r\n";
    for (const auto& [parola, da, a] :
         {std::tuple("esplodi", avvolte, esplose),
          std::tuple("implodi", QByteArray(esplose).replace("1*|5+", "1*|RC|5+"), avvolte)}) {
        radice.Scrivi("C:\\p\\da.txt", da);
        const QString uscita = dir.filePath(QString(parola) + ".txt");
        EXPECT_EQ(Esegui(radice.Percorso(),
                         {"proposta", parola, radice.Percorso() + "/drive_c/p/da.txt", uscita})
                      .codice,
                  0);
        EXPECT_EQ(LeggiFile(uscita), a) << parola;
    }
}
