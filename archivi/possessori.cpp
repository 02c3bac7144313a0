#include "possessori.h"

#include "libretto.h"
#include "nome_file.h"

#include <QDir>

#include <algorithm>

namespace tavolet {

QString CartellaVisure(const Stato& stato) {
    return stato.amb.UnitaPregeoDati + QStringLiteral("\\FIDUCIAL\\VISURE\\");
}

QString TitoloPossessori(const Stato& stato) {
    return QStringLiteral("Archivio Possessori - ") + stato.testata.NomeArchivio;
}

QStringList ElencoPossessori(const Stato& stato) {
    QStringList nomi;
    for (const QString& n : QDir(PercorsoLocale(CartellaVisure(stato))).entryList(QDir::Files)) {
        const QString estensione = UCase(Right(n, 4));
        if (estensione == u".VIS" || estensione == u".DIT") nomi.append(n);
    }
    std::sort(nomi.begin(), nomi.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return nomi;
}

QString LeggiFilePossessori(Stato& stato, const QString& nome) {
    QString testo;
    ConTrappola(stato, QStringLiteral("ArchivioPossessori"),
                [&] { testo = LeggiTesto(CartellaVisure(stato) + NomeFileSicuro(nome)); });
    return testo;
}

int CercaPossessore(Stato& stato, const QStringList& file, const QString& testo) {
    const QString cerca = UCase(testo);
    int trovato = -1;
    ConTrappola(stato, QStringLiteral("CercaPossessore"), [&] {
        for (int i = 0; i < file.size(); ++i) {
            if (UCase(LeggiTesto(CartellaVisure(stato) + file[i])).contains(cerca)) {
                trovato = i;
                return;
            }
        }
    });
    return trovato;
}

QString RigaDitta(const QString& testoFile) {
    const QStringList campi = Split(testoFile, QStringLiteral("|"));
    if (campi.size() < 5) throw Errore(9);
    return Replace(campi[3] + u' ' + campi[4], QStringLiteral(","), QStringLiteral(" "));
}

bool Associapossessori(Stato& stato, const QString& nomeFile, const QString& testoFile) {
    stato.EsitoDialogo = 1;
    return ConTrappola(stato, QStringLiteral("Associapossessori"), [&] {
        Documento& d = stato.doc;
        if (UCase(nomeFile).contains(QStringLiteral(".DIT")))
            d.TestoPossessori = d.TestoPossessori + CRLF + RigaDitta(testoFile);
        else
            d.TestoPossessori = testoFile;
        ScriviTag(stato, d.TestoPossessori);
    });
}

bool SalvaModifichePossessori(Stato& stato, const QString& nomeFile, const QString& testoFile) {
    // Line ends alone are no text either.
    if (testoFile.trimmed().isEmpty() || Trim(nomeFile).isEmpty()) return false;
    return ConTrappola(stato, QStringLiteral("SalvaModifichePossessori"), [&] {
        CreaCartella(CartellaVisure(stato));
        ScriviTesto(CartellaVisure(stato) + NomeFileSicuro(nomeFile), testoFile);
    });
}

void EliminaArchivioPossessori(Stato& stato, const QString& nomeFile) {
    if (Trim(nomeFile).isEmpty()) return;
    ConTrappola(stato, QStringLiteral("EliminaArchivioPossessori"),
                [&] { EliminaFile(CartellaVisure(stato) + NomeFileSicuro(nomeFile)); });
}

} // namespace tavolet
