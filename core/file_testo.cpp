#include "file_testo.h"

#include "errore.h"
#include "percorsi.h"
#include "protezioni.h"
#include "testo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace tavolet {

bool EsisteFile(const QString& percorso) {
    if (Trim(percorso).isEmpty()) return false;
    return QFileInfo(PercorsoLocale(percorso)).isFile();
}

bool EsisteCartella(const QString& percorso) {
    if (Trim(percorso).isEmpty()) return false;
    return QFileInfo(PercorsoLocale(percorso)).isDir();
}

QByteArray LeggiByte(const QString& percorso) {
    const QString locale = PercorsoLocale(percorso);
    QFileInfo info(locale);
    if (!info.exists()) {
        const int numero = info.dir().exists() ? 53 : 76;
        throw Errore(numero, DescrizioneFileMancante(numero, percorso));
    }
    if (!info.isFile()) throw Errore(75);
    QFile f(locale);
    if (!f.open(QIODevice::ReadOnly)) throw Errore(75);
    return f.readAll();
}

QString LeggiTesto(const QString& percorso) {
    return DaWindows1252(LeggiByte(percorso));
}

QStringList RigheDiTesto(const QString& testo) {
    QStringList righe;
    const QChar* d = testo.constData();
    const qsizetype n = testo.size();
    qsizetype inizio = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t c = d[i].unicode();
        if (c == u'\r' || c == u'\n') {
            righe.append(testo.sliced(inizio, i - inizio));
            if (c == u'\r' && i + 1 < n && d[i + 1] == u'\n') ++i;
            inizio = i + 1;
        }
    }
    if (inizio < n) righe.append(testo.sliced(inizio));
    return righe;
}

QStringList LeggiRighe(const QString& percorso) {
    return RigheDiTesto(LeggiTesto(percorso));
}

void ScriviByte(const QString& percorso, const QByteArray& byte) {
    const QString locale = PercorsoLocale(percorso);
    if (!QFileInfo(locale).dir().exists()) throw Errore(76);
    QSaveFile f(locale);
    if (!f.open(QIODevice::WriteOnly)) throw Errore(75);
    if (f.write(byte) != byte.size()) {
        f.cancelWriting();
        throw Errore(75);
    }
    if (!f.commit()) throw Errore(75);
}

void ScriviTesto(const QString& percorso, const QString& testo) {
    ScriviByte(percorso, AWindows1252(testo));
}

void CopiaFile(const QString& da, const QString& a) {
    ScriviByte(a, LeggiByte(da));
}

void EliminaFile(const QString& percorso) {
    const QString locale = PercorsoLocale(percorso);
    if (QFileInfo(locale).isFile() && !QFile::remove(locale)) throw Errore(75);
}

void CreaCartella(const QString& percorso) {
    const QString locale = PercorsoLocale(percorso);
    if (QFileInfo(locale).isDir()) return;
    if (QFileInfo::exists(locale) || !QDir().mkpath(locale)) throw Errore(75);
}

} // namespace tavolet
