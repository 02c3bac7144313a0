// A small writer of ZIP archives over zlib: whole files compressed in memory, the archive
// written in one pass. It reads no archives.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <cstdint>

namespace tavolet {

// One member: its two records, prepared when the file is added and written as they stand.
class ZipFile {
public:
    struct Locale {
        uint32_t firma = 0x04034B50;
        uint16_t versioneNecessaria = 20;
        uint16_t flag = 2;
        uint16_t metodo = 8;
        uint16_t ora = 0;
        uint16_t data = 0;
        uint32_t crc = 0;
        uint32_t dimensioneCompressa = 0;
        uint32_t dimensioneOriginale = 0;
        uint16_t lunghezzaNome = 0;
        uint16_t lunghezzaExtra = 0;
    };
    struct Centrale {
        uint32_t firma = 0x02014B50;
        uint16_t versioneCreatore = 20;
        uint16_t versioneNecessaria = 20;
        uint16_t flag = 2;
        uint16_t metodo = 8;
        uint16_t ora = 0;
        uint16_t data = 0;
        uint32_t crc = 0;
        uint32_t dimensioneCompressa = 0;
        uint32_t dimensioneOriginale = 0;
        uint16_t lunghezzaNome = 0;
        uint16_t lunghezzaExtra = 0;
        uint16_t lunghezzaCommento = 0;
        uint16_t disco = 0;
        uint16_t attributiInterni = 32;
        uint32_t attributiEsterni = 0;
        uint32_t posizioneLocale = 0;
    };

    Locale locale;
    Centrale centrale;
    QByteArray nome;     // stored name, Windows-1252
    QByteArray commento; // member comment, Windows-1252
    QByteArray dati;     // raw deflate stream

    // The records packed, little-endian.
    QByteArray ByteLocale() const;
    QByteArray ByteCentrale() const;
};

class ZipClass {
public:
    int FileCount() const { return int(file_.size()); }
    void Comment(const QString& testo);
    // Adds a member; false (and nothing added) when the file is missing or unreadable. The path
    // may be in Windows form; an empty nome keeps the last component of the path as spelt
    // here, not as the disk spells it; an empty commento means none.
    bool AddFile(const QString& percorso, const QString& nome = QString(),
                 const QString& commento = QString());
    // Writes the archive. An existing target is left alone (false) unless sovrascrivi, which
    // deletes it first. A target that cannot be opened or written gives false with
    // UltimoErrore() at 75 for the caller's error report; 0 otherwise.
    bool WriteZip(const QString& percorso, bool sovrascrivi);
    int UltimoErrore() const { return ultimoErrore_; }

    // MS-DOS time and date fields.
    static uint16_t OraDos(const QTime& ora);
    static uint16_t DataDos(const QDate& data);

private:
    QList<ZipFile> file_;
    QByteArray commento_;
    int ultimoErrore_ = 0;
};

} // namespace tavolet
