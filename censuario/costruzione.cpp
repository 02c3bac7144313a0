#include "costruzione.h"

#include "errore.h"
#include "piattaforma.h"
#include "righe_censuarie.h"
#include "stato.h"
#include "testata.h"
#include "testo.h"

namespace tavolet {

namespace {

QString Area9(const QString& area) {
    return Right(QStringLiteral("00000000000000") + area, 9);
}

} // namespace

QStringList ModelloNuovaCostruzione(const CampiParticella& p) {
    ControllaParticella(p);
    QStringList m = {kTitoloCensuario, RigaTesta(kModelloStralcio, QStringLiteral("003")),
                     kRigaONuovaCostruzione, kRigaSNuovaCostruzione, kRigaCNuovaCostruzione};
    const QString numero = Left(p.Mappale + Space(5), 5);
    ScriviInPosizione(m[2], 5, numero);
    ScriviInPosizione(m[3], 5, numero);
    ScriviInPosizione(m[2], 24, Area9(p.SupCatastale));
    ScriviInPosizione(m[4], 24, Area9(p.SupCatastale));
    ScriviInPosizione(m[2], 46, p.CodiceQualita);
    ScriviInPosizione(m[2], 50, Val(p.CodiceQualita) < 200 ? p.Classe : Space(2));
    return m;
}

QStringList ModelloVariazione(const CampiParticella& p) {
    ControllaParticella(p);
    QStringList m = {kTitoloCensuario, RigaTesta(kModelloStralcio, QStringLiteral("002")),
                     kRigaOVariazione, kRigaVVariazione};
    const QString numero = Left(p.Mappale + Space(5), 5);
    ScriviInPosizione(m[2], 5, numero);
    ScriviInPosizione(m[3], 5, numero);
    ScriviInPosizione(m[2], 24, Area9(p.SupCatastale));
    ScriviInPosizione(m[3], 24, Area9(p.SupCatastale));
    ScriviInPosizione(m[2], 46, p.CodiceQualita);
    if (Val(p.CodiceQualita) < 200) ScriviInPosizione(m[2], 50, p.Classe);
    return m;
}

QStringList ListaIdentificativi() {
    QStringList l;
    for (int i = 0; i <= 25; ++i) l << QStringLiteral("AA") + QChar(u'A' + i);
    return l;
}

void ScegliIdentificativo(QStringList& modello, const QString& identificativo) {
    if (modello.size() > 4) ScriviInPosizione(modello[4], 18, identificativo);
}

void InvertiFlagModello(QStringList& modello) {
    if (modello.size() < 3) return;
    const QString flag = Mid(modello[2], 34, 2) == QStringLiteral("SN") ? QStringLiteral("SR")
                                                                        : QStringLiteral("SN");
    ScriviInPosizione(modello[2], 34, flag);
    ScriviInPosizione(modello.last(), 34, flag);
}

void AggiungiMemoNuovaCostruzione(QStringList& memo, const QStringList& modello) {
    // A parcel that was refused left no preview: nothing to add.
    if (modello.size() < 3) return;
    if (memo.isEmpty()) {
        memo += modello;
        return;
    }
    memo += modello.mid(2);
    ImpostaConteggioTesta(memo, Conteggio3(int(memo.size()) - 2));
}

void AggiungiMemoVariazione(QStringList& memo, const QStringList& modello) {
    if (modello.size() < 3) return;
    if (memo.isEmpty()) {
        memo += modello;
        return;
    }
    int righeDopoTesta = -1;
    for (const QString& riga : memo) {
        if (riga.contains(QStringLiteral("3SPC")))
            righeDopoTesta = 0;
        else if (righeDopoTesta >= 0)
            ++righeDopoTesta;
    }
    if (righeDopoTesta < 0) {
        memo << modello.value(1);
        righeDopoTesta = 0;
    }
    for (int i = 2; i < modello.size(); ++i) {
        memo << modello[i];
        ++righeDopoTesta;
    }
    for (QString& riga : memo)
        if (riga.contains(QStringLiteral("3SPC")))
            ScriviInPosizione(riga, 9, Conteggio3(righeDopoTesta), 3);
}

void RimuoviRigaMemo(QStringList& memo, int indice) {
    if (memo.size() < 2 || indice < 0 || indice >= memo.size()) return;
    memo.removeAt(indice);
    if (memo.size() >= 2) ImpostaConteggioTesta(memo, Conteggio3(int(memo.size()) - 2));
}

bool SostituisciCensuario(Stato& stato, const QStringList& memo, const QString& tag) {
    if (memo.size() < 3) {
        stato.piattaforma->Messaggio(
            QStringLiteral("Nessuna informazone da aggiungere al Libretto!"),
            QStringLiteral("Memo Vuoto"), Icona::Informazione);
        return false;
    }
    return ConTrappola(stato, tag, [&] {
        DecoZeroNove(stato);
        stato.doc.TestoLibretto = AccodaRighe(SenzaRigheCensuarie(stato.doc.TestoLibretto), memo);
    });
}

} // namespace tavolet
