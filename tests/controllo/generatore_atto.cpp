#include "generatore_atto.h"

#include <random>

namespace tavolet::test {

QStringList LibrettoGenerato(int righe, unsigned seme) {
    std::mt19937 rng(seme);
    std::uniform_real_distribution<double> angolo(0, 400), distanza(5, 200);
    QStringList r = {"0|15012026|123|G224|0012|1,2|ROSSI MARIO|GEOMETRA|PADOVA|",
                     "9|20|10|20|1070|10.00-G,STDA 2.08|18|STAZIONE TOTALE|",
                     "6|***** Relazione  Tecnica *****|", "6|Rilievo generato|",
                     "6|*****   Fine   Relazione *****|"};
    QStringList punti;
    for (int s = 0; r.size() < righe * 8 / 10; ++s) {
        r << QStringLiteral("1|S%1|1.550|").arg(s);
        const int n = 1 + int(rng() % 12);
        for (int j = 0; j < n; ++j) {
            const QString p = QString::number((s + 1) * 100 + j);
            r << QStringLiteral("2|%1|%2|%3|%4|1.500|")
                     .arg(p)
                     .arg(angolo(rng), 0, 'f', 4)
                     .arg(angolo(rng) / 4 + 50, 0, 'f', 4)
                     .arg(distanza(rng), 0, 'f', 3);
            punti << p;
        }
    }
    while (r.size() < righe - 30) {
        // An outline of 3 to 25 points, ten a row.
        const int n = 3 + int(rng() % 23);
        QStringList nomi;
        for (int k = 0; k < n; ++k) nomi << punti[int(rng() % punti.size())];
        for (int k = 0; k < n; k += 10) {
            const QStringList pezzo = nomi.mid(k, 10);
            r << QStringLiteral("7|%1|%2|RC|").arg(k == 0 ? n : 0).arg(pezzo.join(u'|'));
        }
        const QString p = punti[int(rng() % punti.size())];
        r << QStringLiteral("8|%1|%2|%3|SF|")
                 .arg(p)
                 .arg(-1000 - double(rng() % 100000) / 1000, 0, 'f', 3)
                 .arg(2000 + double(rng() % 100000) / 1000, 0, 'f', 3);
        punti.removeOne(p); // one row 8 a point
    }
    const QString blu(17, u' ');
    r << "6|Dati per aggiornare il D.B. Censuario dell'Ufficio Tecnico Erariale|"
      << "6|51FTP|003|" + QString(57, u' ') + "|"
      << "6|O|1    |000|  |     |000002351|SN|  |     |001|2 |" + blu + "|"
      << "6|C|     |000|a |AAA  |000001451|SN|  |     |001|2 |" + blu + "|"
      << "6|C|     |000|b |AAB  |000000900|SN|  |     |001|2 |" + blu + "|";
    return r;
}

QString EstrattoGenerato(int punti) {
    QStringList r = {"0|01122025|PD0000001/2025|G224|00012|1,2|PD|0|0|0|"};
    const int lato = 100;
    for (int i = 0; i < punti; ++i)
        r << QStringLiteral("8|%1%|%2|%3|")
                 .arg(i + 1)
                 .arg(-1000 - (i / lato) * 10.0, 0, 'f', 10)
                 .arg(2000 + (i % lato) * 10.0, 0, 'f', 10);
    int etichetta = 1;
    for (int i = 0; i + lato + 1 < punti; i += 2, ++etichetta) {
        if (i % lato == lato - 1) continue;
        r << QStringLiteral("7|5|%1%|%2%|%3%|%4%|%1%|NC|%5|%5|100|")
                 .arg(i + 1)
                 .arg(i + 2)
                 .arg(i + lato + 2)
                 .arg(i + lato + 1)
                 .arg(etichetta);
    }
    r << "6|INQUADRAMENTO|-1000|2000|0.5|-1000|2000|6.2831853|";
    return r.join("\r\n") + "\r\n";
}

} // namespace tavolet::test
