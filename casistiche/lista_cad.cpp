// GeneraLibrettoDaList: the list of a CAD program turned into rows 8 and 7, the provisional
// extract and the proposal of the building.
#include "casistiche.h"

#include "errore.h"
#include "file_testo.h"
#include "piattaforma.h"
#include "righe.h"
#include "stato.h"
#include "testo.h"

#include <QHash>

#include <array>
#include <cmath>

namespace tavolet {

namespace {

const QString kBianco = QStringLiteral(" ");

struct Layer {
    const char* nome;
    const char* descrizione;
    const char* riga6;
};
// Tried in this order: a line naming two of them takes the last one tested.
const std::array<Layer, 4> kLayer = {{
    {"RT", "SF", "6|Portico|"},
    {"RP", "SF", "6|Cantina|"},
    {"RC", "SF", "6|Contorno fabbricato|"},
    {"NC", "Punto per inquadramento cartografico", "6|Contorno Cartografico|"},
}};

bool EVertice(const QString& riga) {
    return riga.contains(u"at point") || riga.contains(u"al punto") || riga.contains(u"Locazione:");
}

bool ERiga8(const QString& s) {
    return TipoRiga(s) == 8;
}

// Fields of a row without the empty piece behind the last bar.
QStringList Campi(const QString& riga) {
    QStringList p = Split(riga, kBarra);
    if (p.size() > 1 && p.last().isEmpty()) p.removeLast();
    return p;
}

// Point names of a row 7: from index 2 to the one before the type code.
QStringList PuntiDellaRiga(const QStringList& campi) {
    return campi.size() > 3 ? campi.mid(2, campi.size() - 3) : QStringList();
}

QString Testo(const QStringList& righe) {
    QString t;
    for (const QString& r : righe) t += r + CRLF;
    return t;
}

// Step 9: the rows as a self-made extract.
QString ComponiEstrattoProvvisorio(const QString& righeSpezzate) {
    QString testo = QStringLiteral("0|AUTOALLESTITO||||||||") + CRLF;
    QString inquadramento;
    int anello = 0;
    for (const QString& riga : Split(righeSpezzate, CRLF)) {
        const QStringList campi = Campi(riga);
        const int tipo = TipoRiga(riga);
        if (tipo == 8 && campi.size() >= 4) {
            testo += QStringLiteral("8|") + campi[1] + QStringLiteral("%|") + campi[2] + kBarra +
                     campi[3] + kBarra + CRLF;
            if (inquadramento.isEmpty())
                inquadramento = QStringLiteral("6|INQUADRAMENTO|") + Trim(campi[2]) + kBarra +
                                Trim(campi[3]) + QStringLiteral("|0|0|0|0|");
        } else if (tipo == 7 && campi.size() >= 2) {
            QString r = QStringLiteral("7|") + campi[1] + kBarra;
            for (const QString& p : PuntiDellaRiga(campi)) r += p + QStringLiteral("%|");
            if (campi[1] == u"0") {
                r += QStringLiteral("NC|");
            } else {
                const QString k = QString::number(++anello);
                r += QStringLiteral("NC|X") + k + QStringLiteral("|X") + k + QStringLiteral("|1|");
            }
            testo += r + CRLF;
        }
    }
    if (inquadramento.isEmpty()) inquadramento = QStringLiteral("6|INQUADRAMENTO|0|0|0|0|0|0|");
    return testo + inquadramento + CRLF;
}

// What the plot of the case expects beside the provisional extract, whatever the input.
const QString kPngProvvisorio = QStringLiteral("8|1|-12571.845|-5882.526|SF|\r\n"
                                               "8|2|-12581.580|-5880.237|SF|\r\n"
                                               "6|Contorno fabbricato|\r\n"
                                               "7|2|1|2|RC|\r\n");

// Each part from da to the last point gets a "*" behind.
QString MarcaNuovi(const QString& riga, int da) {
    QStringList p = Split(riga, kBarra);
    int ultimo = int(p.size()) - 1;
    while (ultimo > 0 && p[ultimo].isEmpty()) --ultimo; // the type code
    for (int i = da; i < ultimo; ++i) p[i] += u'*';
    return Join(p, kBarra);
}

// Walking from the last item down, an item equal to the one before it goes.
QStringList SenzaDoppiVicini(const QStringList& lista, bool trim) {
    QStringList esito;
    for (qsizetype i = 0; i < lista.size(); ++i) {
        if (i > 0 && (trim ? Trim(lista[i]) == Trim(lista[i - 1]) : lista[i] == lista[i - 1]))
            continue;
        esito << lista[i];
    }
    return esito;
}

} // namespace

QString PercorsoTempCasistiche(const Stato& stato, const QString& nome) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\TEMP\\") + nome;
}

QString PercorsoEstrattoProvvisorio(const Stato& stato) {
    return PercorsoTempCasistiche(stato, QStringLiteral("EstrattoProvvisorio.EMP"));
}

QString PercorsoModestaEntita(const Stato& stato) {
    return PercorsoTempCasistiche(stato, QStringLiteral("MODESTAENTITA.EMP"));
}

QString AvvolgiDieciPunti(const QString& riga) {
    const QStringList campi = Campi(riga);
    if (campi.size() < 3) return riga + CRLF;
    const QString tipo = campi.last();
    QString uscita = campi[0] + kBarra + campi[1] + kBarra;
    int n = 0;
    for (const QString& p : PuntiDellaRiga(campi)) {
        if (n == 10) {
            uscita += tipo + kBarra + CRLF + QStringLiteral("7|0|");
            n = 0;
        }
        uscita += p + kBarra;
        ++n;
    }
    return uscita + tipo + kBarra + CRLF;
}

void Genera7Completa(Stato& stato, Casistica& c, const QString& riga) {
    const QStringList campi = Campi(riga);
    // Vertex tables of 501 slots, as the area routine of the extracts has them.
    std::array<double, 501> x{}, y{};
    QHash<QString, qsizetype> primaRiga; // name -> first row 8 of that name
    for (qsizetype i = 0; i < c.ListaRighe.size(); ++i)
        if (ERiga8(c.ListaRighe[i])) {
            const QString nome = Split(c.ListaRighe[i], kBarra).value(1);
            if (!primaRiga.contains(nome)) primaRiga.insert(nome, i);
        }
    int n = 0;
    for (const QString& nome : PuntiDellaRiga(campi)) {
        const auto trovata = primaRiga.constFind(nome);
        if (trovata == primaRiga.cend()) continue;
        const QStringList f = Split(c.ListaRighe[*trovata], kBarra);
        if (n + 1 > 500) throw Errore(9);
        ++n;
        x[n] = Val(f.value(3));
        y[n] = Val(f.value(2));
    }
    if (n + 1 > 500) throw Errore(9);
    x[n + 1] = x[1];
    y[n + 1] = y[1];
    double somma = 0;
    for (int i = 1; i <= n; ++i) somma += (x[i + 1] - x[i]) * (y[i] + y[i + 1]) / 2;
    const double area = n >= 3 ? std::fabs(somma) : 0;
    if (c.Codice == u"08" && area > 20)
        stato.piattaforma->Messaggio(QStringLiteral("L'area del nuovo fabbricato supera i 20 mq"),
                                     QStringLiteral("Tavolet"), Icona::Critico);
    QStringList righe = Split(AvvolgiDieciPunti(MarcaNuovi(riga, 2)), CRLF);
    if (!righe.isEmpty() && righe.last().isEmpty()) righe.removeLast();
    if (righe.isEmpty()) return;
    const QString mappali = stato.testata.MappaliLibretto;
    righe[0] += mappali + QStringLiteral("+|") + mappali + kBarra +
                Formato(area, QStringLiteral("###########0")) + kBarra;
    c.ListaContorni << righe;
}

bool GeneraLibrettoDaList(Stato& stato, Casistica& c) {
    return GeneraLibrettoDaTesto(stato, c, stato.piattaforma->Appunti());
}

bool GeneraLibrettoDaTesto(Stato& stato, Casistica& c, const QString& testo) {
    bool fatto = false;
    ConTrappola(stato, QStringLiteral("GeneraLibrettoDaList"), [&] {
        auto nessunDato = [&] {
            stato.piattaforma->Messaggio(kNessunDato, QStringLiteral("Tavolet"),
                                         Icona::Informazione);
        };
        if (Trim(testo).isEmpty()) return nessunDato();
        c.ListaGrezza.clear();
        c.ListaRighe.clear();
        c.RigheSpezzate.clear();
        c.RigheProposta.clear();
        c.RigheAParte.clear();

        // 1. Vertices as they stand, layer lines as their layer's name.
        for (const QString& grezza : RigheDiTesto(testo)) {
            const QString riga = Trim(grezza);
            if (EVertice(riga)) {
                c.ListaGrezza << riga;
                continue;
            }
            const QString maiuscola = UCase(riga);
            if (!maiuscola.contains(u"LAYER")) continue;
            for (const Layer& l : kLayer)
                if (maiuscola.contains(QLatin1String(l.nome))) {
                    c.ListaGrezza << QString::fromLatin1(l.nome);
                    break;
                }
        }
        c.ListaGrezza = SenzaDoppiVicini(c.ListaGrezza, true);

        // 2. Rows 8, numbered; a vertex seen before keeps its number.
        c.PuntoCorrente = 1;
        QString descrizione;
        QHash<QString, QString> numeriCoppie;
        for (const QString& voce : c.ListaGrezza) {
            const QString maiuscola = UCase(voce);
            for (const Layer& l : kLayer)
                if (maiuscola.contains(QLatin1String(l.nome))) {
                    c.ListaRighe << kBianco << QString::fromLatin1(l.nome);
                    descrizione = QString::fromUtf8(l.descrizione);
                }
            if (!EVertice(voce)) continue;
            QString pulita = voce;
            for (const char* via :
                 {"al punto  X=", "at point  X=", "Locazione:  X=", "  Z=   0.0000"})
                pulita = Replace(pulita, QString::fromLatin1(via), QString());
            pulita = Replace(pulita, QStringLiteral("  Y="), kBarra);
            const QStringList xy = Split(pulita, kBarra);
            const QString figura = QStringLiteral("###########.##0");
            const QString x = Replace(Formato(Val(xy.value(0)), figura), QStringLiteral(","),
                                      QStringLiteral("."));
            const QString y = Replace(Formato(Val(xy.value(1)), figura), QStringLiteral(","),
                                      QStringLiteral("."));
            const QString coppia = kBarra + y + kBarra + x + kBarra;
            // The pair can only stand in the coordinates of a row 8 (its values have a point,
            // a name has none), so the first row of each pair is kept aside.
            QString numero = numeriCoppie.value(coppia);
            if (numero.isEmpty()) {
                numero = QString::number(c.PuntoCorrente++);
                numeriCoppie.insert(coppia, numero);
            }
            c.ListaRighe << QStringLiteral("8|") + numero + coppia + descrizione + kBarra;
        }
        if (c.ListaRighe.size() < 2) return nessunDato();
        if (Trim(c.ListaRighe.first()).isEmpty()) c.ListaRighe.removeFirst();
        if (c.ListaRighe.isEmpty() || !Trim(c.ListaRighe.last()).isEmpty()) c.ListaRighe << kBianco;

        // 3. One row 6 and one row 7 for each outline.
        c.ListaGrezza.clear();
        QString layer, riga6, numeri;
        int quanti = 0;
        for (const QString& voce : c.ListaRighe) {
            const QString t = Trim(voce);
            bool eLayer = false;
            for (const Layer& l : kLayer)
                if (t == QLatin1String(l.nome)) {
                    layer = t;
                    riga6 = QString::fromLatin1(l.riga6);
                    eLayer = true;
                }
            if (eLayer) continue;
            if (t.isEmpty()) {
                // An outline without points (a layer named twice) makes no row.
                if (quanti > 0) {
                    if (!riga6.isEmpty()) c.ListaGrezza << riga6;
                    c.ListaGrezza << QStringLiteral("7|") + QString::number(quanti) + kBarra +
                                         numeri + layer + kBarra;
                }
                numeri.clear();
                quanti = 0;
                continue;
            }
            numeri += Split(voce, kBarra).value(1) + kBarra;
            ++quanti;
        }

        // 4. The rows 8 without adjoining doubles, then the outlines.
        c.ListaSette.clear();
        for (const QString& r : c.ListaRighe)
            if (ERiga8(r)) c.ListaSette << r;
        c.ListaSette = SenzaDoppiVicini(c.ListaSette, false);
        c.ListaRighe = c.ListaSette + c.ListaGrezza;

        for (const QString& r : c.ListaRighe)
            c.RigheSpezzate += TipoRiga(r) == 7 ? AvvolgiDieciPunti(r) : r + CRLF;
        c.RigheProposta = c.RigheSpezzate;

        // 5. The provisional extract, and its copy in Pregeo's extracts.
        stato.TagRoutine = QStringLiteral("GeneraLibrettoDaList_EMP");
        const QString provvisorio = ComponiEstrattoProvvisorio(c.RigheSpezzate);
        const QString estratti = stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\ESTRATTI\\");
        CreaCartella(stato.amb.CartellaLavoro + QStringLiteral("\\TEMP"));
        CreaCartella(estratti);
        ScriviTesto(PercorsoEstrattoProvvisorio(stato), provvisorio);
        CopiaFile(PercorsoEstrattoProvvisorio(stato),
                  estratti + QStringLiteral("ESTRATTOPROVVISORIO.EMP"));
        ScriviTesto(estratti + QStringLiteral("ESTRATTOPROVVISORIO.PNG"), kPngProvvisorio);

        // 6. The proposal: new points, porches and cellars apart, buildings closed and measured.
        stato.TagRoutine = QStringLiteral("GeneraLibrettoDaList_Proposta");
        c.ListaContorni.clear();
        c.ListaGrezza.clear();
        c.ListaSette.clear();
        for (const QString& r : c.ListaRighe) {
            if (TipoRiga(r) != 7) continue;
            if (r.contains(u"|RP|") || r.contains(u"|RT|")) {
                for (QString s : Split(AvvolgiDieciPunti(MarcaNuovi(r, 1)), CRLF))
                    if (!s.isEmpty()) c.ListaContorni << s;
            } else if (r.contains(u"|RC|")) {
                c.ListaSette << r;
            }
        }
        for (const QString& r : c.ListaSette) Genera7Completa(stato, c, r);
        for (const QString& r : c.ListaRighe) {
            if (!ERiga8(r)) continue;
            const QStringList f = Split(r, kBarra);
            c.ListaGrezza << QStringLiteral("8|") + f.value(1) + QStringLiteral("*|") + f.value(2) +
                                 kBarra + f.value(3) + kBarra;
        }
        for (const QString& r : c.ListaContorni) {
            if (r.contains(u"|RP|") || r.contains(u"|RT|"))
                c.RigheAParte += r + CRLF;
            else
                c.ListaGrezza << r;
        }
        QString proposta = Testo(c.ListaGrezza);
        SistemaProposta(stato, proposta, c.RigheAParte);
        c.ListaGrezza = Split(proposta, CRLF);
        if (!c.ListaGrezza.isEmpty() && c.ListaGrezza.last().isEmpty()) c.ListaGrezza.removeLast();
        const QString modesta = PercorsoModestaEntita(stato);
        QByteArray vecchio;
        if (EsisteFile(modesta)) vecchio = LeggiByte(modesta);
        ScriviByte(modesta, vecchio + AWindows1252(Testo(c.ListaGrezza) + c.RigheAParte));

        SistemaModestaEntita(stato, c);
        fatto = true;
    });
    return fatto;
}

} // namespace tavolet
