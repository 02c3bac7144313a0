#include "supporto_censuario.h"

namespace tavolet::test {

void ConCensuario::SetUp() {
    radice.PregeoMinimo();
    radice.Scrivi("C:\\pregeo\\exe\\qualita.txt", Dati("censuario/qualita.txt"));
    Inizializza(s);
    CaricaConfig(s);
    p.eventi.clear();
}

QStringList ConCensuario::Attese(const QString& nome) {
    return RigheDiTesto(DaWindows1252(Dati("censuario/" + nome)));
}

CampiParticella ConCensuario::Particella(const QString& mappale, const QString& area,
                                         const QString& qualita, const QString& classe) const {
    CampiParticella c;
    c.Comune = "A001";
    c.Foglio = "00012";
    c.Mappale = mappale;
    c.Qualita = qualita;
    c.Classe = classe;
    c.SupCatastale = area;
    c.SupGrafica = area;
    c.RedditoAgrario = "120.50";
    c.RedditoDominicale = "80.25";
    c.Flag = "SN";
    c.CodiceQualita = CodiceDaQualita(s.amb.TabellaQualita, qualita);
    return c;
}

Frazionamento ConCensuario::Fraziona(const QString& area, const QString& derivate) {
    Frazionamento f;
    f.particella = Particella("35", area);
    ApriFrazionamento(s, f);
    if (!derivate.isEmpty()) CambiaNumeroCostituite(s, f, derivate);
    return f;
}

void ConCensuario::PropostaPronta(const QString& nome) {
    radice.Scrivi(s.amb.CartellaLavoro + "\\TEMP\\ESPORTA_PROPOSTA.txt", Dati(nome));
}

void ConCensuario::Libretto(const QString& nome) {
    s.doc.TestoLibretto = DaWindows1252(Dati(nome));
    DecoZeroNove(s);
}

::testing::AssertionResult TutteCensuarie(const QStringList& righe) {
    for (const QString& r : righe)
        if (!RigaCensuaria(r))
            return ::testing::AssertionFailure()
                   << "riga di " << r.size() << " caratteri: " << r.toStdString();
    return ::testing::AssertionSuccess();
}

} // namespace tavolet::test
