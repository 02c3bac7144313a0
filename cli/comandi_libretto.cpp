// Commands on the libretto document and the environment.
#include "comandi.h"

namespace tavolet::cli {

namespace {

int Carica(Contesto& c) {
    PreparaAmbiente(c.stato);
    DecoZeroNove(c.stato);
    return CaricaComeTrascinamento(c.stato, PercorsoArgomento(c.argomenti[0])) ? 0 : 1;
}

const Registra salva({{"libretto", "salva"},
                      "IN OUT",
                      "carica IN come un trascinamento e lo scrive in OUT con i tag in fondo",
                      2,
                      [](Contesto& c) {
                          if (Carica(c) != 0) return 1;
                          AggiornaLibrettoMisure(c.stato);
                          c.stato.doc.PercorsoLibretto = PercorsoArgomento(c.argomenti[1]);
                          ScriviLibrettoMisure(c.stato);
                          return 0;
                      }});

const Registra righe({{"libretto", "righe"},
                      "IN",
                      "stampa le righe del libretto IN, una per riga",
                      1,
                      [](Contesto& c) {
                          if (Carica(c) != 0) return 1;
                          for (const QString& r : c.stato.doc.RigheLibretto.Righe())
                              c.out << r << '\n';
                          return 0;
                      }});

const Registra testata({{"libretto", "testata"},
                        "IN",
                        "stampa i campi delle righe 0 e 9 come Nome=valore",
                        1,
                        [](Contesto& c) {
                            if (Carica(c) != 0) return 1;
                            const Testata& t = c.stato.testata;
                            const QList<std::pair<const char*, QString>> campi = {
                                {"DataLibretto", t.DataLibretto},
                                {"AnnoLibretto", t.AnnoLibretto},
                                {"Protocollo", t.Protocollo},
                                {"AnnoProtocollo", t.AnnoProtocollo},
                                {"CodiceComuneLibretto", t.CodiceComuneLibretto},
                                {"FoglioLibretto", t.FoglioLibretto},
                                {"MappaliLibretto", t.MappaliLibretto},
                                {"Tecnico", t.Tecnico},
                                {"Qualifica", t.Qualifica},
                                {"ProvinciaAlbo", t.ProvinciaAlbo},
                                {"QuotaMedia", t.QuotaMedia},
                                {"PrecisioneLineare", t.PrecisioneLineare},
                                {"PrecisioneAngolare", t.PrecisioneAngolare},
                                {"EstMedio", t.EstMedio},
                                {"TipologiaRilievo", t.TipologiaRilievo},
                                {"Strumentazione", t.Strumentazione},
                                {"NomeComuneLibretto", t.NomeComuneLibretto},
                                {"SiglaProvinciaLibretto", t.SiglaProvinciaLibretto},
                                {"NomeProvinciaLibretto", t.NomeProvinciaLibretto},
                                {"TipoAtto", t.TipoAtto},
                                {"NomeArchivio", t.NomeArchivio}};
                            for (const auto& [nome, valore] : campi)
                                c.out << nome << '=' << valore << '\n';
                            return 0;
                        }});

const Registra ambiente({{"ambiente"},
                         "",
                         "stampa le cartelle, le unità di Pregeo e le dimensioni delle tabelle",
                         0,
                         [](Contesto& c) {
                             PreparaAmbiente(c.stato);
                             const Ambiente& a = c.stato.amb;
                             c.out << "CartellaLavoro=" << a.CartellaLavoro << '\n'
                                   << "UnitaPregeoExe=" << a.UnitaPregeoExe << '\n'
                                   << "UnitaPregeoDati=" << a.UnitaPregeoDati << '\n'
                                   << "PercorsoArch2=" << a.PercorsoArch2 << '\n'
                                   << "VersionePregeo=" << a.VersionePregeo << '\n'
                                   << "TabellaComuni=" << a.TabellaComuni.size() << '\n'
                                   << "TabellaProvince=" << a.TabellaProvince.size() << '\n'
                                   << "TabellaQualita=" << a.TabellaQualita.size() << '\n';
                             return 0;
                         }});

} // namespace

} // namespace tavolet::cli
