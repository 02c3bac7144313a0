#include "ddd.h"

#include "libretto.h"
#include "taf.h"

#include <QDir>
#include <QSet>

#include <algorithm>

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

QHash<quint64, QList<int>> RigheConCoppie(const QStringList& righe, const QStringList& nomi) {
    QHash<quint64, QList<int>> coppie;
    QHash<QStringView, int> indice;
    QSet<int> lunghezze;
    QList<int> altri; // names that do not begin with "PF": searched the plain way
    for (int i = 0; i < nomi.size(); ++i) {
        if (nomi[i].isEmpty()) continue;
        if (nomi[i].startsWith(QStringLiteral("PF"))) {
            if (!indice.contains(nomi[i])) indice.insert(nomi[i], i);
            lunghezze.insert(int(nomi[i].size()));
        } else {
            altri << i;
        }
    }
    QList<int> presenti;
    for (int r = 0; r < righe.size(); ++r) {
        const QString& riga = righe[r];
        presenti.clear();
        qsizetype p = riga.indexOf(QStringLiteral("PF"));
        while (p >= 0) {
            for (int l : lunghezze) {
                if (p + l > riga.size()) continue;
                const auto it = indice.constFind(QStringView(riga).mid(p, l));
                if (it != indice.constEnd() && !presenti.contains(*it)) presenti << *it;
            }
            p = riga.indexOf(QStringLiteral("PF"), p + 1);
        }
        for (int i : altri)
            if (riga.contains(nomi[i])) presenti << i;
        if (presenti.isEmpty()) continue;
        QList<int>& tutti = presenti;
        if (tutti.size() < 2) continue;
        std::sort(tutti.begin(), tutti.end());
        for (int a = 0; a < tutti.size(); ++a)
            for (int b = a + 1; b < tutti.size(); ++b)
                coppie[ChiaveCoppia(tutti[a], tutti[b])].append(r);
    }
    return coppie;
}

} // namespace tavolet
