// The commands of the archive of extracts on whole files.
#include "archivio.h"

#include "errore.h"
#include "estratto.h"
#include "file_testo.h"
#include "interno.h"
#include "nome_file.h"
#include "percorsi.h"
#include "stato.h"
#include "testo.h"

#include <QDir>

#include <cmath>

namespace tavolet {

using namespace estratti;

namespace {

const QString kTestaAutoallestito = QStringLiteral("0|AUTOALLESTITO|0|0|0|0|0|0|0|0|");

QString Estensione(const QString& percorso) {
    return percorso.mid(SenzaEstensione(percorso).size());
}

// The files <base>.* of the folder, by the folder's listing.
QStringList FileDelNome(const QString& percorsoSenzaEstensione) {
    const QString cartella = CartellaDel(percorsoSenzaEstensione + QStringLiteral(".x"));
    const QString nome = NomeDelFile(percorsoSenzaEstensione);
    const QDir dir(PercorsoLocale(cartella));
    QStringList trovati;
    for (const QString& f : dir.entryList(QDir::Files, QDir::Name))
        if (SenzaEstensione(f).compare(nome, Qt::CaseInsensitive) == 0)
            trovati.append(cartella + (cartella.contains(u'\\') ? u'\\' : u'/') + f);
    return trovati;
}

// A square grid of points with rings of adjacent cells: the sample extracts.
QString Esempio(int colonne, int righe, const QList<QList<int>>& anelli) {
    QString t = kTestaAutoallestito + CRLF;
    for (int r = 0; r < righe; ++r)
        for (int c = 0; c < colonne; ++c)
            t += QStringLiteral("8|%1%|%2|%3|")
                     .arg(r * colonne + c + 1)
                     .arg(Formato(-5672.5 + r * 25.0, QStringLiteral("0.000")),
                          Formato(-3732.5 + c * 25.0, QStringLiteral("0.000"))) +
                 CRLF;
    int nome = 101;
    for (const QList<int>& a : anelli) {
        t += QStringLiteral("7|%1|").arg(a.size() + 1);
        for (int id : a) t += QString::number(id) + QStringLiteral("%|");
        t += QString::number(a[0]) + QStringLiteral("%|NC|%1|%1|0|").arg(nome++) + CRLF;
    }
    return t + QStringLiteral("6|INQUADRAMENTO|-5672.5|-3732.5|0.5|-5672.5|-3732.5|6.2831853|") +
           CRLF;
}

} // namespace

QString CartellaEstratti(const Stato& stato) {
    return stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\estratti\\");
}

QString TestoValidita(int mesi) {
    const int m = mesi - 6;
    if (m > 0)
        return QStringLiteral("L'Estratto è scaduto da ") + QString::number(std::abs(m)) +
               QStringLiteral(" mesi");
    return QStringLiteral("L'Estratto scade tra    ") + QString::number(m) +
           QStringLiteral(" mesi");
}

QString VersioneFormato(const QString& testo) {
    return QStringLiteral("Pregeo ") + (testo.contains(QStringLiteral("DISTORSIONE"))
                                            ? QStringLiteral("10")
                                            : QStringLiteral("9"));
}

ConteggioEstratto ContaRigheEstratto(const QString& nome, const QStringList& righe) {
    ConteggioEstratto c;
    c.nome = nome;
    for (const QString& r : righe) {
        if (r.startsWith(u"8|PF"))
            ++c.pf;
        else if (r.startsWith(u"8|"))
            ++c.punti;
        else if (r.startsWith(u"6|DISTANZA"))
            ++c.distanze;
        else if (r.startsWith(u"6|PARTICELLA"))
            ++c.particelle;
    }
    return c;
}

QList<ConteggioEstratto> VerificaEstratti(Stato& stato, const QString& cartella,
                                          const Avanzamento& avanzamento) {
    QList<ConteggioEstratto> conteggi;
    ConTrappola(stato, QStringLiteral("VerificaEstratti"), [&] {
        const QDir dir(PercorsoLocale(cartella));
        const QStringList file = dir.entryList({QStringLiteral("*")}, QDir::Files, QDir::Name);
        QStringList emp;
        for (const QString& f : file)
            if (f.endsWith(QStringLiteral(".EMP"), Qt::CaseInsensitive)) emp.append(f);
        for (int i = 0; i < emp.size(); ++i) {
            conteggi.append(ContaRigheEstratto(emp[i], LeggiRighe(dir.filePath(emp[i]))));
            if (avanzamento) avanzamento(i + 1, int(emp.size()));
        }
    });
    return conteggi;
}

QStringList CompagniEsistenti(const QString& base) {
    QStringList esistenti;
    for (const QString& e : {QStringLiteral(".EMP"), QStringLiteral(".PNG"), QStringLiteral(".TIF"),
                             QStringLiteral(".JPG")})
        if (EsisteFile(base + e)) esistenti.append(e);
    return esistenti;
}

bool DuplicaEstratto(Stato& stato, const QString& nome, const QString& nuovo) {
    return ConTrappola(stato, QStringLiteral("DuplicaEstratto"), [&] {
        const QString da = SenzaEstensione(PercorsoEstratto(stato, nome));
        const QString a = SenzaEstensione(PercorsoEstratto(stato, NomeFileSicuro(nuovo)));
        // The image first: without it the copy fails before the extract is touched.
        CopiaFile(da + QStringLiteral(".PNG"), a + QStringLiteral(".PNG"));
        CopiaFile(da + QStringLiteral(".EMP"), a + QStringLiteral(".EMP"));
    });
}

bool RinominaEstratto(Stato& stato, const QString& nome, const QString& nuovo) {
    return ConTrappola(stato, QStringLiteral("RinominaEstratto"), [&] {
        const QString da = SenzaEstensione(PercorsoEstratto(stato, nome));
        const QString a = SenzaEstensione(PercorsoEstratto(stato, NomeFileSicuro(nuovo)));
        for (const QString& f : FileDelNome(da)) {
            const QString destinazione = a + Estensione(f);
            CopiaFile(f, destinazione);
            EliminaFile(f);
        }
    });
}

bool EliminaEstratto(Stato& stato, const QString& nome) {
    return ConTrappola(stato, QStringLiteral("EliminaEstrattoDiMappa ") + nome, [&] {
        for (const QString& f : FileDelNome(SenzaEstensione(PercorsoEstratto(stato, nome))))
            EliminaFile(f);
    });
}

QString CopiaEstrattoConSuffisso(Stato& stato, const QString& nome) {
    QString copia;
    ConTrappola(stato, QStringLiteral("CopiaEstrattoConSuffisso"), [&] {
        const QString base = SenzaEstensione(PercorsoEstratto(stato, nome));
        for (const QString& e : CompagniEsistenti(base)) CopiaFile(base + e, base + u'1' + e);
        copia = NomeDelFile(base) + QStringLiteral("1.EMP");
    });
    return copia;
}

bool VuotaEstratto(Stato& stato, const QString& nome) {
    return ConTrappola(stato, QStringLiteral("VuotaEstratto"), [&] {
        const QString percorso = PercorsoEstratto(stato, nome);
        const QStringList righe = LeggiRighe(percorso);
        ScriviTesto(percorso, Voce(righe, 0) + CRLF + Voce(righe, righe.size() - 1) + CRLF);
    });
}

bool AzzeraDitte(Stato& stato, const QString& nome) {
    const bool ok = ConTrappola(stato, QStringLiteral("AzzeraDitte"), [&] {
        const QString percorso = PercorsoEstratto(stato, nome);
        const QString cartella = stato.amb.CartellaLavoro + QStringLiteral("\\TEMP\\");
        CreaCartella(cartella);
        const QString copia = cartella + Replace(UCase(NomeDelFile(percorso)),
                                                 QStringLiteral(".EMP"), QStringLiteral(".BAK"));
        CopiaFile(percorso, copia);
        const QString testo = LeggiTesto(copia);
        const Estratto e = EsplodiTestoEstratto(stato, testo, percorso);
        if (!ArchiviaDitteEstratto(stato, e, e.EstrattoComune)) throw Errore(75);
        QString rimasto;
        for (const QString& riga : RigheDiTesto(testo))
            if (!riga.contains(QStringLiteral("6|DITTA|"))) rimasto += riga + CRLF;
        ScriviTesto(percorso, rimasto);
    });
    if (ok)
        stato.piattaforma->Messaggio(
            QStringLiteral("Intestatari archiviati ed eliminati dall'Estratto!"),
            QStringLiteral("Azzera Ditte"), Icona::Informazione);
    return ok;
}

bool RinominaParticella(Stato& stato, const QString& nome, const QString& vecchio,
                        const QString& nuovo) {
    return ConTrappola(stato, QStringLiteral("RinominaParticella"), [&] {
        const QString percorso = PercorsoEstratto(stato, nome);
        const QString testo = LeggiTesto(percorso);
        const QString cambiato =
            Replace(testo, QStringLiteral("|NC|") + vecchio + u'|' + vecchio + u'|',
                    QStringLiteral("|NC|") + nuovo + u'|' + nuovo + u'|');
        ScriviTesto(percorso, cambiato);
    });
}

bool EliminaParticella(Stato& stato, const QString& nome, const QString& particella) {
    Estratto e = EsplodiEstratto(stato, nome);
    if (e.ZERO.isEmpty()) return false;
    if (!EliminaParticellaEstratto(stato, e, particella)) return false;
    return SalvaEstratto1(stato, e);
}

bool EsportaEstratto(Stato& stato, const QString& nome, const QString& destinazione) {
    return ConTrappola(stato, QStringLiteral("EsportaEstratto"), [&] {
        const QString da = PercorsoEstratto(stato, nome);
        CopiaFile(da, destinazione);
        const QString png = SenzaEstensione(da) + QStringLiteral(".PNG");
        if (EsisteFile(png))
            CopiaFile(png, Replace(destinazione, QStringLiteral(".EMP"), QStringLiteral(".PNG")));
    });
}

bool ScriviEstrattiDiEsempio(Stato& stato) {
    bool scritti = false;
    ConTrappola(stato, QStringLiteral("EstrattiDiEsempio"), [&] {
        const QString cartella = CartellaEstratti(stato);
        CreaCartella(cartella);
        if (!QDir(PercorsoLocale(cartella)).entryList(QDir::Files).isEmpty()) return;
        // 12 vertices in two rings, 18 in three.
        ScriviTesto(cartella + QStringLiteral("ESTRATTO.emp"),
                    Esempio(4, 3, {{1, 2, 3, 7, 11, 10, 9, 5}, {3, 4, 8, 12, 11, 7}}));
        ScriviTesto(cartella + QStringLiteral("ESTRATTO1.emp"),
                    Esempio(6, 3,
                            {{1, 2, 3, 9, 15, 14, 13, 7},
                             {3, 4, 10, 16, 15, 9},
                             {4, 5, 6, 12, 18, 17, 16, 10}}));
        scritti = true;
    });
    return scritti;
}

QString TrovaEstrattoPerProtocollo(Stato& stato, const QStringList& nomi,
                                   const QString& protocollo) {
    QString trovato;
    ConTrappola(stato, QStringLiteral("TrovaEstrattoAssociato"), [&] {
        for (const QString& nome : nomi) {
            const QStringList righe = LeggiRighe(PercorsoEstratto(stato, nome));
            const QString prima = Voce(righe, 0);
            if (prima.isEmpty()) return;
            if (Voce(Split(prima, kBarra), 2) == protocollo) {
                trovato = nome;
                return;
            }
        }
    });
    return trovato;
}

QString TrovaEstrattoAssociato(Stato& stato, const QString& protocollo) {
    if (Trim(protocollo).isEmpty()) return {};
    const QDir dir(PercorsoLocale(CartellaEstratti(stato)));
    QStringList emp;
    for (const QString& f : dir.entryList(QDir::Files, QDir::Name | QDir::IgnoreCase))
        if (f.endsWith(QStringLiteral(".EMP"), Qt::CaseInsensitive)) emp.append(f);
    return TrovaEstrattoPerProtocollo(stato, emp, protocollo);
}

} // namespace tavolet
