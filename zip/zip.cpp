#include "zip.h"

#include "percorsi.h"

#include <QFile>
#include <QFileInfo>

#include <zlib.h>

#include <algorithm>
#include <limits>

namespace tavolet {

namespace {

void Metti16(QByteArray& b, uint16_t v) {
    b.append(char(v & 0xFF));
    b.append(char(v >> 8));
}

void Metti32(QByteArray& b, uint32_t v) {
    for (int i = 0; i < 4; ++i) b.append(char((v >> (8 * i)) & 0xFF));
}

// Names and comments are single-byte text; a character outside Latin-1 becomes '?'.
QByteArray Byte(const QString& testo, int massimo) {
    return testo.toLatin1().left(massimo);
}

// The last component of the path, at either separator.
QString UltimoPezzo(const QString& percorso) {
    const qsizetype i = std::max(percorso.lastIndexOf(u'\\'), percorso.lastIndexOf(u'/'));
    return percorso.mid(i + 1);
}

} // namespace

QByteArray ZipFile::ByteLocale() const {
    QByteArray b;
    const Locale& l = locale;
    Metti32(b, l.firma);
    Metti16(b, l.versioneNecessaria);
    Metti16(b, l.flag);
    Metti16(b, l.metodo);
    Metti16(b, l.ora);
    Metti16(b, l.data);
    Metti32(b, l.crc);
    Metti32(b, l.dimensioneCompressa);
    Metti32(b, l.dimensioneOriginale);
    Metti16(b, l.lunghezzaNome);
    Metti16(b, l.lunghezzaExtra);
    return b;
}

QByteArray ZipFile::ByteCentrale() const {
    QByteArray b;
    const Centrale& c = centrale;
    Metti32(b, c.firma);
    Metti16(b, c.versioneCreatore);
    Metti16(b, c.versioneNecessaria);
    Metti16(b, c.flag);
    Metti16(b, c.metodo);
    Metti16(b, c.ora);
    Metti16(b, c.data);
    Metti32(b, c.crc);
    Metti32(b, c.dimensioneCompressa);
    Metti32(b, c.dimensioneOriginale);
    Metti16(b, c.lunghezzaNome);
    Metti16(b, c.lunghezzaExtra);
    Metti16(b, c.lunghezzaCommento);
    Metti16(b, c.disco);
    Metti16(b, c.attributiInterni);
    Metti32(b, c.attributiEsterni);
    Metti32(b, c.posizioneLocale);
    return b;
}

uint16_t ZipClass::OraDos(const QTime& ora) {
    return uint16_t((ora.second() / 2) | (ora.minute() << 5) | (ora.hour() << 11));
}

uint16_t ZipClass::DataDos(const QDate& data) {
    // The field holds the years 1980 to 2107.
    const int anno = std::clamp(data.year(), 1980, 2107) - 1980;
    return uint16_t(data.day() | (data.month() << 5) | (anno << 9));
}

void ZipClass::Comment(const QString& testo) {
    commento_ = Byte(testo, 0xFFFF);
}

bool ZipClass::AddFile(const QString& percorso, const QString& nome, const QString& commento) {
    // The disk may spell the name otherwise ("mixed.emp"): the archive keeps the caller's.
    const QString locale = PercorsoLocale(percorso);
    const QFileInfo info(locale);
    if (!info.isFile()) return false;
    QFile f(locale);
    if (!f.open(QIODevice::ReadOnly)) return false;
    const QByteArray dati = f.readAll();
    f.close();
    // The sizes of the records are 32 bits wide.
    if (quint64(dati.size()) > std::numeric_limits<uint32_t>::max() / 2) return false;

    ZipFile z;
    const QDateTime modifica = info.lastModified();
    z.locale.ora = OraDos(modifica.time());
    z.locale.data = DataDos(modifica.date());
    z.nome = Byte(nome.isEmpty() ? UltimoPezzo(percorso) : nome, 0xFFFF);
    z.commento = Byte(commento, 0xFFFF);
    z.locale.crc =
        uint32_t(crc32(0L, reinterpret_cast<const Bytef*>(dati.constData()), uInt(dati.size())));

    // compress() gives a zlib stream; the archive wants the raw deflate inside it, without the
    // two bytes of head and the four of the Adler checksum.
    uLongf lunghezza = uLongf(double(dati.size()) * 1.01 + 12);
    lunghezza = std::max<uLongf>(lunghezza, compressBound(uLong(dati.size())));
    QByteArray compressi(qsizetype(lunghezza), Qt::Uninitialized);
    if (compress(reinterpret_cast<Bytef*>(compressi.data()), &lunghezza,
                 reinterpret_cast<const Bytef*>(dati.constData()), uLong(dati.size())) != Z_OK)
        return false;
    z.dati = compressi.mid(2, qsizetype(lunghezza) - 6);

    z.locale.dimensioneCompressa = uint32_t(lunghezza - 6);
    z.locale.dimensioneOriginale = uint32_t(dati.size());
    z.locale.lunghezzaNome = uint16_t(z.nome.size());
    z.centrale.ora = z.locale.ora;
    z.centrale.data = z.locale.data;
    z.centrale.crc = z.locale.crc;
    z.centrale.dimensioneCompressa = z.locale.dimensioneCompressa;
    z.centrale.dimensioneOriginale = z.locale.dimensioneOriginale;
    z.centrale.lunghezzaNome = z.locale.lunghezzaNome;
    z.centrale.lunghezzaCommento = uint16_t(z.commento.size());
    file_.append(z);
    return true;
}

bool ZipClass::WriteZip(const QString& percorso, bool sovrascrivi) {
    ultimoErrore_ = 0;
    if (QFileInfo::exists(percorso)) {
        if (!sovrascrivi) return false;
        if (!QFile::remove(percorso)) {
            ultimoErrore_ = 75;
            return false;
        }
    }
    QFile f(percorso);
    if (!f.open(QIODevice::WriteOnly)) {
        ultimoErrore_ = 75;
        return false;
    }
    bool ok = true;
    auto scrivi = [&](const QByteArray& b) { ok = ok && f.write(b) == b.size(); };
    // Offsets are the file's positions counted from 0, which is what the format asks.
    for (ZipFile& z : file_) {
        z.centrale.posizioneLocale = uint32_t(f.pos());
        scrivi(z.ByteLocale());
        scrivi(z.nome);
        scrivi(z.dati);
    }
    const uint32_t inizioCentrale = uint32_t(f.pos());
    for (const ZipFile& z : file_) {
        scrivi(z.ByteCentrale());
        scrivi(z.nome);
        scrivi(z.commento);
    }
    const uint32_t dimensioneCentrale = uint32_t(f.pos()) - inizioCentrale;

    QByteArray fine;
    Metti32(fine, 0x06054B50);
    Metti16(fine, 0); // this disk
    Metti16(fine, 0); // disk with the central directory
    Metti16(fine, uint16_t(file_.size()));
    Metti16(fine, uint16_t(file_.size()));
    Metti32(fine, dimensioneCentrale);
    Metti32(fine, inizioCentrale);
    Metti16(fine, uint16_t(commento_.size()));
    fine += commento_;
    scrivi(fine);
    f.close();
    if (!ok || f.error() != QFileDevice::NoError) {
        ultimoErrore_ = 75; // a failed write leaves a partial archive
        return false;
    }
    return true;
}

} // namespace tavolet
