// The scripted platform: answers come from queues, every message and question is recorded.
#pragma once

#include "piattaforma.h"

#include <QList>
#include <QMap>

#include <functional>

namespace tavolet {

struct Evento {
    QString tipo; // "messaggio", "domanda", "apri", "salva", "carattere", "avvia", "termina",
                  // "apriconprogramma", "collegamento", "stampa"
    QString titolo;
    QString testo;
    Icona icona = Icona::Nessuna;
};

class PiattaformaFinta : public Piattaforma {
public:
    // Scripted answers, consumed in order; when a queue is empty the default answer is given
    // (questions), or the dialog is cancelled (files, fonts).
    QList<Risposta> risposte;
    QStringList fileDaAprire;
    QStringList fileDaSalvare;
    QList<std::optional<Carattere>> caratteri;
    QString appunti;
    QMap<QString, QString> impostazioni; // "sezione/chiave" -> valore
    QDateTime adesso = QDateTime(QDate(2026, 1, 15), QTime(10, 30, 0));
    QStringList processiAttivi; // names that TerminaProcessi can end
    QList<int> codiciUscita;    // exit codes of the programs started, in order
    // When set, a program started really runs through it (the command line runs the host's
    // programs; a test may run a scripted double); else codiciUscita answers.
    std::function<int(const QString& programma, const QStringList& argomenti)> esegui;
    bool altraIstanza = false;
    bool stampanteScelta = true;           // false: the print dialog is cancelled
    std::optional<Risposta> rispostaFissa; // answers every question (--si, --no)
    QList<Evento> eventi;
    // Called on every message and question (the command line prints them).
    std::function<void(const Evento&)> osservatore;

    QStringList Messaggi() const; // "titolo: testo" of every message shown
    QStringList Domande() const;  // "titolo: testo" of every question asked

    void Messaggio(const QString& testo, const QString& titolo, Icona icona) override;
    Risposta Domanda(const QString& testo, const QString& titolo, Pulsanti pulsanti,
                     Risposta predefinita, Icona icona = Icona::Domanda) override;
    QString ApriFile(const QString& titolo, const QString& cartella,
                     const QString& filtro) override;
    QString SalvaFile(const QString& titolo, const QString& cartella, const QString& nome,
                      const QString& filtro) override;
    std::optional<Carattere> ScegliCarattere(const Carattere& iniziale) override;
    QString Appunti() override { return appunti; }
    void ImpostaAppunti(const QString& testo) override { appunti = testo; }
    QString Impostazione(const QString& sezione, const QString& chiave,
                         const QString& predefinito = QString()) override;
    void SalvaImpostazione(const QString& sezione, const QString& chiave,
                           const QString& valore) override;
    int AvviaEAttendi(const QString& programma, const QStringList& argomenti) override;
    int TerminaProcessi(const QString& nome) override;
    bool ApriConProgramma(const QString& percorso) override;
    bool CreaCollegamento(LuogoCollegamento luogo, const QString& nome,
                          const QString& destinazione) override;
    bool StampaTesto(const QString& titolo, const QString& testo,
                     const Carattere& carattere) override;
    QDateTime Adesso() override { return adesso; }
    bool AltraIstanza() override { return altraIstanza; }

private:
    void Registra(Evento e);
};

} // namespace tavolet
