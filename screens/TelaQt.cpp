#include "TelaQt.h"

#include <QFontMetricsF>

#include <cmath>

namespace tavolet {

const QStaticText& CacheTesti::Testo(const QString& testo, const QFont& font, int pixel) {
    const QString chiave = font.family() + u'\x1f' + QString::number(pixel) + u'\x1f' + testo;
    auto i = testi_.find(chiave);
    if (i == testi_.end()) {
        // A plot of a joined comune has a few hundred thousand names: past that, start again.
        if (testi_.size() > 500000) testi_.clear();
        QStaticText st(testo);
        st.setTextFormat(Qt::PlainText);
        st.setPerformanceHint(QStaticText::AggressiveCaching);
        st.prepare(QTransform(), font);
        i = testi_.insert(chiave, st);
    }
    return *i;
}

TelaQPainter::TelaQPainter(QPainter& painter, int larghezzaPx, int altezzaPx, double dpi)
    : p_(painter), w_(larghezzaPx), h_(altezzaPx), dpi_(dpi > 0 ? dpi : 96) {}

double TelaQPainter::LarghezzaMm() const {
    return w_ / dpi_ * 25.4;
}
double TelaQPainter::AltezzaMm() const {
    return h_ / dpi_ * 25.4;
}
double TelaQPainter::TwipsPerPixel() const {
    return 1440 / dpi_;
}

void TelaQPainter::Pulisci() {
    p_.fillRect(QRect(0, 0, w_, h_), Qt::white);
    p_.setBrush(Qt::NoBrush); // markers are rings
}

void TelaQPainter::Scala(double x1, double y1, double x2, double y2) {
    sx_ = (x2 != x1) ? w_ / (x2 - x1) : 1;
    sy_ = (y2 != y1) ? h_ / (y2 - y1) : 1;
    ox_ = x1;
    oy_ = y1;
}

QPointF TelaQPainter::Mappa(double x, double y) const {
    return {(x - ox_) * sx_, (y - oy_) * sy_};
}

namespace {

QColor Colore(int indice) {
    return QColor::fromRgb(ColoreQB(indice));
}

// Far beyond the surface the raster engine's fixed point overflows: such a point is moved
// along the segment to a safe distance, which leaves the visible part unchanged.
constexpr double kLimite = 1e6;

bool Taglia(QPointF& a, QPointF& b) {
    auto dentro = [](const QPointF& p) {
        return std::abs(p.x()) <= kLimite && std::abs(p.y()) <= kLimite;
    };
    if (dentro(a) && dentro(b)) return true;
    // Liang-Barsky against the square of side 2 * kLimite.
    double t0 = 0, t1 = 1;
    const double dx = b.x() - a.x(), dy = b.y() - a.y();
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x() + kLimite, kLimite - a.x(), a.y() + kLimite, kLimite - a.y()};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
    }
    if (t0 > t1) return false;
    const QPointF na(a.x() + t0 * dx, a.y() + t0 * dy), nb(a.x() + t1 * dx, a.y() + t1 * dy);
    a = na;
    b = nb;
    return std::isfinite(a.x()) && std::isfinite(a.y()) && std::isfinite(b.x()) &&
           std::isfinite(b.y());
}

} // namespace

void TelaQPainter::Penna(int colore, int spessore, Qt::PenStyle stile) {
    if (colore == pennaColore_ && spessore == pennaSpessore_ && stile == pennaStile_) return;
    QPen penna(Colore(colore));
    penna.setWidth(spessore);
    penna.setStyle(stile);
    p_.setPen(penna);
    pennaColore_ = colore;
    pennaSpessore_ = spessore;
    pennaStile_ = stile;
}

void TelaQPainter::Linea(double x1, double y1, double x2, double y2, int spessore, int stile,
                         int colore) {
    QPointF a = Mappa(x1, y1), b = Mappa(x2, y2);
    if (!Taglia(a, b)) return;
    Penna(colore, std::clamp(spessore, 1, 100),
          stile == 1   ? Qt::DashLine
          : stile == 2 ? Qt::DotLine
                       : Qt::SolidLine);
    p_.drawLine(a, b);
}

void TelaQPainter::Cerchio(double x, double y, double raggio, int colore) {
    const QPointF c = Mappa(x, y);
    const double r = raggio * std::abs(sx_);
    if (!std::isfinite(r) || std::abs(c.x()) > kLimite || std::abs(c.y()) > kLimite) return;
    Penna(colore, 1, Qt::SolidLine);
    p_.drawEllipse(c, std::min(r, kLimite), std::min(r, kLimite));
}

void TelaQPainter::Testo(double x, double y, const QString& testo, const QString& font,
                         double altezzaPixel, double angolo, int colore) {
    const QPointF c = Mappa(x, y);
    if (std::abs(c.x()) > kLimite || std::abs(c.y()) > kLimite || testo.isEmpty()) return;
    const int pixel = std::clamp(int(std::lround(std::abs(altezzaPixel))), 1, 2000);
    Font f;
    const ChiaveFont chiave{font, pixel};
    auto trovato = cache_ ? font_.constFind(chiave) : font_.constEnd();
    if (trovato != font_.constEnd()) {
        f = *trovato;
    } else {
        f.font = QFont(font);
        f.font.setPixelSize(pixel);
        f.ascesa = QFontMetricsF(f.font).ascent();
        if (cache_) font_.insert(chiave, f);
    }
    if (!cache_ || ultimoFont_.pixel != pixel || ultimoFont_.faccia != font) {
        p_.setFont(f.font);
        ultimoFont_ = {font, pixel};
    }
    Penna(colore, 1, Qt::SolidLine);
    // The point is the text's upper left corner, and the text turns around it.
    const double ascesa = f.ascesa;
    if (angolo == 0 || !std::isfinite(angolo)) {
        if (testi_)
            p_.drawStaticText(c, testi_->Testo(testo, f.font, pixel));
        else
            p_.drawText(QPointF(c.x(), c.y() + ascesa), testo);
        return;
    }
    p_.save();
    p_.translate(c);
    p_.rotate(-angolo);
    p_.drawText(QPointF(0, ascesa), testo);
    p_.restore();
}

} // namespace tavolet
