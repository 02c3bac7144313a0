#include "misurate.h"

#include "ddd.h"
#include "libretto.h"
#include "taf.h"

#include <algorithm>

namespace tavolet {

namespace {

const QString kTitolo = QStringLiteral("MISURATE PF");
const QString kFiguraDisegno = QStringLiteral("#########0.##0");
const QString kFiguraLibretto = QStringLiteral("######0.##0");

QString Destra(const QString& s, int n) {
    return s.size() >= n ? s : Space(n - int(s.size())) + s;
}

QString Testa(const QString& a, const QString& b) {
    return Left(a + QStringLiteral("  "), 15) + QStringLiteral("- ") +
           Left(b + QStringLiteral("  "), 15);
}

double Distanza(double x0, double y0, double x1, double y1) {
    return std::hypot(x1 - x0, y1 - y0);
}

void ScriviEApri(Stato& stato, const QStringList& righe) {
    const QString cartella = stato.amb.CartellaDocumenti + QStringLiteral("\\Norvello\\temp");
    CreaCartella(cartella);
    ScriviTesto(PercorsoFileMisurate(stato), Join(righe, CRLF));
    stato.piattaforma->ApriConProgramma(PercorsoFileMisurate(stato));
}

// The common part of the two reports, from step 5 on. punti is null for the libretto.
QStringList Rapporto(Stato& stato, const QStringList& nomi, const QList<PuntoPF>* punti,
                     const QString& suffisso) {
    const bool libretto = punti == nullptr;
    const QString figura = libretto ? kFiguraLibretto : kFiguraDisegno;
    QStringList rapporto{QStringLiteral("Elenco Distanze Misurate Trovate")};

    const QString comune = Split(nomi.first(), QStringLiteral("/")).value(2);
    const QString nome = ArchivioMisurate(stato, SiglaProvinciaDelComune(stato, comune));
    stato.doc.NomeMisurate = nome;
    const QString archivio = PercorsoArchivio(stato, nome);
    if (!EsisteFile(archivio)) {
        if (!libretto) {
            stato.piattaforma->Messaggio(
                QStringLiteral("Archivio ") + archivio +
                    QStringLiteral(" Non installato. Provvedere e ritentare!"),
                QStringLiteral("Archivio Misurate"), Icona::Avviso);
        } else if (stato.piattaforma->Domanda(
                       QStringLiteral("Archivio ") + archivio +
                           QStringLiteral(" Non installato. Scaricare Archivio?"),
                       QStringLiteral("Archivio Misurate"), Pulsanti::SiNo,
                       Risposta::No) == Risposta::Si) {
            ParolaImportTaf(stato);
        }
        return {};
    }

    stato.TagRoutine = QStringLiteral("CalcolaMisuratePF3") + suffisso;
    QStringList trovati; // name|east|north
    QStringList senzaChiocciola;
    for (const QString& n : nomi) senzaChiocciola << Replace(n, QStringLiteral("@"), QString());
    const QList<PFNellaTaf> nellaTaf = TrovaPFNellaTAF(stato, senzaChiocciola);
    stato.TagRoutine = QStringLiteral("CalcolaMisuratePF3") + suffisso;
    for (int i = 0; i < nomi.size(); ++i) {
        const QString& n = nomi[i];
        const PFNellaTaf& pf = nellaTaf[i];
        if (pf.trovato) {
            trovati << n + u'|' + pf.est + u'|' + pf.nord;
        } else {
            stato.piattaforma->Messaggio(QStringLiteral("Il ") + n + CRLF +
                                             QStringLiteral(" Non è stato trovato nella TAF!"),
                                         QStringLiteral("PF Non trovato"), Icona::Informazione);
        }
    }

    struct Coppia {
        int i, j;
        QString testo;
    };
    QList<Coppia> coppie;
    for (int i = 0; i < nomi.size(); ++i)
        for (int j = i + 1; j < nomi.size(); ++j) coppie.append({i, j, nomi[i] + u'|' + nomi[j]});
    std::stable_sort(coppie.begin(), coppie.end(), [](const Coppia& a, const Coppia& b) {
        return a.testo.compare(b.testo, Qt::CaseInsensitive) < 0;
    });

    stato.TagRoutine = QStringLiteral("CalcolaMisuratePF1") + suffisso;
    const CoppieArchivio misure = CoppieNellArchivio(LeggiByte(archivio), nomi);

    auto coordinate = [&](const QString& n) {
        for (const PuntoPF& p : *punti)
            if (p.nome == n) return std::pair{p.x, p.y};
        throw Errore(9);
    };
    auto voce = [&](const QString& n, double& est, double& nord) {
        for (const QString& t : trovati) {
            if (!t.contains(n)) continue;
            const QStringList c = Split(t, QStringLiteral("|"));
            est = Val(c.value(1));
            nord = Val(c.value(2));
            return true;
        }
        return false;
    };

    stato.TagRoutine = QStringLiteral("CalcolaMisuratePF2") + suffisso;
    for (const Coppia& c : coppie) {
        const QString a = std::min(nomi[c.i], nomi[c.j]);
        const QString b = std::max(nomi[c.i], nomi[c.j]);
        double d = 0;
        if (!libretto) {
            const auto [xa, ya] = coordinate(a);
            const auto [xb, yb] = coordinate(b);
            d = Distanza(xa, ya, xb, yb);
        }
        rapporto << QStringLiteral(" ") << kIntestazioneMisurate;
        const QString testa = Testa(a, b);
        rapporto << testa + Destra(Formato(d, figura), 13) +
                        QStringLiteral("               (REALE)");
        double ea = 0, na = 0, eb = 0, nb = 0;
        if (voce(a, ea, na) && voce(b, eb, nb)) {
            const double t = Distanza(ea, na, eb, nb);
            rapporto << testa + Destra(Formato(t, figura), 13) +
                            Destra(Formato(d - t, figura), 10) +
                            QStringLiteral("               ( TAF )    ");
        }
        double somma = 0;
        int conta = 0;
        for (int r : misure.coppie.value(ChiaveCoppia(c.i, c.j))) {
            const QString& riga = misure.righe[r];
            const double m = Val(riga.size() >= 34 ? Mid(riga, 34) : QString());
            rapporto << testa + riga.mid(testa.size()) + Destra(Formato(d - m, kFiguraDisegno), 10);
            somma += m;
            ++conta;
        }
        if (somma > 0 && conta > 0)
            rapporto << Space(32) + Destra(Formato(somma / conta, figura), 13) +
                            QStringLiteral("               ( Media )    ");
    }
    ScriviEApri(stato, rapporto);
    return rapporto;
}

QStringList Unici(QStringList nomi) {
    std::sort(nomi.begin(), nomi.end());
    nomi.erase(std::unique(nomi.begin(), nomi.end()), nomi.end());
    return nomi;
}

} // namespace

QString PercorsoFileMisurate(const Stato& stato) {
    return stato.amb.CartellaDocumenti + QStringLiteral("\\Norvello\\temp\\Misurate.TXT");
}

QStringList CalcolaMisuratePF(Stato& stato, QList<PuntoPF>& punti) {
    QStringList rapporto;
    ConTrappola(stato, QStringLiteral("CalcolaMisuratePF"), [&] {
        QStringList nomi;
        QList<int> scartati;
        for (int i = 0; i < punti.size(); ++i) {
            QString& n = punti[i].nome;
            if (n.size() <= 13 || UCase(Left(n, 2)) != u"PF") continue;
            n = UCase(n);
            if (n[13].isDigit()) {
                nomi << n;
            } else {
                stato.piattaforma->Messaggio(QStringLiteral("Trovato PF con C.F. Catastale ") +
                                                 CRLF + QStringLiteral("SCARTATO!") + CRLF + n,
                                             kTitolo, Icona::Avviso);
                scartati.prepend(i);
            }
        }
        for (int i : scartati) punti.removeAt(i);
        if (nomi.isEmpty()) {
            stato.piattaforma->Messaggio(QStringLiteral("Nessun PF trovato nel disegno"), kTitolo,
                                         Icona::Informazione);
            return;
        }
        nomi = Unici(nomi);
        if (nomi.size() >= 51) {
            stato.piattaforma->Messaggio(QStringLiteral("Troppi PF da elaborare"),
                                         QStringLiteral("Problema !!"), Icona::Avviso);
            return;
        }
        rapporto = Rapporto(stato, nomi, &punti, QString());
    });
    return rapporto;
}

QStringList CalcolaMisuratePF_DaLibretto(Stato& stato, const QStringList& righeLibretto) {
    QStringList rapporto;
    ConTrappola(stato, QStringLiteral("CalcolaMisuratePF_DaLibretto"), [&] {
        QStringList nomi;
        for (const QString& riga : righeLibretto) {
            if (TipoRiga(riga) != 8) continue;
            const QString campo = Split(riga, QStringLiteral("|")).value(1);
            if (UCase(Left(campo, 2)) == u"PF") nomi << UCase(campo);
        }
        if (nomi.isEmpty()) {
            stato.piattaforma->Messaggio(QStringLiteral("Nessun PF trovato nel libretto"), kTitolo,
                                         Icona::Informazione);
            return;
        }
        nomi = Unici(nomi);
        if (nomi.size() >= 51) {
            stato.piattaforma->Messaggio(QStringLiteral("Troppi PF da elaborare"),
                                         QStringLiteral("Problema !!"), Icona::Avviso);
            return;
        }
        rapporto = Rapporto(stato, nomi, nullptr, QStringLiteral("_DaLibretto"));
    });
    return rapporto;
}

QStringList MisurateDa1PF(Stato& stato, const QString& codice) {
    QStringList rapporto;
    ConTrappola(stato, QStringLiteral("MisurateDa1PF"), [&] {
        const QString pf = Trim(codice);
        const QString comune = Split(pf, QStringLiteral("/")).value(2);
        const QString nome = ArchivioMisurate(stato, SiglaProvinciaDelComune(stato, comune));
        const QString archivio = PercorsoArchivio(stato, nome);
        QStringList righe{QStringLiteral("Provincia di : ") + nome};
        if (!EsisteFile(archivio)) {
            if (stato.piattaforma->Domanda(QStringLiteral("File ") + nome +
                                               QStringLiteral(" non trovato!!") + CRLF +
                                               QStringLiteral("Vuoi scaricarlo ora?"),
                                           QStringLiteral("Misurate non Trovate"), Pulsanti::SiNo,
                                           Risposta::No) == Risposta::Si)
                ParolaImportTaf(stato);
            return;
        }
        if (!pf.isEmpty())
            for (const QString& riga : LeggiRighe(archivio))
                if (riga.contains(pf)) righe << riga;
        if (righe.size() < 2) righe << QStringLiteral("Nessuna relazione con altri PF trovata!");
        ScriviEApri(stato, righe);
        rapporto = righe;
    });
    return rapporto;
}

bool SelezionaLeMisurate(Stato& stato, const QString& nome) {
    if (Trim(nome).isEmpty()) {
        stato.piattaforma->Messaggio(QStringLiteral("Selezionare un Database!!"),
                                     QStringLiteral("Seleziona archivio"), Icona::Avviso);
        return false;
    }
    stato.doc.NomeMisurate = UCase(nome);
    RispondiTag(stato, UCase(nome));
    return true;
}

bool EliminaDatabaseMisurate(Stato& stato, const QString& nome) {
    bool eliminato = false;
    ConTrappola(stato, QStringLiteral("FormDatabaseMisurate"), [&] {
        if (Trim(nome).isEmpty()) {
            stato.piattaforma->Messaggio(QStringLiteral("Selezionare un Database!!"),
                                         QStringLiteral("Seleziona archivio"), Icona::Avviso);
            return;
        }
        if (stato.piattaforma->Domanda(QStringLiteral("Eliminare definitivamente ") + nome +
                                           QStringLiteral(" ??"),
                                       QStringLiteral("Eliminazione Database"), Pulsanti::SiNo,
                                       Risposta::No) != Risposta::Si)
            return;
        EliminaFile(CartellaFiduciali(stato) + nome);
        eliminato = true;
    });
    return eliminato;
}

} // namespace tavolet
