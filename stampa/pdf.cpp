// The lines of the print screen as a PDF file: the standard Courier fonts need no embedding,
// so the document is a few objects written by hand and reads the same everywhere.
#include "stampa.h"

#include "testo.h"

#include <cmath>

namespace tavolet {

namespace {

QByteArray Numero(double v) {
    return QByteArray::number(std::round(v * 100) / 100, 'f', 2);
}

// A literal string of PDF, one byte a character in the font's Windows encoding.
QByteArray StringaPdf(const QString& testo) {
    QByteArray b = "(";
    for (char ch : AWindows1252(testo)) {
        if (ch == '(' || ch == ')' || ch == '\\') b += '\\';
        if (ch == '\r' || ch == '\n') ch = ' ';
        b += ch;
    }
    return b + ')';
}

QByteArray NomeCourier(const Carattere& c) {
    if (c.grassetto && c.corsivo) return "Courier-BoldOblique";
    if (c.grassetto) return "Courier-Bold";
    if (c.corsivo) return "Courier-Oblique";
    return "Courier";
}

} // namespace

Impaginazione ImpaginaA4(const Carattere& carattere, bool orizzontale) {
    Impaginazione i;
    if (orizzontale) std::swap(i.larghezza, i.altezza);
    const double corpo =
        carattere.dimensione >= 4 && carattere.dimensione <= 72 ? carattere.dimensione : 10;
    i.interlinea = corpo * 1.2;
    i.righePerPagina = qMax(1, int((i.altezza - 2 * i.margine) / i.interlinea));
    return i;
}

QByteArray PdfDaRighe(const QStringList& righe, const Carattere& carattere, bool orizzontale) {
    const Impaginazione imp = ImpaginaA4(carattere, orizzontale);
    const double corpo = imp.interlinea / 1.2;
    QList<QStringList> pagine;
    for (qsizetype i = 0; i < righe.size(); i += imp.righePerPagina)
        pagine << righe.mid(i, imp.righePerPagina);
    if (pagine.isEmpty()) pagine << QStringList();

    QList<QByteArray> oggetti; // object n is oggetti[n - 1]
    oggetti << "<< /Type /Catalog /Pages 2 0 R >>";
    oggetti << QByteArray(); // the page tree, once the pages are numbered
    oggetti << "<< /Type /Font /Subtype /Type1 /BaseFont /" + NomeCourier(carattere) +
                   " /Encoding /WinAnsiEncoding >>";
    oggetti << "<< /Producer (Tavolet) /Title (Stampe) >>";
    QByteArray figli;
    for (const QStringList& pagina : pagine) {
        QByteArray flusso = "BT\n/F1 " + Numero(corpo) + " Tf\n" + Numero(imp.interlinea) +
                            " TL\n" + Numero(imp.margine) + ' ' +
                            Numero(imp.altezza - imp.margine - corpo) + " Td\n";
        for (const QString& r : pagina) flusso += StringaPdf(RTrim(r)) + " Tj T*\n";
        flusso += "ET\n";
        const int contenuto = int(oggetti.size()) + 2;
        oggetti << "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + Numero(imp.larghezza) + ' ' +
                       Numero(imp.altezza) + "] /Resources << /Font << /F1 3 0 R >> >> /Contents " +
                       QByteArray::number(contenuto) + " 0 R >>";
        figli += QByteArray::number(oggetti.size()) + " 0 R ";
        oggetti << "<< /Length " + QByteArray::number(flusso.size()) + " >>\nstream\n" + flusso +
                       "endstream";
    }
    oggetti[1] = "<< /Type /Pages /Kids [" + figli.trimmed() + "] /Count " +
                 QByteArray::number(pagine.size()) + " >>";

    QByteArray pdf = "%PDF-1.4\n%\xe2\xe3\xcf\xd3\n";
    QList<qsizetype> posizioni;
    for (qsizetype n = 0; n < oggetti.size(); ++n) {
        posizioni << pdf.size();
        pdf += QByteArray::number(n + 1) + " 0 obj\n" + oggetti[n] + "\nendobj\n";
    }
    const qsizetype xref = pdf.size();
    pdf += "xref\n0 " + QByteArray::number(oggetti.size() + 1) + "\n0000000000 65535 f \n";
    for (qsizetype p : posizioni)
        pdf += QByteArray::number(p).rightJustified(10, '0') + " 00000 n \n";
    pdf += "trailer\n<< /Size " + QByteArray::number(oggetti.size() + 1) +
           " /Root 1 0 R /Info 4 0 R >>\nstartxref\n" + QByteArray::number(xref) + "\n%%EOF\n";
    return pdf;
}

} // namespace tavolet
