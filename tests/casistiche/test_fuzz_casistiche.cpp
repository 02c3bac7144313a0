// Random and mutated lists and DXF files: never a crash, never a hang, sane rows.
#include "casistiche.h"
#include "supporto.h"

#include <QRandomGenerator>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QByteArray Muta(QByteArray b, QRandomGenerator& g) {
    QList<QByteArray> righe = b.split('\n');
    const int passi = 1 + int(g.bounded(6));
    for (int k = 0; k < passi && !righe.isEmpty(); ++k) {
        const int i = int(g.bounded(righe.size()));
        switch (g.bounded(8)) {
        case 0:
            righe.removeAt(i);
            break; // a line lost: pairs out of step
        case 1:
            righe.insert(i, righe[i]);
            break; // a line twice
        case 2:
            righe[i] = QByteArray::number(g.generateDouble() * 1e6 - 5e5, 'f', 4);
            break;
        case 3:
            righe[i] = "1e308";
            break; // absurd numbers
        case 4:
            righe[i].truncate(int(g.bounded(righe[i].size() + 1)));
            break;
        case 5:
            for (char& ch : righe[i]) ch = char(g.bounded(256));
            break;
        case 6:
            righe = righe.mid(0, i);
            break; // a truncated file
        default:
            righe[i] = "LAYER RC";
            break;
        }
    }
    return righe.join('\n');
}

// Rows of the libretto: 8 with its fields, 7 with as many points as its count says.
void ControllaRighe(const QString& righe) {
    int punti = 0, attesi = -1;
    for (const QString& r : Split(righe, CRLF)) {
        if (r.isEmpty()) continue;
        const int tipo = TipoRiga(r);
        ASSERT_TRUE(tipo == 6 || tipo == 7 || tipo == 8) << r.toStdString();
        if (tipo != 7) continue;
        QStringList f = Split(r, "|");
        f.removeLast();
        if (f[1] != "0") {
            EXPECT_TRUE(attesi < 0 || punti == attesi);
            attesi = f[1].toInt();
            punti = 0;
        }
        punti += int(f.size()) - 3;
    }
    EXPECT_TRUE(attesi < 0 || punti == attesi);
}

} // namespace

TEST_F(ConPregeo, FuzzListaEDxf) {
    QRandomGenerator g(20261122);
    const QList<QByteArray> semi = {Dati("casistiche/lista_cad.txt"),
                                    Dati("casistiche/disegno_rc_nc.dxf"),
                                    Dati("casistiche/small_r13_RC_NC.dxf")};
    int generati = 0;
    for (int giro = 0; giro < 300; ++giro) {
        const QByteArray seme = semi[giro % semi.size()];
        const QByteArray mutato = Muta(seme, g);
        Casistica c;
        c.Codice = giro % 2 ? "08" : "1000";
        if (giro % 3 == 0) {
            p.appunti = DaWindows1252(mutato);
            if (GeneraLibrettoDaList(s, c)) ++generati;
        } else {
            radice.Scrivi("C:\\lavoro\\f.dxf", mutato);
            if (GeneraLibrettoDaPoliLineeDXF(s, c, "C:\\lavoro\\f.dxf")) ++generati;
        }
        ControllaRighe(c.RigheSpezzate);
        if (HasFailure()) {
            ADD_FAILURE() << "giro " << giro << ":\n" << mutato.left(2000).toStdString();
            break;
        }
    }
    // Most mutations leave something to read.
    EXPECT_GT(generati, 100);

    // Pure noise.
    for (int giro = 0; giro < 100; ++giro) {
        QByteArray rumore(int(g.bounded(4000)), '\0');
        for (char& ch : rumore) ch = char(g.bounded(256));
        Casistica c;
        p.appunti = DaWindows1252(rumore);
        GeneraLibrettoDaList(s, c);
        ConTrappola(s, "fuzz", [&] { ListaDaPoliLineeDxf(rumore); });
        ControllaRighe(c.RigheSpezzate);
    }
}
