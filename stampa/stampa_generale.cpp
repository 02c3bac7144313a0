// The commands of the print screen that need no window: font file, viewer, sending, lines.
#include "stampa.h"

#include "blocchi_tag.h"
#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "shell.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

namespace {

QString PercorsoCarattere(const Stato& stato) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\CarattereStampa.ini");
}

bool Vero(const QString& s) {
    const QString t = UCase(Trim(s));
    return t == u"TRUE" || t == u"#TRUE#" || t == u"VERO" || Val(t) != 0;
}

} // namespace

std::optional<Carattere> LeggiCarattereStampa(Stato& stato) {
    std::optional<Carattere> risultato;
    if (!EsisteFile(PercorsoCarattere(stato))) return risultato;
    ConTrappola(stato, QStringLiteral(" Buttonplus1 3"), [&] {
        const QStringList righe = LeggiRighe(PercorsoCarattere(stato));
        if (righe.isEmpty()) return;
        const QStringList v = Split(righe[0], QStringLiteral(","));
        if (v.size() < 4) return;
        Carattere c;
        c.dimensione = Val(v[0]);
        c.nome = Trim(v[1]).remove(u'"');
        c.grassetto = Vero(v[2]);
        c.corsivo = Vero(v[3]);
        // A file that says nothing sensible leaves the font as designed.
        if (c.dimensione < 1 || c.dimensione > 200 || c.nome.isEmpty()) return;
        risultato = c;
    });
    return risultato;
}

void ScriviCarattereStampa(Stato& stato, const Carattere& c) {
    ConTrappola(stato, QStringLiteral(" Buttonplus1 3"), [&] {
        ScriviTesto(PercorsoCarattere(stato),
                    Str(c.dimensione) + QStringLiteral(",\"") + c.nome + QStringLiteral("\",") +
                        (c.grassetto ? QStringLiteral("True") : QStringLiteral("False")) + u',' +
                        (c.corsivo ? QStringLiteral("True") : QStringLiteral("False")) + CRLF);
    });
}

QString EtichettaVisualizzatore(Stato& stato) {
    const QString v =
        stato.piattaforma->Impostazione(kSezioneVisualizzatore, kChiaveVisualizzatore);
    return Trim(v).isEmpty() ? QStringLiteral("Default") : NomeDelFile(v);
}

bool SelezionaVisualizzatore(Stato& stato) {
    const QString scelto = stato.piattaforma->ApriFile(QStringLiteral("Seleziona Editor"),
                                                       stato.amb.CartellaProgramFiles,
                                                       QStringLiteral("Editor (*.EXE)|*.EXE"));
    if (scelto.isEmpty()) {
        stato.piattaforma->Messaggio(QStringLiteral("Nessuna Editor selezionato!"),
                                     QStringLiteral("Seleziona Editor"), Icona::Informazione);
        return false;
    }
    stato.piattaforma->SalvaImpostazione(kSezioneVisualizzatore, kChiaveVisualizzatore,
                                         UCase(scelto));
    return true;
}

void UsaVisualizzatorePredefinito(Stato& stato) {
    stato.piattaforma->SalvaImpostazione(kSezioneVisualizzatore, kChiaveVisualizzatore, QString());
}

void Invia(Stato& stato, const QString& radiceFile, bool comeXls) {
    if (Trim(radiceFile).isEmpty()) return;
    ConTrappola(stato, QStringLiteral(" BotNew1 4"), [&] {
        const QString csv = radiceFile + QStringLiteral(".CSV");
        if (comeXls) {
            const QString tabulino = stato.amb.CartellaProgramma + QStringLiteral("\\Tabulino.EXE");
            if (EsisteFile(tabulino))
                ShellInfinita(stato, u'"' + tabulino + QStringLiteral("\" \"") + csv + u'"');
            return;
        }
        const QString visualizzatore =
            Trim(stato.piattaforma->Impostazione(kSezioneVisualizzatore, kChiaveVisualizzatore));
        if (!visualizzatore.isEmpty())
            ShellInfinita(stato, u'"' + visualizzatore + QStringLiteral("\" \"") + csv + u'"');
        else
            stato.piattaforma->ApriConProgramma(csv);
    });
}

void CopiaRigheStampa(Stato& stato, const QStringList& righe) {
    RispondiTag(stato, Join(righe, QStringLiteral("\r\n")));
}

void SpostaASinistra(QStringList& righe) {
    for (QString& r : righe) r = Mid(r, 2);
}

void SpostaADestra(QStringList& righe) {
    for (QString& r : righe) r.prepend(u' ');
}

bool EliminaRigaStampa(QStringList& righe, int selezionata) {
    if (selezionata < 1 || selezionata >= righe.size()) return false;
    righe.removeAt(selezionata);
    return true;
}

void AggiungiRigaStampa(QStringList& righe) {
    righe.insert(qMin<qsizetype>(2, righe.size()), QStringLiteral(" "));
}

} // namespace tavolet
