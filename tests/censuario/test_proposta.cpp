// EsplodiAreeProposta: the two passes over the Proposta and its exchange files.
#include "supporto_censuario.h"

#include <QFile>

using namespace tavolet;
using namespace tavolet::test;

TEST(Proposta, SenzaRigaAggiornataFileVuoti) {
    const QString testo = "6|ESTRATTO DI MAPPA|\r\n7|5|1%|2%|3%|4%|1%|NC|35|35|100|\r\n";
    const AreeProposta a = AreeDaProposta(testo);
    EXPECT_TRUE(a.aree.isEmpty());
    EXPECT_TRUE(a.modello.isEmpty());
    EXPECT_TRUE(AreeDaProposta(QString()).aree.isEmpty());
}

TEST_F(ConCensuario, IlDoppioDiPonticelloLasciaLaPropostaEIFileSiScrivono) {
    // A scripted double of the helper, mapped as the settings map the real one.
    const QString destinazione =
        PercorsoLocale(s.amb.CartellaLavoro + "\\TEMP\\ESPORTA_PROPOSTA.txt");
    CreaCartella(s.amb.CartellaLavoro + "\\TEMP");
    const QString script = radice.Percorso() + "/ponticello.sh";
    radice.Scrivi(script, QString("#!/bin/sh\n[ \"$1\" = ESPORTA_TUTTO ] || exit 3\ncp '%1' '%2'\n")
                              .arg(PercorsoDati("censuario/proposta.txt"), destinazione)
                              .toUtf8());
    p.impostazioni[kSezioneProgrammi + "/PONTICELLO.EXE"] = "/bin/sh " + script;
    p.esegui = AvviaProcessoHost;
    Libretto();
    EsplodiAreeProposta(s);
    // The areas and the model as Pregeo wants them (also through the command line): BBB's
    // parent 99 has no area and takes the one of the row before; the parts with "+" never
    // reach the files; an outline of area 0 is passed over.
    EXPECT_EQ(s.ErroriMostrati, 0);
    ASSERT_FALSE(p.eventi.isEmpty());
    EXPECT_EQ(p.eventi.first().tipo, "avvia");
    EXPECT_TRUE(p.eventi.first().testo.contains(" ESPORTA_TUTTO 26123"));
    const QByteArray aree = radice.Leggi(PercorsoCensuario(s, kFileAree));
    EXPECT_EQ(aree, Dati("censuario/aree_attese.txt"));
    EXPECT_EQ(radice.Leggi(PercorsoCensuario(s, kFileModello)),
              Dati("censuario/modello_atteso.txt"));
    // TempProposta: the text as read plus one further line end.
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\TEMP\\TempProposta"),
              Dati("censuario/proposta.txt") + "\r\n");
}

TEST_F(ConCensuario, SenzaPonticelloIFileEsistonoVuoti) {
    EsplodiAreeProposta(s);
    QStringList aree = {"x"};
    EXPECT_TRUE(LeggiAreeCensuario(s, aree));
    EXPECT_TRUE(aree.isEmpty());
    EXPECT_TRUE(LeggiModelloCensuario(s).isEmpty());
}
