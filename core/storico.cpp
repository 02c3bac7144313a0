#include "storico.h"

#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "protezioni.h"
#include "righe.h"
#include "stato.h"
#include "testo.h"

#include <QDir>

#include <algorithm>

namespace tavolet {

namespace {

constexpr int kVersioniTenute = 10;
const QString kFormatoData = QStringLiteral("yyyyMMdd-HHmmss");

// A kept copy is named <libretto>~<date-time>, with -NNN behind when one second saw several.
QDateTime DataDelNome(const QString& nome) {
    const qsizetype tilde = nome.lastIndexOf(u'~');
    if (tilde < 0) return {};
    return QDateTime::fromString(nome.mid(tilde + 1, kFormatoData.size()), kFormatoData);
}

// The copies of that libretto's name in the folder, oldest first (the names sort by time).
QStringList CopieDel(const QString& cartella, const QString& libretto) {
    const QString prefisso = NomeDelFile(libretto) + u'~';
    QStringList copie;
    for (const QString& f : QDir(PercorsoLocale(cartella)).entryList(QDir::Files))
        if (f.startsWith(prefisso, Qt::CaseInsensitive) && DataDelNome(f).isValid()) copie << f;
    std::sort(copie.begin(), copie.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return copie;
}

int RigheMostrate(const QString& testo) {
    int n = 0;
    for (const QString& riga : RigheDiTesto(testo)) {
        const QString r = Trim(riga);
        if (r.size() > 2 && !r.contains(kTagEstratto) && !r.contains(kTagCodiceFiscale) &&
            !r.contains(kTagIscrizione) && !r.contains(kTagDitta))
            ++n;
    }
    return n;
}

} // namespace

QString CartellaStorico(const Stato& stato) {
    return stato.amb.CartellaDocumenti + QStringLiteral("\\Tavolet\\Storico_Libretti");
}

void ScriviConStorico(Stato& stato, const QString& percorso, const QString& testo) {
    try {
        const QByteArray vecchi = EsisteFile(percorso) ? LeggiByte(percorso) : QByteArray();
        if (!stato.amb.CartellaDocumenti.isEmpty() && !vecchi.isEmpty() &&
            vecchi != AWindows1252(testo)) {
            const QString cartella = CartellaStorico(stato);
            CreaCartella(cartella);
            const QString radice =
                NomeDelFile(percorso) + u'~' + stato.piattaforma->Adesso().toString(kFormatoData);
            QStringList copie = CopieDel(cartella, percorso);
            // Several saves in one second: the next number after the highest, so that the
            // newest always sorts last even when the oldest have gone.
            int ultimo = -1; // -1: nothing of this second yet
            for (const QString& f : copie) {
                if (f.compare(radice, Qt::CaseInsensitive) == 0)
                    ultimo = std::max(ultimo, 0);
                else if (f.size() == radice.size() + 4 &&
                         f.startsWith(radice, Qt::CaseInsensitive) && f[radice.size()] == u'-')
                    ultimo = std::max(ultimo, f.right(3).toInt());
            }
            const QString nome =
                ultimo < 0 ? radice
                           : radice + QStringLiteral("-%1").arg(ultimo + 1, 3, 10, QChar(u'0'));
            ScriviByte(cartella + u'\\' + nome, vecchi);
            copie.append(nome);
            while (copie.size() > kVersioniTenute)
                EliminaFile(cartella + u'\\' + copie.takeFirst());
        }
    } catch (const std::exception&) {
    }
    ScriviTesto(percorso, testo);
}

QList<VersioneLibretto> VersioniLibretto(const Stato& stato, const QString& libretto) {
    QList<VersioneLibretto> versioni;
    if (Trim(libretto).isEmpty()) return versioni;
    const QString cartella = CartellaStorico(stato);
    const QStringList copie = CopieDel(cartella, libretto);
    for (auto it = copie.crbegin(); it != copie.crend(); ++it) {
        VersioneLibretto v;
        v.percorso = cartella + u'\\' + *it;
        v.quando = DataDelNome(*it);
        QByteArray byte;
        try {
            byte = LeggiByte(v.percorso);
        } catch (const std::exception&) {
            continue; // gone or unreadable since the folder was listed
        }
        v.byte = byte.size();
        v.righe = RigheMostrate(DaWindows1252(byte));
        versioni << v;
    }
    return versioni;
}

bool RipristinaVersione(Stato& stato, const VersioneLibretto& versione) {
    if (!EsisteFile(versione.percorso)) {
        MostraErrore(stato, 53, DescrizioneFileMancante(53, versione.percorso),
                     QStringLiteral("RipristinaVersione"));
        return false;
    }
    Documento& d = stato.doc;
    const QString libretto = d.PercorsoLibretto;
    d.PercorsoLibretto = versione.percorso;
    CaricaLibrettoMisure(stato);
    d.PercorsoLibretto = libretto;
    CaricaLibrettoInList1(stato);
    return true;
}

} // namespace tavolet
