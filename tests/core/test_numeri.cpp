// Numbers written and read by the text helpers, against a reference worked out another way:
// the C library's printf and strtod, and digit strings.
#include "testo.h"

#include "errore.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

using namespace tavolet;

namespace {

std::string Printf(const char* formato, int cifre, double v) {
    char buf[1024];
    const int n = std::snprintf(buf, sizeof buf, formato, cifre, static_cast<long double>(v));
    return std::string(buf, size_t(n));
}

// The shortest fixed text of |v| that reads back to v: the exact whole number above 2^53, the
// fewest decimals below.
std::string Breve(double v) {
    v = std::fabs(v);
    if (v >= 9007199254740992.0) return Printf("%.*Lf", 0, v);
    for (int d = 0;; ++d) {
        const std::string t = Printf("%.*Lf", d, v);
        if (std::strtod(t.c_str(), nullptr) == v) return t;
    }
}

// A digit text rounded half away from zero at d decimals, as "whole.decimals" with no sign.
std::string Arrotonda(std::string t, int d) {
    if (t.find('.') == std::string::npos) t += '.';
    t.append(size_t(d + 1), '0');
    const size_t punto = t.find('.');
    bool su = t[punto + size_t(d) + 1] >= '5';
    std::string cifre = t.substr(0, punto) + t.substr(punto + 1, size_t(d));
    for (size_t k = cifre.size(); su && k-- > 0;) {
        if (cifre[k] < '9') {
            ++cifre[k];
            su = false;
        } else {
            cifre[k] = '0';
        }
    }
    if (su) cifre.insert(0, "1");
    return cifre.substr(0, cifre.size() - size_t(d)) + '.' + cifre.substr(cifre.size() - size_t(d));
}

// The value of a formatted number as sign, whole digits and decimals without spare zeros.
std::string Normale(std::string t) {
    bool meno = !t.empty() && t[0] == '-';
    if (meno) t.erase(0, 1);
    if (t.find('.') == std::string::npos) t += '.';
    while (t.size() > 1 && t[0] == '0' && t[1] != '.') t.erase(0, 1);
    while (t.back() == '0') t.pop_back();
    if (t[0] == '.') t.insert(0, "0");
    if (t == "0.") meno = false;
    return (meno ? "-" : "") + t;
}

// Magnitudes over the whole range of the double, both signs, with the ends and the halves.
QList<double> Valori() {
    QList<double> v = {0.0,
                       std::numeric_limits<double>::denorm_min(),
                       std::numeric_limits<double>::min(),
                       std::numeric_limits<double>::max(),
                       1.8e307 * 9.9,
                       1e70,
                       1e40,
                       1e-62,
                       1e-70,
                       2.675,
                       0.0005,
                       0.0015,
                       999.9995,
                       9007199254740993.0,
                       1234567890123456.7};
    QRandomGenerator g(21);
    for (int i = 0; i < 600; ++i) {
        const double m = 1 + g.generateDouble() * 9;
        // The second kind ends in a 5 where a picture may cut it.
        v << std::ldexp(m, g.bounded(-1074, 1021))
          << std::round(m * 1e4) / std::pow(10, g.bounded(9));
    }
    const qsizetype n = v.size();
    for (qsizetype i = 0; i < n; ++i) v << -v[i];
    return v;
}

} // namespace

TEST(Numeri, FormatoScriveLeCifreDiOgniDouble) {
    const QRegularExpression numero(QStringLiteral("^-?[0-9]*(\\.[0-9]*)?$"));
    // picture, most decimals, forced decimals, forced whole digits
    const struct {
        const char* figura;
        int decimali, forzati, interi;
    } figure[] = {{"#########0.##0", 3, 3, 1}, {"##########0", 0, 0, 1},
                  {"#.##", 2, 0, 0},           {"000", 0, 0, 3},
                  {"0.000000", 6, 6, 1},       {"######0.##0", 3, 3, 1}};
    for (double v : Valori()) {
        const std::string breve = Breve(v);
        for (const auto& f : figure) {
            const std::string testo = Formato(v, f.figura).toStdString();
            const std::string atteso = Normale(Arrotonda(breve, f.decimali));
            const std::string caso = std::string(f.figura) + " " + Printf("%.*Le", 17, v);
            ASSERT_TRUE(numero.match(QString::fromStdString(testo)).hasMatch()) << caso;
            EXPECT_EQ(Normale(testo), (v < 0 && atteso != "0." ? "-" : "") + atteso) << caso;
            const size_t punto = testo.find('.');
            const size_t decimali = punto == std::string::npos ? 0 : testo.size() - punto - 1;
            const size_t interi = std::min(punto, testo.size()) - (testo[0] == '-' ? 1 : 0);
            EXPECT_GE(int(decimali), f.forzati) << caso;
            EXPECT_LE(int(decimali), f.decimali) << caso;
            EXPECT_GE(int(interi), f.interi) << caso;
        }
    }
}

TEST(Numeri, StrECStrComeLaLibreriaC) {
    const QRegularExpression numero(QStringLiteral("^-?[0-9]+(\\.[0-9]+)?([eE][-+][0-9]+)?$"));
    for (double v : Valori()) {
        const QString s = Str(v), c = CStr(v);
        EXPECT_TRUE(numero.match(s).hasMatch()) << s.toStdString();
        EXPECT_EQ(std::strtod(s.toLatin1().constData(), nullptr), v) << s.toStdString();
        // The runtime's conversion: fifteen figures, the exponent form where printf has it.
        char atteso[64];
        std::snprintf(atteso, sizeof atteso, "%.15G", v);
        EXPECT_EQ(c.toStdString(), v == 0 ? "0" : atteso);
        // What is written reads back: to the figures kept.
        EXPECT_EQ(Val(s), v);
        // The largest rounds to fifteen figures above the largest double: an overflow.
        if (std::isinf(std::strtod(atteso, nullptr))) {
            EXPECT_THROW(Val(c), Errore) << atteso;
        } else {
            EXPECT_DOUBLE_EQ(Val(c), std::strtod(atteso, nullptr));
        }
    }
    // Infinity and NaN are no number: an overflow, never letters or memory.
    for (double v :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(Formato(v, "#########0.##0"), Errore);
        EXPECT_THROW(Str(v), Errore);
        EXPECT_THROW(CStr(v), Errore);
    }
}

TEST(Numeri, ValLeggeOgniCifraComeStrtod) {
    // Long texts: leading zeros, hundreds of digits on either side of the point, exponents.
    QRandomGenerator g(8);
    QStringList testi = {"1" + QString(400, '0') + "e-300",
                         "0." + QString(400, '0') + "15e420",
                         QString(330, '9') + "e-30",
                         "1e308",
                         "1.8e308",
                         "4.9e-324",
                         "2e-324"};
    for (int i = 0; i < 400; ++i) {
        QString t = QString(g.bounded(3) ? 0 : g.bounded(500), '0');
        for (int k = g.bounded(1, 900); k > 0; --k) t += QChar('0' + g.bounded(10));
        t.insert(g.bounded(t.size() + 1), u'.');
        t += QStringLiteral("e") + QString::number(g.bounded(-1300, 400));
        testi << t << "-" + t;
    }
    for (const QString& t : testi) {
        const double atteso = std::strtod(t.toLatin1().constData(), nullptr);
        if (std::isinf(atteso)) {
            EXPECT_THROW(Val(t + "|x|"), Errore) << t.toStdString();
        } else {
            EXPECT_EQ(Val(t + "|x|"), atteso) << t.toStdString();
        }
    }
    EXPECT_EQ(Val("1" + QString(400, '0') + "e-300"), 1e100);
}
