#include "percorsi.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace tavolet {

QString Radice() {
    QString r = qEnvironmentVariable("TAVOLET_RADICE");
    if (r.isEmpty()) r = qEnvironmentVariable("WINEPREFIX");
    if (r.isEmpty()) r = QDir::homePath() + QStringLiteral("/.wine");
    return QDir::cleanPath(r);
}

namespace {

// Finds the entry of cartella named like nome, case ignored; nome itself when none matches.
QString Componente(const QString& cartella, const QString& nome) {
    if (nome == u"." || nome == u"..") return nome;
    const QString esatto = cartella + u'/' + nome;
    if (QFileInfo::exists(esatto)) return nome;
    QDir dir(cartella.isEmpty() ? QStringLiteral("/") : cartella);
    const QStringList voci =
        dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& v : voci)
        if (v.compare(nome, Qt::CaseInsensitive) == 0) return v;
    return nome;
}

QString Risolvi(QString base, const QStringList& parti) {
    for (const QString& p : parti) {
        if (p.isEmpty()) continue;
        base = (base == u"/" ? QString() : base) + u'/' + Componente(base, p);
    }
    return base.isEmpty() ? QStringLiteral("/") : base;
}

} // namespace

QString PercorsoLocale(const QString& percorso) {
#ifdef Q_OS_WIN
    return percorso;
#else
    static const QRegularExpression unita(QStringLiteral("^([A-Za-z]):"));
    static const QRegularExpression separatori(QStringLiteral("[\\\\/]"));
    const auto m = unita.match(percorso);
    if (m.hasMatch() || percorso.startsWith(u'\\')) {
        const QString lettera = m.hasMatch() ? m.captured(1).toLower() : QStringLiteral("c");
        const QString resto = m.hasMatch() ? percorso.mid(2) : percorso;
        const QString radice = Radice();
        QString base = radice + QStringLiteral("/dosdevices/") + lettera + u':';
        if (!QFileInfo(base).isDir()) base = radice + QStringLiteral("/drive_") + lettera;
        return Risolvi(base, resto.split(separatori));
    }
    if (percorso.startsWith(u'/')) return Risolvi(QStringLiteral("/"), percorso.split(u'/'));
    if (percorso.isEmpty()) return percorso;
    return Risolvi(QDir::currentPath(), percorso.split(separatori));
#endif
}

QString PercorsoWindows(const QString& locale) {
#ifdef Q_OS_WIN
    return locale;
#else
    const QString radice = Radice();
    const QString pulito = QDir::cleanPath(QFileInfo(locale).absoluteFilePath());
    static const QRegularExpression unita(
        QStringLiteral("^/(?:drive_([a-z])|dosdevices/([a-z]):)(/.*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    if (!pulito.startsWith(radice + u'/')) return locale;
    const auto m = unita.match(pulito.mid(radice.size()));
    if (!m.hasMatch()) return locale;
    const QString lettera = (m.captured(1) + m.captured(2)).toUpper();
    QString resto = m.captured(3);
    resto.replace(u'/', u'\\');
    return lettera + u':' + (resto.isEmpty() ? QStringLiteral("\\") : resto);
#endif
}

QString NomeDelFile(const QString& percorso) {
    const int i = int(std::max(percorso.lastIndexOf(u'\\'), percorso.lastIndexOf(u'/')));
    return percorso.mid(i + 1);
}

QString CartellaDel(const QString& percorso) {
    const int i = int(std::max(percorso.lastIndexOf(u'\\'), percorso.lastIndexOf(u'/')));
    return i < 0 ? QString() : percorso.left(i);
}

CartelleSpeciali CartelleDiSistema() {
    CartelleSpeciali c;
#ifdef Q_OS_WIN
    c.documenti = QDir::toNativeSeparators(QDir::homePath() + QStringLiteral("/Documents"));
    c.temp = qEnvironmentVariable("temp", QDir::toNativeSeparators(QDir::tempPath()));
    c.sistema = qEnvironmentVariable("SystemRoot", QStringLiteral("C:\\windows"));
    c.programFiles =
        qEnvironmentVariable("ProgramFiles(x86)", QStringLiteral("C:\\Program Files (x86)"));
    c.programma = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
    c.desktop = QDir::toNativeSeparators(QDir::homePath() + QStringLiteral("/Desktop"));
    c.menuAvvio = qEnvironmentVariable("APPDATA") +
                  QStringLiteral("\\Microsoft\\Windows\\Start Menu\\Programs");
    c.applicazioni = c.menuAvvio;
#else
    QString utente = qEnvironmentVariable("USER");
    if (utente.isEmpty()) utente = qEnvironmentVariable("LOGNAME", QStringLiteral("utente"));
    const QString casa = QStringLiteral("C:\\users\\") + utente;
    c.documenti = casa + QStringLiteral("\\Documents");
    c.temp = casa + QStringLiteral("\\AppData\\Local\\Temp");
    c.sistema = QStringLiteral("C:\\windows");
    c.programFiles = QStringLiteral("C:\\Program Files (x86)");
    c.programma = c.programFiles + QStringLiteral("\\Tavolet");
    c.desktop = casa + QStringLiteral("\\Desktop");
    c.menuAvvio =
        casa + QStringLiteral("\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs");
    c.applicazioni = c.menuAvvio;
#endif
    return c;
}

} // namespace tavolet
