// EsplodiLibretto: the rows of the document into their groups, by one table of rules.
#include "riordino.h"

#include "errore.h"
#include "righe.h"
#include "stato.h"
#include "testo.h"

#include <algorithm>

namespace tavolet {

namespace {

const QString kInizioRelazione = QStringLiteral("***** Relazione  Tecnica *****");
const QString kFineRelazione = QStringLiteral("*****   Fine   Relazione *****");
const QString kInizioProposta = QStringLiteral("6|ESTRATTO DI MAPPA|");

// What a rule may look at: the row, its kind and the kind of the row before it in the document.
struct RigaInEsame {
    const QString& riga;
    int tipo;
    int tipoPrecedente;
};

// A comma in field 2 marks a GPS row; a comma elsewhere doesn't.
bool VirgolaInCampo2(const QString& riga) {
    const QStringList campi = Split(riga, QStringLiteral("|"));
    return campi.size() > 2 && campi[2].contains(u',');
}

bool Tiene(const RigaInEsame& r, const char* testo) {
    return r.riga.contains(QLatin1String(testo));
}
bool Inizia(const RigaInEsame& r, const char* testo) {
    return r.riga.startsWith(QLatin1String(testo));
}

struct Regola {
    bool (*vale)(const RigaInEsame&);
    Gruppo gruppo;
    bool prendeSospesi; // the pending rows move into the group first
};

// The classification, in order: the first rule that fits decides. Several outcomes look odd
// and are what Pregeo users rely on: a comment with more than one field is dropped (16), a
// line without a number counts as a row 0 (2), a comment behind another comment goes with
// the outlines (19, 20).
const Regola kRegole[] = {
    /* 1 */ {[](const RigaInEsame& r) { return r.tipo == 3; }, Gruppo::Poligonali, true},
    /* 2 */ {[](const RigaInEsame& r) { return r.tipo == 0; }, Gruppo::Riga0, false},
    /* 3 */
    {[](const RigaInEsame& r) { return r.tipo == 1 && VirgolaInCampo2(r.riga); }, Gruppo::GPS,
     false},
    /* 4 */ {[](const RigaInEsame& r) { return r.tipo == 1; }, Gruppo::Stazioni, false},
    /* 5 */
    {[](const RigaInEsame& r) { return r.tipo == 2 && VirgolaInCampo2(r.riga); }, Gruppo::GPS,
     false},
    /* 6 */ {[](const RigaInEsame& r) { return r.tipo == 2; }, Gruppo::Stazioni, false},
    /* 7 */
    {[](const RigaInEsame& r) { return r.tipo == 6 && Tiene(r, "|BAS|"); }, Gruppo::GPS, false},
    /* 8 */
    {[](const RigaInEsame& r) { return r.tipo == 6 && Tiene(r, "|RTK|"); }, Gruppo::GPS, false},
    /* 9 */
    {[](const RigaInEsame& r) { return r.tipo == 6 && Inizia(r, "6|L1|"); }, Gruppo::GPS, false},
    /* 10 */
    {[](const RigaInEsame& r) { return r.tipo == 6 && Inizia(r, "6|L2|"); }, Gruppo::GPS, false},
    /* 11 */
    {[](const RigaInEsame& r) { return r.tipo == 6 && Tiene(r, "|PDOP="); }, Gruppo::GPS, false},
    /* 12 */
    {[](const RigaInEsame& r) { return r.tipo == 6 && Tiene(r, "|GDOP="); }, Gruppo::GPS, false},
    /* 13 */
    {[](const RigaInEsame& r) { return r.tipo == 6 && Tiene(r, "6|DettaglioTipoAgg="); },
     Gruppo::Commento, false},
    /* 14 */
    {[](const RigaInEsame& r) { return r.tipo == 6 && r.riga.size() == 70; }, Gruppo::Censuario,
     false},
    /* 15 */ {[](const RigaInEsame& r) { return Inizia(r, "6| -"); }, Gruppo::Appunti, false},
    /* 16 */
    {[](const RigaInEsame& r) {
         return r.tipo == 6 && (r.riga.size() >= 76 || r.riga.count(u'|') != 2);
     },
     Gruppo::Scartata, false},
    /* 17 */
    {[](const RigaInEsame& r) {
         return r.tipo == 6 && Tiene(r, "6|Dati per aggiornare il D.B. Censuario");
     },
     Gruppo::Scartata, false},
    /* 18 */
    {[](const RigaInEsame& r) { return r.tipo == 6 && r.riga.contains(kInizioRelazione); },
     Gruppo::Scartata, false},
    /* 19 */
    {[](const RigaInEsame& r) {
         return r.tipo == 6 && (r.tipoPrecedente == 9 || r.tipoPrecedente == 0);
     },
     Gruppo::Commento, false},
    /* 20 */ {[](const RigaInEsame& r) { return r.tipo == 6; }, Gruppo::Contorni, false},
    /* 21 */ {[](const RigaInEsame& r) { return r.tipo == 9; }, Gruppo::Riga9, false},
    /* 22 */ {[](const RigaInEsame& r) { return r.tipo == 8; }, Gruppo::Fiduciali, true},
    /* 23 */ {[](const RigaInEsame& r) { return r.tipo == 7; }, Gruppo::Contorni, true},
    /* 24 */
    {[](const RigaInEsame& r) { return r.tipo == 4 || r.tipo == 5; }, Gruppo::Righe45, true},
    /* 25 */ {[](const RigaInEsame&) { return true; }, Gruppo::Stazioni, false},
};

void Classifica(GruppiLibretto& g, const RigaInEsame& r) {
    for (const Regola& regola : kRegole) {
        if (!regola.vale(r)) continue;
        if (regola.gruppo == Gruppo::Scartata) return;
        QStringList& lista = g.Lista(regola.gruppo);
        if (regola.prendeSospesi) {
            lista += g.GruppoSospesi;
            g.GruppoSospesi.clear();
        }
        lista.append(r.riga);
        return;
    }
}

// Names right-aligned in 20 characters sort in numeric order ("4", "9", "10").
QString CampoUnoAllineato(const QString& riga) {
    QStringList campi = Split(riga, QStringLiteral("|"));
    if (campi.size() < 2) return riga;
    campi[1] = Right(Space(23) + campi[1], 20);
    return Join(campi, QStringLiteral("|"));
}

QString CampoUnoPulito(const QString& riga) {
    QStringList campi = Split(riga, QStringLiteral("|"));
    if (campi.size() < 2) return riga;
    campi[1] = Trim(campi[1]);
    return Join(campi, QStringLiteral("|"));
}

// The sorted working list: each row goes to its alphabetical place, case ignored, behind its
// equals.
void InserisciOrdinata(QStringList& lista, const QString& riga) {
    const auto dopo =
        std::upper_bound(lista.begin(), lista.end(), riga, [](const QString& a, const QString& b) {
            return a.compare(b, Qt::CaseInsensitive) < 0;
        });
    lista.insert(dopo, riga);
}

// Inside each station the orientation stays behind its row 1 and the other points are sorted.
void RiordinaStazioni(QStringList& stazioni) {
    QStringList temporanea, ordinata;
    for (int k = 0; k < stazioni.size(); ++k) {
        const QString& r = stazioni[k];
        const int tipo = TipoRiga(r);
        const int tipoPrecedente = k > 0 ? TipoRiga(stazioni[k - 1]) : 0;
        if (tipo == 1) {
            temporanea += ordinata;
            ordinata.clear();
            temporanea.append(r);
        } else if (tipo == 2 && tipoPrecedente == 1) {
            temporanea.append(r);
        } else {
            InserisciOrdinata(ordinata, CampoUnoAllineato(r));
        }
    }
    // Only here a point equal to the orientation of the first station is dropped.
    const QString orientamento = temporanea.value(1);
    for (const QString& r : std::as_const(ordinata))
        if (CampoUnoPulito(r) != orientamento) temporanea.append(r);
    stazioni.clear();
    for (const QString& r : std::as_const(temporanea)) stazioni.append(CampoUnoPulito(r));
}

// GPS blocks open on a row 1 or on any row 6; a row 2 right behind a row 6 keeps its place.
void RiordinaGps(QStringList& gps) {
    QStringList temporanea, ordinata;
    auto svuota = [&] {
        for (const QString& r : std::as_const(ordinata)) temporanea.append(CampoUnoPulito(r));
        ordinata.clear();
    };
    for (int k = 0; k < gps.size(); ++k) {
        const QString& r = gps[k];
        const int tipo = TipoRiga(r);
        const int tipoPrecedente = k > 0 ? TipoRiga(gps[k - 1]) : 0;
        if (tipo == 1 || tipo == 6) {
            svuota();
            temporanea.append(r);
        } else if (tipo == 2 && tipoPrecedente == 6) {
            temporanea.append(r);
        } else {
            InserisciOrdinata(ordinata, CampoUnoAllineato(r));
        }
    }
    svuota();
    gps = temporanea;
}

// The head rows of the model declare how many rows follow them.
void ControllaConteggioCensuario(Stato& stato, const QStringList& censuario) {
    if (censuario.isEmpty()) return;
    stato.TagRoutine = QStringLiteral("EsplodiLibretto_Censuario");
    double conteggio = 1;
    for (const QString& r : censuario)
        if (r.startsWith(u"6|3SPC |") || r.startsWith(u"6|51FTP|")) conteggio += Val(Mid(r, 9)) + 1;
    if (conteggio != double(censuario.size()))
        stato.piattaforma->Messaggio(
            QStringLiteral("Il numero delle righe INDICATE nel Modello Censuario") + CRLF +
                QStringLiteral("non corrisponde al numero delle righe PRESENTI nel Modello "
                               "Censuario!"),
            QStringLiteral("Tavolet"), Icona::Avviso);
}

} // namespace

QStringList& GruppiLibretto::Lista(Gruppo g) {
    return const_cast<QStringList&>(std::as_const(*this).Lista(g));
}

const QStringList& GruppiLibretto::Lista(Gruppo g) const {
    switch (g) {
    case Gruppo::Riga0:
        return GruppoRiga0;
    case Gruppo::Riga9:
        return GruppoRiga9;
    case Gruppo::Commento:
        return GruppoCommento;
    case Gruppo::Appunti:
        return GruppoAppunti;
    case Gruppo::Poligonali:
        return GruppoPoligonali;
    case Gruppo::GPS:
        return GruppoGPS;
    case Gruppo::Stazioni:
        return GruppoStazioni;
    case Gruppo::Righe45:
        return GruppoRighe45;
    case Gruppo::Contorni:
        return GruppoContorni;
    case Gruppo::Relazione:
        return GruppoRelazione;
    case Gruppo::Fiduciali:
        return GruppoFiduciali;
    case Gruppo::Censuario:
        return GruppoCensuario;
    case Gruppo::Proposta:
        return GruppoProposta;
    case Gruppo::Sospesi:
    case Gruppo::Scartata:
        break;
    }
    return GruppoSospesi;
}

GruppiLibretto EsplodiLibretto(Stato& stato) {
    GruppiLibretto g;
    ConTrappola(stato, QStringLiteral("EsplodiLibretto"), [&] {
        Documento& d = stato.doc;
        const QStringList righe = Split(d.TestoLibretto, CRLF);
        const int u = int(righe.size()) - 1;

        int inizio = u, fine = u;
        for (int i = 0; i < u; ++i) {
            if (righe[i].contains(kInizioRelazione)) inizio = i;
            if (righe[i].contains(kFineRelazione)) {
                fine = i;
                break;
            }
        }
        // Without its end marker the Relazione runs to the last piece of the text.
        if (inizio < fine)
            for (int i = inizio; i <= fine; ++i) g.GruppoRelazione.append(righe[i]);

        stato.TagRoutine = QStringLiteral("EsplodiLibretto_Proposta");
        d.TestoProposta.clear();
        int marca = 0;
        for (int i = 0; i < u; ++i) {
            if (righe[i] == kInizioProposta) marca = i;
            if (marca > 0) {
                g.GruppoProposta.append(righe[i]);
                d.TestoProposta += Trim(righe[i]) + CRLF;
            }
        }

        stato.TagRoutine = QStringLiteral("EsplodiLibretto_Classifica");
        const int limite = marca > 0 ? marca - 1 : u - 1;
        for (int i = 0; i <= limite; ++i) {
            if (inizio <= i && i <= fine) continue;
            const int tipoPrecedente = i > 0 ? TipoRiga(righe[i - 1]) : 0;
            Classifica(g, {righe[i], TipoRiga(righe[i]), tipoPrecedente});
        }

        stato.TagRoutine = QStringLiteral("EsplodiLibretto_Stazioni");
        if (!g.GruppoStazioni.isEmpty()) RiordinaStazioni(g.GruppoStazioni);
        if (!g.GruppoGPS.isEmpty()) RiordinaGps(g.GruppoGPS);
        g.completo = true;

        ControllaConteggioCensuario(stato, g.GruppoCensuario);
    });
    return g;
}

QString EtichettaIscrizioneAlbo(const Stato& stato) {
    return QStringLiteral("Numero Iscrizione Albo ") + stato.doc.NumeroIscrizioneAlbo;
}

QString EtichettaCodiceFiscale(const Stato& stato) {
    return QStringLiteral("Codice Fiscale ") + stato.doc.CodiceFiscaleTecnico;
}

} // namespace tavolet
