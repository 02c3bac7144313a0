// Lines between points of the drawing and the stations they reveal.
#pragma once

#include "lxc.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tavolet {

// ListaLinee: "A - B" for each drawn line whose two ends lie within 0.005 of a point, the
// names in sorted order, each line once however often and in whatever direction it was drawn.
QStringList RiconosciLinee(const Disegno& d);
// The two names of an item of ListaLinee.
QString NomeSinistro(const QString& voce);
QString NomeDestro(const QString& voce);

// A station by the rule of thousands: length 3 ending "00", or 4 and more ending "000".
bool StazioneMillesimale(const QString& nome);
// A station by the rule of hundreds: ending "00", not a fiducial.
bool StazioneCentesimale(const QString& nome);

// For the plot: each station (a left name of ListaLinee by the rule of thousands) with the
// indices of the points that belong to it.
struct StazionePlot {
    QString nome;
    int indice = -1;
    QList<int> punti;
};
QList<StazionePlot> StazioniPerGrafica(const Disegno& d, const QStringList& listaLinee);

// The text right-aligned in n characters (as the sorted lists of names hold it).
QString ADestra(const QString& s, int n);

} // namespace tavolet
