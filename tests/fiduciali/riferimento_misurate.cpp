#include "riferimento_misurate.h"

#include "ddd.h"
#include "generatore_taf.h"
#include "libretto.h"
#include "taf.h"

#include <algorithm>
#include <cmath>

namespace tavolet::test {

namespace {

const QString kTitolo = "MISURATE PF";

QString Destra(const QString& s, int n) {
    return s.size() >= n ? s : Space(n - int(s.size())) + s;
}

QString Testa(const QString& a, const QString& b) {
    return Left(a + "  ", 15) + "- " + Left(b + "  ", 15);
}

QStringList Unici(QStringList nomi) {
    std::sort(nomi.begin(), nomi.end());
    nomi.erase(std::unique(nomi.begin(), nomi.end()), nomi.end());
    return nomi;
}

QStringList Rapporto(Stato& stato, QStringList nomi, const QList<PuntoPF>* punti) {
    nomi = Unici(nomi);
    if (nomi.size() >= 51) {
        stato.piattaforma->Messaggio("Troppi PF da elaborare", "Problema !!", Icona::Avviso);
        return {};
    }
    const bool libretto = punti == nullptr;
    const QString figura = libretto ? "######0.##0" : "#########0.##0";
    QStringList rapporto{"Elenco Distanze Misurate Trovate"};

    const QString comune = Split(nomi.first(), "/").value(2);
    const QString nome = ArchivioMisurate(stato, SiglaProvinciaDelComune(stato, comune));
    stato.doc.NomeMisurate = nome;
    const QString archivio = PercorsoArchivio(stato, nome);
    if (!EsisteFile(archivio)) {
        if (!libretto) {
            stato.piattaforma->Messaggio("Archivio " + archivio +
                                             " Non installato. Provvedere e ritentare!",
                                         "Archivio Misurate", Icona::Avviso);
        } else if (stato.piattaforma->Domanda(
                       "Archivio " + archivio + " Non installato. Scaricare Archivio?",
                       "Archivio Misurate", Pulsanti::SiNo, Risposta::No) == Risposta::Si) {
            ParolaImportTaf(stato);
        }
        return {};
    }

    QStringList trovati; // name|east|north
    for (const QString& n : nomi) {
        const PFNellaTaf pf = TrovaPFNellaTAFRiferimento(stato, Replace(n, "@", QString()));
        if (pf.trovato) {
            trovati << n + u'|' + pf.est + u'|' + pf.nord;
        } else {
            stato.piattaforma->Messaggio("Il " + n + CRLF + " Non è stato trovato nella TAF!",
                                         "PF Non trovato", Icona::Informazione);
        }
    }

    struct Coppia {
        QString uno, due, testo;
    };
    QList<Coppia> coppie;
    for (int i = 0; i < nomi.size(); ++i)
        for (int j = i + 1; j < nomi.size(); ++j)
            coppie.append({nomi[i], nomi[j], nomi[i] + u'|' + nomi[j]});
    std::stable_sort(coppie.begin(), coppie.end(), [](const Coppia& a, const Coppia& b) {
        return a.testo.compare(b.testo, Qt::CaseInsensitive) < 0;
    });

    const QStringList righeArchivio = LeggiRighe(archivio);

    auto coordinate = [&](const QString& n) {
        for (const PuntoPF& p : *punti)
            if (p.nome == n) return std::pair{p.x, p.y};
        throw Errore(9);
    };
    auto voce = [&](const QString& n, double& est, double& nord) {
        for (const QString& t : trovati) {
            if (!t.contains(n)) continue;
            const QStringList c = Split(t, "|");
            est = Val(c.value(1));
            nord = Val(c.value(2));
            return true;
        }
        return false;
    };

    for (const Coppia& coppia : coppie) {
        const QString a = std::min(coppia.uno, coppia.due);
        const QString b = std::max(coppia.uno, coppia.due);
        double d = 0;
        if (!libretto) {
            const auto [xa, ya] = coordinate(a);
            const auto [xb, yb] = coordinate(b);
            d = std::hypot(xb - xa, yb - ya);
        }
        rapporto << " " << kIntestazioneMisurate;
        const QString testa = Testa(a, b);
        rapporto << testa + Destra(Formato(d, figura), 13) + "               (REALE)";
        double ea = 0, na = 0, eb = 0, nb = 0;
        if (voce(a, ea, na) && voce(b, eb, nb)) {
            const double t = std::hypot(eb - ea, nb - na);
            rapporto << testa + Destra(Formato(t, figura), 13) +
                            Destra(Formato(d - t, figura), 10) + "               ( TAF )    ";
        }
        double somma = 0;
        int conta = 0;
        for (const QString& riga : righeArchivio) {
            if (!riga.contains(a) || !riga.contains(b)) continue;
            const double m = Val(riga.size() >= 34 ? Mid(riga, 34) : QString());
            rapporto << testa + riga.mid(testa.size()) +
                            Destra(Formato(d - m, "#########0.##0"), 10);
            somma += m;
            ++conta;
        }
        if (somma > 0 && conta > 0)
            rapporto << Space(32) + Destra(Formato(somma / conta, figura), 13) +
                            "               ( Media )    ";
    }
    CreaCartella(stato.amb.CartellaDocumenti + "\\Norvello\\temp");
    ScriviTesto(PercorsoFileMisurate(stato), Join(rapporto, CRLF));
    stato.piattaforma->ApriConProgramma(PercorsoFileMisurate(stato));
    return rapporto;
}

} // namespace

PFNellaTaf TrovaPFNellaTAFRiferimento(Stato& stato, const QString& codice) {
    PFNellaTaf esito;
    ConTrappola(stato, "TrovaPFNellaTAF", [&] {
        const QString cercato = Trim(codice);
        const QString percorso = PercorsoTaf(stato, ComuneDelPF(cercato));
        if (ComuneDelPF(cercato).isEmpty() || !EsisteFile(percorso)) return;
        for (const QString& riga : LeggiRighe(percorso)) {
            if (CodiceComposto(riga) != cercato) continue;
            esito.nord = Trim(Mid(riga, 103, 11));
            esito.est = Trim(Mid(riga, 116, 11));
            esito.trovato = true;
            return;
        }
    });
    return esito;
}

QStringList CalcolaMisuratePFRiferimento(Stato& stato, QList<PuntoPF>& punti) {
    QStringList rapporto;
    ConTrappola(stato, "CalcolaMisuratePF", [&] {
        QStringList nomi;
        QList<int> scartati;
        for (int i = 0; i < punti.size(); ++i) {
            QString& n = punti[i].nome;
            if (n.size() <= 13 || UCase(Left(n, 2)) != u"PF") continue;
            n = UCase(n);
            if (n[13].isDigit()) {
                nomi << n;
            } else {
                stato.piattaforma->Messaggio("Trovato PF con C.F. Catastale " + CRLF + "SCARTATO!" +
                                                 CRLF + n,
                                             kTitolo, Icona::Avviso);
                scartati.prepend(i);
            }
        }
        for (int i : scartati) punti.removeAt(i);
        if (nomi.isEmpty()) {
            stato.piattaforma->Messaggio("Nessun PF trovato nel disegno", kTitolo,
                                         Icona::Informazione);
            return;
        }
        rapporto = Rapporto(stato, nomi, &punti);
    });
    return rapporto;
}

QStringList CalcolaMisuratePF_DaLibrettoRiferimento(Stato& stato,
                                                    const QStringList& righeLibretto) {
    QStringList rapporto;
    ConTrappola(stato, "CalcolaMisuratePF_DaLibretto", [&] {
        QStringList nomi;
        for (const QString& riga : righeLibretto) {
            if (TipoRiga(riga) != 8) continue;
            const QString campo = Split(riga, "|").value(1);
            if (UCase(Left(campo, 2)) == u"PF") nomi << UCase(campo);
        }
        if (nomi.isEmpty()) {
            stato.piattaforma->Messaggio("Nessun PF trovato nel libretto", kTitolo,
                                         Icona::Informazione);
            return;
        }
        rapporto = Rapporto(stato, nomi, nullptr);
    });
    return rapporto;
}

} // namespace tavolet::test
