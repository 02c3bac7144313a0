// The extract of a PDF act, found by its protocol; and PDFs made to be slow or large, read in
// bounded memory.
#include "pregeo.h"

#include "supporto.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

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

// A Flate stream of the text repeated until it inflates to about the given size.
QByteArray FlussoRipetuto(const QByteArray& testa, const QByteArray& motivo, qsizetype byte,
                          const QByteArray& coda) {
    z_stream z{};
    deflateInit(&z, 1);
    QByteArray blocco;
    while (blocco.size() < (1 << 16)) blocco += motivo;
    QByteArray uscita(1 << 20, '\0');
    qsizetype scritti = 0;
    const auto comprimi = [&](const QByteArray& dati, int flush) {
        z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(dati.constData()));
        z.avail_in = uInt(dati.size());
        do {
            if (uscita.size() - scritti < (1 << 16)) uscita.resize(uscita.size() * 2);
            z.next_out = reinterpret_cast<Bytef*>(uscita.data() + scritti);
            z.avail_out = uInt(uscita.size() - scritti);
            deflate(&z, flush);
            scritti = uscita.size() - z.avail_out;
        } while (z.avail_out == 0 || (flush == Z_FINISH && z.avail_in > 0));
    };
    comprimi(testa, Z_NO_FLUSH);
    for (qsizetype fatti = 0; fatti < byte; fatti += blocco.size()) comprimi(blocco, Z_NO_FLUSH);
    comprimi(coda, Z_FINISH);
    deflateEnd(&z);
    return "stream\n" + uscita.left(scritti) + "\nendstream\n";
}

// Reads the bytes in a child process: its answer (the pieces read, or -7 for error 7) and how
// much memory it took above what it shared with this process at the start.
std::pair<long, long> LettoInUnFiglio(const QByteArray& pdf) {
    QFile stato("/proc/self/statm");
    stato.open(QIODevice::ReadOnly);
    const long residenti = stato.readAll().split(' ').value(1).toLong() * sysconf(_SC_PAGESIZE);
    int tubo[2];
    if (pipe(tubo) != 0) return {-1, -1};
    const pid_t figlio = fork();
    if (figlio == 0) {
        long pezzi = 0;
        try {
            for (const BloccoTag& b : LeggiBlocchiTagDaDati(pdf).blocchi) pezzi += b.pezzi.size();
        } catch (const Errore& e) {
            pezzi = -e.numero;
        }
        (void)!write(tubo[1], &pezzi, sizeof pezzi);
        _exit(0);
    }
    close(tubo[1]);
    long pezzi = -1;
    if (read(tubo[0], &pezzi, sizeof pezzi) != sizeof pezzi) pezzi = -1;
    close(tubo[0]);
    rusage uso{};
    int esito = 0;
    wait4(figlio, &esito, 0, &uso);
    return {pezzi, uso.ru_maxrss * 1024 - residenti};
}

} // namespace

TEST(BlocchiTag, PdfPiccoloRestaPiccolo) {
    constexpr long kMemoria = 250l << 20;
    // Four streams of a few hundred kilobytes that inflate to 60 MB of rows each.
    QByteArray quattro = "%PDF-1.4\n";
    for (int i = 0; i < 4; ++i)
        quattro += FlussoRipetuto("[TAG1000]|", "1|A|<nr>", 60 << 20, "[/TAG");
    EXPECT_LT(quattro.size(), 2 << 20);
    // 50 MB in the clear: one block, and blocks of one row each.
    const QByteArray unico = "[TAG2000]|" + QByteArray("1|A|<nr>").repeated(50 << 17) + "[/TAG";
    const QByteArray righe = QByteArray("[TAG1000]|1|A|[/TAG\n").repeated((50 << 20) / 20);
    for (const QByteArray* pdf :
         std::initializer_list<const QByteArray*>{&quattro, &unico, &righe}) {
        const auto [pezzi, memoria] = LettoInUnFiglio(*pdf);
        EXPECT_EQ(pezzi, -7); // too large for an act: the error report, and no block
        EXPECT_LT(memoria, kMemoria) << memoria / (1 << 20) << " MB";
    }
    // Just under the bound, a block is read whole.
    constexpr int kRighe = 7 << 17;
    const auto [pezzi, memoria] =
        LettoInUnFiglio("[TAG1000]|" + QByteArray("1|A|<nr>").repeated(kRighe) + "1|A|[/TAG");
    EXPECT_EQ(pezzi, kRighe + 1);
    EXPECT_LT(memoria, kMemoria) << memoria / (1 << 20) << " MB";
}
