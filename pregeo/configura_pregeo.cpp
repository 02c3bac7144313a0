#include "configura_pregeo.h"

#include "ambiente.h"
#include "comandi.h"
#include "errore.h"
#include "file_testo.h"
#include "stato.h"
#include "testo.h"
#include "versione_file.h"

namespace tavolet {

QString PercorsoPregeoIni(const Stato& stato) {
    return stato.amb.CartellaSistema + QStringLiteral("\\PREGEO.INI");
}

QString PercorsoPregeoExe(const Stato& stato) {
    return stato.amb.UnitaPregeoExe + QStringLiteral("\\pregeo\\exe\\Pregeo.EXE");
}

QString TitoloConfiguraPregeo(const Stato& stato) {
    return QStringLiteral("Versione Pregeo.EXE = ") + VersioneFile(PercorsoPregeoExe(stato)) +
           QStringLiteral(" - ") + PercorsoPregeoIni(stato);
}

QString TestoPregeoIni(const Stato& stato) {
    try {
        const QString ini = PercorsoPregeoIni(stato);
        return EsisteFile(ini) ? LeggiTesto(ini) : QString();
    } catch (const Errore&) {
        return {};
    }
}

bool SalvaPregeoIni(Stato& stato, const QString& testo) {
    return ConTrappola(stato, QStringLiteral("FormConfiguraPregeo"), [&] {
        // The editor gives its own line ends: the file keeps CRLF.
        const QStringList righe = RigheDiTesto(testo);
        stato.amb.RigheIni = righe;
        QString scritto = Join(righe, CRLF);
        if (testo.endsWith(u'\n') || testo.endsWith(u'\r')) scritto += CRLF;
        ScriviTesto(PercorsoPregeoIni(stato), scritto);
    });
}

QString RicaricaPregeoIni(Stato& stato) {
    CaricaConfig(stato);
    return Join(stato.amb.RigheIni, CRLF);
}

void CollegamentiConfiguraPregeo(Stato& stato) {
    if (CreaCollegamentiPregeo(stato))
        stato.piattaforma->Messaggio(QStringLiteral("Creato Collegamento sul DeskTop"),
                                     QStringLiteral("Configura Pregeo"), Icona::Informazione);
}

} // namespace tavolet
