// The split of a libretto into its groups: each libretto of tests/dati/riordino/esplodi_*.dat
// against the groups, the Proposta and the messages written in the file of the same name.
//  regole: the first rule that holds takes the row (a comma in field 2 makes GPS, in field 3
//    a station; a comment of 75 characters stays, of 76 is lost; 70 make a censuary row);
//  relazione: without its end marker the Relazione runs to the end of the text;
//  proposta: the rows between two markers are both Proposta and classified;
//  stazioni, gps: the points sorted by name right-aligned behind the orientation;
//  censuario: the count of the model (the title row is one too many; 9e9999999 an error 6).
#include "libretto.h"
#include "piattaforma_finta.h"
#include "riordino.h"
#include "supporto.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

TEST(Esplodi, GruppiDeiLibrettiComeAttesi) {
    const QStringList gruppi = {"Riga0",     "Riga9",     "Commento", "Appunti",  "Poligonali",
                                "GPS",       "Stazioni",  "Righe45",  "Contorni", "Relazione",
                                "Fiduciali", "Censuario", "Proposta", "Sospesi"};
    for (const QString caso : {"regole", "relazione", "proposta", "stazioni", "gps", "censuario",
                               "censuario_titolo", "censuario_assurdo"}) {
        SCOPED_TRACE(caso.toStdString());
        PiattaformaFinta p;
        Stato s(p);
        s.doc.TestoLibretto = DaWindows1252(Dati("riordino/esplodi_" + caso + ".dat"));
        const GruppiLibretto g = EsplodiLibretto(s);
        QString testo = QStringLiteral("completo %1\r\n").arg(g.completo);
        for (int i = 0; i < gruppi.size(); ++i)
            if (!g.Lista(Gruppo(i)).isEmpty())
                testo += "[" + gruppi[i] + "]\r\n" + g.Lista(Gruppo(i)).join(CRLF) + CRLF;
        testo += "[TestoProposta]\r\n" + s.doc.TestoProposta + "[Messaggi]\r\n" +
                 p.Messaggi().join(CRLF) + CRLF;
        const QString atteso = "riordino/esplodi_" + caso + ".txt";
        if (qEnvironmentVariableIsSet("TAVOLET_RIGENERA")) {
            QFile f(PercorsoDati(atteso));
            if (f.open(QIODevice::WriteOnly)) f.write(AWindows1252(testo));
        }
        EXPECT_EQ(testo, DaWindows1252(Dati(atteso)));
    }
}
