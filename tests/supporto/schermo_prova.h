// The screen of the offscreen platform in the tests: a desktop of 1920x1080 pixels, or the size
// in TAVOLET_SCHERMO ("1366x768"), so that windows are fitted to a screen of a real size and
// the pictures the tests grab can be looked at as a surveyor would see them.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>

namespace tavolet::test {

inline void SchermoDiProva() {
    const QByteArray piattaforma = qgetenv("QT_QPA_PLATFORM");
    if (!piattaforma.isEmpty() && piattaforma != "offscreen") return;
    QStringList misura = qEnvironmentVariable("TAVOLET_SCHERMO", "1920x1080").split(u'x');
    const int w = misura.value(0).toInt(), h = misura.value(1).toInt();
    if (w < 640 || h < 480) return;
    const QString file =
        QDir::temp().filePath(QStringLiteral("tavolet_schermo_%1x%2.json").arg(w).arg(h));
    QFile f(file);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return;
    f.write(QStringLiteral("{\"screens\": [{\"name\": \"Schermo\", \"x\": 0, \"y\": 0, \"width\": "
                           "%1, \"height\": %2, \"logicalDpi\": 96, \"logicalBaseDpi\": 96, "
                           "\"dpr\": 1}]}")
                .arg(w)
                .arg(h)
                .toUtf8());
    f.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file));
}

} // namespace tavolet::test
