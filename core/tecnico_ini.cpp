#include "tecnico_ini.h"

#include "errore.h"
#include "file_testo.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

namespace {

struct Chiave {
    const char* nome;
    QString TecnicoIni::*campo;
};

const Chiave kChiavi[] = {
    {"Cognome", &TecnicoIni::Cognome},
    {"Nome", &TecnicoIni::Nome},
    {"Qualifica", &TecnicoIni::Qualifica},
    {"ProvinciaAlbo", &TecnicoIni::ProvinciaAlbo},
    {"SiglaProvinciaAlbo", &TecnicoIni::SiglaProvinciaAlbo},
    {"NumeroIscrizione", &TecnicoIni::NumeroIscrizione},
    {"CodiceFiscale", &TecnicoIni::CodiceFiscale},
};

// The key of a "chiave=valore" line in upper case; empty for any other line.
QString ChiaveDi(const QString& riga) {
    const int uguale = InStr(riga, QStringLiteral("="));
    if (uguale == 0) return {};
    return UCase(Trim(Left(riga, uguale - 1)));
}

bool Sezione(const QString& riga) {
    return Trim(riga).startsWith(u'[');
}

} // namespace

TecnicoIni LeggiTecnicoIni(const QStringList& righeIni) {
    TecnicoIni t;
    for (const QString& riga : righeIni) {
        const QString chiave = ChiaveDi(riga);
        if (chiave.isEmpty()) continue;
        for (const Chiave& k : kChiavi)
            if (chiave == UCase(QString::fromLatin1(k.nome)))
                t.*k.campo = Trim(Mid(riga, InStr(riga, QStringLiteral("=")) + 1));
    }
    return t;
}

QStringList ScriviTecnicoIni(const QStringList& righeIni, const TecnicoIni& tecnico) {
    QStringList righe = righeIni;
    QStringList mancanti;
    for (const Chiave& k : kChiavi) {
        const QString nome = QString::fromLatin1(k.nome);
        const QString riga = nome + u'=' + tecnico.*k.campo;
        bool trovata = false;
        for (QString& r : righe) {
            if (ChiaveDi(r) == UCase(nome)) {
                r = riga;
                trovata = true;
            }
        }
        if (!trovata) mancanti.append(riga);
    }
    if (mancanti.isEmpty()) return righe;
    // Behind the last written line of [PREGEO]; a file without that section gets one.
    qsizetype inizio = -1;
    for (qsizetype i = 0; i < righe.size(); ++i)
        if (UCase(Trim(righe[i])) == u"[PREGEO]") inizio = i;
    if (inizio < 0) {
        qsizetype fine = righe.size();
        while (fine > 0 && Trim(righe[fine - 1]).isEmpty()) --fine;
        righe.insert(fine, QStringLiteral("[PREGEO]"));
        for (qsizetype j = 0; j < mancanti.size(); ++j) righe.insert(fine + 1 + j, mancanti[j]);
        return righe;
    }
    qsizetype dopo = inizio + 1;
    for (qsizetype i = inizio + 1; i < righe.size() && !Sezione(righe[i]); ++i)
        if (!Trim(righe[i]).isEmpty()) dopo = i + 1;
    for (qsizetype j = 0; j < mancanti.size(); ++j) righe.insert(dopo + j, mancanti[j]);
    return righe;
}

void RiscriviPregeoIni(Stato& stato) {
    ScriviTesto(stato.amb.CartellaSistema + QStringLiteral("\\PREGEO.INI"),
                Join(stato.amb.RigheIni, CRLF));
}

} // namespace tavolet
