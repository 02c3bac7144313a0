// No work lost to a click: closing saves the libretto, a save that fails keeps the form open on
// the rows; kept versions, commands that would empty the libretto, files that are not libretti,
// file dialogs, windows that fit the screen, the wait for a helper.
#include "BV_ElcoPfGriglia.h"
#include "BV_EstrattiDiMappa1.h"
#include "BV_Fraziona.h"
#include "FormStorico.h"
#include "casistiche.h"
#include "censuario.h"
#include "form_demo.h"
#include "piattaforma_qt.h"
#include "protezioni.h"
#include "schermi.h"
#include "schermo.h"
#include "stampa.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScreen>
#include <QStandardPaths>
#include <QTableWidget>
#include <QTimer>

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kEsempio = QStringLiteral("C:\\Libretti\\ESEMPIO.DAT");

// Runs azione on the modal screen that the next command opens.
template <typename F> void SulModale(F azione) {
    QTimer::singleShot(0, [azione] {
        QWidget* m = QApplication::activeModalWidget();
        ASSERT_NE(m, nullptr);
        azione(m);
    });
}

// The scripted platform that also keeps the filter of every file dialog, by its title.
struct PiattaformaConFiltri : PiattaformaFinta {
    QList<std::pair<QString, QString>> dialoghi;
    QString ApriFile(const QString& titolo, const QString& cartella,
                     const QString& filtro) override {
        dialoghi.append({titolo, filtro});
        return PiattaformaFinta::ApriFile(titolo, cartella, filtro);
    }
    QString SalvaFile(const QString& titolo, const QString& cartella, const QString& nome,
                      const QString& filtro) override {
        dialoghi.append({titolo, filtro});
        return PiattaformaFinta::SalvaFile(titolo, cartella, nome, filtro);
    }
};

} // namespace

TEST_F(FormSuDemo, StoricoRipristinaLaTerzultimaEAnnulla) {
    Apri();
    // Four saves of four different documents: each keeps the one before among the versions.
    QList<QStringList> salvati;
    for (int i = 0; i < 4; ++i) {
        p.adesso = p.adesso.addSecs(60);
        p.appunti = QString("1|%1|1.5|\r\n2|%1|0|10|\r\n").arg(100 + i);
        form->Voce("Da Excel", "Righe Complete")->trigger();
        salvati << Voci(form->Lista());
        form->Voce("     &File    ", "&Salva")->trigger();
    }
    const QStringList attuali = Voci(form->Lista());
    const QString percorso = s.doc.PercorsoLibretto;
    const QByteArray suDisco = radice.Leggi(kEsempio);

    SulModale([&](QWidget* m) {
        auto* f = qobject_cast<FormStorico*>(m);
        ASSERT_NE(f, nullptr);
        QTableWidget* t = f->Versioni();
        ASSERT_EQ(t->rowCount(), 4);
        EXPECT_EQ(t->item(0, 1)->text().toInt(), salvati[2].size());
        EXPECT_EQ(t->editTriggers(), QAbstractItemView::NoEditTriggers);
        t->setCurrentCell(2, 0);
        EXPECT_TRUE(f->Righe()->isReadOnly());
        EXPECT_EQ(f->Righe()->toPlainText().split('\n').mid(0, salvati[0].size()), salvati[0]);
        f->grab().save(QDir::temp().filePath("tavolet_storico.png"));
        Clic(f, "Ripristina");
    });
    form->Voce("Utilità", "Ricarica da Storico")->trigger();
    // The third newest version is the document after the first save; the file is unchanged.
    EXPECT_EQ(Voci(form->Lista()), salvati[0]);
    EXPECT_EQ(s.doc.PercorsoLibretto, percorso);
    EXPECT_EQ(radice.Leggi(kEsempio), suDisco);
    QApplication::setActiveWindow(form.get());
    QTest::keyClick(form->Lista(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Voci(form->Lista()), attuali);
}

TEST_F(FormSuDemo, NessunComandoSvuotaIlLibretto) {
    Apri();
    const QStringList prima = Voci(form->Lista());
    const QByteArray originale = radice.Leggi(kEsempio);
    // A clipboard without a line of coordinates, an empty one, a text of no rows at all.
    for (const QString& appunti : {QString("Nessuna coordinata qui\r\n"), QString(),
                                   QString("0|solo testata|\r\n9|x|\r\n")}) {
        p.appunti = appunti;
        form->Voce("Tipologie Automatizzate", "Libretto per coordinate da Elaborazione Pregeo")
            ->trigger();
        form->Voce("Modifica Libretto", "Incolla da Appunti")->trigger();
        EXPECT_EQ(Voci(form->Lista()), prima);
    }
    EXPECT_EQ(p.Messaggi(), QStringList(6, "Tavolet: Nessun dato trovato in memoria!"));

    // "Nuovo", its head dialog closed, then the close: nothing is written over the old file;
    // the first save asks for a name.
    SulModale([](QWidget* m) { m->close(); });
    Clic(form.get(), "Nuovo");
    EXPECT_EQ(s.doc.PercorsoLibretto, "");
    EXPECT_TRUE(form->close());
    EXPECT_EQ(p.eventi.last().tipo, "salva");
    EXPECT_EQ(radice.Leggi(kEsempio), originale);
}

TEST_F(FormSuDemo, FileCheNonELibrettoChiede) {
    Apri();
    const QStringList prima = Voci(form->Lista());
    QByteArray binario(4096, '\0');
    for (int i = 0; i < binario.size(); ++i) binario[i] = char((i * 7919) % 256);
    radice.Scrivi("C:\\Libretti\\DATI.DAT", binario);
    radice.Scrivi("C:\\Libretti\\LETTERA.TXT", "Gentile geometra,\r\nin allegato\r\n1|2|\r\n");
    // A short libretto without rows 0 and 9 loads with no question.
    radice.Scrivi("C:\\Libretti\\CORTO.DAT", "1|100|1.5|\r\n2|1|0|10|\r\nNOTA\r\n");
    const QString domanda =
        "Trascina Libretto: Il file non sembra un libretto di Pregeo. Caricarlo comunque?";
    for (const char* nome : {"DATI.DAT", "LETTERA.TXT"}) {
        p.risposte = {Risposta::Si}; // replace the libretto; then the default, No
        form->Trascina(QString("C:\\Libretti\\") + nome);
        EXPECT_EQ(p.Domande().last(), domanda) << nome;
        EXPECT_EQ(Voci(form->Lista()), prima) << nome;
    }
    EXPECT_EQ(p.Domande().size(), 4);
    form->Trascina("C:\\Libretti\\CORTO.DAT");
    EXPECT_EQ(p.Domande().size(), 5);
    EXPECT_EQ(form->Lista()->count(), 5);
    // Yes to both questions loads it anyway.
    p.risposte = {Risposta::Si, Risposta::Si};
    form->Trascina("C:\\Libretti\\LETTERA.TXT");
    EXPECT_EQ(s.doc.PercorsoLibretto, "C:\\Libretti\\LETTERA.TXT");
}

// Every file dialog of the program lists, under each of its filters, the files of those
// extensions whatever their case, and nothing else.
TEST(DialoghiFile, OgniDialogoElencaISuoiFile) {
    RadiceProva radice;
    CopiaDemo(radice.Percorso());
    PiattaformaConFiltri p;
    Stato s{p};
    InstallaEstratti(s);
    Inizializza(s);
    BV_LibrettoOriginale form(s);
    ASSERT_TRUE(form.Carica(kEsempio));
    // Each command that opens a dialog, the platform keeping title and filter.
    form.ApriComeTrascinamento();
    EsportaLibrettoInFile(s);
    SelezionaVisualizzatore(s);
    Casistica caso;
    GeneraLibrettoDaPoliLineeDXF(s, caso, QString());
    BV_EstrattiDiMappa1 estratti(s);
    estratti.show();
    estratti.Lista()->setCurrentRow(0);
    Clic(&estratti, "Estratto da CXF");
    Clic(&estratti, "Esporta Estratto");
    for (QPushButton* b : estratti.findChildren<QPushButton*>())
        if (b->toolTip() == "Importa Estratto") Premi(b);

    const QStringList nomi = {"a.emp", "B.EMP", "c.Png", "D.ZIP", "e.cxf", "F.DXF",
                              "g.exe", "h.dat", "I.TXT", "j.lxb", "k.pdf", "l.doc"};
    QTemporaryDir cartella;
    for (const QString& n : nomi) {
        QFile f(cartella.filePath(n));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("x");
    }
    // What each dialog, by its title, lists under each of its filters.
    const QMap<QString, QList<QStringList>> attesi = {
        {"Apri Libretto", {{"h.dat", "I.TXT", "j.lxb", "k.pdf"}, nomi}},
        {"Esporta Libretto", {{"h.dat", "I.TXT"}, nomi}},
        {"Seleziona Editor", {{"g.exe"}}},
        {"Seleziona un File DXF", {{"F.DXF"}}},
        {"Estratto da CXF", {{"e.cxf"}}},
        {"Esporta Estratto di Mappa", {{"a.emp", "B.EMP"}}},
        {"Importa Estratto di Mappa", {{"a.emp", "B.EMP"}, {"c.Png"}, {"D.ZIP"}}},
    };
    QSet<QString> visti;
    for (const auto& [titolo, filtro] : p.dialoghi) {
        visti << titolo;
        ASSERT_TRUE(attesi.contains(titolo)) << titolo.toStdString();
        const QList<QStringList>& liste = attesi[titolo];
        const auto d = CreaDialogoFile(nullptr, titolo, cartella.path(), filtro, false);
        ASSERT_EQ(d->nameFilters().size(), liste.size()) << filtro.toStdString();
        auto* vista = d->findChild<QAbstractItemView*>("listView");
        ASSERT_NE(vista, nullptr);
        for (int i = 0; i < liste.size(); ++i) {
            const QString voce = d->nameFilters()[i];
            EXPECT_FALSE(voce.contains('|')) << voce.toStdString();
            d->selectNameFilter(voce);
            QStringList elencati;
            (void)QTest::qWaitFor([&] {
                elencati.clear();
                const QModelIndex r = vista->rootIndex();
                for (int j = 0; j < vista->model()->rowCount(r); ++j)
                    elencati << vista->model()->index(j, 0, r).data().toString();
                elencati.sort(Qt::CaseInsensitive);
                return elencati == liste[i];
            });
            EXPECT_EQ(elencati, liste[i]) << titolo.toStdString() << " / " << voce.toStdString();
        }
    }
    EXPECT_EQ(visti, QSet<QString>(attesi.keyBegin(), attesi.keyEnd()));
}

TEST_F(FormSuDemo, PosizioneSalvataFuoriDalloSchermoTornaDentro) {
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    p.SalvaImpostazione("FORMx", "BV_LibrettoOriginale", "19000");
    p.SalvaImpostazione("FORMy", "BV_LibrettoOriginale", "15000");
    p.SalvaImpostazione("POSIZIONE_FORMx", "BV_LibrettoOriginale", "5000");
    p.SalvaImpostazione("POSIZIONE_FORMy", "BV_LibrettoOriginale", "-3000");
    ASSERT_TRUE(form->Carica(kEsempio));
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    const QRect dentro = DentroArea(form->frameGeometry(), area);
    // Inside, unless the form's own minimum is larger than this screen.
    EXPECT_EQ(form->frameGeometry().topLeft(), dentro.topLeft());
    EXPECT_LE(form->width(), std::max(area.width(), form->minimumSizeHint().width()));

    // "Utility" takes the place of the save options: the form does not grow.
    const QSize prima = form->size();
    Clic(form.get(), "Utility");
    QApplication::processEvents();
    EXPECT_TRUE(form->PannelloUtilita()->isVisible());
    EXPECT_EQ(form->size(), prima);

    // The rectangle is fitted whole, on every side; one already inside stays.
    const QRect schermo(0, 0, 1366, 728);
    for (const QRect& r : {QRect(-500, -500, 800, 600), QRect(1200, 700, 800, 600),
                           QRect(100, 100, 3000, 2000), QRect(10, 10, 300, 200)}) {
        const QRect f = DentroArea(r, schermo);
        EXPECT_EQ(f.size(), r.size().boundedTo(schermo.size()));
        EXPECT_TRUE(schermo.contains(f) && (f == r) == schermo.contains(r))
            << f.x() << ' ' << f.y();
    }
}

TEST(AttesaProgramma, InterrompiFermaIlProgrammaEProsegue) {
    if (QStandardPaths::findExecutable("sleep").isEmpty()) GTEST_SKIP() << "manca sleep";
    PiattaformaQt p;
    bool vista = false;
    QTimer::singleShot(800, [&] {
        QWidget* m = QApplication::activeModalWidget();
        ASSERT_NE(m, nullptr);
        EXPECT_EQ(m->objectName(), "AttesaProgramma");
        vista = Pulsante(m, "Interrompi") != nullptr;
        for (QLabel* l : m->findChildren<QLabel*>()) EXPECT_EQ(l->text(), "In attesa di sleep…");
        Clic(m, "Interrompi");
    });
    EXPECT_EQ(p.AvviaEAttendi("sleep", {"60"}), -2);
    EXPECT_TRUE(vista);
    // A quick helper gives its code with no box.
    EXPECT_EQ(p.AvviaEAttendi("true", {}), 0);
}

namespace {

// The captions a window cuts at the size it has: buttons narrower than their text, check boxes
// and radio buttons narrower than their own hint, table headers narrower than their caption.
QStringList Tagliate(QWidget* w) {
    QStringList tagliate;
    for (QAbstractButton* b : w->findChildren<QAbstractButton*>()) {
        if (!b->isVisibleTo(w) || b->text().isEmpty()) continue;
        const QString testo = QString(b->text()).remove('&');
        const bool spunta = qobject_cast<QCheckBox*>(b) || qobject_cast<QRadioButton*>(b);
        const int serve =
            spunta ? b->sizeHint().width() : b->fontMetrics().horizontalAdvance(testo) + 4;
        if (b->width() < serve) tagliate << testo;
    }
    for (QHeaderView* h : w->findChildren<QHeaderView*>()) {
        if (!h->isVisibleTo(w) || h->orientation() != Qt::Horizontal) continue;
        for (int c = 0; c < h->count(); ++c) {
            const QString testo = h->model()->headerData(c, Qt::Horizontal).toString();
            if (!h->isSectionHidden(c) && !testo.isEmpty() &&
                h->sectionSize(c) < h->fontMetrics().horizontalAdvance(testo) + 4)
                tagliate << testo;
        }
    }
    return tagliate;
}

// A screen at its opening size: inside the screen, every caption whole, and its picture kept.
void Guarda(QWidget* w, const QString& nome) {
    w->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(w));
    QApplication::processEvents();
    const QRect area = w->screen()->availableGeometry();
    w->grab().save(QDir::temp().filePath(QString("tavolet_%1_%2x%3.png")
                                             .arg(nome)
                                             .arg(w->screen()->geometry().width())
                                             .arg(w->screen()->geometry().height())));
    EXPECT_TRUE(area.contains(w->frameGeometry()))
        << nome.toStdString() << ' ' << w->frameGeometry().width() << 'x'
        << w->frameGeometry().height();
    EXPECT_EQ(Tagliate(w), QStringList()) << nome.toStdString();
}

} // namespace

TEST_F(FormSuDemo, OgniSchermoEntraEMostraLeDidascalie) {
    ASSERT_TRUE(form->Carica(kEsempio));
    Guarda(form.get(), "BV_LibrettoOriginale");
    Clic(form.get(), "Utility");
    Guarda(form.get(), "BV_LibrettoOriginale_Utility");
    BV_EstrattiDiMappa1 estratti(s);
    Guarda(&estratti, "BV_EstrattiDiMappa1");
    BV_ElcoPfGriglia griglia(s, "PADOVA.TXT", "ABANO TERME", "A001", {});
    Guarda(&griglia, "BV_ElcoPfGriglia");
    BV_Fraziona fraziona(s, TipoSchema::Frazionamento, CampiParticella{}, kFrazionamento);
    Guarda(&fraziona, "BV_Fraziona");
    FormStorico storico(s);
    Guarda(&storico, "FormStorico");
}

TEST_F(FormSuDemo, ApreIlLibrettoDemoEChiudendoSalva) {
    Apri();
    // The rows have the focus from the start.
    QApplication::setActiveWindow(form.get());
    EXPECT_EQ(QApplication::focusWidget(), form->Lista());
    EXPECT_EQ(form->windowTitle(),
              "Tavolet V 5.00 - L'Evoluzione - Libretto Misure : [245 15032024] "
              "[CF Comune : G693 - PIOVE DI SACCO] [Provincia : PADOVA]");
    EXPECT_EQ(form->Contatore()->text(), "0 / 24");
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join("\n").toStdString();

    // The fiscal code is upper-cased as it is typed.
    QLineEdit* cf = form->findChild<QLineEdit*>("CodiceFiscaleTecnico");
    EXPECT_EQ(cf->text(), "BNCLCU70A01G224Q");
    cf->clear();
    QTest::keyClicks(cf, "rssmra");
    EXPECT_EQ(cf->text(), "RSSMRA");
    EXPECT_EQ(s.doc.CodiceFiscaleTecnico, "RSSMRA");

    // The owners typed go to the file upper-cased on close, and the form's size is kept.
    form->findChild<QPlainTextEdit*>("TestoPossessori")->setPlainText("bianchi luca");
    EXPECT_TRUE(form->close());
    const QByteArray dopo = radice.Leggi("C:\\Libretti\\ESEMPIO.DAT");
    EXPECT_TRUE(dopo.endsWith("6|<ISC>1234|\r\n6|<DIT>BIANCHI LUCA|\r\n\r\n"))
        << dopo.right(80).toStdString();
    EXPECT_EQ(p.Impostazione("FORMx", "BV_LibrettoOriginale"), QString::number(form->width()));
}

TEST_F(FormSuDemo, ChiusuraConSalvataggioFallitoResta) {
    Apri();
    const QStringList prima = Voci(form->Lista());
    // The folder of the libretto has vanished: the report, and the form stays.
    ASSERT_TRUE(QDir(PercorsoLocale("C:\\Libretti")).removeRecursively());
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isVisible());
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_EQ(p.Messaggi().last(), "Rilevato errore: Si è verificato questo errore : 76\r\n"
                                   "Impossibile trovare il percorso\r\n"
                                   "Nella Routine SalvaLibrettoMisure");
    EXPECT_EQ(Voci(form->Lista()), prima);
    EXPECT_EQ(s.doc.RigheLibretto.Righe(), prima);

    // Exported elsewhere, then the place is writable again: the form closes and saves.
    p.fileDaSalvare << radice.Percorso() + "/copia.dat";
    form->Voce("     &File    ", "Esporta Libretto")->trigger();
    const QByteArray esportato = radice.Leggi(radice.Percorso() + "/copia.dat");
    EXPECT_TRUE(esportato.startsWith("0|15032024|")) << esportato.left(40).toStdString();
    EXPECT_EQ(esportato.count("\r\n"), prima.size());
    ASSERT_TRUE(QDir().mkpath(PercorsoLocale("C:\\Libretti")));
    EXPECT_TRUE(form->close());
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(radice.Leggi("C:\\Libretti\\ESEMPIO.DAT").startsWith("0|15032024|"));
    EXPECT_EQ(p.Messaggi().size(), 1);
}
