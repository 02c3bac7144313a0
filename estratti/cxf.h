// "Estratto da CXF": the borders (BORDO) of a CXF map sheet turned into a self-contained .EMP.
// Equal coordinate texts become one point, numbered in the text order of the coordinates.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tavolet {

struct Stato;

// The text of the .EMP for the text of a CXF and the lines of its .SUP (empty when there is
// none). A read error gives the error report under the stage's tag ("dacxfadxf1", ...) and an
// empty result; a sheet without borders still gives the head and the three fixed rows, after
// the error report of the framing step.
struct RisultatoCxf {
    bool scritto = false; // the text is complete and may be written
    QString emp;
};
RisultatoCxf ComponiEmpDaCxf(Stato& stato, const QString& testoCxf, const QStringList& righeSup);

// The area of a parcel from the lines of the .SUP: the first line from the second on that
// begins with the name, from its tenth character, trimmed; "20" when none or when it reads 0.
QString AreaDaSup(const QStringList& righeSup, const QString& nome);

// A ring row of ids composed into rows 7 of ten ids each, the tail behind the first.
QString RigaSetteDaCXF(const QString& riga, const QString& coda);

// The .SUP beside a CXF: the path upper-cased, ".CXF" turned into ".SUP" (any other extension
// is replaced as well). The same for the .EMP written by default.
QString PercorsoSup(const QString& percorsoCxf);
QString PercorsoEmpDaCxf(const QString& percorsoCxf);

// The whole conversion on files: reads the CXF and its .SUP (the warning when missing), writes
// the .EMP and its placeholder .PNG "filevuoto", shows "Creato!". An empty percorsoEmp takes
// PercorsoEmpDaCxf. Returns the path written, empty when nothing was written.
QString EstrattoDaCxf(Stato& stato, const QString& percorsoCxf, QString percorsoEmp = {});

} // namespace tavolet
