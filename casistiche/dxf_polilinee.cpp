// The polylines of a DXF file rewritten as the list of a CAD program. The file is read two
// lines at a time, a group code and its value, without a parser of the sections: only what
// the cases need is looked at.
#include "casistiche.h"

#include "errore.h"
#include "file_testo.h"
#include "piattaforma.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

namespace {

// Layer of the file -> line written for it.
QString RigaDelLayer(const QString& layer) {
    const QString t = Trim(layer);
    if (t == u"RT" || t == u"RP" || t == u"RC" || t == u"NC") return QStringLiteral("LAYER ") + t;
    if (t == u"PARTICELLE") return QStringLiteral("LAYER NC");
    if (t == u"FABBRICATI") return QStringLiteral("LAYER RC");
    return QString();
}

const QByteArray kFirmaBinaria = QByteArrayLiteral("AutoCAD Binary DXF");

} // namespace

ListaDaDxf ListaDaPoliLineeDxf(const QByteArray& byte) {
    ListaDaDxf esito;
    if (byte.startsWith(kFirmaBinaria)) {
        esito.binario = true;
        return esito;
    }
    const QStringList righe = RigheDiTesto(DaWindows1252(byte));
    const QString separatore = QStringLiteral(" ") + CRLF + QStringLiteral(" ") + CRLF;

    bool inEntita = false, entitaAttiva = false;
    QString tipoEntita, rigaLayer, layerValido, primoPunto, rigaPunto;
    int flagChiusa = 0;
    QString& lista = esito.testo;

    // A pair is two lines; an odd last line has no value and is left alone.
    for (qsizetype i = 0; i + 1 < righe.size(); i += 2) {
        const QString& codiceTesto = righe[i];
        const QString valore = Trim(righe[i + 1]);
        // A code that is no number is no group code: the pair means nothing.
        const double codice = Val(codiceTesto);
        const bool sottoLw = entitaAttiva && inEntita && tipoEntita == u"LWPOLYLINE";

        if (valore == u"ENTITIES") inEntita = true;
        if (codice == 0 && inEntita) {
            if (valore == u"LWPOLYLINE" || valore == u"POLYLINE" || valore == u"VERTEX") {
                tipoEntita = valore;
                entitaAttiva = true;
            } else {
                tipoEntita = QStringLiteral("PIPPO");
            }
        }
        if (codice == 8 && sottoLw) {
            const QString riga = RigaDelLayer(valore);
            if (!riga.isEmpty()) {
                rigaLayer = riga;
                layerValido = QStringLiteral("Y");
            } else {
                layerValido.clear();
            }
            lista += CRLF + rigaLayer + CRLF;
        }
        if (codice == 70 && sottoLw) flagChiusa = ValIntero(valore);
        if (codice == 8 && entitaAttiva && inEntita && tipoEntita == u"POLYLINE") {
            const QString riga = RigaDelLayer(valore);
            if (!riga.isEmpty()) {
                rigaLayer = riga;
                layerValido = QStringLiteral("Y");
            } else {
                layerValido.clear();
            }
            lista += CRLF + rigaLayer + CRLF;
            tipoEntita.clear();
        }
        if (valore == u"ENDSEC") {
            if (flagChiusa == 2) lista += primoPunto;
            lista += separatore;
        }
        if (codice == 0 && flagChiusa == 2) {
            lista += primoPunto;
            flagChiusa = 0;
        }
        if (valore == u"SEQEND") {
            if (flagChiusa == 2) lista += primoPunto;
            lista += separatore;
            tipoEntita.clear();
            layerValido.clear();
        }
        if ((tipoEntita == u"LWPOLYLINE" || tipoEntita == u"VERTEX") && layerValido == u"Y" &&
            entitaAttiva) {
            if (codice == 10) {
                rigaPunto = QStringLiteral("al punto  X=") +
                            Formato(Val(valore), QStringLiteral("###########.000"));
            } else if (codice == 20) {
                rigaPunto += QStringLiteral("  Y=") +
                             Formato(Val(valore), QStringLiteral("##########.000")) +
                             QStringLiteral("  Z=   0");
                rigaPunto = Replace(rigaPunto, QStringLiteral(","), QStringLiteral("."));
                lista += rigaPunto + CRLF;
                if (flagChiusa == 1) {
                    primoPunto = rigaPunto + CRLF;
                    flagChiusa = 2;
                }
            }
        }
    }
    return esito;
}

bool GeneraLibrettoDaPoliLineeDXF(Stato& stato, Casistica& c, QString percorso) {
    bool fatto = false;
    ListaDaDxf lista;
    const bool letto = ConTrappola(stato, QStringLiteral("GeneraLibrettoDaPolilineeDXF"), [&] {
        if (percorso.isEmpty()) {
            percorso = UCase(stato.piattaforma->ApriFile(
                QStringLiteral("Seleziona un File DXF"), stato.amb.CartellaDocumenti,
                QStringLiteral("File da leggere (*.DXF)|*.DXF")));
            if (percorso.isEmpty()) {
                stato.piattaforma->Messaggio(QStringLiteral("Nessuna File selezionato!"),
                                             QStringLiteral("Seleziona Editor"),
                                             Icona::Informazione);
                return;
            }
        }
        lista = ListaDaPoliLineeDxf(LeggiByte(percorso));
        if (lista.binario) {
            stato.piattaforma->Messaggio(kDxfBinario, QStringLiteral("Importa Polilinee da DXF"),
                                         Icona::Avviso);
            return;
        }
        stato.piattaforma->ImpostaAppunti(lista.testo);
        fatto = true;
    });
    if (!letto || !fatto) return false;
    return GeneraLibrettoDaList(stato, c);
}

} // namespace tavolet
