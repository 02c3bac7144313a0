// The lines of a file's bytes, walked without decoding them all: the archives are large and
// only a few of their lines are wanted as text.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace tavolet {

// Calls fai(riga) for every line as LeggiRighe splits them (CRLF, a lone LF or a lone CR end a
// line; a last line without end is a line), in file order.
template <class Fai> void PerOgniRiga(const QByteArray& byte, Fai&& fai) {
    const char* dati = byte.constData();
    const qsizetype n = byte.size();
    qsizetype inizio = 0;
    while (inizio < n) {
        qsizetype fine = inizio;
        while (fine < n && dati[fine] != '\r' && dati[fine] != '\n') ++fine;
        fai(QByteArrayView(dati + inizio, fine - inizio));
        if (fine >= n) break;
        inizio = fine + 1;
        if (dati[fine] == '\r' && inizio < n && dati[inizio] == '\n') ++inizio;
    }
}

} // namespace tavolet
