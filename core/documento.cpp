#include "documento.h"

#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "protezioni.h"
#include "righe.h"
#include "stato.h"
#include "storico.h"
#include "testata.h"
#include "testo.h"

#include <QDir>

namespace tavolet {

namespace {

// Replaces every CRLF pair by one CRLF, in as many passes as asked.
QString RiduciCrLf(QString testo, int passate) {
    const QString doppio = CRLF + CRLF;
    for (int i = 0; i < passate; ++i) testo.replace(doppio, CRLF);
    return testo;
}

// Line by line, each line followed by CRLF. A failure reports under the reader's own tag.
QString LeggiFileIntero(Stato& stato, const QString& percorso) {
    const QString tag = stato.TagRoutine;
    stato.TagRoutine = QStringLiteral("cARICA fILE iNTERO");
    QString testo;
    for (const QString& riga : LeggiRighe(percorso)) testo += riga + CRLF;
    stato.TagRoutine = tag;
    return testo;
}

} // namespace

void CaricaLibrettoMisure(Stato& stato) {
    ConTrappola(stato, QStringLiteral("CaricaLibrettoMisure"), [&] {
        Documento& d = stato.doc;
        QString testoLxb;
        if (UCase(Right(d.PercorsoLibretto, 4)) == u".LXB") {
            const QString lxb = UCase(d.PercorsoLibretto);
            d.PercorsoLibretto = Replace(lxb, QStringLiteral(".LXB"), QStringLiteral(".DAT"));
            if (EsisteFile(lxb)) testoLxb = LeggiFileIntero(stato, lxb);
        }
        if (!EsisteFile(d.PercorsoLibretto)) return;

        QStringList righe = Split(LeggiFileIntero(stato, d.PercorsoLibretto), CRLF);
        d.TestoPossessori.clear();
        for (QString& riga : righe) {
            if (riga.contains(kTagEstratto)) {
                d.NomeEstratto = ValoreTag(riga);
            } else if (riga.contains(kTagCodiceFiscale)) {
                d.CodiceFiscaleTecnico = ValoreTag(riga);
            } else if (riga.contains(kTagIscrizione)) {
                d.NumeroIscrizioneAlbo = ValoreTag(riga);
            } else if (riga.contains(kTagDitta)) {
                d.TestoPossessori += ValoreTag(riga) + CRLF;
            } else {
                continue;
            }
            riga.clear();
        }
        QString testo = Join(righe, CRLF);
        const QString doppio = CRLF + CRLF;
        while (testo.contains(doppio)) testo.replace(doppio, CRLF);
        d.TestoLibretto = testo;
        if (!testoLxb.isEmpty() && stato.SostituisciRilievoDaLxb)
            stato.SostituisciRilievoDaLxb(stato, testoLxb);
    });
}

void CaricaLibrettoInList1(Stato& stato) {
    ConTrappola(stato, QStringLiteral("CaricaLibrettoInList1"), [&] {
        Documento& d = stato.doc;
        ListaRighe& lista = d.RigheLibretto;
        lista.Svuota();
        const QStringList pezzi = Split(d.TestoLibretto, CRLF);
        for (int i = 0; i + 1 < pezzi.size(); ++i) {
            const QString riga = Trim(pezzi[i]);
            if (riga.size() > 2) lista.Aggiungi(riga);
        }
        if (lista.Conta() == 0) lista.Aggiungi(d.Riga0);
        if (lista.Conta() < 2) lista.Aggiungi(d.Riga9);
        if (TipoRiga(lista.Riga(0)) != 0) lista.Inserisci(0, d.Riga0);
        if (TipoRiga(lista.Riga(1)) != 9) lista.Inserisci(1, d.Riga9);
        lista.DeselezionaTutte();
        lista.ImpostaCorrente(-1);
    });
    DecoZeroNove(stato);
}

void AggiornaLibrettoMisure(Stato& stato) {
    ConTrappola(stato, QStringLiteral("AggiornaLibrettoMisure"), [&] {
        Documento& d = stato.doc;
        ListaRighe& lista = d.RigheLibretto;
        for (int i = lista.Conta() - 1; i >= 1; --i)
            if (lista.Riga(i).compare(lista.Riga(i - 1), Qt::CaseInsensitive) == 0)
                lista.Rimuovi(i);
        d.TestoLibretto.clear();
        for (int i = 0; i < lista.Conta(); ++i) {
            QString riga = lista.Riga(i);
            if (Trim(riga).isEmpty()) continue;
            const int tipo = TipoRiga(riga);
            if (tipo != 0 && tipo != 9) {
                PulisciRigaNote(riga);
                lista.Imposta(i, riga);
            }
            AggiungiRiga(stato, riga);
        }
    });
}

QString TestoFileLibretto(const Stato& stato) {
    const Documento& d = stato.doc;
    QString t = d.TestoLibretto + CRLF + kTagEstratto + d.NomeEstratto + u'|' + CRLF +
                kTagCodiceFiscale + d.CodiceFiscaleTecnico + u'|' + CRLF + kTagIscrizione +
                d.NumeroIscrizioneAlbo + u'|';
    for (const QString& riga : Split(d.TestoPossessori, CRLF))
        if (!Trim(riga).isEmpty()) t += CRLF + kTagDitta + riga + u'|' + CRLF;
    t = RiduciCrLf(t, 2);
    t.remove(QStringLiteral("<P!>"));
    return t + CRLF;
}

bool ScriviLibrettoMisure(Stato& stato) {
    return ConTrappola(stato, QStringLiteral("SalvaLibrettoMisure"), [&] {
        ScriviConStorico(stato, stato.doc.PercorsoLibretto, TestoFileLibretto(stato));
    });
}

bool SalvaLibrettoMisure(Stato& stato) {
    if (stato.doc.PercorsoLibretto.isEmpty()) return EsportaLibrettoInFile(stato);
    return ScriviLibrettoMisure(stato);
}

bool EsportaLibrettoInFile(Stato& stato) {
    return ConTrappola(stato, QStringLiteral("EsportaLibrettoInFile"), [&] {
        const QString nome = stato.piattaforma->SalvaFile(
            QStringLiteral("Esporta Libretto"), QStringLiteral("c:\\"), QStringLiteral("zzz.dat"),
            QStringLiteral("Libretti (*.dat *.txt);;Tutti i file (*.*)"));
        if (nome.isEmpty()) return;
        ScriviTesto(nome, RiduciCrLf(stato.doc.TestoLibretto, 2));
    });
}

void IncollaDaAppunti(Stato& stato) {
    SostituisciDocumento(stato, stato.piattaforma->Appunti());
}

QString ContatoreRighe(const Stato& stato) {
    const ListaRighe& l = stato.doc.RigheLibretto;
    return QString::number(l.Corrente() + 1) + QStringLiteral(" / ") + QString::number(l.Conta());
}

} // namespace tavolet

namespace tavolet {

bool TrascinaLibretto(Stato& stato, const QString& percorso) {
    const QString titolo = QStringLiteral("Trascina Libretto");
    const QString estensione = UCase(Right(percorso, 4));
    Piattaforma& p = *stato.piattaforma;
    if (estensione == u".TXT" || estensione == u".DAT" || estensione == u".LXB") {
        if (p.Domanda(QStringLiteral("Sostituire il Libretto Esistente?"), titolo, Pulsanti::SiNo,
                      Risposta::Si) != Risposta::Si)
            return false;
        // A binary or foreign file would become thousands of rows, saved on the next close.
        bool sembra = true;
        ConTrappola(stato, QStringLiteral("CaricaLibrettoMisure"), [&] {
            if (EsisteFile(percorso)) sembra = SembraLibretto(LeggiByte(percorso));
        });
        if (!sembra &&
            p.Domanda(
                QStringLiteral("Il file non sembra un libretto di Pregeo. Caricarlo comunque?"),
                titolo, Pulsanti::SiNo, Risposta::No, Icona::Avviso) != Risposta::Si)
            return false;
        stato.doc.PercorsoLibretto = percorso;
        CaricaLibrettoMisure(stato);
        CaricaLibrettoInList1(stato);
        return true;
    }
    if (estensione == u".DXF") {
        p.Messaggio(QStringLiteral("Processo non attivo!"), titolo, Icona::Informazione);
    } else if (estensione == u".PDF") {
        if (p.Domanda(QStringLiteral("Sostituire il Libretto Esistente?"), titolo, Pulsanti::SiNo,
                      Risposta::Si) != Risposta::Si)
            return false;
        return stato.CaricaPdf && stato.CaricaPdf(stato, percorso);
    } else {
        p.Messaggio(QStringLiteral("Ammessi file di Testo: .TXT, .DAT, .LXB, .PDF"), titolo,
                    Icona::Avviso);
    }
    return false;
}

} // namespace tavolet

namespace tavolet {

QString TitoloLibretto(const Stato& stato) {
    const Testata& t = stato.testata;
    return QStringLiteral("Tavolet V 5.00 - L'Evoluzione - Libretto Misure : [") + t.Protocollo +
           u' ' + t.DataLibretto + QStringLiteral("] [CF Comune : ") + t.CodiceComuneLibretto +
           QStringLiteral(" - ") + t.NomeComuneLibretto + QStringLiteral("] [Provincia : ") +
           t.NomeProvinciaLibretto + u']';
}

} // namespace tavolet
