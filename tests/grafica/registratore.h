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
    void Linea(double x1, double y1, double x2, double y2, int spessore, int stile,
               int colore) override {
        Tratto t;
        t.tipo = "linea";
        t.x1 = x1, t.y1 = y1, t.x2 = x2, t.y2 = y2;
        t.spessore = spessore, t.stile = stile, t.colore = colore;
        tratti.append(t);
    }
    void Cerchio(double x, double y, double raggio, int colore) override {
        Tratto t;
        t.tipo = "cerchio";
        t.x1 = x, t.y1 = y, t.raggio = raggio, t.colore = colore;
        tratti.append(t);
    }
    void Testo(double x, double y, const QString& testo, const QString& font, double altezza,
               double angolo, int colore) override {
        Tratto t;
        t.tipo = "testo";
        t.x1 = x, t.y1 = y, t.testo = testo, t.font = font, t.altezza = altezza;
        t.angolo = angolo, t.colore = colore;
        tratti.append(t);
    }
    QList<Tratto> DiTipo(const QString& tipo) const {
        QList<Tratto> r;
        for (const Tratto& t : tratti)
            if (t.tipo == tipo) r.append(t);
        return r;
    }
    // The kinds in the order drawn, runs collapsed: "linea cerchio testo".
    QString Sequenza() const {
        QStringList s;
        for (const Tratto& t : tratti)
            if (s.isEmpty() || s.last() != t.tipo) s.append(t.tipo);
        return s.join(' ');
    }
};

} // namespace tavolet::test
