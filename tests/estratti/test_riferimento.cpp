// The field replacer of the save against the plain chain of text replaces.
#include "sostituzioni.h"

#include "testo.h"

#include <gtest/gtest.h>

#include <random>

using namespace tavolet;

namespace {

QStringList CatenaDiReplace(const QStringList& righe,
                            const QList<std::pair<QString, QString>>& coppie) {
    QString testo = Join(righe, CRLF);
    for (const auto& [v, n] : coppie) testo = Replace(testo, u'|' + v + u'|', u'|' + n + u'|');
    return testo.isEmpty() ? QStringList() : Split(testo, CRLF);
}

} // namespace

// Small alphabets make every kind of chain: runs of equal fields that share bars, a new
// number caught by a later pair, pairs that change nothing, empty fields. Every other trial
// the pairs are a save's renumbering (ascending ids "<n>%" to 1%, 2%, ...), which goes by
// number, among fields that only look like ids.
TEST(Sostituzioni, UgualeAllaCatenaDiReplaceDelTesto) {
    std::mt19937 rng(20240315);
    auto caso = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); };
    const QStringList alfabeto = {"", "0", "1%", "2%", "3%", "5%", "a", "A", "NC", "7|0", "1"};
    int cambiate = 0;
    for (int prova = 0; prova < 6000; ++prova) {
        QList<std::pair<QString, QString>> coppie;
        QStringList ids = alfabeto;
        if (prova % 2) {
            ids = QStringList{"0%", "07%", "x%", "NC", ""};
            for (int k = 0, n = 0, quanti = caso(1, 30); k < quanti; ++k) {
                n += caso(1, 3);
                coppie.append({QString::number(n) + '%', QString::number(k + 1) + '%'});
                ids << coppie.last().first;
            }
        } else {
            for (int k = caso(0, 8); k > 0; --k)
                coppie.append({QString(alfabeto[caso(0, 10)]).replace("7|0", "5%"),
                               QString(alfabeto[caso(0, 10)]).replace("7|0", "1%")});
        }
        QStringList righe;
        for (int r = caso(0, 4); r > 0; --r) {
            QStringList pezzi;
            if (caso(0, 1)) pezzi = QStringList{"7", QString::number(caso(0, 12))};
            for (int k = caso(0, 14); k > 0; --k) {
                const QString id = ids[caso(0, int(ids.size()) - 1)];
                for (int ripeti = caso(0, 3) == 0 ? caso(2, 4) : 1; ripeti > 0; --ripeti)
                    pezzi << id;
            }
            righe << pezzi.join('|') + (caso(0, 3) ? "|NC|a|a|5|" : "");
        }
        const QStringList atteso = CatenaDiReplace(righe, coppie);
        ASSERT_EQ(SostituisciCampi(righe, coppie), atteso)
            << "righe: " << righe.join(" / ").toStdString() << " prova " << prova;
        cambiate += atteso != righe;
    }
    EXPECT_GT(cambiate, 2000);
    // A bar shared by two equal tokens: only the first is replaced.
    EXPECT_EQ(SostituisciCampi({"7|5%|5%|5%|"}, {{"5%", "1%"}}), QStringList{"7|1%|5%|1%|"});
    // Rows holding a line end fall back to the text, with the same result.
    const QStringList strane = {"7|5%|\r|5%|", "x|5%|"};
    EXPECT_EQ(SostituisciCampi(strane, {{"5%", "2%"}}), CatenaDiReplace(strane, {{"5%", "2%"}}));
    EXPECT_TRUE(SostituisciCampi({""}, {{"a", "b"}}).isEmpty());
}
