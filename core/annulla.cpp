#include "annulla.h"

namespace tavolet {

Istantanea FotografaDocumento(const Stato& stato) {
    const Documento& d = stato.doc;
    Istantanea i;
    i.righe = d.RigheLibretto.Righe();
    i.selezionate = d.RigheLibretto.Selezionate();
    i.corrente = d.RigheLibretto.Corrente();
    i.TestoLibretto = d.TestoLibretto;
    i.Riga0 = d.Riga0;
    i.Riga9 = d.Riga9;
    i.PercorsoLibretto = d.PercorsoLibretto;
    i.TestoPossessori = d.TestoPossessori;
    i.NomeEstratto = d.NomeEstratto;
    i.CodiceFiscaleTecnico = d.CodiceFiscaleTecnico;
    i.NumeroIscrizioneAlbo = d.NumeroIscrizioneAlbo;
    i.TestoProposta = d.TestoProposta;
    i.NomeMisurate = d.NomeMisurate;
    i.testata = stato.testata;
    return i;
}

void RipristinaDocumento(Stato& stato, const Istantanea& i) {
    Documento& d = stato.doc;
    ListaRighe& l = d.RigheLibretto;
    l.Svuota();
    for (const QString& r : i.righe) l.Aggiungi(r);
    for (int s : i.selezionate)
        if (s >= 0 && s < l.Conta()) l.Seleziona(s, true);
    l.ImpostaCorrente(i.corrente);
    d.TestoLibretto = i.TestoLibretto;
    d.Riga0 = i.Riga0;
    d.Riga9 = i.Riga9;
    d.PercorsoLibretto = i.PercorsoLibretto;
    d.TestoPossessori = i.TestoPossessori;
    d.NomeEstratto = i.NomeEstratto;
    d.CodiceFiscaleTecnico = i.CodiceFiscaleTecnico;
    d.NumeroIscrizioneAlbo = i.NumeroIscrizioneAlbo;
    d.TestoProposta = i.TestoProposta;
    d.NomeMisurate = i.NomeMisurate;
    stato.testata = i.testata;
}

bool DocumentoCambiato(const Istantanea& a, const Istantanea& b) {
    return a.righe != b.righe || a.PercorsoLibretto != b.PercorsoLibretto ||
           a.TestoPossessori != b.TestoPossessori || a.NomeEstratto != b.NomeEstratto ||
           a.CodiceFiscaleTecnico != b.CodiceFiscaleTecnico ||
           a.NumeroIscrizioneAlbo != b.NumeroIscrizioneAlbo || a.TestoProposta != b.TestoProposta ||
           a.NomeMisurate != b.NomeMisurate;
}

namespace {

QString Righe(qsizetype n, const char* una, const char* molte) {
    return n == 1 ? QStringLiteral("1 riga ") + QString::fromUtf8(una)
                  : QString::number(n) + QStringLiteral(" righe ") + QString::fromUtf8(molte);
}

} // namespace

QString DescriviCambiamento(const Istantanea& a, const Istantanea& b) {
    if (a.PercorsoLibretto != b.PercorsoLibretto)
        return b.PercorsoLibretto.isEmpty() ? QStringLiteral("Nuovo libretto")
                                            : QStringLiteral("Aperto ") + b.PercorsoLibretto;
    const qsizetype prima = a.righe.size(), dopo = b.righe.size();
    if (dopo < prima) return Righe(prima - dopo, "eliminata", "eliminate");
    if (dopo > prima) return Righe(dopo - prima, "aggiunta", "aggiunte");
    qsizetype diverse = 0;
    for (qsizetype i = 0; i < dopo; ++i)
        if (a.righe[i] != b.righe[i]) ++diverse;
    if (diverse > 0) return Righe(diverse, "modificata", "modificate");
    return QStringLiteral("Dati del libretto modificati");
}

QString PuntoDiAnnullamento(Annullamenti& a, const Stato& stato, const QString& descrizione) {
    Istantanea ora = FotografaDocumento(stato);
    if (!a.base) {
        a.base = std::move(ora);
        return QString();
    }
    if (!DocumentoCambiato(*a.base, ora)) {
        // The selection follows the operator without making a step.
        a.base = std::move(ora);
        return QString();
    }
    Istantanea prima = std::move(*a.base);
    prima.descrizione = descrizione.isEmpty() ? DescriviCambiamento(prima, ora) : descrizione;
    const QString fatto = prima.descrizione;
    a.indietro.append(std::move(prima));
    while (a.indietro.size() > Annullamenti::kPassiMassimi) a.indietro.removeFirst();
    a.avanti.clear();
    a.base = std::move(ora);
    return fatto;
}

std::optional<QString> Annulla(Annullamenti& a, Stato& stato) {
    PuntoDiAnnullamento(a, stato);
    if (a.indietro.isEmpty()) return std::nullopt;
    Istantanea prima = a.indietro.takeLast();
    Istantanea ora = FotografaDocumento(stato);
    ora.descrizione = prima.descrizione;
    a.avanti.append(std::move(ora));
    RipristinaDocumento(stato, prima);
    const QString fatto = prima.descrizione;
    a.base = std::move(prima);
    return fatto;
}

std::optional<QString> Ripeti(Annullamenti& a, Stato& stato) {
    // A change made after the last undo has already dropped the steps forward.
    PuntoDiAnnullamento(a, stato);
    if (a.avanti.isEmpty()) return std::nullopt;
    Istantanea dopo = a.avanti.takeLast();
    Istantanea ora = FotografaDocumento(stato);
    ora.descrizione = dopo.descrizione;
    a.indietro.append(std::move(ora));
    RipristinaDocumento(stato, dopo);
    const QString fatto = dopo.descrizione;
    a.base = std::move(dopo);
    return fatto;
}

void AzzeraAnnullamenti(Annullamenti& a, const Stato& stato) {
    a.indietro.clear();
    a.avanti.clear();
    a.base = FotografaDocumento(stato);
}

} // namespace tavolet
