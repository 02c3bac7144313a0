// Random and mutated inputs for the readers of the censuary model: no crash, sane results.
#include "supporto_censuario.h"

#include <QRandomGenerator>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QString Muta(QRandomGenerator& r, QString t) {
    static const QString alfabeto = QStringLiteral("|0123456789.,-+= _%\r\nAGGIORNATO7ESTRA6x");
    const int n = 1 + int(r.bounded(8));
    for (int k = 0; k < n && !t.isEmpty(); ++k) {
        const int pos = int(r.bounded(quint32(t.size())));
        switch (r.bounded(4)) {
        case 0:
            t.remove(pos, 1 + int(r.bounded(5)));
            break;
        case 1:
            t.insert(pos, alfabeto.at(int(r.bounded(quint32(alfabeto.size())))));
            break;
        case 2:
            t[pos] = alfabeto.at(int(r.bounded(quint32(alfabeto.size()))));
            break;
        default:
            t.truncate(pos);
            break;
        }
    }
    return t;
}

} // namespace

TEST(FuzzCensuario, PropostaMutata) {
    QRandomGenerator r(11);
    const QString base = DaWindows1252(Dati("censuario/proposta.txt"));
    for (int i = 0; i < 3000; ++i) {
        const QString t = Muta(r, base);
        const AreeProposta a = AreeDaProposta(t);
        for (const QString& m : a.modello) {
            EXPECT_FALSE(m.contains(u'+') || m.contains(u'-'));
            EXPECT_TRUE(m.contains(u'_'));
        }
        for (const QString& v : a.aree.mid(1)) EXPECT_FALSE(v.contains(u'+') || v.contains(u'-'));
    }
}

TEST_F(ConCensuario, ParticelleEModelliMutati) {
    QRandomGenerator r(12);
    const QString particella =
        QStringLiteral("6|PARTICELLA|35|02|SEMINATIVO  |29380|29380|120.50|80.25|SN|");
    const QString modello = TestoRighe(Attese("frazionamento_341.txt") + Attese("fusione_tm.txt"));
    const QString estratto = QStringLiteral("0|01012020|P|A001|00012|35|PD|\r\n") + particella +
                             CRLF + QStringLiteral("7|5|1%|2%|3%|4%|1%|NC|35|35|29380|\r\n");
    for (int i = 0; i < 1500; ++i) {
        const QString riga = Muta(r, particella);
        const CampiParticella c = CampiDaParticella(Muta(r, QStringLiteral("A001_00012_35.MAP")),
                                                    riga, s.amb.TabellaQualita);
        // Every opening screen reads these fields: the fixed blocks keep their length, or a
        // parcel that lost a field is refused.
        QStringList nc, v, f;
        OpzioniFusione o;
        o.particelle = {riga, Muta(r, particella)};
        if (ConTrappola(s, "Decozero_106", [&] { nc = ModelloNuovaCostruzione(c); }))
            EXPECT_TRUE(TutteCensuarie(nc.mid(2)));
        if (ConTrappola(s, "BV_TMVariazione", [&] { v = ModelloVariazione(c); }))
            EXPECT_TRUE(TutteCensuarie(v.mid(2)));
        if (ConTrappola(s, "AnteprimaTMFusione",
                        [&] { f = AnteprimaFusione({}, o, s.amb.TabellaQualita); }))
            EXPECT_GE(f.size(), 2);
        for (const FileParticella& p :
             ParticelleDaModello(Muta(r, modello), "A001", "0012", s.amb.TabellaQualita))
            EXPECT_TRUE(p.riga.startsWith(QStringLiteral("6|PARTICELLA|")));
        ParticelleDaEstratto(RigheDiTesto(Muta(r, estratto)), "A001", "0012");
        AggiornaTestoEstratto(Muta(r, estratto), riga);
    }
}

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
