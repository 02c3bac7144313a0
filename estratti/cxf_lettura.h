// Reading a CXF map sheet: the items of the file and its records (BORDO, TESTO, SIMBOLO,
// FIDUCIALE, LINEA). The conversion to .EMP reads its borders through here, and so does the
// export to a GIS, which reads every record.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <vector>

namespace tavolet {

// Items as the file's line input gives them: separated by commas and line ends, blanks and
// tabs around them dropped.
class VociCxf {
public:
    explicit VociCxf(QStringView testo) : t_(testo) {}
    bool Fine() const { return i_ >= t_.size() && !vuota_; }
    // The next item; past the end of the file, error 62.
    QStringView Prossima();
    // Where the reading stands, to come back to it.
    struct Segno {
        qsizetype i;
        bool vuota;
    };
    Segno Posizione() const { return {i_, vuota_}; }
    void Torna(Segno s) { i_ = s.i, vuota_ = s.vuota; }

private:
    QStringView t_;
    qsizetype i_ = 0;
    bool vuota_ = false;
};

// A number written whole: sign, digits, point, exponent (E or D).
bool NumeroCxf(QStringView s);
// A count read into a whole number: rounded; not a number is error 13, past 32 bits error 6.
qint64 InteroCxf(QStringView voce);

// One BORDO, from the item behind the word. The coordinates stay the texts of the file, views
// into it: x and y in turn, the outer ring first, then each island. anelli[0] is the outer
// ring's size (the total less the islands), then one size per island; nothing is checked but
// what reading needs, so a count may be negative or lie.
struct BordoCxf {
    QString nome;
    qint64 isole = 0, totale = 0;
    std::vector<qint64> anelli;
    std::vector<QStringView> coordinate;
};
// Throws Errore: 62 past the end, 13 an item that is not a number, 6 a count past 32 bits, 9
// more islands than the table of 501 ring sizes. b holds what was read before the error.
void LeggiBordoCxf(VociCxf& voci, BordoCxf& b);

// The whole sheet, every record, for a reader that keeps going: a record that cannot be read
// is left out with a line in avvisi, and the reading takes up again at the next keyword.
struct PuntoCxf {
    double x = 0, y = 0;
};
struct FoglioLettoCxf {
    QString tipoMappa, nomeMappa; // the head: "MAPPA", "H501D076700"
    struct Bordo {
        QString nome;
        std::vector<std::vector<PuntoCxf>> anelli; // outer first, each closed
    };
    struct Testo {
        QString testo;
        double dimensione = 0, angolo = 0;
        PuntoCxf p;
        bool esterno = false; // "TESTO\": outside the map's border
    };
    struct Simbolo {
        int codice = 0;
        double angolo = 0;
        PuntoCxf p;
        bool esterno = false;
    };
    struct Fiduciale {
        QString nome;
        int codice = 0;
        PuntoCxf p, etichetta;
        bool esterno = false;
    };
    struct Linea {
        int tratto = 0;
        std::vector<PuntoCxf> punti;
        bool esterno = false;
    };
    std::vector<Bordo> bordi;
    std::vector<Testo> testi;
    std::vector<Simbolo> simboli;
    std::vector<Fiduciale> fiduciali;
    std::vector<Linea> linee;
};
// A border is left out when a ring is not closed, has fewer than four vertices, or its counts
// do not add up; any record when its items do not end where the next keyword begins.
FoglioLettoCxf LeggiFoglioCxf(const QString& testo, QStringList& avvisi);

} // namespace tavolet
