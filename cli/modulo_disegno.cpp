// The module of "grafica png": the GUI application and the picture drawn by the window's Tela.
#include "TelaImmagine.h"
#include "grafica.h"

#include <QGuiApplication>
#include <QImage>

extern "C" {

__attribute__((visibility("default"))) QCoreApplication* tavolet_applicazione_disegno(int* argc,
                                                                                      char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    return new QGuiApplication(*argc, argv);
}

__attribute__((visibility("default"))) int tavolet_disegna_png(const tavolet::ModelloGrafica* g,
                                                               int w, int h, const QString* file,
                                                               bool dirada) {
    QImage immagine(w, h, QImage::Format_RGB32);
    if (immagine.isNull()) return 1;
    {
        tavolet::TelaImmagine tela(immagine);
        // The picture is for the eye: what would cover itself is thinned, as on screen, unless
        // every name is asked for.
        tavolet::OpzioniDisegno opzioni;
        opzioni.dirada = dirada;
        tavolet::BV_RidisegnaGrafica(const_cast<tavolet::ModelloGrafica&>(*g), tela, opzioni);
    }
    return immagine.save(*file, "PNG") ? 0 : 1;
}
}
