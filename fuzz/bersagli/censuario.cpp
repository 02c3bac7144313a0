// The parcel file, the proposal's areas and the censuary compositions built on them: the fixed
// blocks keep their widths whatever the fields hold.
#include "censuario.h"
#include "../bersaglio.h"
#include "errore.h"

#include <algorithm>

using namespace tavolet;
using namespace tavolet::fuzz;

namespace {

bool TutteCensuarie(const QStringList& righe) {
    return std::all_of(righe.begin(), righe.end(),
                       [](const QString& r) { return RigaCensuaria(r); });
}

} // namespace

TAVOLET_BERSAGLIO(censuario) {
    const auto [primo, secondo] = Dividi(Byte(dati, n));
    const QString testo = DaWindows1252(primo), altro = DaWindows1252(secondo);
    const AreeProposta ap = AreeDaProposta(testo);
    for (const QString& m : ap.modello)
        Verifica(!m.contains(u'+') && !m.contains(u'-') && m.contains(u'_'), "modello guasto");
    for (const QString& v : ap.aree.mid(1))
        Verifica(!v.contains(u'+') && !v.contains(u'-'), "area con segno");
    Banco a;
    const QString riga = RigheDiTesto(testo).value(0);
    const CampiParticella c =
        CampiDaParticella(RigheDiTesto(altro).value(0), riga, a.s.amb.TabellaQualita);
    // A parcel that lost a field is refused with the error report; else the fixed blocks keep
    // their length.
    QStringList nc, v, f;
    if (ConTrappola(a.s, "Decozero_106", [&] { nc = ModelloNuovaCostruzione(c); }))
        Verifica(TutteCensuarie(nc.mid(2)), "nuova costruzione fuori misura");
    if (ConTrappola(a.s, "BV_TMVariazione", [&] { v = ModelloVariazione(c); }))
        Verifica(TutteCensuarie(v.mid(2)), "variazione fuori misura");
    OpzioniFusione o;
    o.particelle = {riga, RigheDiTesto(testo).value(1)};
    if (ConTrappola(a.s, "AnteprimaTMFusione",
                    [&] { f = AnteprimaFusione({}, o, a.s.amb.TabellaQualita); }))
        Verifica(f.size() >= 2, "fusione vuota");
    for (const FileParticella& p :
         ParticelleDaModello(testo, "A001", "0012", a.s.amb.TabellaQualita))
        Verifica(p.riga.startsWith(QStringLiteral("6|PARTICELLA|")),
                 "particella senza la sua riga");
    ParticelleDaEstratto(RigheDiTesto(altro), "A001", "0012");
    AggiornaTestoEstratto(altro, riga);
}
