// The comuni table as the registry ships it, searched on the screen of the codes.
#include "comuni.h"
#include "libretto.h"
#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

TEST_F(ConPregeo, OgniComuneDelFileVeroSiTrovaPerNomeEPerCodice) {
    const QByteArray file = Dati("pregeo/comunt.dat");
    radice.Scrivi("C:\\pregeo\\arch\\comunt.dat", file);
    const QStringList righe = RigheCodFis(s);

    // The records walked by their headers: two bytes, the kind in the high four bits and the
    // length in the low twelve, behind a file header of 128 bytes.
    QStringList attese;
    for (qsizetype i = 128; i + 2 <= file.size();) {
        const int lunghezza = ((uchar(file[i]) << 8) | uchar(file[i + 1])) & 0xFFF;
        const QByteArray r = file.mid(i + 2, lunghezza);
        attese << (r.mid(1, 4) + r.left(1)).trimmed() + '|' + r.mid(28, 34).trimmed();
        i += 2 + lunghezza;
    }
    ASSERT_EQ(attese.size(), 8741);
    ASSERT_EQ(righe.size(), 8741);
    for (qsizetype i = 0; i < righe.size(); ++i)
        EXPECT_EQ(CodiceDellaRiga(righe[i]) + '|' + righe[i].left(40).trimmed(), attese[i]);
    // The ten the registry marked as dropped, found by name on the screen and by code.
    const QList<std::pair<QString, QString>> dieci = {{"CISMON DEL GRAPPA", "C734"},
                                                      {"CONCO", "C949"},
                                                      {"PISTOLESA", "G714"},
                                                      {"QUITTENGO", "H145"},
                                                      {"SAN PAOLO CERVO", "I074"},
                                                      {"SOPRANA", "I835"},
                                                      {"TRENTA", "L375"},
                                                      {"PASSIRANO CAMIGNONE", "G361B"},
                                                      {"PERTICA ALTA LIVEMMO", "G474B"},
                                                      {"CASTO COMERO", "C330C"}};
    for (const auto& [nome, codice] : dieci) {
        const int perNome = CercaDaSinistra(righe, nome.leftJustified(40) + '|');
        ASSERT_GE(perNome, 0) << nome.toStdString();
        EXPECT_EQ(CodiceDellaRiga(righe[perNome]), codice);
        const int perCodice = CercaGenerale(righe, '|' + codice.leftJustified(5) + '|');
        ASSERT_GE(perCodice, 0) << codice.toStdString();
        EXPECT_TRUE(righe[perCodice].startsWith(nome.leftJustified(40)));
    }
}
