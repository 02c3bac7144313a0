// The screens need a QApplication before any widget; offscreen when no platform is set. Qt's
// own dialogs speak Italian here as in the program.
#include "schermo_prova.h"
#include "traduzioni.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    tavolet::test::SchermoDiProva();
    QApplication app(argc, argv);
    tavolet::InstallaTraduzioniItaliane();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
