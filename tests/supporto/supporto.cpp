#include "supporto.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace tavolet::test {

RadiceProva::RadiceProva() {
    cera_ = qEnvironmentVariableIsSet("TAVOLET_RADICE");
    vecchia_ = qgetenv("TAVOLET_RADICE");
    qputenv("TAVOLET_RADICE", dir_.path().toLocal8Bit());
}

RadiceProva::~RadiceProva() {
    if (cera_)
        qputenv("TAVOLET_RADICE", vecchia_);
    else
        qunsetenv("TAVOLET_RADICE");
}

void RadiceProva::Scrivi(const QString& percorsoWindows, const QByteArray& byte) const {
    const QString locale = PercorsoLocale(percorsoWindows);
    QDir().mkpath(QFileInfo(locale).path());
    QFile f(locale);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly)) << locale.toStdString();
    f.write(byte);
}

QByteArray RadiceProva::Leggi(const QString& percorsoWindows) const {
    QFile f(PercorsoLocale(percorsoWindows));
    if (!f.open(QIODevice::ReadOnly)) return QByteArray();
    return f.readAll();
}

void RadiceProva::PregeoMinimo() const {
    Scrivi("C:\\windows\\PREGEO.INI",
           Righe({"[Pregeo]", "DskAPPLexe=C:", "DskAPPLada=C:", "Cognome=Rossi", "Nome=Mario"}));
    Scrivi("C:\\pregeo\\exe\\Pregeo.EXE", "MZ");
    Scrivi("C:\\pregeo\\exe\\prosigle", Righe({"PD,PADOVA", "VE,VENEZIA"}));
    Scrivi("C:\\pregeo\\exe\\qualita.txt",
           Righe({"QUALITA", "SEMINATIVO   1", "PRATO        2", "VIGNETO      10"}));
    QByteArray comuni(128, '\0');
    comuni += RecordComune(' ', "A001", "PD", "ABANO TERME", "D3AB");
    comuni += RecordComune(' ', "G224", "PD", "PADOVA", "D3PD");
    comuni += RecordComune(' ', "L736", "VE", "VENEZIA", "E7VE");
    Scrivi("C:\\pregeo\\arch\\comunt.dat", comuni);
}

void CopiaDemo(const QString& destinazione) {
    const QString sorgente = qEnvironmentVariable("TAVOLET_DEMO");
    ASSERT_FALSE(sorgente.isEmpty());
    QDirIterator it(sorgente, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString f = it.next();
        const QString d = destinazione + f.mid(sorgente.size());
        QDir().mkpath(QFileInfo(d).path());
        QFile::copy(f, d);
    }
}

QString PercorsoDati(const QString& nome) {
    return qEnvironmentVariable("TAVOLET_DATI") + u'/' + nome;
}

QByteArray Dati(const QString& nome) {
    QFile f(PercorsoDati(nome));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << PercorsoDati(nome).toStdString();
    return f.readAll();
}

QByteArray LeggiFile(const QString& percorso) {
    QFile f(percorso);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

Esito EseguiProgramma(const QString& programma, const QStringList& argomenti, int attesaMs) {
    QProcess p;
    p.start(programma, argomenti);
    p.waitForFinished(attesaMs);
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}

QByteArray Righe(const QStringList& righe) {
    QByteArray r;
    for (const QString& s : righe) r += AWindows1252(s) + "\r\n";
    return r;
}

QByteArray RecordComune(QChar sezione, const QString& codice, const QString& sigla,
                        const QString& nome, const QString& aggiuntivo) {
    QString r = QString(sezione) + codice.leftJustified(4) +
                QString(nome).remove(u' ').left(19).leftJustified(19) + sigla.leftJustified(2) +
                sigla.leftJustified(2) + nome.leftJustified(34).left(34) +
                aggiuntivo.leftJustified(4).left(4);
    return "@B" + AWindows1252(r);
}

} // namespace tavolet::test
