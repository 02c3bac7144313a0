// The Tela of the plot on a QPainter: a window, a QImage, a printer or a PDF.
#pragma once

#include "grafica.h"

#include <QFont>
#include <QHash>
#include <QPainter>
#include <QStaticText>

namespace tavolet {

// Texts laid out once and kept between redraws (a plot redraws the same names at every step).
class CacheTesti {
public:
    const QStaticText& Testo(const QString& testo, const QFont& font, int pixel);
    void Svuota() { testi_.clear(); }

private:
    QHash<QString, QStaticText> testi_; // keyed by face, size and text
};

class TelaQPainter : public Tela {
public:
    // The painter is already begun on its device; larghezzaPx x altezzaPx is the area drawn
    // and dpi the device's resolution (millimetres and twips follow from it).
    TelaQPainter(QPainter& painter, int larghezzaPx, int altezzaPx, double dpi = 96);

    // Fonts made once per face, size and angle (true), or one per text (false).
    void UsaCacheCaratteri(bool si) { cache_ = si; }
    // Texts laid out once across redraws; none by default.
    void UsaCacheTesti(CacheTesti* cache) { testi_ = cache; }

    double LarghezzaMm() const override;
    double AltezzaMm() const override;
    double TwipsPerPixel() const override;
    void Pulisci() override;
    void Scala(double x1, double y1, double x2, double y2) override;
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
    QPointF Mappa(double x, double y) const;
    // The painter's pen and font change only when they differ from the last ones set.
    void Penna(int colore, int spessore, Qt::PenStyle stile);
    int pennaColore_ = -1, pennaSpessore_ = -1;
    Qt::PenStyle pennaStile_ = Qt::NoPen;
    ChiaveFontUltima ultimoFont_;
    QPainter& p_;
    int w_, h_;
    double dpi_;
    double sx_ = 1, sy_ = 1, ox_ = 0, oy_ = 0;
    bool cache_ = true;
    CacheTesti* testi_ = nullptr;
    struct ChiaveFont {
        QString faccia;
        int pixel;
        bool operator==(const ChiaveFont&) const = default;
    };
    friend size_t qHash(const ChiaveFont& k, size_t seme) {
        return qHashMulti(seme, k.faccia, k.pixel);
    }
    struct Font {
        QFont font;
        double ascesa;
    };
    QHash<ChiaveFont, Font> font_;
};

} // namespace tavolet
