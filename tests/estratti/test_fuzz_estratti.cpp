// Thousands of broken extracts: the routines give the error report or nothing, never a crash.
#include "cxf.h"
#include "estratto.h"
#include "generatore.h"
#include "generatore_cxf.h"
#include "riferimento_cxf.h"
#include "riferimento_unione.h"
#include "unisci.h"

#include "errore.h"

#include "supporto.h"
#include "testo.h"

#include <gtest/gtest.h>

#include <random>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QString Muta(QString testo, std::mt19937& rng) {
    auto caso = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); };
    static const QString pezzi = QStringLiteral("|||%%78760TLPF-+.eE\r\n 9");
    const int mosse = caso(1, 6);
    for (int m = 0; m < mosse; ++m) {
        const int n = int(testo.size());
        switch (caso(0, 6)) {
        case 0:
            testo.truncate(caso(0, n));
            break;
        case 1:
            if (n > 0) testo[caso(0, n - 1)] = pezzi[caso(0, int(pezzi.size()) - 1)];
            break;
        case 2:
            testo.insert(caso(0, n), QChar(char16_t(caso(0, 255))));
            break;
        case 3: {
            QStringList righe = testo.split(QStringLiteral("\r\n"));
            const int i = caso(0, int(righe.size()) - 1);
            if (caso(0, 1))
                righe.removeAt(i);
            else
                righe.insert(caso(0, int(righe.size())), righe[i]);
            testo = righe.join(QStringLiteral("\r\n"));
            break;
        }
        case 4:
            testo.insert(caso(0, n), QStringLiteral("|1e999|"));
            break;
        case 5:
            testo.insert(caso(0, n), QStringLiteral("\r\n7|0|1%|NC|\r\n"));
            break;
        default: {
            QString rumore;
            for (int k = caso(0, 40); k > 0; --k) rumore += QChar(char16_t(caso(0, 255)));
            testo.insert(caso(0, n), rumore);
        }
        }
    }
    return testo;
}

} // namespace

TEST(FuzzEstratti, NessunInputRompeLettoreEScrittore) {
    std::mt19937 rng(7);
    QStringList basi = {DaWindows1252(Dati("estratti/realistico.EMP"))};
    for (unsigned s = 1; s <= 6; ++s) basi << GeneraEstratto({40, s, s % 2 == 0});
    int letti = 0, scritti = 0, rapporti = 0;
    for (int prova = 0; prova < 2500; ++prova) {
        const QString testo = Muta(basi[prova % basi.size()], rng);
        PiattaformaFinta piattaforma;
        Stato stato(piattaforma);
        Estratto e = EsplodiTestoEstratto(stato, testo);
        if (piattaforma.Messaggi().isEmpty()) ++letti;
        Estratto copia = e;
        if (ComponiEstratto(stato, copia)) ++scritti;
        Estratto altra = e;
        EliminaParticellaEstratto(stato, altra, QStringLiteral("257"));
        DatiDaRigheEstratto(stato, RigheDiTesto(testo));
        const QString scheletro = TestoAutoallestito(RigheDiTesto(testo));
        EXPECT_TRUE(scheletro.startsWith("0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n"));
        for (const Evento& ev : piattaforma.eventi) {
            ASSERT_EQ(ev.titolo, "Rilevato errore") << testo.toStdString();
            ++rapporti;
        }
    }
    // The mutations leave many inputs whole enough to be read and written.
    EXPECT_GT(letti, 500);
    EXPECT_GT(scritti, 500);
    EXPECT_GT(rapporti, 500);
}

// Broken CXF sheets: the fast conversion and the plain one agree (same text or same error),
// nothing hangs; broken pairs of extracts: the join gives a text or an error, never a crash.
TEST(FuzzEstratti, CxfEUnione) {
    std::mt19937 rng(12);
    QStringList fogli;
    for (unsigned s = 1; s <= 5; ++s) fogli << GeneraCxf({2 + int(s), 3, s, s % 2 == 1}).cxf;
    auto caso = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); };
    int scritti = 0, errori = 0;
    for (int prova = 0; prova < 1500; ++prova) {
        QString cxf = Muta(fogli[prova % fogli.size()], rng);
        if (caso(0, 9) == 0) cxf.insert(caso(0, int(cxf.size())), QStringLiteral("\r\nBORDO\r\n"));
        PiattaformaFinta piattaforma;
        Stato stato(piattaforma);
        const RisultatoCxf r = ComponiEmpDaCxf(stato, cxf, {"h", "1        10"});
        try {
            const RiferimentoCxf atteso = ComponiEmpDaCxfRiferimento(cxf, {"h", "1        10"});
            ASSERT_TRUE(r.scritto) << cxf.toStdString();
            ASSERT_EQ(r.emp, atteso.emp);
            ++scritti;
        } catch (const Errore& e) {
            ASSERT_FALSE(r.scritto);
            ASSERT_TRUE(
                piattaforma.Messaggi().last().contains(QStringLiteral(": %1\r\n").arg(e.numero)));
            ++errori;
        }
    }
    EXPECT_GT(scritti, 100); // most mutations break a count or a coordinate
    EXPECT_GT(errori, 300);

    int uniti = 0;
    for (int prova = 0; prova < 600; ++prova) {
        const CoppiaEstratti c = GeneraCoppia(unsigned(prova % 7 + 1), 30);
        // As bytes on disk: a character the code page lacks is not in a file.
        const QString a = DaWindows1252(AWindows1252(Muta(c.base, rng)));
        const QString b = DaWindows1252(AWindows1252(Muta(c.aggiunto, rng)));
        QString veloce, lento;
        int nVeloce = 0, nLento = 0;
        try {
            veloce = UnisciTestiEstratti(a, b);
        } catch (const Errore& e) {
            nVeloce = e.numero;
        }
        try {
            lento = UnisciRiferimento(a, b);
        } catch (const Errore& e) {
            nLento = e.numero;
        }
        ASSERT_EQ(nVeloce, nLento);
        ASSERT_EQ(veloce, lento);
        if (nVeloce == 0) ++uniti;
    }
    EXPECT_GT(uniti, 200);
}
