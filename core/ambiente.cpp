#include "ambiente.h"

#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "nome_file.h"
#include "percorsi.h"
#include "stato.h"
#include "tecnico_ini.h"
#include "testata.h"
#include "testo.h"

#include <QDir>

#include <cmath>

namespace tavolet {

void Inizializza(Stato& stato) {
    ConTrappola(stato, QStringLiteral("Inizializza"), [&] {
        Ambiente& a = stato.amb;
        const CartelleSpeciali c = CartelleDiSistema();
        a.CartellaDocumenti = c.documenti;
        a.CartellaTemp = c.temp;
        a.CartellaSistema = c.sistema;
        a.CartellaProgramFiles = c.programFiles;
        a.CartellaProgramma = c.programma;
        a.CartellaDesktop = c.desktop;
        a.CartellaLavoro = a.CartellaDocumenti + QStringLiteral("\\Tavolet");
        a.CartellaLavoroBarra = a.CartellaLavoro + u'\\';
        CreaCartella(a.CartellaTemp);
        ScriviTesto(a.CartellaTemp + QStringLiteral("\\CARTELLADOCUMENTI.TXT"),
                    a.CartellaLavoro + CRLF);
    });
}

void CalcolaCostantiAngoli(Stato& stato) {
    stato.amb.PiGreco = 4.0 * std::atan(1.0);
    stato.amb.GradiPerRadiante = 200.0 / stato.amb.PiGreco;
    stato.amb.RadiantiPerGrado = stato.amb.PiGreco / 200.0;
}

namespace {

// The technician of PREGEO.INI becomes the head's technician.
void ImportaTecnicoIni(Stato& stato) {
    const TecnicoIni t = LeggiTecnicoIni(stato.amb.RigheIni);
    if (t.Cognome.isEmpty() && t.Nome.isEmpty()) return;
    stato.testata.Cognome = UCase(t.Cognome);
    stato.testata.Nome = UCase(t.Nome);
    stato.testata.Tecnico = UCase(t.Cognome) + u' ' + UCase(t.Nome);
}

void CaricaQualita(Stato& stato) {
    const QString percorso =
        stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\exe\\qualita.txt");
    if (!EsisteFile(percorso)) return;
    QStringList righe = LeggiRighe(percorso);
    if (!righe.isEmpty()) righe.removeFirst();
    QStringList tabella;
    for (const QString& riga : righe) {
        if (tabella.size() >= 501) throw Errore(9);
        const QString descrizione = Left(riga, 12);
        const QString codice = Trim(Mid(riga, 14));
        tabella.append(codice + QStringLiteral("   ") + descrizione);
    }
    stato.amb.TabellaQualita = tabella;
}

} // namespace

void CaricaConfig(Stato& stato) {
    ConTrappola(stato, QStringLiteral("CaricaConfig"), [&] {
        Ambiente& a = stato.amb;
        a.UnitaPregeoExe = QStringLiteral("C:");
        a.UnitaPregeoDati = QStringLiteral("C:");
        const QString ini = a.CartellaSistema + QStringLiteral("\\PREGEO.INI");
        if (!EsisteFile(ini)) {
            stato.piattaforma->Messaggio(
                QStringLiteral("PREGEO.INI NON trovato - Verificare installazione Pregeo!"),
                QStringLiteral("Pregeo Non Installato"), Icona::Avviso);
            return;
        }
        a.RigheIni = Split(LeggiTesto(ini), CRLF);
        if (a.RigheIni.size() < 2) return;
        ImportaTecnicoIni(stato);
        for (int i = 1; i < a.RigheIni.size(); ++i) {
            const QString& riga = a.RigheIni[i];
            if (riga.startsWith(QStringLiteral("DskAPPLexe")))
                a.UnitaPregeoExe = UCase(Right(riga, 2));
            if (riga.startsWith(QStringLiteral("DskAPPLada")))
                a.UnitaPregeoDati = UCase(Right(riga, 2));
        }
        if (!EsisteFile(a.UnitaPregeoExe + QStringLiteral("\\pregeo\\exe\\Pregeo.EXE"))) {
            stato.piattaforma->Messaggio(
                QStringLiteral("Informazione gratuita:") + CRLF + CRLF +
                    QStringLiteral("Pregeo non è installato correttamente nel PC.") + CRLF +
                    QStringLiteral("    Trovato PREGEO.INI") + CRLF +
                    QStringLiteral("NON trovato Pregeo.EXE"),
                QStringLiteral("Pregeo Assente"), Icona::Avviso);
            return;
        }
        a.VersionePregeo = kVersionePregeo;
        a.PercorsoArch2 = a.UnitaPregeoExe + QStringLiteral("\\pregeo\\arch\\arch2.db");
        stato.TagRoutine = QStringLiteral("CaricaConfig_qualita");
        CaricaQualita(stato);
    });
}

void CaricaComuni(Stato& stato) {
    if (stato.amb.ComuniCaricati) {
        stato.TagRoutine = QStringLiteral("CaricaComuni");
        return;
    }
    stato.amb.ComuniCaricati = true;
    ConTrappola(stato, QStringLiteral("CaricaComuni"), [&] {
        const QString percorso =
            stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\arch\\comunt.dat");
        if (!EsisteFile(percorso)) {
            stato.piattaforma->Messaggio(percorso + CRLF + QStringLiteral("Non Trovato!"),
                                         QStringLiteral("Tavolet"), Icona::Avviso);
            return;
        }
        // Records of 66 characters, each behind a header of two: "@B" for a live record, " B"
        // for one the registry marked as dropped, whose comune surveyors still look up.
        constexpr int kRecord = 66;
        const QStringList pezzi = Split(LeggiTesto(percorso), QStringLiteral("@B"));
        QStringList record;
        record.reserve(pezzi.size());
        for (int i = 1; i < pezzi.size(); ++i) {
            QStringView p = pezzi[i];
            while (p.size() > kRecord + 2 && p.sliced(kRecord, 2) == u" B") {
                record.append(p.first(kRecord).toString());
                p = p.sliced(kRecord + 2);
            }
            record.append(p.toString());
        }
        QList<Comune> tabella;
        tabella.reserve(record.size());
        for (const QString& p : record) {
            Comune c;
            c.CodiceComune = Trim(Mid(p, 2, 4) + Mid(p, 1, 1));
            c.CodiceAggiuntivo = Trim(Mid(p, 63, 4));
            c.SiglaProvincia = Trim(Mid(p, 27, 2));
            c.NomeComune = Trim(Mid(p, 29, 34));
            tabella.append(c);
        }
        stato.amb.TabellaComuni = tabella;
    });
}

void CaricaProvince(Stato& stato) {
    if (stato.amb.ProvinceCaricate) return;
    stato.amb.ProvinceCaricate = true;
    ConTrappola(stato, QStringLiteral("CaricaProvince"), [&] {
        const QString percorso =
            stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\exe\\prosigle");
        if (!EsisteFile(percorso)) return;
        QList<Provincia> tabella;
        for (const QString& riga : LeggiRighe(percorso)) {
            if (Trim(riga).isEmpty()) continue;
            if (tabella.size() >= 111) throw Errore(9);
            const QStringList campi = Split(riga, QStringLiteral(","));
            tabella.append({Trim(campi.value(0)), Trim(campi.value(1))});
        }
        stato.amb.TabellaProvince = tabella;
    });
}

QString CodiceQualita(const Stato& stato, const QString& testo) {
    for (const QString& voce : stato.amb.TabellaQualita)
        if (voce.contains(testo)) return Trim(Left(voce, 5));
    return QString();
}

void NuovaCartella(Stato& stato, const QString& percorso) {
    ConTrappola(stato, QStringLiteral("NuovaCartella"), [&] {
        if (!EsisteCartella(percorso)) CreaCartella(percorso);
    });
}

QStringList CartelleDiLavoro(const Stato& stato) {
    const Ambiente& a = stato.amb;
    const QString dati = a.UnitaPregeoDati, exe = a.UnitaPregeoExe, doc = a.CartellaDocumenti;
    return {dati + "\\FIDUCIAL",
            dati + "\\fiducial\\DITTA",
            dati + "\\fiducial\\VISURE",
            dati + "\\fiducial\\DATI",
            dati + "\\fiducial\\COMUNI",
            exe + "\\fiducial\\Unarvo",
            dati + "\\fiducial\\PARTICELLE",
            dati + "\\fiducial\\MODULISTICA",
            exe + "\\PREGEO",
            exe + "\\PREGEO\\ESTRATTI",
            exe + "\\pregeo\\arch\\BackupDB",
            doc + "\\Tavolet",
            doc + "\\Tavolet\\TEMP",
            doc + "\\Tavolet\\GUIDA",
            doc + "\\Tavolet\\TECNICI",
            doc + "\\Tavolet\\Backup_Libretti",
            doc + "\\Tavolet\\Storico_Libretti",
            doc + "\\Tavolet\\MODELLI_STAMPA",
            doc + "\\Tavolet\\RISORSE",
            doc + "\\Bravanta",
            doc + "\\Bravanta\\TEMP"};
}

void CreaAlberoCartelle(Stato& stato) {
    for (const QString& c : CartelleDiLavoro(stato)) NuovaCartella(stato, c);
}

void ScriviVersioneTavolino(Stato& stato) {
    ConTrappola(stato, QStringLiteral("ScriviVersioneTavolino"), [&] {
        ScriviTesto(stato.amb.CartellaLavoro + QStringLiteral("\\VersioneTavolino.TXT"),
                    QStringLiteral("Ver 6.00 ") + kVersioneMinore + u'.' + kRevisione + CRLF);
    });
}

std::optional<Carattere> LeggiConfiguraCarattere(Stato& stato) {
    std::optional<Carattere> risultato;
    const QString percorso = stato.amb.CartellaLavoro + QStringLiteral("\\CONFIGURACARATTERE.INI");
    if (!EsisteFile(percorso)) return risultato;
    ConTrappola(stato, QStringLiteral("LeggiConfiguraCarattere"), [&] {
        const QStringList righe = LeggiRighe(percorso);
        if (righe.isEmpty()) return;
        const QStringList v = Split(righe[0], QStringLiteral(","));
        if (v.size() < 4) return;
        auto vero = [](const QString& s) {
            const QString t = UCase(Trim(s));
            return t == u"TRUE" || t == u"#TRUE#" || t == u"VERO" || Val(t) != 0;
        };
        Carattere c;
        c.dimensione = Val(v[0]);
        c.nome = Trim(v[1]).remove(u'"');
        c.grassetto = vero(v[2]);
        c.corsivo = vero(v[3]);
        if (c.dimensione <= 0 || c.dimensione > 200 || c.nome.isEmpty()) return;
        risultato = c;
    });
    return risultato;
}

void ScriviConfiguraCarattere(Stato& stato, const Carattere& c) {
    ConTrappola(stato, QStringLiteral("SelezionaCarattere"), [&] {
        const QString riga = Str(c.dimensione) + QStringLiteral(",\"") + c.nome +
                             QStringLiteral("\",") +
                             (c.grassetto ? QStringLiteral("True") : QStringLiteral("False")) +
                             u',' + (c.corsivo ? QStringLiteral("True") : QStringLiteral("False"));
        ScriviTesto(stato.amb.CartellaLavoro + QStringLiteral("\\CONFIGURACARATTERE.INI"),
                    riga + CRLF);
    });
}

void KillPregeo(Stato& stato) {
    for (const QString& nome : kProcessiPregeo) {
        const int n = stato.piattaforma->TerminaProcessi(nome);
        for (int i = 0; i < n; ++i)
            stato.piattaforma->Messaggio(QStringLiteral("Il programma ") + nome +
                                             QStringLiteral(" è stato terminato!"),
                                         QStringLiteral("Kill Pregeo"), Icona::Informazione);
    }
}

void CaricaPossessori(Stato& stato) {
    ConTrappola(stato, QStringLiteral("CaricaPossessori"), [&] {
        const QString percorso =
            stato.amb.UnitaPregeoDati + QStringLiteral("\\FIDUCIAL\\VISURE\\") +
            NomeFileSicuro(stato.testata.NomeArchivio) + QStringLiteral(".VIS");
        if (!EsisteFile(percorso)) return;
        QStringList righe = LeggiRighe(percorso);
        while (!righe.isEmpty() && Trim(righe.first()).isEmpty()) righe.removeFirst();
        while (!righe.isEmpty() && Trim(righe.last()).isEmpty()) righe.removeLast();
        stato.doc.TestoPossessori = UCase(Join(righe, CRLF));
    });
}

bool ComandoTag(Stato& stato, const QString& rigaComando) {
    bool aperto = false;
    ConTrappola(stato, QStringLiteral("COMANDOTAG_1"), [&] {
        QString comando = UCase(QString(rigaComando).remove(u'"'));
        if (Trim(comando).isEmpty()) return;
        static const QStringList estratti = {".EMP", ".PNG", ".DXF", ".ZIP"};
        if (!comando.contains(u'|') && estratti.contains(Right(comando, 4))) {
            if (stato.DrageDrop) stato.DrageDrop(stato, comando);
            return;
        }
        if (!comando.contains(u'|')) {
            stato.doc.PercorsoLibretto = comando;
            CaricaLibrettoMisure(stato);
            aperto = true;
            return;
        }
        // path|WORD|parameter: the bars appended give every field, the parameter too.
        const QStringList campi = Split(comando + QStringLiteral("|||||"), QStringLiteral("|"));
        stato.doc.PercorsoLibretto = campi[0].isEmpty()
                                         ? stato.amb.CartellaLavoro + QStringLiteral("\\Nuovo.DAT")
                                         : campi[0];
        CaricaLibrettoMisure(stato);
        aperto = true;
        const QString parola = UCase(campi[1]);
        stato.UltimoRisultato = parola;
        if (stato.EseguiComando) stato.EseguiComando(stato, parola, campi[2]);
    });
    return aperto;
}

QString TitoloIniziale() {
    return QStringLiteral("Tavolet V. 2026 - ") + kRevisione;
}

bool AvvioProgramma(Stato& stato, const QString& rigaComando) {
    if (stato.piattaforma->AltraIstanza()) {
        stato.piattaforma->Messaggio(QStringLiteral("Modulo già attivo!"),
                                     QStringLiteral("Tavolet"), Icona::Avviso);
        stato.piattaforma->TerminaProcessi(QStringLiteral("tavolet.exe"));
        return false;
    }
    CalcolaCostantiAngoli(stato);
    NuovaCartella(stato, stato.amb.CartellaProgramma);
    CaricaConfig(stato);
    CaricaComuni(stato);
    CaricaProvince(stato);
    CreaAlberoCartelle(stato);
    ScriviVersioneTavolino(stato);
    if (!Trim(rigaComando).isEmpty()) {
        ComandoTag(stato, rigaComando);
        // A command word is the whole of the run: the program ends after it.
        if (rigaComando.contains(u'|')) return false;
    }
    KillPregeo(stato);
    DecoZeroNove(stato);
    CaricaFileTecnico(stato, stato.testata.Tecnico);
    CaricaLibrettoInList1(stato);
    CaricaPossessori(stato);
    return true;
}

bool ChiusuraProgramma(Stato& stato) {
    AggiornaLibrettoMisure(stato);
    stato.doc.TestoPossessori = UCase(stato.doc.TestoPossessori);
    return SalvaLibrettoMisure(stato);
}

} // namespace tavolet
