// The checks on the rows alone: the grammar Pregeo reads, the head's fields, the geometry the
// outlines need, the censuary model and what the save options warn about.
#include "controllo.h"
#include "controllo_interno.h"

#include "configurazione.h"
#include "righe.h"
#include "righe_censuarie.h"
#include "testo.h"

#include <QHash>
#include <QSet>

#include <cmath>

namespace tavolet {

namespace controllo {

bool Numero(QStringView s, bool intero) {
    s = s.trimmed();
    qsizetype i = 0;
    if (i < s.size() && (s[i] == u'-' || s[i] == u'+')) ++i;
    int cifre = 0, punti = 0;
    for (; i < s.size(); ++i) {
        if (s[i] >= u'0' && s[i] <= u'9')
            ++cifre;
        else if (s[i] == u'.' && !intero && ++punti == 1)
            continue;
        else
            return false;
    }
    return cifre > 0;
}

void Aggiungi(QList<Rilievo>& r, const char* codice, bool errore, int riga,
              const QString& messaggio) {
    r.append({QString::fromLatin1(codice), errore ? kErrore : kAvviso, riga, messaggio});
}

QString Virgolette(QStringView valore) {
    return QStringLiteral("\"") + valore.toString() + QStringLiteral("\"");
}

// A point's name without the working marks the generator and the operator leave on it.
QString NomePunto(QStringView campo) {
    QString nome = campo.toString();
    if (nome.contains(u'<')) PulisciRigaMarche(nome);
    return Trim(nome);
}

} // namespace controllo

using namespace controllo;

namespace {

struct Campi {
    std::vector<QStringView> v;
    QStringView operator[](size_t i) const { return i < v.size() ? v[i] : QStringView(); }
    size_t size() const { return v.size(); }
};

void Grammatica(QList<Rilievo>& r, const QString& riga, int n, const Campi& c) {
    for (QChar ch : riga)
        if (ch.unicode() >= 0x80 && CodiceWindows1252(ch.unicode()) < 0) {
            Aggiungi(r, "CARATTERE", true, n,
                     QStringLiteral("Il carattere %1 (U+%2) non esiste in Windows-1252: al "
                                    "salvataggio diventa \"?\"")
                         .arg(Virgolette(QString(ch)))
                         .arg(int(ch.unicode()), 4, 16, QChar(u'0')));
            break;
        }
    const QStringView tipo = c[0].trimmed();
    if (tipo.size() != 1 || !tipo[0].isDigit() || tipo[0].unicode() > u'9')
        Aggiungi(r, "TIPO", true, n,
                 QStringLiteral("Tipo di riga %1 non valido: il primo campo deve essere una "
                                "cifra da 0 a 9")
                     .arg(Virgolette(Left(riga, 12))));
    if (!RTrim(riga).endsWith(u'|'))
        Aggiungi(r, "BARRA", true, n, QStringLiteral("La riga non termina con la barra verticale"));
}

void Testata0(QList<Rilievo>& r, int n, const Campi& c) {
    const QStringView data = c[1];
    bool cifre = data.size() == 8 && Numero(data, true) && data[0].isDigit();
    const QDate giorno =
        cifre ? QDate(data.mid(4, 4).toInt(), data.mid(2, 2).toInt(), data.mid(0, 2).toInt())
              : QDate();
    if (!giorno.isValid())
        Aggiungi(r, "DATA", true, n,
                 QStringLiteral("Data del libretto %1 non valida: attesa una data reale "
                                "ggmmaaaa")
                     .arg(Virgolette(data)));
    const QString protocollo = c[2].toString();
    const bool numerico = Numero(protocollo, true) && protocollo[0].isDigit();
    if (!numerico)
        Aggiungi(r, "PROTOCOLLO", true, n,
                 QStringLiteral("Protocollo %1 non numerico").arg(Virgolette(protocollo)));
    else if (ProtocolloNonNumerico(protocollo))
        Aggiungi(r, "PROTOCOLLO_ZERO", false, n,
                 QStringLiteral("Protocollo %1 minore di 1: \"Avvisa Protocollo NON Numerico\"")
                     .arg(Virgolette(protocollo)));
    if (c[4].size() != 4)
        Aggiungi(r, "FOGLIO", true, n,
                 QStringLiteral("Foglio %1 di %2 caratteri: ne vuole 4 (foglio + allegato)")
                     .arg(Virgolette(c[4]))
                     .arg(c[4].size()));
    const QString mappali = c[5].toString();
    bool lista = !mappali.isEmpty();
    for (const QString& m : Split(mappali, QStringLiteral(","))) {
        bool ok = !m.isEmpty();
        for (QChar ch : m) ok = ok && ch.unicode() < 128 && ch.isLetterOrNumber();
        lista = lista && ok;
    }
    if (!lista)
        Aggiungi(r, "MAPPALI", true, n,
                 QStringLiteral("Mappali %1: attesi numeri di particella separati da virgole")
                     .arg(Virgolette(mappali)));
}

void Testata9(QList<Rilievo>& r, int n, const Campi& c) {
    static const char* const nomi[] = {"", "quota media", "precisione lineare",
                                       "precisione angolare", "est medio"};
    for (int i = 1; i <= 4; ++i)
        if (!Numero(c[i], true))
            Aggiungi(r, "RIGA9", true, n,
                     QStringLiteral("Riga 9, %1 %2: atteso un numero intero")
                         .arg(QString::fromLatin1(nomi[i]), Virgolette(c[i])));
}

void Misure(QList<Rilievo>& r, int tipo, int n, const Campi& c) {
    auto numero = [&](size_t i, const char* nome) {
        if (!Numero(c[i], false))
            Aggiungi(r, tipo == 8 ? "COORDINATE" : "MISURA", true, n,
                     QStringLiteral("Riga %1 del punto %2, %3 %4: atteso un numero")
                         .arg(tipo)
                         .arg(Virgolette(c[1]), QString::fromLatin1(nome), Virgolette(c[i])));
    };
    if (tipo == 2 && !c[2].contains(u',')) {
        numero(2, "angolo orizzontale");
        numero(3, "secondo valore (zenitale o distanza)");
        // A fourth field that starts like a number is one; a note starts otherwise.
        const QStringView q = c[4];
        if (!q.isEmpty() && (q[0].isDigit() || q[0] == u'-' || q[0] == u'.')) numero(4, "distanza");
    } else if (tipo == 4 || tipo == 5) {
        numero(2, "distanza");
    } else if (tipo == 8) {
        numero(2, "nord");
        numero(3, "est");
    }
}

// An outline: its count against the points of the row and of its "7|0|" continuations.
struct Contorno {
    int riga = 0, conta = 0, punti = 0;
    QString tipo;
};

void ChiudiContorno(QList<Rilievo>& r, Contorno& k) {
    if (k.riga > 0 && k.conta != k.punti)
        Aggiungi(r, "SETTE_CONTA", true, k.riga,
                 QStringLiteral("Contorno di %1 punti dichiarati ma %2 elencati")
                     .arg(k.conta)
                     .arg(k.punti));
    k = {};
}

void Sette(QList<Rilievo>& r, const QString& riga, int n, const Campi& c, Contorno& k,
           QStringList& nomi) {
    // The working marks go before the split: the P of "<P!>" would close the points.
    QString pulita = riga;
    if (pulita.contains(u'<')) PulisciRigaMarche(pulita);
    const RigaScomposta s = ScomponiRiga(pulita);
    const bool seguito = Val(c[1]) == 0;
    const QString tipo = s.Campo(2 + s.NumeroPunti);
    if (!seguito) {
        ChiudiContorno(r, k);
        k = {n, int(Val(c[1])), 0, tipo};
    } else if (k.riga == 0) {
        Aggiungi(r, "SETTE_SEGUITO", true, n,
                 QStringLiteral("Riga di seguito \"7|0|\" senza un contorno che la apra"));
    }
    k.punti += s.NumeroPunti;
    if (s.NumeroPunti > 10)
        Aggiungi(r, "SETTE_DIECI", true, n,
                 QStringLiteral("%1 punti su una riga 7: al massimo 10, gli altri su righe "
                                "\"7|0|\"")
                     .arg(s.NumeroPunti));
    // A line without a type code (a dividing line of the generator) is one Pregeo takes.
    if (seguito && k.riga > 0 && tipo != k.tipo)
        Aggiungi(r, "SETTE_TIPO", true, n,
                 QStringLiteral("Codice di tipo %1 diverso da %2 della riga %3")
                     .arg(Virgolette(tipo), Virgolette(k.tipo))
                     .arg(k.riga));
    for (int i = 0; i < s.NumeroPunti; ++i) nomi << NomePunto(s.Campo(2 + i));
}

// Areas, counts and identifiers of the censuary model.
void Censuario(QList<Rilievo>& r, const QStringList& righe) {
    static const QStringList prefissi = {"6|O|",     "6|S|",     "6|C|",    "6|V|",
                                         "6|51FTP|", "6|3SPC |", "6|M31FU|"};
    QHash<QString, int> identificativi;
    int testa = -1, contate = 0;
    QString modello;
    // The parent of a frazionamento and what its derived rows add up to.
    int origine = -1, derivate = 0;
    double area = 0, somma = 0;
    auto chiudiOrigine = [&] {
        if (origine >= 0 && derivate > 0 && std::fabs(somma - area) * 2 > derivate)
            Aggiungi(r, "CEN_AREE", true, origine + 1,
                     QStringLiteral("Frazionamento del mappale %1: le derivate sommano %2 mq, "
                                    "l'originale %3 mq")
                         .arg(Virgolette(Trim(Mid(righe[origine], 5, 5))))
                         .arg(somma, 0, 'f', 0)
                         .arg(area, 0, 'f', 0));
        origine = -1;
        derivate = 0;
        somma = 0;
    };
    auto chiudiTesta = [&] {
        chiudiOrigine();
        if (testa >= 0 && int(Val(Mid(righe[testa], 9, 3))) != contate)
            Aggiungi(r, "CEN_CONTA", true, testa + 1,
                     QStringLiteral("Testa del modello %1: conta %2 ma le righe che seguono "
                                    "sono %3")
                         .arg(Virgolette(Trim(Mid(righe[testa], 3, 5))),
                              Virgolette(Mid(righe[testa], 9, 3)))
                         .arg(contate));
        testa = -1;
        contate = 0;
    };
    for (int i = 0; i < righe.size(); ++i) {
        const QString& riga = righe[i];
        if (!riga.startsWith(u'6')) {
            chiudiTesta();
            continue;
        }
        bool modellare = false;
        for (const QString& p : prefissi) modellare = modellare || riga.startsWith(p);
        if (modellare && riga.size() != kLunghezzaRigaCensuaria)
            Aggiungi(r, "CEN_LUNGHEZZA", true, i + 1,
                     QStringLiteral("Riga del modello censuario di %1 caratteri: ne vuole %2")
                         .arg(riga.size())
                         .arg(kLunghezzaRigaCensuaria));
        if (!RigaCensuaria(riga)) {
            chiudiTesta();
            continue;
        }
        const QString op = Mid(riga, 3, 1);
        if (riga.startsWith(kTitoloCensuario.left(20))) {
            chiudiTesta();
        } else if (Mid(riga, 8, 1) == u"|" && Mid(riga, 12, 1) == u"|" &&
                   !QStringLiteral("OSCV").contains(op)) {
            chiudiTesta();
            testa = i;
            modello = Mid(riga, 3, 5);
        } else {
            if (testa >= 0) ++contate;
            const double superficie = Val(Mid(riga, 24, 9));
            if (op == u"O") {
                chiudiOrigine();
                if (modello == kModelloFrazionamento) origine = i, area = superficie;
            } else if ((op == u"C" || op == u"V") && origine >= 0) {
                ++derivate;
                somma += superficie;
            }
            const QString id = Trim(Mid(riga, 18, 5));
            if (op == u"C" && !id.isEmpty()) {
                if (identificativi.contains(id))
                    Aggiungi(r, "CEN_ID", true, i + 1,
                             QStringLiteral("Identificativo %1 già dato alla riga %2")
                                 .arg(Virgolette(id))
                                 .arg(identificativi[id]));
                else
                    identificativi.insert(id, i + 1);
            }
        }
    }
    chiudiTesta();
}

} // namespace

QList<Rilievo> ControllaRighe(const QStringList& righe) {
    QList<Rilievo> r;
    QSet<QString> noti; // points observed, stations, points with coordinates
    struct Otto {
        int riga;
        double nord, est;
    };
    QHash<QString, Otto> coordinate;
    QList<std::pair<int, QStringList>> contorni;
    Contorno contorno;
    int stazione = 0; // the row 1 still waiting for an observation
    bool osservata = false, relazione = false, modello = false;
    int zeri = 0, nove = 0;
    auto chiudiStazione = [&] {
        if (stazione > 0 && !osservata)
            Aggiungi(
                r, "STAZIONE_VUOTA", true, stazione,
                QStringLiteral("Stazione %1 senza osservazioni (righe 2) dopo di essa")
                    .arg(Virgolette(Split(righe[stazione - 1], QStringLiteral("|")).value(1))));
        stazione = 0;
    };
    Campi c;
    for (int i = 0; i < righe.size(); ++i) {
        const QString& riga = righe[i];
        const int n = i + 1;
        SplitVista(riga, u'|', c.v);
        Grammatica(r, riga, n, c);
        const QStringView primo = c[0].trimmed();
        const int tipo = primo.size() == 1 && primo[0].isDigit() ? primo[0].digitValue() : -1;
        if (tipo != 7) ChiudiContorno(r, contorno);
        if (tipo == 1) chiudiStazione();
        switch (tipo) {
        case 0:
            if (++zeri > 1 || i != 0)
                Aggiungi(
                    r, "RIGA0", true, n,
                    QStringLiteral("Riga 0 al posto %1: dev'essere una sola, la prima").arg(n));
            Testata0(r, n, c);
            break;
        case 9:
            if (++nove > 1 || i != 1)
                Aggiungi(
                    r, "RIGA9", true, n,
                    QStringLiteral("Riga 9 al posto %1: dev'essere una sola, la seconda").arg(n));
            Testata9(r, n, c);
            break;
        case 1:
            stazione = n;
            osservata = false;
            noti.insert(NomePunto(c[1]));
            break;
        case 2:
            osservata = true;
            [[fallthrough]];
        case 4:
        case 5:
            noti.insert(NomePunto(c[1]));
            Misure(r, tipo, n, c);
            break;
        case 3:
            for (size_t k = 1; k < c.size(); ++k)
                if (!c[k].trimmed().isEmpty()) noti.insert(NomePunto(c[k]));
            break;
        case 6:
            // The Proposta is the updated map: its rows 8 are in the map's frame, not the
            // survey's, and are compared among themselves.
            if (riga == u"6|ESTRATTO DI MAPPA|") coordinate.clear();
            relazione = relazione || riga.contains(kRelazioneTecnica);
            modello = modello || RigaCensuaria(riga);
            break;
        case 7: {
            QStringList nomi;
            Sette(r, riga, n, c, contorno, nomi);
            contorni.append({n, nomi});
            break;
        }
        case 8: {
            // A height row: "8|name|height|reliability|reference|", the reliability a code of
            // two digits where a row of coordinates has its east.
            if (c[3].size() <= 2 && Numero(c[3], true)) {
                if (!Numero(c[2], false))
                    Aggiungi(r, "COORDINATE", true, n,
                             QStringLiteral("Riga 8 della quota di %1: quota %2 non numerica")
                                 .arg(Virgolette(c[1]), Virgolette(c[2])));
                break;
            }
            Misure(r, tipo, n, c);
            const QString nome = NomePunto(c[1]);
            if (!Numero(c[2], false) || !Numero(c[3], false)) break;
            noti.insert(nome);
            const Otto o{n, Val(c[2]), Val(c[3])};
            const auto gia = coordinate.constFind(nome);
            if (gia == coordinate.constEnd())
                coordinate.insert(nome, o);
            else if (std::fabs(gia->nord - o.nord) > 0.0005 || std::fabs(gia->est - o.est) > 0.0005)
                Aggiungi(r, "DOPPIO_8", true, n,
                         QStringLiteral("Punto %1 con coordinate %2 %3 diverse da quelle della "
                                        "riga %4 (%5 %6)")
                             .arg(Virgolette(nome), c[2].toString(), c[3].toString())
                             .arg(gia->riga)
                             .arg(gia->nord, 0, 'f', 3)
                             .arg(gia->est, 0, 'f', 3));
            break;
        }
        default:
            break;
        }
    }
    ChiudiContorno(r, contorno);
    chiudiStazione();
    if (righe.isEmpty() || zeri == 0)
        Aggiungi(r, "RIGA0", true, 0, QStringLiteral("Manca la riga 0, la testata del libretto"));
    if (nove == 0)
        Aggiungi(r, "RIGA9", true, 0, QStringLiteral("Manca la riga 9, seconda della testata"));
    for (const auto& [n, nomi] : contorni)
        for (const QString& nome : nomi)
            if (!noti.contains(nome))
                Aggiungi(r, "PUNTO_IGNOTO", true, n,
                         QStringLiteral("Il punto %1 del contorno non è osservato né ha una "
                                        "riga 8")
                             .arg(Virgolette(nome)));
    Censuario(r, righe);
    if (!relazione)
        Aggiungi(r, "RELAZIONE", false, 0,
                 QStringLiteral("Manca la Relazione Tecnica: \"Avvisa Assenza Relazione "
                                "Tecnica\""));
    if (!modello)
        Aggiungi(r, "MODELLO", false, 0,
                 QStringLiteral("Manca il modello censuario: \"Avvisa Assenza Modello "
                                "Censuario\""));
    return r;
}

} // namespace tavolet
