// The four ways out of the plot: DXF, the print file, the HTML page, the CAD transfer file.
#include "grafica.h"

#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "stato.h"
#include "testo.h"

#include <cmath>
#include <functional>

namespace tavolet {

namespace {

QString Figura(double v, const char* figura) {
    return Replace(Formato(v, QString::fromLatin1(figura)), QStringLiteral(","),
                   QStringLiteral("."));
}

QString LetteraStile(int stile) {
    switch (stile) {
    case 0:
        return QStringLiteral("C");
    case 1:
        return QStringLiteral("T");
    case 2:
        return QStringLiteral("P");
    default:
        return {};
    }
}

QString Virgolette(const QString& s) {
    return u'"' + s + u'"';
}

bool Scrivi(Stato& stato, const QString& tag, const QString& percorso,
            const std::function<QString()>& componi) {
    return ConTrappola(stato, tag, [&] {
        const QString testo = componi();
        CreaCartella(CartellaDel(percorso));
        ScriviTesto(percorso, testo);
    });
}

} // namespace

// ---- DXF ----

QString TestoDXF(const ModelloGrafica& g) {
    QStringList r;
    r.reserve(16 + g.Linee.size() * 14 + g.Punti.size() * 24);
    r << " 0"
      << "SECTION"
      << " 2"
      << "ENTITIES";
    const PuntoGrafica zero = g.Punto(0);
    for (const char* strato :
         {"LINEE_SCHEMA", "LINEE_TRIANGOLO", "LINEE_ESTRATTO", "LINEE_RC", "LINEE_RT", "LINEE_RP",
          "LINEE_NC", "LINEE_NP", "LINEE_NT", "PUNTI_Q", "PUNTI_D", "PUNTI_HPS"})
        r << " 0"
          << "POINT"
          << " 8" << QString::fromLatin1(strato) << " 10" << CStr(zero.X) << " 20" << CStr(zero.Y);
    QString strato;
    for (const LineaGrafica& l : g.Linee) {
        if (l.Colore == 0)
            strato = QStringLiteral("LINEE_N");
        else if (l.Colore == 9)
            strato = QStringLiteral("LINEE_B");
        else if (l.Colore == 12)
            strato = QStringLiteral("LINEE_R");
        strato += LetteraStile(l.Stile);
        r << " 0"
          << "LINE"
          << " 8" << strato << " 62" << QString::number(l.Colore) << " 10" << CStr(l.X1) << " 20"
          << CStr(l.Y1) << " 11" << CStr(l.X2) << " 21" << CStr(l.Y2);
    }
    for (const PuntoGrafica& p : g.Punti) {
        if (p.Nome.startsWith(u' ') && g.Vista->NomiNo) continue;
        r << " 0"
          << "POINT"
          << " 8"
          << "PUNTI_S"
          << " 62" << QString::number(p.Colore) << " 10" << CStr(p.X) << " 20" << CStr(p.Y);
        r << " 0"
          << "TEXT"
          << " 8"
          << "PUNTI_N"
          << " 10" << CStr(p.X) << " 20" << CStr(p.Y) << " 62" << QString::number(p.Colore) << " 40"
          << "1"
          << " 1" << p.Nome;
    }
    r << "  0"
      << "ENDSEC"
      << "  0"
      << "EOF";
    return r.join(CRLF) + CRLF;
}

QString PercorsoDXF(const Stato& stato) {
    return stato.amb.CartellaProgramma + QStringLiteral("\\GraficaPF.DXF");
}

bool BV_SalvaDXF(Stato& stato, const ModelloGrafica& g, const QString& percorso) {
    return Scrivi(stato, QStringLiteral("BV_SalvaDXF"),
                  percorso.isEmpty() ? PercorsoDXF(stato) : percorso, [&] { return TestoDXF(g); });
}

// ---- Print file ----

QString TestoStampa(const ModelloGrafica& g) {
    const double cx = g.Vista->CentroX, cy = g.Vista->CentroY;
    QString testo;
    auto riga = [&](const QStringList& campi) {
        QString r = campi.join(u'|');
        r = Replace(r, QStringLiteral(","), QStringLiteral("."));
        r = Replace(r, QStringLiteral("|"), QStringLiteral(","));
        testo += r + CRLF;
    };
    for (const LineaGrafica& l : g.Linee)
        riga({"L", Figura(l.X1 - cx, "##########0.000"), Figura(l.Y1 - cy, "##########0.000"),
              Figura(l.X2 - cx, "##########0.000"), Figura(l.Y2 - cy, "##########0.000"),
              QString::number(l.Colore), CStr(l.Spessore / 10.0)});
    for (const PuntoGrafica& p : g.Punti)
        riga({"C", Figura(p.X - cx, "#########0.000"), Figura(p.Y - cy, "#########0.000"), "1",
              QString::number(p.Colore), ".01"});
    for (const PuntoGrafica& p : g.Punti)
        riga({"T", p.Nome, Figura(p.X - cx, "#########0.000"), Figura(p.Y - cy, "#########0.000"),
              "Courier New", CStr(p.Dimensione), QString::number(p.Colore)});
    return testo;
}

QString PercorsoStampa(const Stato& stato) {
    return stato.amb.CartellaProgramma + QStringLiteral("\\Stampe.TXT");
}

bool GeneraStampa(Stato& stato, const ModelloGrafica& g, const QString& percorso) {
    return Scrivi(stato, QStringLiteral("GeneraStampa"),
                  percorso.isEmpty() ? PercorsoStampa(stato) : percorso,
                  [&] { return TestoStampa(g); });
}

// ---- HTML page ----

QString TestoHTML5(const ModelloGrafica& g) {
    const double altezza = AltezzaEffettiva(*g.Vista);
    const double k = std::floor(1000 / altezza);
    const double cx = g.Vista->CentroX, cy = g.Vista->CentroY;
    auto cX = [&](double x) { return Trim(Figura((x - cx) * k + 500, "##########0.000")); };
    auto cY = [&](double y) { return Trim(Figura((y - cy) * k * -1 + 500, "##########0.000")); };
    QStringList r;
    r << "<!DOCTYPE HTML>"
      << "<html>"
      << "  <body>";
    r << "  <canvas id=\"myCanvas\" width=\"1000\" height=\"1000\"style=\"border:2px solid "
         "#c3c3c3;\"></canvas>";
    r << "    <script>"
      << "      var canvas = document.getElementById('myCanvas');"
      << "      var context = canvas.getContext('2d');";
    r << "    context.strokeStyle = \"red\";";
    for (const PuntoGrafica& p : g.Punti)
        r << "context.beginPath();"
          << "context.arc(" + cX(p.X) + "," + cY(p.Y) + ",2, 0, 2*Math.PI, false);"
          << "context.fillStyle = '#333';"
          << "context.fill();";
    r << "    context.strokeStyle = \"green\";"
      << "     context.stroke();";
    for (const LineaGrafica& l : g.Linee) {
        r << "      context.moveTo(" + cX(l.X1) + ", " + cY(l.Y1) + ");"
          << "      context.lineTo(" + cX(l.X2) + ", " + cY(l.Y2) + ");"
          << " context.lineWidth  = " + QString::number(l.Spessore) + ";";
        r << QStringLiteral("    context.strokeStyle = \"%1\";")
                 .arg(l.Colore == 0 ? QStringLiteral("black") : QStringLiteral("red"));
        if (l.Stile == 1)
            r << "context.setLineDash([5]);";
        else if (l.Stile == 2)
            r << "context.setLineDash([2]);";
        r << "     context.stroke();"
          << "     context.beginPath();";
    }
    r << "     context.stroke();"
      << "context.font = '14px Courier New';"
      << "context.fillStyle = 'red';";
    auto nome = [&](const PuntoGrafica& p) {
        return "context.fillText('" + p.Nome + "'," + cX(p.X) + "," + cY(p.Y) + ");";
    };
    if (!g.Vista->NomiNo)
        for (const PuntoGrafica& p : g.Punti)
            if (!p.Nome.startsWith(u' ')) r << nome(p);
    for (const PuntoGrafica& p : g.Punti) r << nome(p);
    r << "     context.stroke();"
      << "   </script>"
      << " </body>"
      << "</html>";
    return r.join(CRLF) + CRLF;
}

QString PercorsoHTML(const Stato& stato) {
    return stato.amb.CartellaProgramma + QStringLiteral("\\Stampe.HTML");
}

bool GeneraHTML5_CANVAS(Stato& stato, const ModelloGrafica& g, const QString& percorso, bool apri) {
    const QString dove = percorso.isEmpty() ? PercorsoHTML(stato) : percorso;
    if (!Scrivi(stato, QStringLiteral("GeneraHTML5_CANVAS"), dove, [&] { return TestoHTML5(g); }))
        return false;
    if (apri) stato.piattaforma->ApriConProgramma(dove);
    return true;
}

// ---- Transfer to the CAD program ----

QString SalvaPuntoCopiaInFile(const QString& tipo, const PuntoGrafica& p, const QString& strato) {
    return QStringList{Virgolette(tipo),
                       Virgolette(p.Nome),
                       CStr(p.X),
                       CStr(p.Y),
                       CStr(p.Z),
                       Virgolette(p.Testo),
                       QString::number(p.Colore),
                       CStr(p.Angolo),
                       Virgolette(p.Font),
                       CStr(p.Dimensione),
                       Virgolette(strato)}
               .join(u',') +
           CRLF;
}

QString SalvaLineaCopiaInFile(const QString& tipo, const LineaGrafica& l, const QString& strato) {
    return QStringList{Virgolette(tipo),
                       CStr(l.X1),
                       CStr(l.Y1),
                       CStr(l.Z1),
                       CStr(l.X2),
                       CStr(l.Y2),
                       CStr(l.Z2),
                       QString::number(l.Colore),
                       QString::number(l.Spessore),
                       QString::number(l.Stile),
                       Virgolette(strato)}
               .join(u',') +
           CRLF;
}

QString TestoCopiaInFile(const ModelloGrafica& g) {
    QString testo;
    for (const LineaGrafica& l : g.Linee) {
        const QString colore = l.Colore == 0   ? QStringLiteral("N")
                               : l.Colore == 9 ? QStringLiteral("B")
                                               : QStringLiteral("R");
        testo += SalvaLineaCopiaInFile(QStringLiteral("L"), l, colore + LetteraStile(l.Stile));
    }
    for (const PuntoGrafica& p : g.Punti)
        testo += SalvaPuntoCopiaInFile(QStringLiteral("P"), p, QStringLiteral("PUNTI"));
    return testo;
}

QString ApriCopiaInfile(const Stato& stato) {
    const QString bravanta = stato.amb.CartellaDocumenti + QStringLiteral("\\Bravanta");
    if (EsisteFile(bravanta + QStringLiteral("\\Bravanta.EXE")))
        return bravanta + QStringLiteral("\\temp\\CopiaInFile.TXT");
    return stato.amb.CartellaProgramma + QStringLiteral("\\temp\\CopiaInFile.TXT");
}

bool BV_CopiaInFile(Stato& stato, const ModelloGrafica& g, const QString& percorso) {
    const QString dove = percorso.isEmpty() ? ApriCopiaInfile(stato) : percorso;
    if (!Scrivi(stato, QStringLiteral("BV_CopiaInFile"), dove, [&] { return TestoCopiaInFile(g); }))
        return false;
    // The CAD program pastes from the file when it asked for it through the signal file.
    if (EsisteFile(stato.amb.CartellaProgramma + QStringLiteral("\\temp\\IncollaDaFileSiNo.TXT")))
        RispondiTag(stato, QStringLiteral("INCOLLADAFILE|") + dove);
    return true;
}

} // namespace tavolet
