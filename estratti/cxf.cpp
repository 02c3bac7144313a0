// CXF to .EMP. The registry's CXF knows no shared point numbers: every border lists its own
// coordinates, so the work is numbering them, equal texts being one point.
#include "cxf.h"
#include "cxf_lettura.h"

#include "errore.h"
#include "file_testo.h"
#include "interno.h"
#include "stato.h"
#include "testo.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavolet {

using namespace estratti;

namespace {

const QString kTitoloCxf = QStringLiteral("Estratto da CXF");
// The same head for every conversion: the CXF carries no release data.
const QString kTesta =
    QStringLiteral("0|05102017|XX0000000/2017|A000|00180|1,2,3|XX|PUB|ABCDEF|00000000000000|");

// The working lists of the conversion. ListaBordi: per border the marker ">name", per ring its
// size, per vertex "|x|y|".
struct Lettura {
    QStringList ListaCoordinate, ListaBordi;
    bool barre = false; // some item holds a bar: the substitution goes the long way
};

void LeggiBordo(VociCxf& voci, Lettura& l) {
    BordoCxf b;
    LeggiBordoCxf(voci, b);
    l.barre = l.barre || b.nome.contains(u'|');
    l.ListaBordi.append(u'>' + b.nome);
    size_t k = 0;
    for (const qint64 anello : b.anelli) {
        l.ListaBordi.append(QString::number(anello));
        for (qint64 v = 0; v < anello; ++v, k += 2) {
            const QString voce =
                u'|' + b.coordinate[k].toString() + u'|' + b.coordinate[k + 1].toString() + u'|';
            l.ListaCoordinate.append(voce);
            l.ListaBordi.append(voce);
        }
    }
}

Lettura LeggiCxf(const QString& testo) {
    Lettura l;
    VociCxf voci(testo);
    for (int k = 0; k < 3 && !voci.Fine(); ++k) voci.Prossima();
    while (!voci.Fine())
        if (voci.Prossima() == u"BORDO") LeggiBordo(voci, l);
    return l;
}

// The list kept sorted as text: the order of the form's sorted list, equal ones in their order
// of insertion. Then neighbours of equal text are one point.
void OrdinaEUnisci(QStringList& lista) {
    std::stable_sort(lista.begin(), lista.end(), MinoreInLista);
    QStringList uniche;
    uniche.reserve(lista.size());
    for (const QString& voce : lista)
        if (uniche.isEmpty() || uniche.last() != voce) uniche.append(voce);
    lista = uniche;
}

// Each vertex entry takes the id of the first coordinate entry that contains it. Without bars
// in the items an entry "|x|y|" is contained only in the one of the same x and y.
void Sostituisci(Lettura& l) {
    if (!l.barre) {
        QHash<QStringView, QString> primo;
        primo.reserve(l.ListaCoordinate.size());
        for (const QString& voce : l.ListaCoordinate) {
            const qsizetype barra = voce.indexOf(u'|');
            const QStringView chiave = QStringView(voce).mid(barra);
            if (!primo.contains(chiave)) primo.insert(chiave, voce.left(barra));
        }
        for (QString& voce : l.ListaBordi) {
            if (!voce.contains(u'|')) continue;
            const auto it = primo.constFind(QStringView(voce));
            if (it != primo.constEnd()) voce = it.value() + voce;
        }
        return;
    }
    for (QString& voce : l.ListaBordi) {
        if (!voce.contains(u'|')) continue;
        for (const QString& c : l.ListaCoordinate) {
            if (c.contains(voce)) {
                voce = Split(c, kBarra)[0] + voce;
                break;
            }
        }
    }
}

void Stampa(QString& testo, const QString& riga) {
    testo += riga;
    testo += CRLF;
}

} // namespace

QString AreaDaSup(const QStringList& righeSup, const QString& nome) {
    for (qsizetype i = 1; i < righeSup.size(); ++i) {
        if (!righeSup[i].startsWith(nome)) continue;
        const QString area = Trim(Mid(righeSup[i], 10));
        return Val(area) == 0 ? QStringLiteral("20") : area;
    }
    return QStringLiteral("20");
}

QString RigaSetteDaCXF(const QString& riga, const QString& coda) {
    const QStringList campi = Split(riga, kBarra);
    QString uscita = QStringLiteral("7|") + Voce(campi, 1);
    qsizetype primaRiga = -1; // where the first line ends
    int conta = 0;
    for (qsizetype k = 2; k < campi.size(); ++k) {
        if (++conta <= 10) {
            uscita += u'|' + campi[k];
            continue;
        }
        uscita += QStringLiteral("|NC|");
        if (primaRiga < 0) primaRiga = uscita.size();
        uscita += CRLF + QStringLiteral("7|0|") + campi[k];
        conta = 1;
    }
    uscita += QStringLiteral("|NC|");
    if (primaRiga < 0) primaRiga = uscita.size();
    uscita.insert(primaRiga, coda);
    return uscita;
}

RisultatoCxf ComponiEmpDaCxf(Stato& stato, const QString& testoCxf, const QStringList& righeSup) {
    RisultatoCxf r;
    Lettura l;
    if (!ConTrappola(stato, QStringLiteral("dacxfadxf1"), [&] {
            l = LeggiCxf(testoCxf);
            OrdinaEUnisci(l.ListaCoordinate);
            for (qsizetype i = 0; i < l.ListaCoordinate.size(); ++i)
                l.ListaCoordinate[i] = QString::number(i + 1) + u'%' + l.ListaCoordinate[i];
            Sostituisci(l);
        }))
        return r;

    QString& t = r.emp;
    Stampa(t, kTesta);
    for (const QString& voce : l.ListaCoordinate) {
        const QStringList c = Split(voce, kBarra);
        Stampa(t, QStringLiteral("8|") + c[0] + u'|' + Voce(c, 2) + u'|' + Voce(c, 1) + u'|');
    }
    // With no coordinate at all the framing step has no entry: the report, and the framing row
    // goes out without its pair.
    QString xy;
    ConTrappola(stato, QStringLiteral("dacxfadxf2"), [&] {
        if (l.ListaCoordinate.isEmpty()) throw Errore(9);
        const QStringList c = Split(l.ListaCoordinate.last(), kBarra);
        xy = Voce(c, 1) + u'|' + Voce(c, 2);
    });
    stato.TagRoutine = QStringLiteral("dacxfadxf3");
    for (QString& voce : l.ListaBordi)
        if (voce.contains(u'|')) voce = Split(voce, kBarra)[0];

    const QStringList& b = l.ListaBordi;
    if (!b.isEmpty()) {
        auto nomeDa = [](const QString& voce) { return voce.mid(voce.indexOf(u'>') + 1); };
        auto chiudi = [&](const QString& riga, const QString& nome) {
            const QString coda = nome + u'|' + nome + u'|' + AreaDaSup(righeSup, nome) + u'|';
            Stampa(t, RigaSetteDaCXF(riga, coda));
        };
        QString nome = nomeDa(b[0]);
        QString riga = QStringLiteral("7|") + Voce(b, 1);
        for (qsizetype i = 2; i < b.size(); ++i) {
            const QString& voce = b[i];
            if (voce.contains(u'%')) {
                riga += u'|' + voce;
            } else if (voce.contains(u'>')) {
                chiudi(riga, nome);
                riga = QStringLiteral("7|");
                nome = nomeDa(voce);
            } else {
                riga += voce; // an island's size sticks to the id before it
            }
        }
        chiudi(riga, nome);
    }
    Stampa(t, QStringLiteral("6|DISTORSIONE|1.5|"));
    Stampa(t, QStringLiteral("6|SCALAORIGINARIA|2000|"));
    Stampa(t, QStringLiteral("6|INQUADRAMENTO|") + xy + QStringLiteral("|0.1693333333|0|0|0|"));
    stato.TagRoutine.clear();
    r.scritto = true;
    return r;
}

namespace {

QString ConEstensione(const QString& percorso, const QString& estensione) {
    const QString p = UCase(percorso);
    if (p.contains(QStringLiteral(".CXF"))) return Replace(p, QStringLiteral(".CXF"), estensione);
    return SenzaEstensione(p) + estensione;
}

} // namespace

QString PercorsoSup(const QString& percorsoCxf) {
    return ConEstensione(percorsoCxf, QStringLiteral(".SUP"));
}

QString PercorsoEmpDaCxf(const QString& percorsoCxf) {
    return ConEstensione(percorsoCxf, QStringLiteral(".EMP"));
}

QString EstrattoDaCxf(Stato& stato, const QString& percorsoCxf, QString percorsoEmp) {
    QString testo;
    QStringList sup;
    if (!ConTrappola(stato, QStringLiteral("dacxfadxf1"), [&] {
            const QString percorsoSup = PercorsoSup(percorsoCxf);
            if (EsisteFile(percorsoSup)) {
                sup = LeggiRighe(percorsoSup);
            } else {
                stato.piattaforma->Messaggio(
                    QStringLiteral("FILE ") + percorsoSup + QStringLiteral("NON TROVATO!") + CRLF +
                        CRLF +
                        QStringLiteral(
                            " Sarà impossibile attribuire le superfici alle particelle!"),
                    kTitoloCxf, Icona::Avviso);
            }
            testo = LeggiTesto(percorsoCxf);
        }))
        return {};
    const RisultatoCxf r = ComponiEmpDaCxf(stato, testo, sup);
    if (!r.scritto) return {};
    if (percorsoEmp.isEmpty()) percorsoEmp = PercorsoEmpDaCxf(percorsoCxf);
    if (!ConTrappola(stato, QStringLiteral("dacxfadxf3"), [&] {
            ScriviTesto(percorsoEmp, r.emp);
            ScriviTesto(SenzaEstensione(percorsoEmp) + QStringLiteral(".PNG"),
                        QStringLiteral("filevuoto") + CRLF);
        }))
        return {};
    stato.piattaforma->Messaggio(QStringLiteral("Creato!") + CRLF + percorsoEmp, kTitoloCxf,
                                 Icona::Informazione);
    return percorsoEmp;
}

} // namespace tavolet
