#include "archivio_pregeo.h"

#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "stato.h"
#include "tecnico_ini.h"
#include "testata.h"
#include "testo.h"

namespace tavolet {

QString DataDiSistema(const QDateTime& quando) {
    return quando.date().toString(QStringLiteral("dd/MM/yyyy"));
}

QString OraDiSistema(const QDateTime& quando) {
    return quando.time().toString(QStringLiteral("HH:mm:ss"));
}

QString NomeBackupArch2(const Stato& stato) {
    const QString stem = Split(NomeDelFile(stato.doc.PercorsoLibretto), QStringLiteral("."))[0];
    const QDateTime ora = stato.piattaforma->Adesso();
    // The characters of the date text: on a day-first system this gives year, day, month.
    const QString data = DataDiSistema(ora);
    return stem + u'_' + Right(data, 4) + u'-' + Left(data, 2) + u'-' + Mid(data, 4, 2) + u'_' +
           Replace(OraDiSistema(ora), QStringLiteral(":"), QStringLiteral("-")) +
           QStringLiteral(".db");
}

void SalvaArch2Db(Stato& stato) {
    ConTrappola(stato, QStringLiteral("salvarch2.db"), [&] {
        CopiaFile(stato.amb.PercorsoArch2, stato.amb.UnitaPregeoExe +
                                               QStringLiteral("\\pregeo\\arch\\BackupDB\\") +
                                               NomeBackupArch2(stato));
    });
}

bool UsaLibrettoSingolo(Stato& stato) {
    const QString singolo = stato.amb.CartellaProgramma + QStringLiteral("\\arch2.db");
    if (!EsisteFile(singolo)) {
        stato.piattaforma->Messaggio(QStringLiteral("Il File ") + singolo + CRLF +
                                         QStringLiteral("Non è stato trovato!") + CRLF +
                                         QStringLiteral("Comando NON eseguito!"),
                                     QStringLiteral("Usa Libretto Singolo"), Icona::Critico);
        return false;
    }
    SalvaArch2Db(stato);
    return ConTrappola(stato, QStringLiteral("UsaLibrettoSingolo"), [&] {
        CopiaFile(singolo, stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\arch\\arch2.db"));
    });
}

bool AggiornaPregeoIni(Stato& stato) {
    const SigleConfigurazione sigle = AggiornaConfigurazionePregeo(stato);
    if (stato.amb.RigheIni.isEmpty() ||
        !EsisteFile(stato.amb.CartellaSistema + QStringLiteral("\\PREGEO.INI")))
        return false;
    const Testata& t = stato.testata;
    TecnicoIni tecnico;
    tecnico.Cognome = t.Cognome;
    tecnico.Nome = t.Nome;
    tecnico.Qualifica = t.Qualifica;
    tecnico.ProvinciaAlbo = t.ProvinciaAlbo;
    tecnico.SiglaProvinciaAlbo = sigle.SiglaProvinciaAlbo;
    tecnico.NumeroIscrizione = stato.doc.NumeroIscrizioneAlbo;
    tecnico.CodiceFiscale = stato.doc.CodiceFiscaleTecnico;
    // A key the operator never filled keeps what PREGEO.INI already says.
    const TecnicoIni attuale = LeggiTecnicoIni(stato.amb.RigheIni);
    auto tieni = [](QString& nuovo, const QString& vecchio) {
        if (Trim(nuovo).isEmpty()) nuovo = vecchio;
    };
    tieni(tecnico.Cognome, attuale.Cognome);
    tieni(tecnico.Nome, attuale.Nome);
    tieni(tecnico.Qualifica, attuale.Qualifica);
    tieni(tecnico.ProvinciaAlbo, attuale.ProvinciaAlbo);
    tieni(tecnico.SiglaProvinciaAlbo, attuale.SiglaProvinciaAlbo);
    tieni(tecnico.NumeroIscrizione, attuale.NumeroIscrizione);
    tieni(tecnico.CodiceFiscale, attuale.CodiceFiscale);
    const QStringList prima = stato.amb.RigheIni;
    stato.amb.RigheIni = ScriviTecnicoIni(prima, tecnico);
    if (stato.amb.RigheIni == prima) return true;
    return ConTrappola(stato, QStringLiteral("AggiornaConfigurazionePregeo"),
                       [&] { RiscriviPregeoIni(stato); });
}

} // namespace tavolet
