// Every file name the program makes from typed text or from a field keeps the file in its
// folder, whatever was typed.
#include "archivio.h"
#include "casistiche.h"
#include "estratto.h"
#include "possessori.h"
#include "supporto_censuario.h"
#include "taf.h"
#include "unisci.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

#include <functional>

using namespace tavolet;
using namespace tavolet::test;

TEST_F(ConCensuario, UnNomeDigitatoNonScriveFuoriDallaSuaCartella) {
    const QString estratti = "C:\\pregeo\\estratti\\";
    radice.Scrivi(estratti + "BASE.EMP", "0|x|\r\n");
    radice.Scrivi(estratti + "BASE.PNG", "png");
    radice.Scrivi(PercorsoTempestratto(s), "0|x|\r\n");
    Estratto e;
    e.Percorso = estratti + "BASE.EMP";
    e.EstrattoComune = "A001";
    // What each derivation names, and the folder the name must stay in. The ones that only
    // name a file give its path; the others write it, and are found on disk below.
    const QList<std::tuple<QString, QString, std::function<QString(const QString&)>>> tabella = {
        {"tecnico", s.amb.CartellaLavoro + "\\tecnici",
         [&](const QString& n) { return PercorsoFileTecnico(s, n + " MARIO"); }},
        {"particella", s.amb.UnitaPregeoDati + "\\FIDUCIAL\\PARTICELLE",
         [&](const QString& n) {
             ScriviParticelle(s, {{n + ".Map", "6|PARTICELLA|1|"}});
             CampiParticella c;
             c.Comune = "A001";
             c.Mappale = n;
             return CartellaParticelle(s) + NomeFileParticella(c);
         }},
        {"particelle dell'estratto", s.amb.UnitaPregeoDati + "\\FIDUCIAL\\PARTICELLE",
         [&](const QString& n) {
             e.EstrattoFoglio = n;
             e.PARTICELLA = QStringList{"6|PARTICELLA|" + n + "|"};
             ArchiviaParticelleEstratto(s, e);
             return QString();
         }},
        {"ditte dell'estratto", s.amb.UnitaPregeoDati + "\\fiducial\\DITTA",
         [&](const QString& n) {
             e.DITTA = QStringList{"6|DITTA|" + n + "|" + n + "|"};
             ArchiviaDitteEstratto(s, e, n);
             return QString();
         }},
        {"estratti", "C:\\pregeo\\estratti",
         [&](const QString& n) {
             DuplicaEstratto(s, "BASE.EMP", n + ".EMP");
             GeneraSommaEstratti(s, "BASE.EMP", n);
             return QString();
         }},
        {"TAF", s.amb.UnitaPregeoDati + "\\fiducial\\DATI",
         [&](const QString& n) { return PercorsoTaf(s, n); }},
        {"tipologia", CartellaDel(PercorsoTempCasistiche(s, "x")),
         [&](const QString& n) { return PercorsoDescrizioneTipologia(s, n); }},
        {"possessori", s.amb.UnitaPregeoDati + "\\FIDUCIAL\\VISURE", [&](const QString& n) {
             SalvaModifichePossessori(s, n, "ROSSI MARIO");
             return QString();
         }}};
    QSet<QString> prima, cartelle;
    for (QDirIterator it(radice.Percorso(), QDir::Files | QDir::Hidden,
                         QDirIterator::Subdirectories);
         it.hasNext();)
        prima << it.next();
    for (const QString n : {"../../ESCAPE", "..\\..\\ESC2", "..", "CON", "a:b?c*|<>\"d", "fine. ",
                            "C:\\X\\Y", "/tmp/Z"}) {
        for (const auto& [cosa, cartella, deriva] : tabella) {
            const QString percorso = deriva(n);
            if (!percorso.isEmpty()) {
                EXPECT_EQ(CartellaDel(percorso), cartella)
                    << cosa.toStdString() << " " << n.toStdString();
            }
            CreaCartella(cartella);
            cartelle << QFileInfo(PercorsoLocale(cartella)).canonicalFilePath();
        }
    }
    int nuovi = 0;
    for (QDirIterator it(radice.Percorso(), QDir::Files | QDir::Hidden,
                         QDirIterator::Subdirectories);
         it.hasNext();) {
        const QString f = it.next();
        if (prima.contains(f)) continue;
        ++nuovi;
        EXPECT_TRUE(cartelle.contains(QFileInfo(f).canonicalPath())) << f.toStdString();
    }
    EXPECT_GE(nuovi, 8 * 5);
}
