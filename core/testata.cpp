#include "testata.h"

#include "ambiente.h"
#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "nome_file.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

QString EspandiAnno(const QString& data, int soglia) {
    if (data.size() >= 8) return data;
    const QString anno = Right(data, 2);
    const QString secolo = Val(anno) >= soglia ? QStringLiteral("19") : QStringLiteral("20");
    return Left(data, 4) + secolo + anno;
}

QString CalcolaTipoAtto(const QString& tipologia) {
    static const QStringList mappale = {"TM", "08", "09", "10", "24", "25", "26", "28", "29", "30"};
    return mappale.contains(Right(tipologia, 2)) ? QStringLiteral("M") : QStringLiteral("S");
}

namespace {

void CercaComune(Stato& stato) {
    Testata& t = stato.testata;
    for (const Comune& c : stato.amb.TabellaComuni) {
        if (Trim(c.CodiceComune) != Trim(t.CodiceComuneLibretto)) continue;
        t.NomeComuneLibretto = Trim(c.NomeComune);
        t.SiglaProvinciaLibretto = Trim(c.SiglaProvincia);
        for (const Provincia& p : stato.amb.TabellaProvince) {
            if (Trim(p.SiglaProvincia) == t.SiglaProvinciaLibretto) {
                t.NomeProvinciaLibretto = Trim(p.NomeProvincia);
                break;
            }
        }
        return;
    }
}

QStringList CampiTestata(const QString& riga) {
    return Split(riga + QStringLiteral("|||||||||||||"), QStringLiteral("|"));
}

} // namespace

void DecoZeroNove(Stato& stato) {
    ConTrappola(stato, QStringLiteral("DecoZeroNove"), [&] {
        Documento& d = stato.doc;
        Testata& t = stato.testata;
        if (d.Riga0.isEmpty())
            d.Riga0 = QStringLiteral("0|") +
                      stato.piattaforma->Adesso().date().toString(QStringLiteral("ddMMyyyy")) +
                      QStringLiteral("|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|");
        if (d.Riga9.isEmpty()) d.Riga9 = kRiga9Predefinita;
        CaricaComuni(stato);
        CaricaProvince(stato);
        if (d.TestoLibretto.size() < 10) {
            d.TestoLibretto = d.Riga0 + CRLF + d.Riga9 + CRLF;
            CaricaLibrettoInList1(stato);
            stato.TagRoutine = QStringLiteral("Decozero_123");
        }
        const QStringList righe = Split(d.TestoLibretto, CRLF);
        if (righe.size() >= 2) d.Riga0 = righe[0];
        if (righe.size() >= 3) d.Riga9 = righe[1];

        stato.TagRoutine = QStringLiteral("DecoZeroNove_01");
        const QStringList c0 = CampiTestata(d.Riga0);
        t.DataLibretto = c0[1];
        t.Protocollo = c0[2];
        t.CodiceComuneLibretto = c0[3];
        t.FoglioLibretto = c0[4];
        t.MappaliLibretto = c0[5];
        t.Tecnico = c0[6];
        t.Qualifica = c0[7];
        t.ProvinciaAlbo = c0[8];
        t.DataLibretto = EspandiAnno(t.DataLibretto);
        t.AnnoProtocollo = Right(t.DataLibretto, 2) + t.Protocollo;
        t.AnnoLibretto = Right(t.DataLibretto, 4);
        CercaComune(stato);

        stato.TagRoutine = QStringLiteral("DecoZeroNove_02");
        if (righe.size() >= 2) {
            const QStringList c9 = CampiTestata(d.Riga9);
            t.QuotaMedia = c9[1];
            t.PrecisioneLineare = c9[2];
            t.PrecisioneAngolare = c9[3];
            t.EstMedio = c9[4];
            t.TipologiaRilievo = c9[6];
            t.Strumentazione = c9[7];
        }
        t.TipoAtto = CalcolaTipoAtto(t.TipologiaRilievo);
        t.NomeArchivio = t.AnnoLibretto + u'_' + t.Cognome + u' ' + t.Nome + u'_' + t.TipoAtto +
                         u'_' + t.TipologiaRilievo + u'_' + t.Protocollo + u'_' +
                         t.CodiceComuneLibretto + u'_' + t.FoglioLibretto + u'_' +
                         Replace(t.MappaliLibretto, QStringLiteral(","), QStringLiteral("_"));
    });
}

SigleConfigurazione AggiornaConfigurazionePregeo(Stato& stato) {
    SigleConfigurazione sigle;
    ConTrappola(stato, QStringLiteral("AggiornaConfigurazionePregeo"), [&] {
        CaricaComuni(stato);
        CaricaProvince(stato);
        DecoZeroNove(stato);
        stato.TagRoutine = QStringLiteral("AggiornaConfigurazionePregeo");
        Testata& t = stato.testata;
        if (t.Nome.isEmpty()) {
            const QStringList pezzi = Split(t.Tecnico, QStringLiteral(" "));
            t.Cognome = pezzi.value(0);
            t.Nome = pezzi.value(1);
        }
        for (const Comune& c : stato.amb.TabellaComuni) {
            if (Trim(c.CodiceComune) == Trim(t.CodiceComuneLibretto)) {
                sigle.SiglaComune = Trim(c.SiglaProvincia);
                break;
            }
        }
        for (const Provincia& p : stato.amb.TabellaProvince) {
            if (p.NomeProvincia == t.ProvinciaAlbo) {
                sigle.SiglaProvinciaAlbo = p.SiglaProvincia;
                break;
            }
        }
        DecoZeroNove(stato);
    });
    return sigle;
}

QString PercorsoFileTecnico(const Stato& stato, const QString& tecnico) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\tecnici\\") + NomeFileSicuro(tecnico) +
           QStringLiteral(".PFS");
}

ValoriTecnico LeggiValoriTecnico(const QString& testo) {
    QString unito = Join(RigheDiTesto(testo), QStringLiteral(","));
    unito.remove(u'"');
    const QStringList v = Split(unito + QStringLiteral(",,,,,,,,,,,"), QStringLiteral(","));
    ValoriTecnico t;
    t.Tecnico = v[0];
    t.Qualifica = v[1];
    t.ProvinciaAlbo = v[2];
    t.NumeroIscrizioneAlbo = v[6];
    t.CodiceFiscaleTecnico = v[7];
    t.Cognome = v[8];
    t.Nome = v[9];
    t.Recapito = v[10];
    return t;
}

void CaricaFileTecnico(Stato& stato, const QString& tecnico) {
    const QString percorso = PercorsoFileTecnico(stato, tecnico);
    if (Trim(tecnico).isEmpty() || !EsisteFile(percorso)) return;
    ConTrappola(stato, QStringLiteral("CaricaFileTecnico"), [&] {
        const ValoriTecnico v = LeggiValoriTecnico(LeggiTesto(percorso));
        Testata& t = stato.testata;
        t.Tecnico = v.Tecnico;
        t.Qualifica = v.Qualifica;
        t.ProvinciaAlbo = v.ProvinciaAlbo;
        stato.doc.NumeroIscrizioneAlbo = v.NumeroIscrizioneAlbo;
        stato.doc.CodiceFiscaleTecnico = v.CodiceFiscaleTecnico;
        t.Cognome = v.Cognome;
        t.Nome = v.Nome;
        t.Recapito = v.Recapito;
    });
}

QString TestoFileTecnico(const Stato& stato) {
    auto q = [](const QString& s) { return u'"' + s + u'"'; };
    const Testata& t = stato.testata;
    const Documento& d = stato.doc;
    return q(t.Tecnico) + u',' + q(t.Qualifica) + u',' + q(t.ProvinciaAlbo) + CRLF + q("10") +
           u',' + q("20") + u',' + q(t.Strumentazione) + CRLF + q(d.NumeroIscrizioneAlbo) + u',' +
           q(d.CodiceFiscaleTecnico) + CRLF + q(t.Cognome) + CRLF + q(t.Nome) + CRLF +
           q(t.Recapito) + CRLF;
}

} // namespace tavolet
