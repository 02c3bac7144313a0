// Helpers shared by the files of the cases.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {
struct Stato;
}

namespace tavolet::casistiche {

// Each row followed by CRLF.
QString RigheInTesto(const QStringList& righe);
// Double line ends collapsed until none is left.
QString SenzaDoppiACapo(QString testo);

// The parcel of the libretto in the associated extract: its ring and its points in the order
// of the ring (the first point again at the end).
struct ParticellaEstratto {
    QString Outline;
    QStringList Punti;
};
ParticellaEstratto LeggiParticella(Stato& stato);

} // namespace tavolet::casistiche
