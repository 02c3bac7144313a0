// Thousands of broken extracts: the routines give the error report or nothing, never a crash.
#include "estratto.h"
#include "generatore.h"

#include "supporto.h"

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
