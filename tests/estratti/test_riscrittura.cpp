// The rewrite of a file in one go against reading and saving it: the same bytes and the same
// messages, on generated extracts and on files with odd rows, line ends and characters.
#include "estratto.h"
#include "generatore.h"

#include "piattaforma_finta.h"
#include "stato.h"
#include "testo.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QByteArray Leggi(const QString& p) {
    QFile f(p);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(assente)");
}

void Scrivi(const QString& p, const QByteArray& b) {
    QFile f(p);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(b);
}

struct Esito {
    bool breve = false; // written the short way
    QByteArray uscita;
    QStringList messaggi;
};

enum class Via { Breve, Lungo, Riscrivi };

// Breve: the short way from SORGENTE to a file of its own (when it declines, nothing may be
// there). Lungo: read and save in place, as the program did it before. Riscrivi: the rewrite in
// place.
Esito Prova(QTemporaryDir& dir, const QByteArray& dati, Via via) {
    const QString sorgente = dir.filePath("SORGENTE.EMP"), uscita = dir.filePath("BREVE.EMP");
    const QString file = via == Via::Breve ? sorgente : dir.filePath("FILE.EMP");
    QFile::remove(uscita);
    Scrivi(file, dati);
    PiattaformaFinta piattaforma;
    piattaforma.adesso = QDateTime(QDate(2026, 1, 15), QTime(12, 0));
    Stato stato(piattaforma);
    Esito esito;
    if (via == Via::Breve) {
        esito.breve = RiscriviEstrattoIn(stato, sorgente, uscita);
    } else if (via == Via::Riscrivi) {
        RiscriviEstratto(stato, file);
    } else {
        Estratto e = EsplodiEstratto(stato, file);
        SalvaEstratto1(stato, e);
    }
    esito.uscita = Leggi(via == Via::Breve ? uscita : file);
    esito.messaggi = piattaforma.Messaggi();
    return esito;
}

// Returns whether the short way took it.
bool Confronta(QTemporaryDir& dir, const QByteArray& dati, const std::string& nome) {
    const Esito lungo = Prova(dir, dati, Via::Lungo);
    const Esito riscritto = Prova(dir, dati, Via::Riscrivi);
    EXPECT_EQ(riscritto.uscita, lungo.uscita) << nome;
    EXPECT_EQ(riscritto.messaggi, lungo.messaggi) << nome;
    const Esito breve = Prova(dir, dati, Via::Breve);
    if (breve.breve) {
        EXPECT_EQ(breve.uscita, lungo.uscita) << nome;
        EXPECT_TRUE(breve.messaggi.isEmpty()) << nome;
    } else {
        EXPECT_EQ(breve.uscita, "(assente)") << nome;
    }
    return breve.breve;
}

QByteArray Byte(const QString& testo) {
    return AWindows1252(testo);
}

} // namespace

TEST(RiscriviEstratto, UgualeALetturaESalvataggioSuEstrattiGenerati) {
    QTemporaryDir dir;
    int brevi = 0, totale = 0;
    for (unsigned seme = 1; seme <= 60; ++seme) {
        OpzioniEstratto o;
        o.seme = seme;
        o.stranezze = seme % 3 == 0;
        o.vertici = 30 + int(seme % 6) * 70;
        brevi += Confronta(dir, Byte(GeneraEstratto(o)), "seme " + std::to_string(seme));
        ++totale;
    }
    // And one the size of a large sheet.
    OpzioniEstratto grande;
    grande.vertici = 20000;
    grande.seme = 61;
    EXPECT_TRUE(Confronta(dir, Byte(GeneraEstratto(grande)), "grande"));
    // The plain ones go the short way, the odd ones mostly the long one.
    EXPECT_GE(brevi, 40);
    EXPECT_LT(brevi, totale);
}

TEST(RiscriviEstratto, UgualeALetturaESalvataggioSuRigheStrane) {
    QTemporaryDir dir;
    const QString base = GeneraEstratto({200, 7, false});
    const QString testa = QStringLiteral("0|15032024|PD0012345/2024|A001|00120|1|PD|0|0|0|\r\n");
    const QString punti = QStringLiteral("8|3%|-10.5|20.25|\r\n8|1%|0|0|\r\n8|2%|0|10|\r\n"
                                         "8|5%|10|10|\r\n8|4%|10|0|\r\n");
    auto anello = [](int ids) {
        QString r = QStringLiteral("7|%1|").arg(ids);
        for (int k = 0; k < ids; ++k) r += QString::number(k % 5 + 1) + QStringLiteral("%|");
        return r + QStringLiteral("NC|9|9|1|\r\n");
    };
    const QString inquadramento = QStringLiteral("6|INQUADRAMENTO|1|2|0.5|1|2|6.28|\r\n");
    struct Caso {
        const char* nome;
        QString testo;
        bool breve;
    };
    QString lungoAnello = QStringLiteral("7|600|");
    for (int k = 0; k < 600; ++k) lungoAnello += QString::number(k % 5 + 1) + QStringLiteral("%|");
    lungoAnello += QStringLiteral("NC|9|9|1|\r\n");
    const QList<Caso> casi = {
        {"solo la riga 0", testa, false},
        {"vuoto", QString(), false},
        {"a capo LF", QString(base).replace(QStringLiteral("\r\n"), QStringLiteral("\n")), true},
        {"a capo CR", QString(base).replace(QStringLiteral("\r\n"), QStringLiteral("\r")), true},
        {"senza a capo finale", base.chopped(2), true},
        {"righe vuote",
         QString(base).replace(QStringLiteral("\r\n7|"), QStringLiteral("\r\n\r\n7|")), true},
        {"dieci e undici id", testa + punti + anello(10) + anello(11) + anello(21) + inquadramento,
         true},
        {"anelli corti", testa + punti + "7|5|NC|9|9|1|\r\n7|12345|NC|a|b|c|\r\n7|3|1%|NC|x|\r\n",
         true},
        {"riga 7 senza coda", testa + punti + "7|3|1%|\r\n", false},
        {"riga 7 di sola coda", testa + punti + "7|3|1%|2%|\r\n", true},
        {"continuazioni strane",
         testa + punti +
             "7|0|1%|NC|\r\n7|7|1%|2%|NC|8|8|1|\r\n7|0|17|0|3%|NC|4%|NC|\r\n"
             "7|0||5%|1%|NC|\r\n7|00|2%|\r\n" +
             inquadramento,
         true},
        {"isole",
         testa + punti +
             "7|5|1%|2%|5%|4%|1%|NC|9|9|1|\r\n7|4|1%|2%|3%|1%|NC|9-|9-|1|\r\n"
             "7|4|2%|5%|4%|2%|NC|9+|9+|1|\r\n7|4|1%|2%|3%|1%|NC|9-|9-|1|\r\n"
             "7|5|1%|2%|5%|4%|1%|NC|9|9|1|\r\n",
         true},
        {"id ripetuti in fila", testa + punti + "7|6|1%|1%|1%|2%|5%|1%|NC|1%|2%|3%|\r\n", true},
        {"lettere accentate negli anelli",
         testa + punti + QStringLiteral("7|5|1%|2%|5%|4%|1%|NC|Pi\u00f9|\u20ac|1|\r\n") +
             QStringLiteral("6|DITTA|Citt\u00e0|\r\n"),
         true},
        {"lettera accentata in un vertice", testa + punti + QStringLiteral("8|6%|1|1|\u00e8|\r\n"),
         false},
        {"id con lettere", testa + punti + "8|7a%|1|1|\r\n8|7A%|1|1|\r\n", false},
        {"id lunghi", testa + punti + "8|123456789012%|1|1|\r\n", false},
        {"vertice corto", testa + punti + "8|6%|1\r\n", false},
        {"vertice senza est", testa + punti + "8|6%|1|\r\n", true},
        {"tipi strani", testa + punti + "9|x|\r\n81|x|\r\n 8|6%|1|1|\r\n", false},
        {"tipi ignorati", testa + punti + "9|x|\r\n5|y|\r\n0|z|\r\n", true},
        {"anello troppo lungo", testa + punti + lungoAnello, false},
        {"autoallestito",
         QStringLiteral("0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n") + punti + anello(4), true},
        {"data non valida", QStringLiteral("0|31022024|P|A001|00120|1|PD|0|0|0|\r\n") + punti,
         false},
        {"testa corta", QStringLiteral("0|15032024|P|A001|\r\n") + punti, false},
        {"coordinate strane", testa + "8|1%|1e3|.5|\r\n8|2%|+7|1,5|\r\n8|3%|x|-0|\r\n" + anello(4),
         true},
        {"aree grandi, piccole, intere e in esponente",
         testa + "8|1%|0|0|\r\n8|2%|0|40000|\r\n8|3%|40000|40000|\r\n8|4%|40000|0|\r\n"
                 "8|5%|0|0.001|\r\n8|6%|0.001|0.001|\r\n8|7%|0.001|0|\r\n"
                 "8|8%|0|12|\r\n8|9%|12|12|\r\n8|10%|12|0|\r\n"
                 "8|11%|0|1e-4|\r\n8|12%|1e-4|1e-4|\r\n8|13%|1e-4|0|\r\n"
                 "7|5|1%|2%|3%|4%|1%|NC|1|1|1|\r\n7|4|1%|5%|6%|7%|NC|2|2|1|\r\n"
                 "7|5|1%|8%|9%|10%|1%|NC|3|3|1|\r\n7|5|1%|11%|12%|13%|1%|NC|4|4|1|\r\n"
                 "7|5|1%|8%|9%|10%|1%|NC|3-|3-|1|\r\n",
         true},
        {"linee libere",
         testa + punti +
             "8|90L|1|1|\r\n8|91L|2|2|\r\n8|92T|3|3|0.5|Via|\r\n"
             "7|3|90L|91L|90L|NC||||\r\n7|0|91L|\r\n" +
             anello(4),
         true},
    };
    for (const Caso& c : casi) EXPECT_EQ(Confronta(dir, Byte(c.testo), c.nome), c.breve) << c.nome;
}
