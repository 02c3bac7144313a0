#include "dapregeo.h"

#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "ponticello.h"
#include "righe.h"
#include "shell.h"
#include "stato.h"
#include "testo.h"

#include <cmath>

namespace tavolet {

namespace {

// A value the runtime would take as a number: the whole trimmed text is one.
bool Numerico(const QString& testo) {
    const QString t = Trim(testo);
    if (t.isEmpty()) return false;
    bool ok = false;
    const double v = t.toDouble(&ok);
    return ok && std::isfinite(v);
}

QString Cella(const QStringList& riga, int i) {
    return riga.value(i);
}

// The lines of a result file; a last line end does not make an empty row.
QStringList RigheRisultato(const QString& percorso) {
    return RigheDiTesto(LeggiRisultato(percorso));
}

} // namespace

QStringList RigaAtto(const QString& riga) {
    const QStringList f = Split(riga, QStringLiteral("|"));
    return {f.value(0),  f.value(1),          f.value(2),
            f.value(12), f.value(9),          f.value(10),
            f.value(3),  QStringLiteral(" "), ChiaveAtto(f.value(1), f.value(2))};
}

QStringList RigaPunto(const QString& riga) {
    // The commas become the grid's cell separators: the first values fall in Nome, Nord, Est,
    // Quota, a fifth in Descrizione, any further one nowhere.
    QStringList celle =
        Split(Replace(riga, QStringLiteral(","), QStringLiteral("\t")), QStringLiteral("\t"))
            .mid(0, kColonnePunti.size());
    while (celle.size() < kColonnePunti.size()) celle.append(QString());
    return celle;
}

void CaricaPregeo800(Stato& stato, DaPregeo& dp) {
    ConTrappola(stato, dp.Caption + QStringLiteral(" CaricaPregeo800"), [&] {
        dp.Atti.clear();
        ElencoLibretti(stato);
        stato.TagRoutine = dp.Caption + QStringLiteral(" CaricaPregeo800");
        const QString elenco = LeggiRisultato(PercorsoElencoLibretti(stato));
        stato.piattaforma->Messaggio(elenco, dp.Caption, Icona::Nessuna);
        for (const QString& riga : RigheDiTesto(elenco)) dp.Atti.append(RigaAtto(riga));
        dp.RigheLibretto.clear();
    });
}

void AssegnaDescrizione(DaPregeo& dp, const QString& nome, const QString& descrizione) {
    if (Trim(descrizione).isEmpty()) return;
    const QString cercato = Trim(nome);
    for (QStringList& punto : dp.Punti)
        if (Trim(punto[kNome]) == cercato && Trim(punto[kDescrizione]).isEmpty())
            punto[kDescrizione] = descrizione;
}

void CaricaDescrizione(DaPregeo& dp) {
    const QString note = QStringLiteral("Note:");
    for (int i = 1; i < dp.RigheLibretto.size(); ++i) {
        const QString& riga = dp.RigheLibretto[i];
        const int tipo = TipoRiga(riga);
        if (tipo != 1 && tipo != 2 && tipo != 4 && tipo != 5) continue;
        const RigaScomposta r = ScomponiRiga(riga);
        const int conta = r.NumeroCampi;
        const QString ultimo = r.Campo(conta);
        const bool virgola = riga.contains(u',');
        QString descrizione;
        if (Numerico(ultimo)) {
            descrizione = note;
        } else {
            // What the shape of the row shows as planimetric is marked.
            bool planimetrico = false;
            if (tipo == 1)
                planimetrico = !virgola && conta == 2;
            else if (tipo == 2)
                planimetrico = !virgola && conta < 6;
            else
                planimetrico = conta == 4;
            descrizione = planimetrico ? kPlanimetrico + ultimo : ultimo;
        }
        AssegnaDescrizione(dp, r.Campo(1), descrizione);
    }
}

QString TestoGrafica(const DaPregeo& dp) {
    QString testo;
    for (const QStringList& p : dp.Punti)
        testo += Replace(QStringLiteral("8|") + Cella(p, kNome) + u'|' + Cella(p, kNord) + u'|' +
                             Cella(p, kEst) + u'|',
                         QStringLiteral(","), QStringLiteral(".")) +
                 CRLF;
    for (const QString& riga : dp.RigheLibretto)
        if (TipoRiga(riga) == 7) testo += riga + CRLF;
    return testo;
}

QString MostraAtto(Stato& stato, DaPregeo& dp, const QString& chiave) {
    QString elab;
    const QString tag = dp.Caption + QStringLiteral(" MostraListaPregeo");
    ConTrappola(stato, tag, [&] {
        dp.Punti.clear();
        dp.RigheLibretto.clear();
        EsportaTutto(stato, chiave);
        stato.TagRoutine = tag + u'1';
        dp.RigheLibretto = RigheRisultato(PercorsoEsportazione(stato, kEsportaLibretto));
        stato.TagRoutine = tag + u'2';
        const QString associa = PercorsoEsportazione(stato, kAssociaEstratto);
        if (EsisteFile(associa)) stato.doc.NomeEstratto = RigheRisultato(associa).value(0);
        stato.TagRoutine = tag + u'3';
        dp.RigheProposta = RigheRisultato(PercorsoEsportazione(stato, kEsportaProposta));
        stato.TagRoutine = tag + u'4';
        for (const QString& r : RigheRisultato(PercorsoEsportazione(stato, kEsportaPunti)))
            dp.Punti.append(RigaPunto(r));
        stato.TagRoutine = tag + u'5';
        CaricaDescrizione(dp);
        stato.TagRoutine = tag + u'6';
        const QString testo = TestoGrafica(dp);
        if (testo.size() > 10) {
            elab = stato.amb.CartellaLavoro + QStringLiteral("\\temp\\elab.sur");
            ScriviTesto(elab, testo);
        }
    });
    return elab;
}

QString MostraListaPregeo(Stato& stato, DaPregeo& dp, int riga) {
    if (riga < 0 || riga >= dp.Atti.size()) {
        dp.Punti.clear();
        dp.RigheLibretto.clear();
        return {};
    }
    const QStringList& atto = dp.Atti[riga];
    return MostraAtto(stato, dp, ChiaveAtto(Cella(atto, 1), Cella(atto, 2)));
}

QString TestoRighe8(const DaPregeo& dp) {
    const QString figura = QStringLiteral("############0.000");
    QString testo;
    for (const QStringList& p : dp.Punti) {
        const QString riga = QStringLiteral("8|") + Trim(Cella(p, kNome)) + u'|' +
                             Formato(Val(Cella(p, kNord)), figura) + u'|' +
                             Formato(Val(Cella(p, kEst)), figura) + u'|' +
                             Replace(Cella(p, kDescrizione), kPlanimetrico, {}) + u'|';
        testo += Replace(riga, QStringLiteral(","), QStringLiteral(".")) + CRLF;
    }
    for (const QString& riga : dp.RigheLibretto)
        if (TipoRiga(riga) == 7) testo += riga + CRLF;
    return testo;
}

void ImportaRighe8InLibretto(Stato& stato, const DaPregeo& dp) {
    ConTrappola(stato, dp.Caption + QStringLiteral(" ImportaRighe8InLibretto"), [&] {
        QString& libretto = stato.doc.TestoLibretto;
        if (!libretto.isEmpty() && !libretto.endsWith(u'\n')) libretto += CRLF;
        libretto += TestoRighe8(dp);
        CaricaLibrettoInList1(stato);
        stato.TagRoutine = QStringLiteral("Decozero_129 ");
    });
}

QString EsportaElaborazioneCad(Stato& stato, const DaPregeo& dp) {
    QString file;
    ConTrappola(stato, dp.Caption + QStringLiteral(" EsportaElaborazione"), [&] {
        if (dp.Punti.isEmpty()) {
            stato.piattaforma->Messaggio(QStringLiteral("Nessun punto elaborato da esportare!"),
                                         dp.Caption, Icona::Informazione);
            return;
        }
        QString testo;
        for (const QStringList& p : dp.Punti) {
            QStringList celle;
            for (int c = kNome; c <= kDescrizione; ++c)
                celle.append(
                    Trim(Replace(c == kDescrizione ? Replace(p[c], kPlanimetrico, {}) : p[c],
                                 QStringLiteral(","), QStringLiteral("."))));
            testo += Join(celle, QStringLiteral(",")) + CRLF;
        }
        const QString percorso =
            PercorsoEsportazione(stato, QStringLiteral("ELABORAZIONE_CAD.TXT"));
        ScriviTesto(percorso, testo);
        file = percorso;
        ShellInfinita(stato, stato.amb.CartellaProgramFiles + kConvertitoreCad +
                                 QStringLiteral(" \"") + percorso + u'"');
    });
    return file;
}

} // namespace tavolet
