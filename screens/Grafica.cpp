#include "Grafica.h"

#include "TelaImmagine.h"
#include "TelaQt.h"
#include "errore.h"
#include "gis.h"
#include "percorsi.h"
#include "shell.h"
#include "stato.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tavolet {

// The drawing surface of the control.
class CanvasGrafica : public QWidget {
public:
    explicit CanvasGrafica(Grafica& g) : QWidget(&g), g_(g) {
        setMouseTracking(true);
        setMinimumSize(80, 60);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    // Canvas position in world units from the centre, y up.
    QPointF Posizione(const QPointF& px) const {
        const VistaGrafica& v = *g_.modello_.Vista;
        const double a = AltezzaEffettiva(v);
        const double w = std::max(width(), 1), h = std::max(height(), 1);
        return {(px.x() - w / 2) * (a * (w / h)) / w, (h / 2 - px.y()) * a / h};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        // Drawn into an image of the canvas's pixels, then shown whole.
        const qreal dpr = devicePixelRatioF();
        const QSize pixel = (QSizeF(size()) * dpr).toSize().expandedTo(QSize(1, 1));
        if (buffer_.size() != pixel) buffer_ = QImage(pixel, QImage::Format_RGB32);
        {
            TelaImmagine tela(buffer_, logicalDpiY() * dpr, &glifi_);
            BV_RidisegnaGrafica(g_.modello_, tela, g_.OpzioniSchermo());
        }
        buffer_.setDevicePixelRatio(dpr);
        QPainter p(this);
        p.drawImage(QPointF(0, 0), buffer_);
    }

    void mouseMoveEvent(QMouseEvent* e) override {
        const QPointF pos = Posizione(e->position());
        const EtichetteMouse et = MuoviMouse(g_.modello_, pos.x(), pos.y());
        g_.etichetta1_->setText(et.prima);
        g_.etichetta2_->setText(et.seconda);
        if (e->buttons() & Qt::MiddleButton) {
            setCursor(Qt::OpenHandCursor);
            TrascinaMouse(g_.modello_, pos.x(), pos.y());
            update();
        }
    }

    void mousePressEvent(QMouseEvent* e) override {
        const QPointF pos = Posizione(e->position());
        if (e->button() == Qt::RightButton) {
            g_.menu_->popup(e->globalPosition().toPoint());
        } else if (e->button() == Qt::MiddleButton) {
            IniziaTrascinamento(g_.modello_, pos.x(), pos.y());
        } else if (e->button() == Qt::LeftButton) {
            const int punti = g_.modello_.ContaPunti(), linee = g_.modello_.ContaLinee();
            if (ClickSinistro(g_.stato_, g_.modello_, pos.x(), pos.y())) update();
            if (punti != g_.modello_.ContaPunti() || linee != g_.modello_.ContaLinee())
                emit g_.GraficaModificata();
        }
    }

    void mouseReleaseEvent(QMouseEvent*) override { unsetCursor(); }

    // A drawing shown whole stays whole when the window takes another shape.
    void resizeEvent(QResizeEvent*) override {
        if (g_.Adattata()) g_.Adatta();
    }

private:
    Grafica& g_;
    QImage buffer_;
    CacheGlifi glifi_; // the glyphs of the names, made once for the redraws of zoom and pan
};

Grafica::Grafica(Stato& stato, QWidget* parent) : QWidget(parent), stato_(stato) {
    LeggiOpzioniGrafica(stato_, modello_);

    auto* alto = new QHBoxLayout;
    opzGrafica_ = new QRadioButton(QStringLiteral("Grafica"), this);
    opzOriginale_ = new QRadioButton(QStringLiteral("Originale"), this);
    opzGrafica_->setChecked(true);
    nomiNo_ = new QCheckBox(QStringLiteral("Nomi NO"), this);
    toponimiNo_ = new QCheckBox(QStringLiteral("Toponimi No"), this);
    pfNo_ = new QCheckBox(QStringLiteral("PF No"), this);
    proposta_ = new QCheckBox(QStringLiteral("Proposta"), this);
    tuttiNomi_ = new QCheckBox(QStringLiteral("Tutti i nomi"), this);
    tuttiNomi_->setToolTip(QStringLiteral("Disegna ogni nome e ogni segno, anche dove si coprono"));
    nomiNo_->setChecked(modello_.Vista->NomiNo);
    toponimiNo_->setChecked(modello_.Vista->ToponimiNo);
    pfNo_->setChecked(modello_.Vista->PFNo);
    proposta_->setChecked(modello_.PropostaSiNo);
    for (QWidget* w : std::initializer_list<QWidget*>{opzGrafica_, opzOriginale_, nomiNo_,
                                                      toponimiNo_, pfNo_, proposta_, tuttiNomi_})
        alto->addWidget(w);
    alto->addStretch();

    canvas_ = new CanvasGrafica(*this);
    originale_ = new QPlainTextEdit(this);
    originale_->setReadOnly(true);
    originale_->setFont(QFont(QStringLiteral("Courier New"), 9));
    auto* pila = new QStackedWidget(this);
    pila->addWidget(canvas_);
    pila->addWidget(originale_);
    pila->setObjectName(QStringLiteral("pila"));

    etichetta1_ = new QLabel(this);
    etichetta2_ = new QLabel(this);
    auto* etichette = new QHBoxLayout;
    etichette->addWidget(etichetta1_, 1);
    etichette->addWidget(etichetta2_);

    menu_ = new QMenu(QStringLiteral("Comandi"), this);
    pulsanti_ = new QWidget(this);
    // Two rows of seven: the plot often shares its window with lists, and a single row
    // would cut the captions.
    auto* righe = new QGridLayout(pulsanti_);
    righe->setContentsMargins(0, 0, 0, 0);
    righe->setSpacing(2);
    int posto = 0;
    auto comando = [&](const QString& testo, auto azione, bool nelMenu = true) {
        if (nelMenu) menu_->addAction(testo, this, azione);
        auto* b = new QPushButton(testo, pulsanti_);
        b->setFocusPolicy(Qt::NoFocus);
        connect(b, &QPushButton::clicked, this, azione);
        righe->addWidget(b, posto / 7, posto % 7);
        ++posto;
        return b;
    };
    comando(QStringLiteral("Zoom Tutto"), [this] { BV_ZoomTutto(); });
    comando(QStringLiteral("Copia Immagine"), [this] { BV_CopiaImmagineGrafica(); });
    comando(QStringLiteral("Stampa"), [this] { BV_Stampa(); });
    comando(QStringLiteral("Copia In File"), [this] { BV_CopiaInFile(); });
    comando(QStringLiteral("Salva DXF"), [this] { BV_SalvaDXF(); });
    comando(QStringLiteral("Zoom Sinistra"), [this] { BV_ZoomLeft(); });
    comando(QStringLiteral("Zoom Su"), [this] { BV_ZoomUP(); });
    comando(QStringLiteral("Zoom Giù"), [this] { BV_ZoomDown(); });
    comando(QStringLiteral("Zoom Destra"), [this] { BV_ZoomRight(); });
    comando(QStringLiteral("Zoom Avanti"), [this] { BV_ZoomPiu(); });
    comando(QStringLiteral("Zoom Indietro"), [this] { BV_ZoomMeno(); });
    comando(QStringLiteral("Stampa"), [this] {
        GeneraStampa();
    })->setObjectName(QStringLiteral("StampaFile"));
    comando(
        QStringLiteral("Termina Contorno"), [this] { TerminaContorno(modello_); }, false);
    // Only in the menu: the row of buttons has no room left.
    menu_->addAction(QStringLiteral("Esporta GeoPackage"), this, [this] { EsportaGeoPackage(); });

    auto* l = new QVBoxLayout(this);
    l->setContentsMargins(2, 2, 2, 2);
    l->addLayout(alto);
    l->addWidget(pila, 1);
    l->addLayout(etichette);
    l->addWidget(pulsanti_);

    connect(opzGrafica_, &QRadioButton::toggled, this, [this] { Impagina(); });
    connect(opzOriginale_, &QRadioButton::toggled, this, [this] { Impagina(); });
    for (QCheckBox* c : {nomiNo_, toponimiNo_, pfNo_})
        connect(c, &QCheckBox::toggled, this, [this] { CambiaOpzione(); });
    connect(tuttiNomi_, &QCheckBox::toggled, canvas_, qOverload<>(&QWidget::update));
    connect(proposta_, &QCheckBox::toggled, this, [this] {
        modello_.PropostaSiNo = proposta_->isChecked();
        GeneraGrafica();
    });
    BV_ZoomTutto();
}

Grafica::~Grafica() {
    SalvaOpzioniGrafica(stato_, modello_);
}

void Grafica::Impagina() {
    auto* pila = findChild<QStackedWidget*>(QStringLiteral("pila"));
    if (opzOriginale_->isChecked()) {
        originale_->setPlainText(modello_.LibrettoOriginale.join(u'\n'));
        pila->setCurrentWidget(originale_);
    } else {
        pila->setCurrentWidget(canvas_);
    }
}

void Grafica::CambiaOpzione() {
    modello_.Vista->NomiNo = nomiNo_->isChecked();
    modello_.Vista->ToponimiNo = toponimiNo_->isChecked();
    modello_.Vista->PFNo = pfNo_->isChecked();
    BV_RidisegnaGrafica();
}

// The check box follows the model, whose loaders may set or clear "Proposta".
#define TAVOLET_DOPO_CARICA()                                                                      \
    do {                                                                                           \
        const QSignalBlocker blocco(proposta_);                                                    \
        proposta_->setChecked(modello_.PropostaSiNo);                                              \
        Adatta();                                                                                  \
        Impagina();                                                                                \
        canvas_->update();                                                                         \
    } while (0)

void Grafica::BV_CaricaEstratto_EMP(const QString& percorso) {
    sorgente_ = percorso;
    tavolet::BV_CaricaEstratto_EMP(stato_, modello_, percorso);
    TAVOLET_DOPO_CARICA();
}
void Grafica::BV_CaricaPropostaDaLibretto(const QString& percorso) {
    tavolet::BV_CaricaPropostaDaLibretto(stato_, modello_, percorso);
    TAVOLET_DOPO_CARICA();
}
void Grafica::BV_CaricaProposta_SUR(const QString& percorso) {
    tavolet::BV_CaricaProposta_SUR(stato_, modello_, percorso);
    TAVOLET_DOPO_CARICA();
}
void Grafica::BV_Elaborazione_SUR(const QString& percorso) {
    tavolet::BV_Elaborazione_SUR(stato_, modello_, percorso);
    TAVOLET_DOPO_CARICA();
}
void Grafica::EsplodiPDF(const QString& percorso) {
    tavolet::EsplodiPDF(stato_, modello_, percorso);
    TAVOLET_DOPO_CARICA();
}
void Grafica::BV_LoadFileCSV(const QString& percorso) {
    tavolet::BV_LoadFileCSV(stato_, modello_, percorso);
    TAVOLET_DOPO_CARICA();
}
bool Grafica::CaricaFile(const QString& percorso) {
    sorgente_ = percorso;
    const bool ok = CaricaGraficaDaFile(stato_, modello_, percorso);
    TAVOLET_DOPO_CARICA();
    return ok;
}
void Grafica::GeneraGrafica() {
    tavolet::GeneraGrafica(stato_, modello_);
    TAVOLET_DOPO_CARICA();
}

void Grafica::BV_AggiungiPuntoGraf(const QString& nome, double x, double y, double z,
                                   const QString& testo, int colore, double angolo,
                                   const QString& font, double dimensione) {
    tavolet::BV_AggiungiPuntoGraf(modello_, nome, x, y, z, testo, colore, angolo, font, dimensione);
}
void Grafica::BV_AggiungiLineaGraf(double x1, double y1, double z1, double x2, double y2, double z2,
                                   int colore, int spessore, int stile) {
    tavolet::BV_AggiungiLineaGraf(modello_, x1, y1, z1, x2, y2, z2, colore, spessore, stile);
}
void Grafica::BV_AggiungiLineaGraf2Punti(const QString& nome1, const QString& nome2, int colore,
                                         int spessore, int stile) {
    tavolet::BV_AggiungiLineaGraf2Punti(modello_, nome1, nome2, colore, spessore, stile);
}
void Grafica::BV_Clear() {
    tavolet::BV_Clear(modello_);
    canvas_->update();
}

void Grafica::Adatta() {
    // The shape of this canvas, which the fit needs, whatever plot was drawn last: a loader
    // fits by the shape of the last picture, of this plot or of another.
    if (canvas_->width() > 0 && canvas_->height() > 0)
        modello_.Vista->Rapporto = double(canvas_->width()) / canvas_->height();
    tavolet::BV_ZoomTutto(modello_);
    const VistaGrafica& v = *modello_.Vista;
    adattata_ = {v.Altezza, v.CentroX, v.CentroY};
}

bool Grafica::Adattata() const {
    const VistaGrafica& v = *modello_.Vista;
    return v.Altezza == adattata_.altezza && v.CentroX == adattata_.centroX &&
           v.CentroY == adattata_.centroY;
}

void Grafica::BV_ZoomTutto() {
    Adatta();
    BV_RidisegnaGrafica();
}
void Grafica::BV_RidisegnaGrafica() {
    Impagina();
    canvas_->update();
}
void Grafica::BV_ZoomPiu() {
    tavolet::BV_ZoomPiu(modello_);
    BV_RidisegnaGrafica();
}
void Grafica::BV_ZoomMeno() {
    tavolet::BV_ZoomMeno(modello_);
    BV_RidisegnaGrafica();
}
void Grafica::BV_ZoomUP() {
    tavolet::BV_ZoomUP(modello_);
    BV_RidisegnaGrafica();
}
void Grafica::BV_ZoomDown() {
    tavolet::BV_ZoomDown(modello_);
    BV_RidisegnaGrafica();
}
void Grafica::BV_ZoomLeft() {
    tavolet::BV_ZoomLeft(modello_);
    BV_RidisegnaGrafica();
}
void Grafica::BV_ZoomRight() {
    tavolet::BV_ZoomRight(modello_);
    BV_RidisegnaGrafica();
}
void Grafica::CentraMouse(double x, double y) {
    tavolet::CentraMouse(modello_, x, y);
    BV_RidisegnaGrafica();
}

OpzioniDisegno Grafica::OpzioniSchermo() const {
    OpzioniDisegno o;
    o.dirada = !tuttiNomi_->isChecked();
    return o;
}

QImage Grafica::Immagine() const {
    QImage immagine(canvas_->size().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    {
        TelaImmagine tela(immagine, canvas_->logicalDpiY());
        tavolet::BV_RidisegnaGrafica(const_cast<ModelloGrafica&>(modello_), tela, OpzioniSchermo());
    }
    return immagine;
}

void Grafica::BV_CopiaImmagineGrafica() {
    // The platform carries text only: the picture goes to the clipboard here.
    if (QClipboard* appunti = QGuiApplication::clipboard()) appunti->setImage(Immagine());
    stato_.piattaforma->Messaggio(QStringLiteral("Immagine Copiata negli Appunti di Windows."),
                                  QStringLiteral("Copia Raster"), Icona::Informazione);
}

void Grafica::StampaSu(QPrinter& stampante) {
    QPainter p;
    if (!p.begin(&stampante)) return;
    const QRect pagina = stampante.pageLayout().paintRectPixels(stampante.resolution());
    TelaQPainter tela(p, pagina.width(), pagina.height(), stampante.resolution());
    tavolet::BV_RidisegnaGrafica(modello_, tela);
    p.end();
}

void Grafica::BV_Stampa() {
    QPrinter stampante(QPrinter::HighResolution);
    QPrintDialog dialogo(&stampante, this);
    if (dialogo.exec() != QDialog::Accepted) return;
    StampaSu(stampante);
}

void Grafica::BV_SalvaDXF() {
    if (!tavolet::BV_SalvaDXF(stato_, modello_)) return;
    const QString percorso = PercorsoDXF(stato_);
    stato_.piattaforma->Messaggio(QStringLiteral("Salvato il file ") + percorso,
                                  QStringLiteral("Salva in DXF"), Icona::Informazione);
    if (stato_.piattaforma->Domanda(QStringLiteral("Aprire il file DXF ?"),
                                    QStringLiteral("Apertura file DXF "), Pulsanti::SiNo,
                                    Risposta::No) == Risposta::Si)
        stato_.piattaforma->ApriConProgramma(percorso);
}

void Grafica::EsportaGeoPackage(const QString& sorgente) {
    const QString titolo = QStringLiteral("Esporta GeoPackage");
    const QString da = sorgente.isEmpty() ? sorgente_ : sorgente;
    const QString nome = NomeDelFile(da);
    const QString estensione = nome.mid(nome.lastIndexOf(u'.') + 1).toUpper();
    if (nome.isEmpty() || !QStringList{"EMP", "CXF", "CTF"}.contains(estensione)) {
        stato_.piattaforma->Messaggio(
            QStringLiteral("Nella grafica non c'è un estratto o un foglio CXF da esportare."),
            titolo, Icona::Informazione);
        return;
    }
    const QString uscita = stato_.piattaforma->SalvaFile(
        titolo, QString(), nome.left(nome.lastIndexOf(u'.')) + QStringLiteral(".gpkg"),
        QStringLiteral("GeoPackage *.GPKG|*.GPKG|"));
    if (uscita.isEmpty()) return;
    const int n = EsportaGis(stato_, {PercorsoLocale(da)}, PercorsoLocale(uscita), {});
    if (n < 0) return;
    etichetta1_->setText(QStringLiteral("%1 particelle scritte in %2").arg(n).arg(uscita));
    etichetta2_->clear();
}

void Grafica::BV_CopiaInFile() {
    tavolet::BV_CopiaInFile(stato_, modello_);
}

void Grafica::GeneraStampa() {
    if (!tavolet::GeneraStampa(stato_, modello_)) return;
    const QString cartella = stato_.amb.CartellaProgramma;
    ShellInfinita(stato_, u'"' + cartella + QStringLiteral("\\print.exe\" ") + cartella);
}

void Grafica::GeneraHTML5_CANVAS() {
    tavolet::GeneraHTML5_CANVAS(stato_, modello_);
}

void Grafica::BV_PuntiCoincidenti() {
    tavolet::BV_PuntiCoincidenti(stato_, modello_);
}

void Grafica::ImpostaModo(const QString& modo, const QString& nomeNuovo) {
    modello_.Modo = modo;
    if (!nomeNuovo.isEmpty()) modello_.NomeNuovo = nomeNuovo;
}

void Grafica::MostraPulsanti(bool si) {
    pulsanti_->setVisible(si);
}

} // namespace tavolet
