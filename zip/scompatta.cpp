#include "scompatta.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <unzip.h>
#include <zlib.h>

#include <algorithm>
#include <memory>

namespace tavolet {

namespace {

constexpr uLong kCifrato = 0x0001;
constexpr uLong kNomeUtf8 = 0x0800;

struct ChiudiZip {
    void operator()(void* z) const { unzClose(z); }
};
using Archivio = std::unique_ptr<void, ChiudiZip>;

struct Voce {
    QString relativo; // inside the folder, '/' separated
    bool cartella = false;
    uint64_t dimensione = 0;
    uint32_t crc = 0;
};

bool NomeDispositivo(const QString& pezzo) {
    // CON, PRN, AUX, NUL, COM1-9, LPT1-9, with or without an extension, in any case.
    const QString base = pezzo.section(u'.', 0, 0).trimmed().toUpper();
    static const QStringList fissi = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    if (fissi.contains(base)) return true;
    return base.size() == 4 && (base.startsWith(u"COM") || base.startsWith(u"LPT")) &&
           base[3] >= u'0' && base[3] <= u'9';
}

// The current member's name and sizes, or false when the central directory is damaged.
bool LeggiVoce(unzFile z, unz_file_info64& info, QString& nome) {
    if (unzGetCurrentFileInfo64(z, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK)
        return false;
    QByteArray byte(qsizetype(info.size_filename) + 1, '\0');
    if (unzGetCurrentFileInfo64(z, &info, byte.data(), uLong(byte.size()), nullptr, 0, nullptr,
                                0) != UNZ_OK)
        return false;
    byte.truncate(qsizetype(info.size_filename));
    nome = (info.flag & kNomeUtf8) ? QString::fromUtf8(byte) : QString::fromLatin1(byte);
    return true;
}

class Scompattatore {
public:
    Scompattatore(const QString& cartella, EsitoScompatta& esito)
        : radice_(QFileInfo(cartella).canonicalFilePath()), esito_(esito) {}

    bool Fallisci(int numero, const QString& descrizione) {
        esito_.errore = numero;
        esito_.descrizione = descrizione;
        return false;
    }

    // Folders from the root down to relativo, each checked to stay inside the root (an
    // existing link to elsewhere is refused).
    bool CreaCartelle(const QString& relativo) {
        QString corrente = radice_;
        for (const QString& pezzo : relativo.split(u'/', Qt::SkipEmptyParts)) {
            corrente += u'/' + pezzo;
            const QFileInfo info(corrente);
            if (info.isSymLink())
                return Fallisci(75, QStringLiteral("Collegamento nel percorso: ") + relativo);
            if (info.isDir()) continue;
            if (info.exists() || !QDir().mkdir(corrente))
                return Fallisci(75, QStringLiteral("Impossibile creare la cartella ") + corrente);
            cartelleCreate_.prepend(corrente);
        }
        return true;
    }

    bool Scrivi(unzFile z, const Voce& v) {
        const QString percorso = radice_ + u'/' + v.relativo;
        if (!CreaCartelle(v.relativo.section(u'/', 0, -2))) return false;
        const QFileInfo info(percorso);
        // A link in the folder would send the data elsewhere: it is replaced, not followed.
        if (info.isSymLink()) {
            if (!QFile::remove(percorso)) return Fallisci(75, DescrizioneScrittura(percorso));
        } else if (info.isDir()) {
            return Fallisci(75, QStringLiteral("Esiste una cartella con il nome ") + v.relativo);
        }
        if (unzOpenCurrentFile(z) != UNZ_OK)
            return Fallisci(321, QStringLiteral("Voce illeggibile: ") + v.relativo);
        QFile f(percorso);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            unzCloseCurrentFile(z);
            return Fallisci(75, DescrizioneScrittura(percorso));
        }
        if (!scritti_.contains(percorso)) {
            scritti_.insert(percorso);
            esito_.file.append(percorso);
        }
        QByteArray blocco(1 << 16, Qt::Uninitialized);
        uint64_t letti = 0;
        uLong crc = crc32(0L, Z_NULL, 0);
        for (;;) {
            const int n = unzReadCurrentFile(z, blocco.data(), unsigned(blocco.size()));
            if (n < 0) {
                unzCloseCurrentFile(z);
                return Fallisci(321, QStringLiteral("Dati danneggiati in ") + v.relativo);
            }
            if (n == 0) break;
            letti += uint64_t(n);
            if (letti > v.dimensione) break; // checked below
            crc = crc32(crc, reinterpret_cast<const Bytef*>(blocco.constData()), uInt(n));
            if (f.write(blocco.constData(), n) != n) {
                unzCloseCurrentFile(z);
                return Fallisci(75, DescrizioneScrittura(percorso));
            }
        }
        const int chiusura = unzCloseCurrentFile(z);
        f.close();
        if (f.error() != QFileDevice::NoError) return Fallisci(75, DescrizioneScrittura(percorso));
        // A stream that ends early or runs long, or a wrong checksum: the archive is damaged.
        if (chiusura != UNZ_OK || letti != v.dimensione || uint32_t(crc) != v.crc)
            return Fallisci(321, QStringLiteral("Dati danneggiati in ") + v.relativo);
        return true;
    }

    bool CreaCartellaVoce(const Voce& v) { return CreaCartelle(v.relativo); }

    // After a failure: the files of this run and the folders it made go away again.
    void Annulla() {
        for (const QString& p : std::as_const(esito_.file)) QFile::remove(p);
        esito_.file.clear();
        scritti_.clear();
        for (const QString& c : std::as_const(cartelleCreate_)) QDir().rmdir(c);
        cartelleCreate_.clear();
    }

    const QString& Radice() const { return radice_; }

private:
    static QString DescrizioneScrittura(const QString& percorso) {
        return QStringLiteral("Impossibile scrivere ") + percorso;
    }

    QString radice_;
    EsitoScompatta& esito_;
    QSet<QString> scritti_;      // the same files as esito_.file, for a member named twice
    QStringList cartelleCreate_; // deepest first
};

// First pass over the central directory: every name checked and the sizes added up before
// anything is written.
bool Elenca(unzFile z, const LimitiScompatta& limiti, QList<Voce>& voci, Scompattatore& s) {
    const QString danneggiato = QStringLiteral("Archivio ZIP danneggiato o incompleto");
    int r = unzGoToFirstFile(z);
    if (r == UNZ_END_OF_LIST_OF_FILE) return true; // an archive with no members
    uint64_t totale = 0;
    while (r == UNZ_OK) {
        if (voci.size() >= limiti.voci)
            return s.Fallisci(321, QStringLiteral("L'archivio ha più di ") +
                                       QString::number(limiti.voci) + QStringLiteral(" voci"));
        unz_file_info64 info{};
        QString nome;
        if (!LeggiVoce(z, info, nome)) return s.Fallisci(321, danneggiato);
        Voce v;
        v.cartella = nome.endsWith(u'/') || nome.endsWith(u'\\');
        v.relativo = PercorsoVoceSicuro(nome);
        if (v.relativo.isEmpty())
            return s.Fallisci(321, QStringLiteral("Voce con un percorso non ammesso: ") + nome);
        if (info.flag & kCifrato)
            return s.Fallisci(321, QStringLiteral("Voce protetta da password: ") + nome);
        if (!v.cartella) {
            v.dimensione = info.uncompressed_size;
            v.crc = uint32_t(info.crc);
            totale += v.dimensione;
            if (totale > uint64_t(limiti.byteTotali))
                return s.Fallisci(321, QStringLiteral("Archivio troppo grande da scompattare"));
        }
        voci.append(v);
        r = unzGoToNextFile(z);
    }
    return r == UNZ_END_OF_LIST_OF_FILE || s.Fallisci(321, danneggiato);
}

// Where the end record begins in the file, -1 when there is none or it is cut short
// (minizip accepts an archive cut inside it).
qint64 FineArchivio(const QString& zipHost) {
    QFile f(zipHost);
    if (!f.open(QIODevice::ReadOnly)) return -1;
    const qint64 coda = std::min<qint64>(f.size(), 22 + 0xFFFF);
    if (!f.seek(f.size() - coda)) return -1;
    const QByteArray b = f.read(coda);
    const qsizetype i = b.lastIndexOf(QByteArray("PK\x05\x06", 4));
    return i >= 0 && i + 22 <= b.size() ? f.size() - coda + i : -1;
}

} // namespace

QString PercorsoVoceSicuro(const QString& nome) {
    QString n = nome;
    n.replace(u'\\', u'/');
    if (n.startsWith(u'/')) return {};
    QStringList pezzi;
    for (const QString& pezzo : n.split(u'/', Qt::SkipEmptyParts)) {
        if (pezzo == u".") continue;
        if (pezzo == u".." || pezzo.contains(u':') || NomeDispositivo(pezzo)) return {};
        for (const QChar c : pezzo)
            if (c.unicode() < 0x20 || c.unicode() == 0x7F) return {};
        pezzi.append(pezzo);
    }
    return pezzi.join(u'/');
}

EsitoScompatta ScompattaZip(const QString& zipHost, const QString& cartellaHost,
                            const LimitiScompatta& limiti) {
    EsitoScompatta esito;
    if (!QFileInfo(zipHost).isFile()) {
        esito.errore = 53;
        esito.descrizione = QStringLiteral("Impossibile trovare il file ") + zipHost;
        return esito;
    }
    if (!QFileInfo(cartellaHost).isDir()) {
        esito.errore = 76;
        esito.descrizione = QStringLiteral("Impossibile trovare il percorso ") + cartellaHost;
        return esito;
    }
    Scompattatore s(cartellaHost, esito);
    const QByteArray nomeZip = QFile::encodeName(zipHost);
    const qint64 fine = FineArchivio(zipHost);
    // An archive of no members is its end record alone, which minizip does not find at 0.
    if (fine == 0 && QFileInfo(zipHost).size() == 22) {
        QFile f(zipHost);
        if (f.open(QIODevice::ReadOnly) && f.read(22).mid(8, 4) == QByteArray(4, '\0'))
            return esito;
    }
    Archivio z(fine > 0 ? unzOpen64(nomeZip.constData()) : nullptr);
    if (!z) {
        s.Fallisci(321, QStringLiteral("Archivio ZIP non valido: ") + zipHost);
        return esito;
    }
    QList<Voce> voci;
    if (!Elenca(z.get(), limiti, voci, s)) return esito;

    // The archive itself may lie in the folder: a member of the same name is not written
    // over the file being read.
    const QString zipCanonico = QFileInfo(zipHost).canonicalFilePath();
    bool ok = unzGoToFirstFile(z.get()) == UNZ_OK || voci.isEmpty();
    for (qsizetype i = 0; ok && i < voci.size(); ++i) {
        const Voce& v = voci[i];
        if (v.cartella) {
            ok = s.CreaCartellaVoce(v);
        } else if (QFileInfo(s.Radice() + u'/' + v.relativo).canonicalFilePath() != zipCanonico) {
            ok = s.Scrivi(z.get(), v);
        }
        if (ok && i + 1 < voci.size()) ok = unzGoToNextFile(z.get()) == UNZ_OK;
    }
    if (!ok) {
        if (esito.errore == 0)
            s.Fallisci(321, QStringLiteral("Archivio ZIP danneggiato o incompleto"));
        s.Annulla();
    }
    return esito;
}

} // namespace tavolet
