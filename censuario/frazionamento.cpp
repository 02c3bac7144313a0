#include "frazionamento.h"

#include "errore.h"
#include "file_testo.h"
#include "piattaforma.h"
#include "proposta.h"
#include "righe_censuarie.h"
#include "stato.h"
#include "testata.h"
#include "testo.h"

#include <algorithm>
#include <cmath>

namespace tavolet {

namespace {

bool Stralcio(const Frazionamento& f) {
    return f.tipo == TipoSchema::Stralcio;
}

QStringList RigaSchema(const QString& operazione, const QString& particella = {}) {
    QStringList r(kColonneSchema);
    r[0] = operazione;
    r[1] = particella;
    return r;
}

// The letter of a character code as the runtime's Chr gives it: codes above 255 are an
// invalid call.
QString Lettera(int codice) {
    if (codice < 0 || codice > 255) throw Errore(5);
    return DaWindows1252(QByteArray(1, char(codice)));
}

// Division as the runtime does it: x / 0 is error 11, 0 / 0 an overflow.
double Dividi(double a, double b) {
    if (b == 0) throw Errore(a == 0 ? 6 : 11);
    return a / b;
}

QString& CellaW(Frazionamento& f, int riga, int colonna) {
    if (riga < 0 || riga >= f.SchemaModello.size() || colonna < 0 || colonna >= kColonneSchema)
        throw Errore(9);
    return f.SchemaModello[riga][colonna];
}

bool Modo342(const Frazionamento& f) {
    return f.TipoOperazione == kFrazionamento282;
}

void ScriviMemo(Stato& stato, const Frazionamento& f) {
    ScriviFileCensuario(stato, FileMemo(f), TestoRighe(f.Memo));
}

QString TagComponi(const Frazionamento& f) {
    return f.Titolo + (Stralcio(f) ? QStringLiteral("ComponiStralcio")
                                   : QStringLiteral("ComponiFrazionamento"));
}

void Colora(Frazionamento& f, int riga, int colonna, int colore) {
    if (colore == kBianco)
        f.colori.remove({riga, colonna});
    else
        f.colori[{riga, colonna}] = colore;
}

void ComponiSchema(Stato& stato, Frazionamento& f) {
    ControllaParticella(f.particella);
    QList<QStringList>& g = f.SchemaModello;
    const int corrente = f.RigaCorrente;
    const int righe = int(g.size());

    if (!Stralcio(f))
        for (int j = 0; j < f.SchemaProposta.size(); ++j)
            CellaW(f, j + 3, 8) = EtichettaElemento(f.SchemaProposta[j]);

    const QString codice = CodiceDaQualita(stato.amb.TabellaQualita, f.particella.Qualita);
    CellaW(f, corrente, 5) = f.AreaProporzionale;

    double sommaFisse = 0, sommaProposta = 0;
    for (int i = 3; i < righe; ++i) {
        const double v = Val(g[i][5]);
        sommaProposta += v;
        if (g[i][7] == QStringLiteral("FISSA")) sommaFisse += v;
    }
    CellaW(f, 1, 5) = CStr(sommaProposta);

    double areaRiga = sommaProposta;
    for (int i = 3; i < righe; ++i) {
        if (Val(g[1][5]) > 0) {
            if (g[i][7] == QStringLiteral("FISSA"))
                areaRiga = Val(g[i][5]);
            else
                areaRiga =
                    Dividi(Val(g[1][2]) - sommaFisse, Val(g[1][5]) - sommaFisse) * Val(g[i][5]);
        }
        g[i][2] = Formato(areaRiga, QStringLiteral("#######0"));
        g[i][3] = Replace(Formato(Dividi(Val(g[1][3]), Val(g[1][2])) * Val(g[i][2]),
                                  QStringLiteral("#######0.00")),
                          QStringLiteral(","), QStringLiteral("."));
        g[i][4] = Replace(Formato(Dividi(Val(g[1][4]), Val(g[1][2])) * Val(g[i][2]),
                                  QStringLiteral("#######0.00")),
                          QStringLiteral(","), QStringLiteral("."));
    }

    for (int colonna : {3, 4}) {
        double somma = 0;
        for (int i = 3; i < righe; ++i) somma += Val(g[i][colonna]);
        // The incomes are shown to the cent: a difference below it is no difference.
        const bool diversa = std::abs(somma - Val(g[1][colonna])) >= 0.005;
        Colora(f, 1, colonna, diversa ? kGiallo : kBianco);
    }

    QStringList anteprima;
    anteprima << kTitoloCensuario
              << RigaTesta(Stralcio(f) ? kModelloStralcio : kModelloFrazionamento,
                           Formato(righe - 1, QStringLiteral("000")));
    const QString numero = f.Numero();
    for (int i = 1; i < righe; ++i) {
        const QStringList& r = g[i];
        Colora(f, i, 6, r[6] == QStringLiteral("SR") ? kRossoChiaro : kBianco);
        if (r[0] == QStringLiteral("O")) {
            QString riga = QStringLiteral("6|O|") + Left(numero + Space(7), 5) +
                           QStringLiteral("|000|  |     |") +
                           Right(QStringLiteral("000000000000") + r[2], 9) + u'|' + r[6] +
                           QStringLiteral("|  |     |") + QStringLiteral("001|") +
                           QStringLiteral("1 |                 |");
            const bool conClasse =
                Stralcio(f) ? (codice != QStringLiteral("279") && codice != QStringLiteral("282"))
                            : Val(codice) <= 129;
            const QString classe =
                conClasse ? Left(CStr(Val(Trim(f.particella.Classe))) + Space(2), 2) : Space(2);
            ScriviInPosizione(riga, 50, classe, 2);
            ScriviInPosizione(riga, 46, codice, 3);
            anteprima << riga;
        } else if (r[0] == QStringLiteral("S")) {
            if (!Modo342(f))
                anteprima
                    << QStringLiteral("6|S|") + Left(g[i - 1][1] + Space(7), 5) +
                           QStringLiteral(
                               "|000|  |     |000000000|  |  |     |000|  |                 |");
        } else if (r[0] == QStringLiteral("C") || r[0] == QStringLiteral("V")) {
            QString id = Trim(r[8]);
            if (Stralcio(f) || id.isEmpty())
                id = QStringLiteral("AA") +
                     UCase(Lettera(i + 94 + f.UltimaLettera - (Modo342(f) ? 1 : 0)));
            QString riga = QStringLiteral("6|") + r[0] + QStringLiteral("|     |000|") +
                           Left(r[1] + Space(2), 2) + u'|' + Left(id + Space(5), 5) + u'|' +
                           Right(QStringLiteral("000000000000") + r[2], 9) + u'|' + r[6] +
                           QStringLiteral("|  |     |") + QStringLiteral("000|") +
                           QStringLiteral("  |                 |");
            if (Modo342(f) && r[0] == QStringLiteral("V")) {
                ScriviInPosizione(riga, 5, numero);
                ScriviInPosizione(riga, 11, QStringLiteral("000|  |     "));
            }
            anteprima << riga;
        }
    }
    f.AnteprimaModello = anteprima;

    double sommaAree = 0;
    for (int i = 3; i < righe; ++i) sommaAree += Val(g[i][2]);
    const double catastale = Val(g[1][2]);
    if (Stralcio(f)) {
        Colora(f, 1, 2, catastale != sommaAree ? kGiallo : kBianco);
        // The derived parcels inherit quality and classe; those chosen for the urban get 282.
        const QStringList o = Split(f.AnteprimaModello.value(2), QStringLiteral("|"));
        for (int k = 4; k < f.AnteprimaModello.size(); ++k) {
            QStringList p = Split(f.AnteprimaModello[k], QStringLiteral("|"));
            if (p.size() < 12 || o.size() < 12) throw Errore(9);
            p[10] = o[10];
            p[11] = o[11];
            f.AnteprimaModello[k] = Join(p, QStringLiteral("|"));
        }
        for (int s = 0; s < f.DerivateUrbano.size(); ++s) {
            if (!f.UrbanoScelte.value(s)) continue;
            const QString dietro = Split(f.DerivateUrbano[s], QStringLiteral("_")).value(1);
            const QString etichetta = Split(dietro, QStringLiteral(" = ")).value(0);
            for (int k = 4; k < f.AnteprimaModello.size(); ++k) {
                QStringList p = Split(f.AnteprimaModello[k], QStringLiteral("|"));
                if (Trim(p.value(5)) != etichetta) continue;
                p[10] = QStringLiteral("282");
                p[11] = QStringLiteral("  ");
                f.AnteprimaModello[k] = Join(p, QStringLiteral("|"));
            }
        }
    } else if (catastale < sommaAree) {
        // One square metre moves, on the first derived row, after the rows were composed.
        g[3][2] = Formato(std::floor(Val(g[3][2])) - 1, QStringLiteral("#######0"));
        Colora(f, 1, 2, kGiallo);
    } else if (catastale > sommaAree) {
        g[3][2] = Formato(std::floor(Val(g[3][2])) + 1, QStringLiteral("#######0"));
        Colora(f, 1, 2, kGiallo);
    } else {
        Colora(f, 1, 2, kBianco);
    }
    f.RigaCorrente = corrente;
}

} // namespace

QString Frazionamento::Numero() const {
    return Trim(particella.Mappale);
}

QString FileMemo(const Frazionamento& f) {
    return Stralcio(f) ? QStringLiteral("3SPC.CEN") : QStringLiteral("51FTP.CEN");
}

QString TitoloSchermo(TipoSchema tipo) {
    return tipo == TipoSchema::Stralcio ? QStringLiteral("Stralcio Particella ")
                                        : QStringLiteral("Fraziona Particella ");
}

void CaricaMappaleDiPartenza(Stato& stato, Frazionamento& f) {
    f.UltimaLettera = 0;
    const QString percorso = PercorsoCensuario(stato, FileMemo(f));
    if (!EsisteFile(percorso)) return;
    for (const QString& riga : LeggiRighe(percorso)) {
        if (Mid(riga, 3, 1) != QStringLiteral("C")) continue;
        const QString lettera = Mid(riga, 20, 1);
        if (lettera.isEmpty()) continue;
        f.UltimaLettera = std::max(0, int(lettera.at(0).unicode()) - 64);
    }
}

void Carica51FTPCen(Stato& stato, Frazionamento& f) {
    ConTrappola(stato, QStringLiteral("Carica51FTPCen"), [&] {
        f.Memo.clear();
        const QString percorso = PercorsoCensuario(stato, FileMemo(f));
        if (EsisteFile(percorso))
            for (const QString& riga : LeggiRighe(percorso))
                if (RigaCensuaria(riga)) f.Memo.append(riga);
        if (f.Memo.isEmpty())
            f.Memo << kTitoloCensuario << RigaTesta(kModelloFrazionamento, QStringLiteral("000"));
        ImpostaConteggioTesta(f.Memo, Conteggio3(int(f.Memo.size()) - 2));
    });
}

void ApriFrazionamento(Stato& stato, Frazionamento& f) {
    f.MantieniNumero = f.TipoOperazione != kFrazionamento;
    EsplodiAreeProposta(stato);
    ConTrappola(stato, TitoloSchermo(f.tipo) + QStringLiteral("Form_Load"), [&] {
        if (Stralcio(f)) {
            const QString temp =
                stato.amb.CartellaLavoro + QStringLiteral("\\TEMP\\") + kFileTempProposta;
            f.TestoProposta = EsisteFile(temp) ? LeggiTesto(temp) : QString();
        }
        if (!LeggiAreeCensuario(stato, f.AreeInProposta))
            stato.piattaforma->Messaggio(QStringLiteral("Proposta Assente!"),
                                         QStringLiteral("Impossibile continuare"), Icona::Avviso);
        CaricaMappaleDiPartenza(stato, f);
        f.Titolo = TitoloSchermo(f.tipo) + f.Numero();
        f.SchemaModello = {kIntestazioniSchema, RigaSchema(QStringLiteral("O"), f.Numero()),
                           RigaSchema(QStringLiteral("S"))};
        f.SchemaModello[1][2] = f.particella.SupCatastale;
        f.SchemaModello[1][3] = f.particella.RedditoAgrario;
        f.SchemaModello[1][4] = f.particella.RedditoDominicale;
        f.colori.clear();
        f.RigaCorrente = 1;
    });
    Carica51FTPCen(stato, f);
    ConTrappola(stato, TitoloSchermo(f.tipo) + QStringLiteral("Form_Load"), [&] {
        const QStringList modello = LeggiModelloCensuario(stato);
        QStringList schema = modello;
        for (int i = int(schema.size()) - 1; i >= 0; --i)
            if (PadreElemento(schema[i]) != f.Numero()) schema.removeAt(i);
        for (int i = int(schema.size()) - 1; i >= 0; --i)
            if (ElementoInvariato(schema[i])) schema.removeAt(i);
        f.SchemaProposta = schema;
        if (Stralcio(f)) {
            f.DerivateUrbano.clear();
            f.UrbanoScelte.clear();
            for (const QString& voce : MappaliInProposta(modello)) {
                if (PadreElemento(voce) != f.Numero()) continue;
                f.DerivateUrbano << voce;
                f.UrbanoScelte << f.TestoProposta.contains(Trim(EtichettaElemento(voce)) + u'+');
            }
        }
        if (!schema.isEmpty()) {
            if (Val(Split(schema.first(), QStringLiteral("_")).value(1)) > 0)
                f.MantieniNumero = true;
            f.NumeroCostituite = QString::number(schema.size());
            GeneraParticelleDerivate(stato, f);
        }
    });
}

void GeneraParticelleDerivate(Stato& stato, Frazionamento& f) {
    ConTrappola(stato, QStringLiteral("GeneraParticelleDerivate"), [&] {
        f.TipoOperazione = f.MantieniNumero ? kFrazionamento282 : kFrazionamento;
        const double n = Val(f.NumeroCostituite);
        if (!(n > 0)) return;
        // A grid of more rows than any sheet has parcels is a typing slip, not a frazionamento.
        if (n > 9999) throw Errore(6);
        const int derivate = int(n);
        QList<QStringList> g = f.SchemaModello.mid(0, 3);
        if (Modo342(f)) {
            g << RigaSchema(QStringLiteral("V"));
            for (int i = 2; i <= derivate; ++i)
                g << RigaSchema(QStringLiteral("C"), Lettera(i + 95));
        } else {
            for (int i = 1; i <= derivate; ++i)
                g << RigaSchema(QStringLiteral("C"), Lettera(i + 96));
        }
        for (QStringList& r : g)
            if (r[0] == QStringLiteral("O") || r[0] == QStringLiteral("V") ||
                r[0] == QStringLiteral("C"))
                r[6] = QStringLiteral("SN");
        f.SchemaModello = g;
        f.RigaCorrente = 3;
    });
    if (f.SchemaModello.size() >= 4 && f.RigaCorrente == 3) SpostaRiga(stato, f, 3);
}

void Componi(Stato& stato, Frazionamento& f) {
    if (f.RigaCorrente < 3) return;
    ConTrappola(stato, TagComponi(f), [&] { ComponiSchema(stato, f); });
}

void SpostaRiga(Stato& stato, Frazionamento& f, int riga) {
    if (riga < 1 || riga >= f.SchemaModello.size()) return;
    f.RigaCorrente = riga;
    if (riga < 2) {
        f.AreaProporzionale.clear();
    } else {
        f.AreaProporzionale = Trim(f.SchemaModello[riga][5]);
        f.EtichettaArea = QStringLiteral("Area Propoprzionale Particella ") + f.Numero() +
                          QStringLiteral(" - ") + f.SchemaModello[riga][1];
    }
    Componi(stato, f);
}

void RigaSuccessiva(Stato& stato, Frazionamento& f) {
    if (f.SchemaModello.size() < 4) return;
    const int ultima = int(f.SchemaModello.size()) - 1;
    SpostaRiga(stato, f, f.RigaCorrente >= ultima ? 3 : f.RigaCorrente + 1);
}

void CambiaAreaProporzionale(Stato& stato, Frazionamento& f, const QString& testo) {
    f.AreaProporzionale = testo;
    Componi(stato, f);
}

void ScegliAreaProposta(Stato& stato, Frazionamento& f, int indice) {
    if (indice < 0 || indice >= f.AreeInProposta.size()) return;
    const QString voce = f.AreeInProposta[indice];
    const int uguale = InStr(voce, QStringLiteral("="));
    CambiaAreaProporzionale(stato, f, Trim(Mid(voce, uguale + 1)));
    RigaSuccessiva(stato, f);
}

bool TastoAreaProporzionale(Stato& stato, Frazionamento& f, QChar tasto) {
    const int r = f.RigaCorrente;
    if (r < 1 || r >= f.SchemaModello.size()) return false;
    const QChar t = tasto.toUpper();
    if (t == u'R')
        f.SchemaModello[r][6] = QStringLiteral("SR");
    else if (t == u'N')
        f.SchemaModello[r][6] = QStringLiteral("SN");
    else if (t == u'F')
        f.SchemaModello[r][7] = QStringLiteral("FISSA");
    else
        return false;
    return true;
}

void DoppioClicSchema(Stato& stato, Frazionamento& f, int riga, int colonna) {
    if (riga < 1 || riga >= f.SchemaModello.size()) return;
    if (riga != f.RigaCorrente) SpostaRiga(stato, f, riga);
    QStringList& r = f.SchemaModello[riga];
    const bool o = r[0] == QStringLiteral("O"), c = r[0] == QStringLiteral("C");
    if (!o && !c) return;
    if (colonna == 6) {
        if (r[6] == QStringLiteral("SN")) {
            r[6] = QStringLiteral("SR");
            if (c) r[7] = QStringLiteral("FISSA");
        } else {
            r[6] = QStringLiteral("SN");
        }
    } else if (colonna == 7) {
        if (r[7] != QStringLiteral("FISSA")) {
            if (c) r[7] = QStringLiteral("FISSA");
        } else if (r[6] != QStringLiteral("SR")) {
            r[7].clear();
        }
    } else {
        return;
    }
    Componi(stato, f);
}

void CambiaNumeroCostituite(Stato& stato, Frazionamento& f, const QString& testo) {
    f.NumeroCostituite = testo;
    GeneraParticelleDerivate(stato, f);
}

bool VerificaNumeroCostituite(Stato& stato, const Frazionamento& f) {
    if (Val(f.NumeroCostituite) > 0) return true;
    stato.piattaforma->Messaggio(QStringLiteral("Inserire un valore > 0"),
                                 QStringLiteral("Impossibile continuare"), Icona::Avviso);
    return false;
}

void PropostaAutomatica(Stato& stato, Frazionamento& f) {
    CambiaNumeroCostituite(stato, f, QString::number(f.SchemaProposta.size()));
    GeneraParticelleDerivate(stato, f);
    for (const QString& voce : f.SchemaProposta) {
        if (f.SchemaModello.size() < 4) break;
        CambiaAreaProporzionale(stato, f, AreaElemento(voce));
        if (f.RigaCorrente == f.SchemaModello.size() - 1) {
            SpostaRiga(stato, f, 3);
            break;
        }
        SpostaRiga(stato, f, f.RigaCorrente + 1);
    }
}

void CambiaMantieniNumero(Stato& stato, Frazionamento& f, bool si) {
    f.MantieniNumero = si;
    PropostaAutomatica(stato, f);
}

void ScegliDerivataUrbano(Stato& stato, Frazionamento& f, int indice, bool scelta) {
    if (indice < 0 || indice >= f.UrbanoScelte.size()) return;
    f.UrbanoScelte[indice] = scelta;
    Componi(stato, f);
}

void AggiungiAMemo(Stato& stato, Frazionamento& f) {
    bool fatto = false;
    ConTrappola(stato, QStringLiteral("AggiungiAMemo"), [&] {
        if (f.Memo.isEmpty())
            f.Memo << kTitoloCensuario << RigaTesta(kModelloFrazionamento, QStringLiteral("000"));
        f.Memo += f.AnteprimaModello.mid(2);
        ImpostaConteggioTesta(f.Memo, Formato(double(f.Memo.size() - 2), QStringLiteral("000")));
        ScriviMemo(stato, f);
        fatto = true;
    });
    if (!fatto) return;
    const Risposta r =
        Stralcio(f)
            ? stato.piattaforma->Domanda(QStringLiteral("Stralciare un nuovo Mappale ?"),
                                         QStringLiteral("Stralcio"), Pulsanti::SiNo, Risposta::Si)
            : stato.piattaforma->Domanda(QStringLiteral("Frazionare un nuovo Mappale ?"),
                                         QStringLiteral("Frazionamento"), Pulsanti::SiNo,
                                         Risposta::Si);
    if (r == Risposta::Si) f.Chiudi = true;
}

void AzzeraMemo(Stato& stato, Frazionamento& f) {
    ConTrappola(stato, QStringLiteral("AzzeraMemo"), [&] {
        EliminaFile(PercorsoCensuario(stato, FileMemo(f)));
        f.Memo.clear();
        f.Memo << kTitoloCensuario
               << RigaTesta(Stralcio(f) ? kModelloStralcio : kModelloFrazionamento,
                            QStringLiteral("000"));
        CaricaMappaleDiPartenza(stato, f);
    });
    Componi(stato, f);
}

void EliminaSelezioneMemo(Stato& stato, Frazionamento& f, QList<int> selezionate) {
    std::sort(selezionate.begin(), selezionate.end());
    for (int k = int(selezionate.size()) - 1; k >= 0; --k)
        if (selezionate[k] >= 0 && selezionate[k] < f.Memo.size()) f.Memo.removeAt(selezionate[k]);
    ConTrappola(stato, QStringLiteral("EliminaSelezione"), [&] { ScriviMemo(stato, f); });
}

void CaricaCensuarioDaLibretto(Stato& stato, Frazionamento& f) {
    f.Memo = RigheCensuarieDi(stato.doc.TestoLibretto);
    ConTrappola(stato, QStringLiteral("CaricaCensuarioDaLibretto"), [&] { ScriviMemo(stato, f); });
}

void PreparaModificaDiretta(Stato& stato, Frazionamento& f, bool scrivi) {
    if (scrivi)
        ConTrappola(stato, QStringLiteral("ModificaDiretta"), [&] {
            ScriviFileCensuario(
                stato, Stralcio(f) ? QStringLiteral("3SPC.CEN") : QStringLiteral("51ftp.cen"),
                TestoRighe(f.Memo));
        });
    f.TipoOperazione = kModificaDiretta;
    InstallaEditorCensuario(stato);
}

void DopoModificaDiretta(Stato& stato, Frazionamento& f) {
    f.TipoOperazione = f.MantieniNumero ? kFrazionamento282 : kFrazionamento;
    Carica51FTPCen(stato, f);
}

void CopiaMemo(Stato& stato, const Frazionamento& f) {
    stato.piattaforma->ImpostaAppunti(TestoRighe(f.Memo));
}

void StampaMemo(Stato& stato, const Frazionamento& f) {
    stato.piattaforma->StampaTesto(QStringLiteral("Memo"), TestoRighe(f.Memo), Carattere{});
}

void SalvaPropostaFile(Stato& stato, Frazionamento& f) {
    if (!f.Memo.isEmpty())
        ConTrappola(stato, QStringLiteral("Decozero_104"), [&] {
            DecoZeroNove(stato);
            stato.doc.TestoLibretto = AccodaRighe(stato.doc.TestoLibretto, f.Memo);
        });
    f.Chiudi = true;
}

void SalvaPropostaFile1(Stato& stato, Frazionamento& f) {
    if (f.Memo.size() > 2) {
        const QString tag =
            Stralcio(f) ? QStringLiteral("Decozero_111") : QStringLiteral("Decozero_105");
        ConTrappola(stato, tag, [&] {
            DecoZeroNove(stato);
            stato.doc.TestoLibretto =
                AccodaRighe(SenzaRigheCensuarie(stato.doc.TestoLibretto), f.Memo);
        });
    }
    f.Chiudi = true;
}

QList<QStringList> SchemaDaTesto(const QString& testo) {
    QList<QStringList> righe;
    for (const QString& linea : RigheDiTesto(testo)) {
        if (Trim(linea).isEmpty()) continue;
        QStringList celle =
            Split(Replace(linea, QStringLiteral("\t"), QStringLiteral("|")), QStringLiteral("|"));
        for (QString& c : celle) c = Trim(c);
        if (UCase(celle.value(0)) == QStringLiteral("OPERAZIONE")) continue;
        celle = celle.mid(0, kColonneSchema);
        while (celle.size() < kColonneSchema) celle.append(QString());
        celle[0] = UCase(celle[0]);
        righe.append(celle);
    }
    return righe;
}

QStringList MemoDaSchema(Stato& stato, Frazionamento& f, const QList<QStringList>& righe) {
    f.Titolo = TitoloSchermo(f.tipo) + f.Numero();
    f.SchemaModello = {kIntestazioniSchema, RigaSchema(QStringLiteral("O"), f.Numero()),
                       RigaSchema(QStringLiteral("S"))};
    f.SchemaModello[1][2] = f.particella.SupCatastale;
    f.SchemaModello[1][3] = f.particella.RedditoAgrario;
    f.SchemaModello[1][4] = f.particella.RedditoDominicale;
    f.MantieniNumero = false;
    for (const QStringList& r : righe) {
        if (r.value(0) == QStringLiteral("O")) {
            for (int c = 1; c < kColonneSchema; ++c)
                if (!r.value(c).isEmpty()) f.SchemaModello[1][c] = r[c];
        } else if (r.value(0) == QStringLiteral("C") || r.value(0) == QStringLiteral("V")) {
            f.SchemaModello.append(r);
            if (r[0] == QStringLiteral("V")) f.MantieniNumero = true;
        }
    }
    for (QStringList& r : f.SchemaModello)
        if (r[0] != QStringLiteral("Operazione") && r[0] != QStringLiteral("S") && r[6].isEmpty())
            r[6] = QStringLiteral("SN");
    f.TipoOperazione = f.MantieniNumero ? kFrazionamento282 : kFrazionamento;
    if (f.SchemaModello.size() < 4) return {};
    f.RigaCorrente = 3;
    f.AreaProporzionale = f.SchemaModello[3][5];
    const int errori = stato.ErroriMostrati;
    Componi(stato, f);
    if (stato.ErroriMostrati != errori || f.AnteprimaModello.size() < 2) return {};
    f.Memo =
        QStringList{kTitoloCensuario, RigaTesta(kModelloFrazionamento, QStringLiteral("000"))} +
        f.AnteprimaModello.mid(2);
    ImpostaConteggioTesta(f.Memo, Formato(double(f.Memo.size() - 2), QStringLiteral("000")));
    return f.Memo;
}

void InstallaEditorCensuario(Stato& stato) {
    GestoreEditor g;
    g.leggi = [](Stato& s) {
        const QString percorso = PercorsoCensuario(s, QStringLiteral("51FTP.CEN"));
        return EsisteFile(percorso) ? LeggiTesto(percorso) : QString();
    };
    g.memorizza = [](Stato& s, const QString& testo) {
        ScriviFileCensuario(s, QStringLiteral("51FTP.CEN"), TestoRighe(RigheDiTesto(testo)));
    };
    stato.GestoriEditor[kModificaDiretta] = g;
}

} // namespace tavolet
