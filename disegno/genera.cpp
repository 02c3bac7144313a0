#include "genera.h"

#include "geometria.h"
#include "libretto.h"
#include "riordino.h"
#include "stazioni.h"
#include "taf.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace tavolet {

namespace {

const QString kFiguraAngolo = QStringLiteral("########0.##0#");
const QString kFiguraDistanza = QStringLiteral("#########0.##0");
const QString kFiguraAltezza = QStringLiteral("##0.#0#");

QString F(double v, const QString& figura) {
    return Replace(Formato(v, figura), QStringLiteral(","), QStringLiteral("."));
}

// A field of a split row, the list grown when the row is shorter.
void ImpostaCampo(QStringList& campi, int i, const QString& valore) {
    while (campi.size() <= i) campi << QString();
    campi[i] = valore;
}

const PuntoDisegno& Punto(const Disegno& d, int i) {
    if (i < 0 || i >= d.PuntiDisegno.size()) throw Errore(9);
    return d.PuntiDisegno[i];
}

QString NotaONote(const QString& nota) {
    const QString n = Trim(nota);
    return n.isEmpty() ? QStringLiteral("Note: ") : n;
}

// Stage 1: the GPS rows of the old libretto, with the notes of the drawing.
QStringList RigheGPS(const QStringList& righe, const Disegno& d, const OpzioniLibretto& o) {
    QStringList gps;
    for (const QString& r : righe) {
        const int tipo = TipoRiga(r);
        if (((tipo == 1 || tipo == 2) && r.contains(u',')) ||
            (tipo == 6 &&
             (r.contains(QStringLiteral("|BAS|")) || r.contains(QStringLiteral("|RTK|")) ||
              r.contains(QStringLiteral("|PDOP=")) || r.startsWith(QStringLiteral("6|L1|")) ||
              r.startsWith(QStringLiteral("6|L2|")))))
            gps << r;
    }
    for (QString& r : gps)
        if (TipoRiga(r) == 2 && Split(r, kBarra).size() - 1 < 7) r += QStringLiteral("NOTE:|");
    if (gps.size() >= 3 && o.MantieniGPS)
        for (int i = int(gps.size()) - 1; i >= 0; --i)
            if (TipoRiga(gps[i]) == 2 && TrovaPuntoDisegno(d, Split(gps[i], kBarra).value(1)) < 0)
                gps.removeAt(i);
    if (gps.size() >= 3) {
        for (QString& r : gps) {
            const int tipo = TipoRiga(r);
            if (tipo != 1 && tipo != 2) continue;
            QStringList campi = Split(r, kBarra);
            const int i = TrovaPuntoDisegno(d, campi.value(1));
            if (i < 0) continue;
            const int campo = tipo == 1 ? 4 : 6;
            if (campi.size() - 1 != campo) {
                ImpostaCampo(campi, campo, d.PuntiDisegno[i].note);
                r = Join(campi, kBarra);
            } else {
                r += d.PuntiDisegno[i].note + kBarra;
            }
        }
    }
    return gps;
}

// The third head row: a short comment right behind rows 0 and 9.
QString TerzaRigaTesta(const QStringList& righe) {
    const QString r = righe.value(2);
    if (TipoRiga(r) == 6 && r.size() < 76 && r.count(u'|') == 2 &&
        !r.contains(QStringLiteral("Relazione  Tecnica")))
        return r;
    return QString();
}

void RighePoligonali(LavoroGenerazione& g) {
    if (g.opzioni.Mantieni3_7) {
        g.rapporto << QStringLiteral("Mantiene Poligonali del Libretto");
        QStringList commenti;
        for (const QString& r : g.righeLibretto) {
            const int tipo = TipoRiga(r);
            if (tipo == 6 && r.size() < 44) commenti << r;
            if (tipo == 3) {
                g.appoggio << commenti << r;
                commenti.clear();
            }
        }
        return;
    }
    g.rapporto << QStringLiteral("Carica Poligonali da Contorni 3");
    for (const ContornoDisegno& c : g.disegno.ContorniDisegno) {
        if (UCase(Trim(c.tipo)) != u"POLIGONALE") continue;
        QStringList nomi = Split(c.punti, kBarra);
        nomi.removeAll(QString());
        QString riga = QStringLiteral("3|") + QString::number(nomi.size()) + kBarra;
        int nellaRiga = 0;
        for (const QString& n : nomi) {
            riga += n + kBarra;
            if (++nellaRiga == 10) {
                g.appoggio << riga;
                riga = QStringLiteral("3|0|");
                nellaRiga = 0;
            }
        }
        if (riga.size() > 4) g.appoggio << riga;
    }
}

bool Stazione(const QString& nome, const OpzioniLibretto& o) {
    return o.IncrementoCentesimale ? StazioneCentesimale(nome) : StazioneMillesimale(nome);
}

bool Appartiene(const QString& s, const QString& n) {
    if (s.size() == 3 && n.size() == 3) return s[0] == n[0];
    if (s.size() == 4 && n.size() == 4 && !s.endsWith(QStringLiteral("000")))
        return s.left(2) == n.left(2);
    return s.size() == n.size() && s.size() >= 4 && s.left(s.size() - 3) == n.left(n.size() - 3);
}

void RigheStazioni(LavoroGenerazione& g, const QStringList& listaLinee) {
    QStringList stazioni;
    for (const QString& v : listaLinee)
        stazioni << ADestra(NomeSinistro(v), 15) << ADestra(NomeDestro(v), 15);
    std::sort(stazioni.begin(), stazioni.end());
    stazioni.erase(std::unique(stazioni.begin(), stazioni.end()), stazioni.end());
    for (int i = int(stazioni.size()) - 1; i >= 0; --i)
        if (!Stazione(Trim(stazioni[i]), g.opzioni)) stazioni.removeAt(i);

    QStringList righe;
    for (const QString& allineata : stazioni) {
        const QString s = Trim(allineata);
        g.rapporto << QStringLiteral("Stazione : ") + s;
        righe << QStringLiteral("1|") + s + kBarra;
        QString ultimo;
        for (int passo = 0; passo < 2; ++passo) {
            for (const QString& v : listaLinee) {
                QString vicino;
                if (NomeSinistro(v) == s)
                    vicino = NomeDestro(v);
                else if (NomeDestro(v) == s)
                    vicino = NomeSinistro(v);
                else
                    continue;
                if (vicino.endsWith(QStringLiteral("00")) != (passo == 0)) continue;
                righe << QStringLiteral("2|") + vicino + kBarra;
                ultimo = vicino;
            }
        }
        for (const PuntoDisegno& p : g.disegno.PuntiDisegno) {
            if (p.note.contains(QStringLiteral("<EL>")) || p.nome == s || p.nome == ultimo)
                continue;
            if (Appartiene(s, p.nome)) righe << QStringLiteral("2|") + p.nome + kBarra;
        }
    }
    g.uscita << righe;

    // The lines between names that are not stations: kept aside, they travel with the next
    // rows that join the libretto.
    for (const QString& v : listaLinee) {
        const QString a = NomeSinistro(v), b = NomeDestro(v), t = v.left(2);
        const double vt = Val(t);
        if (StazioneMillesimale(a) || StazioneMillesimale(b) ||
            (a.startsWith(QStringLiteral("PF")) && b.startsWith(QStringLiteral("PF"))) || vt > 3 ||
            !(vt == 0 || vt == 10 || vt == 12))
            continue;
        g.appoggio << a + QStringLiteral(" - ") + b + QStringLiteral(" + ") + t +
                          QStringLiteral(" _ ") + t;
    }
}

// Stage 5: offsets, levellings and the points of a base.
void RigheSquadri(LavoroGenerazione& g) {
    const Disegno& d = g.disegno;
    if (d.ContorniDisegno.isEmpty()) return;
    g.rapporto << QStringLiteral("Carica Squadri dal Disegno");
    if (g.opzioni.MantieniRighe4) {
        g.rapporto << QStringLiteral("Mantiene Righe 4-5 del Libretto");
        for (const QString& r : g.righeLibretto) {
            const int tipo = TipoRiga(r);
            if (tipo == 4 || tipo == 5) g.uscita << r;
        }
        return;
    }
    auto conNota = [](QString riga) {
        return Replace(riga, QStringLiteral(","), QStringLiteral("."));
    };
    for (const ContornoDisegno& c : d.ContorniDisegno) {
        const QString tipo = Trim(c.tipo);
        QStringList nomi = Split(c.punti, kBarra);
        if (!nomi.isEmpty() && nomi.first().isEmpty()) nomi.removeFirst();
        if (!nomi.isEmpty() && nomi.last().isEmpty()) nomi.removeLast();
        if (nomi.isEmpty()) continue;
        if (tipo == u"LIVELLAZIONE RAGGIANTE") {
            const PuntoDisegno& p1 = Punto(d, TrovaPuntoDisegno(d, nomi[0]));
            g.uscita << conNota(QStringLiteral("4|") + nomi[0] + kBarra + F(p1.H, "###0.##0") +
                                kBarra + NotaONote(p1.note) + kBarra);
            for (int i = 1; i < nomi.size(); ++i) {
                const PuntoDisegno& p = Punto(d, TrovaPuntoDisegno(d, nomi[i]));
                g.uscita << conNota(QStringLiteral("5|") + nomi[i] + kBarra +
                                    F(p1.Z + p.H - p.Z, "####0.##0") + kBarra + NotaONote(p.note) +
                                    kBarra);
            }
        } else if (tipo == u"LIVELLAZIONE DAL MEZZO") {
            for (int i = 0; i + 1 < nomi.size(); ++i) {
                const PuntoDisegno& p1 = Punto(d, TrovaPuntoDisegno(d, nomi[i]));
                const PuntoDisegno& p2 = Punto(d, TrovaPuntoDisegno(d, nomi[i + 1]));
                const double dz = p2.Z - p1.Z;
                double l1 = 1.523, l2 = 1.523;
                if (dz > 0) {
                    l1 = dz + 0.2;
                    l2 = 0.2;
                } else if (dz < 0) {
                    l1 = 0.2;
                    l2 = std::fabs(dz) + 0.2;
                }
                g.uscita << QStringLiteral("4|") + nomi[i] + kBarra + nomi[i + 1] + kBarra +
                                F(l1, "####0.##0") + kBarra + F(l2, "####0.##0") +
                                QStringLiteral("|Liv dal Mezzo|");
            }
        } else if (tipo == u"SQUADRO" && nomi.size() >= 2) {
            const QString e = Replace(Trim(c.extra), QStringLiteral("_"), QString());
            const PuntoDisegno& a = Punto(d, TrovaPuntoDisegno(d, nomi[0]));
            const PuntoDisegno& b = Punto(d, TrovaPuntoDisegno(d, nomi[1]));
            g.uscita << conNota(QStringLiteral("4|") + nomi[0] + kBarra + nomi[1] +
                                QStringLiteral("|0.00|") + e + u' ' + NotaONote(a.note) + kBarra);
            const QString figura =
                c.extra == u"*V*" ? QStringLiteral("########0.#0") : kFiguraDistanza;
            Piede piede;
            const double azAB = AzimutDistanza(a.X, a.Y, b.X, b.Y);
            for (int i = 1; i < nomi.size(); ++i) {
                const int k = TrovaPuntoDisegno(d, nomi[i]);
                if (k < 0) continue;
                const PuntoDisegno& p = d.PuntiDisegno[k];
                PiedePerpendicolare(a.X, a.Y, b.X, b.Y, p.X, p.Y, piede);
                double q = AzimutDistanza(a.X, a.Y, p.X, p.Y) - azAB;
                if (q < 0) q += 2 * kPiGreco;
                double ordinata = q > kPiGreco ? -piede.daC : piede.daC;
                double ascissa = piede.daA;
                if (q > kPiGreco / 2 && q < 3 * kPiGreco / 2) {
                    ascissa = -ascissa;
                    ordinata = -ordinata;
                }
                g.uscita << conNota(QStringLiteral("5|") + nomi[i] + kBarra + F(ascissa, figura) +
                                    kBarra + F(ordinata, figura) + kBarra + NotaONote(p.note) +
                                    kBarra);
            }
        } else if (tipo == u"COGO" && nomi.size() >= 2) {
            int ultimo = TrovaPuntoDisegno(d, nomi[0]);
            const PuntoDisegno& a = Punto(d, ultimo);
            g.uscita << conNota(QStringLiteral("4|") + nomi[0] + kBarra + nomi[1] +
                                QStringLiteral("|50|") + NotaONote(a.note) + kBarra);
            ultimo = TrovaPuntoDisegno(d, nomi[1]);
            const PuntoDisegno& b = Punto(d, ultimo);
            QList<int> punti;
            for (int i = 2; i < nomi.size(); ++i) {
                ultimo = TrovaPuntoDisegno(d, nomi[i]);
                punti << ultimo;
                if (ultimo < 0) continue;
                const PuntoDisegno& p = d.PuntiDisegno[ultimo];
                g.uscita << conNota(QStringLiteral("5|") + nomi[i] + kBarra +
                                    F(DistanzaPiana(a.X, a.Y, p.X, p.Y), kFiguraDistanza) +
                                    QStringLiteral("|0|") + NotaONote(p.note) + kBarra);
            }
            // The note of the point looked up last, as the row has always had it.
            g.uscita << conNota(QStringLiteral("4|") + nomi[1] + kBarra + nomi[0] +
                                QStringLiteral("|-50|") + NotaONote(Punto(d, ultimo).note) +
                                kBarra);
            for (int i = 2; i < nomi.size(); ++i) {
                const int k = punti[i - 2];
                if (k < 0) continue;
                const PuntoDisegno& p = d.PuntiDisegno[k];
                g.uscita << conNota(QStringLiteral("5|") + nomi[i] + kBarra +
                                    F(DistanzaPiana(b.X, b.Y, p.X, p.Y), kFiguraDistanza) +
                                    QStringLiteral("|0|") + NotaONote(p.note) + kBarra);
            }
            g.uscita << QStringLiteral("4|") + nomi[0] + QStringLiteral("|0.00|");
            for (int i = 2; i < nomi.size(); ++i) {
                const int k = punti[i - 2];
                if (k < 0) continue;
                g.uscita << QStringLiteral("5|") + nomi[i] + kBarra +
                                F(d.PuntiDisegno[k].Z - a.Z, kFiguraDistanza) + kBarra;
            }
        }
    }
}

// The orientation of station s on reference r in the old libretto: the last match wins.
bool OrientamentoDaLibretto(Stato& stato, const QStringList& righe, const QString& s,
                            const QString& r, double& o) {
    bool trovato = false;
    const QString stazione = QStringLiteral("1|") + s + kBarra;
    const QString riferimento = QStringLiteral("2|") + r + kBarra;
    for (int i = 0; i + 2 < righe.size(); ++i) {
        if (!righe[i].startsWith(stazione)) continue;
        for (int j = i + 1; j < righe.size(); ++j) {
            if (righe[j].startsWith(riferimento)) {
                o = Val(righe[j].mid(riferimento.size()));
                trovato = true;
                break;
            }
            if (TipoRiga(righe[j]) == 1) {
                stato.piattaforma->Messaggio(
                    QStringLiteral("L'Orientamento della stazione ") + stazione + CRLF +
                        riferimento + QStringLiteral(" Non Trovato!"),
                    QStringLiteral("Orientamento non Trovato!"), Icona::Avviso);
                break;
            }
        }
    }
    return trovato;
}

// Stage 8: the measures of the rows 1 and 2, computed from the coordinates.
void Misure(Stato& stato, LavoroGenerazione& g, double precisione) {
    const Disegno& d = g.disegno;
    const OpzioniLibretto& o = g.opzioni;
    PuntoDisegno s, r;
    double orientamento = 0;
    bool quota = false;
    const double soglia = Val(o.DislivelloPlanimetrico) / 1000;
    for (int i = 0; i < g.uscita.size(); ++i) {
        QString& riga = g.uscita[i];
        const int tipo = TipoRiga(riga);
        if (tipo == 1) {
            const QString nome = Split(riga, kBarra).value(1);
            const int k = TrovaPuntoDisegno(d, nome);
            if (k >= 0) {
                s = d.PuntiDisegno[k];
                riga = QStringLiteral("1|") + nome + kBarra;
                quota = false;
                if (s.H > 0 && !(s.note.contains(QStringLiteral("<P!>")) &&
                                 !s.note.contains(QStringLiteral("[P.A.]")))) {
                    quota = true;
                    riga += F(s.H, kFiguraAltezza) + kBarra;
                }
                riga += NotaONote(s.note) + kBarra;
            }
            const QString nomeR = Split(g.uscita.value(i + 1), kBarra).value(1);
            const int kr = TrovaPuntoDisegno(d, nomeR);
            if (kr >= 0) r = d.PuntiDisegno[kr];
            switch (o.orientamento) {
            case Orientamento::TuttiAzimut:
                orientamento = AzimutDistanza(s.X, s.Y, r.X, r.Y) * kGonPerRadiante;
                break;
            case Orientamento::StazionePrecedente:
                orientamento = 0;
                break;
            case Orientamento::Libretto:
                OrientamentoDaLibretto(stato, g.righeLibretto, nome, nomeR, orientamento);
                break;
            default:
                break;
            }
        } else if (tipo == 2) {
            const QString nome = Split(riga, kBarra).value(1);
            const int k = TrovaPuntoDisegno(d, nome);
            if (k < 0) continue;
            const PuntoDisegno& t = d.PuntiDisegno[k];
            const double a = DirezioneOrientata(orientamento, s.X, s.Y, t.X, t.Y, r.X, r.Y);
            QString angolo = F(Arrotonda(a, precisione), kFiguraAngolo);
            if (Val(angolo) >= 400) angolo = QStringLiteral("0.000");
            riga = QStringLiteral("2|") + nome + kBarra + angolo + kBarra;
            const bool planimetrico = t.note.contains(QStringLiteral("<P!>")) ||
                                      (o.PuntoPlanimetrico && std::fabs(s.Z - t.Z) <= soglia);
            double dist = DistanzaPiana(s.X, s.Y, t.X, t.Y);
            if (quota && !planimetrico) {
                if (dist <= 0) {
                    stato.piattaforma->Messaggio(
                        QStringLiteral("Il punto ") + nome +
                            QStringLiteral(" è coincidente con la stazione.") + CRLF +
                            QStringLiteral("Non verrà inserito nel Libretto"),
                        QStringLiteral("Punti Coincidenti"), Icona::Critico);
                } else {
                    const double dz = std::fabs(t.H) + t.Z - (std::fabs(s.H) + s.Z);
                    const double zenit = 100 - kGonPerRadiante * std::atan(dz / dist);
                    riga += F(Arrotonda(zenit, precisione), kFiguraAngolo) + kBarra;
                    dist = std::sqrt(dist * dist + dz * dz);
                }
            }
            if (t.H < 0 || t.note.contains(QStringLiteral("<00>")))
                riga += QStringLiteral("0.000|");
            else
                riga += F(dist, kFiguraDistanza) + kBarra;
            if (quota && !planimetrico && t.H >= 0) riga += F(t.H, kFiguraAltezza) + kBarra;
            const QString nota = Trim(t.note);
            riga += (nota.isEmpty() ? QStringLiteral("Note:") : nota) + kBarra;
        }
    }
}

// Stage 9: rows 8 from the TAF and from the tags of the points.
void Righe8(Stato& stato, LavoroGenerazione& g, const QStringList& gps) {
    const Disegno& d = g.disegno;
    if (g.opzioni.Mantieni8) {
        g.rapporto << QStringLiteral("Mantiene Righe 8 del Libretto");
        for (int i = 2; i < g.righeLibretto.size(); ++i)
            if (TipoRiga(g.righeLibretto[i]) == 8) g.uscita << g.righeLibretto[i];
    } else {
        g.rapporto << QStringLiteral("Carica Righe 8 dal Disegno");
        QStringList nomi;
        for (const QStringList* lista : std::initializer_list<const QStringList*>{&g.uscita, &gps})
            for (const QString& r : *lista) {
                const QString su = UCase(r);
                if (InStr(su, QStringLiteral("|PF")) > 1) nomi << Trim(Split(su, kBarra).value(1));
            }
        std::sort(nomi.begin(), nomi.end());
        nomi.erase(std::unique(nomi.begin(), nomi.end()), nomi.end());
        // The box reads "Carica Righe 8 PF da TAF", but a tick means the TAF is left alone.
        if (!g.opzioni.PFDaEstratto) {
            for (const QString& nome : nomi) {
                const QString comune = ComuneDelPF(nome);
                const QString percorso = stato.amb.UnitaPregeoDati +
                                         QStringLiteral("\\fiducial\\DATI\\") + comune +
                                         QStringLiteral(".taf");
                if (comune.isEmpty() || !EsisteFile(percorso)) continue;
                for (const RigaTaf& t : LeggiTaf(LeggiTesto(percorso))) {
                    if (Trim(t.Codice()) != nome) continue;
                    QString rif = t.rifAltim, att = t.attAltim, q = t.quota;
                    if (UCase(rif).contains(QStringLiteral("<QUOTA>")))
                        rif = QStringLiteral("BASE MANUFATTO-SUOLO");
                    if (q.isEmpty()) {
                        q = QStringLiteral("9999");
                        att = QStringLiteral("04");
                    }
                    if (Val(att) == 0) att = QStringLiteral("04");
                    g.uscita << QStringLiteral("8|") + t.Codice() + kBarra + t.nord + kBarra +
                                    t.est + kBarra + t.attPlan + kBarra + t.rifPlan + kBarra;
                    g.uscita << QStringLiteral("8|") + t.Codice() + kBarra + q + kBarra + att +
                                    kBarra + rif + kBarra;
                }
            }
        }
    }
    auto pulita = [](QString nota) {
        PulisciRigaMarche(nota);
        return nota;
    };
    for (const PuntoDisegno& p : d.PuntiDisegno)
        if (UCase(p.note).contains(QStringLiteral("[P.A.]"))) {
            QString nota =
                Trim(Replace(pulita(UCase(p.note)), QStringLiteral("[P.A.]"), QString()));
            nota = nota.isEmpty() ? QStringLiteral("[P.A.]") : nota + QStringLiteral(" [P.A.]");
            g.uscita << QStringLiteral("8|") + p.nome + kBarra + F(p.Y, kFiguraDistanza) + kBarra +
                            F(p.X, kFiguraDistanza) + kBarra + nota + kBarra;
        }
    auto notaONote = [&](const QString& n) {
        const QString c = pulita(n);
        return c.isEmpty() ? QStringLiteral("Note:|") : c + kBarra;
    };
    for (const PuntoDisegno& p : d.PuntiDisegno)
        if (UCase(p.note).contains(QStringLiteral("<8P>")))
            g.uscita << QStringLiteral("8|") + p.nome + kBarra + F(p.Y, kFiguraDistanza) + kBarra +
                            F(p.X, kFiguraDistanza) + kBarra + notaONote(p.note);
    for (const PuntoDisegno& p : d.PuntiDisegno)
        if (UCase(p.note).contains(QStringLiteral("<8=>")))
            g.uscita << QStringLiteral("8|") + p.nome + kBarra + F(p.Y, kFiguraDistanza) + kBarra +
                            F(p.X, kFiguraDistanza) + QStringLiteral("|12|89000=") +
                            Right(QStringLiteral("00000") + p.nome, 5) + kBarra;
    for (const PuntoDisegno& p : d.PuntiDisegno)
        if (UCase(p.note).contains(QStringLiteral("<8Q>")))
            g.uscita << QStringLiteral("8|") + p.nome + kBarra + F(p.Z, kFiguraDistanza) +
                            QStringLiteral("|04|") + notaONote(p.note);
}

void Riga9(Stato& stato, QStringList& uscita) {
    bool trovata = false;
    double minimo = 0, massimo = 0;
    for (int i = 1; i < uscita.size(); ++i) {
        if (TipoRiga(uscita[i]) != 8) continue;
        const RigaScomposta r = ScomponiRiga(uscita[i]);
        if (r.NumeroCampi <= 4) continue;
        const double v = Val(r.Campo(3));
        if (!trovata || v < minimo) minimo = v;
        if (!trovata || v > massimo) massimo = v;
        trovata = true;
    }
    if (!trovata || uscita.size() < 2) return;
    const RigaScomposta r = ScomponiRiga(uscita[1]);
    auto o = [&](int i, const QString& altro) { return r.Campo(i).isEmpty() ? altro : r.Campo(i); };
    uscita[1] = QStringLiteral("9|") + r.Campo(1) + kBarra + o(2, QStringLiteral("10")) + kBarra +
                o(3, QStringLiteral("20")) + kBarra + F((minimo + massimo) / 2, "#########0") +
                kBarra + o(5, stato.amb.VersionePregeo) + kBarra + o(6, QStringLiteral("FR")) +
                kBarra + o(7, QStringLiteral("Geodimetro")) + kBarra;
}

bool Numerico(const QString& s) {
    bool ok = false;
    Trim(s).toDouble(&ok);
    return ok;
}

} // namespace

EsitoGenerazione
GeneraLibrettoMisureAutomatico(Stato& stato, const Disegno& disegno, const QStringList& listaLinee,
                               const OpzioniLibretto& opzioni, QStringList& rapporto,
                               const std::function<void(const QStringList&)>& mostraRapporto) {
    EsitoGenerazione esito;
    ConTrappola(stato, QStringLiteral("LibrettoDaDisegno GeneraLibrettoAutomatico"), [&] {
        LavoroGenerazione g{disegno, opzioni, Split(stato.doc.TestoLibretto, CRLF),
                            {},      {},      rapporto};
        const QStringList gps = RigheGPS(g.righeLibretto, disegno, opzioni);

        const double precisione = ValorePrecisione(opzioni.PrecisioneAngolare);
        if (opzioni.orientamento == Orientamento::Nessuno) {
            stato.piattaforma->Messaggio(
                QStringLiteral("Selezionare una modalità di Orientamento delle stazioni!"),
                QStringLiteral("Orientamento stazioni"), Icona::Avviso);
            esito.fermato = true;
            return;
        }

        g.appoggio << stato.doc.Riga0 << stato.doc.Riga9;
        const QString terza = TerzaRigaTesta(g.righeLibretto);
        if (!Trim(terza).isEmpty()) g.appoggio << terza;
        rapporto << NomeOrientamento(opzioni.orientamento);
        RighePoligonali(g);
        g.uscita = g.appoggio;
        g.appoggio.clear();

        RigheStazioni(g, listaLinee);
        RigheSquadri(g);
        GeneraRighe7(stato, g);

        if (g.righeLibretto.size() > 1) {
            rapporto << QStringLiteral("Mantiene Censuario Esistente");
            for (const QString& r : g.righeLibretto)
                if (TipoRiga(r) == 6 && r.size() > 50) g.uscita << r;
        }
        Misure(stato, g, precisione);
        Righe8(stato, g, gps);
        Riga9(stato, g.uscita);

        if (opzioni.EliminaPuntiNote) {
            rapporto << QStringLiteral("Eliminati punti da descrizioni");
            for (QString& r : g.uscita) {
                const int tipo = TipoRiga(r);
                if (tipo != 1 && tipo != 2) continue;
                QStringList campi = Split(r, kBarra);
                if (campi.size() < 2) continue;
                QString& ultimo = campi[campi.size() - 2];
                if (Numerico(ultimo)) continue;
                ultimo = Trim(Replace(Replace(ultimo, QStringLiteral("."), QStringLiteral(" ")),
                                      QStringLiteral(","), QStringLiteral(" ")));
                if (ultimo.isEmpty()) ultimo = QStringLiteral("NOTE:");
                r = Join(campi, kBarra);
            }
        }
        int testa = 0;
        while (testa < g.uscita.size()) {
            const int tipo = TipoRiga(g.uscita[testa]);
            if (tipo != 0 && tipo != 9 && tipo != 6) break;
            ++testa;
        }
        for (int i = 0; i < gps.size(); ++i) g.uscita.insert(testa + i, gps[i]);

        QString testo = Join(g.uscita, CRLF);
        QStringList righe = Split(testo, CRLF);
        if (opzioni.MostraReport && mostraRapporto) mostraRapporto(rapporto);
        if (opzioni.MettiCS) {
            rapporto << QStringLiteral("Mette CS su righe 2 sequenzialmente duplicate");
            for (int i = int(righe.size()) - 1; i >= 1; --i) {
                if (TipoRiga(righe[i]) != 2 || TipoRiga(righe[i - 1]) != 2) continue;
                QStringList a = Split(righe[i], kBarra);
                const QStringList b = Split(righe[i - 1], kBarra);
                if (a.size() < 2 || b.size() < 2 || a[a.size() - 2] != b[b.size() - 2]) continue;
                a[a.size() - 2] = QStringLiteral("CS");
                righe[i] = Join(a, kBarra);
            }
        }
        testo = Join(righe, CRLF);
        bool rosse = false;
        for (const QString& r : righe)
            if (TipoRiga(r) == 7 && UCase(r).contains(QStringLiteral("|RC|"))) rosse = true;
        if (!rosse && !UCase(righe.value(1)).contains(QStringLiteral("|TM|"))) {
            // The answer changes only the working lines, already joined: the file keeps its row.
            if (stato.piattaforma->Domanda(
                    QStringLiteral("Inserire (TM) Tipo Mappale di Modesta Entità??"),
                    QStringLiteral("Tipo senza righe Rosse Continue (RC)..."), Pulsanti::SiNo,
                    Risposta::No) == Risposta::Si &&
                righe.size() > 1) {
                QStringList campi = Split(righe[1], kBarra);
                ImpostaCampo(campi, 6, QStringLiteral("TM"));
                righe[1] = UCase(Join(campi, kBarra));
            }
        }
        if (opzioni.NoteMancanti && UCase(testo).contains(QStringLiteral("NOTE:")))
            stato.piattaforma->Messaggio(
                QStringLiteral("Il Libretto contiene Descrizioni o Note di Punti Mancanti o da "
                               "definire!"),
                QStringLiteral("Note o Descrizioni mancanti"), Icona::Informazione);
        stato.TagRoutine = QStringLiteral("GeneraLibrettoAutomatico2");
        testo =
            Replace(Replace(testo, QStringLiteral("__|"), QString()), QStringLiteral("_"), kBarra);

        stato.doc.TestoLibretto = testo + CRLF;
        const GruppiLibretto gruppi = EsplodiLibretto(stato);
        if (gruppi.completo) RicomponiLibretto(stato, gruppi);
        stato.TagRoutine = QStringLiteral("Decozero_128");
        CaricaLibrettoInList1(stato);
        ListaRighe& lista = stato.doc.RigheLibretto;
        for (int i = 0; i < lista.Conta(); ++i) {
            QString r = lista.Riga(i);
            PulisciRigaMarche(r);
            lista.Imposta(i, r);
        }
        QString nome = UCase(stato.doc.PercorsoLibretto);
        nome.replace(QStringLiteral(".LXC"), QStringLiteral(".TXT"));
        stato.doc.PercorsoLibretto = nome;
        AggiornaLibrettoMisure(stato);
        ScriviLibrettoMisure(stato);
        esito.scritto = true;
        esito.percorso = nome;
        stato.TagRoutine = QStringLiteral("GeneraLibrettoAutomatico3");
        SalvaCFG(stato, opzioni);
    });
    return esito;
}

} // namespace tavolet
