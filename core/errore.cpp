#include "errore.h"

#include "piattaforma.h"
#include "stato.h"
#include "testo.h"

#include <new>

namespace tavolet {

Errore::Errore(int n, QString d) : numero(n), descrizione(d.isEmpty() ? DescrizioneErrore(n) : d) {}

QString DescrizioneErrore(int numero) {
    switch (numero) {
    case 5:
        return QStringLiteral("Chiamata di routine o argomento non validi");
    case 6:
        return QStringLiteral("Overflow");
    case 7:
        return QStringLiteral("Memoria esaurita");
    case 9:
        return QStringLiteral("Indice non incluso nell'intervallo");
    case 11:
        return QStringLiteral("Divisione per zero");
    case 13:
        return QStringLiteral("Tipo non corrispondente");
    case 52:
        return QStringLiteral("Nome o numero di file non valido");
    case 53:
        return QStringLiteral("Impossibile trovare il file");
    case 55:
        return QStringLiteral("File già aperto");
    case 57:
        return QStringLiteral("Errore di I/O sulla periferica");
    case 58:
        return QStringLiteral("File già esistente");
    case 61:
        return QStringLiteral("Disco pieno");
    case 62:
        return QStringLiteral("Input oltre la fine del file");
    case 70:
        return QStringLiteral("Autorizzazione negata");
    case 75:
        return QStringLiteral("Errore di accesso al percorso/file");
    case 76:
        return QStringLiteral("Impossibile trovare il percorso");
    case 32755:
        return QStringLiteral("Operazione annullata");
    default:
        return QStringLiteral("Errore definito dall'applicazione o dall'oggetto");
    }
}

void MostraErrore(Stato& stato, int numero, const QString& descrizione, const QString& routine) {
    if (numero != 32755) {
        QString testo = QStringLiteral("Si è verificato questo errore : ") +
                        QString::number(numero) + CRLF + descrizione + CRLF;
        if (numero == 75)
            testo += QStringLiteral("o il file potrebbe essere di sola lettura!") + CRLF;
        testo += QStringLiteral("Nella Routine ") + routine;
        ++stato.ErroriMostrati;
        stato.piattaforma->Messaggio(testo, QStringLiteral("Rilevato errore"), Icona::Critico);
    }
    // Files are closed by their owners as the failure unwinds; only the tag is left to clear.
    stato.TagRoutine.clear();
}

bool ConTrappola(Stato& stato, const QString& tag, const std::function<void()>& corpo) {
    stato.TagRoutine = tag;
    try {
        corpo();
        return true;
    } catch (const Errore& e) {
        MostraErrore(stato, e.numero, e.descrizione, stato.TagRoutine);
    } catch (const std::bad_alloc&) {
        MostraErrore(stato, 7, DescrizioneErrore(7), stato.TagRoutine);
    } catch (const std::exception& e) {
        MostraErrore(stato, 5, QString::fromLocal8Bit(e.what()), stato.TagRoutine);
    }
    return false;
}

} // namespace tavolet
