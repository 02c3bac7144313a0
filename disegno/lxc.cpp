#include "lxc.h"

#include "libretto.h"
#include "misurate.h"

namespace tavolet {

Disegno LeggiLxc(const QString& testo) {
    Disegno d;
    for (const QString& grezza : RigheDiTesto(testo)) {
        const QString riga = Trim(grezza);
        if (riga.isEmpty() || !riga.contains(u',')) continue;
        const QStringList c = Split(riga + QStringLiteral(",,,,"), QStringLiteral(","));
        const QString tipo = c[0];
        if (tipo == u"P") {
            PuntoDisegno p;
            p.nome = c.value(1);
            p.X = Val(c.value(2));
            p.Y = Val(c.value(3));
            p.Z = Val(c.value(4));
            p.note = c.value(5);
            p.H = Val(c.value(6));
            d.PuntiDisegno.append(p);
        } else if (tipo == u"L") {
            d.LineeDisegno.append({Val(c.value(1)), Val(c.value(2)), Val(c.value(3)),
                                   Val(c.value(4)), Val(c.value(5)), Val(c.value(6))});
        } else if (tipo == u"7") {
            d.ContorniDisegno.append({c.value(1), c.value(2), c.value(3)});
        }
    }
    d.Indicizza();
    return d;
}

QString NomeFileLxc(const QString& percorso) {
    QString nome = UCase(percorso);
    if (Right(nome, 4) != u".LXC") nome += QStringLiteral(".LXC");
    return nome;
}

Disegno CaricaGrafica(Stato& stato, const QString& percorso) {
    Disegno d;
    ConTrappola(stato, QStringLiteral("CaricaGrafica"), [&] {
        const QString nome = NomeFileLxc(percorso);
        if (!EsisteFile(nome)) {
            stato.piattaforma->Messaggio(nome + CRLF + QStringLiteral("Non Trovato!"),
                                         QStringLiteral("Libretto da Disegno"), Icona::Avviso);
            return;
        }
        d = LeggiLxc(LeggiTesto(nome));
    });
    return d;
}

QStringList CalcolaMisuratePFDelDisegno(Stato& stato, const QString& percorso) {
    const Disegno d = CaricaGrafica(stato, percorso);
    QList<PuntoPF> punti;
    for (const PuntoDisegno& p : d.PuntiDisegno) punti.append({p.nome, p.X, p.Y});
    return CalcolaMisuratePF(stato, punti);
}

void Disegno::Indicizza() {
    indiceNomi.clear();
    indiceNomi.reserve(PuntiDisegno.size());
    for (int i = 0; i < PuntiDisegno.size(); ++i)
        if (!indiceNomi.contains(PuntiDisegno[i].nome)) indiceNomi.insert(PuntiDisegno[i].nome, i);
    puntiIndicizzati = PuntiDisegno.size();
}

int TrovaPuntoDisegno(const Disegno& d, const QString& nome) {
    if (d.puntiIndicizzati == d.PuntiDisegno.size()) return d.indiceNomi.value(nome, -1);
    for (int i = 0; i < d.PuntiDisegno.size(); ++i)
        if (d.PuntiDisegno[i].nome == nome) return i;
    return -1;
}

} // namespace tavolet
