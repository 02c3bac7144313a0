#include "testo.h"

#include "errore.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace tavolet {

namespace {

bool Cifra(QChar c) {
    return c >= u'0' && c <= u'9';
}

// The characters 0x80..0x9F of Windows-1252; 0 where the code page leaves the byte undefined.
const char16_t kAlti[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                            0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

QChar CambiaCaso(QChar c, bool maiuscolo) {
    QChar altro = maiuscolo ? c.toUpper() : c.toLower();
    if (altro == c) return c;
    return CodiceWindows1252(altro.unicode()) >= 0 ? altro : c;
}

// The longest double in fixed notation: 309 whole digits, or "0." and 324 decimals with the
// 17 significant digits of the smallest normal numbers among them.
constexpr int kFisso = 400;

// The text of a number by to_chars with the given format. Only numbers have digits: infinity
// and NaN are an overflow, as the runtime's arithmetic has it.
template <typename... Modo> QString Testo(double valore, Modo... modo) {
    if (!std::isfinite(valore)) throw Errore(6);
    char buf[kFisso];
    const auto r = std::to_chars(buf, buf + sizeof buf, valore, modo...);
    if (r.ec != std::errc()) throw Errore(6);
    return QString::fromLatin1(buf, int(r.ptr - buf));
}

// Decimal digits of |valore| as the shortest text that reads back to the same double.
QString CifreDecimali(double valore) {
    return Testo(std::fabs(valore), std::chars_format::fixed);
}

} // namespace

double Val(const QString& testo) {
    // The significant digits go into a small buffer of ASCII with their power of ten, and are
    // read with from_chars: rows are read by the thousand, and this avoids a string per call.
    // 800 digits decide any double; a non-zero digit past them is kept as one more digit, so
    // that a long number still rounds as its whole text does.
    constexpr int kCifre = 800;
    const int n = int(testo.size());
    const QChar* c = testo.constData();
    int i = 0;
    while (i < n && (c[i] == u' ' || c[i] == u'\t' || c[i] == u'\n' || c[i] == u'\r')) ++i;
    bool negativo = false;
    if (i < n && (c[i] == u'+' || c[i] == u'-')) negativo = c[i++] == u'-';
    char buf[kCifre + 32];
    int k = 0;
    long long scala = 0; // the number is the digits of buf times ten to this
    bool oltre = false, cifre = false;
    auto cifra = [&](QChar x, bool decimale) {
        cifre = true;
        if (k == 0 && x == u'0') {
            if (decimale) --scala;
        } else if (k < kCifre) {
            buf[k++] = char(x.unicode());
            if (decimale) --scala;
        } else {
            oltre = oltre || x != u'0';
            if (!decimale) ++scala;
        }
    };
    while (i < n && Cifra(c[i])) cifra(c[i++], false);
    if (i < n && c[i] == u'.') {
        ++i;
        while (i < n && Cifra(c[i])) cifra(c[i++], true);
    }
    if (!cifre) return 0.0;
    if (i < n && (c[i] == u'E' || c[i] == u'e' || c[i] == u'D' || c[i] == u'd')) {
        int j = i + 1;
        bool meno = false;
        if (j < n && (c[j] == u'+' || c[j] == u'-')) meno = c[j++] == u'-';
        long long esponente = 0;
        while (j < n && Cifra(c[j]))
            esponente = std::min(esponente * 10 + (c[j++].unicode() - u'0'), 1000000LL);
        scala += meno ? -esponente : esponente;
    }
    if (k == 0) return negativo ? -0.0 : 0.0;
    if (oltre) {
        buf[k++] = '1';
        --scala;
    }
    // Too small is zero; too large is an overflow, as the BASIC read has it.
    const long long grandezza = k + scala; // the number is below ten to this
    if (grandezza > 310) throw Errore(6);
    if (grandezza < -330) return negativo ? -0.0 : 0.0;
    buf[k++] = 'e';
    const auto e = std::to_chars(buf + k, buf + sizeof buf, scala);
    if (e.ec != std::errc()) throw Errore(6);
    double v = 0;
    const auto r = std::from_chars(buf, e.ptr, v);
    if (r.ec == std::errc::result_out_of_range && grandezza < 0) return negativo ? -0.0 : 0.0;
    if (r.ec != std::errc() || !std::isfinite(v)) throw Errore(6);
    return negativo ? -v : v;
}

QString Formato(double valore, const QString& figura) {
    const int punto = figura.indexOf(u'.');
    const QString parteIntera = punto < 0 ? figura : figura.left(punto);
    const QString parteDecimale = punto < 0 ? QString() : figura.mid(punto + 1);
    int decimaliMax = 0, decimaliForzati = 0, interiForzati = 0;
    for (int i = 0; i < parteDecimale.size(); ++i) {
        if (parteDecimale[i] == u'#' || parteDecimale[i] == u'0') ++decimaliMax;
        if (parteDecimale[i] == u'0') decimaliForzati = decimaliMax;
    }
    bool forzato = false;
    for (QChar c : parteIntera) {
        if (c == u'0') forzato = true;
        if (forzato && (c == u'0' || c == u'#')) ++interiForzati;
    }

    // Round half away from zero on the decimal text, not on the binary value.
    QString cifre = CifreDecimali(valore);
    int pp = cifre.indexOf(u'.');
    QString intero = pp < 0 ? cifre : cifre.left(pp);
    QString frazione = pp < 0 ? QString() : cifre.mid(pp + 1);
    if (frazione.size() > decimaliMax) {
        const bool suSu = frazione[decimaliMax] >= u'5';
        frazione.truncate(decimaliMax);
        if (suSu) {
            QString tutto = intero + frazione;
            int k = tutto.size() - 1;
            while (k >= 0) {
                if (tutto[k] == u'9') {
                    tutto[k] = u'0';
                    --k;
                } else {
                    tutto[k] = QChar(tutto[k].unicode() + 1);
                    break;
                }
            }
            if (k < 0) tutto.prepend(u'1');
            intero = tutto.left(tutto.size() - decimaliMax);
            frazione = tutto.right(decimaliMax);
        }
    }
    while (frazione.size() > decimaliForzati && frazione.endsWith(u'0')) frazione.chop(1);
    while (frazione.size() < decimaliForzati) frazione += u'0';
    while (intero.size() > 1 && intero.startsWith(u'0')) intero.remove(0, 1);
    if (intero == u"0") intero.clear();
    while (intero.size() < interiForzati) intero.prepend(u'0');

    bool nullo = true;
    for (QChar c : intero + frazione)
        if (c != u'0') nullo = false;
    QString risultato;
    if (valore < 0 && !nullo) risultato += u'-';
    // Literal characters before the first digit placeholder are kept in place.
    for (QChar c : parteIntera) {
        if (c == u'#' || c == u'0') break;
        risultato += c;
    }
    risultato += intero;
    if (punto >= 0) risultato += u'.' + frazione;
    return risultato;
}

QString Left(const QString& s, int n) {
    if (n < 0) throw Errore(5);
    return s.left(n);
}

QString Right(const QString& s, int n) {
    if (n < 0) throw Errore(5);
    return s.right(n);
}

QString Mid(const QString& s, int inizio, int lunghezza) {
    if (inizio < 1) throw Errore(5);
    if (inizio > s.size()) return QString();
    if (lunghezza < 0) return s.mid(inizio - 1);
    return s.mid(inizio - 1, lunghezza);
}

int Len(const QString& s) {
    return int(s.size());
}

int InStr(const QString& s, const QString& cerca) {
    return InStr(1, s, cerca);
}

int InStr(int inizio, const QString& s, const QString& cerca) {
    if (inizio < 1) throw Errore(5);
    if (inizio > s.size()) return cerca.isEmpty() && inizio == s.size() + 1 ? inizio : 0;
    if (cerca.isEmpty()) return inizio;
    return int(s.indexOf(cerca, inizio - 1)) + 1;
}

int InStrRev(const QString& s, const QString& cerca) {
    if (cerca.isEmpty()) return int(s.size());
    return int(s.lastIndexOf(cerca)) + 1;
}

QStringList Split(const QString& s, const QString& separatore) {
    if (separatore.isEmpty()) return {s};
    return s.split(separatore);
}

void SplitVista(QStringView s, QChar separatore, std::vector<QStringView>& pezzi) {
    pezzi.clear();
    // A row's fields are short: a plain walk is quicker than a search per field.
    const QChar* d = s.data();
    const qsizetype n = s.size();
    qsizetype inizio = 0;
    for (qsizetype i = 0; i < n; ++i)
        if (d[i] == separatore) {
            pezzi.push_back(s.sliced(inizio, i - inizio));
            inizio = i + 1;
        }
    pezzi.push_back(s.sliced(inizio));
}

double Val(QStringView testo) {
    return Val(QString::fromRawData(testo.data(), testo.size()));
}

int ValIntero(QStringView testo) {
    const double v = Val(testo);
    if (!(v == v)) return 0;
    if (v >= 2147483647.0) return std::numeric_limits<int>::max();
    if (v <= -2147483648.0) return std::numeric_limits<int>::min();
    return int(v);
}

QString Join(const QStringList& pezzi, const QString& separatore) {
    return pezzi.join(separatore);
}

QString LTrim(const QString& s) {
    int i = 0;
    while (i < s.size() && s[i] == u' ') ++i;
    return s.mid(i);
}

QString RTrim(const QString& s) {
    int n = int(s.size());
    while (n > 0 && s[n - 1] == u' ') --n;
    return s.left(n);
}

QString Trim(const QString& s) {
    return LTrim(RTrim(s));
}

QString UCase(const QString& s) {
    QString r = s;
    for (QChar& c : r) c = CambiaCaso(c, true);
    return r;
}

QString LCase(const QString& s) {
    QString r = s;
    for (QChar& c : r) c = CambiaCaso(c, false);
    return r;
}

QString Replace(const QString& s, const QString& cerca, const QString& con) {
    if (cerca.isEmpty()) return s;
    QString r = s;
    r.replace(cerca, con);
    return r;
}

QString Space(int n) {
    if (n < 0) throw Errore(5);
    return QString(n, u' ');
}

QString Str(double valore) {
    return Testo(valore);
}

QString CStr(double valore) {
    if (valore == 0) return QStringLiteral("0");
    // to_chars, unlike printf, ignores the host's locale.
    return Testo(valore, std::chars_format::general, 15).toUpper();
}

int CodiceWindows1252(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return c;
    if (c >= 0x80 && c <= 0x9F) {
        // Undefined bytes come back as themselves.
        return kAlti[c - 0x80] == 0 ? c : -1;
    }
    for (int i = 0; i < 32; ++i)
        if (kAlti[i] == c) return 0x80 + i;
    return -1;
}

QString DaWindows1252(const QByteArray& byte) {
    QString r;
    r.resize(byte.size());
    QChar* d = r.data();
    for (qsizetype i = 0; i < byte.size(); ++i) {
        const unsigned char b = static_cast<unsigned char>(byte[i]);
        char16_t c = b;
        if (b >= 0x80 && b <= 0x9F && kAlti[b - 0x80] != 0) c = kAlti[b - 0x80];
        d[i] = QChar(c);
    }
    return r;
}

QByteArray AWindows1252(const QString& testo) {
    QByteArray r;
    r.resize(testo.size());
    for (qsizetype i = 0; i < testo.size(); ++i) {
        const int c = CodiceWindows1252(testo[i].unicode());
        r[i] = c < 0 ? '?' : char(c);
    }
    return r;
}

} // namespace tavolet
