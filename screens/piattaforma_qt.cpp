#include "piattaforma_qt.h"

#include "percorsi.h"
#include "shell.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QSettings>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QTextDocument>
#include <QUrl>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace tavolet {

namespace {

#ifdef Q_OS_LINUX
int gCoppiaTermina[2] = {-1, -1};

void AllaTerminazione(int) {
    const char c = 1;
    [[maybe_unused]] const ssize_t n = ::write(gCoppiaTermina[0], &c, 1);
}

// Ends the program as the operator would: open dialogs are cancelled and the main form closes,
// so that its document is saved. A form that refuses to close keeps the program running.
void ChiudiComeOperatore() {
    char c;
    [[maybe_unused]] const ssize_t n = ::read(gCoppiaTermina[1], &c, 1);
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* d = qobject_cast<QDialog*>(w); d && d->isVisible()) d->reject();
    bool aperta = false;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* m = qobject_cast<QMainWindow*>(w); m && m->isVisible()) {
            m->close();
            aperta = aperta || m->isVisible();
        }
    }
    if (!aperta) QApplication::quit();
}
#endif

} // namespace

// A second start ends this one through SIGTERM (TerminaProcessi): the signal is turned into an
// orderly close of the main form instead of an end on the spot.
PiattaformaQt::PiattaformaQt() {
#ifdef Q_OS_LINUX
    if (!QCoreApplication::instance() || gCoppiaTermina[0] >= 0) return;
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, gCoppiaTermina) != 0) return;
    auto* avviso = new QSocketNotifier(gCoppiaTermina[1], QSocketNotifier::Read, qApp);
    QObject::connect(avviso, &QSocketNotifier::activated, qApp, [] { ChiudiComeOperatore(); });
    struct sigaction sa {};
    sa.sa_handler = AllaTerminazione;
    sigemptyset(&sa.sa_mask);
    sa.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &sa, nullptr);
#endif
}

namespace {

QMessageBox::Icon IconaQt(Icona i) {
    switch (i) {
    case Icona::Informazione:
        return QMessageBox::Information;
    case Icona::Avviso:
        return QMessageBox::Warning;
    case Icona::Critico:
        return QMessageBox::Critical;
    case Icona::Domanda:
        return QMessageBox::Question;
    default:
        return QMessageBox::NoIcon;
    }
}

QMessageBox::StandardButton PulsanteDi(Risposta r) {
    switch (r) {
    case Risposta::Si:
        return QMessageBox::Yes;
    case Risposta::No:
        return QMessageBox::No;
    case Risposta::Annulla:
        return QMessageBox::Cancel;
    default:
        return QMessageBox::Ok;
    }
}

// The names a process goes by: its command name and the last piece of its first argument
// (a Windows program under Wine shows "C:\pregeo\exe\pregeo.exe" there).
QStringList NomiProcesso(const QString& pid) {
    QStringList nomi;
    QFile comm(QStringLiteral("/proc/") + pid + QStringLiteral("/comm"));
    if (comm.open(QIODevice::ReadOnly)) nomi << QString::fromLocal8Bit(comm.readAll()).trimmed();
    QFile cmd(QStringLiteral("/proc/") + pid + QStringLiteral("/cmdline"));
    if (cmd.open(QIODevice::ReadOnly)) {
        const QByteArray primo = cmd.readAll().split('\0').value(0);
        if (!primo.isEmpty()) nomi << NomeDelFile(QString::fromLocal8Bit(primo));
    }
    return nomi;
}

} // namespace

void PiattaformaQt::Messaggio(const QString& testo, const QString& titolo, Icona icona) {
    QMessageBox box(IconaQt(icona), titolo, testo, QMessageBox::Ok, finestra_);
    if (icona == Icona::Critico) box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.exec();
}

Risposta PiattaformaQt::Domanda(const QString& testo, const QString& titolo, Pulsanti pulsanti,
                                Risposta predefinita, Icona icona) {
    QMessageBox::StandardButtons b = QMessageBox::Yes | QMessageBox::No;
    if (pulsanti == Pulsanti::SiNoAnnulla) b |= QMessageBox::Cancel;
    if (pulsanti == Pulsanti::OkAnnulla) b = QMessageBox::Ok | QMessageBox::Cancel;
    QMessageBox box(IconaQt(icona), titolo, testo, b, finestra_);
    box.setDefaultButton(PulsanteDi(predefinita));
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Risposta::Si;
    case QMessageBox::No:
        return Risposta::No;
    case QMessageBox::Ok:
        return Risposta::Ok;
    default:
        return Risposta::Annulla;
    }
}

QString PiattaformaQt::ApriFile(const QString& titolo, const QString& cartella,
                                const QString& filtro) {
    return QFileDialog::getOpenFileName(finestra_, titolo, PercorsoLocale(cartella), filtro);
}

QString PiattaformaQt::SalvaFile(const QString& titolo, const QString& cartella,
                                 const QString& nome, const QString& filtro) {
    QString dir = PercorsoLocale(cartella);
    if (!QFileInfo(dir).isDir()) dir = QDir::homePath();
    return QFileDialog::getSaveFileName(finestra_, titolo, dir + u'/' + nome, filtro);
}

std::optional<Carattere> PiattaformaQt::ScegliCarattere(const Carattere& iniziale) {
    bool ok = false;
    const QFont f = QFontDialog::getFont(&ok, FontDa(iniziale), finestra_);
    if (!ok) return std::nullopt;
    return CarattereDa(f);
}

QString PiattaformaQt::Appunti() {
    return QApplication::clipboard()->text();
}

void PiattaformaQt::ImpostaAppunti(const QString& testo) {
    QApplication::clipboard()->setText(testo);
}

QString PiattaformaQt::Impostazione(const QString& sezione, const QString& chiave,
                                    const QString& predefinito) {
    QSettings s(QStringLiteral("Tavolet"), QStringLiteral("Tavolet"));
    return s.value(sezione + u'/' + chiave, predefinito).toString();
}

void PiattaformaQt::SalvaImpostazione(const QString& sezione, const QString& chiave,
                                      const QString& valore) {
    QSettings s(QStringLiteral("Tavolet"), QStringLiteral("Tavolet"));
    s.setValue(sezione + u'/' + chiave, valore);
}

int PiattaformaQt::AvviaEAttendi(const QString& programma, const QStringList& argomenti) {
    return AvviaProcessoHost(programma, argomenti);
}

int PiattaformaQt::TerminaProcessi(const QString& nome) {
    int n = 0;
#ifdef Q_OS_LINUX
    const QString senzaExe =
        nome.endsWith(QStringLiteral(".exe"), Qt::CaseInsensitive) ? nome.chopped(4) : nome;
    const QString io = QString::number(getpid());
    bool ancheIo = false;
    const QStringList pid =
        QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& p : pid) {
        bool numero = false;
        p.toInt(&numero);
        if (!numero) continue;
        // Only the processes of the current user: another user's Pregeo is not ours to end.
        if (QFileInfo(QStringLiteral("/proc/") + p).ownerId() != getuid()) continue;
        for (const QString& n2 : NomiProcesso(p)) {
            if (n2.compare(nome, Qt::CaseInsensitive) != 0 &&
                n2.compare(senzaExe, Qt::CaseInsensitive) != 0)
                continue;
            if (p == io) {
                ancheIo = true;
            } else if (kill(p.toInt(), SIGTERM) == 0) {
                ++n;
            }
            break;
        }
    }
    // Our own process goes last, when its name was asked for.
    if (ancheIo) {
        ++n;
        QApplication::exit(0);
    }
#endif
    return n;
}

bool PiattaformaQt::ApriConProgramma(const QString& percorso) {
    if (percorso.startsWith(QStringLiteral("http"), Qt::CaseInsensitive))
        return QDesktopServices::openUrl(QUrl(percorso));
    return QDesktopServices::openUrl(QUrl::fromLocalFile(PercorsoLocale(percorso)));
}

bool PiattaformaQt::CreaCollegamento(LuogoCollegamento luogo, const QString& nome,
                                     const QString& destinazione) {
#ifdef Q_OS_WIN
    // A shell shortcut through the scripting host, as Windows makes them.
    const QString cartella =
        luogo == LuogoCollegamento::Desktop
            ? QStandardPaths::writableLocation(QStandardPaths::DesktopLocation)
            : QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
    const QString lnk = QDir::toNativeSeparators(cartella + u'/' + nome + QStringLiteral(".lnk"));
    const QString script =
        QStringLiteral("$s=(New-Object -ComObject WScript.Shell).CreateShortcut('%1');"
                       "$s.TargetPath='%2';$s.Save()")
            .arg(lnk, destinazione);
    return QProcess::execute(QStringLiteral("powershell"),
                             {QStringLiteral("-NoProfile"), QStringLiteral("-Command"), script}) ==
           0;
#else
    // A launcher of the desktop: the program through Wine on the same root, the folder as a link.
    const QString cartella =
        luogo == LuogoCollegamento::Desktop
            ? QDir::homePath() + QStringLiteral("/Desktop")
            : QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
    QDir().mkpath(cartella);
    const QString locale = PercorsoLocale(destinazione);
    QString voce = QStringLiteral("[Desktop Entry]\nName=") + nome + u'\n';
    if (QFileInfo(locale).isDir() ||
        !destinazione.endsWith(QStringLiteral(".EXE"), Qt::CaseInsensitive)) {
        voce += QStringLiteral("Type=Link\nURL=") + QUrl::fromLocalFile(locale).toString() + u'\n';
    } else {
        // A backslash inside a quoted argument of Exec is written four times.
        QString win = destinazione;
        win.replace(u'\\', QStringLiteral("\\\\\\\\"));
        voce += QStringLiteral("Type=Application\nExec=env WINEPREFIX=\"") + Radice() +
                QStringLiteral("\" wine \"") + win + QStringLiteral("\"\nPath=") +
                QFileInfo(locale).path() + QStringLiteral("\nTerminal=false\n");
    }
    QString file = nome;
    file.replace(u'/', u'_');
    QFile f(cartella + u'/' + file + QStringLiteral(".desktop"));
    if (!f.open(QIODevice::WriteOnly)) return false;
    f.write(voce.toUtf8());
    f.close();
    f.setPermissions(f.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeUser);
    return true;
#endif
}

bool PiattaformaQt::StampaTesto(const QString& titolo, const QString& testo,
                                const Carattere& carattere) {
    QPrinter stampante;
    stampante.setDocName(titolo);
    QPrintDialog dialogo(&stampante, finestra_);
    dialogo.setWindowTitle(titolo);
    if (dialogo.exec() != QDialog::Accepted) return false;
    QTextDocument documento;
    documento.setDefaultFont(FontDa(carattere));
    QString semplice = testo;
    semplice.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    documento.setPlainText(semplice);
    documento.print(&stampante);
    return true;
}

bool PiattaformaQt::AltraIstanza() {
    if (blocco_) return false;
    // One lock a user: another user's Tavolet is no second instance of this one.
    QString utente = qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
    utente.remove(u'/').remove(u'\\');
    const QString percorso = QStandardPaths::writableLocation(QStandardPaths::TempLocation) +
                             QStringLiteral("/tavolet-") + utente + QStringLiteral(".lock");
    blocco_ = std::make_unique<QLockFile>(percorso);
    blocco_->setStaleLockTime(0);
    if (blocco_->tryLock(0)) return false;
    blocco_.reset();
    return true;
}

QFont FontDa(const Carattere& c) {
    QFont f(c.nome);
    f.setPointSizeF(c.dimensione);
    f.setBold(c.grassetto);
    f.setItalic(c.corsivo);
    return f;
}

Carattere CarattereDa(const QFont& f) {
    Carattere c;
    c.nome = f.family();
    c.dimensione = f.pointSizeF();
    c.grassetto = f.bold();
    c.corsivo = f.italic();
    return c;
}

} // namespace tavolet
