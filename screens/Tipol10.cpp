#include "Tipol10.h"

#include "posizione.h"

#include "errore.h"
#include "file_testo.h"
#include "grafica.h"
#include "righe.h"
#include "testo.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <limits>

namespace tavolet {

namespace {

const QString kFormTipol10 = QStringLiteral("Tipol10");

} // namespace

PiantaTipologia::PiantaTipologia(Stato& stato, QWidget* parent) : QWidget(parent), stato_(stato) {
    setObjectName(QStringLiteral("Grafica"));
    setMinimumSize(360, 300);
    setAutoFillBackground(true);
    QPalette tavolozza = palette();
    tavolozza.setColor(QPalette::Window, Qt::white);
    setPalette(tavolozza);
}

void PiantaTipologia::Mostra(const QStringList& righe) {
    punti_.clear();
    linee_.clear();
    QHash<QString, QPointF> perNome;
    for (const QString& r : righe) {
        if (TipoRiga(r) != 8) continue;
        const QStringList f = Split(r, QStringLiteral("|"));
        if (f.size() < 4) continue;
        Punto p{f[1], Val(f[3]), Val(f[2])};
        punti_ << p;
        if (!perNome.contains(p.nome)) perNome.insert(p.nome, QPointF(p.x, p.y));
    }
    for (const QString& r : righe) {
        if (TipoRiga(r) != 7) continue;
        const QStringList f = Split(r, QStringLiteral("|"));
        QList<QPointF> vertici;
        for (qsizetype i = 2; i < f.size(); ++i)
            if (perNome.contains(f[i])) vertici << perNome.value(f[i]);
        if (vertici.size() > 1) linee_ << qMakePair(vertici, r.contains(u"RC"));
    }
    Scala();
    update();
}

void PiantaTipologia::Scala() {
    if (punti_.isEmpty()) return;
    double maxX = -std::numeric_limits<double>::max(), maxY = maxX;
    minX_ = minY_ = std::numeric_limits<double>::max();
    for (const Punto& p : punti_) {
        minX_ = std::min(minX_, p.x);
        minY_ = std::min(minY_, p.y);
        maxX = std::max(maxX, p.x);
        maxY = std::max(maxY, p.y);
    }
    const double dx = std::max(maxX - minX_, 1.0), dy = std::max(maxY - minY_, 1.0);
    scala_ = std::min((width() - 40) / dx, (height() - 40) / dy);
    if (!(scala_ > 0)) scala_ = 1;
}

QPointF PiantaTipologia::ASchermo(double x, double y) const {
    return {20 + (x - minX_) * scala_, height() - 20 - (y - minY_) * scala_};
}

QPointF PiantaTipologia::DaSchermo(const QPointF& p) const {
    return {minX_ + (p.x() - 20) / scala_, minY_ + (height() - 20 - p.y()) / scala_};
}

void PiantaTipologia::paintEvent(QPaintEvent*) {
    Scala();
    QPainter pittore(this);
    pittore.setRenderHint(QPainter::Antialiasing);
    for (const auto& [vertici, nuova] : linee_) {
        pittore.setPen(QPen(nuova ? Qt::red : Qt::black, nuova ? 2 : 1));
        for (qsizetype i = 0; i + 1 < vertici.size(); ++i)
            pittore.drawLine(ASchermo(vertici[i].x(), vertici[i].y()),
                             ASchermo(vertici[i + 1].x(), vertici[i + 1].y()));
    }
    pittore.setPen(Qt::darkBlue);
    QFont f = font();
    f.setPointSize(7);
    pittore.setFont(f);
    for (const Punto& p : punti_) {
        const QPointF s = ASchermo(p.x, p.y);
        pittore.drawEllipse(s, 2, 2);
        pittore.drawText(s + QPointF(3, -3), p.nome);
    }
    if (!modo_.isEmpty()) {
        pittore.setPen(Qt::darkGreen);
        pittore.drawText(QPointF(6, 14), modo_ + QStringLiteral("  ") + nomePunto_);
    }
}

void PiantaTipologia::ImpostaModo(const QString& modo, const QString& nomePunto) {
    modo_ = modo;
    nomePunto_ = nomePunto;
    primoMedio_.reset();
    // A new outline starts on its layer.
    QString layer;
    if (modo == u"CONTORNOROSSO") layer = QStringLiteral("LAYER RC");
    if (modo == u"CONTORNONERO") layer = QStringLiteral("LAYER NC");
    if (!layer.isEmpty()) {
        ConTrappola(stato_, QStringLiteral("Tipol10_Contorno"), [&] {
            const QString percorso = PercorsoContorno(stato_);
            QByteArray vecchio;
            if (EsisteFile(percorso)) vecchio = LeggiByte(percorso);
            ScriviByte(percorso, vecchio + AWindows1252(layer + CRLF));
        });
    }
    update();
}

void PiantaTipologia::ClicMondo(double x, double y) {
    if (modo_.isEmpty()) return;
    // "Punto su Nodo" takes the node that lies within a few pixels.
    double migliore = modo_ == u"NuovoPunto" ? 8 / scala_ : 0;
    for (const Punto& p : punti_) {
        const double d = std::hypot(p.x - x, p.y - y);
        if (d < migliore) {
            migliore = d;
            x = p.x;
            y = p.y;
        }
    }
    if (modo_ == u"PUNTOMEDIO") {
        if (!primoMedio_) {
            primoMedio_ = QPointF(x, y);
            return;
        }
        x = (x + primoMedio_->x()) / 2;
        y = (y + primoMedio_->y()) / 2;
        primoMedio_.reset();
    }
    AggiungiVerticeContorno(stato_, x, y);
    punti_ << Punto{nomePunto_, x, y};
    update();
}

void PiantaTipologia::mousePressEvent(QMouseEvent* e) {
    const QPointF m = DaSchermo(e->position());
    ClicMondo(m.x(), m.y());
}

Tipol10::Tipol10(Stato& stato, const QString& casistica, QWidget* parent)
    : QDialog(parent), stato_(stato) {
    setObjectName(kFormTipol10);
    lavoro_.Codice = casistica;
    const AperturaTipologia apertura = ApriTipologia(stato_, casistica);
    setWindowTitle(apertura.titolo);
    estratto_ = apertura.estrattoDaMostrare;

    auto* principale = new QHBoxLayout(this);
    auto* sinistra = new QVBoxLayout;
    pianta_ = new PiantaTipologia(stato_, this);
    sinistra->addWidget(pianta_, 3);
    sinistra->addWidget(new QLabel(QStringLiteral("Descrizione del tecnico:"), this));
    descrizione_ = new QPlainTextEdit(this);
    descrizione_->setObjectName(QStringLiteral("Text1"));
    descrizione_->setPlainText(QString(apertura.descrizione).replace(CRLF, QStringLiteral("\n")));
    sinistra->addWidget(descrizione_, 1);
    principale->addLayout(sinistra, 3);

    auto* destra = new QVBoxLayout;
    righe_ = new QListWidget(this);
    righe_->setObjectName(QStringLiteral("List1"));
    QFont fisso(QStringLiteral("Courier New"));
    fisso.setStyleHint(QFont::TypeWriter);
    righe_->setFont(fisso);
    destra->addWidget(righe_, 1);
    auto* numeri = new QHBoxLayout;
    numeri->addWidget(new QLabel(QStringLiteral("Punto:"), this));
    primo_ = new QLineEdit(QStringLiteral("100"), this);
    primo_->setObjectName(QStringLiteral("Numero1"));
    secondo_ = new QLineEdit(QStringLiteral("1"), this);
    secondo_->setObjectName(QStringLiteral("Numero2"));
    numeri->addWidget(primo_);
    numeri->addWidget(new QLabel(QStringLiteral("+"), this));
    numeri->addWidget(secondo_);
    destra->addLayout(numeri);

    auto* griglia = new QGridLayout;
    const QStringList caption = {"Incolla Polilinee da List-CAD",
                                 "Importa Polilinee da DXF",
                                 "Punto su Nodo",
                                 "Contorno RC",
                                 "Contorno NC",
                                 "Punto Medio",
                                 "Punto Bilatera",
                                 "Termina Contorno",
                                 "Componi Proposta",
                                 "Conferma",
                                 "Annulla"};
    for (int i = 0; i < caption.size(); ++i) {
        auto* b = new QPushButton(caption[i], this);
        b->setAutoDefault(false);
        pulsanti_ << b;
        griglia->addWidget(b, i / 2, i % 2);
    }
    destra->addLayout(griglia);
    principale->addLayout(destra, 2);

    auto collega = [this](const QString& c, std::function<void()> f) {
        connect(Pulsante(c), &QPushButton::clicked, this, [f] { f(); });
    };
    collega("Incolla Polilinee da List-CAD",
            [this] { DopoGenerazione(GeneraLibrettoDaList(stato_, lavoro_)); });
    collega("Importa Polilinee da DXF",
            [this] { DopoGenerazione(GeneraLibrettoDaPoliLineeDXF(stato_, lavoro_, QString())); });
    collega("Punto su Nodo", [this] { Disegna(QStringLiteral("NuovoPunto")); });
    collega("Contorno RC", [this] { Disegna(QStringLiteral("CONTORNOROSSO")); });
    collega("Contorno NC", [this] { Disegna(QStringLiteral("CONTORNONERO")); });
    collega("Punto Medio", [this] { Disegna(QStringLiteral("PUNTOMEDIO")); });
    collega("Punto Bilatera", [this] { Disegna(QStringLiteral("PUNTOBILATERA")); });
    collega("Termina Contorno", [this] {
        pianta_->ImpostaModo(QString(), QString());
        TerminaContorno(stato_);
    });
    collega("Componi Proposta", [this] { DopoGenerazione(ComponiProposta(stato_, lavoro_)); });
    collega("Conferma", [this] {
        QStringList righe;
        for (int i = 0; i < righe_->count(); ++i) righe << righe_->item(i)->text();
        QString testo = descrizione_->toPlainText();
        testo.replace(u'\n', CRLF);
        ConfermaTipologia(stato_, lavoro_.Codice, righe, testo);
        accept();
    });
    collega("Annulla", [this] { reject(); });

    if (!estratto_.isEmpty()) {
        QStringList righe;
        ConTrappola(stato_, QStringLiteral("Tipol10_Estratto"),
                    [&] { righe = LeggiRighe(estratto_); });
        pianta_->Mostra(righe);
    }
    resize(980, 640);
    RipristinaPosizioneForm(this, stato_, kFormTipol10);
    stato_.EsitoDialogo = -1;
}

int Tipol10::Esegui(Stato& stato, const QString& casistica, QWidget* parent) {
    Tipol10 form(stato, casistica, parent);
    form.exec();
    return stato.EsitoDialogo;
}

QPushButton* Tipol10::Pulsante(const QString& caption) const {
    for (QPushButton* b : pulsanti_)
        if (b->text() == caption) return b;
    return nullptr;
}

void Tipol10::Disegna(const QString& modo) {
    const QString nome = ProssimoPunto(primo_->text(), secondo_->text());
    pianta_->ImpostaModo(modo, nome);
    primo_->setText(Left(nome, int(nome.size()) - 1));
}

void Tipol10::DopoGenerazione(bool fatto) {
    if (!fatto) return;
    righe_->clear();
    for (const QString& r : Split(lavoro_.RigheProposta, CRLF))
        if (!r.isEmpty()) righe_->addItem(r);
    // The plot shows the extract with the proposal appended.
    QStringList righe;
    ConTrappola(stato_, QStringLiteral("Tipol10_Mostra"), [&] {
        if (EsisteFile(PercorsoModestaEntita(stato_)))
            righe = LeggiRighe(PercorsoModestaEntita(stato_));
    });
    righe << Split(lavoro_.RigheProposta, CRLF);
    pianta_->Mostra(righe);
}

void Tipol10::done(int r) {
    SalvaPosizioneForm(this, stato_, kFormTipol10);
    QDialog::done(r);
}

} // namespace tavolet
