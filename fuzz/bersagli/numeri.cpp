// The number helpers against independent references: Formato against the digits that Qt's own
// shortest conversion gives, rounded half away from zero by hand; Str and CStr read back to the
// same double; Val against strtod on the same characters.
#include "../bersaglio.h"

#include <QRegularExpression>

#include <cmath>
#include <cstdlib>
#include <cstring>

using namespace tavolet;
using namespace tavolet::fuzz;

namespace {

// Formato for a figure of literal characters, then # and 0, then an optional point and # and 0.
QString FormatoRiferimento(double v, const QString& figura) {
    const qsizetype punto = figura.indexOf(u'.');
    const QString intera = punto < 0 ? figura : figura.left(punto);
    const QString decimale = punto < 0 ? QString() : figura.mid(punto + 1);
    QString prefisso;
    int interi = 0;
    bool cifre = false;
    for (QChar c : intera) {
        if (c != u'#' && c != u'0') {
            prefisso += c;
            continue;
        }
        cifre = true;
        if (c == u'0' || interi > 0) ++interi;
    }
    (void)cifre;
    const int massimi = int(decimale.size());
    const int minimi = int(decimale.lastIndexOf(u'0') + 1);
    // The decimal digits of |v| from Qt's shortest round-trip conversion.
    const QString t = QString::number(std::fabs(v), 'f', QLocale::FloatingPointShortest);
    QString intero = t.section(u'.', 0, 0), frazione = t.section(u'.', 1);
    std::string tutto = (intero + frazione.leftJustified(massimi, u'0')).toStdString();
    const size_t taglio = size_t(intero.size() + massimi);
    const bool su = frazione.size() > massimi && frazione[massimi] >= u'5';
    tutto.resize(taglio);
    if (su) {
        size_t k = taglio;
        while (k > 0 && tutto[k - 1] == '9') tutto[--k] = '0';
        if (k == 0)
            tutto.insert(tutto.begin(), '1');
        else
            ++tutto[k - 1];
    }
    intero = QString::fromStdString(tutto.substr(0, tutto.size() - size_t(massimi)));
    frazione = QString::fromStdString(tutto.substr(tutto.size() - size_t(massimi)));
    while (frazione.size() > minimi && frazione.endsWith(u'0')) frazione.chop(1);
    const bool zero = (intero + frazione).count(u'0') == (intero + frazione).size();
    while (intero.startsWith(u'0')) intero.remove(0, 1);
    while (intero.size() < interi) intero.prepend(u'0');
    QString r = (v < 0 && !zero ? QStringLiteral("-") : QString()) + prefisso + intero;
    if (punto >= 0) r += u'.' + frazione;
    return r;
}

} // namespace

TAVOLET_BERSAGLIO(numeri) {
    if (n < 8) return;
    double v;
    std::memcpy(&v, dati, sizeof v);
    // The figure from the rest, in the alphabet of the figures Tavolet uses.
    static const char kSimboli[] = "#0#0.#0 -";
    QString figura;
    for (size_t i = 8; i < n && figura.size() < 24; ++i) figura += QChar(kSimboli[dati[i] % 9]);
    if (std::isfinite(v)) {
        const bool semplice = figura.count(u'.') <= 1 && !figura.contains(u' ') &&
                              !figura.contains(u'-') &&
                              !figura.section(u'.', 1).contains(QRegularExpression("[^#0]"));
        const QString f = Formato(v, figura);
        // Beyond 2^53 a double's digits are its exact binary value or the shortest ones padded
        // with zeros, both reading back to it: only below is there one text to compare.
        if (semplice && std::fabs(v) < 9007199254740992.0) {
            const QString atteso = FormatoRiferimento(v, figura);
            Verifica(f == atteso, "Formato(" + QString::number(v, 'g', 17).toStdString() + ", \"" +
                                      figura.toStdString() + "\") = " + f.toStdString() +
                                      ", atteso " + atteso.toStdString());
        }
        // Below the normal doubles (1e-308) a reading may go to zero: not a surveyor's number.
        if (v != 0 && !std::isnormal(v)) return;
        const QString s = Str(v);
        Verifica(Val(s) == v || (v == 0 && Val(s) == 0), "Str non si rilegge: " + s.toStdString());
        Verifica(!s.startsWith(u' '), "Str con lo spazio davanti");
        // CStr keeps 15 significant digits: within half a unit of the 15th, and the reading.
        // At the top of the doubles the 15 digits round past the largest one, and the reading
        // is the overflow, as BASIC's own.
        if (std::fabs(v) > 1.79769313486231e308) {
            try {
                (void)Val(CStr(v));
            } catch (const Errore& e) {
                Verifica(e.numero == 6, "CStr all'estremo con un errore diverso dall'overflow");
            }
            return;
        }
        Verifica(std::fabs(Val(CStr(v)) - v) <= std::fabs(v) * 5.2e-15,
                 "CStr non si rilegge: " + CStr(v).toStdString());
    }
    // Val on characters of numbers: strtod on the same leading number, or the overflow error.
    QString testo;
    for (size_t i = 8; i < n && testo.size() < 40; ++i)
        testo += QChar("0123456789.+-eE 1"[dati[i] % 17]);
    double letto = 0;
    bool traboccato = false;
    try {
        letto = Val(testo);
    } catch (const Errore& e) {
        Verifica(e.numero == 6, "Val con un errore diverso dall'overflow");
        traboccato = true;
    }
    const std::string t = testo.trimmed().toStdString();
    char* fine = nullptr;
    const double atteso = std::strtod(t.c_str(), &fine);
    // An exponent of seven digits or more is beyond any number of a survey: not compared.
    if (QRegularExpression("[eE][+-]?\\d{7,}").match(testo).hasMatch()) return;
    if (atteso != 0 && !std::isnormal(atteso) && !std::isinf(atteso)) return;
    if (traboccato)
        Verifica(std::isinf(atteso), "overflow di Val su un numero finito: " + t);
    else if (!std::isinf(atteso))
        Verifica(letto == atteso || (letto == 0 && atteso == 0),
                 "Val(" + t + ") = " + std::to_string(letto) + ", strtod " +
                     std::to_string(atteso));
}
