#include "comandi.h"

#include "ambiente.h"
#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "protezioni.h"
#include "righe.h"
#include "shell.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

namespace {

const QString kTitoloVrs = QStringLiteral("[VRS]");

// The row that carries the [VRS] mark: the fifth, or blank when the list is shorter.
QString QuintaRiga(const Stato& stato) {
    const ListaRighe& l = stato.doc.RigheLibretto;
    return l.Conta() > 4 ? l.Riga(4) : QString();
}

// Steps shared by both commands: false (with the message) when the row can't carry it.
bool QuintaRigaGps(Stato& stato) {
    const QString riga = QuintaRiga(stato);
    if (Trim(riga).isEmpty()) {
        stato.piattaforma->Messaggio(QStringLiteral("Il libretto contiene meno di 5 righe"),
                                     kTitoloVrs, Icona::Informazione);
        return false;
    }
    if (!riga.contains(u',')) {
        stato.piattaforma->Messaggio(riga + CRLF + QStringLiteral("Non è una riga GPS"), kTitoloVrs,
                                     Icona::Informazione);
        return false;
    }
    return true;
}

// Field 6 of a GPS row with the mark taken out, or added behind one blank.
QString MarcaVrs(const QString& riga, bool aggiungi) {
    QStringList campi = Split(riga, QStringLiteral("|"));
    if (campi.size() < 7) throw Errore(9);
    campi[6] = Trim(Replace(campi[6], QStringLiteral("[VRS]"), QString()));
    if (aggiungi) campi[6] += QStringLiteral(" [VRS]");
    return Join(campi, QStringLiteral("|"));
}

} // namespace

bool EliminaRigheSelezionate(Stato& stato) {
    bool eliminate = false;
    ConTrappola(stato, QStringLiteral("1010"), [&] {
        if (stato.piattaforma->Domanda(QStringLiteral("Eliminare le Righe selezionate?"),
                                       QStringLiteral("Elimina righe dal Libretto"), Pulsanti::SiNo,
                                       Risposta::No) != Risposta::Si)
            return;
        ListaRighe& l = stato.doc.RigheLibretto;
        for (int i = l.Conta() - 1; i >= 2; --i) {
            if (l.Selezionata(i)) {
                l.Rimuovi(i);
                eliminate = true;
            }
        }
        AggiornaLibrettoMisure(stato);
    });
    return eliminate;
}

void VrsMeno(Stato& stato) {
    ConTrappola(stato, QStringLiteral("1014"), [&] {
        if (!QuintaRigaGps(stato)) return;
        stato.doc.RigheLibretto.Imposta(4, MarcaVrs(QuintaRiga(stato), false));
        AggiornaLibrettoMisure(stato);
    });
}

void VrsPiu(Stato& stato) {
    ConTrappola(stato, QStringLiteral("1134"), [&] {
        ListaRighe& l = stato.doc.RigheLibretto;
        const QList<int> scelte = l.Selezionate();
        if (scelte.size() >= 2) {
            stato.piattaforma->Messaggio(QStringLiteral("Selezionare una riga solamente!"),
                                         kTitoloVrs, Icona::Informazione);
            return;
        }
        const int scelta = scelte.isEmpty() ? -1 : scelte.first();
        const QString riga = scelta < 0 ? QString() : l.Riga(scelta);
        for (const QString& r : {riga, QuintaRiga(stato)}) {
            if (!r.contains(u',')) {
                stato.piattaforma->Messaggio(r + CRLF + QStringLiteral("Non è una riga GPS"),
                                             kTitoloVrs, Icona::Informazione);
                return;
            }
        }
        if (scelta > 4) {
            const QString vecchia = Trim(Replace(l.Riga(4), QStringLiteral("[VRS]"), QString()));
            l.Imposta(4, riga);
            l.Imposta(scelta, vecchia);
        }
        if (!QuintaRigaGps(stato)) return;
        l.Imposta(4, MarcaVrs(l.Riga(4), true));
        AggiornaLibrettoMisure(stato);
    });
}

void SelezionaStazioni(Stato& stato) {
    ListaRighe& l = stato.doc.RigheLibretto;
    for (int i = 0; i < l.Conta(); ++i) l.Seleziona(i, l.Riga(i).startsWith(QStringLiteral("1|")));
}

void SelezionaPF(Stato& stato) {
    ListaRighe& l = stato.doc.RigheLibretto;
    for (int i = 0; i < l.Conta(); ++i)
        l.Seleziona(i, UCase(l.Riga(i)).contains(QStringLiteral("|PF")));
}

void InvertiSelezione(Stato& stato) {
    ListaRighe& l = stato.doc.RigheLibretto;
    for (int i = 0; i < l.Conta(); ++i) l.Seleziona(i, !l.Selezionata(i));
}

void SelezionaTipi(Stato& stato, const QList<int>& tipi) {
    ListaRighe& l = stato.doc.RigheLibretto;
    for (int i = 0; i < l.Conta(); ++i) l.Seleziona(i, tipi.contains(TipoRiga(l.Riga(i))));
}

void CopiaLibretto(Stato& stato) {
    QString testo;
    for (const QString& r : stato.doc.RigheLibretto.Righe()) testo += r + CRLF;
    stato.piattaforma->ImpostaAppunti(testo);
    stato.piattaforma->Messaggio(QStringLiteral("Il Libretto è stato copiato!"),
                                 QStringLiteral("Copia Libretto"), Icona::Informazione);
}

namespace {

// Rows appended to the document: a text that lost its last line end gets it back first,
// so that no row is glued to the one before.
void AccodaRighe(Stato& stato, const QStringList& righe) {
    QString& t = stato.doc.TestoLibretto;
    if (!t.isEmpty() && !t.endsWith(CRLF)) t += CRLF;
    for (const QString& r : righe) t += r + CRLF;
}

} // namespace

void IncollaDaExcel(Stato& stato, DaExcel comando) {
    ConTrappola(stato, QStringLiteral("DaExcel"), [&] {
        QString testo = stato.piattaforma->Appunti();
        testo = Replace(testo, QStringLiteral(","), QStringLiteral("."));
        testo = Replace(testo, QStringLiteral("\t"), QStringLiteral("|"));
        const QStringList righe = Split(testo, CRLF);
        QStringList nuove;
        for (int i = 0; i + 1 < righe.size(); ++i) {
            const QString& riga = righe[i];
            switch (comando) {
            case DaExcel::Righe8PNE:
                nuove << QStringLiteral("2|") + riga + u'|';
                break;
            case DaExcel::Righe8NomeAuto:
                nuove << QStringLiteral("2|") + Trim(Str(i + 1)) + u'|' + riga + u'|';
                break;
            case DaExcel::RigheComplete: {
                QString r = riga + u'|';
                while (r.contains(QStringLiteral("||")))
                    r = Replace(r, QStringLiteral("||"), QStringLiteral("|"));
                nuove << r;
                break;
            }
            }
        }
        AccodaRighe(stato, nuove);
    });
    CaricaLibrettoInList1(stato);
}

void LibrettoPerCoordinate(Stato& stato) {
    QString testo;
    const bool letto = ConTrappola(stato, QStringLiteral("LibrettoPerCoordinate"), [&] {
        for (QString riga : Split(stato.piattaforma->Appunti(), CRLF)) {
            riga.replace(u'\t', u' ');
            while (riga.contains(QStringLiteral("  ")))
                riga = Replace(riga, QStringLiteral("  "), QStringLiteral(" "));
            const QStringList parole = Split(Trim(riga), QStringLiteral(" "));
            if (!riga.contains(QStringLiteral("+/-")) || parole.size() < 7) continue;
            testo += QStringLiteral("8|") + parole[0] + u'|' + parole[1] + u'|' + parole[3] + u'|' +
                     CRLF;
        }
    });
    if (letto) SostituisciDocumento(stato, testo);
}

void CatturaPropostaInLibretto(Stato& stato) {
    const QStringList& righe = stato.doc.RigheLibretto.Righe();
    QString proposta;
    const int inizio = int(righe.indexOf(QStringLiteral("6|ESTRATTO DI MAPPA|")));
    if (inizio >= 0)
        for (int i = inizio; i < righe.size() - 1; ++i) proposta += Trim(righe[i]) + CRLF;
    stato.doc.TestoProposta = proposta;
}

QString GeneraLibrettoConStralcio(Stato& stato, const QString& testoStralcio) {
    QString testo = QStringLiteral("6|ESTRATTO DI MAPPA|") + CRLF;
    ConTrappola(stato, QStringLiteral("GeneraLibrettoConStralcio"), [&] {
        const QString percorso = stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\estratti\\") +
                                 stato.doc.NomeEstratto;
        QStringList estratto = LeggiRighe(percorso);
        if (!estratto.isEmpty()) {
            QStringList campi = Split(estratto[0], QStringLiteral("|"));
            while (campi.size() < 6) campi << QString();
            campi[5] = stato.testata.MappaliLibretto;
            estratto[0] = Join(campi, QStringLiteral("|"));
        }
        const QStringList stralcio = Split(testoStralcio, CRLF);
        auto aggiungi = [&](const QStringList& righe,
                            const std::function<bool(const QString&)>& scegli) {
            for (const QString& r : righe)
                if (scegli(r)) testo += r + CRLF;
        };
        static const QStringList prefissi = {"6|PFCAR", "6|DISTO", "6|SCALA",
                                             "6|INQUA", "6|DITTA", "6|PARTI"};
        aggiungi(stralcio, [](const QString& r) { return TipoRiga(r) == 7; });
        aggiungi(estratto, [](const QString& r) {
            return TipoRiga(r) == 8 && !r.contains(QStringLiteral("8|PF")) && !r.contains(u'%');
        });
        aggiungi(stralcio, [](const QString& r) { return TipoRiga(r) == 6; });
        aggiungi(estratto, [](const QString& r) { return TipoRiga(r) == 7 && !r.contains(u'%'); });
        aggiungi(estratto, [](const QString& r) {
            return TipoRiga(r) == 6 && prefissi.contains(Left(r, 7));
        });
    });
    return testo;
}

void AvviaProgrammaSarvento(Stato& stato, const QString& programma) {
    ShellInfinita(stato, Trim(stato.amb.CartellaProgramFiles + programma));
}

bool CreaCollegamentiPregeo(Stato& stato) {
    bool fatto = false;
    ConTrappola(stato, QStringLiteral("CreaCollegamentiPregeo"), [&] {
        const QString exe = stato.amb.UnitaPregeoExe + QStringLiteral("\\PREGEO\\EXE\\PREGEO.EXE");
        const QString nome =
            Replace(stato.amb.VersionePregeo, QStringLiteral(","), QStringLiteral(" "));
        Piattaforma& p = *stato.piattaforma;
        fatto = p.CreaCollegamento(LuogoCollegamento::Desktop, nome, exe);
        p.CreaCollegamento(LuogoCollegamento::MenuProgrammi, nome, exe);
        p.CreaCollegamento(LuogoCollegamento::Desktop, QStringLiteral("PREGEO"),
                           stato.amb.UnitaPregeoExe + QStringLiteral("\\PREGEO"));
    });
    return fatto;
}

std::optional<Carattere> SelezionaCarattere(Stato& stato, const Carattere& attuale) {
    const std::optional<Carattere> scelto = stato.piattaforma->ScegliCarattere(attuale);
    if (scelto) ScriviConfiguraCarattere(stato, *scelto);
    return scelto;
}

const QStringList& OpzioniSalvataggio() {
    static const QStringList opzioni = {"Avvisa Protocollo NON Numerico",
                                        "Avvisa Assenza Relazione Tecnica",
                                        "Avvisa Assenza Modello Censuario",
                                        "Mantiene solo il 1^ Mappale in riga 0",
                                        "Riordino Righe",
                                        "Attiva Backup Libretti con Pregeo",
                                        "Sostituisci Libretto Esistente in Pregeo",
                                        "Associa e stralcia Mappali di Riga 0",
                                        "Aggiorna Config. Pregeo (Dati Tecnico)",
                                        "Elabora con Pregeo",
                                        "Attiva Pregeo"};
    return opzioni;
}

void PulisciOpzioni(QList<bool>& stati) {
    stati.fill(false, OpzioniSalvataggio().size());
}

void SelezionaEMemorizzaOpzioni(Stato& stato, QList<bool>& stati) {
    stati.fill(true, OpzioniSalvataggio().size());
    for (int i = 0; i < stati.size(); ++i)
        stato.piattaforma->SalvaImpostazione(
            QStringLiteral("LIBRETTO_AUTOMATICO"), Trim(OpzioniSalvataggio()[i]),
            stati[i] ? QStringLiteral("True") : QStringLiteral("False"));
}

const QList<PulsanteUtilita>& PulsantiUtilita() {
    static const QList<PulsanteUtilita> pulsanti = {
        {3, "QUOTA_MEDIA", "Quota Media", "Quota Media Comuni Italiani"},
        {4, "tecnici", "Tecnici", "Archivio Tecnici"},
        {5, "CONFIGURA_PREGEO", "Configura Pregeo", "Configurazione di Pregeo"},
        {6, "Modulistica", "Atti di Aggiornamento", "Modulistica/Atti di Aggiornamento"},
        {7, "ANTEPRIMA_PROPOSTA", "Esamina Proposta", "Esamina/Corregge Proposta di Aggiornamento"},
        {8, "archivio_libretti", "Archivio Libretti", "Archivio Libretti Pregeo"},
        {9, "STORICO_LIBRETTI", "Storico Libretti", "Archivio Libretti di Backup"},
        {12, "gestione_pf", "Grafica PF", "Gestione Grafica Archivio PF"},
        {13, "GESTIONE_MISURATE", "Trova Misurate", "Archivio Distanze Misurate"},
        {14, "CERCA_NEI_LIBRETTI", "Cerca nei Libretti", "Cerca nei Libretti in Pregeo"}};
    return pulsanti;
}

QString TestoInformazioniCasistiche() {
    return QStringLiteral("Si avvisa l'utente che l'utilizzo di queste Casistiche automatizzate "
                          "abbisogna di una conoscenza preventiva ed approndita.") +
           CRLF +
           QStringLiteral(
               "Inoltre non si garantisce che la soluzione proposta possa funzionare in "
               "tutti i casi, in tutte le situazioni e con qualsiasi Estratto di Mappa.") +
           CRLF +
           QStringLiteral("Sarà cura ed onere dell'utente approfondire le tematiche quì risolte e "
                          "mettere in atto tutte le tutele necessarie.") +
           CRLF +
           QStringLiteral("Non sarà in ogni caso imputabile agli Autori la sospensione o non "
                          "approvazione di Tipi redatti con la seguente procedura.") +
           CRLF +
           QStringLiteral("Si ringrazia fin d'ora quanti vorranno segnalare errori, "
                          "malfunzionamenti o proporre suggerimenti.");
}

QString TestoConfigurazione(const Stato& stato) {
    QStringList righe = {
        QStringLiteral("Tavolet V 5.00 - L'Evoluzione"),
        QStringLiteral("Ver 5.00 ") + kVersioneMinore + u'.' + kRevisione,
        QStringLiteral("Tavolet - programma libero per i geometri che lavorano con Pregeo"),
        QStringLiteral("Pregeo è un programma dell'Agenzia delle Entrate"),
        QString(),
        QStringLiteral("Elenco Cartelle utilizzate da Tavolet")};
    for (const QString& c : CartelleDiLavoro(stato))
        righe << c + QStringLiteral("  ->  ") + PercorsoLocale(c);
    return Join(righe, CRLF);
}

AzioneRiga AzioneDoppioClic(const QString& riga) {
    const int tipo = TipoRiga(riga);
    if (tipo == 0 || tipo == 9) return AzioneRiga::Configurazione;
    if (tipo == 8 && Split(riga, QStringLiteral("|")).value(1).startsWith(QStringLiteral("PF")))
        return AzioneRiga::DistanzePF;
    if (tipo == 6 && riga.contains(QStringLiteral("DettaglioTipoAgg")))
        return AzioneRiga::Configurazione;
    return AzioneRiga::Editor;
}

AzioneRiga AzioneInvio(const QString& riga) {
    const int tipo = TipoRiga(riga);
    return tipo == 0 || tipo == 9 ? AzioneRiga::Configurazione : AzioneRiga::Editor;
}

QString TitoloEditor(const Stato& stato, int modo) {
    switch (modo) {
    case kEditorLibretto:
        return QStringLiteral("Edit Libretto Misure : [") + stato.testata.AnnoProtocollo + u']';
    case kEditorStampe:
        return QStringLiteral("Edit Stampe");
    case kEditorCensuario:
        return QStringLiteral("Edit Modello Censuario");
    default:
        return QString();
    }
}

QString DomandaUscitaEditor(int modo) {
    switch (modo) {
    case kEditorLibretto:
        return QStringLiteral("Salvare Libretto modificato?");
    case kEditorStampe:
        return QStringLiteral("Salvare Stampa modificata?");
    case kEditorCensuario:
        return QStringLiteral("Salvare il Modello modificato?");
    default:
        return QString();
    }
}

QString ApriEditor(Stato& stato, int modo) {
    stato.ModoEditor = modo;
    QString testo;
    ConTrappola(stato, QStringLiteral("BV_EditorGen"), [&] {
        if (modo == kEditorLibretto) {
            EliminaFile(stato.amb.CartellaLavoro + QStringLiteral("\\libretto.lib"));
            testo = stato.doc.TestoLibretto;
        } else if (stato.GestoriEditor.contains(modo) && stato.GestoriEditor[modo].leggi) {
            testo = stato.GestoriEditor[modo].leggi(stato);
        }
    });
    return testo;
}

bool MemorizzaEditor(Stato& stato, int modo, const QString& testo) {
    return ConTrappola(stato, QStringLiteral("BV_EditorGen_Salva"), [&] {
        if (modo == kEditorLibretto) {
            stato.doc.TestoLibretto = testo;
            ListaRighe& l = stato.doc.RigheLibretto;
            l.Svuota();
            for (const QString& r : RigheDiTesto(testo))
                if (!Trim(r).isEmpty()) l.Aggiungi(Trim(r));
        } else if (stato.GestoriEditor.contains(modo) && stato.GestoriEditor[modo].memorizza) {
            stato.GestoriEditor[modo].memorizza(stato, testo);
        }
    });
}

} // namespace tavolet
