// tavolet-cli: the logic of Tavolet without windows, on the scripted platform.
#include "comandi.h"
#include "modulo_disegno.h"

#include "copia_estratto.h"
#include "riordino.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>

namespace tavolet::cli {

namespace {

QList<Comando>& Tabella() {
    static QList<Comando> tabella;
    return tabella;
}

void Aiuto(QTextStream& out) {
    out << "Uso: tavolet-cli [--radice DIR] [--oggi DDMMYYYY] [--si|--no] [--verbose] "
           "[--programma NOME.EXE=comando]... COMANDO ...\n\n";
    QList<Comando> ordinati = Tabella();
    std::sort(ordinati.begin(), ordinati.end(),
              [](const Comando& a, const Comando& b) { return a.parole < b.parole; });
    for (const Comando& c : ordinati)
        out << "  " << (c.parole.join(' ') + ' ' + c.uso).leftJustified(34) << ' ' << c.descrizione
            << '\n';
}

} // namespace

Registra::Registra(Comando c) {
    Tabella().append(std::move(c));
}

void PreparaAmbiente(Stato& stato) {
    Inizializza(stato);
    CalcolaCostantiAngoli(stato);
    CaricaConfig(stato);
    CaricaComuni(stato);
    CaricaProvince(stato);
    InstallaRiordino(stato);
    InstallaEstratti(stato);
}

bool CaricaComeTrascinamento(Stato& stato, const QString& percorso) {
    return TrascinaLibretto(stato, percorso);
}

QString PercorsoArgomento(const QString& argomento) {
    if (QDir::isAbsolutePath(argomento) || argomento.contains(u'\\')) return argomento;
    return QFileInfo(argomento).absoluteFilePath();
}

bool FileDiIngresso(Piattaforma& piattaforma, const QString& argomento) {
    const QString percorso = PercorsoArgomento(argomento);
    QFileInfo info(PercorsoLocale(percorso));
    // A libretto opened as X.LXB with no X.LXB on disk is read from X.DAT, as the loader does.
    if (!info.exists() && UCase(Right(percorso, 4)) == u".LXB")
        info = QFileInfo(PercorsoLocale(percorso.chopped(4) + QStringLiteral(".DAT")));
    // A file of 0 bytes is there: it is empty input, and the command does what it does with
    // empty text. Only what is not there, or is a folder, is not found.
    if (info.isFile()) return true;
    piattaforma.Messaggio(percorso + CRLF + QStringLiteral("NON trovato!"),
                          QStringLiteral("Tavolet"), Icona::Avviso);
    return false;
}

bool IngressiLeggibili(const Comando& comando, const QStringList& argomenti,
                       Piattaforma& piattaforma) {
    const QStringList parole = comando.uso.split(u' ', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < parole.size() && i < argomenti.size(); ++i) {
        const QString& parola = parole[i];
        // Positions hold up to the first option.
        if (parola.startsWith(u'[') || parola.startsWith(u'-')) break;
        if (parola.endsWith(QStringLiteral("..."))) {
            // FILE... and names with an extension (IN.EMP...) are files; CODICE... is not.
            if (parola != u"FILE..." && !parola.chopped(3).contains(u'.')) break;
            // An option and its value are not files.
            for (qsizetype j = i; j < argomenti.size(); ++j) {
                if (argomenti[j].startsWith(QStringLiteral("--"))) {
                    ++j;
                    continue;
                }
                if (!FileDiIngresso(piattaforma, argomenti[j])) return false;
            }
            break;
        }
        static const QStringList ingressi = {"IN", "FILE", "PERCORSO", "LIBRETTO"};
        const bool ingresso = ingressi.contains(parola) ||
                              (parola.contains(u'.') && !parola.startsWith(QStringLiteral("OUT")));
        if (ingresso && !FileDiIngresso(piattaforma, argomenti[i])) return false;
    }
    return true;
}

const ModuloDisegno& Disegno() {
    static const ModuloDisegno modulo = [] {
        ModuloDisegno m;
        // Beside the program itself, whatever the working folder.
        const QString cartella = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
        QLibrary libreria(cartella + QStringLiteral("/tavolet-cli-disegno"));
        if (!libreria.load()) return m;
        m.applicazione = reinterpret_cast<decltype(m.applicazione)>(
            libreria.resolve("tavolet_applicazione_disegno"));
        m.png = reinterpret_cast<decltype(m.png)>(libreria.resolve("tavolet_disegna_png"));
        return m;
    }();
    return modulo;
}

} // namespace tavolet::cli

int main(int argc, char** argv) {
    using namespace tavolet;
    using namespace tavolet::cli;
    // "grafica png" draws text, which needs the GUI application; it runs on the offscreen
    // platform so that no display is needed.
    bool disegno = false;
    for (int i = 1; i + 1 < argc; ++i)
        disegno = disegno || (qstrcmp(argv[i], "grafica") == 0 && qstrcmp(argv[i + 1], "png") == 0);
    std::unique_ptr<QCoreApplication> applicazione(disegno && Disegno().Caricato()
                                                       ? Disegno().applicazione(&argc, argv)
                                                       : new QCoreApplication(argc, argv));
    QCoreApplication& app = *applicazione;
    QTextStream out(stdout);
    out.setEncoding(QStringConverter::Utf8);
    QTextStream err(stderr);
    err.setEncoding(QStringConverter::Utf8);

    QStringList args = app.arguments().mid(1);
    PiattaformaFinta piattaforma;
    piattaforma.adesso = QDateTime::currentDateTime();
    // Sibling programs really run, mapped as the desktop program maps them.
    piattaforma.esegui = AvviaProcessoHost;
    {
        QSettings utente(QStringLiteral("Tavolet"), QStringLiteral("Tavolet"));
        utente.beginGroup(kSezioneProgrammi);
        for (const QString& chiave : utente.childKeys())
            piattaforma.impostazioni.insert(kSezioneProgrammi + u'/' + chiave,
                                            utente.value(chiave).toString());
    }
    QStringList parole;
    bool verboso = false;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (a == u"--help" || a == u"-h") {
            Aiuto(out);
            return 0;
        } else if (a == u"--radice" && i + 1 < args.size()) {
            qputenv("TAVOLET_RADICE", QFileInfo(args[++i]).absoluteFilePath().toLocal8Bit());
        } else if (a == u"--oggi" && i + 1 < args.size()) {
            const QDate d = QDate::fromString(args[++i], QStringLiteral("ddMMyyyy"));
            if (!d.isValid()) {
                err << "Data non valida: " << args[i] << " (DDMMYYYY)\n";
                return 2;
            }
            piattaforma.adesso = QDateTime(d, QTime(12, 0, 0));
        } else if (a == u"--programma" && i + 1 < args.size()) {
            // NOME.EXE=comando: this run starts that sibling program through a host command.
            const QString voce = args[++i];
            const qsizetype uguale = voce.indexOf(u'=');
            if (uguale <= 0) {
                err << "Uso: --programma NOME.EXE=comando\n";
                return 2;
            }
            piattaforma.impostazioni.insert(kSezioneProgrammi + u'/' + voce.left(uguale).toUpper(),
                                            voce.mid(uguale + 1));
        } else if (a == u"--si") {
            piattaforma.rispostaFissa = Risposta::Si;
        } else if (a == u"--no") {
            piattaforma.rispostaFissa = Risposta::No;
        } else if (a == u"--verbose" || a == u"-v") {
            verboso = true;
        } else {
            parole << a;
        }
    }

    const Comando* scelto = nullptr;
    for (const Comando& c : Tabella()) {
        if (parole.mid(0, c.parole.size()) == c.parole &&
            (!scelto || c.parole.size() > scelto->parole.size()))
            scelto = &c;
    }
    if (!scelto) {
        if (!parole.isEmpty()) err << "Comando sconosciuto: " << parole.join(' ') << "\n\n";
        Aiuto(err);
        return 2;
    }
    const QStringList resto = parole.mid(scelto->parole.size());
    if (resto.size() < scelto->argomentiMinimi) {
        err << "Uso: tavolet-cli " << scelto->parole.join(' ') << ' ' << scelto->uso << '\n';
        return 2;
    }
    // Without a root of its own a run works in a temporary one, so that nothing is made in the
    // home folder; it says where it looked.
    std::optional<QTemporaryDir> radiceTemporanea;
    const QString wine = QDir::homePath() + QStringLiteral("/.wine");
    if (qEnvironmentVariableIsEmpty("TAVOLET_RADICE") &&
        qEnvironmentVariableIsEmpty("WINEPREFIX") && !QFileInfo(wine).isDir()) {
        radiceTemporanea.emplace();
        if (radiceTemporanea->isValid()) {
            qputenv("TAVOLET_RADICE", radiceTemporanea->path().toLocal8Bit());
            err << "Pregeo non trovato: nessuna --radice, nessun WINEPREFIX e nessuna cartella "
                << wine << "; si prosegue in una cartella temporanea.\n";
        }
    }
    // A question answered with its default is shown only when asked for.
    piattaforma.osservatore = [&err, verboso](const Evento& e) {
        if (e.tipo == u"messaggio" || (e.tipo == u"domanda" && verboso)) {
            QString testo = e.testo;
            testo.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
            err << e.titolo << ": " << testo << '\n';
            err.flush();
        }
    };
    // An input that is missing or a folder stops the command before it writes.
    if (!IngressiLeggibili(*scelto, resto, piattaforma)) return 1;
    Stato stato(piattaforma);
    Contesto ctx{stato, piattaforma, resto, out};
    int esito = scelto->esegui(ctx);
    out.flush();
    if (esito == 0 && stato.ErroriMostrati > 0) esito = 1;
    return esito;
}
