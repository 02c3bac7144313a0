#include "particelle.h"

#include "errore.h"
#include "estratto.h"
#include "file_testo.h"
#include "nome_file.h"
#include "percorsi.h"
#include "piattaforma.h"
#include "righe.h"
#include "righe_censuarie.h"
#include "stato.h"
#include "testata.h"
#include "testo.h"

#include <QDir>
#include <QRegularExpression>

namespace tavolet {

QString CartellaParticelle(const Stato& stato) {
    return stato.amb.UnitaPregeoDati + QStringLiteral("\\FIDUCIAL\\PARTICELLE\\");
}

QStringList ElencoParticelle(const Stato& stato, const QString& modello) {
    const QDir cartella(PercorsoLocale(CartellaParticelle(stato)));
    if (!cartella.exists()) return {};
    const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(modello),
                                QRegularExpression::CaseInsensitiveOption);
    QStringList nomi;
    for (const QString& nome : cartella.entryList(QDir::Files, QDir::Name | QDir::IgnoreCase))
        if (re.match(nome).hasMatch()) nomi.append(nome);
    return nomi;
}

QString ModelloParticelleLibretto(const QString& comune, const QString& foglio) {
    return comune + QStringLiteral("_0") + foglio + QStringLiteral("*.MAP");
}

QStringList MappaliInLibretto(const QString& comune, const QString& foglio,
                              const QString& mappali) {
    QStringList nomi;
    if (Trim(mappali).isEmpty()) return nomi;
    for (const QString& m : Split(mappali, QStringLiteral(",")))
        nomi.append(comune + QStringLiteral("_0") + foglio + u'_' + Trim(m) +
                    QStringLiteral(".MAP"));
    return nomi;
}

QStringList MappaliInProposta(const QStringList& modello) {
    QStringList voci = modello;
    for (int i = int(voci.size()) - 1; i >= 0; --i)
        if (ElementoInvariato(voci[i])) voci.removeAt(i);
    return voci;
}

void EliminaFileParticella(Stato& stato, const QString& nomeFile) {
    ConTrappola(stato, QStringLiteral("BV_EDM"),
                [&] { EliminaFile(CartellaParticelle(stato) + nomeFile); });
}

int AzzeraArchivioParticelle(Stato& stato) {
    int n = 0;
    ConTrappola(stato, QStringLiteral("BV_EDM"), [&] {
        for (const QString& nome : ElencoParticelle(stato, QStringLiteral("*.MAP*"))) {
            EliminaFile(CartellaParticelle(stato) + nome);
            ++n;
        }
    });
    return n;
}

CampiParticella CampiDaParticella(const QString& nomeFile, const QString& riga,
                                  const QStringList& tabellaQualita) {
    CampiParticella c;
    const QStringList nome =
        Split(Split(nomeFile, QStringLiteral(".")).value(0), QStringLiteral("_"));
    c.Comune = nome.value(0);
    c.Foglio = nome.value(1);
    c.Mappale = nome.value(2);
    const QStringList f = Split(riga, QStringLiteral("|"));
    c.Qualita = f.value(4);
    c.Classe = Trim(f.value(3));
    c.SupCatastale = f.value(5);
    c.SupGrafica = f.value(6);
    c.RedditoDominicale = f.value(7);
    c.RedditoAgrario = f.value(8);
    c.Flag = f.value(9);
    c.CodiceQualita = CodiceDaQualita(tabellaQualita, c.Qualita);
    return c;
}

void ControllaParticella(const CampiParticella& c) {
    for (const QString* campo : {&c.Mappale, &c.Qualita, &c.SupCatastale})
        if (Trim(*campo).isEmpty()) throw Errore(13);
}

CampiParticella CampiDaRigaParticella(const QString& riga, const QStringList& tabellaQualita) {
    CampiParticella c = CampiDaParticella(QString(), riga, tabellaQualita);
    c.Mappale = Split(riga, QStringLiteral("|")).value(2);
    return c;
}

QString LeggiRigaParticella(const Stato& stato, const QString& nomeFile) {
    const QString percorso = CartellaParticelle(stato) + nomeFile;
    if (!EsisteFile(percorso)) return {};
    return LeggiRighe(percorso).value(0);
}

QString NormalizzaFoglio(const QString& foglio) {
    QString t = UCase(foglio);
    if (t.isEmpty()) return t;
    if (t.back().unicode() < 65 && t.size() < 4) t = u'0' + t;
    return Right(QStringLiteral("00000") + t, 5);
}

QString NormalizzaClasse(const QString& classe) {
    return Right(QStringLiteral("00") + classe, 2);
}

QString InvertiFlag(const QString& flag) {
    return UCase(flag) == QStringLiteral("SN") ? QStringLiteral("SR") : QStringLiteral("SN");
}

QString ComponiRigaParticella(CampiParticella& c) {
    if (Trim(c.SupGrafica).isEmpty()) c.SupGrafica = c.SupCatastale;
    return QStringLiteral("6|PARTICELLA|") + c.Mappale + u'|' + NormalizzaClasse(c.Classe) + u'|' +
           Left(c.Qualita + Space(17), 12) + u'|' + c.SupCatastale + u'|' + c.SupGrafica + u'|' +
           c.RedditoDominicale + u'|' + c.RedditoAgrario + u'|' + c.Flag + u'|';
}

QString NomeFileParticella(const CampiParticella& c) {
    return NomeFileSicuro(
        UCase(c.Comune + u'_' + c.Foglio + u'_' + c.Mappale + QStringLiteral(".map")));
}

QString AggiornaTestoEstratto(const QString& testoEstratto, const QString& nuovaRiga) {
    QStringList righe = Split(testoEstratto, CRLF);
    // The last piece is the empty one behind the final line end; a file cut before it keeps
    // its last line.
    if (!righe.isEmpty() && righe.last().isEmpty()) righe.removeLast();
    const QStringList nuova = Split(nuovaRiga, QStringLiteral("|"));
    const QString stessa = nuova.value(0) + u'|' + nuova.value(1) + u'|' + nuova.value(2) + u'|';
    QString teste, particelle, altre, inquadramento;
    for (const QString& riga : righe) {
        const int tipo = ValIntero(riga);
        if (tipo == 0 || tipo == 7 || tipo == 8 || riga.startsWith(QStringLiteral("6|DITTA|"))) {
            teste += riga + CRLF;
        } else if (riga.startsWith(QStringLiteral("6|PARTICELLA|"))) {
            if (!riga.startsWith(stessa)) particelle += riga + CRLF;
        } else if (riga.startsWith(QStringLiteral("6|DISTANZA|")) ||
                   riga.startsWith(QStringLiteral("6|PFCART|")) ||
                   riga.startsWith(QStringLiteral("6|DISTORSIONE|")) ||
                   riga.startsWith(QStringLiteral("6|SCALAORIGINARIA|"))) {
            altre += riga + CRLF;
        } else if (riga.startsWith(QStringLiteral("6|INQUADRAMENTO|"))) {
            inquadramento = riga;
        }
    }
    if (!particelle.contains(nuovaRiga + CRLF)) particelle += nuovaRiga + CRLF;
    return teste + particelle + altre + inquadramento;
}

QString ArchiviaParticella(Stato& stato, CampiParticella& campi) {
    const QString riga = ComponiRigaParticella(campi);
    const QString scritta = Replace(UCase(riga), QStringLiteral(","), QStringLiteral("."));
    const QString cartella = CartellaParticelle(stato);
    if (!EsisteCartella(cartella)) CreaCartella(cartella);
    ScriviTesto(cartella + NomeFileParticella(campi), scritta + CRLF);
    if (!Trim(stato.doc.NomeEstratto).isEmpty()) {
        const QString estratto = PercorsoEstratto(stato, stato.doc.NomeEstratto);
        if (EsisteFile(estratto))
            ScriviTesto(estratto, AggiornaTestoEstratto(LeggiTesto(estratto), scritta));
    }
    return riga;
}

QList<FileParticella> ParticelleDaModello(const QString& testoLibretto, const QString& comune,
                                          const QString& foglio,
                                          const QStringList& tabellaQualita) {
    QStringList lavoro;
    bool acceso = false;
    for (const QString& riga : Split(testoLibretto, CRLF)) {
        if (!RigaCensuaria(riga)) continue;
        if (riga.startsWith(QStringLiteral("6|51FTP"))) acceso = true;
        if (riga.startsWith(QStringLiteral("6|3SPC ")) ||
            riga.startsWith(QStringLiteral("6|M31FU")))
            acceso = false;
        if (acceso) lavoro.append(riga);
    }
    QList<FileParticella> file;
    QString qualita, classe;
    for (const QString& riga : lavoro) {
        const QStringList p = Split(riga, QStringLiteral("|"));
        if (riga.startsWith(QStringLiteral("6|O|"))) {
            qualita = QualitaDaCodice(tabellaQualita, Trim(p.value(10)));
            classe = Trim(p.value(11));
        } else if (riga.startsWith(QStringLiteral("6|C|"))) {
            const QString id = Trim(p.value(5));
            QString area = p.value(6);
            while (area.startsWith(u'0')) area.remove(0, 1);
            QStringList m = Split(kRigaParticellaVuota, QStringLiteral("|"));
            m[2] = id;
            m[3] = NormalizzaClasse(classe);
            QString q = Space(12);
            ScriviInPosizione(q, 1, qualita);
            m[4] = q;
            m[5] = area;
            m[6] = area;
            m[7] = QStringLiteral("0");
            m[8] = QStringLiteral("0");
            file.append(
                {comune + QStringLiteral("_0") + foglio + u'_' + id + QStringLiteral(".MAP"),
                 Join(m, QStringLiteral("|"))});
        }
    }
    return file;
}

QList<FileParticella> ParticelleDaEstratto(const QStringList& righe, const QString& comuneLibretto,
                                           const QString& foglioLibretto) {
    QList<FileParticella> file;
    if (righe.isEmpty()) return file;
    bool conParticelle = false;
    for (const QString& r : righe)
        if (r.contains(QStringLiteral("6|PARTICELLA|"))) conParticelle = true;
    if (conParticelle) {
        const RigaScomposta zero = ScomponiRiga(righe.first());
        const QString comune = zero.Campo(3), foglio = zero.Campo(4);
        for (const QString& r : righe) {
            if (!r.startsWith(QStringLiteral("6|PARTICELLA|"))) continue;
            const QString nome = Split(Mid(r, 14), QStringLiteral("|")).value(0);
            file.append({comune + u'_' + foglio + u'_' + nome + QStringLiteral(".Map"), r});
        }
        return file;
    }
    for (const QString& r : righe) {
        if (!r.startsWith(QStringLiteral("7|")) || r.startsWith(QStringLiteral("7|0|"))) continue;
        if (r.contains(QStringLiteral("-|")) || r.contains(QStringLiteral("+|")) ||
            r.contains(QStringLiteral("NP")) || r.contains(QStringLiteral("NT")))
            continue;
        const QStringList p = Split(r, QStringLiteral("|"));
        const int u = int(p.size()) - 1;
        if (u < 3) continue;
        const QString nome = p[u - 3], area = p[u - 1];
        QStringList m = Split(kRigaParticellaVuota, QStringLiteral("|"));
        m[2] = nome;
        m[3] = QStringLiteral("  ");
        m[4] = Space(12);
        m[5] = area;
        m[6] = area;
        m[7] = QStringLiteral("0");
        m[8] = QStringLiteral("0");
        file.append({comuneLibretto + QStringLiteral("_0") + foglioLibretto + u'_' + nome +
                         QStringLiteral(".Map"),
                     Join(m, QStringLiteral("|"))});
    }
    return file;
}

int ScriviParticelle(Stato& stato, const QList<FileParticella>& file) {
    const QString cartella = CartellaParticelle(stato);
    if (!EsisteCartella(cartella)) CreaCartella(cartella);
    int n = 0;
    for (const FileParticella& f : file) {
        ScriviTesto(cartella + NomeFileSicuro(f.nome), f.riga + CRLF);
        ++n;
    }
    return n;
}

int GeneraParticelleDaCensuario(Stato& stato) {
    int n = 0;
    ConTrappola(stato, QStringLiteral("Decozero_102"), [&] {
        DecoZeroNove(stato);
        stato.TagRoutine = QStringLiteral("Decozero_102");
        n = ScriviParticelle(
            stato, ParticelleDaModello(stato.doc.TestoLibretto, stato.testata.CodiceComuneLibretto,
                                       stato.testata.FoglioLibretto, stato.amb.TabellaQualita));
    });
    return n;
}

int GeneraParticelleDaEstratto(Stato& stato, const QString& nomeEstratto) {
    int n = 0;
    ConTrappola(stato, QStringLiteral("BV_EDM"), [&] {
        if (Trim(nomeEstratto).isEmpty()) {
            stato.piattaforma->Messaggio(QStringLiteral("Estratto NON Associato!"),
                                         QStringLiteral("Estratto non Associato"), Icona::Avviso);
            return;
        }
        const QString percorso = PercorsoEstratto(stato, nomeEstratto);
        if (!EsisteFile(percorso)) {
            stato.piattaforma->Messaggio(QStringLiteral("L'Estratto ") + CRLF + percorso + CRLF +
                                             QStringLiteral("Non esiste!"),
                                         QStringLiteral("Estratto non trovato"), Icona::Avviso);
            return;
        }
        n = ScriviParticelle(stato, ParticelleDaEstratto(LeggiRighe(percorso),
                                                         stato.testata.CodiceComuneLibretto,
                                                         stato.testata.FoglioLibretto));
    });
    return n;
}

} // namespace tavolet
