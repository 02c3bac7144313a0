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

// The rows of the two extracts that a join keeps: rows 8 with "%" and rings (first row and its
// continuation rows gathered in one line) holding none of "T", "L", "P". The second extract's
// ids are already shifted by the number of the last point of the first.
struct Unione {
    struct Punto {
        QString riga, id;
        double nord = 0, est = 0;
        bool vuoto = false;
    };
    QList<Punto> base, aggiunti;
    QStringList anelli; // the rings of the first, then those of the second
    // The replacements of ids, in the order they are made: merges, then the renumbering.
    QList<std::pair<QString, QString>> sostituzioni;
};

double DistanzaPunti(double nord1, double est1, double nord2, double est2);

// Reading and shift. Throws Errore.
Unione PreparaUnione(const QString& testoBase, const QString& testoAggiunto);
// The merge: each point of the first goes into the first point of the second closer than the
// tolerance; then each point of the second, and each of the first, into the first later point
// of its own extract that is that close. A grid of cells of the tolerance's size finds them.
void UniscanoPunti(Unione& u);
// Renumbers the points left, applies the replacements in their order to every id field of the
// rings (a field equal to the old id takes the new one) and composes the result.
QString ComponiUnione(Unione& u);
// The two texts joined: PreparaUnione, UniscanoPunti, ComponiUnione.
QString UnisciTestiEstratti(const QString& testoBase, const QString& testoAggiunto);

// A ring gathered in one line, "7|<count>|<ids>|<style>|<label>|<name>|<area>|", rewritten as
// rows of ten ids: the count recounted ("#######0"), each row but the last closed by the style,
// the last by the whole tail.
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
