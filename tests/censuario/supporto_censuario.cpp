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
    return RigheDiTesto(DaWindows1252(Dati(QStringLiteral("censuario/") + nome)));
}

CampiParticella ConCensuario::Particella(const QString& mappale, const QString& area,
                                         const QString& qualita, const QString& classe) const {
    CampiParticella c;
    c.Comune = QStringLiteral("A001");
    c.Foglio = QStringLiteral("00012");
    c.Mappale = mappale;
    c.Qualita = qualita;
    c.Classe = classe;
    c.SupCatastale = area;
    c.SupGrafica = area;
    c.RedditoAgrario = QStringLiteral("120.50");
    c.RedditoDominicale = QStringLiteral("80.25");
    c.Flag = QStringLiteral("SN");
    c.CodiceQualita = CodiceDaQualita(s.amb.TabellaQualita, qualita);
    return c;
}

void ConCensuario::PropostaPronta(const QString& nome) {
    radice.Scrivi(s.amb.CartellaLavoro + QStringLiteral("\\TEMP\\ESPORTA_PROPOSTA.txt"),
                  Dati(nome));
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
