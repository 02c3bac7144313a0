// A state on the small Pregeo tree with a libretto in the row list, for the head dialog.
#pragma once

#include "configurazione.h"
#include "libretto.h"
#include "supporto.h"

#include <QFile>

namespace tavolet::test {

struct ConfigurazioneProva : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        CaricaComuni(s);
        CaricaProvince(s);
        CreaAlberoCartelle(s);
    }
    // The rows become the document, as a load does.
    void Libretto(const QStringList& righe) {
        s.doc.TestoLibretto = QString::fromLatin1(Righe(righe));
        CaricaLibrettoInList1(s);
    }
    QStringList RigheLista() const { return s.doc.RigheLibretto.Righe(); }
    // The bytes written at a path of the root, compared with a golden file of tests/dati.
    void ConfrontaConOro(const QString& percorsoWindows, const QString& oro) {
        // TAVOLET_RIGENERA_ORO=<folder> writes the golden files anew, to be looked at by hand.
        if (const QString dove = qEnvironmentVariable("TAVOLET_RIGENERA_ORO"); !dove.isEmpty()) {
            QFile f(dove + u'/' + oro);
            ASSERT_TRUE(f.open(QIODevice::WriteOnly));
            f.write(radice.Leggi(percorsoWindows));
        }
        EXPECT_EQ(radice.Leggi(percorsoWindows), Dati(QStringLiteral("configurazione/") + oro))
            << percorsoWindows.toStdString();
    }
};

} // namespace tavolet::test
