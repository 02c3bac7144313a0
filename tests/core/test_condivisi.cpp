// The pieces that several parts of the program share: tag blocks, the answer file, the
// launcher of sibling programs, the technician's keys of PREGEO.INI.
#include "libretto.h"
#include "piattaforma_finta.h"
#include "supporto.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

// blocchi.pdf: one page whose content stream draws the act's tag blocks as text, without
// compression, as Pregeo's printer driver leaves it.
TEST(BlocchiTag, BlocchiDalleRigheDelPdf) {
    const QByteArray pdf = Dati("core/blocchi.pdf");
    const BlocchiTag b = LeggiBlocchiTagDaDati(pdf);
    ASSERT_EQ(b.blocchi.size(), 4);
    EXPECT_EQ(b.Testo(1000), "0|01012024|7|G224|0001|5|ROSSI\r\n9|1|10|20|\r\n");
    EXPECT_EQ(b.Pezzi(2000), (QStringList{"1|100|1.5|", "2|P|x|"}));
    EXPECT_EQ(b.Pezzi(3000).value(2), "A001_00120.EMP");
    // The string's escapes and the owners' bars go; a backslash never reaches the owners.
    EXPECT_EQ(b.Testo(4000), "ROSSI MARIO\r\nBIANCHI");
    EXPECT_TRUE(b.Testo(5000).isEmpty());

    // Text outside blocks, a cut block, an absurd number and no block at all give nothing.
    EXPECT_TRUE(LeggiBlocchiTagDaDati("[TAG1000]|0|x|<nr>senza fine").Vuoto());
    EXPECT_TRUE(LeggiBlocchiTagDaDati("[TAG1e30]|0|[/TAG").Vuoto());
    EXPECT_TRUE(LeggiBlocchiTagDaDati(QByteArray(1 << 20, 'x')).Vuoto());
    EXPECT_EQ(LeggiBlocchiTagDaDati("[TAG[TAG5000]|a|b[/TAG").Pezzi(5000), (QStringList{"a", "b"}));
    EXPECT_TRUE(LeggiBlocchiTagDaFile("C:\\non\\esiste.pdf").Vuoto());

    // Random bytes and cut copies of the PDF: no crash, and never a block that was not there.
    QRandomGenerator caso(7);
    for (int i = 0; i < 300; ++i) {
        QByteArray dati = pdf.left(caso.bounded(int(pdf.size())));
        for (int j = 0; j < 5; ++j)
            if (!dati.isEmpty()) dati[caso.bounded(int(dati.size()))] = char(caso.bounded(256));
        for (const BloccoTag& blocco : LeggiBlocchiTagDaDati(dati).blocchi)
            EXPECT_TRUE(blocco.numero % 1000 == 0 && blocco.numero <= 5000);
    }
}

TEST(BlocchiTag, PdfRiscrittoConFlussiCompressi) {
    const QString qpdf = QStandardPaths::findExecutable("qpdf");
    if (qpdf.isEmpty()) GTEST_SKIP() << "qpdf non installato (Debian qpdf): salto la prova";
    QTemporaryDir dir;
    const QString out = dir.filePath("compresso.pdf");
    ASSERT_EQ(QProcess::execute(qpdf, {"--object-streams=generate", "--compress-streams=y",
                                       PercorsoDati("core/blocchi.pdf"), out}),
              0);
    const QByteArray compresso = LeggiFile(out);
    ASSERT_FALSE(compresso.contains("[TAG")) << "qpdf left the text uncompressed";
    const BlocchiTag b = LeggiBlocchiTagDaDati(compresso);
    EXPECT_EQ(b.Testo(1000), "0|01012024|7|G224|0001|5|ROSSI\r\n9|1|10|20|\r\n");
    EXPECT_EQ(b.Testo(4000), "ROSSI MARIO\r\nBIANCHI");

    // A stream that does not inflate is skipped: nothing made up from its bytes.
    QByteArray rotto = compresso;
    const qsizetype s = rotto.indexOf("stream\n");
    for (int i = 0; i < 40 && s + 9 + i < rotto.size(); ++i) rotto[s + 9 + i] = 'Z';
    const BlocchiTag r = LeggiBlocchiTagDaDati(rotto);
    for (const BloccoTag& blocco : r.blocchi)
        EXPECT_EQ(r.Testo(blocco.numero), b.Testo(blocco.numero)) << blocco.numero;
}

TEST_F(ConPregeo, RispostaAlProgrammaChiamante) {
    CreaAlberoCartelle(s);
    s.TagRoutine = "Chiamante";
    RispondiTag(s, "G224");
    EXPECT_EQ(p.appunti, "G224");
    EXPECT_EQ(s.UltimoRisultato, "G224");
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\temp\\TagUno.tag"), "G224\r\n");
    EXPECT_EQ(s.TagRoutine, "Chiamante");
    p.appunti = "altro";
    ScriviTag(s, "A001_00120.EMP");
    EXPECT_EQ(p.appunti, "altro");
    EXPECT_EQ(radice.Leggi(PercorsoTagUno(s)), "A001_00120.EMP\r\n");
}

TEST_F(ConPregeo, ProgrammiFratelli) {
    const ComandoAvvio a =
        ScomponiComando("C:\\Program Files (x86)\\Tavolet\\Ponticello.exe ESPORTA_TUTTO 24123");
    EXPECT_EQ(a.programma, "C:\\Program Files (x86)\\Tavolet\\Ponticello.exe");
    EXPECT_EQ(a.argomenti, (QStringList{"ESPORTA_TUTTO", "24123"}));
    EXPECT_EQ(ScomponiComando("C:\\T\\Ponticello.exe2 ELENCO_LIBRETTI").programma,
              "C:\\T\\Ponticello.exe2");
    EXPECT_EQ(ScomponiComando("\"C:\\A B\\x.bat\" \"uno due\" tre").argomenti,
              (QStringList{"uno due", "tre"}));

    // Without a mapping the program goes to the platform as written.
    EXPECT_EQ(ShellInfinita(s, "C:\\T\\Print.exe C:\\Stampe.TXT"), 0);
    EXPECT_EQ(p.eventi.last().titolo, "C:\\T\\Print.exe");
    EXPECT_EQ(s.TagRoutine, "3105");

    // A mapping in the settings runs a host command instead, with the arguments behind it.
    QTemporaryDir dir;
    const QString script = dir.filePath("ponticello.sh");
    QFile f(script);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("#!/bin/sh\necho \"$@\" > \"$(dirname \"$0\")/argomenti.txt\"\nexit 3\n");
    f.close();
    f.setPermissions(f.permissions() | QFileDevice::ExeOwner);
    p.SalvaImpostazione(kSezioneProgrammi, "PONTICELLO.EXE2", "/bin/sh " + script);
    p.esegui = AvviaProcessoHost;
    EXPECT_EQ(ShellInfinita(s, "C:\\T\\Ponticello.exe2 ELENCO_LIBRETTI"), 3);
    QFile argomenti(dir.filePath("argomenti.txt"));
    ASSERT_TRUE(argomenti.open(QIODevice::ReadOnly));
    EXPECT_EQ(argomenti.readAll(), "ELENCO_LIBRETTI\n");
    EXPECT_TRUE(p.Messaggi().isEmpty());

    // A program that is not there: the error report says which, and the program goes on.
    EXPECT_EQ(ShellInfinita(s, "C:\\T\\Dexaro.exe"), -1);
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi().first().contains("Dexaro.exe")) << p.Messaggi().first().toStdString();
    EXPECT_EQ(s.ErroriMostrati, 1);
}

TEST(TecnicoIni, ChiaviDelTecnico) {
    const QStringList ini = {"[PREGEO]",
                             "DskAPPLexe=C:",
                             "cognome = BIANCHI",
                             "NumeroIscrizione=1234",
                             "[ALTRO]",
                             "Nome=NON QUESTO",
                             ""};
    TecnicoIni t = LeggiTecnicoIni(ini.mid(0, 4));
    EXPECT_EQ(t.Cognome, "BIANCHI");
    EXPECT_EQ(t.NumeroIscrizione, "1234");
    EXPECT_TRUE(t.Nome.isEmpty());

    t.Nome = "LUCA";
    t.CodiceFiscale = "BNCLCU80A01G224X";
    const QStringList scritte = ScriviTecnicoIni(ini, t);
    // Keys are found wherever they stand, as the reader finds them; missing ones join [PREGEO].
    EXPECT_EQ(scritte,
              (QStringList{"[PREGEO]", "DskAPPLexe=C:", "Cognome=BIANCHI", "NumeroIscrizione=1234",
                           "Qualifica=", "ProvinciaAlbo=", "SiglaProvinciaAlbo=",
                           "CodiceFiscale=BNCLCU80A01G224X", "[ALTRO]", "Nome=LUCA", ""}));
    EXPECT_EQ(LeggiTecnicoIni(scritte).CodiceFiscale, "BNCLCU80A01G224X");
    // Written twice, the same lines.
    EXPECT_EQ(ScriviTecnicoIni(scritte, t), scritte);
    EXPECT_EQ(ScriviTecnicoIni({"DskAPPLada=D:", ""}, t).mid(0, 3),
              (QStringList{"DskAPPLada=D:", "[PREGEO]", "Cognome=BIANCHI"}));
}

TEST_F(ConPregeo, PregeoIniRiscritto) {
    TecnicoIni verdi;
    verdi.Cognome = "VERDI";
    verdi.Nome = "ANNA";
    s.amb.RigheIni = ScriviTecnicoIni(s.amb.RigheIni, verdi);
    RiscriviPregeoIni(s);
    const QByteArray scritto = radice.Leggi("C:\\windows\\PREGEO.INI");
    EXPECT_TRUE(scritto.contains("\r\nCognome=VERDI\r\nNome=ANNA\r\n")) << scritto.constData();
    CaricaConfig(s);
    EXPECT_EQ(s.testata.Tecnico, "VERDI ANNA");
}
