// Commands of the censuary model: the rows that the censuary screens compose, from small text
// files, printed one a line as they would go into the libretto.
#include "comandi.h"

#include "censuario.h"
#include "nome_file.h"

namespace tavolet::cli {

namespace {

void Stampa(Contesto& c, const QStringList& righe) {
    for (const QString& r : righe) c.out << r << '\n';
}

// A parcel file given by path: its name gives comune, foglio and number.
bool LeggiParticella(Contesto& c, const QString& argomento, CampiParticella& campi) {
    const QString percorso = PercorsoArgomento(argomento);
    bool letto = false;
    ConTrappola(c.stato, QStringLiteral("BV_EDM"), [&] {
        const QString riga = LeggiRighe(percorso).value(0);
        campi = CampiDaParticella(NomeDelFile(percorso), riga, c.stato.amb.TabellaQualita);
        letto = true;
    });
    return letto;
}

int Schema(Contesto& c, TipoSchema tipo) {
    PreparaAmbiente(c.stato);
    Frazionamento f;
    f.tipo = tipo;
    if (!LeggiParticella(c, c.argomenti[0], f.particella)) return 1;
    QString testo;
    if (!ConTrappola(c.stato, QStringLiteral("Schema"),
                     [&] { testo = LeggiTesto(PercorsoArgomento(c.argomenti[1])); }))
        return 1;
    const QStringList memo = MemoDaSchema(c.stato, f, SchemaDaTesto(testo));
    if (memo.isEmpty()) {
        if (c.stato.ErroriMostrati == 0)
            c.piattaforma.Messaggio(QStringLiteral("Lo schema non ha particelle derivate (C o V)."),
                                    QStringLiteral("Impossibile continuare"), Icona::Avviso);
        return 1;
    }
    Stampa(c, memo);
    return 0;
}

bool ConOpzione(QStringList& argomenti, const QString& opzione) {
    return argomenti.removeAll(opzione) > 0;
}

const Registra aree({{"censuario", "aree"},
                     "PROPOSTA.TXT",
                     "EsplodiAreeProposta su una Proposta: stampa le aree, '--', poi il modello",
                     1,
                     [](Contesto& c) {
                         PreparaAmbiente(c.stato);
                         QString testo;
                         if (!ConTrappola(c.stato, QStringLiteral("EsplodiAreeProposta"), [&] {
                                 testo = TestoRighe(LeggiRighe(PercorsoArgomento(c.argomenti[0])));
                                 ScriviFileAree(c.stato, testo + CRLF);
                             }))
                             return 1;
                         QStringList righeAree, righeModello;
                         ConTrappola(c.stato, QStringLiteral("EsplodiAreeProposta"), [&] {
                             righeAree = LeggiRighe(PercorsoCensuario(c.stato, kFileAree));
                             righeModello = LeggiRighe(PercorsoCensuario(c.stato, kFileModello));
                         });
                         Stampa(c, righeAree);
                         c.out << "--\n";
                         Stampa(c, righeModello);
                         return 0;
                     }});

const Registra frazionamento({{"censuario", "frazionamento"},
                              "PARTICELLA.MAP SCHEMA",
                              "righe del frazionamento dallo schema (righe C e V, celle con |)",
                              2,
                              [](Contesto& c) { return Schema(c, TipoSchema::Frazionamento); }});

const Registra stralcio({{"censuario", "stralcio"},
                         "PARTICELLA.MAP SCHEMA",
                         "righe dello stralcio d'area dallo schema, come per il frazionamento",
                         2,
                         [](Contesto& c) { return Schema(c, TipoSchema::Stralcio); }});

const Registra
    nuovaCostruzione({{"censuario", "nuovacostruzione"},
                      "PARTICELLA.MAP [--sr] [--identificativo AAB]",
                      "righe O, S, C della nuova costruzione",
                      1,
                      [](Contesto& c) {
                          PreparaAmbiente(c.stato);
                          QStringList a = c.argomenti;
                          const bool sr = ConOpzione(a, QStringLiteral("--sr"));
                          QString id;
                          const qsizetype i = a.indexOf(QStringLiteral("--identificativo"));
                          if (i >= 0) {
                              id = a.value(i + 1);
                              a.remove(i, std::min<qsizetype>(2, a.size() - i));
                          }
                          CampiParticella p;
                          if (a.isEmpty() || !LeggiParticella(c, a[0], p))
                              return a.isEmpty() ? 2 : 1;
                          QStringList m;
                          if (!ConTrappola(c.stato, QStringLiteral("Decozero_106"),
                                           [&] { m = ModelloNuovaCostruzione(p); }))
                              return 1;
                          if (!id.isEmpty())
                              ScegliIdentificativo(m, UCase(Left(id + QStringLiteral("   "), 3)));
                          if (sr) InvertiFlagModello(m);
                          Stampa(c, m);
                          return 0;
                      }});

const Registra variazione({{"censuario", "variazione"},
                           "PARTICELLA.MAP [--sr]",
                           "righe O, V della variazione",
                           1,
                           [](Contesto& c) {
                               PreparaAmbiente(c.stato);
                               QStringList a = c.argomenti;
                               const bool sr = ConOpzione(a, QStringLiteral("--sr"));
                               CampiParticella p;
                               if (a.isEmpty()) return 2;
                               if (!LeggiParticella(c, a[0], p)) return 1;
                               QStringList m;
                               if (!ConTrappola(c.stato, QStringLiteral("BV_TMVariazione"),
                                                [&] { m = ModelloVariazione(p); }))
                                   return 1;
                               if (sr) InvertiFlagModello(m);
                               Stampa(c, m);
                               return 0;
                           }});

const Registra
    fusione({{"censuario", "fusione"},
             "--tipo TM|AUSILIARIO [--mantieni] [--provincia GO] PARTICELLA.MAP...",
             "righe della fusione delle particelle, nell'ordine dato",
             3,
             [](Contesto& c) {
                 PreparaAmbiente(c.stato);
                 QStringList a = c.argomenti;
                 OpzioniFusione o;
                 o.MantieniNumerazione = ConOpzione(a, QStringLiteral("--mantieni"));
                 const qsizetype t = a.indexOf(QStringLiteral("--tipo"));
                 const QString tipo = t >= 0 ? UCase(a.value(t + 1)) : QString();
                 if (tipo != QStringLiteral("TM") && tipo != QStringLiteral("AUSILIARIO")) {
                     c.piattaforma.Messaggio(QStringLiteral("--tipo TM oppure --tipo AUSILIARIO"),
                                             QStringLiteral("Uso"), Icona::Avviso);
                     return 2;
                 }
                 a.remove(t, 2);
                 o.tm = tipo == QStringLiteral("TM");
                 const qsizetype pr = a.indexOf(QStringLiteral("--provincia"));
                 if (pr >= 0) {
                     o.SiglaProvincia = UCase(a.value(pr + 1));
                     a.remove(pr, std::min<qsizetype>(2, a.size() - pr));
                 }
                 if (a.isEmpty()) return 2;
                 for (const QString& f : a) {
                     QString riga;
                     if (!ConTrappola(c.stato, QStringLiteral("BV_TMFusione"),
                                      [&] { riga = LeggiRighe(PercorsoArgomento(f)).value(0); }))
                         return 1;
                     o.particelle << riga;
                 }
                 QStringList righe;
                 if (!ConTrappola(c.stato, QStringLiteral("AnteprimaTMFusione"), [&] {
                         righe = AnteprimaFusione({}, o, c.stato.amb.TabellaQualita);
                     }))
                     return 1;
                 Stampa(c, righe);
                 return 0;
             }});

int ScriviInCartella(Contesto& c, const QList<FileParticella>& file, const QString& cartella) {
    const QString dir = PercorsoArgomento(cartella);
    return ConTrappola(c.stato, QStringLiteral("BV_EDM"),
                       [&] {
                           if (!EsisteCartella(dir)) CreaCartella(dir);
                           for (const FileParticella& f : file) {
                               const QString nome = NomeFileSicuro(f.nome);
                               ScriviTesto(dir + u'/' + nome, f.riga + CRLF);
                               c.out << nome << '\n';
                           }
                       })
               ? 0
               : 1;
}

const Registra
    daEstratto({{"particelle", "da-estratto"},
                "IN.EMP CARTELLA",
                "scrive in CARTELLA un file .Map per ogni particella dell'estratto",
                2,
                [](Contesto& c) {
                    PreparaAmbiente(c.stato);
                    QStringList righe;
                    if (!ConTrappola(c.stato, QStringLiteral("BV_EDM"), [&] {
                            righe = LeggiRighe(PercorsoArgomento(c.argomenti[0]));
                        }))
                        return 1;
                    // Without a libretto the outlines take the comune and foglio of the extract's
                    // head.
                    const QStringList zero = Split(righe.value(0), QStringLiteral("|"));
                    return ScriviInCartella(
                        c, ParticelleDaEstratto(righe, zero.value(3), Right(zero.value(4), 4)),
                        c.argomenti[1]);
                }});

const Registra
    daModello({{"particelle", "da-modello"},
               "LIBRETTO CARTELLA",
               "scrive in CARTELLA i file .MAP delle particelle costituite nei "
               "frazionamenti del libretto",
               2,
               [](Contesto& c) {
                   PreparaAmbiente(c.stato);
                   if (!CaricaComeTrascinamento(c.stato, PercorsoArgomento(c.argomenti[0])))
                       return 1;
                   DecoZeroNove(c.stato);
                   return ScriviInCartella(c,
                                           ParticelleDaModello(c.stato.doc.TestoLibretto,
                                                               c.stato.testata.CodiceComuneLibretto,
                                                               c.stato.testata.FoglioLibretto,
                                                               c.stato.amb.TabellaQualita),
                                           c.argomenti[1]);
               }});

} // namespace

} // namespace tavolet::cli
