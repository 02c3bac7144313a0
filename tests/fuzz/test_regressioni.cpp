// Every input that ever made a fuzz target fail (fuzz/regressioni/<target>/) goes through its
// target again: no crash, no broken property.
#include "bersaglio.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace tavolet::fuzz {

void Fallisci(const std::string& perche) {
    throw Fallimento{perche};
}

namespace {

// The targets work on a root of their own: the one of the other tests is given back after.
struct RegressioniFuzz : ::testing::Test {
    const bool cera = qEnvironmentVariableIsSet("TAVOLET_RADICE");
    const QByteArray radice = qgetenv("TAVOLET_RADICE");
    ~RegressioniFuzz() override {
        if (cera)
            qputenv("TAVOLET_RADICE", radice);
        else
            qunsetenv("TAVOLET_RADICE");
    }
};

// Runs the target on a file; a broken property is a failure named after the file.
void Rigioca(const Bersaglio& b, const QString& file) {
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << file.toStdString();
    const QByteArray d = f.readAll();
    try {
        b.corpo(reinterpret_cast<const uint8_t*>(d.constData()), size_t(d.size()));
    } catch (const Fallimento& x) {
        ADD_FAILURE() << file.toStdString() << ": " << x.perche;
    } catch (const std::exception& x) {
        ADD_FAILURE() << file.toStdString() << ": eccezione " << x.what();
    }
}

TEST_F(RegressioniFuzz, OgniInputCheFeceCadereUnBersaglio) {
    const QString cartella = QStringLiteral(TAVOLET_REGRESSIONI);
    ASSERT_TRUE(QDir(cartella).exists()) << cartella.toStdString();
    // Every folder names a target that exists.
    const QStringList cartelle = QDir(cartella).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& nome : cartelle) {
        const bool c = std::any_of(Bersagli().begin(), Bersagli().end(),
                                   [&](const Bersaglio& b) { return nome == b.nome; });
        EXPECT_TRUE(c) << "nessun bersaglio per " << nome.toStdString();
    }
    int rigiocati = 0;
    for (const Bersaglio& b : Bersagli()) {
        QDirIterator it(cartella + u'/' + QString::fromLatin1(b.nome), QDir::Files);
        while (it.hasNext()) {
            const QString file = it.next();
            if (file.endsWith(QStringLiteral(".md"))) continue;
            Rigioca(b, file);
            ++rigiocati;
        }
    }
    EXPECT_GE(Bersagli().size(), 12u);
    RecordProperty("rigiocati", rigiocati);
}

// The seeds of fuzz/semi.txt that the repository holds go through their targets as well.
TEST_F(RegressioniFuzz, ISemiDeiBersagli) {
    const QString radice = QStringLiteral(TAVOLET_RADICE_SORGENTI) + u'/';
    QFile elenco(radice + QStringLiteral("fuzz/semi.txt"));
    ASSERT_TRUE(elenco.open(QIODevice::ReadOnly));
    int semi = 0;
    for (const QByteArray& riga : elenco.readAll().split('\n')) {
        const qsizetype dueP = riga.indexOf(':');
        if (riga.startsWith('#') || dueP < 0) continue;
        const QByteArray nome = riga.left(dueP);
        const auto b = std::find_if(Bersagli().begin(), Bersagli().end(),
                                    [&](const Bersaglio& x) { return nome == x.nome; });
        ASSERT_NE(b, Bersagli().end()) << riga.toStdString();
        for (const QByteArray& schema : riga.mid(dueP + 1).simplified().split(' ')) {
            if (schema.isEmpty() || schema.startsWith("REALI/")) continue;
            const QString percorso = radice + QString::fromLatin1(schema);
            const QString cartella = percorso.section(u'/', 0, -2);
            for (const QString& f :
                 QDir(cartella).entryList({percorso.section(u'/', -1)}, QDir::Files)) {
                Rigioca(*b, cartella + u'/' + f);
                ++semi;
            }
        }
    }
    EXPECT_GT(semi, 30);
}

} // namespace
} // namespace tavolet::fuzz
