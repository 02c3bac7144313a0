#include "generatore_taf.h"

#include "ddd.h"
#include "supporto.h"

#include <QFile>

namespace tavolet::test {

QString RigaTafCampi(const CampiTaf& c) {
    QString r(239, u' ');
    // Each field at its column (from 1), cut to its width, numbers to the right.
    const std::tuple<int, int, bool, const QString&> campi[] = {
        {1, 5, false, c.comune},      {6, 5, true, c.foglio},    {11, 2, true, c.allegato},
        {14, 4, true, c.numero},      {18, 9, false, c.mappa},   {30, 65, false, c.rifPlan},
        {102, 12, true, c.nord},      {115, 12, true, c.est},    {128, 2, true, c.attPlan},
        {130, 4, false, c.data1},     {139, 4, false, c.data2},  {143, 22, false, c.aggiornamento},
        {165, 60, false, c.rifAltim}, {237, 2, true, c.attAltim}};
    for (const auto& [colonna, larghezza, destra, testo] : campi) {
        const QString t = destra ? testo.rightJustified(larghezza, u' ', true)
                                 : testo.leftJustified(larghezza, u' ', true);
        r.replace(colonna - 1, t.size(), t);
    }
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
