// Joining two extracts into one self-made extract: vertices that fall on each other (closer
// than 0.001 m) become one point, the rings follow.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <utility>

namespace tavolet {

struct Stato;

inline constexpr double kTolleranzaUnione = 0.001;

double DistanzaPunti(double nord1, double est1, double nord2, double est2);

// The two extracts joined, as bytes of the files. Of each it keeps the rows 8 with "%" and the
// rings (first row and continuation rows) holding none of "T", "L", "P". Points closer than the
// tolerance become one: a point of the first goes into the first such point of the second, a
// point of the second into the first later one of the second, a point of the first still there
// into the first later one of the first. The points left are numbered 1%, 2%, ... in their
// order, and every id of a ring goes through one map to the new number of the point it names
// (the first point of its own extract with that id). An id that names no point keeps its text,
// in the second moved on by the highest number of the first. Throws Errore.
QByteArray UnisciEstratti(const QByteArray& base, const QByteArray& aggiunto);
// The same over texts.
QString UnisciTestiEstratti(const QString& testoBase, const QString& testoAggiunto);

// A ring gathered in one line, "7|<count>|<ids>|<style>|<label>|<name>|<area>|", rewritten as
// the extract writer lays it out: the count recounted ("#######0") and the first ten ids with
// the tail on the first row, ten more on each continuation row "7|0|...|NC|". A ring of no id
// gives no row.
QString SpezzaRigaSette(const QString& riga);

// \temp\Tempestratto.emp under the program folder.
QString PercorsoTempestratto(const Stato& stato);
// Joins the two extracts into the temporary file; false after the error report, and then no
// temporary file is left.
bool UnisciDueEstratti(Stato& stato, const QString& estrattoBase, const QString& estrattoAggiunto);
// The temporary result stored as <nome>.emp in the extracts folder, with the first companion of
// the base (.PNG, .TIF, .JPG) under the same name. Returns the file name written.
QString GeneraSommaEstratti(Stato& stato, const QString& estrattoBase, const QString& nome);

// All extracts of the comune of the selected one joined into <comune>.EMP. avanzamento gets
// (done, total) after each extract. Returns the name written, empty after an error report.
using Avanzamento = std::function<void(int fatti, int totale)>;
QString SommaEstrattiComune(Stato& stato, const QString& selezionato,
                            const Avanzamento& avanzamento = {});

// The same over any folder: primo (a path) is the base, or with none the first extract of the
// comune by name; every other .EMP of the comune but <comune>.EMP is joined to it.
QString SommaComuneInCartella(Stato& stato, const QString& cartella, const QString& comune,
                              const QString& primo = {}, const Avanzamento& avanzamento = {});

} // namespace tavolet
