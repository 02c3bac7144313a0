#include "libretto.h"
#include "piattaforma_finta.h"
#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Testa : ConPregeo {
    void Decodifica(const QString& testo) {
        s.doc.TestoLibretto = testo;
        DecoZeroNove(s);
    }
};

} // namespace

// Every field of the head of the demo's libretto is in the command line's golden file.
TEST_F(Testa, TitoloEArchivioDalleRighe0e9) {
    s.testata.Cognome = "BIANCHI";
    s.testata.Nome = "LUCA";
    Decodifica("0|15032024|245|G224|0012|1,2,3|BIANCHI LUCA|GEOMETRA|PADOVA|\r\n"
               "9|8|10|20|1540|10.00-G,STDA 2.08|09|STAZIONE TOTALE|\r\n1|1|\r\n");
    EXPECT_EQ(s.testata.NomeArchivio, "2024_BIANCHI LUCA_M_09_245_G224_0012_1_2_3");
    EXPECT_EQ(TitoloLibretto(s), "Tavolet V 5.00 - L'Evoluzione - Libretto Misure : [245 15032024] "
                                 "[CF Comune : G224 - PADOVA] [Provincia : PADOVA]");
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

TEST_F(Testa, DateASeiCifreETipoAtto) {
    // Six digits: 20xx below the threshold, 19xx from it on.
    Decodifica("0|010279|1|G224|\r\n9|1|\r\n");
    EXPECT_EQ(s.testata.DataLibretto, "01022079");
    EXPECT_EQ(s.testata.AnnoLibretto, "2079");
    Decodifica("0|010280|1|G224|\r\n9|1|\r\n");
    EXPECT_EQ(s.testata.DataLibretto, "01021980");
    EXPECT_EQ(EspandiAnno("010288", 88), "01021988");
    EXPECT_EQ(EspandiAnno("010287", 88), "01022087");
    // The kind of act from the last two characters; one character is compared as it stands.
    const std::pair<const char*, const char*> tipi[] = {{"09", "M"},  {"18", "S"}, {"TM", "M"},
                                                        {"XTM", "M"}, {"9", "S"},  {"", "S"}};
    for (const auto& [tipologia, atto] : tipi) EXPECT_EQ(CalcolaTipoAtto(tipologia), atto);
}

TEST_F(Testa, ComuneSconosciutoLasciaLUltimoTrovato) {
    Decodifica("0|01012024|1|L736|\r\n9|1|\r\n");
    EXPECT_EQ(s.testata.NomeComuneLibretto, "VENEZIA");
    Decodifica("0|01012024|1|Z999|\r\n9|1|\r\n");
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "Z999");
    EXPECT_EQ(s.testata.NomeComuneLibretto, "VENEZIA");
    EXPECT_EQ(s.testata.NomeProvinciaLibretto, "VENEZIA");
}

TEST_F(Testa, DocumentoDiUnaRigaTieneLaRiga9Precedente) {
    Decodifica("0|01012024|1|G224|\r\n9|33|10|20|999|v|TM|X|\r\n");
    EXPECT_EQ(s.testata.QuotaMedia, "33");
    // One CRLF: the first row becomes row 0, row 9 is decoded from the one kept before.
    Decodifica("0|01012025|2|G224|\r\n");
    EXPECT_EQ(s.testata.Protocollo, "2");
    EXPECT_EQ(s.testata.QuotaMedia, "33");
    EXPECT_EQ(s.testata.TipoAtto, "M");
    // No CRLF at all (and at least 10 characters): nothing of the text is taken.
    Decodifica("0|01012026|3|G224|");
    EXPECT_EQ(s.testata.Protocollo, "2");
}

TEST_F(Testa, TestoCortoPrendeLeRigheDiDefault) {
    s.doc.Riga0.clear();
    s.doc.Riga9.clear();
    Decodifica("x");
    EXPECT_EQ(s.doc.TestoLibretto, "0|15012026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|\r\n" +
                                       kRiga9Predefinita + "\r\n");
    EXPECT_EQ(s.testata.Tecnico, "COGNOME NOME");
    EXPECT_EQ(s.testata.TipologiaRilievo, "18");
    EXPECT_EQ(s.testata.TipoAtto, "S");
    EXPECT_EQ(s.doc.RigheLibretto.Conta(), 2);
    // Missing fields read as empty.
    Decodifica("0|01012024|\r\n9|\r\n1|1|\r\n");
    EXPECT_EQ(s.testata.FoglioLibretto, "");
    EXPECT_EQ(s.testata.Strumentazione, "");
}

TEST_F(Testa, AggiornaConfigurazioneDivideIlTecnico) {
    s.testata.Nome.clear();
    s.testata.Cognome.clear();
    s.doc.TestoLibretto =
        "0|01012024|1|L736|0001|5|VERDI ANNA MARIA|GEOMETRA|PADOVA|\r\n9|1|10|20|5|v|18|X|\r\n";
    const SigleConfigurazione sigle = AggiornaConfigurazionePregeo(s);
    EXPECT_EQ(s.testata.Cognome, "VERDI");
    EXPECT_EQ(s.testata.Nome, "ANNA");
    EXPECT_EQ(sigle.SiglaComune, "VE");
    EXPECT_EQ(sigle.SiglaProvinciaAlbo, "PD");
    EXPECT_EQ(s.testata.NomeArchivio, "2024_VERDI ANNA_S_18_1_L736_0001_5");
}
