// Opening the head dialog: its lists, its default files and the fields from the libretto.
#include "configurazione.h"
#include "interno.h"

#include "libretto.h"

#include <QDir>

#include <algorithm>

namespace tavolet {

const QStringList& EtichetteCampi() {
    static const QStringList e = {"Data",
                                  "Protocollo",
                                  "Codice  Comune",
                                  "Foglio + Allegato",
                                  "Mappali",
                                  "Cognome",
                                  "Qualifica",
                                  "Provincia",
                                  "Quota Media",
                                  "Precisione Lineare",
                                  "Precisione Angolare",
                                  "Est Medio",
                                  "Ver. Pregeo",
                                  "Tipologia Rilievo",
                                  "Strumentazione",
                                  "Commento",
                                  "Num. Iscrizione Albo",
                                  "Codice Fiscale",
                                  "Recapito",
                                  "Nome"};
    return e;
}

const QStringList& ElencoQualifiche() {
    static const QStringList q = {"AGROTECNICO",    "DOTTORE IN AGRARIA", "DOTT. AGRONOMO O F.",
                                  "ARCHITETTO",     "GEOMETRA",           "INGEGNERE",
                                  "PERITO AGRARIO", "PERITO EDILE"};
    return q;
}

const QStringList& ElencoTipologie() {
    static const QStringList t = {"FR - Frazionamento",
                                  "MC - Tipo Mappale per Nuova Costruzione",
                                  "TM - Tipo Mappale per Variazione",
                                  "CM - Tipo Mappale per Conferma di Mappa",
                                  "SC - Tipo Mappale con Scorporo di Corte",
                                  "FM - Frazionamento con Tipo Mappale",
                                  "PA - Tipo Particellare",
                                  "TR - Tipo Mappale a Rettifica"};
    return t;
}

const QStringList& StrumentazioniPredefinite() {
    static const QStringList s = {"MISURE ASSENTI",
                                  "TIPO SENZA GEOMETRIA",
                                  "CORDELLA METRICA E PALINE",
                                  "GEODIMETRO INTEGRATO",
                                  "STAZIONE TOTALE",
                                  "CORDELLA METRICA",
                                  "ALLINEAMENTI E SQUADRI",
                                  "MULTIMETRO LASER",
                                  "Strumentazione GPS",
                                  "Strumentazione GPS + Stazione Totale",
                                  "Libretto per sole coordinate"};
    return s;
}

const QStringList& CommentiPredefiniti() {
    static const QStringList c = {
        "CONFERMA",
        "VARIAZIONE",
        "DEROGA",
        "Conformità di mappa con conferma di mappa",
        "Conferma: Conformità di mappa con variazione di particella",
        "Conferma: Demolizione totale di fabbricato",
        "Conferma: Accorpamento di fabbricato alla corte",
        "Conferma: Fusione di particelle edificate (qualità 282 oppure Fabbr. Rurali)",
        "Conferma: Nuova costruzione sull'intera particella"};
    return c;
}

QString PercorsoCatasto1(const Stato& stato) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\Catasto1.txt");
}

QString PercorsoStrumentazioni(const Stato& stato) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\TIPOLOGIASTRUMENTAZIONE.INI");
}

QString PercorsoCommenti(const Stato& stato) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\SALVACOMMENTO.INI");
}

QString DataDiOggi(const Stato& stato) {
    return stato.piattaforma->Adesso().date().toString(QStringLiteral("ddMMyyyy"));
}

QStringList CampiBarra(const QString& riga) {
    return Split(riga + QStringLiteral("||||||||||||||||||||"), QStringLiteral("|"));
}

void CompletaCognomeNome(Stato& stato) {
    Testata& t = stato.testata;
    if (t.Nome.isEmpty() && t.Cognome.isEmpty()) t.Cognome = t.Tecnico;
    if (t.Nome.isEmpty() && t.Cognome.contains(u' ')) {
        const int blank = InStr(t.Cognome, QStringLiteral(" "));
        t.Nome = Mid(t.Cognome, blank + 1);
        t.Cognome = Left(t.Cognome, blank - 1);
    }
}

namespace {

// A list file, one item a line; the built-in list when the file does not exist.
QStringList LeggiElenco(const QString& percorso, const QStringList& predefinito) {
    if (!EsisteFile(percorso)) return predefinito;
    QStringList voci;
    for (const QString& riga : LeggiRighe(percorso))
        if (!riga.isEmpty()) voci.append(riga);
    return voci;
}

// The first field of each line of collegi.txt, the boards of the provinces: 130 pairs at most.
void AggiungiCollegi(Stato& stato, QStringList& province) {
    const QString percorso =
        stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\exe\\collegi.txt");
    if (!EsisteFile(percorso)) return;
    int coppie = 0;
    for (const QString& riga : LeggiRighe(percorso)) {
        if (Trim(riga).isEmpty()) continue;
        if (++coppie > kMaxCollegi) throw Errore(9);
        province.append(Trim(Split(riga, QStringLiteral(","))[0]));
    }
}

} // namespace

void CaricaStrumentazione(Stato& stato, FormConfigurazione& f) {
    ConTrappola(stato, TagForm(), [&] {
        f.Strumentazioni = LeggiElenco(PercorsoStrumentazioni(stato), StrumentazioniPredefinite());
        f.TestoCombo9 = f.Campi[14];
    });
}

void CaricaCommenti(Stato& stato, FormConfigurazione& f) {
    ConTrappola(stato, TagForm(),
                [&] { f.Commenti = LeggiElenco(PercorsoCommenti(stato), CommentiPredefiniti()); });
}

QStringList ElencoFileTecnici(const Stato& stato) {
    const QString cartella = PercorsoLocale(stato.amb.CartellaLavoro + QStringLiteral("\\tecnici"));
    QStringList nomi;
    for (const QString& n : QDir(cartella).entryList(QDir::Files)) {
        if (n.endsWith(QStringLiteral(".PFS"), Qt::CaseInsensitive)) nomi.append(n);
    }
    std::sort(nomi.begin(), nomi.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return nomi;
}

void CFDaPregeoINI(Stato& stato, FormConfigurazione& f) {
    const TecnicoIni t = LeggiTecnicoIni(stato.amb.RigheIni);
    auto metti = [](QString& campo, const QString& valore) {
        if (!valore.isEmpty()) campo = valore;
    };
    metti(f.Campi[16], t.NumeroIscrizione);
    metti(f.Campi[17], t.CodiceFiscale);
    metti(f.Campi[5], UCase(t.Cognome));
    metti(f.Campi[19], UCase(t.Nome));
    metti(f.Campi[6], t.Qualifica);
    metti(f.Campi[7], t.ProvinciaAlbo);
}

void CaricaCatasto1TXT(Stato& stato, FormConfigurazione& f) {
    ConTrappola(stato, TagForm(), [&] {
        const QString percorso = PercorsoCatasto1(stato);
        if (!EsisteFile(percorso)) return;
        const QStringList righe = LeggiRighe(percorso);
        if (righe.size() > 0) {
            const QStringList c = CampiBarra(righe[0]);
            for (int i = 0; i <= 7; ++i) f.Campi[i] = c[i + 1];
        }
        if (righe.size() > 1) {
            const QStringList c = CampiBarra(righe[1]);
            for (int i = 8; i <= 14; ++i) f.Campi[i] = c[i - 7];
        }
        if (righe.size() > 2) f.Campi[15] = CampiBarra(righe[2])[1];
    });
}

QString TestoCatasto1TXT(const FormConfigurazione& f) {
    QString t = QStringLiteral("0|");
    for (int i = 0; i <= 7; ++i) t += f.Campi[i] + u'|';
    t += CRLF + QStringLiteral("9|");
    for (int i = 8; i <= 14; ++i) t += f.Campi[i] + u'|';
    t += CRLF;
    if (!f.Campi[15].isEmpty()) t += QStringLiteral("6|") + f.Campi[15] + u'|' + CRLF;
    return t;
}

namespace {

// A row of kind 6 that can be the comment of the dialog.
bool RigaCommento(const QString& riga) {
    return TipoRiga(riga) == 6 && riga.size() < 76 && riga.count(u'|') == 2 &&
           !riga.contains(kDatiCensuario) && !riga.contains(kRelazioneTecnica);
}

// Fields from the rows of the libretto.
void CampiDaLibretto(Stato& stato, FormConfigurazione& f) {
    const ListaRighe& l = stato.doc.RigheLibretto;
    if (stato.doc.TestoLibretto.isEmpty() || l.Conta() == 0) return;
    const QStringList c0 = CampiBarra(l.Riga(0));
    for (int i = 0; i <= 7; ++i) f.Campi[i] = c0[i + 1];
    if (l.Conta() < 2) return;
    const QString seconda = l.Riga(1);
    if (TipoRiga(seconda) == 9) {
        const QStringList c9 = CampiBarra(seconda);
        for (int i = 8; i <= 14; ++i) f.Campi[i] = c9[i - 7];
        if (l.Conta() > 2 && RigaCommento(l.Riga(2))) {
            f.Campi[15] = CampiBarra(l.Riga(2))[1];
            f.TestoCombo10 = f.Campi[15];
        }
    } else if (RigaCommento(seconda)) {
        f.Campi[15] = CampiBarra(seconda)[1];
        f.TestoCombo10 = f.Campi[15];
    }
}

} // namespace

FormConfigurazione ApriConfigurazione(Stato& stato) {
    FormConfigurazione f;
    Piattaforma& p = *stato.piattaforma;
    ConTrappola(stato, TagForm(), [&] {
        CFDaPregeoINI(stato, f);
        f.Check1 = p.Impostazione(kSezioneCheck1, kNomeFormConfigurazione, "1") != u"0";
        f.Check2 = p.Impostazione(kSezioneCheck2, kNomeFormConfigurazione, "1") != u"0";
        f.EtichettaEstratto = stato.doc.NomeEstratto;
        f.EtichettaMisurate = stato.doc.NomeMisurate;
        f.EtichettaMisurate2 = stato.doc.NomeMisurate;
    });
    CaricaCommenti(stato, f);
    ConTrappola(stato, TagForm(), [&] {
        CaricaComuni(stato);
        CaricaProvince(stato);
        stato.TagRoutine = TagForm();
        for (const Provincia& pr : stato.amb.TabellaProvince) f.Province.append(pr.NomeProvincia);
        AggiungiCollegi(stato, f.Province);
    });
    CaricaStrumentazione(stato, f);
    f.FileTecnici = ElencoFileTecnici(stato);
    CaricaCatasto1TXT(stato, f);
    ConTrappola(stato, TagForm(), [&] {
        CampiDaLibretto(stato, f);
        auto vuoto = [&](int i, const char* v) {
            if (Trim(f.Campi[i]).isEmpty()) f.Campi[i] = QString::fromUtf8(v);
        };
        vuoto(1, "1");
        vuoto(2, "G693");
        vuoto(3, "0010");
        vuoto(4, "1");

        CaricaFileTecnico(stato, f.Campi[5]);
        CompletaCognomeNome(stato);
        Testata& t = stato.testata;
        f.Campi[5] = t.Cognome.isEmpty() ? QStringLiteral("COGNOME") : t.Cognome;
        f.Campi[19] = t.Nome.isEmpty() ? QStringLiteral("NOME") : t.Nome;
        // The record of the technician fills the registration and the code left blank.
        if (f.Campi[16].isEmpty()) f.Campi[16] = stato.doc.NumeroIscrizioneAlbo;
        if (f.Campi[17].isEmpty()) f.Campi[17] = stato.doc.CodiceFiscaleTecnico;
        vuoto(6, "GEOMETRA");
        vuoto(7, "PADOVA");
        f.TestoCombo1 = f.Campi[6];
        f.TestoCombo6 = f.Campi[7];

        if (Trim(f.Campi[8]).isEmpty()) f.Campi[8] = Formato(Val(t.QuotaMedia), kFiguraQuota);
        f.Campi[9] = QStringLiteral("10");
        f.Campi[10] = QStringLiteral("20");
        if (Trim(f.Campi[11]).isEmpty()) f.Campi[11] = EstMedioDaRighe8(stato);
        f.Campi[12] = stato.amb.VersionePregeo;
        vuoto(13, "FR");
    });
    CaricaStrumentazione(stato, f);
    ConTrappola(stato, TagForm(), [&] {
        if (Trim(f.Campi[14]).isEmpty()) f.Campi[14] = QStringLiteral("STAZIONE TOTALE");
        f.TestoCombo9 = f.Campi[14];
        const ListaRighe& l = stato.doc.RigheLibretto;
        if (l.Conta() > 2 && l.Riga(2).contains(kDettaglioTipoAgg))
            f.Campi[15] = Mid(l.Riga(2), 3).remove(u'|');
        f.Campi[18] = stato.testata.Recapito;
        const QStringList& tipologie = ElencoTipologie();
        for (int i = 0; i < tipologie.size(); ++i) {
            if (Left(tipologie[i], 2) == stato.testata.TipologiaRilievo) {
                f.IndiceCombo2 = i;
                break;
            }
        }
    });
    stato.EsitoDialogo = -1;
    return f;
}

} // namespace tavolet
