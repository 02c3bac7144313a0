// The loaders: rows of a source file sorted into the row lists, then turned into records.
#include "grafica.h"
#include "interno.h"

#include "errore.h"
#include "file_testo.h"
#include "protezioni.h"
#include "stato.h"
#include "testo.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavolet {

using namespace grafica_interno;

namespace {

const QString kMarcaEstratto = QStringLiteral("6|ESTRATTO DI MAPPA|");
const QString kMarcaProposta = QStringLiteral("6|ESTRATTO DI MAPPA AGGIORNATO|");

void SvuotaListe(ModelloGrafica& g) {
    g.List1.clear();
    g.List2[0].clear();
    g.List2[1].clear();
    g.List3.clear();
    g.List4.clear();
    g.List5.clear();
}

QStringList RigheDelFile(const QString& percorso) {
    if (!EsisteFile(percorso)) throw Errore(53, DescrizioneFileMancante(53, percorso));
    return LeggiRighe(percorso);
}

bool Numerico(const QString& f) {
    return Val(f) != 0 || (!f.isEmpty() && f[0].isDigit());
}

// The same on a piece of a row: an id starts with a digit, and only the rest needs Val.
bool Numerico(QStringView f) {
    if (!f.isEmpty() && f[0] >= u'0' && f[0] <= u'9') return true;
    return Numerico(f.toString());
}

// The pieces of a row between the bars, as views of it; with senzaUltimo the empty piece
// behind the last bar is left out.
void CampiVista(QStringView riga, std::vector<QStringView>& campi, bool senzaUltimo) {
    SplitVista(riga, u'|', campi);
    if (senzaUltimo && campi.size() > 1 && campi.back().isEmpty()) campi.pop_back();
}

QStringView CampoVista(const std::vector<QStringView>& campi, size_t i) {
    return i < campi.size() ? campi[i] : QStringView();
}

struct Stile {
    int dimensione, colore;
    const char* font;
};

Stile StileDelSuffisso(QChar c) {
    switch (c.unicode()) {
    case '%':
        return {8, 0, "Courier New"};
    case '*':
        return {10, 12, "Courier New"};
    case '#':
        return {8, 13, "Courier New"};
    case '@':
        return {8, 9, "Courier New"};
    case 'L':
        return {8, 2, "Courier New"};
    case 'T':
        return {8, 2, "Arial Narrow"};
    default:
        return {8, 0, "Courier New"};
    }
}

} // namespace

void BV_CaricaEstratto_EMP(Stato& stato, ModelloGrafica& g, const QString& percorso) {
    g.Percorso = percorso;
    QStringList righe;
    ConTrappola(stato, QStringLiteral("BV_CaricaEstratto_EMP"),
                [&] { righe = RigheDelFile(percorso); });
    CaricaRigheEstratto(stato, g, righe);
}

void CaricaRigheEstratto(Stato& stato, ModelloGrafica& g, const QStringList& righe) {
    SvuotaListe(g);
    BV_Clear(g);
    const VistaGrafica& v = *g.Vista;
    // Rows of blanks only are left out, as are the PF and the toponyms the switches hide.
    auto soloSpazi = [](QStringView r) {
        return std::all_of(r.begin(), r.end(), [](QChar c) { return c == u' '; });
    };
    // A ring's "N" styles are read as "R": one look along the row for either pair.
    auto conNeri = [](QStringView r) {
        for (qsizetype i = r.indexOf(u'N'); i >= 0 && i + 1 < r.size(); i = r.indexOf(u'N', i + 1))
            if (r[i + 1] == u'T' || r[i + 1] == u'P') return true;
        return false;
    };
    g.List2[0].reserve(righe.size());
    for (const QString& riga : righe) {
        const int tipo = ValIntero(riga);
        if (tipo == 8 && v.PFNo && riga.contains(QStringLiteral("|PF"))) continue;
        if (tipo == 8 && v.ToponimiNo && riga.contains(QStringLiteral("T|"))) continue;
        if (tipo == 7 && conNeri(riga)) {
            const QString rossa = Replace(Replace(riga, QStringLiteral("NT"), QStringLiteral("RT")),
                                          QStringLiteral("NP"), QStringLiteral("RP"));
            if (!soloSpazi(rossa)) g.List2[0].append(rossa);
            continue;
        }
        if (!soloSpazi(riga)) g.List2[0].append(riga);
    }
    GeneraGrafica(stato, g);
}

void CaricaRigheProposta(Stato& stato, ModelloGrafica& g, const QStringList& righe) {
    SvuotaListe(g);
    BV_Clear(g);
    int sezione = -1;
    for (const QString& riga : righe) {
        if (riga.contains(kMarcaProposta))
            sezione = 1;
        else if (riga.contains(kMarcaEstratto))
            sezione = 0;
        if (sezione >= 0) g.List2[sezione].append(riga);
    }
    GeneraGrafica(stato, g);
}

void BV_CaricaPropostaDaLibretto(Stato& stato, ModelloGrafica& g, const QString& percorso) {
    g.Percorso = percorso;
    QStringList righe;
    ConTrappola(stato, QStringLiteral("BV_CaricaPropostaDaLibretto"),
                [&] { righe = RigheDelFile(percorso); });
    CaricaRigheProposta(stato, g, righe);
}

void BV_CaricaProposta_SUR(Stato& stato, ModelloGrafica& g, const QString& percorso) {
    g.Percorso = percorso;
    QStringList righe;
    ConTrappola(stato, QStringLiteral("BV_CaricaProposta_SUR"),
                [&] { righe = RigheDelFile(percorso); });
    CaricaRigheProposta(stato, g, righe);
}

void CaricaRigheElaborazione(Stato& stato, ModelloGrafica& g, const QStringList& righe) {
    SvuotaListe(g);
    BV_Clear(g);
    g.PropostaSiNo = 0;
    g.List2[0] = righe;
    GeneraGrafica(stato, g);
}

void BV_Elaborazione_SUR(Stato& stato, ModelloGrafica& g, const QString& percorso) {
    g.Percorso = percorso;
    QStringList righe;
    ConTrappola(stato, QStringLiteral("BV_Elaborazione_SUR"),
                [&] { righe = RigheDelFile(percorso); });
    CaricaRigheElaborazione(stato, g, righe);
}

void EsplodiBlocchiTag(Stato& stato, ModelloGrafica& g, const BlocchiTag& blocchi) {
    SvuotaListe(g);
    BV_Clear(g);
    for (const BloccoTag& b : blocchi.blocchi) {
        switch (b.numero) {
        case 1000:
            g.List1 += b.pezzi;
            break;
        case 2000: {
            bool aggiornato = false;
            for (const QString& r : b.pezzi)
                aggiornato = aggiornato || r.contains(QStringLiteral("AGGIORNATO"));
            // A Pregeo act carries its updated map: the plot shows it.
            if (aggiornato) g.PropostaSiNo = 1;
            g.List2[aggiornato ? 1 : 0] += b.pezzi;
            break;
        }
        case 3000:
        case 5000:
            g.List3 += b.pezzi;
            break;
        case 4000:
            g.List4 += b.pezzi;
            break;
        default:
            break;
        }
    }
    GeneraGrafica(stato, g);
}

void EsplodiPDF(Stato& stato, ModelloGrafica& g, const QString& percorso) {
    g.Percorso = percorso;
    BlocchiTag blocchi;
    if (!ConTrappola(stato, QStringLiteral("EsplodiPDF"),
                     [&] { blocchi = LeggiBlocchiTagDaFile(percorso); }))
        return;
    EsplodiBlocchiTag(stato, g, blocchi);
}

void CaricaRigheCSV(Stato& stato, ModelloGrafica& g, const QStringList& righe) {
    g.List1.clear();
    g.List3.clear();
    g.List2[0].clear();
    for (const QString& riga : righe) {
        g.List2[0].append(riga);
        const QString tipo = Split(riga, QStringLiteral(","))[0];
        if (tipo == QLatin1String("P"))
            g.List1.append(riga);
        else if (tipo == QLatin1String("L"))
            g.List3.append(riga);
        else
            g.List1.append(QStringLiteral("P,") + Replace(riga, QStringLiteral("\""), {}));
    }
    g.Punti.clear();
    g.Linee.clear();
    ++g.Versione;
    g.IndiceNomi.clear();
    ConTrappola(stato, QStringLiteral("BV_LoadFileCSV"), [&] {
        g.Punti.reserve(g.List1.size());
        for (const QString& riga : g.List1) {
            const QStringList c = Split(riga, QStringLiteral(","));
            const QString nome = Campo(c, 1);
            const double x = Val(Campo(c, 2));
            const double y = Val(Campo(c, 3));
            const double z = c.size() > 4 ? Val(c[4]) : 0;
            const QString testo = c.size() > 5 ? c[5] : QString();
            const int colore = c.size() > 6 ? Intero16(Val(c[6])) : 0;
            BV_AggiungiPuntoGraf(g, nome, x, y, z, testo, colore, 0, QStringLiteral("Courier New"),
                                 8);
        }
        g.Linee.reserve(g.List3.size());
        for (const QString& riga : g.List3) {
            const QStringList c = Split(riga, QStringLiteral(","));
            const double x1 = Val(Campo(c, 1)), y1 = Val(Campo(c, 2));
            const double x2 = Val(Campo(c, 4)), y2 = Val(Campo(c, 5));
            const int colore = c.size() > 7 ? Intero16(Val(c[7])) : 0;
            const int spessore = c.size() > 8 ? Intero16(Val(c[8])) : 1;
            const int stile = c.size() > 9 ? Intero16(Val(c[9])) : 0;
            BV_AggiungiLineaGraf(g, x1, y1, 0, x2, y2, 0, colore, spessore, stile);
        }
    });
    BV_ZoomTutto(g);
}

void BV_LoadFileCSV(Stato& stato, ModelloGrafica& g, const QString& percorso) {
    g.Percorso = percorso;
    QStringList righe;
    if (!ConTrappola(stato, QStringLiteral("BV_LoadFileCSV"),
                     [&] { righe = RigheDelFile(percorso); }))
        return;
    CaricaRigheCSV(stato, g, righe);
}

bool CaricaGraficaDaFile(Stato& stato, ModelloGrafica& g, const QString& percorso) {
    if (!EsisteFile(percorso)) return false;
    const QString est = UCase(Right(percorso, 4));
    if (est == ".EMP" || est == ".AGG" || est == ".SMP") {
        BV_CaricaEstratto_EMP(stato, g, percorso);
    } else if (est == ".CSV") {
        BV_LoadFileCSV(stato, g, percorso);
    } else if (est == ".PDF") {
        EsplodiPDF(stato, g, percorso);
    } else {
        const QString testo = LeggiTesto(percorso);
        if (testo.contains(QStringLiteral("[TAG")))
            EsplodiPDF(stato, g, percorso);
        else if (testo.contains(kMarcaEstratto) || testo.contains(kMarcaProposta))
            BV_CaricaProposta_SUR(stato, g, percorso);
        else
            BV_Elaborazione_SUR(stato, g, percorso);
    }
    return true;
}

void GeneraGrafica(Stato& stato, ModelloGrafica& g) {
    g.Punti.clear();
    g.Linee.clear();
    ++g.Versione;
    g.IndiceNomi.clear();
    if (g.PropostaSiNo == 0) {
        AggiungiGrafica(stato, g, 0, 0);
        g.LibrettoOriginale = g.List2[0];
    } else {
        AggiungiGrafica(stato, g, 0, 1);
        AggiungiGrafica(stato, g, 1, 1);
        g.LibrettoOriginale = g.List2[0] + g.List2[1];
    }
    BV_ZoomTutto(g);
}

namespace {

struct Anello {
    QString campi; // ids and tokens, each followed by a bar
    QString coda;  // style, label, name, area of the first row
    QString conta; // field 1 of the first row
};

} // namespace

void AggiungiGrafica(Stato& stato, ModelloGrafica& g, int indice, int proposta) {
    const QStringList& lista = g.List2[indice == 1 ? 1 : 0];
    if (lista.size() < 2) return;
    ConTrappola(stato, QStringLiteral("AggiungiGrafica"), [&] {
        // Points. The two faces are shared by every record instead of one text each.
        static const QString kCourier = QStringLiteral("Courier New");
        static const QString kArial = QStringLiteral("Arial Narrow");
        g.Punti.reserve(g.Punti.size() + lista.size());
        std::vector<QStringView> c;
        for (const QString& riga : lista) {
            if (!riga.startsWith(QLatin1String("8|")) && ValIntero(riga) != 8) continue;
            CampiVista(riga, c, false);
            const QString id = CampoVista(c, 1).toString();
            const Stile st = StileDelSuffisso(id.isEmpty() ? QChar() : id.back());
            const double y = Val(CampoVista(c, 2));
            const double x = Val(CampoVista(c, 3));
            QString testo;
            double angolo = 0;
            if (!id.isEmpty() && id.back() == u'T') {
                angolo = Val(CampoVista(c, 4)) / (2 * M_PI) * 360;
                testo = CampoVista(c, 5).toString();
            }
            BV_AggiungiPuntoGraf(g, id, x, y, 0, testo, st.colore, angolo,
                                 st.font[0] == 'A' ? kArial : kCourier, st.dimensione);
        }

        // Rings.
        g.List6.clear();
        QList<Anello> anelli;
        Anello corrente;
        bool aperto = false;
        for (const QString& riga : lista) {
            if (!riga.startsWith(QLatin1String("7|"))) continue;
            CampiVista(riga, c, true);
            if (c.size() > 3 && c[3].contains(QStringLiteral("PV"))) continue;
            const QStringView uno = CampoVista(c, 1);
            auto aggiungi = [](QString& a, QStringView f) {
                a.append(f);
                a.append(u'|');
            };
            if (uno == QLatin1String("0")) {
                for (size_t i = 2; i < c.size(); ++i) aggiungi(corrente.campi, c[i]);
                continue;
            }
            if (aperto) {
                g.List6.append(corrente.campi + corrente.coda);
                corrente.campi.clear(); // List6 holds the ring's text from here on
                anelli.append(std::move(corrente));
            }
            corrente = Anello();
            aperto = true;
            corrente.conta = uno.toString();
            const qsizetype n = qsizetype(c.size());
            const bool senzaCoda = TokenStile(c.back().toString());
            const qsizetype fine = senzaCoda ? n - 1 : n - 4;
            for (qsizetype i = 2; i <= fine && i < n; ++i) aggiungi(corrente.campi, c[size_t(i)]);
            if (!senzaCoda)
                for (qsizetype i = std::max<qsizetype>(n - 3, 2); i < n; ++i)
                    aggiungi(corrente.coda, c[size_t(i)]);
        }
        if (aperto) {
            g.List6.append(corrente.campi + corrente.coda);
            corrente.campi.clear();
            anelli.append(std::move(corrente));
        }

        int colore = 0, stile = 0;
        const bool vecchiaMappa = indice == 0 && proposta == 1;
        for (qsizetype k = 0; k < anelli.size(); ++k) {
            const Anello& a = anelli[k];
            const QString& testo = g.List6[k];
            const int spessore = testo.contains(u'+') ? 2 : 1;
            CampiVista(testo, c, false);
            c.pop_back(); // the piece behind the last bar
            // Each id is looked up once: the point of the one before is kept (a ring's walk
            // starts from an empty name, which a point may bear).
            int precedente = g.TrovaPunto(QStringView());
            for (size_t i = c.size(); i-- > 0;) {
                const QStringView f = c[i];
                if (Numerico(f)) {
                    const int k = g.TrovaPunto(f);
                    if (k >= 0 && precedente >= 0) {
                        const PuntoGrafica& p = std::as_const(g.Punti)[k];
                        const PuntoGrafica& q = std::as_const(g.Punti)[precedente];
                        BV_AggiungiLineaGraf(g, p.X, p.Y, p.Z, q.X, q.Y, q.Z,
                                             vecchiaMappa ? 9 : colore, spessore, stile);
                    }
                    precedente = k;
                } else {
                    stato.TagRoutine = QStringLiteral("AggiungiGrafica1");
                    switch (f.isEmpty() ? 0 : f[0].unicode()) {
                    case 'N':
                        colore = 0;
                        break;
                    case 'R':
                        colore = 12;
                        break;
                    case 'V':
                        colore = 2;
                        break;
                    default:
                        break;
                    }
                    stato.TagRoutine = QStringLiteral("AggiungiGrafica2");
                    switch (f.isEmpty() ? 0 : f.back().unicode()) {
                    case 'C':
                        stile = 0;
                        break;
                    case 'T':
                        stile = 1;
                        break;
                    case 'P':
                        stile = 2;
                        break;
                    default:
                        break;
                    }
                }
            }
            stato.TagRoutine = QStringLiteral("AggiungiGrafica");
            if (!a.coda.isEmpty())
                BV_AggiungiNomeParticella(g, QStringLiteral("7|") + a.conta + u'|' + testo,
                                          vecchiaMappa ? 9 : 0);
        }
    });
}

void BV_AggiungiNomeParticella(ModelloGrafica& g, const QString& riga, int colore) {
    std::vector<QStringView> c;
    CampiVista(riga, c, true);
    const qsizetype n = qsizetype(c.size());
    if (n < 6) return;
    const QStringView etichetta = c[size_t(n - 3)];
    if (Trim(etichetta.toString()).isEmpty()) return;
    // The centre of the ring's points, the closing repeat of the first counted once.
    qsizetype ultimo = n - 5;
    while (ultimo >= 2 && !Numerico(c[size_t(ultimo)])) --ultimo;
    qsizetype primo = 2;
    while (primo <= ultimo && !Numerico(c[size_t(primo)])) ++primo;
    if (ultimo > primo && c[size_t(ultimo)] == c[size_t(primo)]) --ultimo;
    double sx = 0, sy = 0;
    int conta = 0;
    for (qsizetype i = primo; i <= ultimo; ++i) {
        if (!Numerico(c[size_t(i)])) continue;
        const int k = g.TrovaPunto(c[size_t(i)]);
        if (k < 0) continue;
        sx += g.Punti[k].X;
        sy += g.Punti[k].Y;
        ++conta;
    }
    if (conta == 0) return;
    BV_AggiungiPuntoGraf(g, QStringLiteral(" ") + etichetta.toString(), sx / conta, sy / conta, 0,
                         {}, colore, 0, QStringLiteral("Courier New"), 12);
}

} // namespace tavolet
