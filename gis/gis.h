// Extracts and CXF sheets for a GIS: parcels as polygons with their names and areas, lines,
// texts, symbols, fiducial points and vertices, written as a GeoPackage (or GeoJSON) by GDAL.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tavolet {

struct Stato;

struct PuntoGis {
    double x = 0, y = 0; // east, north: as the file has them
};

// What one input gives to every layer. Empty texts are written as NULL.
struct FoglioGis {
    QString comune, sezione, foglio, allegato, sviluppo, sorgente;
    struct Particella {
        QString nome, tipo; // PARTICELLA, FABBRICATO, STRADA, ACQUA, FOGLIO
        std::optional<double> areaDichiarata;
        std::vector<std::vector<PuntoGis>> anelli; // outer, then holes; each closed
    };
    struct Linea {
        QString tratto; // the CXF code of the stroke, or the extract's style token
        bool esterno = false;
        std::vector<PuntoGis> punti;
    };
    struct Testo {
        QString testo;
        std::optional<double> altezza; // tenths of a millimetre on the paper sheet
        double angolo = 0;             // radians, counterclockwise from east
        bool esterno = false;
        PuntoGis p;
    };
    struct Simbolo {
        int codice = 0;
        double angolo = 0;
        bool esterno = false;
        PuntoGis p;
    };
    struct Fiduciale {
        QString nome;
        std::optional<int> codice;
        std::optional<PuntoGis> etichetta;
        PuntoGis p;
    };
    struct Vertice {
        QString nome;
        PuntoGis p;
    };
    std::vector<Particella> particelle;
    std::vector<Linea> linee;
    std::vector<Testo> testi;
    std::vector<Simbolo> simboli;
    std::vector<Fiduciale> fiduciali;
    std::vector<Vertice> vertici;
};

// Readers over the text of a file; sorgente is the file's name. What cannot be taken is left
// out with a line in avvisi, which names the file and the element.
FoglioGis FoglioGisDaCxf(const QString& testo, const QStringList& righeSup, const QString& sorgente,
                         QStringList& avvisi);
FoglioGis FoglioGisDaEstratto(Stato& stato, const QString& testo, const QString& sorgente,
                              QStringList& avvisi);

// The kind of a border by its name: FABBRICATO for "...+", STRADA, ACQUA, FOGLIO for the
// sheet's own code (or any sheet code, on a sheet of borders), else PARTICELLA.
QString TipoBordo(const QString& nome, const QString& nomeMappa, bool fondiario = false);
// Comune, sezione, foglio, allegato, sviluppo of a sheet code "H501D076700"; false when the
// code is not one.
bool CodiceFoglio(const QString& codice, FoglioGis& f);
// The areas of a .SUP by name; a name written twice has none, since it cannot be told which
// border it belongs to. The border of the sheet takes CONFINE.
std::vector<std::pair<QString, double>> AreeSup(const QStringList& righeSup);

// The inputs: .EMP, .CXF/.CTF (with the .SUP beside them) and folders holding them.
QStringList IngressiGis(const QStringList& argomenti, QStringList& avvisi);
// One input file read, its .SUP found and read.
std::optional<FoglioGis> LeggiIngressoGis(Stato& stato, const QString& percorso,
                                          QStringList& avvisi);

struct OpzioniGis {
    QString crs;                              // "EPSG:6708", or empty for none
    QString formato = QStringLiteral("GPKG"); // or "GeoJSON"
};
struct EsitoGis {
    bool scritto = false;
    QString errore;        // why nothing was written
    QStringList file;      // the files written
    QStringList nonValidi; // polygons written as they are, though GDAL finds them not valid
    int particelle = 0, linee = 0, testi = 0, simboli = 0, fiduciali = 0, vertici = 0;
};
// Writes the layers, each in one transaction, to a temporary file beside percorso, renamed over
// it at the end: a failure leaves nothing half-written. GeoJSON holds one layer a file: the
// parcels go to percorso, the other layers beside it as <name>_<layer>.geojson.
EsitoGis ScriviGis(const std::vector<FoglioGis>& fogli, const QString& percorso,
                   const OpzioniGis& opzioni);

// The whole export as the command and the screens run it: reads every input, writes, and
// tells the operator what was left out. Returns the count of parcels written, -1 when nothing
// was written; saltati is set when anything was left out.
int EsportaGis(Stato& stato, const QStringList& ingressi, const QString& uscita,
               const OpzioniGis& opzioni, bool* saltati = nullptr);

} // namespace tavolet
