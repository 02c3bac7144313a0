// "&Conferma" of the head dialog: rows 0 and 9 composed from the fields, the comment row, the
// technician's file and PREGEO.INI.
#include "configurazione.h"
#include "interno.h"

#include "archivio_pregeo.h"
#include "codice_fiscale.h"
#include "libretto.h"
#include "mappali.h"

#include <QDate>

namespace tavolet {

// Days and months out of range carry over as the runtime's own date arithmetic does.
QDate DataDaTesto(const QString& testo) {
    const int giorno = int(Val(Left(testo, 2)));
    const int mese = int(Val(Mid(testo, 3, 2)));
    const int anno = int(Val(Mid(testo, 5, 4)));
    return QDate(std::clamp(anno, 100, 9999), 1, 1).addMonths(mese - 1).addDays(giorno - 1);
}

bool ProtocolloNonNumerico(const QString& protocollo) {
    return Val(protocollo) < 1;
}

bool DataNelFormato(const QString& data) {
    return data.size() == 8;
}

namespace {

void ControllaData(Stato& stato, FormConfigurazione& f) {
    Piattaforma& p = *stato.piattaforma;
    QString& data = f.Campi[0];
    if (f.Check2) data = DataDiOggi(stato);
    if (!DataNelFormato(data)) {
        p.Messaggio(QStringLiteral("Formato Data Errato!!"), QStringLiteral("Errore nella data"),
                    Icona::Avviso);
        data = DataDiOggi(stato);
    } else if (DataDaTesto(data) < p.Adesso().date()) {
        if (p.Domanda(QStringLiteral("La data indicata è precedente la data attuale del PC!!") +
                          CRLF + QStringLiteral("Inserire data attuale?"),
                      QStringLiteral("Verifica data Libretto"), Pulsanti::SiNo,
                      Risposta::Si) == Risposta::Si)
            data = DataDiOggi(stato);
    }
}

void TestaDelLibretto(Stato& stato) {
    ListaRighe& l = stato.doc.RigheLibretto;
    if (l.Conta() < 1) l.Aggiungi(stato.doc.Riga0);
    if (l.Conta() < 2) l.Aggiungi(stato.doc.Riga9);
    if (TipoRiga(l.Riga(0)) != 0) l.Inserisci(0, stato.doc.Riga0);
    if (TipoRiga(l.Riga(1)) != 9) l.Inserisci(1, stato.doc.Riga9);
}

void PredefinitiVuoti(FormConfigurazione& f) {
    static const QList<std::pair<int, const char*>> predefiniti = {{1, "1"},
                                                                   {2, "G693"},
                                                                   {3, "0010"},
                                                                   {4, "1"},
                                                                   {6, "GEOMETRA"},
                                                                   {7, "PADOVA"},
                                                                   {8, "0"},
                                                                   {9, "10"},
                                                                   {10, "20"},
                                                                   {13, "FR"},
                                                                   {14, "GEODIMETRO INTEGRATO"}};
    if (f.Campi[5].isEmpty() && f.Campi[19].isEmpty()) {
        f.Campi[5] = QStringLiteral("COGNOME");
        f.Campi[19] = QStringLiteral("NOME");
    }
    for (const auto& [i, v] : predefiniti)
        if (f.Campi[i].isEmpty()) f.Campi[i] = QString::fromUtf8(v);
}

// The third row: the comment replaces a comment there or goes in front of anything else.
void RigaDelCommento(Stato& stato, const FormConfigurazione& f) {
    ListaRighe& l = stato.doc.RigheLibretto;
    QString commento;
    if (!Trim(f.Campi[15]).isEmpty()) commento = QStringLiteral("6|") + Trim(f.Campi[15]) + u'|';
    if (!commento.isEmpty()) {
        if (l.Conta() > 2 && TipoRiga(l.Riga(2)) == 6 && !l.Riga(2).contains(kRelazioneTecnica) &&
            !l.Riga(2).contains(kDatiCensuario))
            l.Imposta(2, commento);
        else
            l.Inserisci(2, commento);
    } else if (l.Conta() > 2 && l.Riga(2).contains(kDettaglioTipoAgg)) {
        l.Rimuovi(2);
    }
}

// A type CM carries the row "6|conferma|" in third place; another type loses it.
void MarcaConferma(Stato& stato) {
    ListaRighe& l = stato.doc.RigheLibretto;
    const QString conferma = QStringLiteral("6|CONFERMA|");
    const bool terza = l.Conta() > 2 && UCase(l.Riga(2)) == conferma;
    if (l.Riga(1).contains(QStringLiteral("|CM|"))) {
        if (!terza) l.Inserisci(2, QStringLiteral("6|conferma|"));
    } else if (terza) {
        l.Rimuovi(2);
    }
}

} // namespace

void SalvaTecnico(Stato& stato, bool riscriviPregeoIni) {
    ConTrappola(stato, QStringLiteral("SalvaTecnico"), [&] {
        Testata& t = stato.testata;
        t.Tecnico = UCase(Trim(t.Cognome)) + u' ' + UCase(Trim(t.Nome));
        const QString percorso = PercorsoFileTecnico(stato, t.Tecnico);
        CreaCartella(CartellaDel(percorso));
        ScriviTesto(percorso, TestoFileTecnico(stato));
        stato.piattaforma->SalvaImpostazione(QStringLiteral("RELAZIONE_TECNICA"),
                                             QStringLiteral("INCLUDIDATITECNICO"),
                                             QStringLiteral("True"));
    });
    if (riscriviPregeoIni) AggiornaPregeoIni(stato);
}

bool ConfermaConfigurazione0(Stato& stato, FormConfigurazione& f) {
    bool chiudi = false;
    ConTrappola(stato, QStringLiteral("ConfermaConfigurazione0"), [&] {
        Piattaforma& p = *stato.piattaforma;
        Testata& t = stato.testata;
        auto& c = f.Campi;
        if (ProtocolloNonNumerico(c[1]))
            p.Messaggio(QStringLiteral("Protocollo non numerico!"),
                        QStringLiteral("Protocollo non Numerico"), Icona::Avviso);
        ControllaData(stato, f);
        TestaDelLibretto(stato);

        QString mappali = Trim(c[4]).isEmpty() ? QStringLiteral("1") : c[4];
        RiordinoMappali(stato, mappali);
        c[4] = mappali;
        for (int i = 0; i <= 14; ++i) c[i] = UCase(Trim(c[i]));
        stato.TagRoutine = QStringLiteral("ConfermaConfigurazione4");
        PredefinitiVuoti(f);

        t.Cognome = UCase(Trim(c[5]));
        t.Nome = UCase(Trim(c[19]));
        t.Tecnico = t.Cognome + u' ' + t.Nome;
        t.Qualifica = c[6];
        t.ProvinciaAlbo = c[7];
        t.Strumentazione = c[14];
        stato.doc.NumeroIscrizioneAlbo = c[16];
        stato.doc.CodiceFiscaleTecnico = c[17];
        t.Recapito = c[18];
        c[5] = t.Tecnico;
        stato.TagRoutine = QStringLiteral("ConfermaConfigurazione5");
        SalvaTecnico(stato, false);
        stato.TagRoutine = QStringLiteral("ConfermaConfigurazione5");

        Documento& d = stato.doc;
        d.Riga0 = QStringLiteral("0|");
        for (int i = 0; i <= 7; ++i) d.Riga0 += c[i] + u'|';
        d.Riga9 = QStringLiteral("9|");
        for (int i = 8; i <= 14; ++i) d.Riga9 += c[i] + u'|';
        d.RigheLibretto.Imposta(0, d.Riga0);
        d.RigheLibretto.Imposta(1, d.Riga9);
        RigaDelCommento(stato, f);
        MarcaConferma(stato);
        d.NomeEstratto = Trim(f.EtichettaEstratto);

        AggiornaLibrettoMisure(stato);
        stato.TagRoutine = QStringLiteral("ConfermaConfigurazione6");
        if (f.Check1)
            AggiornaPregeoIni(stato);
        else
            AggiornaConfigurazionePregeo(stato);
        stato.TagRoutine = QStringLiteral("ConfermaConfigurazione7");
        p.SalvaImpostazione(kSezioneCheck1, kNomeFormConfigurazione, f.Check1 ? "1" : "0");
        p.SalvaImpostazione(kSezioneCheck2, kNomeFormConfigurazione, f.Check2 ? "1" : "0");

        chiudi = true;
        if (ControllaCodiceFiscale(stato, c[17]) == u"ERRATO") {
            chiudi = p.Domanda(QStringLiteral("Probabile Codice Fiscale non Corretto!") + CRLF +
                                   QStringLiteral("Continuare?"),
                               QStringLiteral("Verifica Codice Fiscale"), Pulsanti::SiNo,
                               Risposta::No) == Risposta::Si;
        }
    });
    return chiudi;
}

} // namespace tavolet
