// tavolet-cli run on a copy of the demo tree, on a fixed day.
#pragma once

#include "supporto.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace tavolet::test {

struct SulDemo : ::testing::Test {
    QTemporaryDir radice;
    void SetUp() override { CopiaDemo(radice.path()); }
    Esito Esegui(const QStringList& argomenti) {
        return test::Esegui(radice.path(), argomenti, "21112026");
    }
    QString Esempio() const { return radice.filePath("drive_c/Libretti/ESEMPIO.DAT"); }
    // Bytes written at a path of the tree, its folders made; the path.
    QString Scrivi(const QString& nome, const QByteArray& byte) {
        const QString percorso = radice.filePath(nome);
        QDir().mkpath(QFileInfo(percorso).path());
        QFile f(percorso);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(byte);
        return percorso;
    }
};

} // namespace tavolet::test
