#include "ddd.h"

#include "libretto.h"
#include "taf.h"

#include <QDir>
#include <QSet>

#include <algorithm>
#include <cstring>
#include <vector>

namespace tavolet {

MisuraDdd LeggiRigaDdd(const QString& riga) {
    MisuraDdd m;
    const QStringList codici =
        Trim(Left(riga, std::min<int>(33, int(riga.size())))).split(u' ', Qt::SkipEmptyParts);
    m.codice1 = codici.value(0);
    m.codice2 = codici.value(1);
    if (riga.size() >= 34) m.distanza = ValSicuro(Mid(riga, 34));
    return m;
}

QStringList FileDdd(const Stato& stato) {
    const QString locale = PercorsoLocale(CartellaFiduciali(stato));
    QStringList nomi;
    for (const QString& n : QDir(locale).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase))
        if (n.endsWith(QStringLiteral(".DDD"), Qt::CaseInsensitive)) nomi << n;
    return nomi;
}

QString SiglaProvinciaDelComune(Stato& stato, const QString& comune) {
    CaricaComuni(stato);
    const QString c = UCase(Trim(comune));
    if (c.isEmpty()) return QString();
    for (const Comune& voce : stato.amb.TabellaComuni)
        if (UCase(voce.CodiceComune) == c) return voce.SiglaProvincia;
    for (const Comune& voce : stato.amb.TabellaComuni)
        if (UCase(Left(voce.CodiceComune, 4)) == c) return voce.SiglaProvincia;
    return QString();
}

QString ArchivioMisurate(const Stato& stato, const QString& sigla) {
    const QStringList nomi = FileDdd(stato);
    const QString s = UCase(Trim(sigla));
    if (!s.isEmpty())
        for (int i = int(nomi.size()) - 1; i >= 0; --i)
            if (UCase(nomi[i]).startsWith(s)) return nomi[i];
    return s;
}

QString PercorsoArchivio(const Stato& stato, const QString& nome) {
    return CartellaFiduciali(stato) + nome;
}

namespace {

// A 16-bit print of the characters behind "PF" (number and sheet of a code).
inline quint16 ImprontaCodice(const char* c, qsizetype l) {
    quint32 h = quint32(l);
    for (qsizetype k = 2; k < std::min<qsizetype>(l, 10); ++k) h = h * 31 + quint8(c[k]);
    return quint16(h ^ (h >> 16));
}

} // namespace

CoppieArchivio CoppieNellArchivio(const QByteArray& byte, const QStringList& nomi) {
    CoppieArchivio esito;
    // Names as the bytes of the file hold them. A name with a character that no byte decodes
    // to, or with a line end, is in no line; so a name found in the bytes lies within a line.
    QHash<QByteArrayView, int> indice;
    QList<qsizetype> lunghezze;
    QList<std::pair<int, QByteArray>> altri; // names that do not begin with "PF": searched
    QList<QByteArray> codificati(nomi.size());
    for (int i = 0; i < nomi.size(); ++i) {
        if (nomi[i].isEmpty()) continue;
        codificati[i] = AWindows1252(nomi[i]);
        if (DaWindows1252(codificati[i]) != nomi[i] || codificati[i].contains('\r') ||
            codificati[i].contains('\n'))
            continue;
        if (nomi[i].startsWith(QStringLiteral("PF"))) {
            if (!indice.contains(codificati[i])) indice.insert(codificati[i], i);
            if (!lunghezze.contains(codificati[i].size())) lunghezze << codificati[i].size();
        } else {
            altri.append({i, codificati[i]});
        }
    }
    // A first sieve before the lookup: most "PF" of an archive begin a code that is not wanted.
    std::vector<bool> setaccio(1 << 16);
    for (auto it = indice.constBegin(); it != indice.constEnd(); ++it)
        setaccio[ImprontaCodice(it.key().data(), it.key().size())] = true;

    // Every place of a name in the bytes, then the places grouped by line.
    const char* dati = byte.constData();
    const qsizetype n = byte.size();
    QList<std::pair<qsizetype, int>> posti;
    for (qsizetype p = 0; p + 1 < n; ++p) {
        const void* trovato = std::memchr(dati + p, 'P', size_t(n - 1 - p));
        if (!trovato) break;
        p = static_cast<const char*>(trovato) - dati;
        if (dati[p + 1] != 'F') continue;
        for (qsizetype l : lunghezze) {
            if (p + l > n || !setaccio[ImprontaCodice(dati + p, l)]) continue;
            const auto it = indice.constFind(QByteArrayView(dati + p, l));
            if (it != indice.constEnd()) posti.append({p, *it});
        }
    }
    for (const auto& [i, nome] : altri)
        for (qsizetype p = byte.indexOf(nome); p >= 0; p = byte.indexOf(nome, p + 1))
            posti.append({p, i});
    if (!altri.isEmpty()) std::stable_sort(posti.begin(), posti.end());

    auto fineRiga = [&](char c) { return c == '\r' || c == '\n'; };
    QList<int> presenti;
    qsizetype k = 0;
    while (k < posti.size()) {
        const qsizetype p = posti[k].first;
        qsizetype inizio = p, fine = p;
        while (inizio > 0 && !fineRiga(dati[inizio - 1])) --inizio;
        while (fine < n && !fineRiga(dati[fine])) ++fine;
        presenti.clear();
        for (; k < posti.size() && posti[k].first < fine; ++k)
            if (!presenti.contains(posti[k].second)) presenti << posti[k].second;
        if (presenti.size() < 2) continue;
        std::sort(presenti.begin(), presenti.end());
        const int r = int(esito.righe.size());
        esito.righe << DaWindows1252(QByteArray(dati + inizio, fine - inizio));
        for (int a = 0; a < presenti.size(); ++a)
            for (int b = a + 1; b < presenti.size(); ++b)
                esito.coppie[ChiaveCoppia(presenti[a], presenti[b])].append(r);
    }
    return esito;
}

} // namespace tavolet
