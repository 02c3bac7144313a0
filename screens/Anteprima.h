// Preview of the raster companion of an extract (.PNG, .TIF, .JPG) with zoom and dragging.
#pragma once

#include <QImage>
#include <QWidget>

class QMenu;

namespace tavolet {

struct Stato;

class Anteprima : public QWidget {
    Q_OBJECT
public:
    explicit Anteprima(Stato& stato, QWidget* parent = nullptr);

    // An empty path empties the view. A file that is not an image gives the load message.
    // True when an image was loaded.
    bool LoadImmagine(const QString& percorso);
    void DisegnaImage();
    // Commands 0 to 10.
    void Eseguicomando(int numero);

    int ImmagineLeft = 0, ImmagineTop = 0;
    int ImmagineLarghezza = 0, ImmagineAltezza = 0;
    const QImage& Immagine() const { return immagine_; }

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void contextMenuEvent(QContextMenuEvent*) override;

private:
    Stato& stato_;
    QImage immagine_;
    QMenu* menu_ = nullptr;
    bool trascina_ = false;
    QPoint inizio_;
    int inizioLeft_ = 0, inizioTop_ = 0;
};

} // namespace tavolet
