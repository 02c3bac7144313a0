#include "mappali.h"

#include "errore.h"
#include "file_testo.h"
#include "stato.h"
#include "testo.h"

#include <algorithm>

namespace tavolet {

void RiordinoMappali(Stato& stato, QString& mappali) {
    if (Trim(mappali).isEmpty()) return;
    ConTrappola(stato, QStringLiteral("RiordinoMappali"), [&] {
        QStringList ordinato;
        stato.TagRoutine = QStringLiteral("RiordinoMappali1");
        for (const QString& pezzo : Split(mappali, QStringLiteral(","))) {
            // Right-aligned, so that "3" comes before "12". A longer name stays whole.
            const QString allineato = pezzo.size() < 10 ? Right(Space(10) + pezzo, 10) : pezzo;
            const auto dopo = std::upper_bound(ordinato.begin(), ordinato.end(), allineato,
                                               [](const QString& a, const QString& b) {
                                                   return a.compare(b, Qt::CaseInsensitive) < 0;
                                               });
            ordinato.insert(dopo, allineato);
        }
        stato.TagRoutine = QStringLiteral("RiordinoMappali2");
        for (int i = int(ordinato.size()) - 1; i >= 1; --i)
            if (ordinato[i] == ordinato[i - 1]) ordinato.removeAt(i);
        stato.TagRoutine = QStringLiteral("RiordinoMappali3");
        QString risultato = Trim(ordinato.value(0));
        for (int i = 1; i < ordinato.size(); ++i) risultato += u',' + Trim(ordinato[i]);
        mappali = risultato;
    });
}

namespace {

const QString kEnteUrbano = QStringLiteral("|ENTE URBANO |");
const QString kFabbRurale = QStringLiteral("|FABB RURALE |");

struct FiltroTipologia {
    QStringList tipologie;
    bool (*ammessa)(const QString& riga);
};

// Which parcels a kind of act may touch.
const FiltroTipologia kFiltri[] = {
    {{"01", "02", "06", "27", "43", "44", "45", "91"}, [](const QString&) { return true; }},
    {{"03", "04", "05", "09", "10", "15", "24", "42", "46"},
     [](const QString& r) { return r.contains(kEnteUrbano); }},
    {{"07", "08"},
     [](const QString& r) { return !r.contains(kEnteUrbano) && !r.contains(kFabbRurale); }},
    {{"22"}, [](const QString& r) { return r.contains(QLatin1String("|FR DIV SUB  |")); }},
    {{"41"}, [](const QString& r) { return r.contains(kFabbRurale); }},
    {{"48"}, [](const QString& r) { return !r.contains(kEnteUrbano); }},
};

} // namespace

QStringList FiltraParticelle(const QStringList& righeEstratto, const QString& tipologia) {
    QStringList elenco;
    for (const FiltroTipologia& f : kFiltri) {
        if (!f.tipologie.contains(tipologia)) continue;
        for (const QString& riga : righeEstratto) {
            const QString r = UCase(riga);
            if (r.contains(QLatin1String("6|PARTICELLA|")) && f.ammessa(r)) elenco << r;
        }
    }
    return elenco;
}

QStringList ParticelleEstratto(Stato& stato) {
    QStringList elenco;
    ConTrappola(stato, QStringLiteral("SelezionaMappali"), [&] {
        const QString percorso = stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\estratti\\") +
                                 stato.doc.NomeEstratto;
        if (stato.doc.NomeEstratto.isEmpty() || !EsisteFile(percorso)) return;
        elenco = FiltraParticelle(LeggiRighe(percorso), stato.testata.TipologiaRilievo);
    });
    return elenco;
}

QString TitoloSelezionaMappali(const Stato& stato) {
    return QStringLiteral("Seleziona Mappali - ") + stato.doc.NomeEstratto;
}

QString LeggiQuotaMedia(Stato& stato) {
    QString quota;
    ConTrappola(stato, QStringLiteral("SelezionaMappali_Quota"), [&] {
        const QString nome = stato.testata.NomeComuneLibretto;
        const QString percorso = stato.amb.CartellaProgramma + QStringLiteral("\\QUOTAMEDIA.TXT");
        if (Trim(nome).isEmpty() || !EsisteFile(percorso)) return;
        bool trovata = false;
        for (const QString& riga : LeggiRighe(percorso)) {
            if (!riga.contains(nome)) continue;
            quota = Split(riga, QStringLiteral("|")).value(2);
            trovata = true;
        }
        if (trovata) stato.testata.QuotaMedia = quota;
    });
    return quota;
}

bool ConfermaSelezioneMappali(Stato& stato, SceltaMappali& scelta, const QStringList& righe,
                              QList<bool>& selezionate) {
    selezionate.resize(righe.size());
    if (righe.size() == 1) selezionate[0] = true;
    QString& mappali = stato.testata.MappaliLibretto;
    mappali.clear();
    scelta.Righe.clear();
    scelta.RigheEnteUrbano.clear();
    scelta.RigheFabbRurale.clear();
    int quanti = 0;
    for (int i = 0; i < righe.size(); ++i) {
        if (!selezionate[i]) continue;
        const QString& r = righe[i];
        mappali += Split(r, QStringLiteral("|")).value(2) + u',';
        scelta.Righe += r + CRLF;
        if (r.contains(QLatin1String("ENTE URBANO"))) scelta.RigheEnteUrbano += r + CRLF;
        if (r.contains(QLatin1String("FABB RURALE"))) scelta.RigheFabbRurale += r + CRLF;
        ++quanti;
    }
    if (mappali.endsWith(u',')) mappali.chop(1);

    const QString tipologia = stato.testata.TipologiaRilievo;
    const QString titolo = QStringLiteral("Seleziona Mappali");
    if (quanti >= 2 && tipologia == u"22") {
        stato.piattaforma->Messaggio(
            QStringLiteral("Questa versione di Tavolet prevede un solo mappale."), titolo,
            Icona::Avviso);
        return false;
    }
    if (quanti >= 2 && stato.amb.VersionePregeo.contains(u"Stda", Qt::CaseInsensitive) &&
        tipologia != u"43" && tipologia != u"06") {
        stato.piattaforma->Messaggio(
            QStringLiteral("Questa versione di Pregeo prevede un solo mappale."), titolo,
            Icona::Avviso);
        return false;
    }
    stato.EsitoDialogo = 1;
    return true;
}

QStringList RigheDaMantenere(const Stato& stato, const SceltaMappali& scelta) {
    auto righe = [](const QString& testo) {
        QStringList r;
        for (const QString& riga : Split(testo, CRLF))
            if (!riga.isEmpty()) r << riga;
        return r;
    };
    QStringList elenco = righe(scelta.RigheEnteUrbano);
    if (elenco.isEmpty() && stato.testata.TipologiaRilievo == u"06")
        elenco = righe(scelta.RigheFabbRurale);
    return elenco;
}

QList<int> MappaliDellaRiga(const QString& riga, const QStringList& mappali) {
    QList<int> indici;
    for (int i = 0; i < mappali.size(); ++i)
        if (riga.contains(QStringLiteral("A|") + mappali[i] + u'|')) indici << i;
    return indici;
}

void ConfermaMappali(Stato& stato, SceltaMappali& scelta, const QStringList& mappali, int scelto) {
    if (scelto < 0 || scelto >= mappali.size()) return;
    stato.EsitoDialogo = 1;
    scelta.MappaleMantenuto = mappali[scelto];
    QString risultato = mappali[scelto];
    for (int i = 0; i < mappali.size(); ++i)
        if (i != scelto) risultato += u',' + mappali[i];
    stato.testata.MappaliLibretto = risultato;
}

} // namespace tavolet
