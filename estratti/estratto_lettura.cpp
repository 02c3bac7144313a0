// EsplodiEstratto: the rows of the file shared out into the lists of the form.
#include "estratto.h"

#include "errore.h"
#include "file_testo.h"
#include "interno.h"
#include "stato.h"
#include "testo.h"

#include <QDate>

#include <algorithm>

namespace tavolet {

using namespace estratti;

namespace {

const QString kTag = QStringLiteral("EsplodiEstratto");

} // namespace

void estratti::InstradaSei(Estratto& e, const QString& riga) {
    if (riga.startsWith(u"6|DIST")) {
        // "6|DISTORSIONE|" lands here too: this test comes first.
        e.DISTANZA.append(riga);
    } else if (riga.startsWith(u"6|PA")) {
        e.PARTICELLA.append(riga);
        e.EstrattoParticelleTesto += Mid(riga, 14) + CRLF;
    } else if (riga.startsWith(u"6|IN")) {
        e.INQUADRAMENTO.append(riga);
        const QStringList campi = Split(riga, kBarra);
        for (qsizetype i = 2; i < campi.size(); ++i) e.INQUADRAMENTO.append(campi[i]);
    } else if (riga.startsWith(u"6|DITTA|")) {
        e.DITTA.append(riga);
        e.EstrattoDitte += Mid(riga, 9) + CRLF;
    } else if (riga.startsWith(u"6|PFCART|")) {
        e.PFCART.append(riga);
    } else if (riga.startsWith(u"6|DISTORS") || riga.startsWith(u"6|SCALAOR")) {
        e.ALTRO.append(riga);
    }
}

namespace {

void InstradaOtto(Estratto& e, const QString& riga) {
    // Field 1 read in place: a split of every row into fresh strings costs more than the rest.
    qsizetype inizio, fine;
    CampoUno(riga, inizio, fine);
    const QStringView id = QStringView(riga).mid(inizio, fine - inizio);
    if (id.startsWith(u"PF"))
        e.PF.append(riga);
    else if (id.endsWith(u'T'))
        e.Toponimi.append(riga);
    else if (id.endsWith(u'L'))
        e.PLinee.append(riga);
    else
        e.Punti.append(riga);
}

// Val(campo) > 0, without the full read for a field of plain digits.
bool Positivo(const QString& campo) {
    bool cifre = !campo.isEmpty(), nonZero = false;
    for (QChar c : campo) {
        cifre = cifre && c >= u'0' && c <= u'9';
        nonZero = nonZero || (c >= u'1' && c <= u'9');
    }
    return cifre ? nonZero : Val(campo) > 0;
}

// Walking backwards, continuation rows are carried to the ring row before them. SETTE comes
// out in the reverse of the file's order, and each read and save turns it round again.
void UnisciAnelli(Estratto& e) {
    QStringList portati; // pieces carried, the latest row of the file first
    for (qsizetype i = e.List1.size() - 1; i >= 0; --i) {
        const QString& riga = e.List1[i];
        const QStringList campi = Split(riga, kBarra);
        if (!Positivo(Campo(campi, 1))) {
            portati.append(Replace(Replace(riga, QStringLiteral("7|0|"), QString()),
                                   QStringLiteral("NC|"), QString()));
            continue;
        }
        const qsizetype n = campi.size() - 1;
        QString unita;
        for (qsizetype k = 0; k <= n - 5; ++k) unita += campi[k] + kBarra;
        for (qsizetype k = portati.size() - 1; k >= 0; --k) unita += portati[k];
        for (qsizetype k = n - 4; k <= n - 1; ++k) unita += Campo(campi, k) + kBarra;
        portati.clear();
        e.SETTE.append(unita);
        e.EstrattoSette += unita + CRLF;
    }
}

void DividiSette(Estratto& e) {
    for (const QString& riga : Split(e.EstrattoSette, CRLF)) {
        if (riga.isEmpty()) continue;
        if (riga.contains(u'+') || riga.contains(u'-'))
            e.EstrattoSetteIsole += riga + CRLF;
        else
            e.EstrattoSetteSemplici += riga + CRLF;
    }
    e.List1.clear();
}

} // namespace

// A row whose third character is "0" goes on the row before it, from its fifth character.
void estratti::UnisciLinee(Estratto& e) {
    QStringList unite;
    QStringList portati;
    for (qsizetype i = e.Linee.size() - 1; i >= 0; --i) {
        const QString& riga = e.Linee[i];
        if (Mid(riga, 3, 1) == u"0") {
            if (i == 0) throw Errore(9); // no row before it
            portati.append(Mid(riga, 5));
            continue;
        }
        QString unita = riga;
        for (qsizetype k = portati.size() - 1; k >= 0; --k) unita += portati[k];
        portati.clear();
        unite.append(unita);
    }
    std::reverse(unite.begin(), unite.end());
    e.Linee = unite;
}

int estratti::MesiEstratto(const QString& ddmmyyyy, const QDate& oggi) {
    const QString anno = Mid(ddmmyyyy, 5, 4), mese = Mid(ddmmyyyy, 3, 2),
                  giorno = Left(ddmmyyyy, 2);
    auto numero = [](const QString& s, int cifre) {
        bool ok = s.size() == cifre;
        for (QChar c : s) ok = ok && c.isDigit() && c.unicode() < 128;
        if (!ok) throw Errore(13); // not a date
        return s.toInt();
    };
    const QDate data(numero(anno, 4), numero(mese, 2), numero(giorno, 2));
    if (!data.isValid()) throw Errore(13);
    return (oggi.year() - data.year()) * 12 + oggi.month() - data.month();
}

namespace {

void Testa(Stato& stato, Estratto& e) {
    e.EstrattoPercorso = e.Percorso;
    e.EstrattoRigaZero = Voce(e.ZERO, 0);
    const QStringList campi = Split(e.EstrattoRigaZero, kBarra);
    e.EstrattoComune = Campo(campi, 3);
    e.EstrattoFoglio = Campo(campi, 4);
    e.EstrattoParticelle = Campo(campi, 5);
    e.EstrattoProvincia = Campo(campi, 6);
    QString data = Campo(campi, 1);
    // A self-made extract counts its age from this date, so it always reads as expired.
    if (data == u"AUTOALLESTITO") data = QStringLiteral("01122009");
    e.EstrattoData = data;
    e.EstrattoMesi = MesiEstratto(data, stato.piattaforma->Adesso().date());
}

// Field 3 of a row, read in place; error 9 when the row has fewer fields.
double CampoTre(const QString& riga) {
    qsizetype inizio = 0;
    for (int k = 0; k < 3; ++k) {
        const qsizetype barra = riga.indexOf(u'|', inizio);
        if (barra < 0) throw Errore(9);
        inizio = barra + 1;
    }
    qsizetype fine = riga.indexOf(u'|', inizio);
    if (fine < 0) fine = riga.size();
    return Val(riga.mid(inizio, fine - inizio));
}

void EstMedio(Estratto& e) {
    double minimo = CampoTre(Voce(e.Punti, 0)), massimo = minimo;
    for (const QString& riga : e.Punti) {
        const double est = CampoTre(riga);
        minimo = std::min(minimo, est);
        massimo = std::max(massimo, est);
    }
    e.EstrattoEstMedio = Formato((minimo + massimo) / 2, QStringLiteral("###########0"));
}

void Leggi(Stato& stato, Estratto& e, const QStringList& righe) {
    if (!righe.isEmpty()) e.ZERO.append(righe[0]);
    for (qsizetype i = 1; i < righe.size(); ++i) {
        const QString& riga = righe[i];
        const double tipo = TipoRigaEstratto(riga);
        if (tipo == 8) {
            InstradaOtto(e, riga);
        } else if (tipo == 7) {
            // The test for a free line is a plain one on the whole row, label included.
            if (riga.contains(u"L|"))
                e.Linee.append(riga);
            else
                e.List1.append(riga);
        } else if (tipo == 6) {
            InstradaSei(e, riga);
        }
    }
    UnisciAnelli(e);
    DividiSette(e);
    UnisciLinee(e);
    Testa(stato, e);
    EstMedio(e);
    stato.TagRoutine = QStringLiteral("EsplodiEstratto1");
}

} // namespace

QString PercorsoEstratto(const Stato& stato, const QString& nome) {
    if (nome.contains(u'\\') || nome.contains(u'/')) return nome;
    return stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\estratti\\") + nome;
}

Estratto EsplodiTestoEstratto(Stato& stato, const QString& testo, const QString& percorso) {
    Estratto e;
    e.Percorso = percorso;
    ConTrappola(stato, kTag, [&] { Leggi(stato, e, RigheDiTesto(testo)); });
    return e;
}

Estratto EsplodiEstratto(Stato& stato, const QString& nome) {
    Estratto e;
    ConTrappola(stato, kTag, [&] {
        e.Percorso = PercorsoEstratto(stato, nome);
        if (e.Percorso.endsWith(u'\\')) return; // nothing was selected
        QStringList righe;
        if (EsisteFile(e.Percorso)) righe = RigheDiTesto(LeggiTesto(e.Percorso));
        Leggi(stato, e, righe);
    });
    return e;
}

} // namespace tavolet
