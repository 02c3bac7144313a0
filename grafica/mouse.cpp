// Mouse work: the nearest point, dragging, and the drawing modes of the host screens.
#include "grafica.h"

#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "stato.h"
#include "testo.h"

#include <cmath>

namespace tavolet {

namespace {

QString Numero(double v, const char* figura) {
    if (!std::isfinite(v)) return {};
    return Replace(Formato(v, QString::fromLatin1(figura)), QStringLiteral(","),
                   QStringLiteral("."));
}

// Appends one line to a text file (CRLF), writing the whole file again in one go.
void AccodaRiga(const QString& percorso, const QString& riga) {
    QString testo;
    if (EsisteFile(percorso)) {
        testo = LeggiTesto(percorso);
        if (!testo.isEmpty() && !testo.endsWith(u'\n') && !testo.endsWith(u'\r')) testo += CRLF;
    } else {
        CreaCartella(CartellaDel(percorso));
    }
    ScriviTesto(percorso, testo + riga + CRLF);
}

void AggiungiPuntoNuovo(ModelloGrafica& g, double x, double y) {
    BV_AggiungiPuntoGraf(g, g.NomeNuovo, x, y, 0, QStringLiteral("SF"), 12, 0,
                         QStringLiteral("Courier New"), 10);
}

} // namespace

double DistanzaDuePuntiNuova(double x1, double y1, double x2, double y2) {
    return std::sqrt((x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1));
}

int BV_IlPiuVicinoAlMouse(const ModelloGrafica& g, double x, double y) {
    int migliore = 0;
    double distanza = 100000;
    for (int i = 0; i < g.Punti.size(); ++i) {
        const double d = DistanzaDuePuntiNuova(x, y, g.Punti[i].X, g.Punti[i].Y);
        if (d < distanza) {
            distanza = d;
            migliore = i;
        }
    }
    return migliore;
}

QString TestoPuntiCoincidenti(const ModelloGrafica& g) {
    // Points sorted by X: only neighbours closer than the threshold in X can coincide, and the
    // pairs come out in the order of the plain double walk.
    const int n = int(g.Punti.size());
    QList<int> ordine;
    ordine.reserve(n);
    for (int i = 0; i < n; ++i) // a NaN is never near anything
        if (!std::isnan(g.Punti[i].X) && !std::isnan(g.Punti[i].Y)) ordine.append(i);
    std::stable_sort(ordine.begin(), ordine.end(),
                     [&](int a, int b) { return g.Punti[a].X < g.Punti[b].X; });
    QList<std::pair<int, int>> coppie;
    for (int k = 0; k < ordine.size(); ++k) {
        const PuntoGrafica& p = g.Punti[ordine[k]];
        for (int m = k + 1; m < ordine.size(); ++m) {
            const PuntoGrafica& q = g.Punti[ordine[m]];
            if (!(q.X - p.X < 0.01)) break;
            if (DistanzaDuePuntiNuova(p.X, p.Y, q.X, q.Y) < 0.01)
                coppie.append({std::min(ordine[k], ordine[m]), std::max(ordine[k], ordine[m])});
        }
    }
    std::sort(coppie.begin(), coppie.end());
    QString testo;
    for (const auto& [i, j] : coppie) testo += g.Punti[i].Nome + u' ' + g.Punti[j].Nome + CRLF;
    return testo;
}

void BV_PuntiCoincidenti(Stato& stato, const ModelloGrafica& g) {
    const QString testo = TestoPuntiCoincidenti(g);
    if (!testo.isEmpty()) stato.piattaforma->Messaggio(testo, QString(), Icona::Nessuna);
}

void PuntoMedio(ModelloGrafica& g, double x1, double y1, double x2, double y2) {
    g.MedioX = (x1 + x2) / 2;
    g.MedioY = (y1 + y2) / 2;
}

EtichetteMouse MuoviMouse(ModelloGrafica& g, double x, double y) {
    EtichetteMouse e;
    const VistaGrafica& v = *g.Vista;
    if (g.Punti.isEmpty()) return e;
    const double wx = x + v.CentroX, wy = y + v.CentroY;
    const int i = BV_IlPiuVicinoAlMouse(g, wx, wy);
    const PuntoGrafica& vicino = g.Punti[i];
    g.MouseX = vicino.X;
    g.MouseY = vicino.Y;
    g.PuntoVicino = vicino.Nome;
    QString nomi;
    for (const PuntoGrafica& p : g.Punti)
        if (DistanzaDuePuntiNuova(p.X, p.Y, vicino.X, vicino.Y) < 0.01) nomi += p.Nome + u' ';
    e.prima =
        nomi + Numero(vicino.X - v.CentroX, "0.000") + u' ' + Numero(vicino.Y - v.CentroY, "0.000");
    e.seconda = Numero(x, "0.000") + u' ' + Numero(y, "0.000");
    return e;
}

void IniziaTrascinamento(ModelloGrafica& g, double x, double y) {
    g.DragX = x;
    g.DragY = y;
    g.DragCentroX = g.Vista->CentroX;
    g.DragCentroY = g.Vista->CentroY;
}

void TrascinaMouse(ModelloGrafica& g, double x, double y) {
    g.Vista->CentroX = g.DragX - x + g.DragCentroX;
    g.Vista->CentroY = g.DragY - y + g.DragCentroY;
}

QString PercorsoContorno(const Stato& stato) {
    return stato.amb.CartellaProgramma + QStringLiteral("\\TEMP\\CONTORNO.TXT");
}

bool ClickSinistro(Stato& stato, ModelloGrafica& g, double x, double y) {
    const QString modo = UCase(g.Modo);
    const VistaGrafica& v = *g.Vista;
    const double wx = x + v.CentroX, wy = y + v.CentroY;
    if (modo.isEmpty()) {
        CentraMouse(g, wx, wy);
        return true;
    }
    if (modo == QLatin1String("NUOVOPUNTO")) {
        AggiungiPuntoNuovo(g, wx, wy);
        g.Modo.clear();
        return true;
    }
    // The other modes snap to the nearest point, as the last mouse move found it.
    MuoviMouse(g, x, y);
    if (modo == QLatin1String("CONTORNOROSSO") || modo == QLatin1String("CONTORNONERO")) {
        const int colore = modo == QLatin1String("CONTORNOROSSO") ? 12 : 0;
        const QString riga = QStringLiteral("al punto  X=") + Numero(g.MouseX, "###########.000") +
                             QStringLiteral("  Y=") + Numero(g.MouseY, "##########.000") +
                             QStringLiteral("  Z=   0");
        bool disegnato = false;
        if (g.Fase == 0) {
            g.PuntoPrecedente = g.PuntoVicino;
            g.Fase = 1;
        } else {
            BV_AggiungiLineaGraf2Punti(g, g.PuntoVicino, g.PuntoPrecedente, colore, 3, 1);
            g.PuntoPrecedente = g.PuntoVicino;
            disegnato = true;
        }
        ConTrappola(stato, QStringLiteral("Contorno"),
                    [&] { AccodaRiga(PercorsoContorno(stato), riga); });
        return disegnato;
    }
    if (modo == QLatin1String("PUNTOMEDIO") || modo == QLatin1String("PUNTOBILATERA")) {
        if (g.Fase == 0) {
            g.PrimoX = g.MouseX;
            g.PrimoY = g.MouseY;
            g.Fase = 1;
            return false;
        }
        g.SecondoX = g.MouseX;
        g.SecondoY = g.MouseY;
        PuntoMedio(g, g.PrimoX, g.PrimoY, g.SecondoX, g.SecondoY);
        AggiungiPuntoNuovo(g, g.MedioX, g.MedioY);
        g.Modo.clear();
        g.Fase = 0;
        return true;
    }
    return false;
}

void TerminaContorno(ModelloGrafica& g) {
    g.Modo.clear();
}

bool AggiungiPuntoAFile(Stato& stato, const ModelloGrafica& g, double x, double y) {
    return ConTrappola(stato, QStringLiteral("AggiungiPuntoAFile"), [&] {
        const QString riga = QStringLiteral("8|") + g.NomeNuovo + u'|' +
                             Replace(Formato(x, QStringLiteral("###############0.000")),
                                     QStringLiteral(","), QStringLiteral(".")) +
                             u'|' +
                             Replace(Formato(y, QStringLiteral("###############0.000")),
                                     QStringLiteral(","), QStringLiteral(".")) +
                             u'|';
        AccodaRiga(g.FileLibretto, riga);
    });
}

} // namespace tavolet
