// The head dialog's rules on leaving a field and its commands by index.
#include "configurazione.h"
#include "interno.h"

#include "archivio_pregeo.h"
#include "estratto.h"
#include "libretto.h"
#include "mappali.h"
#include "nome_file.h"

#include <algorithm>
#include <optional>

namespace tavolet {

namespace {

// Half sum of the largest and smallest value of a field over the rows 8 that pass the test,
// from the second row of the list on; the first such row starts both extremes.
QString SemisommaRighe8(const Stato& stato, int campo, const QString& figura,
                        const std::function<bool(const QStringList&)>& prendi) {
    std::optional<double> minimo, massimo;
    const ListaRighe& l = stato.doc.RigheLibretto;
    for (int i = 1; i < l.Conta(); ++i) {
        const QString& riga = l.Riga(i);
        if (TipoRiga(riga) != 8) continue;
        const QStringList v = Split(riga, QStringLiteral("|"));
        if (!prendi(v)) continue;
        const double x = Val(v.value(campo));
        minimo = minimo ? std::min(*minimo, x) : x;
        massimo = massimo ? std::max(*massimo, x) : x;
    }
    return Formato((minimo.value_or(0) + massimo.value_or(0)) / 2, figura);
}

void SalvaElenco(const QString& percorso, const QStringList& voci) {
    QString testo;
    for (const QString& v : voci) testo += v + CRLF;
    ScriviTesto(percorso, testo);
}

// The spelling of testo for every item equal to it (case ignored); added when none is.
void ScriviVoce(QStringList& voci, const QString& testo) {
    if (Trim(testo).isEmpty()) return;
    bool trovata = false;
    for (QString& v : voci) {
        if (v.compare(testo, Qt::CaseInsensitive) == 0) {
            v = testo;
            trovata = true;
        }
    }
    if (!trovata) voci.append(testo);
}

void TogliVoce(QStringList& voci, const QString& testo) {
    voci.removeIf([&](const QString& v) { return v.compare(testo, Qt::CaseInsensitive) == 0; });
}

// The four list commands on Combo9 or Combo10: upper case, lower case, add, remove.
void ComandoElenco(Stato& stato, QStringList& voci, QString& testo, const QString& percorso,
                   int modo) {
    switch (modo) {
    case 0:
        testo = UCase(testo);
        ScriviVoce(voci, testo);
        break;
    case 1:
        testo = LCase(testo);
        ScriviVoce(voci, testo);
        break;
    case 2:
        if (!Trim(testo).isEmpty()) voci.append(testo);
        break;
    case 3:
        TogliVoce(voci, testo);
        break;
    }
    SalvaElenco(percorso, voci);
}

} // namespace

QString QuotaMediaDaRighe8(const Stato& stato) {
    return SemisommaRighe8(stato, 2, kFiguraQuota,
                           [](const QStringList& v) { return v.size() - 1 < 5; });
}

QString EstMedioDaRighe8(Stato& stato) {
    stato.testata.EstMedio = SemisommaRighe8(stato, 3, kFiguraEst, [](const QStringList& v) {
        const int campi = int(v.size()) - 1;
        return v.value(1).startsWith(QStringLiteral("PF")) ? campi > 4 : campi > 3;
    });
    return stato.testata.EstMedio;
}

void EsciDalCampo(Stato& stato, FormConfigurazione& f, int indice) {
    if (indice < 0 || indice >= kCampiConfigurazione) return;
    QString& c = f.Campi[indice];
    switch (indice) {
    case 0:
        if (Trim(c).isEmpty())
            c = stato.piattaforma->Adesso().date().toString(QStringLiteral("ddMMyy"));
        if (c.size() < 8) c = EspandiAnno(c, 80);
        break;
    case 3:
        // The allegato is a letter behind the sheet: a sheet of digits gets a "0" there.
        c = UCase(c);
        if (!c.isEmpty() && c.size() < 4 && Right(c, 1) < QStringLiteral("A")) c += u'0';
        if (!c.isEmpty() && c.size() < 4) c = QString(4 - c.size(), u'0') + c;
        break;
    case 4:
        RiordinoMappali(stato, c);
        break;
    case 9:
        c = QStringLiteral("10");
        break;
    case 10:
        c = QStringLiteral("20");
        break;
    case 11:
        if (Trim(c).isEmpty()) c = EstMedioDaRighe8(stato);
        break;
    case 12:
        c = stato.amb.VersionePregeo;
        break;
    case 13:
        if (Trim(c).isEmpty()) c = QStringLiteral("FR");
        break;
    default:
        break;
    }
}

void ScegliTipologia(Stato& stato, FormConfigurazione& f, int indice) {
    if (indice < 0 || indice >= ElencoTipologie().size()) return;
    f.IndiceCombo2 = indice;
    stato.testata.TipologiaRilievo = Left(ElencoTipologie()[indice], 2);
    f.Campi[13] = stato.testata.TipologiaRilievo;
}

void ScegliVoce(FormConfigurazione& f, int combo, const QString& testo) {
    switch (combo) {
    case 1:
        f.TestoCombo1 = testo;
        f.Campi[6] = testo;
        break;
    case 6:
        f.TestoCombo6 = testo;
        f.Campi[7] = testo;
        break;
    case 9:
        f.TestoCombo9 = testo;
        f.Campi[14] = testo;
        break;
    case 10:
        f.TestoCombo10 = testo;
        f.Campi[15] = testo;
        break;
    default:
        break;
    }
}

void ScegliFileTecnico(Stato& stato, FormConfigurazione& f, const QString& nomeFile) {
    f.FileTecnicoScelto = nomeFile;
    const QString tecnico = Left(nomeFile, std::max(0, Len(nomeFile) - 4));
    ConTrappola(stato, TagForm(), [&] {
        if (!EsisteFile(PercorsoFileTecnico(stato, tecnico))) return;
        CaricaFileTecnico(stato, tecnico);
        CompletaCognomeNome(stato);
        const Testata& t = stato.testata;
        f.Campi[5] = t.Cognome;
        f.Campi[19] = t.Nome;
        f.Campi[6] = t.Qualifica;
        f.Campi[7] = t.ProvinciaAlbo;
        f.Campi[14] = t.Strumentazione;
        f.Campi[16] = stato.doc.NumeroIscrizioneAlbo;
        f.Campi[17] = stato.doc.CodiceFiscaleTecnico;
        f.Campi[18] = t.Recapito;
        f.Campi[9] = QStringLiteral("10");
        f.Campi[10] = QStringLiteral("20");
        f.TestoCombo1 = f.Campi[6];
        f.TestoCombo6 = f.Campi[7];
        f.TestoCombo9 = f.Campi[14];
    });
}

void ImportaDatiEstratto(Stato& stato, FormConfigurazione& f, bool tieniMappali) {
    if (Trim(stato.doc.NomeEstratto).isEmpty() && f.schermi.ApriEstratti)
        f.schermi.ApriEstratti(stato);
    if (Trim(stato.doc.NomeEstratto).isEmpty()) return;
    const DatiEstratto d = CopiaIDatiDellEstratto(stato, stato.doc.NomeEstratto);
    // An extract that could not be read leaves the head as it is.
    if (d.Comune.isEmpty() && d.Foglio.isEmpty()) return;
    Testata& t = stato.testata;
    t.CodiceComuneLibretto = d.Comune;
    t.FoglioLibretto = d.Foglio;
    t.EstMedio = d.EstMedio;
    f.Campi[2] = t.CodiceComuneLibretto;
    f.Campi[3] = t.FoglioLibretto;
    if (!tieniMappali) {
        t.MappaliLibretto = d.Particelle;
        f.Campi[4] = t.MappaliLibretto;
    }
    f.EtichettaEstratto = stato.doc.NomeEstratto;
}

bool ComandoConfigurazione(Stato& stato, FormConfigurazione& f, int indice) {
    if (indice == 0) {
        stato.EsitoDialogo = 1;
        return ConfermaConfigurazione0(stato, f);
    }
    if (indice == 1) return true;
    ConTrappola(stato, TagForm(), [&] {
        Testata& t = stato.testata;
        switch (indice) {
        case 2:
            for (int i = 0; i <= 15; ++i) f.Campi[i] = UCase(f.Campi[i]);
            ScriviTesto(PercorsoCatasto1(stato), TestoCatasto1TXT(f));
            break;
        case 21:
            CaricaCatasto1TXT(stato, f);
            break;
        case 22:
            EliminaFile(PercorsoCatasto1(stato));
            break;
        case 3: {
            QString oggi = DataDiOggi(stato);
            if (oggi.size() == 6) oggi = EspandiAnno(oggi, 88);
            f.Campi[0] = oggi;
            break;
        }
        case 4:
            f.Campi[8] = QuotaMediaDaRighe8(stato);
            break;
        case 5:
            DecoZeroNove(stato);
            LeggiQuotaMedia(stato);
            f.Campi[8] = t.QuotaMedia;
            break;
        case 6:
            if (f.schermi.ApriComuni && f.schermi.ApriComuni(stato) == 1)
                f.Campi[2] = t.CodiceComuneLibretto;
            break;
        case 7:
            ImportaDatiEstratto(stato, f, false);
            f.Campi[11] = t.EstMedio;
            break;
        case 27:
            ImportaDatiEstratto(stato, f, true);
            f.Campi[11] = t.EstMedio;
            if (f.ApertaPerComando) f.Campi[1] = t.Protocollo;
            break;
        case 8:
            if (UsaLibrettoSingolo(stato)) f.NomeBackup.clear();
            break;
        case 9:
        case 12:
        case 16:
        case 20:
            ComandoElenco(stato, f.Strumentazioni, f.TestoCombo9, PercorsoStrumentazioni(stato),
                          indice == 9    ? 0
                          : indice == 12 ? 1
                          : indice == 16 ? 2
                                         : 3);
            break;
        case 11:
        case 15:
        case 17:
        case 30:
            ComandoElenco(stato, f.Commenti, f.TestoCombo10, PercorsoCommenti(stato),
                          indice == 11   ? 0
                          : indice == 15 ? 1
                          : indice == 17 ? 2
                                         : 3);
            break;
        case 13:
            f.Campi[11] = EstMedioDaRighe8(stato);
            break;
        case 14:
            if (f.FileTecnicoScelto.isEmpty()) break;
            EliminaFile(stato.amb.CartellaLavoro + QStringLiteral("\\tecnici\\") +
                        NomeFileSicuro(f.FileTecnicoScelto));
            f.FileTecnicoScelto.clear();
            f.FileTecnici = ElencoFileTecnici(stato);
            break;
        case 18:
            f.EtichettaEstratto.clear();
            break;
        case 23:
            stato.doc.NomeMisurate.clear();
            f.EtichettaMisurate.clear();
            f.EtichettaMisurate2.clear();
            break;
        default:
            // 10, 19, 24, 26, 28 and any other index: no effect here.
            break;
        }
    });
    return false;
}

} // namespace tavolet
