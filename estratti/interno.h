// Helpers shared by the files of the extract: checked field access with the runtime's error.
#pragma once

#include "errore.h"
#include "estratto.h"
#include "testo.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>

#include <algorithm>

namespace tavolet::estratti {

// A field of a split row; an index outside the row is a subscript out of range (error 9).
inline const QString& Campo(const QStringList& campi, qsizetype i) {
    if (i < 0 || i >= campi.size()) throw Errore(9);
    return campi[i];
}
inline QString& CampoRif(QStringList& campi, qsizetype i) {
    if (i < 0 || i >= campi.size()) throw Errore(9);
    return campi[i];
}
// An item of a list as the form's list boxes give it: empty outside the list.
inline QString Voce(const QStringList& lista, qsizetype i) {
    return i >= 0 && i < lista.size() ? lista[i] : QString();
}

// Field 1 of a row as Split would give it: [inizio, fine) in the row. No bar: error 9.
void CampoUno(const QString& riga, qsizetype& inizio, qsizetype& fine);
// The row with field 1 replaced, as Split, change and Join would give it.
QString ConCampoUno(const QString& riga, const QString& nuovo);
// Field n-k of a row whose last field (behind its last bar) is n: [inizio, fine). Error 9
// when the row has fewer than k bars.
void CampoDaFondo(const QString& riga, int k, qsizetype& inizio, qsizetype& fine);

// The path without its extension (the text after the last point of the last component).
inline QString SenzaEstensione(const QString& percorso) {
    const qsizetype punto = percorso.lastIndexOf(u'.');
    const qsizetype barra = std::max(percorso.lastIndexOf(u'\\'), percorso.lastIndexOf(u'/'));
    return punto > barra ? percorso.left(punto) : percorso;
}

// The kind of a row is Val of it; a row that begins with a digit and a bar has that digit, and
// nearly all rows do, so the full read is kept for the others.
inline double TipoRigaEstratto(const QString& riga) {
    if (riga.size() >= 2 && riga[1] == u'|' && riga[0] >= u'0' && riga[0] <= u'9')
        return riga[0].unicode() - u'0';
    return Val(riga);
}

// The order of the form's sorted lists: text without regard to case.
inline bool MinoreInLista(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) < 0;
}

// For each id, the index of the first row of Punti that begins with "8|<id>|".
QHash<QString, int> IndicePunti(const QStringList& punti);

// The area routine with a ready index; throws Errore(9) past the vertex tables.
void AreaRigaSette(Estratto& e, const QString& riga, const QHash<QString, int>& indice);

// Pieces of the reader: a row 6 to its list (and the text globals), the free lines merged, the
// age in calendar months of a date ddmmyyyy (error 13 when it is not one).
void InstradaSei(Estratto& e, const QString& riga);
void UnisciLinee(Estratto& e);
int MesiEstratto(const QString& ddmmyyyy, const QDate& oggi);
// Pieces of the writer: toponyms and free-line points numbered behind the given count of
// vertices, the free lines following theirs.
void RinumeraToponimi(Estratto& e, qsizetype punti);
void RinumeraPuntiLinee(Estratto& e, qsizetype punti);

// The writer's body: throws, moves TagRoutine along.
QString Componi(Stato& stato, Estratto& e);

} // namespace tavolet::estratti
