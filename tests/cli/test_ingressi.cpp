// What tavolet-cli takes as input, and the numbers it writes from absurd ones.
#include "sul_demo.h"

#include <QDirIterator>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

using Ingressi = SulDemo;

// The exact digits of the double nearest to 1e70.
const QByteArray kDieciAllaSettanta =
    "10000000000000000725314363815292351261583744096465219555182101554790400";

} // namespace

TEST_F(Ingressi, LeggeCioCheLeggeIlProgramma) {
    const QString soloDat = Scrivi("X.DAT", LeggiFile(Esempio()));
    const QString vuoto = Scrivi("VUOTO.DAT", ""), vuotoEmp = Scrivi("VUOTO.EMP", "");
    const QString vuotoDxf = Scrivi("VUOTO.DXF", "");
    QDir().mkpath(radice.filePath("CARTELLA.DAT"));
    const QString out = radice.filePath("OUT");
    // command, exit status, a text on stdout or stderr
    const QList<std::tuple<QStringList, int, QString>> tabella = {
        // X.LXB with only X.DAT on disk is X.DAT.
        {{"libretto", "righe", radice.filePath("x.lxb")}, 0, "0|"},
        // A file of 0 bytes is empty text: the default rows, an empty drawing, an empty zip.
        {{"libretto", "righe", vuoto}, 0, "9|"},
        {{"libretto", "salva", vuoto, out + ".DAT"}, 0, ""},
        {{"grafica", "dxf", vuoto, out + ".DXF"}, 0, ""},
        {{"zip", out + ".ZIP", vuoto}, 0, ""},
        {{"estratto", "info", vuotoEmp}, 1, "Nella Routine EsplodiEstratto"},
        {{"casistica", "dxf", vuotoDxf, out + "2.DAT"}, 1, "Nessun dato trovato in memoria!"},
        // What is not there, or is a folder, is not found, and nothing is written.
        {{"libretto", "salva", radice.filePath("MANCA.DAT"), out + "3.DAT"}, 1, "NON trovato!"},
        {{"libretto", "salva", radice.filePath("MANCA.LXB"), out + "3.DAT"},
         1,
         "MANCA.LXB\nNON trovato!"},
        {{"libretto", "salva", radice.filePath("CARTELLA.DAT"), out + "3.DAT"}, 1, "NON trovato!"},
        {{"grafica", "dxf", radice.filePath("CARTELLA.DAT"), out + "3.DXF"}, 1, "NON trovato!"},
        {{"libretto", "riordina", radice.filePath("MANCA.DAT"), out + "3.DAT"}, 1, "NON trovato!"},
        {{"configura", "conferma", radice.filePath("MANCA.DAT"), out + "3.DAT"}, 1, "NON trovato!"},
        {{"estratto", "riscrivi", radice.filePath("MANCA.EMP"), out + "3.DAT"}, 1, "NON trovato!"},
        {{"zip", out + "3.DAT", radice.filePath("MANCA.DAT")}, 1, "NON trovato!"}};
    // The output of a command whose input is missing is left as it was.
    Scrivi("OUT3.DAT", "PRIMA\r\n");
    for (const auto& [comando, codice, testo] : tabella) {
        const Esito e = Esegui(comando);
        EXPECT_EQ(e.codice, codice) << comando.join(' ').toStdString() << "\n"
                                    << e.err.toStdString();
        EXPECT_TRUE((e.out + e.err).contains(testo)) << comando.join(' ').toStdString();
        EXPECT_EQ(e.err.contains("NON trovato!"), testo.endsWith("NON trovato!"));
    }
    EXPECT_EQ(Esegui({"libretto", "righe", radice.filePath("x.lxb")}).out,
              Esegui({"libretto", "righe", soloDat}).out);
    for (const char* scritto : {".DAT", ".DXF", ".ZIP"})
        EXPECT_TRUE(QFile::exists(out + scritto)) << scritto;
    EXPECT_EQ(LeggiFile(out + "3.DAT"), "PRIMA\r\n");
    EXPECT_FALSE(QFile::exists(out + "3.DXF"));
    EXPECT_EQ(Esegui({"libretto", "salva", radice.filePath("MANCA.DAT"), out + "3.DAT"}).err,
              "Tavolet: " + radice.filePath("MANCA.DAT") + "\nNON trovato!\n");
}

TEST_F(Ingressi, NumeriAssurdiDannoCifre) {
    // The mean east of an extract with a point at 1e70 east, for the libretto's head.
    const QString est = Scrivi("EST.EMP", "0|15032024|P|A001|00120|1|PD|0|0|0|\r\n"
                                          "8|1%|200.000|1e70|\r\n8|2%|0|0|\r\n8|3%|0|1|\r\n"
                                          "7|4|1%|2%|3%|1%|NC|1|1|0|\r\n");
    Esito e = Esegui({"estratto", "dati", est});
    EXPECT_TRUE(QRegularExpression("\nEstMedio=5[0-9]{69}\n").match(e.out).hasMatch())
        << e.out.toStdString();
    // A ring at 1e40 keeps an area of 81 digits.
    const QString anello = Scrivi("ANELLO.EMP", "0|15032024|P|A001|00120|1|PD|0|0|0|\r\n"
                                                "8|1%|0|0|\r\n8|2%|1e40|0|\r\n8|3%|1e40|1e40|\r\n"
                                                "8|4%|0|1e40|\r\n7|5|1%|2%|3%|4%|1%|NC|1|1|0|\r\n");
    e = Esegui({"estratto", "riscrivi", anello, radice.filePath("RISCRITTO.EMP")});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    const QString riscritto = QString::fromLatin1(LeggiFile(radice.filePath("RISCRITTO.EMP")));
    EXPECT_TRUE(QRegularExpression("\\r\\n7\\|5\\|.*\\|1\\|1\\|[0-9]{81}\\|\\r\\n")
                    .match(riscritto)
                    .hasMatch())
        << riscritto.toStdString();
    // A vertex of a DXF at 1e70 east: its digits in the libretto and the extract.
    QByteArray dxf = Dati("casistiche/disegno_rc_nc.dxf");
    dxf.replace(dxf.indexOf("1006.1234"), 9, "1e70");
    e = Esegui({"casistica", "dxf", Scrivi("LONTANO.DXF", dxf), radice.filePath("LONTANO.DAT")});
    for (const char* uscita : {"LONTANO.DAT", "LONTANO.EMP"}) {
        const QByteArray testo = LeggiFile(radice.filePath(uscita));
        EXPECT_TRUE(testo.contains(kDieciAllaSettanta)) << uscita << e.err.toStdString();
        EXPECT_FALSE(testo.contains('\0')) << uscita;
    }
}

TEST_F(Ingressi, IlCognomeDelTecnicoNonEsceDallaCartella) {
    for (const char* cognome : {"../../ESCAPE", "..\\..\\ESC2"}) {
        const Esito e = Esegui({"configura", "conferma", Esempio(), radice.filePath("OUT.DAT"),
                                "--campo", QString("5=") + cognome});
        EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    }
    QStringList pfs;
    for (QDirIterator it(radice.path(), {"*ESC*.PFS"}, QDir::Files | QDir::Hidden,
                         QDirIterator::Subdirectories);
         it.hasNext();)
        pfs << it.next().mid(radice.path().size());
    ASSERT_EQ(pfs.size(), 2) << pfs.join(' ').toStdString();
    for (const QString& f : pfs)
        EXPECT_TRUE(QRegularExpression("/Documents/Tavolet/tecnici/[^/]*ES[^/]*\\.PFS$",
                                       QRegularExpression::CaseInsensitiveOption)
                        .match(f)
                        .hasMatch())
            << f.toStdString();
}
