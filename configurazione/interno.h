// Pieces shared by the files of the head dialog's logic.
#pragma once

#include "configurazione.h"

#include <QString>
#include <QStringList>

namespace tavolet {

// Errors of the form report under its name and " Bottone1".
inline QString TagForm() {
    return kNomeFormConfigurazione + QStringLiteral(" Bottone1");
}

inline const QString kSezioneCheck1 = QStringLiteral("Aggiorna_Default_Pregeo");
inline const QString kSezioneCheck2 = QStringLiteral("Aggiorna_Default_Data");
inline const QString kDatiCensuario = QStringLiteral("6|Dati per aggiornare il D.B. Censuario");
inline const QString kDettaglioTipoAgg = QStringLiteral("DettaglioTipoAgg");
inline const QString kFiguraQuota = QStringLiteral("#####0");
inline const QString kFiguraEst = QStringLiteral("##########0");
constexpr int kMaxCollegi = 130;

QString PercorsoStrumentazioni(const Stato& stato);
QString PercorsoCommenti(const Stato& stato);
// The fields of a row split at bars, with enough bars behind it that missing ones are blank.
QStringList CampiBarra(const QString& riga);
// Cognome from Tecnico when both are blank; a Cognome with a blank split when Nome is blank.
void CompletaCognomeNome(Stato& stato);

} // namespace tavolet
