// Small operations on an extract: cleaning, deleting a parcel, the head for the libretto, the
// self-made skeleton, and the archives of parcels and holders.
#include "estratto.h"

#include "errore.h"
#include "file_testo.h"
#include "interno.h"
#include "nome_file.h"
#include "righe.h"
#include "stato.h"
#include "testo.h"

#include <QSet>

#include <vector>

namespace tavolet {

using namespace estratti;

namespace {

const QString kTitolo = QStringLiteral("Tavolet");

DatiEstratto Dati(const QStringList& righe) {
    DatiEstratto d;
    const QStringList testa = Split(Voce(righe, 0), kBarra);
    d.Comune = Campo(testa, 3);
    d.Foglio = Right(Campo(testa, 4), 4);
    d.Particelle = Campo(testa, 5);
    d.Provincia = Campo(testa, 6);

    // The parcels are those of the plain rings of the file, not the ones asked for.
    QString nomi;
    for (const QString& riga : righe) {
        if (TipoRiga(riga) != 7 || Mid(riga, 3, 1) == u"0") continue;
        if (riga.contains(u"+|") || riga.contains(u"-|") || riga.contains(u"L|") ||
            riga.contains(u"T|"))
            continue;
        const RigaScomposta s = ScomponiRiga(riga);
        nomi += u',' + Campo(s.campi, s.NumeroCampi - 2);
    }
    d.Particelle = Mid(nomi, 2);

    double minimo = Val(Campo(Split(Voce(righe, 1), kBarra), 3));
    double massimo = minimo;
    for (const QString& riga : righe) {
        if (TipoRiga(riga) != 8 || riga.contains(u"8|PF")) continue;
        const double est = Val(Campo(Split(riga, kBarra), 3));
        minimo = std::min(minimo, est);
        massimo = std::max(massimo, est);
    }
    d.EstMedio = Formato((minimo + massimo) / 2, QStringLiteral("##########0"));
    return d;
}

void TogliPuntiIsolati(Estratto& e) {
    // "|<id>|" stands in a ring row exactly when a field between two bars holds the id.
    QSet<QString> usati;
    for (const QString& riga : e.SETTE) {
        const QStringList pezzi = riga.split(u'|');
        for (qsizetype k = 1; k + 1 < pezzi.size(); ++k) usati.insert(pezzi[k]);
    }
    std::vector<char> via(size_t(e.Punti.size()), 0);
    auto applica = [&] {
        QStringList restano;
        for (qsizetype i = 0; i < e.Punti.size(); ++i)
            if (!via[size_t(i)]) restano.append(e.Punti[i]);
        e.Punti = restano;
    };
    try {
        for (qsizetype i = e.Punti.size() - 1; i >= 0; --i)
            via[size_t(i)] = !usati.contains(Campo(Split(e.Punti[i], kBarra), 1));
    } catch (...) {
        applica(); // the rows already walked stay removed
        throw;
    }
    applica();
}

} // namespace

void PulisciEstratto(Stato& stato, const QString& nome) {
    Estratto e = EsplodiEstratto(stato, nome);
    EliminaPuntiIsolatiEstratto(stato, e);
    SalvaEstratto1(stato, e);
}

bool EliminaPuntiIsolatiEstratto(Stato& stato, Estratto& e) {
    return ConTrappola(stato, QStringLiteral("EliminaPuntiIsolatiEstratto"),
                       [&] { TogliPuntiIsolati(e); });
}

bool EliminaParticellaEstratto(Stato& stato, Estratto& e, const QString& nome) {
    const bool ok = ConTrappola(stato, QStringLiteral("EliminaParticellaEstratto"), [&] {
        for (qsizetype i = e.SETTE.size() - 1; i >= 0; --i) {
            const QStringList campi = Split(e.SETTE[i], kBarra);
            if (Campo(campi, campi.size() - 4) == nome) e.SETTE.removeAt(i);
        }
    });
    return ok && EliminaPuntiIsolatiEstratto(stato, e);
}

DatiEstratto DatiDaRigheEstratto(Stato& stato, const QStringList& righe) {
    DatiEstratto d;
    ConTrappola(stato, QStringLiteral("CopiaIDatiDellEstratto"), [&] { d = Dati(righe); });
    return d;
}

DatiEstratto CopiaIDatiDellEstratto(Stato& stato, const QString& nome) {
    DatiEstratto d;
    ConTrappola(stato, QStringLiteral("CopiaIDatiDellEstratto"), [&] {
        if (UCase(Right(Trim(nome), 4)) == u".AGG") {
            stato.piattaforma->Messaggio(QStringLiteral("selezionare un .EMP !"), kTitolo,
                                         Icona::Nessuna);
            return;
        }
        if (Trim(nome).isEmpty()) return;
        const QString percorso = PercorsoEstratto(stato, nome);
        if (!EsisteFile(percorso)) return;
        d = Dati(LeggiRighe(percorso));
    });
    return d;
}

QString TestoAutoallestito(const QStringList& righe) {
    QString testo = QStringLiteral("0|AUTOALLESTITO|0|0|0|0|0|0|0|0|") + CRLF;
    QString inquadramento;
    for (qsizetype i = 1; i < righe.size(); ++i) {
        const QString& riga = righe[i];
        const int tipo = TipoRiga(riga);
        if (tipo == 7 || tipo == 8) {
            const QString maiuscola = UCase(riga);
            if (!maiuscola.contains(u'L') && !maiuscola.contains(u'T') && !maiuscola.contains(u'P'))
                testo += riga + CRLF;
        } else if (riga.startsWith(u"6|INQUADRAMENTO|")) {
            inquadramento += riga + CRLF;
        }
    }
    return testo + inquadramento;
}

bool RendiAutoallestito(Stato& stato, const QString& nome) {
    return ConTrappola(stato, QStringLiteral("RendiAutoallestito"), [&] {
        const QString percorso = PercorsoEstratto(stato, nome);
        // ScriviTesto goes through a temporary file and renames it over the extract.
        ScriviTesto(percorso, TestoAutoallestito(LeggiRighe(percorso)));
    });
}

bool ArchiviaParticelleEstratto(Stato& stato, const Estratto& e) {
    return ConTrappola(stato, QStringLiteral("ArchiviaParticelleEstratto"), [&] {
        if (Trim(e.Percorso).isEmpty() || !EsisteFile(e.Percorso)) {
            stato.piattaforma->Messaggio(QStringLiteral("Estratto non trovato!"), kTitolo,
                                         Icona::Nessuna);
            return;
        }
        const QString cartella =
            stato.amb.UnitaPregeoDati + QStringLiteral("\\FIDUCIAL\\PARTICELLE\\");
        CreaCartella(cartella);
        for (const QString& riga : e.PARTICELLA) {
            const QString nome =
                e.EstrattoComune + u'_' + e.EstrattoFoglio + u'_' +
                Replace(Campo(Split(riga, kBarra), 2), QStringLiteral("/"), QStringLiteral("_"));
            ScriviTesto(cartella + NomeFileSicuro(nome + QStringLiteral(".Map")), riga + CRLF);
        }
    });
}

bool ArchiviaDitteEstratto(Stato& stato, const Estratto& e, const QString& chiave) {
    return ConTrappola(stato, QStringLiteral("ArchiviaDitteEstratto"), [&] {
        const QString cartella = stato.amb.UnitaPregeoDati + QStringLiteral("\\fiducial\\DITTA\\");
        CreaCartella(cartella);
        for (const QString& riga : e.DITTA) {
            const QStringList campi = Split(riga, kBarra);
            const QString file =
                cartella + NomeFileSicuro(chiave + u'_' + Campo(campi, 2) + u'_' + Campo(campi, 3) +
                                          QStringLiteral(".DIT"));
            const QString prima = EsisteFile(file) ? LeggiTesto(file) : QString();
            ScriviTesto(file, prima + riga + CRLF);
        }
    });
}

} // namespace tavolet
