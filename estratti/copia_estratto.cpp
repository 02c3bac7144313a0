#include "copia_estratto.h"

#include "archivio.h"

#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "scompatta.h"
#include "stato.h"
#include "testo.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace tavolet {

namespace {

const QString kTitoloCopia = QStringLiteral("Copia Estratto in Pregeo");
const QString kCopiato = QStringLiteral("Copiato nella cartella Estratti!");
const QString kEsploso = QStringLiteral("Esploso e Copiato nella cartella Estratti!");

QString CartellaTmp(const Stato& stato) {
    return stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\tmp\\");
}

QString SenzaUltimiQuattro(const QString& percorso) {
    return Left(percorso, std::max(0, Len(percorso) - 4));
}

void Avvisa(Stato& stato, const QString& testo, Icona icona = Icona::Informazione) {
    stato.piattaforma->Messaggio(testo, kTitoloCopia, icona);
}

bool Trovato(Stato& stato, const QString& percorso) {
    if (EsisteFile(percorso)) return true;
    Avvisa(stato, percorso + CRLF + QStringLiteral("NON trovato!"), Icona::Avviso);
    return false;
}

// Copies the file into the extracts folder under its own name; returns that name.
QString CopiaInEstratti(Stato& stato, const QString& percorso) {
    CreaCartella(CartellaEstratti(stato));
    const QString nome = NomeDelFile(percorso);
    CopiaFile(percorso, CartellaEstratti(stato) + nome);
    return nome;
}

// Unpacks the archive into \pregeo\tmp\; the host paths of the members written.
QStringList Scompatta(Stato& stato, const QString& zip) {
    CreaCartella(CartellaTmp(stato));
    const EsitoScompatta esito =
        ScompattaZip(PercorsoLocale(zip), PercorsoLocale(CartellaTmp(stato)));
    if (!esito.Riuscito()) throw Errore(esito.errore, esito.descrizione);
    return esito.file;
}

// The members with that extension, any case: those at the top of the folder first, then
// by name, as a listing of the folder would find them.
QStringList ConEstensione(const QStringList& file, const QString& estensione) {
    QStringList scelti;
    for (const QString& f : file)
        if (f.endsWith(estensione, Qt::CaseInsensitive)) scelti.append(f);
    std::stable_sort(scelti.begin(), scelti.end(), [](const QString& a, const QString& b) {
        const qsizetype pa = a.count(u'/'), pb = b.count(u'/');
        if (pa != pb) return pa < pb;
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return scelti;
}

// Removes the files of \pregeo\tmp\; folders and what they hold stay.
void SvuotaTmp(Stato& stato) {
    CreaCartella(CartellaTmp(stato));
    const QDir dir(PercorsoLocale(CartellaTmp(stato)));
    for (const QString& nome : dir.entryList(QDir::Files | QDir::Hidden | QDir::System))
        EliminaFile(dir.filePath(nome));
}

void CopiaZip(Stato& stato, const QString& percorso) {
    const QString nome = NomeDelFile(percorso);
    const QString base = SenzaUltimiQuattro(nome);
    // Read before emptying: the archive may lie in \pregeo\tmp\ itself.
    if (QFileInfo(PercorsoLocale(percorso)).size() > LimitiScompatta().byteTotali)
        throw Errore(321, QStringLiteral("Archivio troppo grande da scompattare"));
    const QByteArray archivio = LeggiByte(percorso);
    SvuotaTmp(stato);
    const QString copia = CartellaTmp(stato) + nome;
    ScriviByte(copia, archivio);
    const QStringList membri = Scompatta(stato, copia);

    const QStringList emp = ConEstensione(membri, QStringLiteral(".EMP"));
    const QStringList png = ConEstensione(membri, QStringLiteral(".PNG"));
    CreaCartella(CartellaEstratti(stato));
    if (!emp.isEmpty())
        CopiaFile(emp.first(), CartellaEstratti(stato) + base + QStringLiteral(".EMP"));
    if (!png.isEmpty())
        CopiaFile(png.first(), CartellaEstratti(stato) + base + QStringLiteral(".PNG"));
    // An archive without an extract still reports success; the current extract stays.
    if (!emp.isEmpty()) stato.doc.NomeEstratto = base + QStringLiteral(".EMP");
    Avvisa(stato, kEsploso + CRLF + percorso);
}

// An .EMP or .PNG with its companion of the other extension, when that exists.
void CopiaConCompagno(Stato& stato, const QString& percorso, const QString& estensione) {
    const QString altra = estensione == u".EMP" ? QStringLiteral(".PNG") : QStringLiteral(".EMP");
    const QString compagno = SenzaUltimiQuattro(percorso) + altra;
    const QString nome = CopiaInEstratti(stato, percorso);
    QString nomeEmp = estensione == u".EMP" ? nome : QString();
    if (EsisteFile(compagno)) {
        const QString nomeCompagno = CopiaInEstratti(stato, compagno);
        if (nomeEmp.isEmpty()) nomeEmp = nomeCompagno;
    }
    // A .PNG without its .EMP is copied, but names no extract.
    if (!nomeEmp.isEmpty()) stato.doc.NomeEstratto = nomeEmp;
    Avvisa(stato, kCopiato + CRLF + SenzaUltimiQuattro(percorso));
}

} // namespace

bool DrageDrop(Stato& stato, const QString& percorso) {
    bool copiato = false;
    ConTrappola(stato, QStringLiteral("DrageDrop"), [&] {
        const QString p = Trim(UCase(QString(percorso).remove(u'"')));
        const QString estensione = Right(p, 4);
        if (estensione != u".EMP" && estensione != u".PNG" && estensione != u".ZIP") return;
        if (!Trovato(stato, p)) return;
        if (estensione == u".ZIP")
            CopiaZip(stato, p);
        else
            CopiaConCompagno(stato, p, estensione);
        copiato = true;
    });
    return copiato;
}

QStringList CopiaEstrattoInPregeo(Stato& stato, const QString& percorso) {
    QStringList copiati;
    ConTrappola(stato, QStringLiteral("CopiaEstrattoInPregeo"), [&] {
        const QString p = Trim(QString(percorso).remove(u'"'));
        const QString estensione = UCase(Right(p, 4));
        if (estensione != u".EMP" && estensione != u".PNG" && estensione != u".ZIP") return;
        if (!Trovato(stato, p)) return;
        if (estensione != u".ZIP") {
            copiati.append(CopiaInEstratti(stato, p));
            Avvisa(stato, kCopiato);
            return;
        }
        const QStringList membri = Scompatta(stato, p);
        for (const QString& f : membri) {
            const QString estensioneMembro = UCase(Right(f, 4));
            if (estensioneMembro != u".EMP" && estensioneMembro != u".PNG") continue;
            const QString nome = CopiaInEstratti(stato, f);
            if (!copiati.contains(nome)) copiati.append(nome);
        }
        Avvisa(stato, kEsploso);
    });
    return copiati;
}

void InstallaEstratti(Stato& stato) {
    stato.DrageDrop = [](Stato& s, const QString& percorso) { tavolet::DrageDrop(s, percorso); };
}

} // namespace tavolet
