// Random areas typed into the division's scheme: the preview rows keep their width. (The readers
// of the censuary model are fuzzed in fuzz/bersagli/censuario.cpp.)
#include "supporto_censuario.h"

#include <QRandomGenerator>

using namespace tavolet;
using namespace tavolet::test;

TEST_F(ConCensuario, SchemaConAreeCasuali) {
    QRandomGenerator r(13);
    static const QStringList valori = {"0",    "1",     "-3", "1e12", "abc", "12,5",        "",
                                       "99.9", "1e300", "7",  "-0",   "0.5", "100000000000"};
    for (int k = 0; k < 40; ++k) {
        Frazionamento f;
        f.particella = Particella(QStringLiteral("35"), valori[int(r.bounded(13))]);
        f.particella.RedditoAgrario = valori[int(r.bounded(13))];
        ApriFrazionamento(s, f);
        CambiaNumeroCostituite(s, f, QString::number(1 + r.bounded(6)));
        for (int i = 0; i < 30; ++i) {
            switch (r.bounded(4)) {
            case 0:
                CambiaAreaProporzionale(s, f, valori[int(r.bounded(13))]);
                break;
            case 1:
                RigaSuccessiva(s, f);
                break;
            case 2:
                DoppioClicSchema(s, f, int(r.bounded(quint32(f.SchemaModello.size()))),
                                 6 + int(r.bounded(2)));
                break;
            default:
                TastoAreaProporzionale(s, f, QChar(u"RNFx"[r.bounded(4)]));
                break;
            }
            // Whatever the numbers, the operation rows of the preview keep their length.
            for (const QString& riga : f.AnteprimaModello.mid(2)) ASSERT_EQ(riga.size(), 70);
        }
    }
}
