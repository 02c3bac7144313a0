// The CXF conversion done the plain way, step by step as a surveyor would read it: a sorted list
// kept by insertion, a linear search per vertex for its number. The fast one must match it.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet::test {

struct RiferimentoCxf {
    QString emp;
    bool senzaCornice = false; // the framing step found no coordinate
};

// Throws Errore with the runtime's number when the CXF cannot be read.
RiferimentoCxf ComponiEmpDaCxfRiferimento(const QString& cxf, const QStringList& sup);

} // namespace tavolet::test
