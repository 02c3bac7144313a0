#include "TelaImmagine.h"

#include "TelaQt.h"
#include "testo.h"

#include <QFontMetricsF>

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstring>
#include <iterator>

namespace tavolet {

namespace {

// The side of the tiles of one colour, and its power of two.
constexpr int kPasso = 3, kLato = 1 << kPasso;

// The nearest whole pixel, halves up; the values here are already within the canvas's reach.
inline int Arrotonda(double v) {
    const double t = v + 0.5;
    if (!(std::abs(t) < 1e9)) return int(std::floor(t));
    // A cut towards zero, one less where that went up: a floor without a call.
    const int i = int(t);
    return i - (double(i) > t);
}

// Text the glyphs cannot carry: controls, surrogates, marks and the scripts that join or turn.
// The quotes, dashes and euro of Windows-1252 stand alone like Latin letters (a toponym read
// from an extract may well carry them).
bool SoloSemplice(const QString& t) {
    for (QChar c : t) {
        const char16_t u = c.unicode();
        if (u < 0x20 || (u >= 0x0300 && CodiceWindows1252(u) < 0)) return false;
    }
    return true;
}

// Narrows [da, a] to the X where lo <= coeff * X + costante <= hi: the run of a row that a band
// or a turned glyph covers, its coordinates being linear in X along the row.
void Restringi(double coeff, double costante, double lo, double hi, double& da, double& a) {
    if (std::abs(coeff) < 1e-12) {
        if (costante < lo || costante > hi) a = -HUGE_VAL;
        return;
    }
    double e1 = (lo - costante) / coeff, e2 = (hi - costante) / coeff;
    if (e1 > e2) std::swap(e1, e2);
    da = std::max(da, e1);
    a = std::min(a, e2);
}

quint32 Argb(int colore) {
    return 0xFF000000u | ColoreQB(colore);
}

// The palette's pixels, looked up without a call for every stroke.
const std::array<quint32, 16> kTavolozza = [] {
    std::array<quint32, 16> t{};
    for (int i = 0; i < 16; ++i) t[size_t(i)] = Argb(i);
    return t;
}();

inline TelaImmagine::Tinta TintaDi(int colore) {
    const int i = colore & 15; // the same as the palette's index, negative numbers included
    return {kTavolozza[size_t(i)], i};
}

Qt::PenStyle StilePenna(int stile) {
    return stile == 1 ? Qt::DashLine : stile == 2 ? Qt::DotLine : Qt::SolidLine;
}

} // namespace

CacheGlifi::Faccia& CacheGlifi::Di(const QString& faccia, int pixel) {
    auto i = facce_.find(ChiaveFaccia{faccia, pixel});
    if (i != facce_.end()) return **i;
    auto f = std::make_shared<Faccia>();
    f->font = QFont(faccia);
    f->font.setPixelSize(pixel);
    // Set without smoothing, as the picture box of old drew it: a pixel of a glyph is ink or
    // not, which also lets a turned name be drawn from the same glyphs.
    f->font.setStyleStrategy(QFont::NoAntialias);
    const QFontMetricsF metriche(f->font);
    f->ascesa = metriche.ascent();
    f->discesa = metriche.descent();
    facce_.insert(ChiaveFaccia{faccia, pixel}, f);
    return *f;
}

const CacheGlifi::Glifo& CacheGlifi::GlifoDi(Faccia& f, char16_t c) {
    Glifo& g = c < 256 ? f.latini[c] : f.altri[c];
    if (g.pronto) return g;
    g.pronto = true;
    const QString s(QChar{c});
    const QFontMetricsF m(f.font);
    g.avanzamento = m.horizontalAdvance(s);
    // Rendered once on a transparent square with room for overhangs, then cut to its ink.
    const int margine = f.font.pixelSize() + 4;
    const int base = margine + int(std::ceil(m.ascent()));
    const int w = int(std::ceil(std::max(g.avanzamento, 0.0))) + 2 * margine;
    const int h = int(std::ceil(m.ascent() + m.descent())) + 2 * margine;
    QImage im(w, h, QImage::Format_ARGB32_Premultiplied);
    im.fill(0);
    {
        QPainter p(&im);
        p.setFont(f.font);
        p.setPen(Qt::black);
        p.drawText(QPointF(margine, base), s);
    }
    int x0 = w, x1 = -1, y0 = h, y1 = -1;
    for (int y = 0; y < h; ++y) {
        const QRgb* r = reinterpret_cast<const QRgb*>(im.constScanLine(y));
        for (int x = 0; x < w; ++x)
            if (qAlpha(r[x])) {
                x0 = std::min(x0, x);
                x1 = std::max(x1, x);
                y0 = std::min(y0, y);
                y1 = std::max(y1, y);
            }
    }
    if (x1 < 0) return g; // a blank
    g.dx = x0 - margine;
    g.dy = y0 - base;
    g.larghezza = x1 - x0 + 1;
    g.altezza = y1 - y0 + 1;
    for (int y = y0; y <= y1; ++y) {
        const QRgb* r = reinterpret_cast<const QRgb*>(im.constScanLine(y));
        for (int x = x0; x <= x1;) {
            if (!qAlpha(r[x])) {
                ++x;
                continue;
            }
            Tratto t{qint16(y - y0), qint16(x - x0), 0, qint32(g.copertura.size())};
            while (x <= x1 && qAlpha(r[x])) g.copertura.push_back(quint8(qAlpha(r[x++])));
            t.x1 = qint16(x - x0);
            g.tratti.push_back(t);
        }
    }
    g.opaco =
        std::all_of(g.copertura.begin(), g.copertura.end(), [](quint8 a) { return a == 255; });
    if (g.opaco && g.larghezza <= 64) {
        g.righe.assign(size_t(g.altezza), 0);
        for (const Tratto& t : g.tratti)
            for (int x = t.x0; x < t.x1; ++x) g.righe[size_t(t.riga)] |= quint64(1) << x;
    }
    return g;
}

TelaImmagine::TelaImmagine(QImage& immagine, double dpi, CacheGlifi* glifi)
    : TelaSuPixel(immagine.width(), immagine.height(), dpi), img_(immagine), glifi_(glifi) {
    if (!glifi_) {
        propria_ = std::make_unique<CacheGlifi>();
        glifi_ = propria_.get();
    }
    const auto f = img_.format();
    if (!img_.isNull() && (f == QImage::Format_RGB32 || f == QImage::Format_ARGB32 ||
                           f == QImage::Format_ARGB32_Premultiplied)) {
        bits_ = img_.bits();
        riga_ = img_.bytesPerLine();
        tw_ = (w_ + kLato - 1) / kLato;
        th_ = (h_ + kLato - 1) / kLato;
        tinte_.assign(size_t(tw_) * size_t(th_), 0);
        epoche_.assign(tinte_.size(), 0);
        inDubbio_.assign(tinte_.size(), 0);
    }
}

TelaImmagine::~TelaImmagine() = default;

QPainter& TelaImmagine::Pittore() {
    // What the painter draws is not followed tile by tile: no tile's colour is known.
    ++epoca_;
    if (!pittore_) {
        pittore_ = std::make_unique<QPainter>(&img_);
        pittore_->setBrush(Qt::NoBrush);
    }
    return *pittore_;
}

void TelaImmagine::Pulisci() {
    rovescio_ = rinuncia_ = false;
    if (!bits_) {
        if (!img_.isNull()) Pittore().fillRect(QRect(0, 0, w_, h_), Qt::white);
        return;
    }
    for (int y = 0; y < h_; ++y) std::memset(bits_ + y * riga_, 0xFF, size_t(w_) * 4);
    std::fill(tinte_.begin(), tinte_.end(), 0xFFFFFFFFu);
    std::fill(epoche_.begin(), epoche_.end(), ++epoca_);
    std::fill(inDubbio_.begin(), inDubbio_.end(), 0);
    daVedere_.clear();
}

void TelaImmagine::Tocca(int tessera, quint32 colore) {
    quint32& t = tinte_[size_t(tessera)];
    quint32& e = epoche_[size_t(tessera)];
    if (e == epoca_ && t == colore) return; // still all of it
    t = 0;
    e = epoca_;
    if (!inDubbio_[size_t(tessera)]) {
        inDubbio_[size_t(tessera)] = 1;
        daVedere_.push_back(tessera);
    }
}

void TelaImmagine::Verifica() {
    glifiDallaVerifica_ = 0;
    ultimaTessera_ = -1; // the tiles' colours are read anew

    auto vedi = [&](int t) {
        const int x0 = (t % tw_) * kLato, y0 = (t / tw_) * kLato;
        const int x1 = std::min(x0 + kLato, w_), y1 = std::min(y0 + kLato, h_);
        const quint32 c = reinterpret_cast<const quint32*>(bits_ + y0 * riga_)[x0];
        for (int y = y0; y < y1; ++y) {
            const quint32* r = reinterpret_cast<const quint32*>(bits_ + y * riga_);
            for (int x = x0; x < x1; ++x)
                if (r[x] != c) {
                    tinte_[size_t(t)] = 0;
                    epoche_[size_t(t)] = epoca_;
                    return;
                }
        }
        tinte_[size_t(t)] = c;
        epoche_[size_t(t)] = epoca_;
    };
    for (int t : daVedere_) {
        vedi(t);
        inDubbio_[size_t(t)] = 0;
    }
    daVedere_.clear();
}

bool TelaImmagine::TuttoDiColore(int x0, int y0, int x1, int y1, quint32 colore) const {
    x0 = std::max(x0, 0) >> kPasso;
    y0 = std::max(y0, 0) >> kPasso;
    x1 = std::min(x1, w_ - 1) >> kPasso;
    y1 = std::min(y1, h_ - 1) >> kPasso;
    for (int ty = y0; ty <= y1; ++ty)
        for (int tx = x0; tx <= x1; ++tx)
            if (tinte_[size_t(ty * tw_ + tx)] != colore || epoche_[size_t(ty * tw_ + tx)] != epoca_)
                return false;
    return true;
}

inline void TelaImmagine::Pixel(int x, int y, quint32 colore) {
    reinterpret_cast<quint32*>(bits_ + y * riga_)[x] = colore;
    // Strokes go from pixel to neighbouring pixel: most stay in the tile just touched.
    const int t = (y >> kPasso) * tw_ + (x >> kPasso);
    if (t == ultimaTessera_ && colore == ultimoColore_ && epoca_ == ultimaEpoca_) return;
    ultimaTessera_ = t;
    ultimoColore_ = colore;
    ultimaEpoca_ = epoca_;
    Tocca(t, colore);
}

namespace {

// The colour laid over a pixel with a coverage of alfa out of 255, each channel in 8 bits.
inline void Fondi(quint32& d, quint32 colore, int alfa) {
    if (alfa >= 255) {
        d = colore;
        return;
    }
    const quint32 inv = 255 - quint32(alfa);
    const quint32 rb = ((colore & 0xFF00FFu) * quint32(alfa) + (d & 0xFF00FFu) * inv + 0x800080u);
    const quint32 g = ((colore & 0x00FF00u) * quint32(alfa) + (d & 0x00FF00u) * inv + 0x008000u);
    const quint32 rb2 = ((rb + ((rb >> 8) & 0xFF00FFu)) >> 8) & 0xFF00FFu;
    const quint32 g2 = ((g + ((g >> 8) & 0x00FF00u)) >> 8) & 0x00FF00u;
    d = 0xFF000000u | rb2 | g2;
}

} // namespace

bool TelaImmagine::IniziaAlRovescio() {
    if (!bits_ || !rovescioAmmesso_) return false;
    rovescio_ = true;
    rinuncia_ = false;
    parole_ = (w_ + 63) / 64;
    presi_.assign(size_t(parole_) * size_t(h_), 0);
    coda_ = w_ % 64 ? (quint64(1) << (w_ % 64)) - 1 : ~quint64(0);
    usati_ = 0;
    return true;
}

bool TelaImmagine::FinisciAlRovescio() {
    if (!rovescio_) return true;
    rovescio_ = false;
    if (!rinuncia_) {
        // Each colour's pixels, a row at a time: the image was white where nothing fell.
        for (int i = 0; i < 16; ++i) {
            if (!(usati_ & (1u << i))) continue;
            const quint32 argb = Argb(i);
            const quint64* piano = piani_[size_t(i)].data();
            for (int y = 0; y < h_; ++y) {
                quint32* d = reinterpret_cast<quint32*>(bits_ + y * riga_);
                const quint64* c = piano + size_t(y) * size_t(parole_);
                for (int k = 0; k < parole_; ++k, d += 64) {
                    quint64 w = c[k];
                    if (w == ~quint64(0)) {
                        std::fill_n(d, 64, argb);
                        continue;
                    }
                    for (; w; w &= w - 1) d[std::countr_zero(w)] = argb;
                }
            }
        }
    }
    usati_ = 0;
    // The tiles' colours were not followed meanwhile: none is known for strokes in order.
    ++epoca_;
    ultimaTessera_ = -1;
    presi_ = {};
    // Given up, the strokes come again in order: they are taken from here on.
    const bool fatto = !rinuncia_;
    rinuncia_ = false;
    return fatto;
}

int TelaImmagine::PixelDi(double altezza) {
    // The texts of a pass nearly always share their height.
    if (altezza != ultimaAltezza_) {
        ultimaAltezza_ = altezza;
        ultimoPixelDi_ = std::clamp(int(std::lround(std::abs(altezza))), 1, 2000);
    }
    return ultimoPixelDi_;
}

bool TelaImmagine::MappaCoperture(Coperture& m) {
    // Given up, nothing is worth a map: the strokes are passed over until they come in order.
    if (!rovescio_ || rinuncia_ || !(sx_ != 0 && sy_ != 0) || !std::isfinite(ox_ * sx_) ||
        !std::isfinite(oy_ * sy_))
        return false;
    // Mappa gives (x - ox_) * sx_: the same as x * sx_ - ox_ * sx_.
    m.sx = sx_;
    m.sy = sy_;
    m.ox = -ox_ * sx_;
    m.oy = -oy_ * sy_;
    m.lato = 8;
    m.colonne = (w_ + 7) / 8;
    m.righe = (h_ + 7) / 8;
    m.piene.assign(size_t(m.colonne) * size_t(m.righe), 0);
    // Eight rows at a time: a column wholly taken in all eight has its bit in their and; a
    // tile is a byte of that. The image's edge counts as taken.
    for (int ty = 0; ty < m.righe; ++ty) {
        const int y0 = ty * 8, y1 = std::min(y0 + 8, h_);
        for (int k = 0; k < parole_; ++k) {
            quint64 e = ~quint64(0);
            for (int y = y0; y < y1; ++y) e &= presi_[size_t(y) * size_t(parole_) + size_t(k)];
            if (k == parole_ - 1) e |= ~coda_;
            for (int b = 0; b < 8 && k * 8 + b < m.colonne; ++b)
                m.piene[size_t(ty) * size_t(m.colonne) + size_t(k * 8 + b)] =
                    ((e >> (b * 8)) & 0xFF) == 0xFF;
        }
    }
    return true;
}

quint64* TelaImmagine::NuovoPiano(int indice) {
    usati_ |= 1u << indice;
    piani_[size_t(indice)].assign(presi_.size(), 0);
    return piani_[size_t(indice)].data();
}

inline void TelaImmagine::Scrivi(int x, int y, Tinta colore) {
    if (!rovescio_) {
        Pixel(x, y, colore.argb);
        return;
    }
    const size_t i = size_t(y) * size_t(parole_) + size_t(x >> 6);
    const quint64 bit = quint64(1) << (x & 63);
    if (presi_[i] & bit) return;
    presi_[i] |= bit;
    Piano(colore.indice)[i] |= bit;
}

TelaImmagine::Scatola TelaImmagine::Impagina(CacheGlifi::Faccia& f, const QString& testo) {
    posti_.clear();
    Scatola s;
    double penna = 0;
    for (QChar ch : testo) {
        // A glyph this far from the pen lies off any image.
        if (penna > 1e8) break;
        const CacheGlifi::Glifo& g = glifi_->GlifoDi(f, ch.unicode());
        const int gx = Arrotonda(penna) + g.dx;
        posti_.push_back({&g, gx});
        penna += g.avanzamento;
        if (g.tratti.empty()) continue;
        s.righe = s.righe && !g.righe.empty();
        s.x0 = std::min(s.x0, gx);
        s.x1 = std::max(s.x1, gx + g.larghezza - 1);
        s.y0 = std::min(s.y0, g.dy);
        s.y1 = std::max(s.y1, g.dy + g.altezza - 1);
    }
    return s;
}

void TelaImmagine::Componi(const Scatola& s, quint64* maschera) const {
    const int parole = s.Parole();
    std::fill_n(maschera, size_t(parole) * size_t(s.Righe()), 0);
    for (const auto& [g, gx] : posti_) {
        if (g->tratti.empty()) continue;
        const int b = gx - s.x0, parola = b >> 6, sp = b & 63;
        quint64* u = maschera + size_t(g->dy - s.y0) * size_t(parole) + size_t(parola);
        for (int r = 0; r < g->altezza; ++r, u += parole) {
            const quint64 m = g->righe[size_t(r)];
            u[0] |= m << sp;
            // What spills into the next word lies within the box, so within the row.
            if (const quint64 alto = sp ? m >> (64 - sp) : 0) u[1] |= alto;
        }
    }
}

void TelaImmagine::Stendi(const quint64* maschera, int parole, int righe, int x0, int y0,
                          Tinta colore) {
    // Row by row, the mask's words shifted onto the image's words from x0's: a word of the
    // image takes the upper part of one and the lower part of the next.
    const int w0 = x0 >> 6, sp = x0 & 63;
    const int ka = std::max(0, -w0), kb = std::min(parole, parole_ - 1 - w0);
    quint64* piano = Piano(colore.indice);
    for (int y = std::max(y0, 0); y <= std::min(y0 + righe - 1, h_ - 1); ++y) {
        const quint64* m = maschera + size_t(y - y0) * size_t(parole);
        const size_t riga = size_t(y) * size_t(parole_);
        quint64* p = presi_.data() + riga;
        quint64* c = piano + riga;
        for (int k = ka; k <= kb; ++k) {
            quint64 v = k < parole ? m[k] << sp : 0;
            if (k > 0 && sp) v |= m[k - 1] >> (64 - sp);
            const int wi = w0 + k;
            if (wi == parole_ - 1) v &= coda_;
            const quint64 nuovi = v & ~p[wi];
            p[wi] |= nuovi;
            c[wi] |= nuovi;
        }
    }
}

CacheGlifi::Faccia& TelaImmagine::FacciaDi(const QString& font, int pixel) {
    // Consecutive texts nearly always share the face: compare the text's data first.
    if (!ultima_ || ultimoPixel_ != pixel ||
        (ultimaFaccia_.constData() != font.constData() && ultimaFaccia_ != font)) {
        ultima_ = &glifi_->Di(font, pixel);
        ultimaFaccia_ = font;
        ultimoPixel_ = pixel;
    }
    return *ultima_;
}

bool TelaImmagine::Presi(int x0, int y0, int x1, int y1) const {
    x0 = std::max(x0, 0);
    y0 = std::max(y0, 0);
    x1 = std::min(x1, w_ - 1);
    y1 = std::min(y1, h_ - 1);
    if (x0 > x1 || y0 > y1) return true; // nothing of it on the image
    const int p0 = x0 >> 6, p1 = x1 >> 6;
    const quint64 primo = ~quint64(0) << (x0 & 63);
    const quint64 ultimo = ~quint64(0) >> (63 - (x1 & 63));
    if (p0 == p1) {
        // Most boxes lie within one word of a row.
        const quint64 m = primo & ultimo;
        const quint64* r = presi_.data() + size_t(y0) * size_t(parole_) + size_t(p0);
        for (int y = y0; y <= y1; ++y, r += parole_)
            if ((*r & m) != m) return false;
        return true;
    }
    for (int y = y0; y <= y1; ++y) {
        const quint64* r = presi_.data() + size_t(y) * size_t(parole_);
        for (int p = p0; p <= p1; ++p) {
            quint64 m = ~quint64(0);
            if (p == p0) m &= primo;
            if (p == p1) m &= ultimo;
            if ((r[p] & m) != m) return false;
        }
    }
    return true;
}

void TelaImmagine::GlifoSotto(const CacheGlifi::Glifo& g, int gx, int gy, Tinta colore) {
    // A glyph across an edge of the image: a pixel at a time. Only whole coverage can be laid
    // underneath.
    if (!g.opaco) {
        rinuncia_ = true;
        return;
    }
    for (const CacheGlifi::Tratto& t : g.tratti) {
        const int y = gy + t.riga;
        if (y < 0 || y >= h_) continue;
        for (int x = std::max(gx + t.x0, 0); x < std::min(gx + t.x1, w_); ++x) Scrivi(x, y, colore);
    }
}

void TelaImmagine::Linea(double x1, double y1, double x2, double y2, int spessore, int stile,
                         int colore) {
    if (rinuncia_) return; // everything is drawn again in order
    QPointF a = Mappa(x1, y1), b = Mappa(x2, y2);
    const int larghezza = std::clamp(spessore, 1, 100);
    if (bits_ && larghezza > 1) {
        LineaSpessa(a, b, larghezza, stile, TintaDi(colore));
        return;
    }
    if (!bits_) {
        if (img_.isNull() || !RitagliaSegmento(a, b, -kLimite, -kLimite, kLimite, kLimite)) return;
        QPen penna(QColor::fromRgb(ColoreQB(colore)));
        penna.setWidth(larghezza);
        penna.setStyle(StilePenna(stile));
        Pittore().setPen(penna);
        Pittore().drawLine(a, b);
        return;
    }
    // One pixel wide: the segment cut to the image, then a step a pixel along its longer axis.
    auto dentro = [&](const QPointF& p) {
        return p.x() >= -0.5 && p.x() <= w_ - 0.5 && p.y() >= -0.5 && p.y() <= h_ - 0.5;
    };
    if (!(dentro(a) && dentro(b)) && !RitagliaSegmento(a, b, -0.5, -0.5, w_ - 0.5, h_ - 0.5))
        return;
    const int xa = std::clamp(Arrotonda(a.x()), 0, w_ - 1);
    const int ya = std::clamp(Arrotonda(a.y()), 0, h_ - 1);
    const int xb = std::clamp(Arrotonda(b.x()), 0, w_ - 1);
    const int yb = std::clamp(Arrotonda(b.y()), 0, h_ - 1);
    const int dx = xb - xa, dy = yb - ya;
    const int n = std::max(std::abs(dx), std::abs(dy));
    // A short segment wholly under later strokes: one look at its box.
    if (rovescio_ && std::abs(dy) < 32 &&
        Presi(std::min(xa, xb), std::min(ya, yb), std::max(xa, xb), std::max(ya, yb)))
        return;
    const Tinta c = TintaDi(colore);
    // The minor axis in 16.16 fixed point, from the middle of the first pixel.
    const qint64 px = n ? (qint64(dx) << 16) / n : 0, py = n ? (qint64(dy) << 16) / n : 0;
    qint64 fx = (qint64(xa) << 16) + 0x8000, fy = (qint64(ya) << 16) + 0x8000;
    if (rovescio_) {
        // From the last: the steps never leave the box of the two ends, already on the image,
        // and the colour's plane is looked up once, at the first pixel not yet taken.
        quint64* piano = nullptr;
        for (int i = 0; i <= n; ++i, fx += px, fy += py) {
            if (stile == 1 && i % 6 >= 4) continue;
            if (stile == 2 && i % 3 != 0) continue;
            const int x = int(fx >> 16);
            const size_t k = size_t(fy >> 16) * size_t(parole_) + size_t(x >> 6);
            const quint64 bit = quint64(1) << (x & 63);
            if (presi_[k] & bit) continue;
            presi_[k] |= bit;
            if (!piano) piano = Piano(c.indice);
            piano[k] |= bit;
        }
        return;
    }
    for (int i = 0; i <= n; ++i, fx += px, fy += py) {
        // Qt's patterns for a pen of one pixel: a dash of 4 and a gap of 2, a dot and a gap of 2.
        if (stile == 1 && i % 6 >= 4) continue;
        if (stile == 2 && i % 3 != 0) continue;
        Scrivi(std::clamp(int(fx >> 16), 0, w_ - 1), std::clamp(int(fy >> 16), 0, h_ - 1), c);
    }
}

void TelaImmagine::Cerchio(double x, double y, double raggio, int colore) {
    if (rinuncia_) return;
    const QPointF c = Mappa(x, y);
    const double r = raggio * std::abs(sx_);
    if (!std::isfinite(r) || !std::isfinite(c.x()) || !std::isfinite(c.y()) ||
        std::abs(c.x()) > kLimite || std::abs(c.y()) > kLimite)
        return;
    if (bits_ && r > 32) {
        AnelloGrande(c, r, TintaDi(colore));
        return;
    }
    if (!bits_) {
        if (img_.isNull()) return;
        QPen penna(QColor::fromRgb(ColoreQB(colore)));
        penna.setWidth(1);
        Pittore().setPen(penna);
        Pittore().setBrush(Qt::NoBrush);
        Pittore().drawEllipse(c, std::min(r, kLimite), std::min(r, kLimite));
        return;
    }
    // A ring of one pixel: the pixels whose centre lies within half a pixel of the circle,
    // worked out once per radius and eighth of a pixel and then stamped.
    const int bx = int(std::floor(c.x())), by = int(std::floor(c.y()));
    const int fx = std::clamp(int((c.x() - bx) * 8), 0, 7);
    const int fy = std::clamp(int((c.y() - by) * 8), 0, 7);
    if (r != ultimoRaggio_) {
        ultimoRaggio_ = r;
        ultimoR16_ = int(std::lround(r * 16));
    }
    const int r16 = ultimoR16_;
    if (raggio16_ != r16) {
        raggio16_ = r16;
        for (auto& a : anelli_) a.clear();
    }
    auto& anello = anelli_[size_t(fy * 8 + fx)];
    if (anello.empty()) {
        const double cx = (fx + 0.5) / 8, cy = (fy + 0.5) / 8, rr = r16 / 16.0;
        const int R = int(std::ceil(rr)) + 1;
        for (int j = -R; j <= R; ++j)
            for (int i = -R; i <= R; ++i) {
                const double d = std::hypot(i + 0.5 - cx, j + 0.5 - cy);
                if (std::abs(d - rr) <= 0.5) anello.push_back({i, j});
            }
        if (anello.empty()) anello.push_back({0, 0});
    }
    const Tinta k = TintaDi(colore);
    if (rovescio_ && Presi(bx - raggio16_ / 16 - 2, by - raggio16_ / 16 - 2,
                           bx + raggio16_ / 16 + 2, by + raggio16_ / 16 + 2))
        return;
    for (const auto& [i, j] : anello) {
        const int px = bx + i, py = by + j;
        if (px >= 0 && px < w_ && py >= 0 && py < h_) Scrivi(px, py, k);
    }
}

void TelaImmagine::LineaSpessa(QPointF a, QPointF b, int larghezza, int stile, Tinta colore) {
    // The pixels whose middle lies in the band of the pen along the segment, with square ends
    // half a width long; dashes and dots as Qt's patterns, in units of the width.
    const double m = larghezza;
    if (!RitagliaSegmento(a, b, -2 * m, -2 * m, w_ + 2 * m, h_ + 2 * m)) return;
    const double lx = b.x() - a.x(), ly = b.y() - a.y(), lung = std::hypot(lx, ly);
    const double ux = lung > 0 ? lx / lung : 1, uy = lung > 0 ? ly / lung : 0;
    const double meta = m / 2;
    const int y0 = std::max(0, int(std::floor(std::min(a.y(), b.y()) - m)));
    const int y1 = std::min(h_ - 1, int(std::ceil(std::max(a.y(), b.y()) + m)));
    // Along the segment t = (p - a) . u in [-meta, lung + meta]; across it d = (p - a) . n in
    // [-meta, meta], with n = (-uy, ux). On a row both are linear in x.
    for (int y = y0; y <= y1; ++y) {
        const double py = y + 0.5 - a.y();
        // X = x + 0.5 - a.x()
        double xl = -HUGE_VAL, xr = HUGE_VAL;
        Restringi(ux, py * uy, -meta, lung + meta, xl, xr);
        Restringi(-uy, py * ux, -meta, meta, xl, xr);
        if (!(xl <= xr)) continue;
        // Bounded in floating point first: a nearly upright band gives huge ends.
        const int i0 = int(std::max(0.0, std::ceil(xl + a.x() - 0.5)));
        const int i1 = int(std::min(w_ - 1.0, std::floor(xr + a.x() - 0.5)));
        for (int x = i0; x <= i1; ++x) {
            if (stile == 1 || stile == 2) {
                const double t = (x + 0.5 - a.x()) * ux + py * uy + meta;
                const double periodo = stile == 1 ? 6 * m : 3 * m;
                const double fase = t - std::floor(t / periodo) * periodo;
                if (fase >= (stile == 1 ? 4 * m : m)) continue;
            }
            Scrivi(x, y, colore);
        }
    }
}

void TelaImmagine::AnelloGrande(QPointF c, double r, Tinta colore) {
    // The same ring a row at a time: on a row the pixels within half a pixel of the circle
    // make one or two runs. A ring far larger than the image reaches around it.
    if (r > 8 * kLimite) return;
    const double fuori = (r + 0.5) * (r + 0.5), dentro = r >= 0.5 ? (r - 0.5) * (r - 0.5) : -1;
    const int y0 = std::max(0, int(std::floor(c.y() - r - 1)));
    const int y1 = std::min(h_ - 1, int(std::ceil(c.y() + r + 1)));
    auto tratto = [&](int y, double l, double rr) {
        const int i0 = std::max(0, int(std::ceil(l - 0.5)));
        const int i1 = std::min(w_ - 1, int(std::floor(rr - 0.5)));
        for (int x = i0; x <= i1; ++x) Scrivi(x, y, colore);
    };
    for (int y = y0; y <= y1; ++y) {
        const double dy = y + 0.5 - c.y(), dy2 = dy * dy;
        if (dy2 > fuori) continue;
        const double e = std::sqrt(fuori - dy2);
        if (dentro < 0 || dy2 >= dentro) {
            tratto(y, c.x() - e, c.x() + e);
            continue;
        }
        const double i = std::sqrt(dentro - dy2);
        tratto(y, c.x() - e, c.x() - i);
        // The right run starts past the left one, so no pixel is laid twice.
        const int fineSinistra = int(std::floor(c.x() - i - 0.5));
        tratto(y, std::max(c.x() + i, fineSinistra + 1.5), c.x() + e);
    }
}

bool TelaImmagine::TestoDiretto(QPointF c, const QString& testo, CacheGlifi::Faccia& f,
                                Tinta tinta) {
    if (!SoloSemplice(testo)) return false;
    const Scatola s = Impagina(f, testo);
    if (s.Vuota()) return true;
    const int px = Arrotonda(c.x()), base = Arrotonda(c.y() + f.ascesa);
    if (rovescio_) {
        // A name wholly under later strokes costs one look at its box.
        if (Presi(px + s.x0, base + s.y0, px + s.x1, base + s.y1)) return true;
        if (s.Componibile()) {
            unione_.resize(size_t(s.Parole()) * size_t(s.Righe()));
            Componi(s, unione_.data());
            Stendi(unione_.data(), s.Parole(), s.Righe(), px + s.x0, base + s.y0, tinta);
            return true;
        }
        // Glyphs too wide for a row of bits, a glyph at a time from the last, as neighbours
        // may overlap.
        for (auto i = posti_.rbegin(); i != posti_.rend(); ++i) {
            const CacheGlifi::Glifo& g = *i->first;
            const int gx = px + i->second, gy = base + g.dy;
            if (g.tratti.empty() || gx >= w_ || gy >= h_ || gx + g.larghezza <= 0 ||
                gy + g.altezza <= 0)
                continue;
            GlifoSotto(g, gx, gy, tinta);
        }
        return true;
    }
    ultimaTessera_ = -1; // glyphs change tiles behind the strokes' back
    const quint32 colore = tinta.argb;
    for (const auto& [gp, ox] : posti_) {
        const CacheGlifi::Glifo& g = *gp;
        const int gx = px + ox, gy = base + g.dy;
        if (g.tratti.empty() || gx >= w_ || gy >= h_ || gx + g.larghezza <= 0 ||
            gy + g.altezza <= 0)
            continue;
        const int ux = gx + g.larghezza - 1, uy = gy + g.altezza - 1;
        if (mappa_ && TuttoDiColore(gx, gy, ux, uy, colore)) continue;
        const bool dentro = gx >= 0 && gy >= 0 && gx + g.larghezza <= w_ && gy + g.altezza <= h_;
        const quint8* cop = g.copertura.data();
        if (dentro) {
            for (const CacheGlifi::Tratto& t : g.tratti) {
                quint32* d = reinterpret_cast<quint32*>(bits_ + (gy + t.riga) * riga_) + gx;
                for (int x = t.x0, k = t.primo; x < t.x1; ++x, ++k) Fondi(d[x], colore, cop[k]);
            }
        } else {
            for (const CacheGlifi::Tratto& t : g.tratti) {
                const int y = gy + t.riga;
                if (y < 0 || y >= h_) continue;
                quint32* d = reinterpret_cast<quint32*>(bits_ + y * riga_);
                for (int x = t.x0, k = t.primo; x < t.x1; ++x, ++k) {
                    const int px = gx + x;
                    if (px >= 0 && px < w_) Fondi(d[px], colore, cop[k]);
                }
            }
        }
        for (int ty = std::max(gy, 0) >> kPasso; ty <= std::min(uy, h_ - 1) >> kPasso; ++ty)
            for (int tx = std::max(gx, 0) >> kPasso; tx <= std::min(ux, w_ - 1) >> kPasso; ++tx)
                Tocca(ty * tw_ + tx, colore);
        if (++glifiDallaVerifica_ >= 256) Verifica();
    }
    return true;
}

const std::vector<quint8>& CacheGlifi::Maschera(const Glifo& g) {
    if (g.maschera.empty() && g.larghezza > 0 && g.altezza > 0) {
        g.maschera.assign(size_t(g.larghezza) * size_t(g.altezza), 0);
        for (const Tratto& t : g.tratti)
            for (int x = t.x0, k = t.primo; x < t.x1; ++x, ++k)
                g.maschera[size_t(t.riga) * size_t(g.larghezza) + size_t(x)] =
                    g.copertura[size_t(k)];
    }
    return g.maschera;
}

bool TelaImmagine::TestoRuotato(QPointF c, const QString& testo, CacheGlifi::Faccia& f,
                                double angolo, Tinta colore) {
    // Each pixel near a glyph turned around the text's corner takes the glyph's pixel it
    // falls on: the turn of the painter's frame, undone.
    if (!SoloSemplice(testo)) return false;
    ultimaTessera_ = -1;
    const double a = -angolo * M_PI / 180, co = std::cos(a), si = std::sin(a);
    double penna = 0;
    std::vector<std::pair<const CacheGlifi::Glifo*, double>> glifi; // and the pen before each
    for (QChar ch : testo) {
        const CacheGlifi::Glifo& g = glifi_->GlifoDi(f, ch.unicode());
        glifi.push_back({&g, penna});
        penna += g.avanzamento;
    }
    for (size_t n = 0; n < glifi.size(); ++n) {
        // From the last glyph when the strokes come from the last.
        const size_t i = rovescio_ ? glifi.size() - 1 - n : n;
        const CacheGlifi::Glifo& g = *glifi[i].first;
        const double u0 = glifi[i].second + g.dx, v0 = f.ascesa + g.dy;
        if (g.tratti.empty()) continue;
        if (rovescio_ && !g.opaco) {
            rinuncia_ = true;
            return true;
        }
        const std::vector<quint8>& m = glifi_->Maschera(g);
        // The glyph's box turned onto the image.
        double x0 = HUGE_VAL, y0 = HUGE_VAL, x1 = -HUGE_VAL, y1 = -HUGE_VAL;
        for (const auto& [u, v] : {std::pair{u0, v0},
                                   {u0 + g.larghezza, v0},
                                   {u0, v0 + g.altezza},
                                   {u0 + g.larghezza, v0 + g.altezza}}) {
            const double x = c.x() + u * co - v * si, y = c.y() + u * si + v * co;
            x0 = std::min(x0, x);
            x1 = std::max(x1, x);
            y0 = std::min(y0, y);
            y1 = std::max(y1, y);
        }
        if (x1 < 0 || y1 < 0 || x0 > w_ || y0 > h_) continue;
        const int px0 = std::max(0, int(std::floor(x0))),
                  px1 = std::min(w_ - 1, int(std::ceil(x1)));
        const int py0 = std::max(0, int(std::floor(y0))),
                  py1 = std::min(h_ - 1, int(std::ceil(y1)));
        if (rovescio_ && Presi(px0, py0, px1, py1)) continue;
        for (int py = py0; py <= py1; ++py) {
            // On a row the glyph's coordinates are linear in x: only the run of x where both
            // fall within the glyph is visited, a pixel more on each side for the rounding.
            const double dy = py + 0.5 - c.y();
            const double a = si * dy - u0 + co * (0.5 - c.x()); // u = co * px + a
            const double b = co * dy - v0 - si * (0.5 - c.x()); // v = -si * px + b
            double lo = -HUGE_VAL, hi = HUGE_VAL;
            Restringi(co, a, 0, g.larghezza, lo, hi);
            Restringi(-si, b, 0, g.altezza, lo, hi);
            lo = std::max(double(px0), std::floor(lo) - 1);
            hi = std::min(double(px1), std::ceil(hi) + 1);
            if (!(lo <= hi)) continue; // both then lie within px0 to px1
            for (int px = int(lo); px <= int(hi); ++px) {
                const double u = co * px + a, v = -si * px + b;
                if (!(u >= 0 && v >= 0 && u < g.larghezza && v < g.altezza)) continue;
                const int mx = int(u), my = int(v);
                if (const int k = m[size_t(my) * size_t(g.larghezza) + size_t(mx)]) {
                    if (k >= 255) {
                        Scrivi(px, py, colore);
                    } else {
                        Fondi(reinterpret_cast<quint32*>(bits_ + py * riga_)[px], colore.argb, k);
                        Tocca((py >> kPasso) * tw_ + (px >> kPasso), colore.argb);
                        ultimaTessera_ = -1;
                    }
                }
            }
        }
    }
    return true;
}

void TelaImmagine::TestoNoto(ChiaveTesto chiave, double x, double y, const QString& testo,
                             const QString& font, double altezzaPixel, double angolo, int colore) {
    if (rinuncia_) return;
    // What is kept serves upright text laid from the last; the rest goes as any text.
    const bool dritto = angolo == 0 || !std::isfinite(angolo);
    if (!rovescio_ || !dritto || chiave.serie == 0 || chiave.indice < 0 ||
        chiave.indice >= (qsizetype(1) << 26)) {
        Testo(x, y, testo, font, altezzaPixel, angolo, colore);
        return;
    }
    const QPointF c = Mappa(x, y);
    if (!std::isfinite(c.x()) || !std::isfinite(c.y()) || std::abs(c.x()) > kLimite ||
        std::abs(c.y()) > kLimite)
        return;
    const int pixel = PixelDi(altezzaPixel);
    if (pixel > 200) {
        Testo(x, y, testo, font, altezzaPixel, angolo, colore);
        return;
    }
    auto& voci = glifi_->impaginati_;
    if (size_t(chiave.indice) >= voci.size())
        voci.resize(std::max(size_t(chiave.indice) + 1, voci.size() + voci.size() / 2));
    CacheGlifi::Impaginato& e = voci[size_t(chiave.indice)];
    if (e.serie != chiave.serie || e.pixel != pixel) {
        // Made once for this text and face: the text is read here only.
        auto& pool = glifi_->maschere_;
        if (e.serie && e.modo == CacheGlifi::Impaginato::kMaschera && e.maschera >= 0)
            glifi_->sprecate_ += size_t(e.parole) * e.righe;
        if (pool.size() > (size_t(1) << 20) && glifi_->sprecate_ * 2 > pool.size()) {
            // Mostly masks of texts no longer named: all are made again as they come.
            for (auto& v : voci) v.serie = 0;
            pool.clear();
            glifi_->sprecate_ = 0;
        }
        e = {};
        e.serie = chiave.serie;
        e.pixel = qint16(pixel);
        if (testo.isEmpty()) {
            e.modo = CacheGlifi::Impaginato::kNiente;
        } else if (!SoloSemplice(testo)) {
            e.modo = CacheGlifi::Impaginato::kAltrove;
        } else {
            CacheGlifi::Faccia& f = FacciaDi(font, pixel);
            const Scatola s = Impagina(f, testo);
            if (s.Vuota()) {
                e.modo = CacheGlifi::Impaginato::kNiente;
            } else if (!s.Componibile() || s.x0 < -30000 || s.x0 > 30000 || s.y0 < -30000 ||
                       s.y0 > 30000) {
                e.modo = CacheGlifi::Impaginato::kAltrove;
            } else {
                // The mask is made the first time the box is not all taken.
                e.modo = CacheGlifi::Impaginato::kMaschera;
                e.faccia = &f;
                e.maschera = -1;
                e.x0 = qint16(s.x0);
                e.y0 = qint16(s.y0);
                e.larghezza = quint16(s.x1 - s.x0 + 1);
                e.parole = quint16(s.Parole());
                e.righe = quint16(s.Righe());
            }
        }
    }
    if (e.modo == CacheGlifi::Impaginato::kNiente) return;
    if (e.modo == CacheGlifi::Impaginato::kAltrove) {
        Testo(x, y, testo, font, altezzaPixel, angolo, colore);
        return;
    }
    const int x0 = Arrotonda(c.x()) + e.x0, y0 = Arrotonda(c.y() + e.faccia->ascesa) + e.y0;
    // A name wholly under later strokes costs one look at its box.
    if (Presi(x0, y0, x0 + e.larghezza - 1, y0 + e.righe - 1)) return;
    auto& pool = glifi_->maschere_;
    if (e.maschera < 0) {
        const size_t parole = size_t(e.parole) * e.righe;
        if (pool.size() + parole > size_t(INT_MAX)) {
            Testo(x, y, testo, font, altezzaPixel, angolo, colore);
            return;
        }
        const Scatola s = Impagina(*e.faccia, testo);
        e.maschera = qint32(pool.size());
        pool.resize(pool.size() + parole);
        Componi(s, pool.data() + e.maschera);
    }
    Stendi(pool.data() + e.maschera, e.parole, e.righe, x0, y0, TintaDi(colore));
}

void TelaImmagine::Testo(double x, double y, const QString& testo, const QString& font,
                         double altezzaPixel, double angolo, int colore) {
    if (rinuncia_) return;
    const QPointF c = Mappa(x, y);
    if (img_.isNull() || !std::isfinite(c.x()) || !std::isfinite(c.y()) ||
        std::abs(c.x()) > kLimite || std::abs(c.y()) > kLimite || testo.isEmpty())
        return;
    const int pixel = PixelDi(altezzaPixel);
    CacheGlifi::Faccia& f = FacciaDi(font, pixel);
    const bool dritto = angolo == 0 || !std::isfinite(angolo);
    if (bits_ && dritto && pixel <= 200 && TestoDiretto(c, testo, f, TintaDi(colore))) return;
    if (bits_ && !dritto && pixel <= 200 && TestoRuotato(c, testo, f, angolo, TintaDi(colore)))
        return;
    if (rovescio_) {
        // The painter draws in order only.
        rinuncia_ = true;
        return;
    }
    // The point is the text's upper left corner, and the text turns around it.
    QPainter& p = Pittore();
    p.setPen(QColor::fromRgb(ColoreQB(colore)));
    p.setFont(f.font);
    p.save();
    p.translate(c);
    if (!dritto) p.rotate(-angolo);
    p.drawText(QPointF(0, f.ascesa), testo);
    p.restore();
}

// The advances of the glyphs the Tela sets, and the height of the face's line, above and below
// the baseline.
std::pair<double, double> TelaImmagine::Ingombro(const QString& testo, const QString& font,
                                                 double altezzaPixel) {
    CacheGlifi::Faccia& f = FacciaDi(font, PixelDi(altezzaPixel));
    double w = 0;
    for (const QChar c : testo) {
        // Most are glyphs already seen, of the first 256.
        const char16_t u = c.unicode();
        const CacheGlifi::Glifo& g =
            u < 256 && f.latini[u].pronto ? f.latini[u] : glifi_->GlifoDi(f, u);
        w += g.avanzamento;
    }
    return {w, f.ascesa + f.discesa};
}

} // namespace tavolet
