#include "taf.h"

#include "libretto.h"
#include "nome_file.h"
#include "righe_byte.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

#include <algorithm>

namespace tavolet {

namespace {

// Mid that gives nothing past the end of a short line.
QString Colonne(const QString& riga, int da, int a = -1) {
    if (da > riga.size()) return QString();
    return Mid(riga, da, a < 0 ? -1 : a - da + 1);
}

} // namespace

double ValSicuro(const QString& testo) {
    try {
        return Val(testo);
    } catch (const Errore&) {
        return 0; // an overflowing number: the text stays, the value is of no use
    }
}

QString RigaTaf::Codice() const {
    return Trim(numero) + u'/' + Trim(foglio) + Trim(allegato) + u'/' + Trim(comune);
}

RigaTaf LeggiRigaTaf(const QString& riga) {
    RigaTaf r;
    r.comune = Trim(Colonne(riga, 1, 5));
    r.foglio = Right(QStringLiteral("000") + Trim(Colonne(riga, 6, 10)), 3);
    r.allegato = Right(QStringLiteral("00") + Trim(Colonne(riga, 11, 12)), 1);
    r.numero = QStringLiteral("PF") + Right(QStringLiteral("00") + Trim(Colonne(riga, 14, 17)), 2);
    r.mappa = Trim(Colonne(riga, 18, 26));
    r.rifPlan = Replace(Trim(Colonne(riga, 30, 94)), QStringLiteral("\""), QStringLiteral("'"));
    r.nord = Trim(Colonne(riga, 102, 113));
    r.est = Trim(Colonne(riga, 115, 126));
    r.attPlan = Trim(Colonne(riga, 128, 129));
    r.dataProt = Trim(Colonne(riga, 130, 133) + Colonne(riga, 139, 142));
    r.aggiornamento = Trim(Colonne(riga, 143, 164));
    r.rifAltim = Trim(Colonne(riga, 165, 224));
    r.attAltim = Trim(Colonne(riga, 237, 238));
    r.quota = Trim(Colonne(riga, 240));
    r.nordN = ValSicuro(r.nord);
    r.estN = ValSicuro(r.est);
    r.quotaN = ValSicuro(r.quota);
    return r;
}

QList<RigaTaf> LeggiTaf(const QString& testo) {
    QList<RigaTaf> righe;
    for (const QString& riga : RigheDiTesto(testo)) {
        if (Trim(riga).isEmpty()) continue;
        righe.append(LeggiRigaTaf(riga));
    }
    return righe;
}

QString ComuneDelPF(const QString& codice) {
    if (codice.size() < 11) return QString();
    return Trim(Mid(codice, 11));
}

QString CartellaFiduciali(const Stato& stato) {
    return stato.amb.UnitaPregeoDati + QStringLiteral("\\fiducial\\DATI\\");
}

QString PercorsoTaf(const Stato& stato, const QString& comune) {
    return CartellaFiduciali(stato) + NomeFileSicuro(comune + QStringLiteral(".TAF"));
}

QList<RigaTaf> LeggiTafComune(Stato& stato, const QString& comune) {
    const QString percorso = PercorsoTaf(stato, comune);
    if (Trim(comune).isEmpty() || !EsisteFile(percorso)) return {};
    return LeggiTaf(LeggiTesto(percorso));
}

QString CodiceComposto(const QString& riga) {
    const QString allegato = Colonne(riga, 12, 12);
    QString codice = QStringLiteral("PF") + Colonne(riga, 16, 17) + u'/' + Colonne(riga, 8, 10) +
                     (Trim(allegato).isEmpty() ? QStringLiteral("0") : allegato) + u'/' +
                     Trim(Colonne(riga, 1, 5));
    return Replace(codice, QStringLiteral(" "), QStringLiteral("0"));
}

PFNellaTaf TrovaPFNellaTAF(Stato& stato, const QString& codice) {
    return TrovaPFNellaTAF(stato, QStringList{codice}).first();
}

QList<PFNellaTaf> TrovaPFNellaTAF(Stato& stato, const QStringList& codici) {
    QList<PFNellaTaf> esiti(codici.size());
    QMap<QString, QHash<QString, QList<int>>> perComune; // municipality, code, indices
    for (int i = 0; i < codici.size(); ++i) {
        const QString cercato = Trim(codici[i]);
        const QString comune = ComuneDelPF(cercato);
        if (!comune.isEmpty()) perComune[comune][cercato] << i;
    }
    for (auto c = perComune.begin(); c != perComune.end(); ++c) {
        ConTrappola(stato, QStringLiteral("TrovaPFNellaTAF"), [&] {
            const QString percorso = PercorsoTaf(stato, c.key());
            if (!EsisteFile(percorso)) return;
            QHash<QString, QList<int>>& cercati = c.value();
            // The composition reads the first 17 columns only: the rest of a line is decoded
            // when it is the one.
            PerOgniRiga(LeggiByte(percorso), [&](QByteArrayView riga) {
                if (cercati.isEmpty()) return;
                const auto it = cercati.constFind(CodiceComposto(
                    DaWindows1252(riga.first(std::min<qsizetype>(17, riga.size())).toByteArray())));
                if (it == cercati.constEnd()) return;
                const QString testo = DaWindows1252(riga.toByteArray());
                for (int i : *it)
                    esiti[i] = {true, Trim(Colonne(testo, 103, 113)),
                                Trim(Colonne(testo, 116, 126))};
                cercati.erase(it);
            });
        });
    }
    return esiti;
}

const QStringList& IntestazioniGriglia() {
    static const QStringList intestazioni = {
        QStringLiteral("PF"),           QStringLiteral("Map"),   QStringLiteral("Att.Plan."),
        QStringLiteral("Nord"),         QStringLiteral("Est"),   QStringLiteral("Rif.Plan"),
        QStringLiteral("Att.Altim."),   QStringLiteral("Quota"), QStringLiteral("Rif.Altim."),
        QStringLiteral("Aggiornamento")};
    return intestazioni;
}

const QList<int>& MezziLarghezzeGriglia() {
    static const QList<int> mezzi = {4, 1, 1, 3, 3, 8, 1, 2, 8, 4};
    return mezzi;
}

QStringList CelleGriglia(const RigaTaf& r) {
    return {r.Codice(), r.mappa,    r.attPlan, r.nord,     r.est,
            r.rifPlan,  r.attAltim, r.quota,   r.rifAltim, r.aggiornamento};
}

QList<QStringList> GrigliaTaf(const QList<RigaTaf>& righe) {
    QList<QStringList> griglia;
    griglia.reserve(righe.size() + 1);
    griglia.append(IntestazioniGriglia());
    for (const RigaTaf& r : righe) griglia.append(CelleGriglia(r));
    return griglia;
}

QString EtichettaProvincia(const QString& provincia) {
    return QStringLiteral("Provincia di ") + provincia;
}

QString EtichettaComune(const QString& nome, const QString& codice) {
    return QStringLiteral("Comune di ") + nome + u' ' + codice;
}

QString EtichettaTotali(int righe) {
    return QStringLiteral("PF Totali ") + QString::number(righe);
}

QString TestoCsv(const QList<QStringList>& righe) {
    QString testo;
    for (const QStringList& riga : righe) {
        QStringList celle;
        for (const QString& c : riga)
            celle << u'"' + Replace(Trim(c), QStringLiteral("\""), QStringLiteral("\"\"")) + u'"';
        testo += Join(celle, QStringLiteral(",")) + CRLF;
    }
    return testo;
}

QString TestoColonne(const QStringList& intestazioni, const QList<QStringList>& righe,
                     const QString& larghezze) {
    const QStringList w = Split(larghezze, kBarra);
    auto linea = [&](const QStringList& celle) {
        QStringList pezzi;
        for (int i = 0; i < w.size(); ++i)
            pezzi << Left(celle.value(i) + Space(70), std::max(0, ValIntero(w[i])));
        return Join(pezzi, QStringLiteral(" "));
    };
    QString testo = linea(intestazioni) + CRLF;
    for (const QStringList& riga : righe) testo += linea(riga) + CRLF;
    return testo;
}

bool StampaSelezioneTaf(Stato& stato, const QList<QStringList>& griglia, int da, int a) {
    bool fatto = false;
    ConTrappola(stato, QStringLiteral("Stampa_selezione"), [&] {
        if (da > a) std::swap(da, a);
        da = std::max(da, 0);
        a = std::min(a, int(griglia.size()) - 1);
        if (a <= 0) return;
        QList<QStringList> scelte;
        for (int i = da; i <= a; ++i) scelte.append(griglia[i]);
        QList<QStringList> corpo;
        for (int i = std::max(da, 1); i <= a; ++i) corpo.append(griglia[i]);
        const QString stelo = stato.amb.CartellaLavoro + QStringLiteral("\\temp\\Stampa_TAF");
        CreaCartella(stato.amb.CartellaLavoro + QStringLiteral("\\temp"));
        ScriviTesto(stelo + QStringLiteral(".CSV"), TestoCsv(scelte));
        ScriviTesto(stelo + QStringLiteral(".TXT"),
                    TestoColonne(IntestazioniGriglia(), corpo, kLarghezzeStampaTaf));
        fatto = true;
    });
    return fatto;
}

QString IndirizzoMonografia(const QString& comune, const QString& codice) {
    QString indirizzo = QStringLiteral("https://www1.agenziaentrate.gov.it/servizi/Monografie/"
                                       "risultato.php?comune=") +
                        Trim(comune) + QStringLiteral("&co=") + Trim(codice);
    return Replace(indirizzo, QStringLiteral(" "), QStringLiteral("%20"));
}

void ApriMonografia(Stato& stato, const QString& codice) {
    stato.piattaforma->ApriConProgramma(IndirizzoMonografia(ComuneDelPF(codice), codice));
}

void ParolaImportTaf(Stato& stato) {
    // The installing is done by the sibling program; the dispatcher here has no entry for it.
    stato.TagRoutine = kParolaImportTaf;
}

QString CartellaProvince(const Stato& stato) {
    return stato.amb.UnitaPregeoDati + QStringLiteral("\\pregeo\\arch");
}

QStringList FileProvince(const Stato& stato) {
    const QString locale = PercorsoLocale(CartellaProvince(stato));
    QStringList nomi = QDir(locale).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    return nomi;
}

QList<ComuneTaf> LeggiComuniProvincia(Stato& stato, const QString& file) {
    QList<ComuneTaf> comuni;
    ConTrappola(stato, QStringLiteral("BV_ElcoPf"), [&] {
        const QString percorso = CartellaProvince(stato) + u'\\' + file;
        if (!EsisteFile(percorso)) return;
        for (const QString& riga : LeggiRighe(percorso)) {
            const QStringList campi = Split(riga, kBarra);
            comuni.append({campi.value(1) + campi.value(2), Trim(campi.value(4)), riga});
        }
    });
    return comuni;
}

QStringList CaricaPieffe8(Stato& stato, const QStringList& righeLibretto, bool quote) {
    QStringList lista;
    ConTrappola(stato, QStringLiteral("CaricaPieffe8"), [&] {
        QStringList nomi;
        for (const QString& riga : righeLibretto) {
            const int tipo = TipoRiga(riga);
            if (tipo != 2 && tipo != 5) continue;
            const QString nome = Split(riga, kBarra).value(1);
            if (nome.size() > 13 && nome.startsWith(QStringLiteral("PF"))) nomi << nome;
        }
        std::sort(nomi.begin(), nomi.end());
        nomi.erase(std::unique(nomi.begin(), nomi.end()), nomi.end());
        for (const QString& nome : nomi) {
            for (const RigaTaf& r : LeggiTafComune(stato, ComuneDelPF(nome))) {
                const QString codice = r.Codice();
                if (codice != nome) continue;
                lista << QStringLiteral("8|") + codice + kBarra + r.nord + kBarra + r.est + kBarra +
                             r.attPlan + kBarra + r.rifPlan + kBarra;
                if (!quote) continue;
                QString rif = r.rifAltim, att = r.attAltim, quota = r.quota;
                if (Trim(rif).isEmpty()) rif = QStringLiteral("NOTE:");
                if (Trim(att).isEmpty()) att = QStringLiteral("04");
                if (Trim(quota).isEmpty()) quota = QStringLiteral("9999.000");
                if (rif.contains(QStringLiteral("<QUOTA>"))) {
                    rif = QStringLiteral("Base Spigolo");
                    att = QStringLiteral("04");
                }
                lista << QStringLiteral("8|") + codice + kBarra + quota + kBarra + att + kBarra +
                             rif + kBarra;
            }
        }
    });
    return lista;
}

void ImportaRighe8(Stato& stato, const QStringList& righe8) {
    ConTrappola(stato, QStringLiteral("FormImportaFiduciali"), [&] {
        ListaRighe& lista = stato.doc.RigheLibretto;
        for (int i = lista.Conta() - 1; i >= 1; --i)
            if (TipoRiga(lista.Riga(i)) == 8) lista.Rimuovi(i);
        for (const QString& r : righe8) lista.Aggiungi(r);
        AggiornaLibrettoMisure(stato);
    });
}

bool LeggiQuotaMediaComune(Stato& stato) {
    bool trovata = false;
    ConTrappola(stato, QStringLiteral("QuotaMedia"), [&] {
        const QString codice = Trim(stato.testata.CodiceComuneLibretto);
        const QString percorso = stato.amb.CartellaProgramma + QStringLiteral("\\QUOTAMEDIA.TXT");
        if (codice.isEmpty() || !EsisteFile(percorso)) return;
        QString quota;
        for (const QString& riga : LeggiRighe(percorso)) {
            if (!riga.contains(codice)) continue;
            quota = Split(riga, kBarra).value(2);
            trovata = true;
        }
        if (trovata) stato.testata.QuotaMedia = quota;
    });
    return trovata;
}

} // namespace tavolet
