// RicomponiLibretto and the commands on the groups that the regrouping form offers.
#include "riordino.h"

#include "documento.h"
#include "errore.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

namespace {

// The fields that Gorizia's office wants padded to ten characters, and the field it wants
// blank, in a row of the censuary model.
QString CensuarioPerGorizia(const QString& riga) {
    QStringList campi = Split(riga, QStringLiteral("|"));
    if (campi.size() < 13) throw Errore(9);
    for (int i : {2, 5, 9}) campi[i] = Left(campi[i] + Space(9), 10);
    campi[12] = Space(2);
    return Join(campi, QStringLiteral("|"));
}

} // namespace

bool RicomponiLibretto(Stato& stato, const GruppiLibretto& g) {
    return ConTrappola(stato, QStringLiteral("RicomponiLibretto"), [&] {
        QStringList totale;
        totale << g.GruppoRiga0 << g.GruppoRiga9 << g.GruppoCommento << g.GruppoAppunti
               << g.GruppoPoligonali << g.GruppoGPS << g.GruppoStazioni << g.GruppoRighe45
               << g.GruppoContorni;
        // A Relazione of nothing but its two markers goes.
        if (g.GruppoRelazione.size() > 2) totale << g.GruppoRelazione;
        totale << g.GruppoFiduciali;

        stato.TagRoutine = QStringLiteral("RicomponiLibretto_Censuario");
        if (stato.testata.SiglaProvinciaLibretto == u"GO") {
            for (const QString& r : g.GruppoCensuario) totale << CensuarioPerGorizia(r);
        } else {
            totale << g.GruppoCensuario;
        }
        totale << g.GruppoProposta;

        stato.TagRoutine = QStringLiteral("RicomponiLibretto_Doppie");
        for (int i = int(totale.size()) - 1; i >= 1; --i)
            if (totale[i].compare(totale[i - 1], Qt::CaseInsensitive) == 0) totale.removeAt(i);

        QString testo;
        for (const QString& r : std::as_const(totale)) testo += r + CRLF;
        stato.doc.TestoLibretto = testo;
    });
}

void subRiordinoRighe(Stato& stato) {
    ConTrappola(stato, QStringLiteral("Decozero_116"), [&] {
        const GruppiLibretto g = EsplodiLibretto(stato);
        if (g.completo) RicomponiLibretto(stato, g);
        stato.TagRoutine = QStringLiteral("Decozero_116");
    });
    CaricaLibrettoInList1(stato);
}

const std::array<EliminazioneGruppo, 11>& EliminazioniGruppi() {
    static const std::array<EliminazioneGruppo, 11> tabella = {{
        {Gruppo::Poligonali, "Eliminazione Poligonali", "Eliminare Poligonali?", "Poligonali"},
        {Gruppo::Stazioni, "Eliminazione Stazioni", "Eliminare Stazioni-P.Battuti?",
         "Stazioni-P.Battuti"},
        {Gruppo::Righe45, "Eliminazione Righe 4-5", "Eliminare Righe 4-5?", "Righe 4-5"},
        {Gruppo::Contorni, "Eliminazione Contorni", "Eliminare Contorni?", "Contorni"},
        {Gruppo::Relazione, "Eliminazione Relazione Tecnica", "Eliminare Relazione Tecnica?",
         "Relazione Tecnica"},
        {Gruppo::Censuario, "Eliminazione Modello Censuario", "Eliminare Modello Censuario?",
         "Modello Censuario"},
        {Gruppo::Fiduciali, "Eliminazione Punti Fiduciali", "Eliminare Punti Fiduciali?",
         "Punti Fiduciali"},
        // The GPS button has always carried the title of the one before it.
        {Gruppo::GPS, "Eliminazione Punti Fiduciali", "Eliminare le Righe GPS?", "Righe GPS"},
        {Gruppo::Commento, "Eliminazione Riga Commento", "Eliminare commento?", "Riga Commento"},
        {Gruppo::Proposta, "Eliminazione Proposta di Aggiornamnto",
         "Eliminare la Proposta di Aggiornamento?", "Proposta di Aggiornamento"},
        {Gruppo::Appunti, "Eliminazione Appunti da Libretto", "Eliminare gli Appunti dal Libretto?",
         "Appunti da Libretto"},
    }};
    return tabella;
}

bool EliminaGruppo(Stato& stato, GruppiLibretto& gruppi, int pulsante) {
    if (pulsante < 0 || pulsante >= int(EliminazioniGruppi().size())) return false;
    const EliminazioneGruppo& e = EliminazioniGruppi()[pulsante];
    if (stato.piattaforma->Domanda(e.domanda, e.titolo, Pulsanti::SiNo, Risposta::No) !=
        Risposta::Si)
        return false;
    gruppi.Lista(e.gruppo).clear();
    return true;
}

QString TestoGruppoPerAppunti(const GruppiLibretto& gruppi, Gruppo g) {
    const QStringList& lista = gruppi.Lista(g);
    if (g == Gruppo::Riga0 || g == Gruppo::Riga9) return lista.value(0);
    QString testo;
    for (const QString& r : lista) testo += r + CRLF;
    return testo;
}

} // namespace tavolet
