// Extracts and CXF sheets read into the layers of a GIS. The reading is that of the rest of the
// program: EsplodiEstratto for an extract, the CXF reader of the conversion for a sheet.
#include "gis.h"

#include "cxf.h"
#include "cxf_lettura.h"
#include "errore.h"
#include "estratto.h"
#include "file_testo.h"
#include "indice_punti.h"
#include "testo.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace tavolet {

namespace {

bool Lettera(QChar c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}
bool Cifre(QStringView s) {
    for (QChar c : s)
        if (c < u'0' || c > u'9') return false;
    return !s.isEmpty();
}
// A comune's code: a letter and three digits.
bool CodiceComune(QStringView s) {
    return s.size() == 4 && Lettera(s[0]) && Cifre(s.mid(1));
}
// No section is written "_" in a sheet code and "0" (or a blank) in an extract's head.
QString Sezione(QChar c) {
    return c == u'_' || c == u'0' || c == u' ' ? QString() : QString(c);
}

const QString kStili = QStringLiteral("|NC|NT|NP|RC|RT|RP|VC|VT|VP|");
bool Stile(const QString& campo) {
    return campo.size() == 2 && kStili.contains(u'|' + campo + u'|');
}

std::optional<double> Area(const QString& testo) {
    const QString t = Trim(testo);
    if (!NumeroCxf(t)) return std::nullopt;
    return Val(t);
}

} // namespace

bool CodiceFoglio(const QString& codice, FoglioGis& f) {
    if (codice.size() != 11 || !CodiceComune(QStringView(codice).left(4))) return false;
    f.comune = codice.left(4);
    f.sezione = Sezione(codice[4]);
    f.foglio = codice.mid(5, 4);
    f.allegato = codice.mid(9, 1);
    f.sviluppo = codice.mid(10, 1);
    return true;
}

QString TipoBordo(const QString& nome, const QString& nomeMappa, bool fondiario) {
    if (nome.endsWith(u'+')) return QStringLiteral("FABBRICATO");
    if (nome == u"STRADA" || (fondiario && nome.startsWith(u'S'))) return QStringLiteral("STRADA");
    if (nome == u"ACQUA" || (fondiario && nome.startsWith(u'A'))) return QStringLiteral("ACQUA");
    FoglioGis f;
    if ((!nomeMappa.isEmpty() && nome == nomeMappa) || CodiceFoglio(nome, f))
        return QStringLiteral("FOGLIO");
    return QStringLiteral("PARTICELLA");
}

std::vector<std::pair<QString, double>> AreeSup(const QStringList& righeSup) {
    static const QStringList parole = {"N.FABBRIC",  "N.PARTIC", "N.STRADE", "N.ACQUE",
                                       "N.SVIL-ALL", "FABBRIC",  "PARTIC",   "STRADE",
                                       "ACQUE",      "SVIL-ALL", "TOTALE",   "SBILANCIO"};
    QHash<QString, int> volte;
    std::vector<std::pair<QString, double>> aree;
    for (qsizetype i = 1; i < righeSup.size(); ++i) { // the first line is the sheet's name
        const QStringList campi = righeSup[i].split(u' ', Qt::SkipEmptyParts);
        if (campi.size() != 2 || parole.contains(campi[0]) || !NumeroCxf(campi[1])) continue;
        if (volte[campi[0]]++ == 0) aree.push_back({campi[0], Val(campi[1])});
    }
    std::erase_if(aree, [&](const auto& a) { return volte[a.first] > 1; });
    return aree;
}

FoglioGis FoglioGisDaCxf(const QString& testo, const QStringList& righeSup, const QString& sorgente,
                         QStringList& avvisi) {
    QStringList letti;
    FoglioLettoCxf l = LeggiFoglioCxf(testo, letti);
    FoglioGis f;
    f.sorgente = sorgente;
    if (!CodiceFoglio(l.nomeMappa, f))
        avvisi << sorgente + QStringLiteral(": il codice del foglio \"%1\" non è della forma "
                                            "CCCCZFFFFAS: comune, sezione e foglio restano vuoti")
                                 .arg(l.nomeMappa);
    for (const QString& a : letti) avvisi << sorgente + QStringLiteral(": ") + a;

    QHash<QString, double> aree;
    for (const auto& [nome, area] : AreeSup(righeSup)) aree.insert(nome, area);
    const bool fondiario = l.tipoMappa.contains(QStringLiteral("FONDIARIO"));
    auto punto = [](const PuntoCxf& p) { return PuntoGis{p.x, p.y}; };
    f.particelle.reserve(l.bordi.size());
    for (FoglioLettoCxf::Bordo& b : l.bordi) {
        FoglioGis::Particella p;
        p.nome = b.nome;
        p.tipo = TipoBordo(b.nome, l.nomeMappa, fondiario);
        const QString chiave =
            p.tipo == u"FOGLIO" && b.nome == l.nomeMappa ? QStringLiteral("CONFINE") : b.nome;
        if (aree.contains(chiave)) p.areaDichiarata = aree.value(chiave);
        for (const auto& anello : b.anelli) {
            std::vector<PuntoGis>& a = p.anelli.emplace_back();
            a.reserve(anello.size());
            for (const PuntoCxf& q : anello) a.push_back(punto(q));
        }
        f.particelle.push_back(std::move(p));
    }
    for (const auto& t : l.testi)
        f.testi.push_back({t.testo, t.dimensione, t.angolo, t.esterno, punto(t.p)});
    for (const auto& s : l.simboli)
        f.simboli.push_back({s.codice, s.angolo, s.esterno, punto(s.p)});
    for (const auto& fid : l.fiduciali)
        f.fiduciali.push_back({fid.nome, fid.codice, punto(fid.etichetta), punto(fid.p)});
    for (const auto& linea : l.linee) {
        FoglioGis::Linea g;
        g.tratto = QString::number(linea.tratto);
        g.esterno = linea.esterno;
        for (const PuntoCxf& q : linea.punti) g.punti.push_back(punto(q));
        f.linee.push_back(std::move(g));
    }
    return f;
}

namespace {

// North and east of a row 8: the point is (east, north).
PuntoGis PuntoRiga(const QString& riga) {
    const QStringList c = Split(riga, QStringLiteral("|"));
    return {Val(c.value(3)), Val(c.value(2))};
}

struct Anello {
    QString nome;
    std::optional<double> area;
    std::vector<PuntoGis> punti;
};

} // namespace

FoglioGis FoglioGisDaEstratto(Stato& stato, const QString& testo, const QString& sorgente,
                              QStringList& avvisi) {
    const Estratto e = EsplodiTestoEstratto(stato, testo, sorgente);
    FoglioGis f;
    f.sorgente = sorgente;
    const QStringList testa = Split(e.ZERO.value(0), QStringLiteral("|"));
    if (CodiceComune(testa.value(3))) f.comune = testa.value(3);
    const QString sezioneFoglio = testa.value(4);
    if (sezioneFoglio.size() == 5 && Cifre(QStringView(sezioneFoglio).mid(1))) {
        f.sezione = Sezione(sezioneFoglio[0]);
        f.foglio = sezioneFoglio.mid(1);
    }
    auto avviso = [&](const QString& testo) { avvisi << sorgente + QStringLiteral(": ") + testo; };

    const QHash<QString, int> indice = IndicePuntiEstratto(e.Punti);
    QList<Anello> anelli, isole;
    for (const QString& riga : e.SETTE) {
        const QStringList campi = Split(riga, QStringLiteral("|"));
        const qsizetype n = campi.size() - 1;
        if (n < 6) {
            avviso(QStringLiteral("riga 7 \"%1\" troppo corta; tralasciata").arg(riga));
            continue;
        }
        Anello a;
        a.nome = campi[n - 2];
        a.area = Area(campi[n - 1]);
        QString motivo;
        for (qsizetype k = 2; k <= n - 5 && motivo.isEmpty(); ++k) {
            if (Stile(campi[k])) continue; // the pen changes there
            const auto it = indice.constFind(campi[k]);
            if (it == indice.constEnd())
                motivo = QStringLiteral("il punto \"%1\" non è tra i vertici").arg(campi[k]);
            else
                a.punti.push_back(PuntoRiga(e.Punti[it.value()]));
        }
        if (motivo.isEmpty() && a.punti.size() < 4)
            motivo = QStringLiteral("meno di quattro vertici");
        if (motivo.isEmpty() &&
            (a.punti.front().x != a.punti.back().x || a.punti.front().y != a.punti.back().y))
            motivo = QStringLiteral("l'anello non è chiuso");
        if (!motivo.isEmpty()) {
            avviso(QStringLiteral("particella %1: %2; tralasciata").arg(a.nome, motivo));
            continue;
        }
        (a.nome.endsWith(u'-') ? isole : anelli).append(std::move(a));
    }
    // A ring "257-" is a hole of the parcel 257, whose area it takes away; without one it
    // stands alone.
    QHash<QString, qsizetype> perNome;
    for (qsizetype i = anelli.size() - 1; i >= 0; --i) perNome.insert(anelli[i].nome, i);
    std::vector<std::vector<std::vector<PuntoGis>>> buchi(size_t(anelli.size()));
    for (Anello& isola : isole) {
        const auto it = perNome.constFind(isola.nome.chopped(1));
        if (it != perNome.constEnd())
            buchi[size_t(it.value())].push_back(std::move(isola.punti));
        else
            anelli.append(std::move(isola));
    }
    buchi.resize(size_t(anelli.size()));
    for (qsizetype i = 0; i < anelli.size(); ++i) {
        FoglioGis::Particella p;
        p.nome = anelli[i].nome;
        p.tipo = TipoBordo(p.nome, QString());
        p.areaDichiarata = anelli[i].area;
        p.anelli.push_back(std::move(anelli[i].punti));
        for (auto& b : buchi[size_t(i)]) p.anelli.push_back(std::move(b));
        f.particelle.push_back(std::move(p));
    }

    const QHash<QString, int> indiceLinee = IndicePuntiEstratto(e.PLinee);
    for (const QString& riga : e.Linee) {
        const QStringList campi = Split(riga, QStringLiteral("|"));
        FoglioGis::Linea l;
        QString mancante;
        for (qsizetype k = 2; k < campi.size(); ++k) {
            if (Stile(campi[k])) {
                if (l.tratto.isEmpty()) l.tratto = campi[k];
                continue;
            }
            const auto it = indiceLinee.constFind(campi[k]);
            if (it != indiceLinee.constEnd())
                l.punti.push_back(PuntoRiga(e.PLinee[it.value()]));
            else if (campi[k].endsWith(u'L') && mancante.isEmpty())
                mancante = campi[k];
        }
        if (!mancante.isEmpty() || l.punti.size() < 2) {
            avviso(QStringLiteral("linea \"%1\": %2; tralasciata")
                       .arg(riga, mancante.isEmpty()
                                      ? QStringLiteral("meno di due punti")
                                      : QStringLiteral("il punto \"%1\" non c'è").arg(mancante)));
            continue;
        }
        f.linee.push_back(std::move(l));
    }
    for (const QString& riga : e.Toponimi) {
        const QStringList c = Split(riga, QStringLiteral("|"));
        f.testi.push_back({c.value(5), std::nullopt, Val(c.value(4)), false, PuntoRiga(riga)});
    }
    for (const QString& riga : e.PF)
        f.fiduciali.push_back({Split(riga, QStringLiteral("|")).value(1), std::nullopt,
                               std::nullopt, PuntoRiga(riga)});
    for (const QString& riga : e.Punti)
        f.vertici.push_back({Split(riga, QStringLiteral("|")).value(1), PuntoRiga(riga)});
    return f;
}

QStringList IngressiGis(const QStringList& argomenti, QStringList& avvisi) {
    static const QStringList estensioni = {"EMP", "CXF", "CTF"};
    auto adatto = [](const QFileInfo& i) { return estensioni.contains(i.suffix().toUpper()); };
    QStringList file;
    for (const QString& a : argomenti) {
        const QFileInfo info(a);
        if (info.isDir()) {
            const QFileInfoList voci =
                QDir(a).entryInfoList(QDir::Files, QDir::Name | QDir::IgnoreCase);
            for (const QFileInfo& v : voci)
                if (adatto(v)) file << v.absoluteFilePath();
        } else if (!info.isFile()) {
            avvisi << a + QStringLiteral(": non trovato");
        } else if (!adatto(info)) {
            avvisi << a + QStringLiteral(": né un estratto (.EMP) né un foglio CXF (.CXF, .CTF)");
        } else {
            file << info.absoluteFilePath();
        }
    }
    return file;
}

std::optional<FoglioGis> LeggiIngressoGis(Stato& stato, const QString& percorso,
                                          QStringList& avvisi) {
    const QFileInfo info(percorso);
    try {
        const QString testo = LeggiTesto(percorso);
        if (info.suffix().toUpper() == u"EMP")
            return FoglioGisDaEstratto(stato, testo, info.fileName(), avvisi);
        // The .SUP beside it, its name written in any case.
        QStringList sup;
        const QFileInfoList compagni = info.dir().entryInfoList(
            {info.completeBaseName() + QStringLiteral(".SUP")}, QDir::Files);
        for (const QFileInfo& c : compagni)
            if (c.completeBaseName().compare(info.completeBaseName(), Qt::CaseInsensitive) == 0)
                sup = LeggiRighe(c.absoluteFilePath());
        return FoglioGisDaCxf(testo, sup, info.fileName(), avvisi);
    } catch (const Errore& e) {
        avvisi << percorso + QStringLiteral(": non si legge (errore %1)").arg(e.numero);
    }
    return std::nullopt;
}

} // namespace tavolet
