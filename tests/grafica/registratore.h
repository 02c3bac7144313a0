// A Tela that writes down what the drawing asks of it.
#pragma once

#include "grafica.h"

#include <QStringList>

namespace tavolet::test {

struct Tratto {
    QString tipo; // "linea", "cerchio", "testo"
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0, raggio = 0, altezza = 0, angolo = 0;
    int spessore = 0, stile = 0, colore = 0;
    QString testo, font;
};

class TelaRegistratore : public Tela {
public:
    double larghezzaMm = 338.666, altezzaMm = 211.666; // 1280 x 800 at 96 dpi
    int pulizie = 0;
    QList<double> scala;
    QList<Tratto> tratti;

    double LarghezzaMm() const override { return larghezzaMm; }
    double AltezzaMm() const override { return altezzaMm; }
    void Pulisci() override { ++pulizie; }
    void Scala(double x1, double y1, double x2, double y2) override { scala = {x1, y1, x2, y2}; }
    // The fields in the order of Tratto.
    void Linea(double x1, double y1, double x2, double y2, int spessore, int stile,
               int colore) override {
        tratti.append({"linea", x1, y1, x2, y2, 0, 0, 0, spessore, stile, colore});
    }
    void Cerchio(double x, double y, double raggio, int colore) override {
        tratti.append({"cerchio", x, y, 0, 0, raggio, 0, 0, 0, 0, colore});
    }
    void Testo(double x, double y, const QString& testo, const QString& font, double altezza,
               double angolo, int colore) override {
        tratti.append({"testo", x, y, 0, 0, 0, altezza, angolo, 0, 0, colore, testo, font});
    }
};

} // namespace tavolet::test
