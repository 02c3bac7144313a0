// "Esporta GeoPackage" from the archive of extracts and from the plot's menu, read back by
// GDAL's own ogrinfo as a GIS user would.
#include "BV_EstrattiDiMappa1.h"
#include "Grafica.h"
#include "percorsi.h"
#include "piattaforma_finta.h"
#include "schermi.h"
#include "supporto.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// The count the line under the plot gives, or -1.
int ParticelleScritte(Grafica* g, const QString& file) {
    const QRegularExpression re("^(\\d+) particelle scritte in " +
                                QRegularExpression::escape(file));
    for (QLabel* l : g->findChildren<QLabel*>())
        if (const auto m = re.match(l->text()); m.hasMatch()) return m.captured(1).toInt();
    return -1;
}

} // namespace

struct EsportaGis : ConPregeo {};

TEST_F(EsportaGis, DallArchivioEDalMenuDellaGrafica) {
    radice.Scrivi("C:\\pregeo\\estratti\\F120.EMP", Dati("estratti/realistico.EMP"));
    CreaCartella("C:\\GIS");
    BV_EstrattiDiMappa1 f(s);
    f.Lista()->setCurrentRow(-1);
    Clic(&f, "Esporta GeoPackage");
    EXPECT_EQ(p.eventi.last().testo, "Selezionare un estratto!");

    const auto voci = f.Lista()->findItems("F120.EMP", Qt::MatchFixedString);
    ASSERT_FALSE(voci.isEmpty());
    f.Lista()->setCurrentItem(voci.first());
    p.eventi.clear();
    p.fileDaSalvare = {"C:\\GIS\\F120.gpkg"};
    Clic(&f, "Esporta GeoPackage");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
    ASSERT_EQ(p.eventi.value(0).tipo, "salva");
    EXPECT_EQ(p.eventi.value(0).titolo, "Esporta GeoPackage");
    EXPECT_EQ(p.eventi.value(0).testo, "|F120.gpkg");
    const int n = ParticelleScritte(f.grafica(), "C:\\GIS\\F120.gpkg");
    ASSERT_GT(n, 0);
    EXPECT_TRUE(radice.Leggi("C:\\GIS\\F120.gpkg").startsWith(QByteArray("SQLite format 3\0", 16)));

    // The same from the plot's right-click menu, on the extract it shows.
    QAction* azione = nullptr;
    for (QMenu* m : f.grafica()->findChildren<QMenu*>())
        for (QAction* a : m->actions())
            if (a->text() == "Esporta GeoPackage") azione = a;
    ASSERT_NE(azione, nullptr);
    p.fileDaSalvare = {"C:\\GIS\\MENU.gpkg"};
    azione->trigger();
    EXPECT_EQ(ParticelleScritte(f.grafica(), "C:\\GIS\\MENU.gpkg"), n);

    const QString ogrinfo = QStandardPaths::findExecutable("ogrinfo");
    if (ogrinfo.isEmpty()) GTEST_SKIP() << "ogrinfo (gdal-bin) non installato: lettura saltata";
    QProcess pr;
    pr.start(ogrinfo, {"-so", PercorsoLocale("C:\\GIS\\MENU.gpkg"), "particelle"});
    ASSERT_TRUE(pr.waitForFinished(60000));
    const QString uscita = QString::fromUtf8(pr.readAllStandardOutput());
    EXPECT_TRUE(uscita.contains(QStringLiteral("Feature Count: %1").arg(n)))
        << uscita.toStdString();
}
