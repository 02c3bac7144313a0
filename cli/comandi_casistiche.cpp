// Commands of the ready-made cases: a libretto from a CAD list or a DXF, proposals exploded and
// imploded.
#include "casistiche.h"
#include "comandi.h"

namespace tavolet::cli {

namespace {

// Options of these commands: --casistica CODICE, --estratto NOME, --mappali TESTO.
QStringList Opzioni(Contesto& c, Casistica& cas) {
    QStringList resto;
    for (qsizetype i = 0; i < c.argomenti.size(); ++i) {
        const QString& a = c.argomenti[i];
        if (a == u"--casistica" && i + 1 < c.argomenti.size())
            cas.Codice = c.argomenti[++i];
        else if (a == u"--estratto" && i + 1 < c.argomenti.size())
            c.stato.doc.NomeEstratto = c.argomenti[++i];
        else if (a == u"--mappali" && i + 1 < c.argomenti.size())
            c.stato.testata.MappaliLibretto = c.argomenti[++i];
        else
            resto << a;
    }
    return resto;
}

// The libretto of the case to OUT, the provisional extract beside it as .EMP.
int ScriviRisultato(Contesto& c, const Casistica& cas, const QString& out) {
    const QString estratto =
        (out.contains(u'.') ? out.left(out.lastIndexOf(u'.')) : out) + QStringLiteral(".EMP");
    const bool ok = ConTrappola(c.stato, QStringLiteral("ScriviCasistica"), [&] {
        ScriviTesto(out, cas.RigheProposta);
        CopiaFile(PercorsoEstrattoProvvisorio(c.stato), estratto);
    });
    if (!ok) return 1;
    c.out << "Libretto=" << out << '\n' << "Estratto=" << estratto << '\n';
    return 0;
}

void PreparaCartelle(Contesto& c) {
    PreparaAmbiente(c.stato);
    ConTrappola(c.stato, QStringLiteral("PreparaCartelle"), [&] {
        CreaCartella(c.stato.amb.CartellaLavoro + QStringLiteral("\\TEMP"));
        CreaCartella(c.stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\ESTRATTI"));
    });
}

const Registra lista({{"casistica", "lista"},
                      "IN.TXT OUT.DAT [--casistica N] [--estratto NOME] [--mappali M]",
                      "libretto ed estratto provvisorio da una lista CAD di polilinee",
                      2,
                      [](Contesto& c) {
                          Casistica cas;
                          const QStringList a = Opzioni(c, cas);
                          if (a.size() < 2) return 2;
                          PreparaCartelle(c);
                          QString testo;
                          if (!ConTrappola(c.stato, QStringLiteral("LeggiLista"),
                                           [&] { testo = LeggiTesto(PercorsoArgomento(a[0])); }))
                              return 1;
                          if (!GeneraLibrettoDaTesto(c.stato, cas, testo)) return 1;
                          return ScriviRisultato(c, cas, PercorsoArgomento(a[1]));
                      }});

const Registra dxf_casistiche({{"casistica", "dxf"},
                               "IN.DXF OUT.DAT [--casistica N] [--estratto NOME] [--mappali M]",
                               "libretto ed estratto provvisorio dalle polilinee di un DXF",
                               2,
                               [](Contesto& c) {
                                   Casistica cas;
                                   const QStringList a = Opzioni(c, cas);
                                   if (a.size() < 2) return 2;
                                   PreparaCartelle(c);
                                   if (!GeneraLibrettoDaPoliLineeDXF(c.stato, cas,
                                                                     PercorsoArgomento(a[0])))
                                       return 1;
                                   return ScriviRisultato(c, cas, PercorsoArgomento(a[1]));
                               }});

int Trasforma(Contesto& c, void (*trasforma)(QString&), bool perRiga) {
    return ConTrappola(c.stato, QStringLiteral("Proposta"),
                       [&] {
                           QString testo = LeggiTesto(PercorsoArgomento(c.argomenti[0]));
                           if (perRiga) {
                               QString uscita;
                               for (QString r : RigheDiTesto(testo)) {
                                   if (r.trimmed().isEmpty()) continue;
                                   trasforma(r);
                                   uscita += r + CRLF;
                               }
                               testo = uscita;
                           } else {
                               trasforma(testo);
                           }
                           ScriviTesto(PercorsoArgomento(c.argomenti[1]), testo);
                       })
               ? 0
               : 1;
}

const Registra esplodi({{"proposta", "esplodi"},
                        "IN OUT",
                        "ogni contorno (righe 7 e 7|0|) in una sola riga, senza codice di tipo",
                        2,
                        [](Contesto& c) { return Trasforma(c, Esplodi_Proposta, false); }});

const Registra implodi({{"proposta", "implodi"},
                        "IN OUT",
                        "ogni riga esplosa di nuovo in righe 7 di al massimo dieci punti",
                        2,
                        [](Contesto& c) { return Trasforma(c, Implodi_Proposta, true); }});

} // namespace

} // namespace tavolet::cli
