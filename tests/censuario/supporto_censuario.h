// A state on a small Pregeo tree with the table of qualities of the censuary tests.
#pragma once

#include "censuario.h"
#include "supporto.h"

namespace tavolet::test {

struct ConCensuario : ::testing::Test {
    RadiceProva radice;
    PiattaformaFinta p;
    Stato s{p};
    void SetUp() override;
    // The lines of a file of tests/dati/censuario.
    static QStringList Attese(const QString& nome);
    // A parcel of the archive as the screens read it.
    CampiParticella Particella(const QString& mappale, const QString& area,
                               const QString& qualita = QStringLiteral("SEMINATIVO  "),
                               const QString& classe = QStringLiteral("2")) const;
    // Parcel 35 of that area opened in the frazionamento, with that many derived parcels.
    Frazionamento Fraziona(const QString& area, const QString& derivate = QString());
    // The Proposta of tests/dati as the helper would leave it, exploded as on a screen's
    // opening.
    void PropostaPronta(const QString& nome = QStringLiteral("censuario/proposta.txt"));
    void Libretto(const QString& nome = QStringLiteral("censuario/libretto.dat"));
};

// Every row 70 characters long and recognised as censuary.
::testing::AssertionResult TutteCensuarie(const QStringList& righe);

} // namespace tavolet::test
