// The act's check: one fault at a time on the demo's act, good work from the generators and the
// golden files without a false alarm, generated acts, and the command line.
#include "controllo.h"
#include "generatore_atto.h"
#include "libretto.h"
#include "supporto.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <random>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// "CODICE@riga" of the findings of that severity.
QStringList Codici(const QList<Rilievo>& rilievi, const QString& gravita = kErrore) {
    QStringList c;
    for (const Rilievo& r : rilievi)
        if (r.gravita == gravita) c << r.codice + u'@' + QString::number(r.riga);
    return c;
}

struct SulDemo : ::testing::Test {
    RadiceProva radice;
    PiattaformaFinta p;
    Stato s{p};
    QStringList demo;
    void SetUp() override {
        CopiaDemo(radice.Percorso());
        Inizializza(s);
        CaricaConfig(s);
        p.adesso = QDateTime(QDate(2024, 3, 20), QTime(9, 0));
        s.doc.PercorsoLibretto = "C:\\Libretti\\ESEMPIO.DAT";
        CaricaLibrettoMisure(s);
        CaricaLibrettoInList1(s);
        demo = s.doc.RigheLibretto.Righe();
        p.eventi.clear();
    }
    QList<Rilievo> Controlla(const QStringList& righe) {
        s.doc.RigheLibretto.Svuota();
        for (const QString& r : righe) s.doc.RigheLibretto.Aggiungi(r);
        return ControllaAtto(s);
    }
};

TEST_F(SulDemo, OgniDifettoDaIlSuoCodiceESuaRiga) {
    ASSERT_EQ(demo.size(), 24);
    const QList<Rilievo> pulito = Controlla(demo);
    EXPECT_EQ(Codici(pulito), QStringList());
    EXPECT_EQ(Codici(pulito, kAvviso), (QStringList{"RELAZIONE@0", "DATA_PASSATA@1"}));
    EXPECT_TRUE(p.eventi.isEmpty());

    const QString blu(17, u' '), tecnico = "|BIANCHI LUCA|GEOMETRA|PADOVA|";
    struct Caso {
        int riga; // 1-based; negative: inserted before that row
        QString testo;
        QStringList attesi;
    };
    const QList<Caso> casi = {
        {1, "0|15132024|245|G693|0012|145,146" + tecnico, {"DATA@1"}},
        {1, "0|15032025|245|G693|0012|145,146" + tecnico, {"DATA_FUTURA@1"}},
        {1, "0|15032024|24A|G693|0012|145,146" + tecnico, {"PROTOCOLLO@1"}},
        {1, "0|15032024|245|Z999|0012|145,146" + tecnico, {"COMUNE@1", "ESTRATTO_COMUNE@1"}},
        {1, "0|15032024|245|G693|012|145,146" + tecnico, {"FOGLIO@1", "ESTRATTO_FOGLIO@1"}},
        {1, "0|15032024|245|G693|0012|145;146" + tecnico, {"MAPPALI@1", "ESTRATTO_MAPPALE@1"}},
        {1, "0|15032024|245|G693|0012|145,147" + tecnico, {"ESTRATTO_MAPPALE@1"}},
        {2, "9|8|10|20|15.40|10.00-G,STDA 2.08|18|STAZIONE TOTALE|", {"RIGA9@2"}},
        {3, "0|15032024|245|G693|0012|145,146" + tecnico, {"RIGA0@3"}},
        {3, "X|Frazionamento|", {"TIPO@3"}},
        {3, "6|Frazionamento ≈ 145|", {"CARATTERE@3"}},
        {5, "2|200|0.0000|98.76x54|85.321|1.500|", {"MISURA@5"}},
        {7, "2|1|245.6789|100.1234|32.118|1.500", {"BARRA@7"}},
        {-15, "1|300|1.500|", {"STAZIONE_VUOTA@15"}},
        {-16, "7|0|1|RC|", {"SETTE_SEGUITO@16"}},
        {16, "7|5|1|2|3|4|RC|", {"SETTE_CONTA@16"}},
        {16, "7|11|1|2|3|4|5|1|2|3|4|5|1|RC|", {"SETTE_DIECI@16"}},
        {17, "7|4|1|5|3|9|N|", {"PUNTO_IGNOTO@17"}},
        {-18, "7|0|1|RT|", {"SETTE_CONTA@17", "SETTE_TIPO@18"}},
        {19, "8|PF05/0120/G693|-1388.102|30x21.775|SF|", {"COORDINATE@19"}},
        {-20, "8|PF03/0120/G693|-1523.956|2864.221|SF|", {"DOPPIO_8@20"}},
        {21, "6|51FTP|004|" + QString(57, u' ') + "|", {"CEN_CONTA@21"}},
        {23, "6|C|     |000|a |145  |000001460|SN|  |     |001|2 |" + blu + "|", {"CEN_AREE@22"}},
        {24, "6|C|     |000|b |145  |000000900|SN|  |     |001|2 |" + blu + "|", {"CEN_ID@24"}},
        {-25, "6|S|145  |000|  |     |000000000|", {"CEN_LUNGHEZZA@25"}},
    };
    for (const Caso& c : casi) {
        QStringList righe = demo;
        if (c.riga > 0)
            righe[c.riga - 1] = c.testo;
        else
            righe.insert(-c.riga - 1, c.testo);
        EXPECT_EQ(Codici(Controlla(righe)), c.attesi) << c.testo.toStdString();
    }

    // The technician, the extract and the archive.
    s.doc.CodiceFiscaleTecnico = "BNCLCU70A01G224X";
    EXPECT_EQ(Codici(Controlla(demo)), QStringList{"CF@0"});
    s.doc.CodiceFiscaleTecnico = "BNCLCU70A01G224Q";
    s.doc.NomeEstratto = "G693_0099.EMP";
    EXPECT_EQ(Codici(Controlla(demo)), QStringList{"ESTRATTO_ASSENTE@0"});
    s.doc.NomeEstratto = "G693_0012.EMP";
    p.adesso = QDateTime(QDate(2024, 9, 15), QTime(9, 0));
    EXPECT_TRUE(Codici(Controlla(demo), kAvviso).contains("ESTRATTO_IN_SCADENZA@0"));
    p.adesso = QDateTime(QDate(2024, 10, 1), QTime(9, 0));
    EXPECT_EQ(Codici(Controlla(demo)), QStringList{"ESTRATTO_SCADUTO@0"});
    p.adesso = QDateTime(QDate(2024, 3, 20), QTime(9, 0));
    // PF03 half a metre north of its record, PF05 not in the archive.
    QString taf =
        QString::fromLatin1(radice.Leggi("C:\\fiducial\\DATI\\A001.TAF")).section("\r\n", 0, 0);
    taf.replace(0, 5, "G693 ").replace(7, 3, "012").replace(11, 1, "0").replace(15, 2, "03");
    taf.replace(101, 12, QString::number(-1523.956, 'f', 3).rightJustified(12));
    taf.replace(114, 12, QString::number(2864.221, 'f', 3).rightJustified(12));
    radice.Scrivi("C:\\fiducial\\DATI\\G693.TAF", taf.toLatin1() + "\r\n");
    const QStringList avvisi = Codici(Controlla(demo), kAvviso);
    EXPECT_TRUE(avvisi.contains("PF_TAF@18") && avvisi.contains("PF_ASSENTE@19"))
        << avvisi.join(' ').toStdString();
    EXPECT_TRUE(p.eventi.isEmpty()) << "the check shows nothing by itself";
}

// What the generators write (their outputs are these golden files, byte for byte) and the other
// golden libretti: no Errore but the faults each really has.
TEST_F(SulDemo, NessunFalsoAllarmeSulLavoroBuono) {
    const QString cf = "CF@0";                  // a fiscal code whose check letter is wrong
    const QString senza = "ESTRATTO_ASSENTE@0"; // it names an extract this tree does not hold
    const QList<std::pair<QString, QStringList>> attesi = {
        {"disegno/RILIEVO.TXT", {}},
        // The building's ring of the CAD list is wrapped with "NC" on its first row and "RC" on
        // its "7|0|" row, as the list's reader composes it.
        {"casistiche/lista_cad.DAT", {"SETTE_TIPO@22"}},
        {"casistiche/disegno_rc_nc.DAT", {}},
        // "7|101|102|103|101|": the outline pasted without its count.
        {"pregeo/coordinate.dat", {senza, "SETTE_CONTA@8"}},
        {"riordino/completo.dat", {cf, senza}},
        {"riordino/completo_riordinato.dat", {cf, senza}},
        // "1|100|1.5|" and then only a row 8.
        {"configurazione/confermato.dat", {senza, "STAZIONE_VUOTA@4"}},
        // Foglio 012A and parcels 3, 12 against the demo's extract of foglio 0012, 145 and 146.
        {"configurazione/conferma_esempio.dat",
         {"ESTRATTO_FOGLIO@1", "ESTRATTO_MAPPALE@1", "ESTRATTO_MAPPALE@1"}},
        {"cli/salva_esempio.dat", {}},
        {"censuario/libretto.dat", {}},
        // The input of the load and save test: an empty angle, a row 8 without coordinates.
        {"libretto/ingresso.dat", {cf, "MISURA@6", "COORDINATE@10", "COORDINATE@10"}},
        {"libretto/salvato.dat", {cf, "MISURA@5", "COORDINATE@8", "COORDINATE@8"}},
        {"libretto/senza_ditte.dat", {"STAZIONE_VUOTA@3"}},
    };
    p.adesso = QDateTime(QDate(2026, 12, 1), QTime(9, 0));
    for (const auto& [file, errori] : attesi) {
        radice.Scrivi("C:\\Oro\\ATTO.DAT", Dati(file));
        s.doc = Documento();
        DecoZeroNove(s); // the head a document without one takes
        s.doc.PercorsoLibretto = "C:\\Oro\\ATTO.DAT";
        CaricaLibrettoMisure(s);
        CaricaLibrettoInList1(s);
        // The age of an extract depends on the day: it is the demo's own test.
        QStringList trovati = Codici(ControllaAtto(s));
        trovati.removeAll("ESTRATTO_SCADUTO@0");
        EXPECT_EQ(trovati, errori) << file.toStdString();
    }
}

TEST(Controllo, AttiGeneratiSonoPulitiEUnGuastoSiTrova) {
    for (unsigned seme = 1; seme <= 20; ++seme) {
        const QStringList righe = LibrettoGenerato(200 + int(seme) * 37, seme);
        const QList<Rilievo> r = ControllaRighe(righe);
        ASSERT_TRUE(r.isEmpty()) << seme << ' ' << TestoRapporto(r).toStdString();
        // One row 2 or 7 spoilt at random is found at its place.
        std::mt19937 rng(seme);
        int i = 0;
        do i = int(rng() % righe.size());
        while ((!righe[i].startsWith("2|") && !righe[i].startsWith("7|")) ||
               righe[i].startsWith("7|0|"));
        QStringList guasto = righe;
        QStringList campi = guasto[i].split('|');
        const bool sette = campi[0] == "7";
        campi[sette ? 1 : 3] = sette ? QString::number(campi[1].toInt() + 1) : "1O0.5";
        guasto[i] = campi.join('|');
        EXPECT_EQ(Codici(ControllaRighe(guasto)),
                  QStringList{(sette ? "SETTE_CONTA@" : "MISURA@") + QString::number(i + 1)});
    }
}

#ifdef TAVOLET_CLI
TEST(Controllo, RigaDiComando) {
    QTemporaryDir dir;
    CopiaDemo(dir.path());
    const QString libretto = dir.filePath("drive_c/Libretti/ESEMPIO.DAT");
    // The demo's act: its extract's age is its only Errore.
    Esito e = Esegui(dir.path(), {"controlla", libretto});
    EXPECT_EQ(e.codice, 1) << e.err.toStdString();
    QStringList errori;
    for (const QString& riga : e.out.split('\n', Qt::SkipEmptyParts)) {
        const QStringList c = riga.split('|');
        ASSERT_EQ(c.size(), 4) << riga.toStdString();
        if (c[0] == "Errore") errori << c[2] + '@' + c[1];
    }
    EXPECT_EQ(errori, QStringList{"ESTRATTO_SCADUTO@0"});
    e = Esegui(dir.path(), {"controlla", libretto, "--json"}, "20032024");
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    const QJsonArray a = QJsonDocument::fromJson(e.out.toUtf8()).array();
    ASSERT_FALSE(a.isEmpty());
    for (const auto& v : a)
        EXPECT_EQ(v.toObject().keys(), (QStringList{"codice", "gravità", "messaggio", "riga"}));
    e = Esegui(dir.path(),
               {"controlla", libretto, "--estratto",
                dir.filePath("drive_c/pregeo/estratti/A001_00120.EMP")},
               "20032024");
    EXPECT_EQ(e.codice, 1);
    EXPECT_TRUE(e.out.contains("Errore|1|ESTRATTO_COMUNE|")) << e.out.toStdString();
    EXPECT_EQ(Esegui(dir.path(), {"controlla"}).codice, 2);
    EXPECT_EQ(Esegui(dir.path(), {"controlla", libretto, "--bello"}).codice, 2);
}
#endif

} // namespace
