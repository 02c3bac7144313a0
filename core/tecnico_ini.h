// The technician's keys of PREGEO.INI: one reader and one writer for every caller.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// Keys written under [PREGEO], each "Chiave=valore": Cognome, Nome, Qualifica, ProvinciaAlbo,
// SiglaProvinciaAlbo, NumeroIscrizione, CodiceFiscale. Keys are read without regard to case.
struct TecnicoIni {
    QString Cognome, Nome, Qualifica, ProvinciaAlbo, SiglaProvinciaAlbo, NumeroIscrizione,
        CodiceFiscale;
};

TecnicoIni LeggiTecnicoIni(const QStringList& righeIni);
// The lines of PREGEO.INI with the technician's keys replaced where they stand, the missing ones
// added behind the last line of the [PREGEO] section (a file without it gets one). Other lines
// keep their text and order.
QStringList ScriviTecnicoIni(const QStringList& righeIni, const TecnicoIni& tecnico);
// Writes RigheIni to CartellaSistema\PREGEO.INI (1252, CRLF) in one go.
void RiscriviPregeoIni(Stato& stato);

} // namespace tavolet
