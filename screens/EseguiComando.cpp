#include "EseguiComando.h"

#include "BV_Dapregeo.h"
#include "BV_LibrettoOriginale.h"
#include "BV_SelezionaMisurate.h"
#include "FormCatasto1TXT.h"
#include "FormConfiguraPregeo.h"
#include "LibrettoDaDisegno.h"

#include "disegno.h"
#include "fiduciali.h"

#include "libretto.h"
#include "pdf_tag.h"
#include "stato.h"
#include "testo.h"

#include <QEvent>
#include <QEventLoop>
#include <QPointer>

namespace tavolet {

namespace {

// Ends a local loop when the watched window hides.
class AllaChiusura : public QObject {
public:
    explicit AllaChiusura(QEventLoop& ciclo) : ciclo_(ciclo) {}
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Hide) ciclo_.quit();
        return false;
    }

private:
    QEventLoop& ciclo_;
};

// LIBRETTO_DA_DISEGNO: the libretto beside the drawing, its head confirmed, the screen of the
// drawing and, unless that screen ended the process, the main form on the libretto.
void LibrettoDaDisegnoDaComando(Stato& stato, QWidget* parent) {
    Documento& d = stato.doc;
    const QString libretto =
        Replace(UCase(d.PercorsoLibretto), QStringLiteral(".LXC"), QStringLiteral(".TXT"));
    d.PercorsoLibretto = libretto;
    // The load of the command line read the drawing list itself: a drawing without a libretto
    // starts from an empty one.
    d.TestoLibretto.clear();
    CaricaLibrettoMisure(stato);
    CaricaLibrettoInList1(stato);
    auto* form = qobject_cast<BV_LibrettoOriginale*>(parent);
    if (form) form->MostraDocumento();
    stato.TagRoutine = QStringLiteral("Decozero_130");
    d.PercorsoLibretto = Replace(libretto, QStringLiteral(".TXT"), QStringLiteral(".LXC"));
    if (FormCatasto1TXT::Esegui(stato, parent, true) != 1) return;
    if (LibrettoDaDisegno::Esegui(stato, parent) || !form) return;
    // The main form works on the libretto, never on the drawing: its closing saves the .TXT.
    d.PercorsoLibretto = libretto;
    form->MostraDocumento();
    QEventLoop ciclo;
    AllaChiusura osservatore(ciclo);
    form->installEventFilter(&osservatore);
    form->show();
    if (form->isVisible()) ciclo.exec();
    form->removeEventFilter(&osservatore);
}

} // namespace

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
    } else if (p == u"SELEZIONA_MISURATE") {
        BV_SelezionaMisurate::Esegui(stato, parent);
    } else if (p == u"LIBRETTO_DA_DISEGNO") {
        LibrettoDaDisegnoDaComando(stato, parent);
    }
    // Any other word does nothing: IMPORT-INST_TAF-MISURATE and Unarvo2 are meant for the
    // sibling program.
}

void InstallaComandi(Stato& stato, QWidget* parent) {
    InstallaPregeo(stato);
    QPointer<QWidget> finestra(parent);
    stato.EseguiComando = [finestra](Stato& s, const QString& parola, const QString& parametro) {
        EseguiComando(s, parola, parametro, finestra.data());
    };
}

} // namespace tavolet
