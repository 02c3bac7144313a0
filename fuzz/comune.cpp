#include "bersaglio.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace tavolet::fuzz {

std::vector<Bersaglio>& Bersagli() {
    static std::vector<Bersaglio> bersagli;
    return bersagli;
}

namespace {

QByteArray Righe(const QStringList& righe) {
    QByteArray r;
    for (const QString& s : righe) r += AWindows1252(s) + "\r\n";
    return r;
}

QByteArray RecordComune(const QString& codice, const QString& sigla, const QString& nome) {
    const QString r = u' ' + codice.leftJustified(4) +
                      QString(nome).remove(u' ').leftJustified(19) + sigla + sigla +
                      nome.leftJustified(34) + QStringLiteral("D3AB");
    return "@B" + AWindows1252(r);
}

} // namespace

void PreparaRadice() {
    static QTemporaryDir* dir = nullptr;
    const bool nuova = !dir;
    if (nuova) dir = new QTemporaryDir;
    qputenv("TAVOLET_RADICE", dir->path().toLocal8Bit());
    if (nuova) ScriviPregeoMinimo();
}

void ScriviPregeoMinimo() {
    Scrivi("C:\\windows\\PREGEO.INI",
           Righe({"[Pregeo]", "DskAPPLexe=C:", "DskAPPLada=C:", "Cognome=Rossi", "Nome=Mario"}));
    Scrivi("C:\\pregeo\\exe\\Pregeo.EXE", "MZ");
    Scrivi("C:\\pregeo\\exe\\prosigle", Righe({"PD,PADOVA", "VE,VENEZIA"}));
    Scrivi("C:\\pregeo\\exe\\qualita.txt",
           Righe({"QUALITA", "SEMINATIVO   1", "PRATO        2", "VIGNETO      10"}));
    QByteArray comuni(128, '\0');
    comuni += RecordComune("A001", "PD", "ABANO TERME");
    comuni += RecordComune("G224", "PD", "PADOVA");
    comuni += RecordComune("L736", "VE", "VENEZIA");
    Scrivi("C:\\pregeo\\arch\\comunt.dat", comuni);
}

void Scrivi(const QString& percorsoWindows, const QByteArray& byte) {
    const QString locale = PercorsoLocale(percorsoWindows);
    QDir().mkpath(QFileInfo(locale).path());
    QFile f(locale);
    if (!f.open(QIODevice::WriteOnly)) Fallisci("non scrivo " + locale.toStdString());
    f.write(byte);
}

Banco::Banco() {
    PreparaRadice();
    Inizializza(s);
    CaricaConfig(s);
    p.eventi.clear();
}

QByteArray Byte(const uint8_t* dati, size_t n) {
    return QByteArray(reinterpret_cast<const char*>(dati), qsizetype(n));
}

QString Testo(const uint8_t* dati, size_t n) {
    return DaWindows1252(Byte(dati, n));
}

std::pair<QByteArray, QByteArray> Dividi(const QByteArray& byte) {
    const qsizetype i = byte.indexOf('\x01');
    if (i < 0) return {byte, QByteArray()};
    return {byte.left(i), byte.mid(i + 1)};
}

} // namespace tavolet::fuzz
