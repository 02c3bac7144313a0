// The Tela of the plot on the pixels of a QImage. A joined comune puts a hundred thousand
// markers and names on the canvas at every zoom step: here they are written straight into the
// image, the names from glyphs rendered once per face and size. What this way does not do (thick
// or huge strokes, turned or complex text) goes through a QPainter on the same image, in turn,
// so that the order of the strokes is kept.
#pragma once

#include "TelaQt.h"
#include "grafica.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QPainter>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace tavolet {

// The glyphs of the faces and sizes a plot uses, kept between redraws.
class CacheGlifi {
public:
    struct Tratto {
        qint16 riga, x0, x1; // a run of covered pixels, x1 excluded
        qint32 primo;        // where its coverage starts in Glifo::copertura
    };
    struct Glifo {
        bool pronto = false;
        double avanzamento = 0;
        int dx = 0, dy = 0; // the mask's upper left corner from the pen on the baseline
        int larghezza = 0, altezza = 0;
        std::vector<Tratto> tratti;
        std::vector<quint8> copertura;
        mutable std::vector<quint8> maschera; // the coverage in full rows, made when turned
        bool opaco = true;                    // every covered pixel wholly
        std::vector<quint64> righe; // opaque and at most 64 wide: each row's pixels as bits
    };
    struct Faccia {
        QFont font;
        double ascesa = 0;
        std::array<Glifo, 256> latini;
        QHash<char16_t, Glifo> altri;
    };
    // The face of that name at that pixel height.
    Faccia& Di(const QString& faccia, int pixel);
    const Glifo& GlifoDi(Faccia& f, char16_t c);
    static const std::vector<quint8>& Maschera(const Glifo& g);
    void Svuota() { facce_.clear(); }

private:
    QHash<ChiaveFaccia, std::shared_ptr<Faccia>> facce_;
};

class TelaImmagine : public TelaSuPixel {
public:
    // The image is drawn whole; dpi gives its millimetres and twips. Without a cache of
    // glyphs the Tela keeps its own for this drawing.
    explicit TelaImmagine(QImage& immagine, double dpi = 96, CacheGlifi* glifi = nullptr);
    ~TelaImmagine() override;

    void Pulisci() override;
    void Linea(double x1, double y1, double x2, double y2, int spessore, int stile,
               int colore) override;
    void Cerchio(double x, double y, double raggio, int colore) override;
    void Testo(double x, double y, const QString& testo, const QString& font, double altezzaPixel,
               double angolo, int colore) override;

    // Tiles known to be of one colour let a glyph that would change no pixel be passed over;
    // on by default, off in the tests that prove the picture is the same.
    void UsaMappaTinte(bool si) { mappa_ = si; }

    // Every stroke here covers its pixels wholly, so it can be laid under the ones already
    // drawn: a pixel takes the first colour it gets and keeps it. Text that only the painter
    // can set makes the Tela give up. On by default; the tests draw both ways.
    bool IniziaAlRovescio() override;
    bool FinisciAlRovescio() override;
    void UsaRovescio(bool si) { rovescioAmmesso_ = si; }

private:
    QPainter& Pittore();
    CacheGlifi::Faccia& FacciaDi(const QString& font, int pixel);
    void Pixel(int x, int y, quint32 colore);
    // A pixel wholly covered, in either order.
    void Scrivi(int x, int y, quint32 colore);
    void LineaSpessa(QPointF a, QPointF b, int larghezza, int stile, quint32 colore);
    void AnelloGrande(QPointF c, double r, quint32 colore);
    // Every pixel of the box already taken (what lies off the image counts as taken).
    bool Presi(int x0, int y0, int x1, int y1) const;
    // The glyphs in posti_, wholly within the image's width, from the last stroke.
    void TestoSotto(int base, int x0, int y0, int y1, quint32 colore);
    std::vector<quint64> unione_;
    // The glyph at gx, gy from the last stroke, where the text crosses an edge of the image.
    void GlifoSotto(const CacheGlifi::Glifo& g, int gx, int gy, quint32 colore);
    bool TestoDiretto(QPointF c, const QString& testo, CacheGlifi::Faccia& f, quint32 colore);
    bool TestoRuotato(QPointF c, const QString& testo, CacheGlifi::Faccia& f, double angolo,
                      quint32 colore);

    QImage& img_;
    uchar* bits_ = nullptr; // null: every stroke through the painter
    qsizetype riga_ = 0;
    std::unique_ptr<QPainter> pittore_;
    std::unique_ptr<CacheGlifi> propria_;
    CacheGlifi* glifi_;
    CacheGlifi::Faccia* ultima_ = nullptr;
    QString ultimaFaccia_;
    int ultimoPixel_ = -1;
    // Tiles of 8 x 8 pixels known to be all of one colour (0: not known). On a sheet seen
    // whole the names cover the canvas many times over, and blending a colour into pixels of
    // that very colour leaves them as they are.
    void Tocca(int tessera, quint32 colore);
    void Verifica();
    bool TuttoDiColore(int x0, int y0, int x1, int y1, quint32 colore) const;
    bool mappa_ = true;
    int tw_ = 0, th_ = 0;
    std::vector<quint32> tinte_;
    // A tile's colour holds only in the epoch it was seen in: the painter, whose strokes are
    // not followed, begins a new one.
    std::vector<quint32> epoche_;
    quint32 epoca_ = 1;
    std::vector<quint8> inDubbio_;
    std::vector<int> daVedere_;
    int glifiDallaVerifica_ = 0;
    int ultimaTessera_ = -1;
    quint32 ultimoColore_ = 0, ultimaEpoca_ = 0;

    // Drawing from the last stroke: a bit per pixel already taken.
    bool rovescioAmmesso_ = true, rovescio_ = false, rinuncia_ = false;
    int parole_ = 0; // words of bits per row
    std::vector<quint64> presi_;
    std::vector<std::pair<const CacheGlifi::Glifo*, int>> posti_; // a text's glyphs and x

    // The rings of the last marker radius, one per eighth of a pixel of the centre.
    int raggio16_ = -1;
    std::array<std::vector<std::pair<int, int>>, 64> anelli_;
};

} // namespace tavolet
