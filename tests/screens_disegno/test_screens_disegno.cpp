// LibrettoDaDisegno on a realistic drawing and on small ones, and the command word that opens
// it, on the offscreen platform.
#include "BV_LibrettoOriginale.h"
#include "EseguiComando.h"
#include "FormCatasto1TXT.h"
#include "Grafica.h"
#include "LibrettoDaDisegno.h"
#include "disegno.h"
#include "schermi.h"
#include "supporto.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

int Terminazioni(const PiattaformaFinta& p) {
    int n = 0;
    for (const Evento& e : p.eventi)
        if (e.tipo == "termina" && e.titolo == "tavolet.exe") ++n;
    return n;
}

const QByteArray kVecchioLibretto =
    Righe({"0|15012026|1|A001|0100|125|ROSSI MARIO|GEOMETRA|PD|", "9|20|10|20|15||18|TIPO MAPPALE|",
           "6|CONFERMA|", "8|PF09/0100/A001|1|2|"});

struct SchermoDisegno : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
        radice.Scrivi("C:\\Rilievi\\RILIEVO.LXC", Dati("disegno/RILIEVO.LXC"));
        radice.Scrivi("C:\\Rilievi\\RILIEVO.TXT", kVecchioLibretto);
    }
    // The libretto beside the drawing, as the command word leaves it for the screen.
    void ApriLibretto(const QString& lxc) {
        s.doc.PercorsoLibretto = Replace(UCase(lxc), ".LXC", ".TXT");
        s.doc.TestoLibretto.clear();
        CaricaLibrettoMisure(s);
        CaricaLibrettoInList1(s);
        AggiornaLibrettoMisure(s);
        s.doc.PercorsoLibretto = UCase(lxc);
    }
    void ScriviOpzioni(const QByteArray& testo) {
        radice.Scrivi(s.amb.CartellaDocumenti + "\\Bravanta\\LibrettoDaDisegno.txt", testo);
    }
};

} // namespace

TEST_F(SchermoDisegno, RilievoRealisticoGeneraIlLibretto) {
    ScriviOpzioni(Dati("disegno/opzioni.txt"));
    ApriLibretto("C:\\Rilievi\\rilievo.lxc");
    LibrettoDaDisegno f(s);
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();

    // The options in the state of the option file (written back as they were read, below).
    EXPECT_TRUE(f.Scelta("Orienta come da Libretto M. Esistente")->isEnabled());

    // The old libretto in view; the lines of the survey, the one drawn twice and the one that
    // ends nowhere counted once and not at all.
    EXPECT_EQ(Voci(f.Libretto()).mid(0, 4),
              Split(QString::fromLatin1(kVecchioLibretto), CRLF).mid(0, 4));
    EXPECT_EQ(Voci(f.ListaLinee()), (QStringList{"100 - 200", "100 - PF01/0100/A001", "200 - 300",
                                                 "300 - PF03/0100/A001"}));
    // The plot: 12 points; 7 contour sides, the 4 lines, 7 joins of stations to their points.
    EXPECT_EQ(f.grafica()->Modello().ContaPunti(), 12);
    EXPECT_EQ(f.grafica()->Modello().ContaLinee(), 7 + 4 + 7);

    // The frame of rows 8 follows the box that keeps them.
    EXPECT_TRUE(f.Righe8()->isEnabled());
    f.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f));
    QCheckBox* mantieni8 = f.Casella("Mantieni Righe 8 del Libretto");
    const QPoint casella(8, mantieni8->height() / 2);
    QTest::mouseClick(mantieni8, Qt::LeftButton, {}, casella);
    EXPECT_FALSE(f.Righe8()->isEnabled());
    QTest::mouseClick(mantieni8, Qt::LeftButton, {}, casella);
    EXPECT_TRUE(f.Righe8()->isEnabled());
    QTest::qWait(50);
    EXPECT_TRUE(f.grab().save("/tmp/libretto_da_disegno.png"));

    // The report opens as a modal view; it is closed as it comes.
    QStringList aperti;
    QTimer chiudi;
    QObject::connect(&chiudi, &QTimer::timeout, [&] {
        if (QWidget* w = QApplication::activeModalWidget(); w && w != &f) {
            aperti << w->metaObject()->className();
            w->close();
        }
    });
    chiudi.start(20);
    QTest::mouseClick(Pulsante(&f, "&Genera Libretto Misure"), Qt::LeftButton);
    chiudi.stop();
    EXPECT_EQ(aperti, QStringList{"tavolet::BV_StampaGenerale"});

    EXPECT_EQ(radice.Leggi("C:\\Rilievi\\RILIEVO.TXT"), Dati("disegno/RILIEVO.TXT"));
    EXPECT_EQ(p.Domande(), QStringList({"Tipo senza righe Rosse Continue (RC)...: Inserire (TM) "
                                        "Tipo Mappale di Modesta Entità??"}));
    EXPECT_EQ(p.Messaggi(), QStringList({"Note o Descrizioni mancanti: Il Libretto contiene "
                                         "Descrizioni o Note di Punti Mancanti o da definire!"}));
    // The options as the screen held them, in the file's order and with its odd key.
    EXPECT_EQ(radice.Leggi(s.amb.CartellaDocumenti + "\\Bravanta\\LibrettoDaDisegno.TXT"),
              Dati("screens_disegno/opzioni_salvate.txt"));
    // The run ends the process, through the platform; the document is the new libretto.
    EXPECT_EQ(Terminazioni(p), 1);
    EXPECT_TRUE(f.ProcessoTerminato());
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(s.EsitoDialogo, 1);
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\RILIEVI\\RILIEVO.TXT");
    EXPECT_EQ(s.doc.RigheLibretto.Riga(3), "3|3|100|200|300|");
}

TEST_F(SchermoDisegno, StatoDiProgettoSenzaStazioniEChiudi) {
    // No option file: the design state; an old libretto of the head alone cannot orient.
    radice.Scrivi("C:\\Rilievi\\PICCOLO.LXC",
                  "P,100,0,0,10,,1.5\r\nP,200,100,0,10,,1.5\r\nL,0,0,0,100,0,0\r\n");
    radice.Scrivi("C:\\Rilievi\\PICCOLO.TXT",
                  Righe({"0|15012026|1|A001|0100|125|||PD|", "9|20|10|20|15||18||"}));
    ApriLibretto("C:\\Rilievi\\PICCOLO.LXC");
    {
        LibrettoDaDisegno f(s);
        EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();
        for (const char* c : {"Calcola Tutti Azimut", "Azzera su Stazione Precedente",
                              "Orienta come da Libretto M. Esistente"})
            EXPECT_FALSE(f.Scelta(c)->isChecked()) << c;
        EXPECT_FALSE(f.Scelta("Orienta come da Libretto M. Esistente")->isEnabled());
        EXPECT_TRUE(f.Scelta("Staz. Incremento 1000 - 2000 - ...")->isChecked());
        EXPECT_EQ(f.Dislivello()->text(), "50");
        EXPECT_EQ(Voci(f.ListaLinee()), QStringList{"100 - 200"});
        f.show();
        // Without an orientation the generation asks for one and changes nothing.
        QTest::mouseClick(Pulsante(&f, "&Genera Libretto Misure"), Qt::LeftButton);
        EXPECT_EQ(p.Messaggi(), QStringList{"Orientamento stazioni: Selezionare una modalità di "
                                            "Orientamento delle stazioni!"});
        EXPECT_TRUE(Pulsante(&f, "&Genera Libretto Misure")->isVisible());
        EXPECT_FALSE(EsisteFile(s.amb.CartellaDocumenti + "\\Bravanta\\LibrettoDaDisegno.TXT"));
        // Esc closes the screen and nothing more.
        QTest::keyClick(&f, Qt::Key_Escape);
        EXPECT_FALSE(f.isVisible());
        EXPECT_EQ(s.EsitoDialogo, 0);
        EXPECT_FALSE(f.ProcessoTerminato());
        EXPECT_EQ(Terminazioni(p), 0);
        EXPECT_FALSE(p.impostazioni.value("POSIZIONE_FORMx/LibrettoDaDisegno").isEmpty());
    }

    // Points without a line: no station, the message, no generation; "&Chiudi" ends at once.
    p.eventi.clear();
    radice.Scrivi("C:\\Rilievi\\PUNTI.LXC", "P,100,0,0,10,,1.5\r\nP,101,5,5,10,,1.5\r\n");
    ApriLibretto("C:\\Rilievi\\PUNTI.LXC");
    {
        LibrettoDaDisegno f(s);
        EXPECT_EQ(p.Messaggi(), QStringList{"Libretto da Disegno: Non è stata trovata nessuna "
                                            "Stazione nel Disegno!"});
        EXPECT_EQ(p.eventi.last().icona, Icona::Informazione);
        EXPECT_FALSE(Pulsante(&f, "&Genera Libretto Misure")->isEnabled());
        EXPECT_EQ(f.grafica()->Modello().ContaPunti(), 2);
        f.show();
        QTest::mouseClick(Pulsante(&f, "&Chiudi"), Qt::LeftButton);
        EXPECT_FALSE(f.isVisible());
        EXPECT_TRUE(f.ProcessoTerminato());
        EXPECT_EQ(Terminazioni(p), 1);
        EXPECT_EQ(s.EsitoDialogo, 0);
        EXPECT_FALSE(EsisteFile("C:\\Rilievi\\PUNTI.TXT"));
        EXPECT_FALSE(EsisteFile(s.amb.CartellaDocumenti + "\\Bravanta\\LibrettoDaDisegno.TXT"));
    }

    // A drawing that is not there: its name, then no station.
    p.eventi.clear();
    ApriLibretto("C:\\Rilievi\\manca");
    LibrettoDaDisegno f(s);
    EXPECT_EQ(p.Messaggi(),
              (QStringList{"Libretto da Disegno: C:\\RILIEVI\\MANCA.LXC\r\nNon Trovato!",
                           "Libretto da Disegno: Non è stata trovata nessuna Stazione nel "
                           "Disegno!"}));
    EXPECT_EQ(f.ListaLinee()->count(), 0);
}

// The command word: the drawing's libretto, the head dialog, the screen, the main form.
TEST_F(SchermoDisegno, ParolaLibrettoDaDisegno) {
    BV_LibrettoOriginale form(s);
    QStringList aperti;
    QString azioneDisegno; // what to do on the drawing's screen: "esc" or "chiudi"
    QString titoloDisegno;
    bool annullaTestata = false;
    QStringList righeForm;
    QTimer guida;
    QObject::connect(&guida, &QTimer::timeout, [&] {
        QWidget* w = QApplication::activeModalWidget();
        if (auto* c = qobject_cast<FormCatasto1TXT*>(w)) {
            aperti << "FormCatasto1TXT";
            QTest::mouseClick(Pulsante(c, annullaTestata ? "&Annulla" : "&Conferma"),
                              Qt::LeftButton);
            if (c->isVisible()) c->reject();
        } else if (auto* d = qobject_cast<LibrettoDaDisegno*>(w)) {
            aperti << "LibrettoDaDisegno";
            titoloDisegno = d->windowTitle();
            if (azioneDisegno == "chiudi")
                QTest::mouseClick(Pulsante(d, "&Chiudi"), Qt::LeftButton);
            else
                QTest::keyClick(d, Qt::Key_Escape);
        } else if (!w && form.isVisible()) {
            aperti << "BV_LibrettoOriginale";
            righeForm = Voci(form.Lista());
            form.close();
        }
    });
    guida.start(20);
    auto comando = [&](const QString& azione, bool annulla) {
        aperti.clear();
        azioneDisegno = azione;
        annullaTestata = annulla;
        // As the command line leaves it: the path upper-cased, the list read as a libretto.
        s.doc.PercorsoLibretto = "C:\\RILIEVI\\RILIEVO.LXC";
        CaricaLibrettoMisure(s);
        EseguiComando(s, "LIBRETTO_DA_DISEGNO", "", &form);
    };

    comando("chiudi", false);
    EXPECT_EQ(aperti, (QStringList{"FormCatasto1TXT", "LibrettoDaDisegno"}));
    EXPECT_EQ(titoloDisegno, "Libretto Fittizio : C:\\RILIEVI\\RILIEVO.LXC");
    EXPECT_EQ(Terminazioni(p), 1);
    // The libretto read was the .TXT, not the list; the drawing stays as it was.
    EXPECT_EQ(s.doc.RigheLibretto.Riga(0), "0|15012026|1|A001|0100|125|ROSSI MARIO|GEOMETRA|PD|");
    EXPECT_EQ(form.Lista()->item(0)->text(), s.doc.RigheLibretto.Riga(0));
    EXPECT_EQ(radice.Leggi("C:\\Rilievi\\RILIEVO.LXC"), Dati("disegno/RILIEVO.LXC"));

    // Esc on the drawing's screen: the main form follows, and its closing saves the libretto.
    comando("esc", false);
    EXPECT_EQ(aperti,
              (QStringList{"FormCatasto1TXT", "LibrettoDaDisegno", "BV_LibrettoOriginale"}));
    EXPECT_EQ(righeForm, s.doc.RigheLibretto.Righe());
    EXPECT_TRUE(righeForm.contains("8|PF09/0100/A001|1|2|"));
    EXPECT_EQ(Terminazioni(p), 1);
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\RILIEVI\\RILIEVO.TXT");
    EXPECT_EQ(radice.Leggi("C:\\Rilievi\\RILIEVO.LXC"), Dati("disegno/RILIEVO.LXC"));
    const QByteArray salvato = radice.Leggi("C:\\Rilievi\\RILIEVO.TXT");
    EXPECT_TRUE(salvato.startsWith("0|15012026|1|A001|")) << salvato.toStdString();
    EXPECT_TRUE(salvato.contains("\r\n8|PF09/0100/A001|1|2|\r\n"));

    // The head dialog cancelled: nothing else opens.
    comando("esc", true);
    EXPECT_EQ(aperti, QStringList{"FormCatasto1TXT"});
    guida.stop();
}
