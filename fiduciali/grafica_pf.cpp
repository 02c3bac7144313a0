#include "grafica_pf.h"

#include "ddd.h"
#include "libretto.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace tavolet {

namespace {

// Text as the CAD program's reader wants it: quoted text, bare numbers.
QString Testo(const QString& s) {
    return u'"' + s + u'"';
}

QString Numero(double v) {
    return Str(v);
}

} // namespace

int TabellaPF::Selezionati() const {
    return int(std::count_if(record.begin(), record.end(),
                             [](const RecordPF& r) { return r.selezionato; }));
}

TabellaPF TabellaDaTaf(const QList<RigaTaf>& righe) {
    TabellaPF t;
    t.record.reserve(righe.size());
    for (const RigaTaf& r : righe) t.record.append({r.Codice(), r.nordN, r.estN, false, r});
    return t;
}

TabellaPF TabellaDaGriglia(Stato& stato, const QString& comune, const QStringList& codici) {
    TabellaPF t;
    ConTrappola(stato, QStringLiteral("BV_ElcoPFGrafica"), [&] {
        const QList<RigaTaf> righe = LeggiTafComune(stato, comune);
        QHash<QString, int> posizione;
        for (int i = 0; i < righe.size(); ++i)
            if (!posizione.contains(righe[i].Codice())) posizione.insert(righe[i].Codice(), i);
        for (const QString& c : codici) {
            const auto it = posizione.constFind(c);
            if (it == posizione.constEnd()) continue;
            const RigaTaf& r = righe[*it];
            t.record.append({c, r.nordN, r.estN, false, r});
        }
    });
    return t;
}

void SelezionaTutti(TabellaPF& t) {
    for (RecordPF& r : t.record) r.selezionato = true;
}

void SelezionaNessuno(TabellaPF& t) {
    for (RecordPF& r : t.record) r.selezionato = false;
}

void InvertiSelezione(TabellaPF& t) {
    for (RecordPF& r : t.record) r.selezionato = !r.selezionato;
}

void TogliGaussiane(TabellaPF& t) {
    for (RecordPF& r : t.record)
        if (r.est > 1000000 && r.nord >= 4000000) r.selezionato = false;
}

void SelezionaExPF(TabellaPF& t) {
    static const QStringList segni = {QStringLiteral("NU"), QStringLiteral("N.U."),
                                      QStringLiteral("NON"), QStringLiteral("EX PF")};
    for (RecordPF& r : t.record)
        for (const QString& s : segni)
            if (r.taf.rifPlan.contains(s)) r.selezionato = true;
}

QString FoglioDelCodice(const QString& codice) {
    return Split(codice, QStringLiteral("/")).value(1);
}

QStringList FogliTabella(const TabellaPF& t) {
    QStringList fogli;
    for (const RecordPF& r : t.record) fogli << FoglioDelCodice(r.codice);
    std::sort(fogli.begin(), fogli.end());
    fogli.erase(std::unique(fogli.begin(), fogli.end()), fogli.end());
    return fogli;
}

void SelezionaFoglio(TabellaPF& t, const QString& foglio) {
    for (RecordPF& r : t.record) r.selezionato = FoglioDelCodice(r.codice) == foglio;
}

void SelezionaIntorno(TabellaPF& t, int centro, double raggio) {
    if (centro < 0 || centro >= t.Conta()) return;
    const RecordPF c = t.record[centro];
    for (RecordPF& r : t.record)
        r.selezionato = std::hypot(r.est - c.est, r.nord - c.nord) <= raggio;
}

int RecordVicino(const TabellaPF& t, double est, double nord) {
    int migliore = -1;
    double minima = 0;
    for (int i = 0; i < t.Conta(); ++i) {
        const double d = std::hypot(t.record[i].est - est, t.record[i].nord - nord);
        if (migliore < 0 || d < minima) {
            migliore = i;
            minima = d;
        }
    }
    return migliore;
}

QString TestoStatoGraficaPF(const TabellaPF& t, double est, double nord, double scala) {
    QString testo = Formato(est, QStringLiteral("#########0.##0")) + QStringLiteral(" , ") +
                    Formato(nord, QStringLiteral("#########0.##0")) + QStringLiteral(" Scala : ") +
                    Formato(scala, QStringLiteral("#########0"));
    const int vicino = RecordVicino(t, est, nord);
    if (vicino >= 0 && !t.record[vicino].codice.contains(QStringLiteral("/0000/")))
        testo += QStringLiteral("  ") + t.record[vicino].codice;
    QList<int> scelti;
    for (int i = 0; i < t.Conta() && scelti.size() < 3; ++i)
        if (t.record[i].selezionato) scelti << i;
    if (scelti.size() == 2) {
        const RecordPF& a = t.record[scelti[0]];
        const RecordPF& b = t.record[scelti[1]];
        const double d = std::hypot(b.est - a.est, b.nord - a.nord);
        testo += QStringLiteral("  Distanza : ") + Formato(d, QStringLiteral("#########0.##0")) +
                 QStringLiteral(" / ") + Formato(b.est - a.est, QStringLiteral("#####0.000")) +
                 QStringLiteral(" / ") + Formato(b.nord - a.nord, QStringLiteral("#####0.000"));
    }
    return testo;
}

const QStringList& IntestazioniStampaFiduciali() {
    static const QStringList intestazioni = {QStringLiteral("Punto Fiduciale"),
                                             QStringLiteral("Mappale"),
                                             QStringLiteral("Att.Planim."),
                                             QStringLiteral("Nord"),
                                             QStringLiteral("Est"),
                                             QStringLiteral("Rif.Planim."),
                                             QStringLiteral("Att.Altim."),
                                             QStringLiteral("Quota"),
                                             QStringLiteral("Rif. Altim.")};
    return intestazioni;
}

void StampaListaPFSelezionati(Stato& stato, const TabellaPF& t) {
    ConTrappola(stato, QStringLiteral("StampaListaPFSelezionati"), [&] {
        QList<QStringList> righe;
        for (const RecordPF& r : t.record) {
            if (!r.selezionato) continue;
            righe.append({r.codice, r.taf.mappa, r.taf.attPlan, r.taf.nord, r.taf.est,
                          r.taf.rifPlan, r.taf.attAltim, r.taf.quota, r.taf.rifAltim});
        }
        const QString stelo = stato.amb.CartellaLavoro + QStringLiteral("\\temp\\Stampa_Fiduciali");
        CreaCartella(stato.amb.CartellaLavoro + QStringLiteral("\\temp"));
        QList<QStringList> csv{IntestazioniStampaFiduciali()};
        csv.append(righe);
        ScriviTesto(stelo + QStringLiteral(".CSV"), TestoCsv(csv));
        ScriviTesto(stelo + QStringLiteral(".TXT"),
                    TestoColonne(IntestazioniStampaFiduciali(), righe, kLarghezzeStampaFiduciali));
        stato.piattaforma->ApriConProgramma(stelo + QStringLiteral(".TXT"));
    });
}

bool MettiDistanzeMisurate(Stato& stato, TabellaPF& t) {
    bool fatto = false;
    ConTrappola(stato, QStringLiteral("MettiDistanzeMisurate"), [&] {
        t.misure.clear();
        QStringList codici;
        QList<int> indici;
        QSet<QString> visti;
        for (int i = 0; i < t.Conta(); ++i) {
            if (!t.record[i].selezionato || visti.contains(t.record[i].codice)) continue;
            visti.insert(t.record[i].codice);
            codici << t.record[i].codice;
            indici << i;
        }
        if (codici.isEmpty()) return;
        const QString sigla = SiglaProvinciaDelComune(stato, Right(codici.first(), 4));
        const QString nome = ArchivioMisurate(stato, sigla);
        const QString archivio = PercorsoArchivio(stato, nome);
        if (!EsisteFile(archivio)) {
            CaricaProvince(stato);
            QString provincia = sigla;
            for (const Provincia& p : stato.amb.TabellaProvince)
                if (p.SiglaProvincia == sigla) provincia = p.NomeProvincia;
            stato.piattaforma->Messaggio(QStringLiteral("Manca la Provincia ") + provincia + CRLF +
                                             QStringLiteral("Installare "),
                                         QStringLiteral("MettiDistanzeMisurate"), Icona::Critico);
            return;
        }
        const CoppieArchivio archivioCoppie = CoppieNellArchivio(LeggiByte(archivio), codici);
        const QStringList& righe = archivioCoppie.righe;
        const auto& coppie = archivioCoppie.coppie;
        QList<quint64> chiavi = coppie.keys();
        std::sort(chiavi.begin(), chiavi.end());
        for (quint64 k : chiavi) {
            const int i = int(k >> 32), j = int(k & 0xffffffffu);
            for (int r : coppie.value(k)) {
                const QString testa = Left(righe[r], 30);
                if (!testa.contains(codici[i]) && !testa.contains(codici[j])) continue;
                // One line of measure for a pair however many times it was measured.
                t.misure.append({indici[i], indici[j], righe[r]});
                break;
            }
        }
        fatto = true;
    });
    return fatto;
}

QString TestoCopiaInFile(const TabellaPF& t) {
    QString testo;
    for (const RecordPF& r : t.record) {
        if (!r.selezionato) continue;
        testo += Join({Testo(QStringLiteral("P")), Testo(r.codice), Numero(r.est), Numero(r.nord),
                       QStringLiteral("12"), QStringLiteral("1"), Testo(QStringLiteral("TAF"))},
                      QStringLiteral(",")) +
                 CRLF;
    }
    for (const MisuraPF& m : t.misure) {
        const RecordPF& a = t.record[m.da];
        const RecordPF& b = t.record[m.a];
        testo += Join({Testo(QStringLiteral("L")), Numero(a.est), Numero(a.nord),
                       QStringLiteral("0"), Numero(b.est), Numero(b.nord), QStringLiteral("0"),
                       QStringLiteral("7"), QStringLiteral("1"), QStringLiteral("0"),
                       Testo(QStringLiteral("MISURATE")), QStringLiteral("0")},
                      QStringLiteral(",")) +
                 CRLF;
    }
    return testo;
}

void CopiaPFNelDisegno(Stato& stato, const TabellaPF& t) {
    ConTrappola(stato, QStringLiteral("CopiaPFNelDisegno"), [&] {
        const QString cartella = stato.amb.CartellaDocumenti + QStringLiteral("\\Bravanta\\TEMP");
        CreaCartella(cartella);
        ScriviTesto(cartella + QStringLiteral("\\CopiaInFile.txt"), TestoCopiaInFile(t));
        ScriviTesto(cartella + QStringLiteral("\\EseguiIncollaDaFile.TXT"),
                    QStringLiteral("EseguiIncolaDaFile") + CRLF);
        stato.piattaforma->Messaggio(QStringLiteral("PF copiati!"),
                                     QStringLiteral("Copia PF in Disegno"), Icona::Informazione);
    });
}

QString TestoDXFPF(const TabellaPF& t) {
    QStringList r{QStringLiteral("  0"), QStringLiteral("SECTION"), QStringLiteral("  2"),
                  QStringLiteral("ENTITIES")};
    for (const RecordPF& p : t.record) {
        r << QStringLiteral("  0") << QStringLiteral("POINT") << QStringLiteral("  8")
          << QStringLiteral("Punti") << QStringLiteral(" 10") << Numero(p.est)
          << QStringLiteral(" 20") << Numero(p.nord) << QStringLiteral(" 30")
          << QStringLiteral("0");
        r << QStringLiteral("  0") << QStringLiteral("TEXT") << QStringLiteral("  8")
          << QStringLiteral("Nomi") << QStringLiteral(" 10") << Numero(p.est)
          << QStringLiteral(" 20") << Numero(p.nord) << QStringLiteral(" 30") << QStringLiteral("0")
          << QStringLiteral(" 40") << QStringLiteral("1") << QStringLiteral("  1") << p.codice;
    }
    for (const MisuraPF& m : t.misure) {
        const RecordPF& a = t.record[m.da];
        const RecordPF& b = t.record[m.a];
        r << QStringLiteral("  0") << QStringLiteral("LINE") << QStringLiteral("  8")
          << QStringLiteral("Linee") << QStringLiteral(" 10") << Numero(a.est)
          << QStringLiteral(" 20") << Numero(a.nord) << QStringLiteral(" 30") << QStringLiteral("0")
          << QStringLiteral(" 11") << Numero(b.est) << QStringLiteral(" 21") << Numero(b.nord)
          << QStringLiteral(" 31") << QStringLiteral("0");
    }
    r << QStringLiteral("  0") << QStringLiteral("ENDSEC") << QStringLiteral("  0")
      << QStringLiteral("EOF");
    return Join(r, CRLF) + CRLF;
}

QString PercorsoDXFPF(const Stato& stato) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\GraficaPF.DXF");
}

bool SalvaDXFPF(Stato& stato, const TabellaPF& t) {
    return ConTrappola(stato, QStringLiteral("SalvaDXFPF"), [&] {
        CreaCartella(stato.amb.CartellaLavoro);
        ScriviTesto(PercorsoDXFPF(stato), TestoDXFPF(t));
    });
}

} // namespace tavolet
