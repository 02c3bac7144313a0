// Stage 6 of the generation: the contours of the parcels as rows 7, and the vertex rows.
#include "genera.h"

#include "libretto.h"

namespace tavolet {

namespace {

bool Marcatore(const QString& nome) {
    return Val(nome) == 0 && !nome.startsWith(QStringLiteral("PF"));
}

bool TipoSenzaRighe7(const QString& tipo) {
    static const QStringList esatti = {QStringLiteral("COGO"),
                                       QStringLiteral("LIVELLAZIONE DAL MEZZO"),
                                       QStringLiteral("LIVELLAZIONE RAGGIANTE"),
                                       QStringLiteral("SQUADRO"),
                                       QStringLiteral("PD"),
                                       QStringLiteral("PV")};
    return UCase(tipo) == u"POLIGONALE" || esatti.contains(tipo);
}

// The names of a contour: the split at bars without its first and last empty pieces.
QStringList NomiContorno(const QString& punti) {
    QStringList nomi = Split(punti, kBarra);
    if (!nomi.isEmpty() && nomi.first().isEmpty()) nomi.removeFirst();
    if (!nomi.isEmpty() && nomi.last().isEmpty()) nomi.removeLast();
    return nomi;
}

// Steps 5 to 8 for one contour: the rows of its names, with the markers that close them.
QStringList RigheContorno(const QStringList& nomi, const QString& extra) {
    int n = 0;
    for (const QString& nome : nomi)
        if (Val(nome) > 0 || nome.startsWith(QStringLiteral("PF"))) ++n;
    QStringList pendenti;
    QString riga = QStringLiteral("7|") + QString::number(n) + kBarra;
    for (const QString& nome : nomi) {
        riga += nome + kBarra;
        if (Marcatore(nome)) {
            pendenti << riga + kBarra;
            riga = QStringLiteral("7|0|");
        }
    }
    if (riga.size() > 5) pendenti << riga;

    QStringList righe;
    for (const QString& pendente : pendenti) {
        const RigaScomposta r = ScomponiRiga(pendente);
        int conta = r.NumeroCampi;
        QString trattenuto;
        if (conta >= 1 && Marcatore(r.Campo(conta))) {
            trattenuto = r.Campo(conta) + kBarra;
            --conta;
        }
        QString nuova = QStringLiteral("7|");
        int contatore = 0;
        for (int i = 1; i <= conta; ++i) {
            if (contatore + 1 == 12) {
                nuova += trattenuto;
                if (!extra.isEmpty()) nuova += extra + kBarra;
                righe << nuova;
                nuova = QStringLiteral("7|0|");
                contatore = 2;
                nuova += r.Campo(i) + kBarra;
                continue;
            }
            ++contatore;
            nuova += r.Campo(i) + kBarra;
        }
        nuova += trattenuto;
        if (!extra.isEmpty() && !nuova.startsWith(QStringLiteral("7|0|"))) nuova += extra + kBarra;
        righe << nuova;
    }
    return righe;
}

} // namespace

void GeneraRighe7(Stato& stato, LavoroGenerazione& g) {
    const Disegno& d = g.disegno;
    if (g.opzioni.Mantieni3_7) {
        g.rapporto << QStringLiteral("Mantiene Righe 7 del Disegno");
        QStringList commenti;
        for (const QString& riga : g.righeLibretto) {
            const int tipo = TipoRiga(riga);
            if (tipo == 6 && riga.size() <= 43) commenti << riga;
            if (tipo == 7) {
                g.appoggio << commenti << riga;
                commenti.clear();
            }
        }
        g.uscita << g.appoggio;
        g.appoggio.clear();
    } else {
        g.rapporto << QStringLiteral("Carica Righe 7 dal Disegno");
        for (int c = 0; c < d.ContorniDisegno.size(); ++c) {
            const ContornoDisegno& contorno = d.ContorniDisegno[c];
            if (Trim(contorno.tipo).isEmpty()) continue;
            const QString extra = Replace(contorno.extra, QStringLiteral("__"), QString());
            if (!TipoSenzaRighe7(contorno.tipo)) {
                const bool duplicato = c > 0 && g.opzioni.CommentiDuplicati &&
                                       Trim(contorno.tipo) == Trim(d.ContorniDisegno[c - 1].tipo);
                if (!duplicato) g.uscita << QStringLiteral("6|") + contorno.tipo + kBarra;
                g.appoggio << RigheContorno(NomiContorno(contorno.punti), extra);
            }
            g.uscita << g.appoggio;
            g.appoggio.clear();
        }
        // A row "7|0|MAPPALE ..." gives its number and letter to the row before it.
        for (int i = int(g.uscita.size()) - 1; i >= 1; --i) {
            const QString riga = g.uscita[i];
            if (!riga.contains(QStringLiteral("7|0|MAPPALE"))) continue;
            g.uscita.removeAt(i);
            g.uscita[i - 1] += Replace(Mid(riga, 13), QStringLiteral(" "), kBarra);
        }
        QStringList vertici;
        for (const PuntoDisegno& p : d.PuntiDisegno) {
            if (UCase(p.nome).startsWith(QStringLiteral("PF"))) continue;
            if (p.note.contains(QStringLiteral("<PV>")))
                vertici << QStringLiteral("7|1|") + p.nome + QStringLiteral("|PV|");
            if (p.note.contains(QStringLiteral("<PD>")))
                vertici << QStringLiteral("7|1|") + p.nome + QStringLiteral("|PD|");
        }
        for (const ContornoDisegno& contorno : d.ContorniDisegno)
            if (contorno.tipo == u"PD" || contorno.tipo == u"PV")
                vertici << QStringLiteral("7|1") + contorno.punti + contorno.tipo + kBarra;
        if (!vertici.isEmpty()) g.uscita << QStringLiteral("6|PUNTI VERTICE|") << vertici;
    }
    for (int i = int(g.uscita.size()) - 1; i >= 1; --i)
        if (g.uscita[i] == g.uscita[i - 1]) g.uscita.removeAt(i);
    stato.TagRoutine = QStringLiteral("GeneraLibrettoAutomatico1");
}

} // namespace tavolet
