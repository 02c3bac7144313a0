#include "fusione.h"

#include "errore.h"
#include "file_testo.h"
#include "particelle.h"
#include "righe_censuarie.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

namespace {

QString RigaO(const QString& prima, const QStringList& tabella) {
    const QStringList f = Split(prima, QStringLiteral("|"));
    QString riga = QStringLiteral("6|O|") + Left(f.value(2) + Space(5), 5) +
                   QStringLiteral("|000|  |     |") +
                   Right(QStringLiteral("000000000") + f.value(5), 9) +
                   QStringLiteral("|SN|  |     |282|  |                 |");
    if (f.value(3) != QStringLiteral("00") && !f.value(3).isEmpty())
        ScriviInPosizione(riga, 50, Right(f.value(3), 1));
    const QString codice = CodiceBreveDaQualita(tabella, f.value(4));
    if (!codice.isEmpty()) ScriviInPosizione(riga, 46, codice);
    return riga;
}

} // namespace

QStringList AnteprimaFusione(const QStringList& memo, const OpzioniFusione& o,
                             const QStringList& tabella) {
    for (const QString& riga : o.particelle)
        ControllaParticella(CampiDaRigaParticella(riga, tabella));
    QString massima = QStringLiteral("@");
    for (const QString& riga : memo) {
        if (!riga.startsWith(QStringLiteral("6|S|"))) continue;
        const QString gruppo = Trim(Split(riga, QStringLiteral("|")).value(8));
        if (gruppo > massima) massima = gruppo;
    }
    const QChar prossima = QChar(massima.isEmpty() ? u'A' : massima.at(0).unicode() + 1);
    const QString lettera(prossima);
    QString id = lettera + lettera + lettera + Space(2);
    const int n = int(o.particelle.size());
    if (o.MantieniNumerazione && n > 0)
        id = Left(Split(o.particelle.last(), QStringLiteral("|")).value(2) + Space(8), 5);

    QStringList a;
    a << kTitoloCensuario;
    const int conteggio = o.MantieniNumerazione ? 2 * n : 2 * n + 1;
    a << RigaTesta(o.tm ? kModelloStralcio : kModelloAusiliario, Conteggio3(conteggio));

    int ultima = n - 2;
    if (Val(id) > 0) ultima = n - 1;
    if (o.MantieniNumerazione) ultima = n - 2;
    for (int i = 0; i <= ultima && i < n; ++i) {
        const QStringList f = Split(o.particelle[i], QStringLiteral("|"));
        a << RigaO(o.particelle[i], tabella);
        a << QStringLiteral("6|S|") + Left(f.value(2) + Space(5), 5) +
                 QStringLiteral("|000|  |     |000000000|  |") + lettera + QStringLiteral(" |") +
                 id + QStringLiteral("|000|  |                 |");
    }
    if (n > 0) {
        const QString& prima = o.particelle.last();
        const QStringList f = Split(prima, QStringLiteral("|"));
        a << RigaO(prima, tabella);
        const QString numero = Left(f.value(2) + Space(5), 5);
        const QString area = Right(QStringLiteral("000000000") + f.value(5), 9);
        if (o.MantieniNumerazione) {
            a << QStringLiteral("6|V|") + numero + QStringLiteral("|000|  |     |") + area +
                     QStringLiteral("|SN|") + lettera + QStringLiteral(" |") + id +
                     QStringLiteral("|282|  |                 |");
        } else {
            a << QStringLiteral("6|S|") + numero +
                     QStringLiteral(
                         "|000|  |     |000000000|  |  |     |000|  |                 |");
            a << QStringLiteral("6|C|     |000|a |") + id + u'|' + area + QStringLiteral("|SN|") +
                     lettera + QStringLiteral(" |") + id +
                     QStringLiteral("|282|  |                 |");
        }
    }
    if (o.SiglaProvincia == QStringLiteral("GO")) {
        for (int k = 2; k < a.size(); ++k) {
            QStringList p = Split(a[k], QStringLiteral("|"));
            if (p.size() < 13) throw Errore(9);
            p[2] += Space(5);
            p[5] += Space(5);
            p[9] += Space(5);
            p[12] = Space(2);
            a[k] = Join(p, QStringLiteral("|"));
        }
    }
    return a;
}

QStringList AnteprimaTMFusione(Stato& stato, const QStringList& memo,
                               const QStringList& fileInFusione, bool mantieni, bool tm) {
    QStringList a;
    ConTrappola(stato, QStringLiteral("AnteprimaTMFusione"), [&] {
        OpzioniFusione o;
        for (const QString& nome : fileInFusione) o.particelle << LeggiRigaParticella(stato, nome);
        o.MantieniNumerazione = mantieni;
        o.tm = tm;
        o.SiglaProvincia = stato.testata.SiglaProvinciaLibretto;
        a = AnteprimaFusione(memo, o, stato.amb.TabellaQualita);
    });
    return a;
}

void AggiungiMemoFusione(Stato& stato, QStringList& memo, QStringList& anteprima) {
    ConTrappola(stato, QStringLiteral("AggiungiMemoFusione"), [&] {
        if (!memo.isEmpty()) {
            memo += anteprima.mid(2);
            ImpostaConteggioTesta(memo, Conteggio3(int(memo.size()) - 2));
        } else {
            memo += anteprima;
        }
        anteprima.clear();
        ScriviFileCensuario(stato, QStringLiteral("Fusione.CEN"), TestoRighe(memo));
    });
}

QStringList CaricaMemoFusione(Stato& stato) {
    QStringList memo;
    ConTrappola(stato, QStringLiteral("BV_TMFusione"), [&] {
        const QString percorso = PercorsoCensuario(stato, kFileFusione);
        if (!EsisteFile(percorso)) ScriviFileCensuario(stato, kFileFusione, QString());
        memo = LeggiRighe(percorso);
    });
    return memo;
}

void AggiungiFusioneALibretto(Stato& stato, QStringList& memo) {
    QStringList righe = Split(stato.doc.TestoLibretto, CRLF);
    for (int i = int(righe.size()) - 1; i >= 0; --i) {
        if (!RigaCensuaria(righe[i])) continue;
        memo.prepend(righe[i]);
        righe[i].clear();
    }
    const QString testo = CompattaRighe(Join(righe, CRLF));
    for (int i = int(memo.size()) - 1; i >= 1; --i)
        if (memo[i] == kTitoloCensuario) memo.removeAt(i);
    stato.doc.TestoLibretto = AccodaRighe(testo, memo);
}

void SostituisciFusioneInLibretto(Stato& stato, const QStringList& memo) {
    stato.doc.TestoLibretto = AccodaRighe(SenzaRigheCensuarie(stato.doc.TestoLibretto), memo);
}

} // namespace tavolet
