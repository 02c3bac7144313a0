#include "opzioni.h"

#include "libretto.h"

namespace tavolet {

namespace {

QString UnoZero(bool b) {
    return b ? QStringLiteral("1") : QStringLiteral("0");
}

QString Vero(bool b) {
    return b ? QStringLiteral("True") : QStringLiteral("False");
}

} // namespace

const QStringList& PrecisioniAngolari() {
    static const QStringList p = {QStringLiteral("0.005 (50cc)"), QStringLiteral("0.002 (20cc)"),
                                  QStringLiteral("0.001 (10cc)"), QStringLiteral("0.0005 (5cc)"),
                                  QStringLiteral("0.0002 (2cc)"), QStringLiteral("0.0001 (1cc)")};
    return p;
}

double ValorePrecisione(int indice) {
    if (indice < 0 || indice >= PrecisioniAngolari().size()) return 0;
    return Val(PrecisioniAngolari()[indice]);
}

QString NomeOrientamento(Orientamento o) {
    switch (o) {
    case Orientamento::TuttiAzimut:
        return QStringLiteral("Calcola Tutti Azimut");
    case Orientamento::StazionePrecedente:
        return QStringLiteral("Azzera su Stazione Precedente");
    case Orientamento::Libretto:
        return QStringLiteral("Orienta su Lib.Misure");
    default:
        return QString();
    }
}

QString PercorsoOpzioniLetto(const Stato& stato) {
    return stato.amb.CartellaDocumenti + QStringLiteral("\\Bravanta\\LibrettoDaDisegno.txt");
}

QString PercorsoOpzioniScritto(const Stato& stato) {
    return stato.amb.CartellaDocumenti + QStringLiteral("\\Bravanta\\LibrettoDaDisegno.TXT");
}

void LeggiOpzioni(const QString& testo, OpzioniLibretto& o) {
    for (const QString& riga : RigheDiTesto(testo)) {
        const QStringList c = Split(riga, QStringLiteral(","));
        const QString& chiave = c[0];
        const QString valore = c.value(1);
        const bool uno = Val(valore) != 0;
        const bool vero = valore == u"True";
        auto orienta = [&](Orientamento quale) {
            if (vero)
                o.orientamento = quale;
            else if (o.orientamento == quale)
                o.orientamento = Orientamento::Nessuno;
        };
        if (chiave == u"LIBRETTO_AUTOMATICO_MANTIENI_RIGHE4")
            o.MantieniRighe4 = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_MANTIENI_3_7")
            o.Mantieni3_7 = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_MANTIENI_8")
            o.Mantieni8 = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_PUNTO_PLANIMETRICO")
            o.PuntoPlanimetrico = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_PUNTO_PLA_DISLIVELLO")
            o.DislivelloPlanimetrico = valore;
        else if (chiave == u"LIBRETTO_AUTOMATICO_ORIENTA_AZIMUT")
            orienta(Orientamento::TuttiAzimut);
        else if (chiave == u"LIBRETTO_AUTOMATICO_ORIENTA_PRECEDENTE")
            orienta(Orientamento::StazionePrecedente);
        else if (chiave == u"LIBRETTO_AUTOMATICO_ORIENTA_LIBRETTO")
            orienta(Orientamento::Libretto);
        else if (chiave == u"LIBRETTO_AUTOMATICO_INCREMENTO_CENTESIMALE")
            o.IncrementoCentesimale = vero;
        else if (chiave == u"LIBRETTO_AUTOMATICO_INCREMENTO_MILLESIMALE")
            o.IncrementoMillesimale = vero;
        else if (chiave == u"LIBRETTO_AUTOMATICO_MOSTRA_REPORT")
            o.MostraReport = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_COMMENTI_DUPLICATI")
            o.CommentiDuplicati = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_METTI_CS")
            o.MettiCS = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_ELIMINA_PUNTI_NOTE")
            o.EliminaPuntiNote = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_PF_DA_ESTRATTO")
            o.PFDaEstratto = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_MANTIENI_GPS")
            o.MantieniGPS = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_NOTE_MANCANTI")
            o.NoteMancanti = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_RIORDINO_FITTIZIO")
            o.RiordinoFittizio = uno;
        else if (chiave == u"LIBRETTO_AUTOMATICO_PRECISIONE_ANGOLARE") {
            const int i = ValIntero(valore);
            if (i >= 0 && i < PrecisioniAngolari().size()) o.PrecisioneAngolare = i;
        }
    }
}

QString TestoOpzioni(const OpzioniLibretto& o) {
    const QList<std::pair<const char*, QString>> righe = {
        {"LIBRETTO_AUTOMATICO_MANTIENI_RIGHE4", UnoZero(o.MantieniRighe4)},
        {"LIBRETTO_AUTOMATICO_MANTIENI_3_7_", UnoZero(o.Mantieni3_7)},
        {"LIBRETTO_AUTOMATICO_MANTIENI_8", UnoZero(o.Mantieni8)},
        {"LIBRETTO_AUTOMATICO_PUNTO_PLANIMETRICO", UnoZero(o.PuntoPlanimetrico)},
        {"LIBRETTO_AUTOMATICO_PUNTO_PLA_DISLIVELLO", o.DislivelloPlanimetrico},
        {"LIBRETTO_AUTOMATICO_ORIENTA_AZIMUT", Vero(o.orientamento == Orientamento::TuttiAzimut)},
        {"LIBRETTO_AUTOMATICO_ORIENTA_PRECEDENTE",
         Vero(o.orientamento == Orientamento::StazionePrecedente)},
        {"LIBRETTO_AUTOMATICO_ORIENTA_LIBRETTO", Vero(o.orientamento == Orientamento::Libretto)},
        {"LIBRETTO_AUTOMATICO_INCREMENTO_CENTESIMALE", Vero(o.IncrementoCentesimale)},
        {"LIBRETTO_AUTOMATICO_INCREMENTO_MILLESIMALE", Vero(o.IncrementoMillesimale)},
        {"LIBRETTO_AUTOMATICO_MOSTRA_REPORT", UnoZero(o.MostraReport)},
        {"LIBRETTO_AUTOMATICO_COMMENTI_DUPLICATI", UnoZero(o.CommentiDuplicati)},
        {"LIBRETTO_AUTOMATICO_METTI_CS", UnoZero(o.MettiCS)},
        {"LIBRETTO_AUTOMATICO_ELIMINA_PUNTI_NOTE", UnoZero(o.EliminaPuntiNote)},
        {"LIBRETTO_AUTOMATICO_PF_DA_ESTRATTO", UnoZero(o.PFDaEstratto)},
        {"LIBRETTO_AUTOMATICO_MANTIENI_GPS", UnoZero(o.MantieniGPS)},
        {"LIBRETTO_AUTOMATICO_NOTE_MANCANTI", UnoZero(o.NoteMancanti)},
        {"LIBRETTO_AUTOMATICO_RIORDINO_FITTIZIO", UnoZero(o.RiordinoFittizio)},
        {"LIBRETTO_AUTOMATICO_PRECISIONE_ANGOLARE", QString::number(o.PrecisioneAngolare)}};
    QString testo;
    for (const auto& [chiave, valore] : righe)
        testo += QString::fromLatin1(chiave) + u',' + valore + CRLF;
    return testo;
}

void CaricaCFG(Stato& stato, OpzioniLibretto& o) {
    ConTrappola(stato, QStringLiteral("CaricaCFG"), [&] {
        const QString percorso = PercorsoOpzioniLetto(stato);
        if (!EsisteFile(percorso)) return;
        LeggiOpzioni(LeggiTesto(percorso), o);
    });
}

void SalvaCFG(Stato& stato, const OpzioniLibretto& o) {
    ConTrappola(stato, QStringLiteral("SalvaCFG"), [&] {
        CreaCartella(stato.amb.CartellaDocumenti + QStringLiteral("\\Bravanta"));
        ScriviTesto(PercorsoOpzioniScritto(stato), TestoOpzioni(o));
    });
}

} // namespace tavolet
