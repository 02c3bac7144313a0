// A model composed by the censuary screens, put into a libretto, passes the regrouping.
#include "riordino.h"
#include "supporto_censuario.h"

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kAvviso = "non corrisponde al numero delle righe PRESENTI";

bool Avvisato(const PiattaformaFinta& p) {
    for (const QString& m : p.Messaggi())
        if (m.contains(kAvviso)) return true;
    return false;
}

} // namespace

TEST_F(ConCensuario, OgniModelloPassaIlRiordinoSenzaAvviso) {
    const QStringList particelle = {"6|PARTICELLA|35|02|SEMINATIVO  |29380|29380|120.50|80.25|SN|",
                                    "6|PARTICELLA|36|00|ENTE URBANO |1200|1200|0|0|SN|"};
    const CampiParticella p35 =
        CampiDaParticella("A001_00012_35.MAP", particelle[0], s.amb.TabellaQualita);

    struct Caso {
        const char* nome;
        std::function<void()> componi;
    };
    // A frazionamento or stralcio of parcel 35, from the Proposta or by hand, into the memo and
    // then added or replaced.
    auto fraziona = [&](TipoSchema tipo, bool proposta, bool sostituisci) {
        return [=, this] {
            Frazionamento f;
            f.tipo = tipo;
            if (!proposta) f.TipoOperazione = kFrazionamento282;
            f.particella = Particella("35", proposta ? "29380" : "1000");
            if (proposta) PropostaPronta();
            ApriFrazionamento(s, f);
            if (proposta) PropostaAutomatica(s, f);
            if (!proposta) CambiaNumeroCostituite(s, f, "3");
            if (!proposta) CambiaAreaProporzionale(s, f, "300");
            p.risposte << Risposta::No;
            AggiungiAMemo(s, f);
            sostituisci ? SalvaPropostaFile1(s, f) : SalvaPropostaFile(s, f);
        };
    };
    const QList<Caso> casi = {
        {"frazionamento", fraziona(TipoSchema::Frazionamento, true, false)},
        {"frazionamento 282 senza passare dal memo",
         fraziona(TipoSchema::Frazionamento, false, true)},
        {"stralcio", fraziona(TipoSchema::Stralcio, true, true)},
        {"nuova costruzione",
         [&] {
             QStringList memo = RigheCensuarieDi(s.doc.TestoLibretto);
             AggiungiMemoNuovaCostruzione(memo, ModelloNuovaCostruzione(p35));
             SostituisciCensuario(s, memo, "Decozero_106");
         }},
        {"variazione",
         [&] {
             QStringList memo = RigheCensuarieDi(s.doc.TestoLibretto);
             AggiungiMemoVariazione(memo, ModelloVariazione(p35));
             AggiungiMemoVariazione(memo, ModelloVariazione(p35));
             SostituisciCensuario(s, memo, "Decozero_107");
         }},
        {"fusione TM di tre particelle",
         [&] {
             OpzioniFusione o;
             o.particelle = particelle + QStringList{particelle[0]};
             QStringList a = AnteprimaFusione({}, o, s.amb.TabellaQualita);
             QStringList memo;
             AggiungiMemoFusione(s, memo, a);
             AggiungiFusioneALibretto(s, memo);
         }},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.nome);
        Libretto();
        EliminaFile(PercorsoCensuario(s, "51FTP.CEN"));
        EliminaFile(PercorsoCensuario(s, "3SPC.CEN"));
        p.eventi.clear();
        c.componi();
        const QStringList modello = RigheCensuarieDi(s.doc.TestoLibretto);
        ASSERT_GE(modello.size(), 4);
        EXPECT_TRUE(TutteCensuarie(modello));
        const GruppiLibretto g = EsplodiLibretto(s);
        EXPECT_EQ(g.GruppoCensuario, modello);
        EXPECT_FALSE(Avvisato(p)) << p.Messaggi().join(u'\n').toStdString();
        ASSERT_TRUE(RicomponiLibretto(s, g));
        EXPECT_EQ(RigheCensuarieDi(s.doc.TestoLibretto), modello);
        EXPECT_EQ(s.ErroriMostrati, 0);
    }
}
