// The options of the libretto from a drawing and their file
// CartellaDocumenti\Bravanta\LibrettoDaDisegno.txt, one KEY,value pair a line.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

enum class Orientamento { Nessuno = -1, TuttiAzimut = 0, StazionePrecedente = 1, Libretto = 2 };

struct OpzioniLibretto {
    bool MantieniRighe4 = false;
    bool Mantieni3_7 = false;
    bool Mantieni8 = false;
    bool PuntoPlanimetrico = false;
    QString DislivelloPlanimetrico = QStringLiteral("50"); // millimetres
    Orientamento orientamento = Orientamento::Nessuno;
    bool IncrementoCentesimale = false;
    bool IncrementoMillesimale = true;
    bool MostraReport = true;
    bool CommentiDuplicati = true;
    bool MettiCS = false;
    bool EliminaPuntiNote = false;
    bool PFDaEstratto = false; // ticked: the rows 8 are NOT read from the TAF
    bool MantieniGPS = false;
    bool NoteMancanti = true;
    bool RiordinoFittizio = true;
    int PrecisioneAngolare = 3; // index into PrecisioniAngolari()
};

// The captions of the six angular precisions; the value is the caption read as a number.
const QStringList& PrecisioniAngolari();
double ValorePrecisione(int indice);
// The report name of the orientation.
QString NomeOrientamento(Orientamento o);

QString PercorsoOpzioniLetto(const Stato& stato);   // ...\LibrettoDaDisegno.txt
QString PercorsoOpzioniScritto(const Stato& stato); // ...\LibrettoDaDisegno.TXT

// Reads a text of KEY,value lines over the options: unknown keys are ignored, and the key of
// rows 3 and 7 is the one without the trailing underscore that the writer puts.
void LeggiOpzioni(const QString& testo, OpzioniLibretto& o);
// The whole file text, in its fixed order.
QString TestoOpzioni(const OpzioniLibretto& o);
// Nothing happens when the file is missing: the options keep their state.
void CaricaCFG(Stato& stato, OpzioniLibretto& o);
void SalvaCFG(Stato& stato, const OpzioniLibretto& o);

} // namespace tavolet
