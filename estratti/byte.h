// Rows of an extract read in place, as bytes of Windows-1252 text: the large files (a comune's
// vertices) are rewritten and joined without turning every row into a string.
#pragma once

#include "testo.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace tavolet::estratti {

using Byte = std::string_view;

inline bool Cifra(char c) {
    return c >= '0' && c <= '9';
}

// The bars are looked for in short rows, where a plain loop beats memchr.
inline size_t Barra(Byte s, size_t da) {
    for (size_t i = da; i < s.size(); ++i)
        if (s[i] == '|') return i;
    return Byte::npos;
}
inline size_t BarraIndietro(Byte s, size_t da) {
    if (s.empty()) return Byte::npos;
    for (size_t i = std::min(da, s.size() - 1) + 1; i-- > 0;)
        if (s[i] == '|') return i;
    return Byte::npos;
}

// The fields of a row between its bars, as Split gives them.
inline void CampiDi(Byte riga, std::vector<Byte>& campi) {
    campi.clear();
    for (size_t inizio = 0;;) {
        const size_t barra = Barra(riga, inizio);
        campi.push_back(riga.substr(inizio, barra == Byte::npos ? Byte::npos : barra - inizio));
        if (barra == Byte::npos) break;
        inizio = barra + 1;
    }
}

// Val of bytes, through the runtime's own read.
inline double ValTesto(Byte t) {
    return Val(DaWindows1252(QByteArray::fromRawData(t.data(), qsizetype(t.size()))));
}

// Val of a field: the plain decimal form read at once, anything else by the runtime's Val. Up
// to fifteen digits and 22 decimals the digits as a whole number and the power of ten are both
// exact, so one division gives the correctly rounded value, as the full read does.
inline double ValCampo(Byte t) {
    size_t i = 0;
    const bool negativo = !t.empty() && t[0] == '-';
    if (negativo) ++i;
    if (i < t.size() && Cifra(t[i])) {
        static constexpr double kDieci[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
        quint64 m = 0;
        int cifre = 0, decimali = -1;
        bool semplice = true;
        for (size_t k = i; k < t.size() && semplice; ++k) {
            if (Cifra(t[k])) {
                m = m * 10 + quint64(t[k] - '0');
                ++cifre;
                if (decimali >= 0) ++decimali;
            } else if (t[k] == '.' && decimali < 0) {
                decimali = 0;
            } else {
                semplice = false;
            }
        }
        if (semplice && cifre <= 15 && decimali <= 22) {
            const double v = double(m) / kDieci[std::max(decimali, 0)];
            return negativo ? -v : v;
        }
        if (semplice && cifre < 300) {
            double v = 0;
            const auto r = std::from_chars(t.data(), t.data() + t.size(), v);
            if (r.ec == std::errc() && r.ptr == t.data() + t.size()) return v;
        }
    }
    return ValTesto(t);
}

// The number of an id "<n>%" without leading zeros, or -1.
inline qint64 NumeroId(Byte id, size_t massimo) {
    if (id.size() < 2 || id.size() > massimo || id.back() != '%' || id.front() == '0') return -1;
    qint64 n = 0;
    for (size_t k = 0; k + 1 < id.size(); ++k) {
        if (!Cifra(id[k])) return -1;
        n = n * 10 + (id[k] - '0');
    }
    return n;
}

// Where the line that starts at i ends: at the first CR or LF, or at n.
inline qsizetype FineRiga(const char* d, qsizetype i, qsizetype n) {
    const void* lf = std::memchr(d + i, '\n', size_t(n - i));
    const qsizetype j = lf ? static_cast<const char*>(lf) - d : n;
    const void* cr = std::memchr(d + i, '\r', size_t(j - i));
    return cr ? static_cast<const char*>(cr) - d : j;
}

// The lines of the bytes as the text reader splits them: CRLF, a lone LF or a lone CR end a
// line; a last line without end is a line. f(riga) for each.
template <typename F> void PerRiga(const QByteArray& dati, F&& f) {
    const char* d = dati.constData();
    const qsizetype n = dati.size();
    for (qsizetype i = 0; i < n;) {
        qsizetype j = FineRiga(d, i, n);
        f(Byte(d + i, size_t(j - i)));
        if (j < n && d[j] == '\r' && j + 1 < n && d[j + 1] == '\n') ++j;
        i = j + 1;
    }
}

// Every occurrence of cerca taken out, left to right.
inline void Togli(std::string& s, Byte cerca) {
    std::string r;
    r.reserve(s.size());
    size_t da = 0;
    for (size_t p; (p = s.find(cerca, da)) != std::string::npos; da = p + cerca.size())
        r.append(s, da, p - da);
    r.append(s, da, std::string::npos);
    s.swap(r);
}

} // namespace tavolet::estratti
