#include "EseguiComando.h"

#include "BV_Dapregeo.h"
#include "FormConfiguraPregeo.h"

#include "disegno.h"
#include "fiduciali.h"

#include "pdf_tag.h"
#include "stato.h"
#include "testo.h"

#include <QPointer>

namespace tavolet {

void EseguiComando(Stato& stato, const QString& parola, const QString& parametro, QWidget* parent) {
    const QString p = UCase(Trim(parola));
    if (p == u"CONFIGURA_PREGEO") {
        FormConfiguraPregeo::Esegui(stato, parent);
    } else if (p == u"DA_PREGEO") {
        BV_Dapregeo::Esegui(stato, 0, parent);
    } else if (p == u"DA_PREGEO_DXF") {
        BV_Dapregeo::Esegui(stato, 1, parent);
    } else if (p == u"MISURATE_DA1_PF") {
        MisurateDa1PF(stato, parametro);
    } else if (p == u"INFO_MISURATE") {
        CalcolaMisuratePFDelDisegno(stato, stato.doc.PercorsoLibretto);
    }
    // ---- Words whose screens come with the drawing and fiducial parts of the program. ----
    // LIBRETTO_DA_DISEGNO: the .LXC's libretto (".LXC" read as ".TXT"), the head dialog, then
    //                      LibrettoDaDisegno and the main form.
    // SELEZIONA_MISURATE:  BV_SelezionaMisurate as a dialog.
    // Until their screens are wired here they do what any unknown word does: nothing, as
    // IMPORT-INST_TAF-MISURATE and Unarvo2, which are meant for the sibling program.
    // ---------------------------------------------------------------------------------------
}

void InstallaComandi(Stato& stato, QWidget* parent) {
    InstallaPregeo(stato);
    QPointer<QWidget> finestra(parent);
    stato.EseguiComando = [finestra](Stato& s, const QString& parola, const QString& parametro) {
        EseguiComando(s, parola, parametro, finestra.data());
    };
}

} // namespace tavolet
