#include "versione_file.h"

#include "errore.h"
#include "file_testo.h"

#include <QtEndian>

namespace tavolet {

QString VersioneDaDati(const QByteArray& dati) {
    // VS_FIXEDFILEINFO: signature 0xFEEF04BD, structure version, then the file version as two
    // 32-bit words, little-endian.
    static const QByteArray firma("\xBD\x04\xEF\xFE", 4);
    const qsizetype i = dati.indexOf(firma);
    if (i < 0 || dati.size() - i < 16) return {};
    const auto* p = reinterpret_cast<const uchar*>(dati.constData() + i);
    const quint32 alta = qFromLittleEndian<quint32>(p + 8);
    const quint32 bassa = qFromLittleEndian<quint32>(p + 12);
    return QStringLiteral("%1.%2.%3.%4")
        .arg(alta >> 16)
        .arg(alta & 0xFFFF)
        .arg(bassa >> 16)
        .arg(bassa & 0xFFFF);
}

QString VersioneFile(const QString& percorso) {
    try {
        if (!EsisteFile(percorso)) return {};
        return VersioneDaDati(LeggiByte(percorso));
    } catch (const Errore&) {
        return {};
    }
}

} // namespace tavolet
