// Everything the logic asks of the desktop. PiattaformaQt (screens/) is the real one,
// PiattaformaFinta (core) answers tests and the command line.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

namespace tavolet {

enum class Icona { Nessuna, Informazione, Avviso, Critico, Domanda };
enum class Risposta { Ok, Si, No, Annulla };
enum class Pulsanti { SiNo, SiNoAnnulla, OkAnnulla };
enum class LuogoCollegamento { Desktop, MenuProgrammi };

// A font as the settings file keeps it; the logic has no font type of its own.
struct Carattere {
    QString nome = QStringLiteral("Courier New");
    double dimensione = 10;
    bool grassetto = false;
    bool corsivo = false;
    bool operator==(const Carattere&) const = default;
};

class Piattaforma {
public:
    virtual ~Piattaforma() = default;

    virtual void Messaggio(const QString& testo, const QString& titolo, Icona icona) = 0;
    virtual Risposta Domanda(const QString& testo, const QString& titolo, Pulsanti pulsanti,
                             Risposta predefinita, Icona icona = Icona::Domanda) = 0;
    // Empty when the operator cancels.
    virtual QString ApriFile(const QString& titolo, const QString& cartella,
                             const QString& filtro) = 0;
    virtual QString SalvaFile(const QString& titolo, const QString& cartella, const QString& nome,
                              const QString& filtro) = 0;
    virtual std::optional<Carattere> ScegliCarattere(const Carattere& iniziale) = 0;
    virtual QString Appunti() = 0;
    virtual void ImpostaAppunti(const QString& testo) = 0;
    virtual QString Impostazione(const QString& sezione, const QString& chiave,
                                 const QString& predefinito = QString()) = 0;
    virtual void SalvaImpostazione(const QString& sezione, const QString& chiave,
                                   const QString& valore) = 0;
    // Starts a program (host path) and blocks until it ends; returns its exit code, -1 when
    // it could not start.
    virtual int AvviaEAttendi(const QString& programma, const QStringList& argomenti) = 0;
    // Terminates every process of that name (case ignored); returns how many ended.
    virtual int TerminaProcessi(const QString& nome) = 0;
    // A file opens with its default program; an address that begins "http" in the browser.
    virtual bool ApriConProgramma(const QString& percorso) = 0;
    // A shortcut (a launcher off Windows) named nome in the user's desktop or programs menu,
    // to a program or to a folder; both given in Windows form.
    virtual bool CreaCollegamento(LuogoCollegamento luogo, const QString& nome,
                                  const QString& destinazione) = 0;
    // Sends a text to the printer the operator chooses; false when cancelled.
    virtual bool StampaTesto(const QString& titolo, const QString& testo,
                             const Carattere& carattere) = 0;
    virtual QDateTime Adesso() = 0;
    // True when another instance of the program is already running.
    virtual bool AltraIstanza() = 0;
};

} // namespace tavolet
