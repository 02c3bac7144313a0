// tavolet: the desktop program.
#include "BV_LibrettoOriginale.h"
#include "copia_estratto.h"
#include "libretto.h"
#include "piattaforma_qt.h"
#include "riordino.h"
#include "traduzioni.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tavolet"));
    QApplication::setOrganizationName(QStringLiteral("Tavolet"));
    // Qt's standard buttons and dialogs in Italian, whatever the system's locale.
    tavolet::InstallaTraduzioniItaliane();
    tavolet::PiattaformaQt piattaforma;
    tavolet::Stato stato(piattaforma);
    tavolet::InstallaRiordino(stato);
    tavolet::InstallaEstratti(stato);
    tavolet::Inizializza(stato);
    tavolet::BV_LibrettoOriginale form(stato);
    piattaforma.ImpostaFinestra(&form);
    if (!form.Carica(app.arguments().mid(1).join(u' '))) return 0;
    form.show();
    return app.exec();
}
