// The Tela of the plot on a QPainter: a printer or a PDF, where the strokes stay vectors.
#pragma once

#include "grafica.h"

#include <QFont>
#include <QHash>
#include <QPainter>

namespace tavolet {

// Far beyond the surface the raster engine's fixed point overflows: a stroke is cut to a
// square of this many pixels around the surface, which leaves the visible part unchanged.
constexpr double kLimite = 1e6;

// The part of the segment a-b inside [x0, x1] x [y0, y1]; false when none.
bool RitagliaSegmento(QPointF& a, QPointF& b, double x0, double y0, double x1, double y1);

// A font face at a pixel height: the key of the Telas' font caches.
struct ChiaveFaccia {
    QString faccia;
    int pixel;
    bool operator==(const ChiaveFaccia&) const = default;
};
inline size_t qHash(const ChiaveFaccia& k, size_t seme) {
    return qHashMulti(seme, k.faccia, k.pixel);
}

// What the Telas on pixels share: a surface of w x h pixels at a resolution, and the world's
// scale onto it.
class TelaSuPixel : public Tela {
public:
    TelaSuPixel(int larghezzaPx, int altezzaPx, double dpi)
        : w_(larghezzaPx), h_(altezzaPx), dpi_(dpi > 0 ? dpi : 96) {}
    double LarghezzaMm() const override { return w_ / dpi_ * 25.4; }
    double AltezzaMm() const override { return h_ / dpi_ * 25.4; }
    double TwipsPerPixel() const override { return 1440 / dpi_; }
    void Scala(double x1, double y1, double x2, double y2) override {
        sx_ = (x2 != x1) ? w_ / (x2 - x1) : 1;
        sy_ = (y2 != y1) ? h_ / (y2 - y1) : 1;
        ox_ = x1;
        oy_ = y1;
    }

protected:
    QPointF Mappa(double x, double y) const { return {(x - ox_) * sx_, (y - oy_) * sy_}; }
    int w_, h_;
    double dpi_;
    double sx_ = 1, sy_ = 1, ox_ = 0, oy_ = 0;
};

class TelaQPainter : public TelaSuPixel {
public:
    // The painter is already begun on its device; larghezzaPx x altezzaPx is the area drawn
    // and dpi the device's resolution (millimetres and twips follow from it).
    TelaQPainter(QPainter& painter, int larghezzaPx, int altezzaPx, double dpi = 96);

    void Pulisci() override;
    void Linea(double x1, double y1, double x2, double y2, int spessore, int stile,
               int colore) override;
    void Cerchio(double x, double y, double raggio, int colore) override;
    void Testo(double x, double y, const QString& testo, const QString& font, double altezzaPixel,
               double angolo, int colore) override;

private:
    struct ChiaveFontUltima {
        QString faccia;
        int pixel = -1;
    };
    // The painter's pen and font change only when they differ from the last ones set.
    void Penna(int colore, int spessore, Qt::PenStyle stile);
    int pennaColore_ = -1, pennaSpessore_ = -1;
    Qt::PenStyle pennaStile_ = Qt::NoPen;
    ChiaveFontUltima ultimoFont_;
    QPainter& p_;
    struct Font {
        QFont font;
        double ascesa;
    };
    QHash<ChiaveFaccia, Font> font_;
};

} // namespace tavolet
