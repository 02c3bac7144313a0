#include "proposta.h"

#include "errore.h"
#include "file_testo.h"
#include "ponticello.h"
#include "righe.h"
#include "righe_censuarie.h"
#include "shell.h"
#include "stato.h"
#include "testata.h"
#include "testo.h"

namespace tavolet {

namespace {

QString PenultimaParte(const QString& riga) {
    const QStringList parti = Split(riga, QStringLiteral("|"));
    return parti.size() >= 2 ? parti[parti.size() - 2] : QString();
}

bool Contorno(const QString& riga) {
    return Val(riga) == 7 && Val(Mid(riga, 3)) > 0;
}

bool HaSegno(const QString& testo) {
    return testo.contains(u'+') || testo.contains(u'-');
}

} // namespace

AreeProposta AreeDaProposta(const QString& testoProposta) {
    const QStringList righe = RigheDiTesto(testoProposta);
    QStringList aree;
    for (const QString& riga : righe) {
        if (riga.contains(QStringLiteral("ESTRA"), Qt::CaseInsensitive)) {
            aree.append(riga);
        } else if (Contorno(riga)) {
            if (Val(PenultimaParte(riga)) == 0) continue;
            const RigaScomposta r = ScomponiRiga(riga);
            aree.append(r.Campo(r.NumeroCampi - 2) + QStringLiteral(" = ") +
                        r.Campo(r.NumeroCampi));
        }
    }

    QStringList modello;
    QString areaPadre; // kept from row to row on purpose
    bool aggiornata = false;
    for (const QString& riga : righe) {
        if (!aggiornata && riga.contains(QStringLiteral("AGGIOR"))) aggiornata = true;
        if (!aggiornata) continue;
        const QStringList parti = Split(riga, QStringLiteral("|"));
        if (parti.size() < 2 || Val(parti[0]) != 7 || Val(parti[1]) <= 0 ||
            Val(parti[parti.size() - 2]) == 0)
            continue;
        const RigaScomposta r = ScomponiRiga(riga);
        const QString nome = r.Campo(r.NumeroCampi - 1);
        for (const QString& voce : aree) {
            if (voce.startsWith(nome + QStringLiteral(" ="))) {
                areaPadre = Trim(Mid(voce, InStr(voce, QStringLiteral("=")) + 1));
                break;
            }
        }
        const QString elemento = nome + QStringLiteral(" = ") + areaPadre + u'_' +
                                 r.Campo(r.NumeroCampi - 2) + QStringLiteral(" = ") +
                                 r.Campo(r.NumeroCampi);
        if (!HaSegno(elemento)) modello.append(elemento);
    }

    AreeProposta esito;
    bool dentro = false;
    for (const QString& voce : aree) {
        if (voce.contains(QStringLiteral(" AGGIORNATO|"))) dentro = true;
        if (dentro && !HaSegno(voce)) esito.aree.append(voce);
    }
    esito.modello = modello;
    return esito;
}

void ScriviFileAree(Stato& stato, const QString& testoProposta) {
    const AreeProposta a = AreeDaProposta(testoProposta);
    ScriviFileCensuario(stato, kFileAree, TestoRighe(a.aree));
    ScriviFileCensuario(stato, kFileModello, TestoRighe(a.modello));
}

void EsplodiAreeProposta(Stato& stato) {
    ConTrappola(stato, QStringLiteral("EsplodiAreeProposta"), [&] {
        DecoZeroNove(stato);
        stato.TagRoutine = QStringLiteral("EsplodiAreeProposta");
        // The key here is the head's year and protocol as they stand.
        ShellInfinita(stato, RigaEsportaTutto(stato, stato.testata.AnnoProtocollo), 0);
        stato.TagRoutine = QStringLiteral("EsplodiAreeProposta");
        const QString esportata =
            stato.amb.CartellaLavoro + QStringLiteral("\\TEMP\\ESPORTA_PROPOSTA.txt");
        QString testo;
        if (EsisteFile(esportata)) testo = TestoRighe(LeggiRighe(esportata));
        const QString copia = PercorsoCensuario(stato, kFileTempProposta);
        ScriviFileCensuario(stato, kFileTempProposta, testo + CRLF);
        if (!EsisteFile(copia)) return;
        ScriviFileAree(stato, LeggiTesto(copia));
    });
}

bool LeggiAreeCensuario(Stato& stato, QStringList& aree) {
    aree.clear();
    const QString percorso = PercorsoCensuario(stato, kFileAree);
    if (!EsisteFile(percorso)) return false;
    aree = LeggiRighe(percorso);
    if (!aree.isEmpty()) aree.removeFirst();
    return true;
}

QStringList LeggiModelloCensuario(Stato& stato) {
    const QString percorso = PercorsoCensuario(stato, kFileModello);
    return EsisteFile(percorso) ? LeggiRighe(percorso) : QStringList();
}

} // namespace tavolet
