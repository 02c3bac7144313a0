#include "TelaQt.h"

#include <QFontMetricsF>

#include <cmath>

namespace tavolet {

TelaQPainter::TelaQPainter(QPainter& painter, int larghezzaPx, int altezzaPx, double dpi)
    : TelaSuPixel(larghezzaPx, altezzaPx, dpi), p_(painter) {}

void TelaQPainter::Pulisci() {
    p_.fillRect(QRect(0, 0, w_, h_), Qt::white);
    p_.setBrush(Qt::NoBrush); // markers are rings
}

bool RitagliaSegmento(QPointF& a, QPointF& b, double x0, double y0, double x1, double y1) {
    // Liang-Barsky.
    double t0 = 0, t1 = 1;
    const double dx = b.x() - a.x(), dy = b.y() - a.y();
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x() - x0, x1 - a.x(), a.y() - y0, y1 - a.y()};
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
    if (!(t0 <= t1)) return false;
    const QPointF na(a.x() + t0 * dx, a.y() + t0 * dy), nb(a.x() + t1 * dx, a.y() + t1 * dy);
    a = na;
    b = nb;
    return std::isfinite(a.x()) && std::isfinite(a.y()) && std::isfinite(b.x()) &&
           std::isfinite(b.y());
}

namespace {

QColor Colore(int indice) {
    return QColor::fromRgb(ColoreQB(indice));
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
    if (!RitagliaSegmento(a, b, -kLimite, -kLimite, kLimite, kLimite)) return;
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
    const ChiaveFaccia chiave{font, pixel};
    auto trovato = font_.constFind(chiave);
    if (trovato != font_.constEnd()) {
        f = *trovato;
    } else {
        f.font = QFont(font);
        f.font.setPixelSize(pixel);
        f.ascesa = QFontMetricsF(f.font).ascent();
        font_.insert(chiave, f);
    }
    if (ultimoFont_.pixel != pixel || ultimoFont_.faccia != font) {
        p_.setFont(f.font);
        ultimoFont_ = {font, pixel};
    }
    Penna(colore, 1, Qt::SolidLine);
    // The point is the text's upper left corner, and the text turns around it.
    const double ascesa = f.ascesa;
    if (angolo == 0 || !std::isfinite(angolo)) {
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
