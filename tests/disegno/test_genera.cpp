// GeneraLibrettoMisureAutomatico on small drawings, one stage each (the realistic survey is
// compared with its libretto by the command line and the screen, and recomputed below).
#include "aiuto_disegno.h"

namespace tavolet::test {

namespace {

// Two stations and their lines, for the small drawings of the cases below.
const QString kBase = "P,100,0,0,10,,1.5\r\nP,200,100,0,10,,1.5\r\nL,0,0,0,100,0,0\r\n";

QStringList Tipo(const QStringList& righe, int tipo) {
    QStringList r;
    for (const QString& x : righe)
        if (TipoRiga(x) == tipo) r << x;
    return r;
}

} // namespace

TEST_F(Generazione, PuntoCoincidenteEPuntoSenzaDistanza) {
    const QStringList r =
        Genera(kBase + "P,101,0,0,10,COINCIDENTE,1.5\r\nP,102,30,40,12,,-1.2\r\n");
    EXPECT_TRUE(p.Messaggi().contains("Punti Coincidenti: Il punto 101 è coincidente con la "
                                      "stazione.\r\nNon verrà inserito nel Libretto"));
    // The row stays, with distance 0 and no zenith angle.
    EXPECT_TRUE(r.contains("2|101|100.000|0.000|1.50|COINCIDENTE|")) << r.join("\n").toStdString();
    // H below 0: zenith angle from abs(H), distance "0.000", no target height.
    EXPECT_TRUE(r.contains("2|102|340.9665|97.8365|0.000|Note:|")) << r.join("\n").toStdString();
}

TEST_F(Generazione, ContorniMarcatoriEDieciUndiciNomi) {
    QString lxc = kBase;
    for (int i = 1; i <= 11; ++i)
        lxc += QStringLiteral("P,%1,%2,5,10,V,1.5\r\n").arg(100 + i).arg(i * 3);
    lxc += "7,|MAPPALE 12|,SOLO MARCATORE,\r\n"
           "7,|101|102|103|104|105|106|107|108|109|110|,DIECI,\r\n"
           "7,|101|102|103|104|105|106|107|108|109|110|111|MAPPALE 7 A|,UNDICI,\r\n"
           "7,|101|0|102|,ZERO,\r\n"
           "7,|101|102|,ZERO,\r\n";
    o.CommentiDuplicati = true;
    const QStringList r = Genera(lxc);
    const QStringList sette = Tipo(r, 7);
    // Only a marker: its row of count 0 gives the number to the comment before it, which then
    // has three fields and goes on regrouping. Ten names one row; eleven two.
    EXPECT_FALSE(r.join("\n").contains("SOLO MARCATORE")) << r.join("\n").toStdString();
    EXPECT_FALSE(r.join("\n").contains("MAPPALE 12"));
    EXPECT_TRUE(sette.contains("7|10|101|102|103|104|105|106|107|108|109|110|"));
    EXPECT_TRUE(sette.contains("7|11|101|102|103|104|105|106|107|108|109|110|MAPPALE 7 A|"));
    EXPECT_TRUE(sette.contains("7|0|111|MAPPALE 7 A|"));
    // "0" is a marker: it closes the row; the comment of an equal type stands once.
    EXPECT_TRUE(sette.contains("7|2|101|0|")) << sette.join("\n").toStdString();
    EXPECT_EQ(r.count("6|ZERO|"), 1);
}

TEST_F(Generazione, EtichetteDeiPuntiERighe8) {
    const QStringList r = Genera(kBase + "P,101,10,10,11,spigolo <8q>,1.5\r\n"
                                         "P,102,20,10,11,palo <pv>,1.5\r\n"
                                         "P,103,30,10,11,CHIODO [P.A.],1.5\r\n"
                                         "P,104,40,10,11,,1.5\r\n",
                                 {"0|x|", "9|20|10|20|15|V|18|T|", "8|77|1|2|3|X|"});
    const QStringList otto = Tipo(r, 8);
    // The tag is found in any case, but only the upper-case one leaves the note.
    EXPECT_TRUE(otto.contains("8|101|11.000|04|spigolo <8q>|")) << otto.join("\n").toStdString();
    EXPECT_TRUE(otto.contains("8|103|10.000|30.000|CHIODO [P.A.]|"));
    EXPECT_FALSE(Tipo(r, 7).join("").contains("PV")); // "<pv>" is not the tag
    EXPECT_FALSE(otto.join("").contains("8|77|"));
    // No row 8 of more than four fields: row 9 stays as it was.
    EXPECT_EQ(r[1], "9|20|10|20|15|V|18|T|");

    // Keeping the old rows 8: they come back, the tags add theirs.
    o.Mantieni8 = true;
    EXPECT_TRUE(Tipo(Genera(kBase, {"0|x|", "9|20|10|20|15|V|18|T|", "8|77|1|2|3|X|"}), 8)
                    .contains("8|77|1|2|3|X|"));
}

TEST_F(Generazione, TafLettaSoloSenzaSpunta) {
    const QString lxc = kBase + "P,PF01/0100/A001,50,50,10,PF,1.5\r\nL,0,0,0,50,50,0\r\n";
    EXPECT_EQ(Tipo(Genera(lxc), 8).size(), 2);
    o.PFDaEstratto = true; // the tick leaves the TAF alone
    EXPECT_TRUE(Tipo(Genera(lxc), 8).isEmpty());
}

TEST_F(Generazione, PoligonaleDiUndiciNomiEQuadri) {
    QString lxc = kBase;
    QString nomi = "|";
    for (int i = 1; i <= 11; ++i) {
        lxc += QStringLiteral("P,%1,%2,50,10,,1.5\r\n").arg(i * 1000).arg(i * 10);
        nomi += QString::number(i * 1000) + "|";
    }
    lxc += "7," + nomi + ",POLIGONALE,\r\n";
    lxc += "7,|100|200|101|,SQUADRO,*V*\r\nP,101,50,20,10,SP,1.5\r\n";
    lxc += "7,|100|200|101|,COGO,\r\n";
    lxc += "7,|100|200|,LIVELLAZIONE DAL MEZZO,\r\n";
    const QStringList r = Genera(lxc);
    EXPECT_TRUE(r.contains("3|11|1000|2000|3000|4000|5000|6000|7000|8000|9000|10000|"));
    EXPECT_TRUE(r.contains("3|0|11000|"));
    EXPECT_TRUE(r.contains("4|100|200|0.00|*V* Note: |")) << r.join("\n").toStdString();
    // B is the first point of the offsets; 101 lies left of the base: a negative offset.
    EXPECT_TRUE(r.contains("5|200|100.00|0.00|Note: |"));
    EXPECT_TRUE(r.contains("5|101|50.00|-20.00|SP|"));
    EXPECT_TRUE(r.contains("4|100|200|50|Note: |"));
    EXPECT_TRUE(r.contains("5|101|53.852|0|SP|"));
    EXPECT_TRUE(r.contains("4|200|100|-50|SP|"));
    EXPECT_TRUE(r.contains("4|100|200|1.523|1.523|Liv dal Mezzo|"));
}

} // namespace tavolet::test
