// A generation run on a drawing text in a fresh Pregeo tree, for the tests.
#pragma once

#include "disegno.h"
#include "supporto.h"

namespace tavolet::test {

struct Generazione : ConPregeo {
    OpzioniLibretto o;
    QStringList rapporto;
    EsitoGenerazione esito;
    void SetUp() override {
        ConPregeo::SetUp();
        radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
        o.orientamento = Orientamento::StazionePrecedente;
        o.PrecisioneAngolare = 3;
        o.NoteMancanti = false;
        o.MostraReport = false;
    }
    // Generates from the drawing text with the old libretto; returns the rows written.
    QStringList Genera(const QString& lxc, const QStringList& vecchio = {}) {
        s.doc.TestoLibretto = vecchio.isEmpty() ? QString() : Join(vecchio, CRLF) + CRLF;
        CaricaLibrettoInList1(s);
        AggiornaLibrettoMisure(s);
        s.doc.PercorsoLibretto = "C:\\Rilievi\\prova.lxc";
        CreaCartella("C:\\Rilievi");
        const Disegno d = LeggiLxc(lxc);
        rapporto.clear();
        esito = GeneraLibrettoMisureAutomatico(s, d, RiconosciLinee(d), o, rapporto);
        if (!esito.scritto) return {};
        return RigheDiTesto(LeggiTesto(esito.percorso));
    }
};

} // namespace tavolet::test
