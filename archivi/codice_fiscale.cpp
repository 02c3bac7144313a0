#include "codice_fiscale.h"

#include "errore.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

QString VerificaCodiceFiscale(const QString& codice) {
    const QString errato = QStringLiteral("ERRATO");
    if (codice.isEmpty() || codice.size() != 16) return errato;
    const QString c = UCase(codice);
    static const QString alfabeto = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    // Values of the letters at the odd places of the published rule (counted from 1).
    static const int dispari[26] = {1,  0,  5, 7, 9, 13, 15, 17, 19, 21, 2,  4,  18,
                                    20, 11, 3, 6, 8, 12, 14, 16, 10, 22, 25, 24, 23};
    int somma = 0;
    for (int i = 0; i < 15; ++i) {
        QChar ch = c[i];
        if (ch >= u'0' && ch <= u'9') ch = alfabeto[ch.unicode() - u'0'];
        const qsizetype posto = alfabeto.indexOf(ch);
        if (posto < 0) throw Errore(9);
        somma += i % 2 == 0 ? dispari[posto] : int(posto);
    }
    return alfabeto[somma % 26] == c[15] ? QStringLiteral("CORRETTO") : errato;
}

QString ControllaCodiceFiscale(Stato& stato, const QString& codice) {
    QString esito = QStringLiteral("ERRATO");
    const QString tag = stato.TagRoutine;
    if (ConTrappola(stato, QStringLiteral("VerificaCodiceFiscale"),
                    [&] { esito = VerificaCodiceFiscale(codice); }))
        stato.TagRoutine = tag;
    return esito;
}

} // namespace tavolet
