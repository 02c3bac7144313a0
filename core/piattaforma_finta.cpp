#include "piattaforma_finta.h"

namespace tavolet {

void PiattaformaFinta::Registra(Evento e) {
    eventi.append(e);
    if (osservatore) osservatore(e);
}

QStringList PiattaformaFinta::Messaggi() const {
    QStringList r;
    for (const Evento& e : eventi)
        if (e.tipo == u"messaggio") r << e.titolo + QStringLiteral(": ") + e.testo;
    return r;
}

QStringList PiattaformaFinta::Domande() const {
    QStringList r;
    for (const Evento& e : eventi)
        if (e.tipo == u"domanda") r << e.titolo + QStringLiteral(": ") + e.testo;
    return r;
}

void PiattaformaFinta::Messaggio(const QString& testo, const QString& titolo, Icona icona) {
    Registra({QStringLiteral("messaggio"), titolo, testo, icona});
}

Risposta PiattaformaFinta::Domanda(const QString& testo, const QString& titolo, Pulsanti,
                                   Risposta predefinita, Icona icona) {
    Registra({QStringLiteral("domanda"), titolo, testo, icona});
    if (rispostaFissa) return *rispostaFissa;
    return risposte.isEmpty() ? predefinita : risposte.takeFirst();
}

QString PiattaformaFinta::ApriFile(const QString& titolo, const QString& cartella, const QString&) {
    Registra({QStringLiteral("apri"), titolo, cartella});
    return fileDaAprire.isEmpty() ? QString() : fileDaAprire.takeFirst();
}

QString PiattaformaFinta::SalvaFile(const QString& titolo, const QString& cartella,
                                    const QString& nome, const QString&) {
    Registra({QStringLiteral("salva"), titolo, cartella + u'|' + nome});
    return fileDaSalvare.isEmpty() ? QString() : fileDaSalvare.takeFirst();
}

std::optional<Carattere> PiattaformaFinta::ScegliCarattere(const Carattere& iniziale) {
    Registra({QStringLiteral("carattere"), QString(), iniziale.nome});
    return caratteri.isEmpty() ? std::nullopt : caratteri.takeFirst();
}

QString PiattaformaFinta::Impostazione(const QString& sezione, const QString& chiave,
                                       const QString& predefinito) {
    return impostazioni.value(sezione + u'/' + chiave, predefinito);
}

void PiattaformaFinta::SalvaImpostazione(const QString& sezione, const QString& chiave,
                                         const QString& valore) {
    impostazioni.insert(sezione + u'/' + chiave, valore);
}

int PiattaformaFinta::AvviaEAttendi(const QString& programma, const QStringList& argomenti) {
    Registra({QStringLiteral("avvia"), programma, argomenti.join(u' ')});
    if (esegui) return esegui(programma, argomenti);
    return codiciUscita.isEmpty() ? 0 : codiciUscita.takeFirst();
}

int PiattaformaFinta::TerminaProcessi(const QString& nome) {
    int n = 0;
    for (int i = int(processiAttivi.size()) - 1; i >= 0; --i) {
        if (processiAttivi[i].compare(nome, Qt::CaseInsensitive) == 0) {
            processiAttivi.removeAt(i);
            ++n;
        }
    }
    Registra({QStringLiteral("termina"), nome, QString::number(n)});
    return n;
}

bool PiattaformaFinta::ApriConProgramma(const QString& percorso) {
    Registra({QStringLiteral("apriconprogramma"), QString(), percorso});
    return true;
}

bool PiattaformaFinta::CreaCollegamento(LuogoCollegamento luogo, const QString& nome,
                                        const QString& destinazione) {
    const QString dove = luogo == LuogoCollegamento::Desktop ? QStringLiteral("Desktop")
                                                             : QStringLiteral("Programmi");
    Registra({QStringLiteral("collegamento"), dove + u'|' + nome, destinazione});
    return true;
}

bool PiattaformaFinta::StampaTesto(const QString& titolo, const QString& testo, const Carattere&) {
    Registra({QStringLiteral("stampa"), titolo, testo});
    return stampanteScelta;
}

} // namespace tavolet
