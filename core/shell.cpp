#include "shell.h"

#include "errore.h"
#include "percorsi.h"
#include "processi.h"
#include "stato.h"
#include "testo.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace tavolet {

namespace {

bool SuWindows() {
#ifdef Q_OS_WIN
    return true;
#else
    return false;
#endif
}

bool Eseguibile(const QString& programma) {
    return NomeDelFile(programma).endsWith(QStringLiteral(".exe"), Qt::CaseInsensitive);
}

} // namespace

ComandoAvvio ScomponiComando(const QString& riga) {
    const QString t = riga.trimmed();
    ComandoAvvio c;
    qsizetype fine = 0;
    if (t.startsWith(u'"')) {
        const qsizetype chiusa = t.indexOf(u'"', 1);
        c.programma = chiusa < 0 ? t.mid(1) : t.mid(1, chiusa - 1);
        fine = chiusa < 0 ? t.size() : chiusa + 1;
    } else {
        const qsizetype exe = t.indexOf(QStringLiteral(".exe"), 0, Qt::CaseInsensitive);
        if (exe >= 0) {
            fine = exe + 4;
            // Characters stuck behind the extension stay with the program ("Ponticello.exe2").
            while (fine < t.size() && !t[fine].isSpace()) ++fine;
        } else {
            fine = t.indexOf(u' ');
            if (fine < 0) fine = t.size();
        }
        c.programma = t.left(fine);
    }
    c.argomenti = QProcess::splitCommand(t.mid(fine));
    return c;
}

ComandoAvvio ComandoDaAvviare(Stato& stato, const QString& riga) {
    ComandoAvvio c = ScomponiComando(riga);
    const QString chiave = UCase(NomeDelFile(c.programma));
    const QString mappa =
        chiave.isEmpty() ? QString() : stato.piattaforma->Impostazione(kSezioneProgrammi, chiave);
    const QStringList host = QProcess::splitCommand(mappa);
    if (host.isEmpty()) return c;
    return {host.first(), host.mid(1) + c.argomenti};
}

bool AvviaProcesso(QProcess& p, const QString& programma, const QStringList& argomenti) {
    QString eseguibile = PercorsoLocale(programma);
    QStringList arg = argomenti;
    if (!SuWindows() && Eseguibile(programma)) {
        const QString wine = QStandardPaths::findExecutable(QStringLiteral("wine"));
        if (wine.isEmpty()) return false;
        arg.prepend(eseguibile);
        eseguibile = wine;
    } else if (!programma.contains(u'/') && !programma.contains(u'\\')) {
        // A bare name is looked for on the PATH, as a shell would.
        const QString trovato = QStandardPaths::findExecutable(programma);
        if (!trovato.isEmpty()) eseguibile = trovato;
    }
    p.setProcessChannelMode(QProcess::ForwardedChannels);
    p.setInputChannelMode(QProcess::ForwardedInputChannel);
    p.start(eseguibile, arg);
    return p.waitForStarted(-1);
}

int EsitoProcesso(const QProcess& p) {
    // A program that started and then crashed is not one that could not start.
    return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
}

int AvviaProcessoHost(const QString& programma, const QStringList& argomenti) {
    QProcess p;
    if (!AvviaProcesso(p, programma, argomenti)) return -1;
    p.waitForFinished(-1);
    return EsitoProcesso(p);
}

QString MotivoMancatoAvvio(const QString& programma) {
    const bool nudo = !programma.contains(u'/') && !programma.contains(u'\\');
    if (nudo && QStandardPaths::findExecutable(programma).isEmpty())
        return QStringLiteral("Programma non trovato: ") + programma;
    const QString host = nudo ? programma : PercorsoLocale(programma);
    if (!nudo && !QFileInfo(host).isFile())
        return QStringLiteral("Programma non trovato: ") + programma +
               (host != programma ? QStringLiteral(" (") + host + u')' : QString());
    if (!SuWindows() && Eseguibile(programma) &&
        QStandardPaths::findExecutable(QStringLiteral("wine")).isEmpty())
        return QStringLiteral("Per avviare ") + programma +
               QStringLiteral(" occorre wine, che non è installato; oppure associare il "
                              "programma a un comando nelle impostazioni (") +
               kSezioneProgrammi + u')';
    return QStringLiteral("Impossibile avviare ") + programma;
}

int ShellInfinita(Stato& stato, const QString& riga, int stile) {
    Q_UNUSED(stile); // the window style of a child has no meaning off Windows
    int esito = -1;
    ConTrappola(stato, QStringLiteral("3105"), [&] {
        const ComandoAvvio c = ComandoDaAvviare(stato, riga);
        if (c.programma.isEmpty()) throw Errore(5);
        esito = stato.piattaforma->AvviaEAttendi(c.programma, c.argomenti);
        // The operating system's refusal: only the fake platform knows no such thing.
        if (esito == -1) throw Errore(53, MotivoMancatoAvvio(c.programma));
    });
    return esito;
}

} // namespace tavolet
