#include "piattaforma_qt.h"

#include "percorsi.h"
#include "processi.h"
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
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>

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

QStringList FiltriDialogo(const QString& filtro) {
    if (!filtro.contains(u'|')) return filtro.split(QStringLiteral(";;"), Qt::SkipEmptyParts);
    QStringList pezzi = filtro.split(u'|');
    while (!pezzi.isEmpty() && pezzi.last().trimmed().isEmpty()) pezzi.removeLast();
    QStringList filtri;
    for (qsizetype i = 0; i < pezzi.size(); i += 2) {
        // A description without its patterns takes them from itself.
        const QString modelli = i + 1 < pezzi.size() ? pezzi[i + 1] : pezzi[i];
        QStringList elenco;
        for (const QString& m :
             modelli.split(QRegularExpression(QStringLiteral("[;,\\s]+")), Qt::SkipEmptyParts))
            if (m.contains(u'*') || m.contains(u'.')) elenco << m.trimmed();
        if (elenco.isEmpty()) continue;
        // The patterns written in the description go: the dialog shows them once, in brackets.
        QStringList parole;
        for (const QString& p : pezzi[i].split(u' ', Qt::SkipEmptyParts))
            if (!p.contains(u'*') && p != u"()") parole << p;
        QString descrizione = parole.join(u' ');
        if (descrizione.isEmpty()) {
            QString estensione = elenco.first();
            estensione.remove(u'*').remove(u'.');
            descrizione = QStringLiteral("File ") + estensione.toUpper();
        }
        filtri << descrizione + QStringLiteral(" (") + elenco.join(u' ') + u')';
    }
    return filtri;
}

std::unique_ptr<QFileDialog> CreaDialogoFile(QWidget* parent, const QString& titolo,
                                             const QString& cartella, const QString& filtro,
                                             bool salva) {
    auto d = std::make_unique<QFileDialog>(parent, titolo);
    // Qt's own dialog: it matches the patterns without regard to case on every system, as
    // Windows does, where the native one of some desktops lists "x.emp" under "*.EMP" as nothing.
    d->setOption(QFileDialog::DontUseNativeDialog);
    d->setFilter(QDir::AllEntries | QDir::AllDirs | QDir::NoDotAndDotDot);
    d->setAcceptMode(salva ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    d->setFileMode(salva ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    const QStringList filtri = FiltriDialogo(filtro);
    if (!filtri.isEmpty()) d->setNameFilters(filtri);
    QString dir = PercorsoLocale(cartella);
    if (cartella.isEmpty() || !QFileInfo(dir).isDir()) dir = QDir::homePath();
    d->setDirectory(dir);
    return d;
}

namespace {

QString Scegli(QWidget* finestra, const QString& titolo, const QString& cartella,
               const QString& filtro, bool salva, const QString& nome = QString()) {
    const auto d = CreaDialogoFile(finestra, titolo, cartella, filtro, salva);
    if (!nome.isEmpty()) d->selectFile(nome);
    if (d->exec() != QDialog::Accepted || d->selectedFiles().isEmpty()) return QString();
    return d->selectedFiles().first();
}

} // namespace

QString PiattaformaQt::ApriFile(const QString& titolo, const QString& cartella,
                                const QString& filtro) {
    return Scegli(finestra_, titolo, cartella, filtro, false);
}

QString PiattaformaQt::SalvaFile(const QString& titolo, const QString& cartella,
                                 const QString& nome, const QString& filtro) {
    return Scegli(finestra_, titolo, cartella, filtro, true, nome);
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
    QProcess processo;
    if (!AvviaProcesso(processo, programma, argomenti)) return -1;
    // A quick helper ends before anything is shown.
    if (processo.waitForFinished(400)) return EsitoProcesso(processo);
    // The wait has no limit, but the window stays painted and the operator may stop the child:
    // the caller then goes on as with a helper that left no result.
    QDialog attesa(finestra_);
    attesa.setObjectName(QStringLiteral("AttesaProgramma"));
    attesa.setWindowTitle(QStringLiteral("Tavolet"));
    attesa.setModal(true);
    auto* colonna = new QVBoxLayout(&attesa);
    colonna->addWidget(new QLabel(
        QStringLiteral("In attesa di ") + NomeDelFile(programma) + QStringLiteral("…"), &attesa));
    auto* interrompi = new QPushButton(QStringLiteral("Interrompi"), &attesa);
    colonna->addWidget(interrompi, 0, Qt::AlignRight);
    QObject::connect(interrompi, &QPushButton::clicked, &attesa, [&processo] { processo.kill(); });
    QObject::connect(&processo, &QProcess::finished, &attesa, &QDialog::accept);
    // A close of the box (Esc) is no stop: the wait goes on until the child ends.
    while (processo.state() != QProcess::NotRunning) attesa.exec();
    processo.waitForFinished(-1);
    return EsitoProcesso(processo);
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
