#include "autoallestito.h"

#include "errore.h"
#include "estratto.h"
#include "file_testo.h"
#include "interno.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

using namespace estratti;

const QList<QualitaParticella>& QualitaAutoallestito() {
    static const QList<QualitaParticella> q = {
        {QStringLiteral("FABB RURALE"), QStringLiteral("279")},
        {QStringLiteral("FR DIV SUB"), QStringLiteral("281")},
        {QStringLiteral("ENTE URBANO"), QStringLiteral("282")},
        {QStringLiteral("FU D ACCERT"), QStringLiteral("283")}};
    return q;
}

QString RigaParticellaVuota(const QString& nome) {
    return QStringLiteral("6|PARTICELLA|") + nome + QStringLiteral("||||||||");
}

QString RicalcolaParticella(const QString& riga, QString& classe, QString& descrizione,
                            const QString& superficie, const QString& tipoLavoro) {
    QStringList campi = Split(riga, kBarra);
    while (campi.size() < 11) campi.append(QString());
    if (tipoLavoro == u"22") {
        descrizione = kFabbPromis.descrizione;
        classe = QStringLiteral("00");
    }
    campi[3] = classe;
    campi[4] = Left(descrizione + Space(12), 12);
    campi[5] = Formato(Val(superficie), QStringLiteral("#############0"));
    campi[6] = campi[5];
    campi[9] = QStringLiteral("SN");
    return Join(campi, kBarra);
}

void UnisciParticella(QStringList& righe, const QString& riga) {
    const QString chiave = QStringLiteral("6|PARTICELLA|") + Voce(Split(riga, kBarra), 2) + u'|';
    for (QString& r : righe) {
        if (r.contains(chiave)) {
            r = riga;
            return;
        }
    }
    righe.append(riga);
}

QString RicalcolaAutoAllestito(const QString& rigaZero, const QString& comune,
                               const QString& provincia, const QString& foglio,
                               const QString& particelle) {
    QStringList campi = Split(rigaZero, kBarra);
    while (campi.size() < 11) campi.append(QString());
    campi[2] = provincia;
    campi[3] = comune;
    campi[4] = Right(QStringLiteral("000") + foglio, 5);
    campi[5] = particelle;
    campi[6] = provincia;
    return Join(campi, kBarra);
}

void RinominaParticellaAutoallestito(QStringList& righe, const QString& vecchio,
                                     const QString& nuovo) {
    if (righe.isEmpty()) return;
    QStringList zero = Split(righe[0], kBarra);
    if (zero.size() > 5) {
        QStringList nomi = Split(zero[5], QStringLiteral(","));
        for (QString& n : nomi)
            if (n == vecchio) n = nuovo;
        zero[5] = Join(nomi, QStringLiteral(","));
        righe[0] = Join(zero, kBarra);
    }
    for (qsizetype i = 1; i < righe.size(); ++i) {
        if (!righe[i].startsWith(u"7|") || righe[i].startsWith(u"7|0|")) continue;
        QStringList campi = Split(righe[i], kBarra);
        const qsizetype n = campi.size() - 1;
        if (n < 3 || campi[n - 3] != vecchio) continue;
        campi[n - 3] = nuovo;
        righe[i] = Join(campi, kBarra);
        break; // the selected ring only
    }
}

QStringList ParticelleAutoallestito(Stato& stato, const QString& nomeEstratto,
                                    const QStringList& righe) {
    const DatiEstratto d = CopiaIDatiDellEstratto(stato, nomeEstratto);
    QStringList lista;
    for (const QString& nome : Split(d.Particelle, QStringLiteral(","))) {
        if (nome.isEmpty()) continue;
        QString riga = RigaParticellaVuota(nome);
        const QString chiave = QStringLiteral("6|PARTICELLA|") + nome + u'|';
        for (const QString& r : righe)
            if (r.contains(chiave)) riga = r;
        lista.append(riga);
    }
    return lista;
}

QString ProvinciaDiCompetenza(const Stato& stato, const QString& comune) {
    for (const Comune& c : stato.amb.TabellaComuni)
        if (Trim(c.CodiceComune) == Trim(comune)) return Trim(c.SiglaProvincia);
    return {};
}

QualitaParticella QualitaDaPulsante(const QString& testo) {
    const QString t = UCase(Trim(testo));
    QList<QualitaParticella> tutte = QualitaAutoallestito();
    tutte.append(kFabbPromis);
    for (const QualitaParticella& q : tutte)
        if (t == q.descrizione || t == q.codice) return q;
    return {};
}

QStringList CompletaRigheAutoallestito(QStringList righe, const QString& comune,
                                       const QString& provincia, const QString& foglio,
                                       const QList<ParticellaDaCompletare>& particelle,
                                       const QString& tipoLavoro) {
    if (righe.isEmpty()) return righe;
    // The parcels of the head, the "0" of a self-made head aside, then those new to it.
    QStringList nomi;
    for (const QString& n : Split(Voce(Split(righe[0], kBarra), 5), QStringLiteral(",")))
        if (!Trim(n).isEmpty() && n != u"0") nomi.append(n);
    for (const ParticellaDaCompletare& p : particelle)
        if (!nomi.contains(p.nome)) nomi.append(p.nome);
    righe[0] = RicalcolaAutoAllestito(righe[0], comune, provincia, foglio,
                                      Join(nomi, QStringLiteral(",")));
    const QString chiave = QStringLiteral("6|PARTICELLA|");
    for (const ParticellaDaCompletare& p : particelle) {
        QString riga = RigaParticellaVuota(p.nome);
        for (const QString& r : righe)
            if (r.contains(chiave + p.nome + u'|')) riga = r;
        QString classe = QStringLiteral("00"), descrizione = p.descrizione;
        UnisciParticella(righe,
                         RicalcolaParticella(riga, classe, descrizione, p.superficie, tipoLavoro));
    }
    return righe;
}

bool SalvaAutoallestito(Stato& stato, const QString& nomeEstratto, const QStringList& righe) {
    return ConTrappola(stato, QStringLiteral("SalvaAutoallestito"), [&] {
        QString testo;
        for (const QString& r : righe) testo += r + CRLF;
        ScriviTesto(PercorsoEstratto(stato, nomeEstratto), testo);
    });
}

} // namespace tavolet
