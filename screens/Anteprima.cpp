#include "Anteprima.h"

#include "percorsi.h"
#include "stato.h"
#include "testo.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QImageReader>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

namespace tavolet {

Anteprima::Anteprima(Stato& stato, QWidget* parent) : QWidget(parent), stato_(stato) {
    setMinimumSize(80, 60);
    menu_ = new QMenu(this);
    QMenu* zoom = menu_->addMenu(QStringLiteral("Zoom"));
    const QList<std::pair<QString, int>> voci = {{QStringLiteral("Tutto"), 4},
                                                 {QStringLiteral("Dimensione reale"), 5},
                                                 {QStringLiteral("Ingrandisci"), 6},
                                                 {QStringLiteral("Riduci"), 7},
                                                 {QStringLiteral("Sposta a sinistra"), 8},
                                                 {QStringLiteral("Sposta a destra"), 9},
                                                 {QStringLiteral("In alto"), 0},
                                                 {QStringLiteral("A sinistra"), 1},
                                                 {QStringLiteral("A destra"), 2},
                                                 {QStringLiteral("In basso"), 3}};
    for (const auto& [testo, numero] : voci)
        zoom->addAction(testo, this, [this, n = numero] { Eseguicomando(n); });
    menu_->addAction(QStringLiteral("Copia"), this, [this] { Eseguicomando(10); });
}

bool Anteprima::LoadImmagine(const QString& percorso) {
    immagine_ = QImage();
    ImmagineLeft = ImmagineTop = ImmagineLarghezza = ImmagineAltezza = 0;
    if (percorso.isEmpty()) {
        update();
        return false;
    }
    // Qt's readers take PNG, JPG and, with the extra formats, TIF; the kind is read from the
    // content, so a PNG named .JPG still loads.
    QImageReader lettore(PercorsoLocale(percorso));
    lettore.setDecideFormatFromContent(true);
    lettore.setAllocationLimit(1024); // MB: an absurd header is refused, not allocated
    if (!lettore.read(&immagine_) || immagine_.isNull()) {
        immagine_ = QImage();
        stato_.piattaforma->Messaggio(QStringLiteral("Errore nel caricare l'immagine ") +
                                          NomeDelFile(percorso),
                                      QStringLiteral("GDI+ Module"), Icona::Critico);
        update();
        return false;
    }
    Eseguicomando(4);
    return true;
}

void Anteprima::DisegnaImage() {
    update();
}

void Anteprima::Eseguicomando(int numero) {
    const int passoX = std::max(1, ImmagineLarghezza / 20);
    const int passoY = std::max(1, ImmagineAltezza / 20);
    switch (numero) {
    case 0:
        ImmagineTop = 0;
        break;
    case 1:
        ImmagineLeft = 0;
        break;
    case 2:
        ImmagineLeft = width() - ImmagineLarghezza;
        break;
    case 3:
        ImmagineTop = height() - ImmagineAltezza;
        break;
    case 4: {
        if (immagine_.isNull()) break;
        // Fitted keeping proportions, centred in the viewport.
        const double scala =
            std::min(double(width()) / immagine_.width(), double(height()) / immagine_.height());
        ImmagineLarghezza = std::max(1, int(immagine_.width() * scala));
        ImmagineAltezza = std::max(1, int(immagine_.height() * scala));
        ImmagineLeft = (width() - ImmagineLarghezza) / 2;
        ImmagineTop = (height() - ImmagineAltezza) / 2;
        break;
    }
    case 5:
        ImmagineLarghezza = immagine_.width();
        ImmagineAltezza = immagine_.height();
        break;
    case 6:
        if (ImmagineLarghezza < 100000 && ImmagineAltezza < 100000) {
            ImmagineLeft -= passoX / 2;
            ImmagineTop -= passoY / 2;
            ImmagineLarghezza += passoX;
            ImmagineAltezza += passoY;
        }
        break;
    case 7:
        if (ImmagineLarghezza > 2 * passoX && ImmagineAltezza > 2 * passoY) {
            ImmagineLeft += passoX / 2;
            ImmagineTop += passoY / 2;
            ImmagineLarghezza -= passoX;
            ImmagineAltezza -= passoY;
        }
        break;
    case 8:
        ImmagineLeft -= passoX;
        break;
    case 9:
        ImmagineLeft += passoX;
        break;
    case 10:
        if (QClipboard* appunti = QGuiApplication::clipboard()) appunti->setImage(grab().toImage());
        stato_.piattaforma->Messaggio(QStringLiteral("Immagine copiata negli Appunti!"),
                                      QStringLiteral("Copia Schermo"), Icona::Informazione);
        break;
    default:
        break;
    }
    DisegnaImage();
}

void Anteprima::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().window());
    if (immagine_.isNull()) return;
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(QRect(ImmagineLeft, ImmagineTop, ImmagineLarghezza, ImmagineAltezza), immagine_);
}

void Anteprima::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton) return;
    trascina_ = true;
    inizio_ = e->position().toPoint();
    inizioLeft_ = ImmagineLeft;
    inizioTop_ = ImmagineTop;
    setCursor(Qt::OpenHandCursor);
}

void Anteprima::mouseMoveEvent(QMouseEvent* e) {
    if (!trascina_) return;
    const QPoint d = e->position().toPoint() - inizio_;
    ImmagineLeft = inizioLeft_ + d.x();
    ImmagineTop = inizioTop_ + d.y();
    DisegnaImage();
}

void Anteprima::mouseReleaseEvent(QMouseEvent*) {
    trascina_ = false;
    unsetCursor();
}

void Anteprima::contextMenuEvent(QContextMenuEvent* e) {
    menu_->popup(e->globalPos());
}

} // namespace tavolet
