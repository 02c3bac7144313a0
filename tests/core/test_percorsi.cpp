// Names typed by the operator made into one file's name.
#include "ambiente.h"
#include "annulla.h"
#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "nome_file.h"
#include "shell.h"
#include "supporto.h"
#include "testata.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace tavolet;
using tavolet::test::ConPregeo;

TEST(NomiFile, UnNomeDigitatoRestaNellaSuaCartella) {
    // What Windows takes as one name of a folder, not hidden, and nothing else.
    const QRegularExpression vietato(
        QStringLiteral("[<>:\"/\\\\|?*\\x00-\\x1F]|\\.\\.|[. ]$|^\\."));
    const QRegularExpression dispositivo(
        QStringLiteral("^(CON|PRN|AUX|NUL|COM[1-9]|LPT[1-9])( *\\..*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const QString pezzi[] = {"..", ".", "/", "\\", ":",  "CON", "nul",  "Com1",  "lpt9", " ", "?",
                             "*",  "<", ">", "|",  "\"", "\t",  "\x01", "ROSSI", "è",    "A", "1"};
    QRandomGenerator g(6);
    for (int i = 0; i < 3000; ++i) {
        QString nome;
        for (int k = g.bounded(1, 7); k > 0; --k) nome += pezzi[g.bounded(int(std::size(pezzi)))];
        const QString sicuro = NomeFileSicuro(nome);
        ASSERT_FALSE(sicuro.isEmpty()) << nome.toStdString();
        EXPECT_FALSE(vietato.match(sicuro).hasMatch()) << nome.toStdString();
        EXPECT_FALSE(dispositivo.match(sicuro).hasMatch()) << nome.toStdString();
        EXPECT_EQ(NomeFileSicuro(sicuro), sicuro) << nome.toStdString();
        // A plain name is left as typed.
        const bool semplice = !nome.contains(QRegularExpression("[^A-Z0-9è]"));
        if (semplice && !dispositivo.match(nome).hasMatch()) {
            EXPECT_EQ(sicuro, nome);
        }
    }
    EXPECT_EQ(NomeFileSicuro("../../ESCAPE X"), "_._ESCAPE X");
    EXPECT_EQ(NomeFileSicuro("con.txt"), "_con.txt");
    EXPECT_EQ(NomeFileSicuro(""), "");
}

// The report of a missing file or folder names it, wherever the trap catches it.
TEST_F(ConPregeo, UnFileMancanteENominato) {
    radice.Scrivi("C:\\pregeo\\estratti\\ALTRO.EMP", "x");
    ConTrappola(s, "Decozero_136", [&] { LeggiTesto("C:\\pregeo\\estratti\\MANCA.EMP"); });
    ConTrappola(s, "Decozero_137", [&] { LeggiTesto("C:\\manca\\MANCA.EMP"); });
    // A number beyond the doubles and a command line with no program, as the runtime names them.
    ConTrappola(s, "Val", [&] { Val(QStringLiteral("1E400")); });
    EXPECT_EQ(ShellInfinita(s, "   ", 1), -1);
    EXPECT_EQ(p.Messaggi(), QStringList({"Rilevato errore: Si è verificato questo errore : 53\r\n"
                                         "Impossibile trovare il file: "
                                         "C:\\pregeo\\estratti\\MANCA.EMP\r\n"
                                         "Nella Routine Decozero_136",
                                         "Rilevato errore: Si è verificato questo errore : 76\r\n"
                                         "Impossibile trovare il percorso: C:\\manca\\MANCA.EMP\r\n"
                                         "Nella Routine Decozero_137",
                                         "Rilevato errore: Si è verificato questo errore : 6\r\n"
                                         "Overflow\r\nNella Routine Val",
                                         "Rilevato errore: Si è verificato questo errore : 5\r\n"
                                         "Chiamata di routine o argomento non validi\r\n"
                                         "Nella Routine 3105"}));
}

// A file of another kind dropped on the rows, Pregeo's programs ended at the start, a snapshot
// with rows selected given back, a technician known by one name only.
TEST_F(ConPregeo, TrascinamentiProcessiIstantaneeETecnico) {
    EXPECT_FALSE(TrascinaLibretto(s, "/tmp/x.dxf"));
    EXPECT_FALSE(TrascinaLibretto(s, "/tmp/x.doc"));
    p.processiAttivi = {"PREGEO.EXE", "notepad.exe"};
    KillPregeo(s);
    EXPECT_EQ(p.Messaggi(),
              (QStringList{"Trascina Libretto: Processo non attivo!",
                           "Trascina Libretto: Ammessi file di Testo: .TXT, .DAT, .LXB, .PDF",
                           "Kill Pregeo: Il programma pregeo.exe è stato terminato!"}));
    EXPECT_EQ(p.processiAttivi, QStringList{"notepad.exe"});

    for (const char* r : {"0|a|", "9|b|", "1|c|"}) s.doc.RigheLibretto.Aggiungi(r);
    s.doc.RigheLibretto.Seleziona(2, true);
    s.doc.RigheLibretto.ImpostaCorrente(2);
    const Istantanea i = FotografaDocumento(s);
    s.doc.RigheLibretto.Svuota();
    RipristinaDocumento(s, i);
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), QStringList({"0|a|", "9|b|", "1|c|"}));
    EXPECT_EQ(s.doc.RigheLibretto.Selezionate(), QList<int>{2});
    EXPECT_EQ(s.doc.RigheLibretto.Corrente(), 2);

    // The technician's name then comes from the one field that holds both.
    s.testata.Nome.clear();
    AggiornaConfigurazionePregeo(s);
    EXPECT_FALSE(s.testata.Nome.isEmpty());
    EXPECT_EQ(s.testata.Cognome + " " + s.testata.Nome, s.testata.Tecnico);
}
