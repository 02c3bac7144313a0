#include "generatore_taf.h"

#include "ddd.h"
#include "supporto.h"

#include <QFile>

namespace tavolet::test {

namespace {

void Metti(QString& r, int colonna, const QString& testo) {
    for (int i = 0; i < testo.size(); ++i) r[colonna - 1 + i] = testo[i];
}

} // namespace

QString RigaTafCampi(const CampiTaf& c) {
    QString r(239, u' ');
    Metti(r, 1, c.comune.leftJustified(5, u' ', true));
    Metti(r, 6, c.foglio.rightJustified(5, u' ', true));
    Metti(r, 11, c.allegato.rightJustified(2, u' ', true));
    Metti(r, 14, c.numero.rightJustified(4, u' ', true));
    Metti(r, 18, c.mappa.leftJustified(9, u' ', true));
    Metti(r, 30, c.rifPlan.leftJustified(65, u' ', true));
    Metti(r, 102, c.nord.rightJustified(12, u' ', true));
    Metti(r, 115, c.est.rightJustified(12, u' ', true));
    Metti(r, 128, c.attPlan.rightJustified(2, u' ', true));
    Metti(r, 130, c.data1.leftJustified(4, u' ', true));
    Metti(r, 139, c.data2.leftJustified(4, u' ', true));
    Metti(r, 143, c.aggiornamento.leftJustified(22, u' ', true));
    Metti(r, 165, c.rifAltim.leftJustified(60, u' ', true));
    Metti(r, 237, c.attAltim.rightJustified(2, u' ', true));
    return r + c.quota;
}

QString CodiceGenerato(int i, const QString& comune) {
    const int foglio = i / 99 + 1, numero = i % 99 + 1;
    return "PF" + QString::number(numero).rightJustified(2, u'0') + u'/' +
           QString::number(foglio % 1000).rightJustified(3, u'0') + "0/" + comune;
}

QString TafGenerata(int n, const QString& comune, std::mt19937& rng) {
    std::uniform_real_distribution<double> nord(-20000, 20000), est(-20000, 20000), q(0, 400);
    QString testo;
    testo.reserve(n * 260);
    for (int i = 0; i < n; ++i) {
        CampiTaf c;
        c.comune = comune;
        c.foglio = QString::number((i / 99 + 1) % 1000);
        c.numero = QString::number(i % 99 + 1);
        c.mappa = QString::number(rng() % 2000);
        c.rifPlan = QString("SPIGOLO FABBRICATO N. %1").arg(i);
        c.nord = QString::number(nord(rng), 'f', 3);
        c.est = QString::number(est(rng), 'f', 3);
        c.quota = (rng() % 10 == 0) ? QString() : QString::number(q(rng), 'f', 3);
        c.rifAltim = (rng() % 7 == 0) ? "<QUOTA>" : "BASE";
        testo += RigaTafCampi(c) + "\r\n";
    }
    return testo;
}

QString DddGenerato(int n, int fiduciali, const QString& comune, std::mt19937& rng) {
    std::uniform_real_distribution<double> d(10, 3000), s(0.01, 0.09);
    QString testo;
    testo.reserve(n * 72);
    for (int k = 0; k < n; ++k) {
        const int a = int(rng() % fiduciali), b = int(rng() % fiduciali);
        testo += CodiceGenerato(a, comune).leftJustified(17) +
                 CodiceGenerato(b, comune).leftJustified(16) +
                 QString::number(d(rng), 'f', 3).rightJustified(12) +
                 QString::number(s(rng), 'f', 3).rightJustified(8) +
                 QString::number(1990 + int(rng() % 35)).rightJustified(6) +
                 QString("  PD%1\r\n").arg(int(rng() % 10000000), 7, 10, QChar(u'0'));
    }
    return testo;
}

void ConfrontaGolden(const QByteArray& byte, const QString& nome) {
    if (qEnvironmentVariableIsSet("TAVOLET_RIGENERA")) {
        QFile f(PercorsoDati(nome));
        if (f.open(QIODevice::WriteOnly)) f.write(byte);
    }
    EXPECT_EQ(byte, Dati(nome)) << nome.toStdString();
}

QHash<quint64, QStringList> CoppieRiferimento(const QByteArray& byte, const QStringList& nomi) {
    const QStringList righe = RigheDiTesto(DaWindows1252(byte));
    QHash<quint64, QStringList> coppie;
    for (int i = 0; i < nomi.size(); ++i)
        for (int j = i + 1; j < nomi.size(); ++j)
            for (const QString& riga : righe)
                if (riga.contains(nomi[i]) && riga.contains(nomi[j]))
                    coppie[ChiaveCoppia(i, j)].append(riga);
    return coppie;
}

QHash<quint64, QStringList> CoppieTrovate(const QByteArray& byte, const QStringList& nomi) {
    const CoppieArchivio c = CoppieNellArchivio(byte, nomi);
    QHash<quint64, QStringList> coppie;
    for (auto it = c.coppie.begin(); it != c.coppie.end(); ++it)
        for (int r : it.value()) coppie[it.key()].append(c.righe[r]);
    return coppie;
}

} // namespace tavolet::test
