// Extracts and CXF sheets into one GeoPackage (or GeoJSON) for a GIS.
#include "comandi.h"
#include "gis.h"

namespace tavolet::cli {

namespace {

const Registra
    gis({{"gis"},
         "IN... OUT.gpkg [--crs EPSG:NNNN] [--formato GPKG|GeoJSON]",
         "estratti (.EMP), fogli CXF (.CXF/.CTF con il .SUP) o cartelle in un GeoPackage",
         2,
         [](Contesto& c) {
             OpzioniGis opzioni;
             QStringList file;
             for (qsizetype i = 0; i < c.argomenti.size(); ++i) {
                 const QString& a = c.argomenti[i];
                 if ((a == u"--crs" || a == u"--formato") && i + 1 < c.argomenti.size()) {
                     (a == u"--crs" ? opzioni.crs : opzioni.formato) = c.argomenti[++i];
                 } else if (a.startsWith(QStringLiteral("--"))) {
                     QTextStream(stderr) << "Opzione sconosciuta: " << a << '\n';
                     return 2;
                 } else {
                     file << PercorsoArgomento(a);
                 }
             }
             if (file.size() < 2) {
                 QTextStream(stderr) << "Uso: tavolet-cli gis IN... OUT.gpkg [--crs EPSG:NNNN] "
                                        "[--formato GPKG|GeoJSON]\n";
                 return 2;
             }
             const QString uscita = file.takeLast();
             bool saltati = false;
             const int particelle = EsportaGis(c.stato, file, uscita, opzioni, &saltati);
             if (particelle < 0) return 1;
             c.out << uscita << ": " << particelle << " particelle\n";
             return saltati ? 1 : 0;
         }});

} // namespace

} // namespace tavolet::cli
