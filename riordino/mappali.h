// The parcels of row 0: their order, and the choices of the dialogs SelezionaMappali and
// MappaleDaMantenere.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// "12,3,12" -> "3,12": numeric order by right alignment, doubles gone. A blank string stays.
void RiordinoMappali(Stato& stato, QString& mappali);

// What SelezionaMappali hands on to MappaleDaMantenere: the chosen lines of the extract, each
// followed by CRLF, all and by quality, and at the end the parcel that keeps its number.
struct SceltaMappali {
    QString Righe;
    QString RigheEnteUrbano;
    QString RigheFabbRurale;
    QString MappaleMantenuto;
};

// The lines of an extract (upper-cased) that SelezionaMappali lists for a tipologia.
QStringList FiltraParticelle(const QStringList& righeEstratto, const QString& tipologia);
// The same on the associated extract in Pregeo's folder; none when the file is missing.
QStringList ParticelleEstratto(Stato& stato);
QString TitoloSelezionaMappali(const Stato& stato);
// The mean height of the libretto's municipality from QUOTAMEDIA.TXT of the program's
// folder: field 2 of the last line that holds its name becomes QuotaMedia. Returns it; empty
// when no line names the municipality.
QString LeggiQuotaMedia(Stato& stato);

// Confirming SelezionaMappali: the parcels of the selected lines go to MappaliLibretto and
// the lines to the choice. A list of one line counts as selected. Returns true when the
// form may close (EsitoDialogo is then 1); false after the message of a refused choice.
bool ConfermaSelezioneMappali(Stato& stato, SceltaMappali& scelta, const QStringList& righe,
                              QList<bool>& selezionate);

// The second list of MappaleDaMantenere: the Ente Urbano lines, else the Fabb. Rurale ones
// under tipologia "06". Empty means nothing to choose from.
QStringList RigheDaMantenere(const Stato& stato, const SceltaMappali& scelta);
inline const QString kNessunEnteUrbano = QStringLiteral("Nessun Ente Urbano selezionabile.");
// The parcels that a line of the extract names ("...A|" + p + "|").
QList<int> MappaliDellaRiga(const QString& riga, const QStringList& mappali);
// The chosen parcel goes first in MappaliLibretto, the others behind it in list order.
void ConfermaMappali(Stato& stato, SceltaMappali& scelta, const QStringList& mappali, int scelto);

} // namespace tavolet
