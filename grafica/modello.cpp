// The tables, the switches and the view's zoom and pan steps.
#include "grafica.h"

#include <algorithm>
#include <cmath>

#include "stato.h"
#include "testo.h"

namespace tavolet {

VistaGrafica& VistaCondivisa() {
    static VistaGrafica vista;
    return vista;
}

ModelloGrafica::ModelloGrafica(VistaGrafica* vista) : Vista(vista ? vista : &VistaCondivisa()) {
    Punti.reserve(10);
    Linee.reserve(10);
}

PuntoGrafica ModelloGrafica::Punto(int i) const {
    if (i >= 0 && i < Punti.size()) return Punti[i];
    return {};
}

int ModelloGrafica::TrovaPunto(QStringView nome) const {
    return IndiceNomi.Trova(nome);
}

void IndiceNomiPunti::clear() {
    perNumero_.clear();
    altri_.clear();
    slot_.clear();
}

namespace {

// FNV-1a over the UTF-16 units: names are short.
size_t HashNome(QStringView nome) {
    quint64 h = 1469598103934665603ull;
    for (QChar c : nome) h = (h ^ c.unicode()) * 1099511628211ull;
    return size_t(h ^ (h >> 29));
}

} // namespace

int IndiceNomiPunti::Numero(QStringView nome) {
    // Digits without a leading zero (or the single 0), then "%"; a million names at most, so
    // that an odd id of nine digits does not claim a table of its size.
    const qsizetype n = nome.size();
    if (n < 2 || n > 7 || nome[n - 1] != u'%' || (nome[0] == u'0' && n > 2)) return -1;
    int v = 0;
    for (qsizetype i = 0; i + 1 < n; ++i) {
        const char16_t c = nome[i].unicode();
        if (c < u'0' || c > u'9') return -1;
        v = v * 10 + (c - u'0');
    }
    return v < (1 << 20) ? v : -1;
}

int IndiceNomiPunti::Trova(QStringView nome) const {
    const int k = Numero(nome);
    if (k >= 0) return size_t(k) < perNumero_.size() ? perNumero_[size_t(k)] : -1;
    if (slot_.empty()) return -1;
    const size_t maschera = slot_.size() - 1;
    for (size_t i = HashNome(nome) & maschera;; i = (i + 1) & maschera) {
        const int s = slot_[i];
        if (s < 0) return -1;
        if (altri_[size_t(s)].nome == nome) return altri_[size_t(s)].indice;
    }
}

void IndiceNomiPunti::AggiungiSeNuovo(const QString& nome, int indice) {
    const int k = Numero(nome);
    if (k < 0) {
        if (Trova(nome) >= 0) return;
        // Kept at most half full, so that a search always meets a free slot.
        if ((altri_.size() + 1) * 2 > slot_.size()) {
            slot_.assign(std::max<size_t>(16, slot_.size() * 2), -1);
            for (size_t a = 0; a < altri_.size(); ++a) {
                size_t i = HashNome(altri_[a].nome) & (slot_.size() - 1);
                while (slot_[i] >= 0) i = (i + 1) & (slot_.size() - 1);
                slot_[i] = int(a);
            }
        }
        size_t i = HashNome(nome) & (slot_.size() - 1);
        while (slot_[i] >= 0) i = (i + 1) & (slot_.size() - 1);
        slot_[i] = int(altri_.size());
        altri_.push_back({nome, indice});
        return;
    }
    if (size_t(k) >= perNumero_.size())
        perNumero_.resize(std::max(size_t(k) + 1, perNumero_.size() * 2), -1);
    if (perNumero_[size_t(k)] < 0) perNumero_[size_t(k)] = indice;
}

void LeggiOpzioniGrafica(Stato& stato, ModelloGrafica& g) {
    auto leggi = [&](const char* chiave) {
        return qint16(Val(stato.piattaforma->Impostazione(kSezioneGrafica,
                                                          QString::fromLatin1(chiave), "0")) != 0);
    };
    g.Vista->NomiNo = leggi("NOMISINO");
    g.Vista->ToponimiNo = leggi("TOPONIMISINO");
    g.Vista->PFNo = leggi("PFSINO");
    g.PropostaSiNo = leggi("PROPOSTASINO");
}

void SalvaOpzioniGrafica(Stato& stato, const ModelloGrafica& g) {
    auto salva = [&](const char* chiave, int valore) {
        stato.piattaforma->SalvaImpostazione(kSezioneGrafica, QString::fromLatin1(chiave),
                                             QString::number(valore));
    };
    salva("NOMISINO", g.Vista->NomiNo);
    salva("TOPONIMISINO", g.Vista->ToponimiNo);
    salva("PFSINO", g.Vista->PFNo);
    salva("PROPOSTASINO", g.PropostaSiNo);
}

void BV_AggiungiPuntoGraf(ModelloGrafica& g, const QString& nome, double x, double y, double z,
                          const QString& testo, int colore, double angolo, const QString& font,
                          double dimensione) {
    PuntoGrafica p;
    p.Nome = nome;
    p.X = x;
    p.Y = y;
    p.Z = z;
    p.Testo = testo;
    p.Colore = qint16(colore);
    p.Angolo = angolo;
    p.Font = font;
    p.Dimensione = dimensione;
    // QList grows geometrically: a sheet of a hundred thousand points is not copied per point.
    g.Punti.append(std::move(p));
    ++g.Versione;
    g.IndiceNomi.AggiungiSeNuovo(nome, int(g.Punti.size() - 1)); // the first one is found
}

void BV_AggiungiLineaGraf(ModelloGrafica& g, double x1, double y1, double z1, double x2, double y2,
                          double z2, int colore, int spessore, int stile) {
    LineaGrafica l;
    l.X1 = x1;
    l.Y1 = y1;
    l.Z1 = z1;
    l.X2 = x2;
    l.Y2 = y2;
    l.Z2 = z2;
    l.Colore = qint16(colore);
    l.Spessore = qint16(spessore);
    l.Stile = qint16(stile);
    g.Linee.append(l);
    ++g.Versione;
}

void BV_AggiungiLineaGraf2Punti(ModelloGrafica& g, QStringView nome1, QStringView nome2, int colore,
                                int spessore, int stile) {
    const int a = g.TrovaPunto(nome1);
    const int b = g.TrovaPunto(nome2);
    if (a < 0 || b < 0) return;
    const PuntoGrafica& p = g.Punti[a];
    const PuntoGrafica& q = g.Punti[b];
    BV_AggiungiLineaGraf(g, p.X, p.Y, p.Z, q.X, q.Y, q.Z, colore, spessore, stile);
}

void BV_Clear(ModelloGrafica& g) {
    ++g.Versione;
    g.Punti.clear();
    g.Linee.clear();
    g.IndiceNomi.clear();
    BV_ZoomTutto(g);
}

double AltezzaEffettiva(const VistaGrafica& v) {
    return v.Altezza > 0 ? v.Altezza : 640;
}

void BV_ZoomTutto(ModelloGrafica& g) {
    VistaGrafica& v = *g.Vista;
    const PuntoGrafica primo = g.Punto(0);
    v.XMin = v.XMax = primo.X;
    v.YMin = v.YMax = primo.Y;
    auto allarga = [&](double x, double y) {
        v.XMin = std::min(v.XMin, x);
        v.XMax = std::max(v.XMax, x);
        v.YMin = std::min(v.YMin, y);
        v.YMax = std::max(v.YMax, y);
    };
    for (const PuntoGrafica& p : g.Punti) {
        if (v.ToponimiNo == 1 && Val(p.Nome) == 0) continue;
        allarga(p.X, p.Y);
    }
    for (const LineaGrafica& l : g.Linee) {
        allarga(l.X1, l.Y1);
        allarga(l.X2, l.Y2);
    }
    v.XMin -= 3;
    v.YMin -= 3;
    v.XMax += 3;
    v.YMax += 3;
    v.LarghezzaX = std::abs(v.XMin - v.XMax);
    v.LarghezzaY = std::abs(v.YMin - v.YMax);
    v.CentroX = (v.XMax + v.XMin) / 2;
    v.CentroY = (v.YMax + v.YMin) / 2;
    v.Altezza = std::max(v.LarghezzaX, v.LarghezzaY);
    // A canvas narrower than high shows less width than height: the height grows until the
    // whole width fits. A wider canvas shows the larger extent whole already.
    if (v.Rapporto > 0 && v.Rapporto < 1 && std::isfinite(v.LarghezzaX / v.Rapporto))
        v.Altezza = std::max(v.Altezza, v.LarghezzaX / v.Rapporto);
}

void BV_ZoomPiu(ModelloGrafica& g) {
    g.Vista->Altezza *= 0.9;
}
void BV_ZoomMeno(ModelloGrafica& g) {
    g.Vista->Altezza *= 1.1;
}
void BV_ZoomUP(ModelloGrafica& g) {
    g.Vista->CentroY -= g.Vista->Altezza * 0.1;
}
void BV_ZoomDown(ModelloGrafica& g) {
    g.Vista->CentroY += g.Vista->Altezza * 0.1;
}
void BV_ZoomLeft(ModelloGrafica& g) {
    g.Vista->CentroX += g.Vista->Altezza * 0.1;
}
void BV_ZoomRight(ModelloGrafica& g) {
    g.Vista->CentroX -= g.Vista->Altezza * 0.1;
}
void CentraMouse(ModelloGrafica& g, double x, double y) {
    g.Vista->CentroX = x;
    g.Vista->CentroY = y;
}

} // namespace tavolet
