#include "righe_censuarie.h"

#include "errore.h"
#include "file_testo.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

bool RigaCensuaria(const QString& riga) {
    return riga.size() == kLunghezzaRigaCensuaria && Val(riga) == 6;
}

QString RigaTesta(const QString& codice, const QString& conteggio) {
    return QStringLiteral("6|") + codice + u'|' + conteggio + u'|' + Space(57) + u'|';
}

QString Conteggio3(int n) {
    return Right(QStringLiteral("000") + QString::number(n), 3);
}

void ScriviInPosizione(QString& riga, int posizione, const QString& testo, int lunghezza) {
    if (posizione < 1) throw Errore(5);
    int n = int(testo.size());
    if (lunghezza >= 0) n = std::min(n, lunghezza);
    n = std::min(n, int(riga.size()) - posizione + 1);
    if (n <= 0) {
        if (posizione > riga.size() + 1) throw Errore(5);
        return;
    }
    riga.replace(posizione - 1, n, testo.left(n));
}

void ImpostaConteggioTesta(QStringList& memo, const QString& conteggio) {
    if (memo.size() < 2) throw Errore(9);
    ScriviInPosizione(memo[1], 9, conteggio, 3);
}

QStringList RigheCensuarieDi(const QString& testo) {
    QStringList r;
    for (const QString& riga : Split(testo, CRLF))
        if (RigaCensuaria(riga)) r.append(riga);
    return r;
}

QString CompattaRighe(const QString& testo) {
    const QString doppio = CRLF + CRLF;
    QString t = testo;
    while (t.contains(doppio)) t = Replace(t, doppio, CRLF);
    return t;
}

QString SenzaRigheCensuarie(const QString& testo) {
    QStringList righe = Split(testo, CRLF);
    for (QString& riga : righe)
        if (RigaCensuaria(riga)) riga.clear();
    return CompattaRighe(Join(righe, CRLF));
}

QString AccodaRighe(const QString& testo, const QStringList& righe) {
    QString t = testo;
    for (const QString& riga : righe) t += CRLF + riga;
    return t + CRLF;
}

QString TestoRighe(const QStringList& righe) {
    QString t;
    for (const QString& riga : righe) t += riga + CRLF;
    return t;
}

namespace {

int PrimaVoceCon(const QStringList& tabella, const QString& testo) {
    const QString cerca = UCase(testo);
    for (int i = 0; i < tabella.size(); ++i)
        if (UCase(tabella[i]).contains(cerca)) return i;
    return -1;
}

} // namespace

QString CodiceDaQualita(const QStringList& tabella, const QString& descrizione) {
    const int i = PrimaVoceCon(tabella, descrizione);
    return i < 0 ? descrizione : Left(tabella[i], 3);
}

QString CodiceBreveDaQualita(const QStringList& tabella, const QString& descrizione) {
    const int i = PrimaVoceCon(tabella, descrizione);
    return i < 0 ? QString() : Trim(Left(tabella[i], 5));
}

QString QualitaDaCodice(const QStringList& tabella, const QString& codice) {
    const int i = PrimaVoceCon(tabella, codice);
    return i < 0 ? QString() : Trim(Mid(tabella[i], 5));
}

QString PercorsoCensuario(const Stato& stato, const QString& nome) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\temp\\") + nome;
}

void ScriviFileCensuario(const Stato& stato, const QString& nome, const QString& testo) {
    const QString cartella = stato.amb.CartellaLavoro + QStringLiteral("\\temp");
    if (!EsisteCartella(cartella)) CreaCartella(cartella);
    ScriviTesto(PercorsoCensuario(stato, nome), testo);
}

QString PadreElemento(const QString& elemento) {
    return Split(elemento, QStringLiteral(" ")).value(0);
}

QString EtichettaElemento(const QString& elemento) {
    const QString dietro = Split(elemento, QStringLiteral("_")).value(1);
    return Trim(Split(dietro, QStringLiteral("=")).value(0));
}

QString AreaElemento(const QString& elemento) {
    return Trim(Split(elemento, QStringLiteral("=")).last());
}

bool ElementoInvariato(const QString& elemento) {
    const QStringList meta = Split(elemento, QStringLiteral("_"));
    return meta.value(0) == meta.value(1);
}

} // namespace tavolet
