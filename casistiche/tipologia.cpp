// The screen Tipol10 without its window: opening, confirmation, the outlines drawn on the plot.
#include "casistiche.h"

#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "grafica.h"
#include "nome_file.h"
#include "percorsi.h"
#include "stato.h"
#include "testo.h"

#include <QDir>

namespace tavolet {

QString PercorsoDescrizioneTipologia(const Stato& stato, const QString& codice) {
    return PercorsoTempCasistiche(
        stato, NomeFileSicuro(QStringLiteral("TIPOL") + codice + QStringLiteral(".TXT")));
}

AperturaTipologia ApriTipologia(Stato& stato, const QString& codice) {
    AperturaTipologia a;
    a.titolo = QStringLiteral("Tipologia ") + codice;
    ConTrappola(stato, QStringLiteral("Tipol10_Load"), [&] {
        const QString descrizione = PercorsoDescrizioneTipologia(stato, codice);
        if (EsisteFile(descrizione)) a.descrizione = LeggiTesto(descrizione);
        // Whatever the last case left in the temporary folder goes.
        const QString temp = stato.amb.CartellaLavoro + QStringLiteral("\\temp");
        const QDir cartella(PercorsoLocale(temp));
        for (const QString& nome : cartella.entryList(QDir::Files | QDir::Hidden))
            EliminaFile(temp + u'\\' + nome);
        if (codice != u"1000" && !Trim(stato.doc.NomeEstratto).isEmpty()) {
            stato.TagRoutine = QStringLiteral("Tipol10_Estratto");
            CopiaFile(stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\estratti\\") +
                          stato.doc.NomeEstratto,
                      PercorsoModestaEntita(stato));
            a.estrattoDaMostrare = PercorsoModestaEntita(stato);
        }
    });
    stato.EsitoDialogo = -1;
    return a;
}

void ConfermaTipologia(Stato& stato, const QString& codice, const QStringList& righe,
                       const QString& descrizione) {
    ConTrappola(stato, QStringLiteral("Tipol10_Conferma"), [&] {
        QString testo;
        for (const QString& r : righe) testo += r + CRLF;
        stato.doc.TestoProposta = testo;
        ScriviTesto(PercorsoDescrizioneTipologia(stato, codice), descrizione);
    });
    stato.EsitoDialogo = 1;
}

void InserisciPropostaNelLibretto(Stato& stato) {
    if (Trim(stato.doc.TestoProposta).isEmpty()) return;
    AggiornaLibrettoMisure(stato);
    stato.doc.TestoLibretto += stato.doc.TestoProposta;
    CaricaLibrettoInList1(stato);
}

void TerminaContorno(Stato& stato) {
    ConTrappola(stato, QStringLiteral("Tipol10_TerminaContorno"), [&] {
        const QString percorso = PercorsoContorno(stato);
        QByteArray vecchio;
        if (EsisteFile(percorso)) vecchio = LeggiByte(percorso);
        ScriviByte(percorso, vecchio + AWindows1252(QStringLiteral(" ") + CRLF));
    });
}

void AggiungiVerticeContorno(Stato& stato, double x, double y) {
    ConTrappola(stato, QStringLiteral("Tipol10_Vertice"), [&] {
        const QString percorso = PercorsoContorno(stato);
        QByteArray vecchio;
        if (EsisteFile(percorso)) vecchio = LeggiByte(percorso);
        ScriviByte(percorso, vecchio + AWindows1252(RigaVertice(x, y) + CRLF));
    });
}

bool ComponiProposta(Stato& stato, Casistica& c) {
    QString testo;
    ConTrappola(stato, QStringLiteral("Tipol10_Componi"), [&] {
        if (EsisteFile(PercorsoContorno(stato))) testo = LeggiTesto(PercorsoContorno(stato));
    });
    stato.piattaforma->ImpostaAppunti(testo);
    return GeneraLibrettoDaList(stato, c);
}

QString ProssimoPunto(const QString& primo, const QString& secondo) {
    return CStr(Val(primo) + Val(secondo)) + u'*';
}

QString RigaVertice(double x, double y) {
    return QStringLiteral("al punto  X=") + Formato(x, QStringLiteral("###########0.0000")) +
           QStringLiteral("  Y=") + Formato(y, QStringLiteral("###########0.0000")) +
           QStringLiteral("  Z=   0.0000");
}

} // namespace tavolet
