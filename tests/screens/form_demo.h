// The main form on a fresh copy of the demo tree, with the scripted platform.
#pragma once

#include "BV_LibrettoOriginale.h"
#include "copia_estratto.h"
#include "libretto.h"
#include "piattaforma_finta.h"
#include "riordino.h"
#include "supporto.h"

#include <QApplication>
#include <QListWidget>
#include <QStatusBar>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace tavolet::test {

struct FormSuDemo : ::testing::Test {
    RadiceProva radice;
    PiattaformaFinta p;
    Stato s{p};
    std::unique_ptr<BV_LibrettoOriginale> form;
    void SetUp() override {
        CopiaDemo(radice.Percorso());
        InstallaRiordino(s);
        InstallaEstratti(s);
        Inizializza(s);
        form = std::make_unique<BV_LibrettoOriginale>(s);
    }
    // Opens the form on a libretto at 1280x800 and waits until it is on screen.
    void Apri(const QString& libretto = QStringLiteral("C:\\Libretti\\ESEMPIO.DAT")) {
        ASSERT_TRUE(form->Carica(libretto));
        form->resize(1280, 800);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
};

// The form open on the demo libretto, active, its rows with the focus.
struct FormAperto : FormSuDemo {
    void SetUp() override {
        FormSuDemo::SetUp();
        Apri();
        QApplication::setActiveWindow(form.get());
        form->Lista()->setFocus();
    }
    QString Stato() const { return form->statusBar()->currentMessage(); }
};

} // namespace tavolet::test
