// PREGEO.INI in any state: the environment and the technician's keys are read, and written
// back, without a crash.
#include "../bersaglio.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(pregeo_ini) {
    const QByteArray ini = Byte(dati, n);
    PreparaRadice();
    const PregeoRipristinato ripristino;
    Scrivi("C:\\windows\\PREGEO.INI", ini);
    {
        PiattaformaFinta p;
        Stato s(p);
        Inizializza(s);
        CaricaConfig(s);
    }
    const QStringList righe = RigheDiTesto(DaWindows1252(ini));
    const QStringList scritte = ScriviTecnicoIni(righe, LeggiTecnicoIni(righe));
    // Lines are replaced or added, never lost.
    Verifica(scritte.size() >= righe.size(), "PREGEO.INI riscritto con meno righe");
}
