// Completing a self-made extract by hand: the head (comune, sheet, parcels, province) and the
// 6|PARTICELLA| rows, edited as strings in the rows of the file.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// The quality buttons: description and code, class "00".
struct QualitaParticella {
    QString descrizione, codice;
};
const QList<QualitaParticella>& QualitaAutoallestito(); // FABB RURALE .. FU D ACCERT
inline const QualitaParticella kFabbPromis{QStringLiteral("FABB PROMIS"), QStringLiteral("278")};

// "6|PARTICELLA|<name>||||||||".
QString RigaParticellaVuota(const QString& nome);

// The row rewritten from the boxes; job type "22" forces FABB PROMIS of class "00" (classe and
// descrizione are updated for the screen).
QString RicalcolaParticella(const QString& riga, QString& classe, QString& descrizione,
                            const QString& superficie, const QString& tipoLavoro);
// The row put into the rows of the file in place of the one of the same parcel, else at the end.
void UnisciParticella(QStringList& righe, const QString& riga);
// Row 0 from the boxes: province in fields 2 and 6, comune in 3, the sheet as the last five of
// "000" and the box in 4, the parcels in 5.
QString RicalcolaAutoAllestito(const QString& rigaZero, const QString& comune,
                               const QString& provincia, const QString& foglio,
                               const QString& particelle);
// A parcel renamed by typing: in the list of row 0 and in the label of its ring.
void RinominaParticellaAutoallestito(QStringList& righe, const QString& vecchio,
                                     const QString& nuovo);

// The parcels of the screen: one PARTICELLA row each, the file's own when it has one.
QStringList ParticelleAutoallestito(Stato& stato, const QString& nomeEstratto,
                                    const QStringList& righe);

// "Genera Provincia di Competenza": the province of the comune in the comuni table; empty when
// the comune is not there.
QString ProvinciaDiCompetenza(const Stato& stato, const QString& comune);
// The quality of a button named by its description or its code ("ENTE URBANO", "282"), or
// FABB PROMIS; an empty description when there is none such.
QualitaParticella QualitaDaPulsante(const QString& testo);

// The completion without the screen: row 0 from comune, province and sheet, the parcels given
// added to its list, then each parcel's row as its quality button and surface box make it.
struct ParticellaDaCompletare {
    QString nome, descrizione, superficie;
};
QStringList CompletaRigheAutoallestito(QStringList righe, const QString& comune,
                                       const QString& provincia, const QString& foglio,
                                       const QList<ParticellaDaCompletare>& particelle,
                                       const QString& tipoLavoro);
// Save: every row followed by CR LF, over the extract; an empty list writes an empty file.
bool SalvaAutoallestito(Stato& stato, const QString& nomeEstratto, const QStringList& righe);

} // namespace tavolet
