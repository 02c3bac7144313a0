#include "comuni.h"

#include "libretto.h"
#include "nome_file.h"

#include <QDir>
#include <QMap>

#include <algorithm>

namespace tavolet {

QString CartellaComuni8(const Stato& stato) {
    return stato.amb.UnitaPregeoDati + QStringLiteral("\\pregeo\\arch");
}

QString TitoloComuni8(const Stato& stato) {
    return QStringLiteral("Comuni ") + CartellaComuni8(stato);
}

void RicaricaProvince(Stato& stato, ElencoComuni8& e) {
    e.Province.clear();
    ConTrappola(stato, QStringLiteral("RicaricaProvince"), [&] {
        QStringList nomi =
            QDir(PercorsoLocale(CartellaComuni8(stato))).entryList(QDir::Files | QDir::Hidden);
        std::sort(nomi.begin(), nomi.end(), [](const QString& a, const QString& b) {
            return a.compare(b, Qt::CaseInsensitive) < 0;
        });
        for (const QString& n : nomi)
            if (n != u"Comunt.dat") e.Province.append(n);
    });
}

void ScegliProvincia8(Stato& stato, ElencoComuni8& e, const QString& nome) {
    if (nome == u"comun.dat") return;
    e.Comuni.clear();
    e.Selezionato = -1;
    e.EtichettaFile = nome;
    e.EtichettaProvincia = Left(nome, 2);
    e.EtichettaComune = QStringLiteral("?");
    ConTrappola(stato, QStringLiteral("ScegliProvincia"),
                [&] { e.Comuni = LeggiRighe(CartellaComuni8(stato) + u'\\' + nome); });
}

void ScegliComune8(ElencoComuni8& e, int riga) {
    if (riga < 0 || riga >= e.Comuni.size()) return;
    e.Selezionato = riga;
    e.EtichettaComune = Split(e.Comuni[riga], QStringLiteral("|")).value(4);
}

bool NomeProvinciaDaSigla(Stato& stato, const QString& sigla) {
    for (const Provincia& p : stato.amb.TabellaProvince) {
        if (p.SiglaProvincia == sigla) {
            stato.testata.NomeProvinciaLibretto = p.NomeProvincia;
            return true;
        }
    }
    return false;
}

bool CopiaCodiceFiscale8(Stato& stato, const ElencoComuni8& e) {
    if (e.Selezionato < 0 || e.Selezionato >= e.Comuni.size()) {
        stato.piattaforma->Messaggio(QStringLiteral("Selezionare un Comune!"),
                                     QStringLiteral("Impossibile continuare"), Icona::Avviso);
        return false;
    }
    const QStringList campi = Split(e.Comuni[e.Selezionato], QStringLiteral("|"));
    Testata& t = stato.testata;
    t.CodiceComuneLibretto = Trim(campi.value(1));
    t.NomeComuneLibretto = Trim(campi.value(4));
    t.SiglaProvinciaLibretto = campi.value(0);
    stato.piattaforma->ImpostaAppunti(QString());
    stato.piattaforma->ImpostaAppunti(t.CodiceComuneLibretto);
    NomeProvinciaDaSigla(stato, t.SiglaProvinciaLibretto);
    ScriviTag(stato, t.CodiceComuneLibretto);
    stato.EsitoDialogo = 1;
    return true;
}

namespace {

QString Colonna(const QString& testo, int larghezza) {
    return testo.leftJustified(larghezza, u' ', true);
}

} // namespace

QStringList RigheCodFis(Stato& stato) {
    CaricaComuni(stato);
    CaricaProvince(stato);
    QStringList righe;
    righe.reserve(stato.amb.TabellaComuni.size());
    for (const Comune& c : stato.amb.TabellaComuni)
        righe.append(Colonna(c.NomeComune, 40) + u'|' + Colonna(c.CodiceAggiuntivo, 5) + u'|' +
                     Colonna(c.CodiceComune, 5) + u'|' + c.SiglaProvincia);
    return righe;
}

int CercaDaSinistra(const QStringList& righe, const QString& testo) {
    const QString cerca = UCase(testo);
    for (int i = 0; i < righe.size(); ++i)
        if (righe[i].startsWith(cerca)) return i;
    return -1;
}

int CercaGenerale(const QStringList& righe, const QString& testo) {
    const QString cerca = UCase(testo);
    for (int i = 0; i < righe.size(); ++i)
        if (righe[i].contains(cerca)) return i;
    return -1;
}

QString CodiceDellaRiga(const QString& riga) {
    return Trim(Split(riga, QStringLiteral("|")).value(2));
}

bool CopiaCodiceFiscaleCodFis(Stato& stato, const QString& codice, const QString& riga) {
    if (riga.isEmpty()) return false;
    Testata& t = stato.testata;
    t.CodiceComuneLibretto = codice;
    t.SiglaProvinciaLibretto = Right(riga, 2);
    stato.piattaforma->ImpostaAppunti(QString());
    stato.piattaforma->ImpostaAppunti(codice);
    NomeProvinciaDaSigla(stato, t.SiglaProvinciaLibretto);
    ScriviTag(stato, codice);
    stato.EsitoDialogo = 1;
    return true;
}

int GeneraComuniHtml(Stato& stato, const QStringList& righe) {
    int scritti = 0;
    ConTrappola(stato, QStringLiteral("GeneraComuniHtml"), [&] {
        // Provinces in the order they first appear, each with its rows in list order.
        QStringList sigle;
        QMap<QString, QString> testi;
        for (const QString& riga : righe) {
            const QString sigla = Split(riga, QStringLiteral("|")).value(3);
            if (!testi.contains(sigla)) sigle.append(sigla);
            testi[sigla] += riga + CRLF;
        }
        const QString cartella = stato.amb.CartellaLavoro + QStringLiteral("\\RISORSE");
        CreaCartella(cartella);
        for (const QString& sigla : sigle) {
            ScriviTesto(cartella + u'\\' + NomeFileSicuro(sigla + QStringLiteral("_Comuni.TXT")),
                        testi[sigla]);
            ++scritti;
        }
    });
    return scritti;
}

} // namespace tavolet
