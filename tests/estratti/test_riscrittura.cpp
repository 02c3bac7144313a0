// The rewrite of a file in one go against reading and saving it: the same bytes and the same
// messages, on generated extracts and on files with odd rows, line ends and characters; and the
// save of the generated ones against the plain writer.
#include "estratto.h"
#include "generatore.h"
#include "riferimento.h"

#include "errore.h"

#include "piattaforma_finta.h"
#include "stato.h"
#include "supporto.h"
#include "testo.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Uscita {
    bool breve = false; // written the short way
    QByteArray uscita;
    QStringList messaggi;
};

enum class Via { Breve, Lungo, Riscrivi };

// Breve: the short way from SORGENTE to a file of its own (when it declines, nothing may be
// there). Lungo: read and save in place, as the program did it before. Riscrivi: the rewrite in
// place.
Uscita Prova(QTemporaryDir& dir, const QByteArray& dati, Via via) {
    const QString sorgente = dir.filePath("SORGENTE.EMP"), uscita = dir.filePath("BREVE.EMP");
    const QString file = via == Via::Breve ? sorgente : dir.filePath("FILE.EMP");
    QFile::remove(uscita);
    QFile f(file);
    EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(dati) == dati.size());
    f.close();
    PiattaformaFinta piattaforma;
    piattaforma.adesso = QDateTime(QDate(2026, 1, 15), QTime(12, 0));
    Stato stato(piattaforma);
    Uscita esito;
    if (via == Via::Breve) {
        esito.breve = RiscriviEstrattoIn(stato, sorgente, uscita);
    } else if (via == Via::Riscrivi) {
        RiscriviEstratto(stato, file);
    } else {
        Estratto e = EsplodiEstratto(stato, file);
        SalvaEstratto1(stato, e);
    }
    const QString letto = via == Via::Breve ? uscita : file;
    esito.uscita = QFile::exists(letto) ? LeggiFile(letto) : QByteArray("(assente)");
    esito.messaggi = piattaforma.Messaggi();
    return esito;
}

// Returns whether the short way took it.
bool Confronta(QTemporaryDir& dir, const QByteArray& dati, const std::string& nome) {
    const Uscita lungo = Prova(dir, dati, Via::Lungo);
    const Uscita riscritto = Prova(dir, dati, Via::Riscrivi);
    EXPECT_EQ(riscritto.uscita, lungo.uscita) << nome;
    EXPECT_EQ(riscritto.messaggi, lungo.messaggi) << nome;
    const Uscita breve = Prova(dir, dati, Via::Breve);
    if (breve.breve) {
        EXPECT_EQ(breve.uscita, lungo.uscita) << nome;
        EXPECT_TRUE(breve.messaggi.isEmpty()) << nome;
    } else {
        EXPECT_EQ(breve.uscita, "(assente)") << nome;
    }
    return breve.breve;
}

// The lists read go to the fast writer and to the plain one: the same text, or the same error.
// Returns whether it was written.
bool ComeIlRiferimento(const QString& testo, const std::string& caso) {
    PiattaformaFinta piattaforma;
    Stato stato(piattaforma);
    const Estratto letto = EsplodiTestoEstratto(stato, testo);
    Estratto veloce = letto, lento = letto;
    const std::optional<QString> scritto = ComponiEstratto(stato, veloce);
    try {
        EXPECT_EQ(scritto.value_or("(errore)"), ComponiRiferimento(lento)) << caso;
    } catch (const Errore& err) {
        EXPECT_FALSE(scritto) << caso;
        const QStringList m = piattaforma.Messaggi();
        EXPECT_TRUE(!m.isEmpty() && m.last().contains(QStringLiteral(": %1\r\n").arg(err.numero)))
            << caso;
    }
    return scritto.has_value();
}

} // namespace

TEST(RiscriviEstratto, UgualeALetturaESalvataggioSuEstrattiGenerati) {
    QTemporaryDir dir;
    int brevi = 0, totale = 0, errori = 0;
    for (unsigned seme = 1; seme <= 260; ++seme) {
        OpzioniEstratto o;
        o.seme = seme;
        o.stranezze = seme % 4 != 0;
        o.vertici = o.stranezze ? 20 + int(seme % 7) * 30 : 100 + int(seme % 5) * 150;
        errori += !ComeIlRiferimento(GeneraEstratto(o), "seme " + std::to_string(seme));
        if (seme > 60) continue;
        o.stranezze = seme % 3 == 0;
        o.vertici = 30 + int(seme % 6) * 70;
        brevi += Confronta(dir, AWindows1252(GeneraEstratto(o)), "seme " + std::to_string(seme));
        ++totale;
    }
    // A few odd ones overflow the area tables on purpose.
    EXPECT_GT(errori, 0);
    EXPECT_LT(errori, 60);
    // And one the size of a large sheet.
    OpzioniEstratto grande;
    grande.vertici = 20000;
    grande.seme = 61;
    EXPECT_TRUE(Confronta(dir, AWindows1252(GeneraEstratto(grande)), "grande"));
    // The plain ones go the short way, the odd ones mostly the long one.
    EXPECT_GE(brevi, 40);
    EXPECT_LT(brevi, totale);
}

// Hand-made files (tests/dati/estratti/riscrittura/LEGGIMI.txt): those in breve/ go the short
// way, those in lungo/ decline it; and the line ends of a generated one changed.
TEST(RiscriviEstratto, UgualeALetturaESalvataggioSuRigheStrane) {
    QTemporaryDir dir;
    for (const QString via : {"breve", "lungo"}) {
        const QString cartella = "estratti/riscrittura/" + via + '/';
        const QStringList nomi = QDir(PercorsoDati(cartella)).entryList(QDir::Files);
        EXPECT_GE(nomi.size(), 10);
        for (const QString& nome : nomi)
            EXPECT_EQ(Confronta(dir, Dati(cartella + nome), nome.toStdString()), via == "breve")
                << nome.toStdString();
    }
    const QString base = GeneraEstratto({200, 7, false});
    for (const QString& variante :
         {QString(base).replace("\r\n", "\n"), QString(base).replace("\r\n", "\r"), base.chopped(2),
          QString(base).replace("\r\n7|", "\r\n\r\n7|")})
        EXPECT_TRUE(Confronta(dir, AWindows1252(variante), "a capo"));
}
