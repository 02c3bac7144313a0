// The act as a whole: the head against today, the tables and the technician; the extract; the
// fiducial archive. Files are read through a silent state, so that a broken extract or archive
// becomes a finding instead of an error report on the screen.
#include "controllo.h"
#include "controllo_interno.h"

#include "archivio.h"
#include "codice_fiscale.h"
#include "configurazione.h"
#include "estratto.h"
#include "libretto.h"
#include "piattaforma_finta.h"
#include "taf.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace tavolet {

using namespace controllo;

namespace {

QStringList CampiRiga0(const QStringList& righe) {
    if (righe.isEmpty() || TipoRiga(righe[0]) != 0) return {};
    return Split(righe[0] + QStringLiteral("|||||||||||||"), QStringLiteral("|"));
}

// The reports of a read land here; the check tells what went wrong in its own words.
struct Silenzioso {
    PiattaformaFinta piattaforma;
    Stato stato{piattaforma};
    explicit Silenzioso(Stato& vero) {
        stato.amb = vero.amb;
        piattaforma.adesso = vero.piattaforma->Adesso();
    }
    QString UltimoErrore() const {
        return piattaforma.eventi.isEmpty() ? QString() : piattaforma.eventi.last().testo;
    }
};

void ControllaTestata(Stato& stato, QList<Rilievo>& r, const QStringList& campi) {
    const QDate oggi = stato.piattaforma->Adesso().date();
    const QString data = campi.value(1);
    const QDate giorno = DataNelFormato(data) && Numero(data, true) ? DataDaTesto(data) : QDate();
    // A date that is not real is the grammar's finding; it is compared with today only when real.
    if (giorno.isValid() && giorno.toString(QStringLiteral("ddMMyyyy")) == data) {
        if (giorno > oggi)
            Aggiungi(r, "DATA_FUTURA", true, 1,
                     QStringLiteral("Data del libretto %1 successiva a oggi (%2)")
                         .arg(Virgolette(data), oggi.toString(QStringLiteral("ddMMyyyy"))));
        else if (giorno < oggi)
            Aggiungi(r, "DATA_PASSATA", false, 1,
                     QStringLiteral("Data del libretto %1 precedente la data attuale: la "
                                    "conferma chiederebbe di inserire quella di oggi")
                         .arg(Virgolette(data)));
    }
    const QString comune = Trim(campi.value(3));
    const QList<Comune>& tabella = stato.amb.TabellaComuni;
    if (tabella.isEmpty())
        Aggiungi(r, "COMUNE", false, 1,
                 QStringLiteral("Tabella dei comuni non caricata: codice comune %1 non "
                                "verificato")
                     .arg(Virgolette(comune)));
    else if (std::none_of(tabella.begin(), tabella.end(),
                          [&](const Comune& c) { return Trim(c.CodiceComune) == comune; }))
        Aggiungi(r, "COMUNE", true, 1,
                 QStringLiteral("Codice comune %1 assente dalla tabella dei comuni")
                     .arg(Virgolette(comune)));
    const QString cf = Trim(stato.doc.CodiceFiscaleTecnico);
    QString esito = QStringLiteral("ERRATO");
    try {
        esito = VerificaCodiceFiscale(cf);
    } catch (const Errore&) {
        // a character the table cannot read: the code is wrong
    }
    if (cf.isEmpty())
        Aggiungi(r, "CF", false, 0, QStringLiteral("Codice fiscale del tecnico assente"));
    else if (esito != u"CORRETTO")
        Aggiungi(r, "CF", true, 0,
                 QStringLiteral("Codice fiscale del tecnico %1 non corretto (carattere di "
                                "controllo)")
                     .arg(Virgolette(cf)));
}

void ControllaEstratto(Stato& stato, QList<Rilievo>& r, const QStringList& campi,
                       const QString& nome) {
    if (Trim(nome).isEmpty()) {
        Aggiungi(r, "ESTRATTO_NESSUNO", false, 0,
                 QStringLiteral("Nessun estratto di mappa associato al libretto"));
        return;
    }
    const QString percorso = PercorsoEstratto(stato, Trim(nome));
    if (!EsisteFile(percorso)) {
        Aggiungi(r, "ESTRATTO_ASSENTE", true, 0,
                 QStringLiteral("Estratto associato %1 assente dalla cartella degli estratti")
                     .arg(Virgolette(Trim(nome))));
        return;
    }
    Silenzioso s(stato);
    const QString testo = LeggiTesto(percorso);
    const Estratto e = EsplodiTestoEstratto(s.stato, testo, percorso);
    const DatiEstratto d = DatiDaRigheEstratto(s.stato, Split(testo, CRLF));
    if (s.stato.ErroriMostrati > 0) {
        Aggiungi(r, "ESTRATTO_ILLEGGIBILE", true, 0,
                 QStringLiteral("Estratto %1 illeggibile: %2")
                     .arg(Virgolette(Trim(nome)), Trim(s.UltimoErrore().simplified())));
        return;
    }
    const QDate oggi = stato.piattaforma->Adesso().date();
    if (e.EstrattoMesi - 6 > 0) {
        Aggiungi(r, "ESTRATTO_SCADUTO", true, 0,
                 QStringLiteral("Estratto %1 del %2: %3")
                     .arg(Virgolette(Trim(nome)), e.EstrattoData, TestoValidita(e.EstrattoMesi)));
    } else {
        // It reads expired from the first day of the seventh month after its own.
        const QDate rilascio = DataDaTesto(e.EstrattoData);
        const QDate scade = QDate(rilascio.year(), rilascio.month(), 1).addMonths(7);
        const qint64 giorni = oggi.daysTo(scade);
        if (giorni <= 30)
            Aggiungi(r, "ESTRATTO_IN_SCADENZA", false, 0,
                     QStringLiteral("Estratto %1 del %2: scade tra %3 giorni")
                         .arg(Virgolette(Trim(nome)), e.EstrattoData)
                         .arg(giorni));
    }
    if (campi.isEmpty()) return;
    if (Trim(campi.value(3)) != Trim(d.Comune))
        Aggiungi(r, "ESTRATTO_COMUNE", true, 1,
                 QStringLiteral("Comune della riga 0 %1 diverso da quello dell'estratto %2")
                     .arg(Virgolette(campi.value(3)), Virgolette(d.Comune)));
    if (Trim(campi.value(4)) != Trim(d.Foglio))
        Aggiungi(r, "ESTRATTO_FOGLIO", true, 1,
                 QStringLiteral("Foglio della riga 0 %1 diverso da quello dell'estratto %2")
                     .arg(Virgolette(campi.value(4)), Virgolette(d.Foglio)));
    const QStringList presenti = Split(d.Particelle, QStringLiteral(","));
    const QSet<QString> insieme(presenti.begin(), presenti.end());
    for (const QString& m : Split(campi.value(5), QStringLiteral(",")))
        if (!Trim(m).isEmpty() && !insieme.contains(Trim(m)))
            Aggiungi(r, "ESTRATTO_MAPPALE", true, 1,
                     QStringLiteral("Mappale %1 della riga 0 assente dall'estratto %2")
                         .arg(Virgolette(Trim(m)), Virgolette(Trim(nome))));
}

// The rows 8 of fiducial points against the TAF of their municipality, when it is there.
void Fiduciali(Stato& stato, QList<Rilievo>& r, const QStringList& righe) {
    QStringList codici;
    QList<int> posti;
    QHash<QString, bool> archivi;
    for (int i = 0; i < righe.size(); ++i) {
        const QString& riga = righe[i];
        if (!riga.startsWith(QStringLiteral("8|PF"))) continue;
        const QStringList c = Split(riga, QStringLiteral("|"));
        const QString codice = NomePunto(c.value(1));
        const QString comune = ComuneDelPF(codice);
        if (comune.isEmpty() || !Numero(c.value(2), false) || !Numero(c.value(3), false)) continue;
        auto a = archivi.find(comune);
        if (a == archivi.end()) a = archivi.insert(comune, EsisteFile(PercorsoTaf(stato, comune)));
        if (!*a) continue;
        codici << codice;
        posti << i;
    }
    if (codici.isEmpty()) return;
    Silenzioso s(stato);
    const QList<PFNellaTaf> esiti = TrovaPFNellaTAF(s.stato, codici);
    for (int k = 0; k < codici.size(); ++k) {
        const int n = posti[k] + 1;
        if (!esiti[k].trovato) {
            Aggiungi(r, "PF_ASSENTE", false, n,
                     QStringLiteral("Punto fiduciale %1 assente dalla TAF del suo comune")
                         .arg(Virgolette(codici[k])));
            continue;
        }
        const QStringList c = Split(righe[posti[k]], QStringLiteral("|"));
        const double dn = Val(c.value(2)) - Val(esiti[k].nord);
        const double de = Val(c.value(3)) - Val(esiti[k].est);
        const double scarto = std::hypot(dn, de);
        if (scarto > 0.005)
            Aggiungi(r, "PF_TAF", false, n,
                     QStringLiteral("Punto fiduciale %1: la riga 8 (%2 %3) dista %4 m dalla "
                                    "TAF (%5 %6)")
                         .arg(Virgolette(codici[k]), c.value(2), c.value(3))
                         .arg(scarto, 0, 'f', 3)
                         .arg(esiti[k].nord, esiti[k].est));
    }
}

} // namespace

QList<Rilievo> ControllaAtto(Stato& stato, const OpzioniControllo& opzioni) {
    const QStringList& righe = stato.doc.RigheLibretto.Righe();
    QList<Rilievo> r = ControllaRighe(righe);
    const QStringList campi = CampiRiga0(righe);
    if (!campi.isEmpty()) ControllaTestata(stato, r, campi);
    ControllaEstratto(stato, r, campi,
                      opzioni.estratto.isEmpty() ? stato.doc.NomeEstratto : opzioni.estratto);
    Fiduciali(stato, r, righe);
    std::stable_sort(r.begin(), r.end(),
                     [](const Rilievo& a, const Rilievo& b) { return a.riga < b.riga; });
    return r;
}

} // namespace tavolet
