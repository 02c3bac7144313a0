// The extract of a PDF act, found by its protocol; and PDFs made to be slow or large, read in
// bounded memory.
#include "pregeo.h"

#include "supporto.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tavolet;
using namespace tavolet::test;

TEST_F(ConPregeo, EstrattoDelPdfTrovatoPerProtocollo) {
    InstallaPregeo(s);
    const QString cartella = "C:\\pregeo\\estratti\\";
    radice.Scrivi(cartella + "A000_00001.EMP", "0|01022026|XX0000001/2026|A000|00001|\r\n");
    radice.Scrivi(cartella + "A001_00120.EMP", "0|01022026|XX0000002/2026|A001|00120|\r\n");
    radice.Scrivi(cartella + "B001_00001.emp", "0|01022026|XX0000002/2026|B001|00001|\r\n");
    radice.Scrivi(cartella + "XX0000002_2026.PNG", "png");
    // A block whose number is past a double's range is one unknown block among the others.
    radice.Scrivi("C:\\Atti\\atto.pdf",
                  "%PDF-1.4\n[TAG1e999]|x[/TAG\n"
                  "[TAG1000]|0|01022026|000777|A001|0120|45|VERDI ANNA|GEOMETRA|PADOVA|<nr>9|1|"
                  "[/TAG\n[TAG2000]|1|S1|1.500|<nr>2|101|100.0000|25.000|CONFINE|[/TAG\n"
                  "[TAG3000]|FR||XX0000002/2026|TESTA3|[/TAG\n%%EOF\n");
    const auto trascina = [&] {
        p.risposte << Risposta::Si;
        EXPECT_TRUE(TrascinaLibretto(s, PercorsoLocale("C:\\Atti\\atto.pdf")));
    };
    trascina();
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
    EXPECT_EQ(s.doc.NomeEstratto, "A001_00120.EMP");
    ScriviLibrettoMisure(s);
    EXPECT_EQ(radice.Leggi("C:\\Atti\\ATTO.TXT"), Dati("pregeo/atto_protocollo.txt"));
    // A file with an empty first line ahead of the match ends the search.
    radice.Scrivi(cartella + "A000_00002.EMP", "\r\n0|01022026|XX0000002/2026|\r\n");
    trascina();
    EXPECT_EQ(p.Messaggi(), QStringList{"Trascina Libretto: Estratto Associato non trovato nella "
                                        "cartella Estratti di Pregeo."});
    EXPECT_EQ(s.doc.NomeEstratto, "");
}

namespace {

// Reads the bytes in a child process: the pieces read (-7 for error 7), and the memory it took
// above what it shared with this process at the start.
std::pair<long, long> LettoInUnFiglio(const QByteArray& pdf) {
    QFile statm("/proc/self/statm");
    statm.open(QIODevice::ReadOnly);
    const long residenti = statm.readAll().split(' ').value(1).toLong() * sysconf(_SC_PAGESIZE);
    int tubo[2];
    long pezzi = -1;
    if (pipe(tubo) != 0) return {-1, -1};
    const pid_t figlio = fork();
    if (figlio == 0) {
        long n = 0;
        try {
            for (const BloccoTag& b : LeggiBlocchiTagDaDati(pdf).blocchi) n += b.pezzi.size();
        } catch (const Errore& e) {
            n = -e.numero;
        }
        _exit(write(tubo[1], &n, sizeof n) == sizeof n ? 0 : 1);
    }
    close(tubo[1]);
    if (read(tubo[0], &pezzi, sizeof pezzi) != sizeof pezzi) pezzi = -1;
    close(tubo[0]);
    rusage uso{};
    int esito = 0;
    wait4(figlio, &esito, 0, &uso);
    return {pezzi, uso.ru_maxrss * 1024 - residenti};
}

} // namespace

TEST(BlocchiTag, PdfPiccoloRestaPiccolo) {
    // Four streams, 1.3 MB in all, of 60 MB of rows each; 50 MB in the clear as one block and
    // as blocks of one row: too large for an act, the error report and no block.
    const QByteArray righe = QByteArray("1|A|<nr>").repeated(60 << 17);
    const QByteArray flusso = "stream\n" + qCompress("[TAG1000]|" + righe + "[/TAG", 1).mid(4);
    const QByteArray quattro = (flusso + "\nendstream\n").repeated(4);
    const QByteArray unico = "[TAG2000]|" + righe.left(50 << 20) + "[/TAG";
    const QByteArray molti = QByteArray("[TAG1000]|1|A|[/TAG\n").repeated((50 << 20) / 20);
    EXPECT_LT(quattro.size(), 2 << 20);
    // Just under the bound a block is read whole.
    const QByteArray sotto = "[TAG1000]|" + righe.left(7 << 20) + "1|A|[/TAG";
    for (const auto& [pdf, atteso] : {std::pair(&quattro, -7l), std::pair(&unico, -7l),
                                      std::pair(&molti, -7l), std::pair(&sotto, 7l << 17 | 1)}) {
        const auto [pezzi, memoria] = LettoInUnFiglio(*pdf);
        EXPECT_EQ(pezzi, atteso);
        EXPECT_LT(memoria, 250l << 20) << memoria / (1 << 20) << " MB";
    }
}
