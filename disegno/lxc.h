// The drawing list that the CAD program writes (.LXC): points, lines and contours.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

struct PuntoDisegno {
    QString nome;
    QString note;
    double X = 0, Y = 0, Z = 0;
    double H = 0; // instrument or target height; negative: no distance was taken
};

struct LineaDisegno {
    double X1 = 0, Y1 = 0, Z1 = 0, X2 = 0, Y2 = 0, Z2 = 0;
};

struct ContornoDisegno {
    QString punti; // "|A|B|C|"
    QString tipo;
    QString extra;
};

struct Disegno {
    QList<PuntoDisegno> PuntiDisegno;
    QList<LineaDisegno> LineeDisegno;
    QList<ContornoDisegno> ContorniDisegno;
    // Names to the first point that bears them, for drawings of thousands of points; valid
    // while the point table has the size it had when it was built.
    QHash<QString, int> indiceNomi;
    qsizetype puntiIndicizzati = -1;
    void Indicizza();
};

// Reads the text of a list: lines without a comma are skipped, "P", "L" and "7" lines stored.
Disegno LeggiLxc(const QString& testo);

// The drawing of the current file: its name upper-cased and given ".LXC" when it lacks it.
// A missing file: the message with its name and "Non Trovato!", and an empty drawing.
Disegno CaricaGrafica(Stato& stato, const QString& percorso);
QString NomeFileLxc(const QString& percorso);

// The report of measured distances for the fiducials of the drawing of the current file.
QStringList CalcolaMisuratePFDelDisegno(Stato& stato, const QString& percorso);

// The first point with exactly that name, or -1.
int TrovaPuntoDisegno(const Disegno& d, const QString& nome);

} // namespace tavolet
