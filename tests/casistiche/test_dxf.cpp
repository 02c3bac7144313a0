// Polylines of DXF files, real ones and hand-made, through the CAD list.
#include "casistiche.h"
#include "supporto.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cmath>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Dxf : ConPregeo {
    Casistica c;
    bool Leggi(const QString& nome) {
        return GeneraLibrettoDaPoliLineeDXF(s, c, PercorsoDati("casistiche/" + nome));
    }
    QStringList Righe(int tipo) const {
        QStringList r;
        for (const QString& riga : Split(c.RigheSpezzate, CRLF))
            if (!riga.isEmpty() && TipoRiga(riga) == tipo) r << riga;
        return r;
    }
};

// Vertices of the polylines on the layers of the cases, as ezdxf reads them: one line
// "layer closed n y x y x ..." per polyline.
QStringList PolilineeEzdxf(const QString& percorso, bool* saltato) {
    const QString script = QStringLiteral(R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
noti = {'RT','RP','RC','NC','PARTICELLE','FABBRICATI'}
for e in doc.modelspace():
    t = e.dxftype()
    if t not in ('LWPOLYLINE', 'POLYLINE') or e.dxf.layer.strip() not in noti:
        continue
    if t == 'LWPOLYLINE':
        pts = [(p[0], p[1]) for p in e.get_points('xy')]
        chiusa = e.closed
    else:
        pts = [(v.dxf.location.x, v.dxf.location.y) for v in e.vertices]
        chiusa = False  # the reader never closes an old-style polyline
    print(e.dxf.layer.strip(), int(chiusa), len(pts), ' '.join('%r %r' % (y, x) for x, y in pts))
)");
    *saltato = false;
    QProcess p;
    p.start("/usr/bin/python3", {"-c", "import ezdxf"});
    if (!p.waitForFinished(30000) || p.exitCode() != 0) {
        *saltato = true;
        return {};
    }
    p.start("/usr/bin/python3", {"-c", script, percorso});
    p.waitForFinished(120000);
    return QString::fromUtf8(p.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

// A real file with its layers renamed to those of the cases: the value of every group 8 pair
// that names an old layer is replaced, line ends and all else kept.
QByteArray RinominaLayer(const QByteArray& dxf, const QMap<QByteArray, QByteArray>& nomi) {
    QList<QByteArray> righe = dxf.split('\n');
    for (qsizetype i = 0; i + 1 < righe.size(); i += 2) {
        if (righe[i].trimmed() != "8") continue;
        const bool cr = righe[i + 1].endsWith('\r');
        const QByteArray valore = cr ? righe[i + 1].chopped(1) : righe[i + 1];
        if (nomi.contains(valore)) righe[i + 1] = nomi[valore] + (cr ? "\r" : "");
    }
    return righe.join('\n');
}

} // namespace

// Every vertex a row 8, every polyline a row 7, checked against ezdxf.
TEST_F(Dxf, LayerRinominatiControEzdxf) {
    const QList<std::pair<const char*, QMap<QByteArray, QByteArray>>> casi = {
        {"POLI-ALL210_12.DXF", {{"T-2DPLINE-ALL", "RC"}}},
        {"small_r13.dxf", {{"3USMM_PKG", "RC"}, {"FOOT_PRINT", "NC"}}},
        {"images.dxf", {{"context", "RC"}, {"image", "NC"}, {"title", "FABBRICATI"}}},
        {"usa.dxf", {{"BORDERS", "PARTICELLE"}}},
        {"houses_of_parliament_georeferenced.dxf", {{"0", "RC"}}}};
    QTemporaryDir dir;
    for (const auto& [nome, layer] : casi) {
        const QString percorso = dir.filePath(nome);
        QFile f(percorso);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(RinominaLayer(Dati(QStringLiteral("casistiche/") + nome), layer));
        f.close();
        bool saltato = false;
        const QStringList attese = PolilineeEzdxf(percorso, &saltato);
        if (saltato) GTEST_SKIP() << "python3-ezdxf non installato (/usr/bin/python3)";
        ASSERT_FALSE(attese.isEmpty()) << nome;
        c = Casistica();
        p.eventi.clear();
        ASSERT_TRUE(GeneraLibrettoDaPoliLineeDXF(s, c, percorso))
            << nome << ' ' << p.Messaggi().join('\n').toStdString();

        // Coordinates of the rows 8, by their rounded value.
        QSet<QString> punti;
        for (const QString& r : Righe(8)) {
            const QStringList f = Split(r, "|");
            punti.insert(f[2] + '|' + f[3]);
        }
        qsizetype vertici = 0, polilinee = 0;
        for (const QString& riga : attese) {
            const QStringList w = riga.split(' ', Qt::SkipEmptyParts);
            const int n = w[2].toInt();
            if (n == 0) continue;
            ++polilinee;
            for (int i = 0; i < n; ++i) {
                const double y = w[3 + 2 * i].toDouble(), x = w[4 + 2 * i].toDouble();
                // Rounding of a tie may differ by one unit of the third decimal.
                bool trovato = false;
                for (int dy = -1; dy <= 1 && !trovato; ++dy)
                    for (int dx = -1; dx <= 1 && !trovato; ++dx)
                        trovato = punti.contains(
                            Formato(std::round(y * 1000) / 1000 + dy / 1000., "###########.##0") +
                            '|' +
                            Formato(std::round(x * 1000) / 1000 + dx / 1000., "###########.##0"));
                EXPECT_TRUE(trovato) << nome << " vertice " << y << ' ' << x;
                ++vertici;
            }
        }
        qsizetype primeRighe7 = 0;
        for (const QString& r : Righe(7))
            if (!r.startsWith("7|0|")) ++primeRighe7;
        EXPECT_EQ(primeRighe7, polilinee) << nome;
        EXPECT_GT(vertici, 0);
        EXPECT_LE(punti.size(), vertici) << nome;
    }
}

TEST_F(Dxf, DisegnoFattoAManoControEzdxf) {
    // The .DAT and the extract written from it are the command line's to compare.
    ASSERT_TRUE(Leggi("disegno_rc_nc.dxf"));

    // Row by row, in order: the closed building repeats its first vertex, the bulge and the
    // heights change nothing, the unknown layers give no vertex.
    bool saltato = false;
    const QStringList attese =
        PolilineeEzdxf(PercorsoDati("casistiche/disegno_rc_nc.dxf"), &saltato);
    if (saltato) GTEST_SKIP() << "python3-ezdxf non installato (/usr/bin/python3)";
    QStringList coordinate;
    for (const QString& riga : attese) {
        const QStringList w = riga.split(' ', Qt::SkipEmptyParts);
        const int n = w[2].toInt();
        for (int i = 0; i < n + (w[1] == "1" ? 1 : 0); ++i) {
            const int k = i % n;
            coordinate << Formato(w[3 + 2 * k].toDouble(), "###########.##0") + '|' +
                              Formato(w[4 + 2 * k].toDouble(), "###########.##0");
        }
    }
    QStringList lette;
    for (const QString& r : Righe(8)) lette << Split(r, "|").mid(2, 2).join('|');
    EXPECT_EQ(lette, coordinate);
}
