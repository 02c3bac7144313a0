// The Tela of the plot on the pixels of a QImage. A joined comune puts a hundred thousand
// markers and names on the canvas at every zoom step: here they are written straight into the
// image, the names from glyphs rendered once per face and size. Strokes taken from the last set
// bits (a pixel taken, and its colour's plane) and the pixels are written once at the end; the
// texts the redraw names keep their glyphs as one mask between redraws, and the Tela tells the
// redraw where it is already wholly taken. What this way does not do (turned text outside the
// glyphs, huge text) goes through a QPainter on the same image, in order.
#pragma once

#include "TelaQt.h"
#include "grafica.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QPainter>

#include <array>
#include <climits>
#include <cmath>
#include <memory>
#include <unordered_map>
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
        double discesa = 0; // below the baseline
        std::array<Glifo, 256> latini;
        std::unordered_map<char16_t, Glifo> altri; // its glyphs stay where they are
    };
    // The face of that name at that pixel height.
    Faccia& Di(const QString& faccia, int pixel);
    const Glifo& GlifoDi(Faccia& f, char16_t c);
    static const std::vector<quint8>& Maschera(const Glifo& g);
    void Svuota() {
        facce_.clear();
        impaginati_.clear();
        maschere_.clear();
        sprecate_ = 0;
    }

private:
    friend class TelaImmagine;
    QHash<ChiaveFaccia, std::shared_ptr<Faccia>> facce_;

    // The texts the redraw names (Tela::ChiaveTesto), by their index: the glyphs of each made
    // into one mask of rows of bits, laid at the text's place in every redraw without reading
    // the text again.
    struct Impaginato {
        quint64 serie = 0; // 0: nothing kept
        Faccia* faccia = nullptr;
        qint32 maschera = -1;  // its first word in maschere_; -1: not made yet
        qint16 x0 = 0, y0 = 0; // the box's corner from the pen rounded to a pixel, on the baseline
        quint16 larghezza = 0, parole = 0, righe = 0;
        qint16 pixel = 0;
        enum : quint8 { kMaschera, kNiente, kAltrove } modo = kNiente; // kAltrove: as any text
    };
    std::vector<Impaginato> impaginati_;
    std::vector<quint64> maschere_;
    size_t sprecate_ = 0; // words of masks no longer named
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
    void TestoNoto(ChiaveTesto chiave, double x, double y, const QString& testo,
                   const QString& font, double altezzaPixel, double angolo, int colore) override;

    // Tiles known to be of one colour let a glyph that would change no pixel be passed over;
    // on by default, off in the tests that prove the picture is the same.
    void UsaMappaTinte(bool si) { mappa_ = si; }

    // Every stroke here covers its pixels wholly, so it can be laid under the ones already
    // drawn: a pixel takes the first colour it gets and keeps it. Text that only the painter
    // can set makes the Tela give up. On by default; the tests draw both ways.
    bool IniziaAlRovescio() override;
    bool FinisciAlRovescio() override;
    bool MappaCoperture(Coperture& mappa) override;
    std::pair<double, double> Ingombro(const QString& testo, const QString& font,
                                       double altezzaPixel) override;
    void UsaRovescio(bool si) { rovescioAmmesso_ = si; }

    // A colour of the QB palette: its pixel and its place in the palette.
    struct Tinta {
        quint32 argb;
        int indice;
    };

private:
    QPainter& Pittore();
    CacheGlifi::Faccia& FacciaDi(const QString& font, int pixel);
    void Pixel(int x, int y, quint32 colore);
    // A pixel wholly covered, in either order.
    void Scrivi(int x, int y, Tinta colore);
    void LineaSpessa(QPointF a, QPointF b, int larghezza, int stile, Tinta colore);
    void AnelloGrande(QPointF c, double r, Tinta colore);
    // Every pixel of the box already taken (what lies off the image counts as taken).
    bool Presi(int x0, int y0, int x1, int y1) const;
    // The glyphs of a text in posti_, each at a whole pixel from the pen rounded to a pixel,
    // and the box of their ink from there and the baseline.
    struct Scatola {
        int x0 = INT_MAX, y0 = INT_MAX, x1 = INT_MIN, y1 = INT_MIN;
        bool righe = true; // every glyph with ink has its rows as bits
        bool Vuota() const { return x0 > x1; }
        int Parole() const { return ((x1 - x0) >> 6) + 1; }
        int Righe() const { return y1 - y0 + 1; }
        // Small enough to be made one mask.
        bool Componibile() const { return righe && x1 - x0 < 16384 && y1 - y0 < 4096; }
    };
    Scatola Impagina(CacheGlifi::Faccia& f, const QString& testo);
    // The glyphs in posti_ as one mask of rows of words, bit 0 at the box's left edge: glyphs
    // of one colour over each other leave the same pixels either way round.
    void Componi(const Scatola& s, quint64* maschera) const;
    // A mask whose upper left pixel falls at x0, y0, under the pixels already taken.
    void Stendi(const quint64* maschera, int parole, int righe, int x0, int y0, Tinta colore);
    std::vector<quint64> unione_;
    quint64 coda_ = 0; // the bits of a row's last word that lie within the image
    // The glyph at gx, gy from the last stroke, where the text crosses an edge of the image.
    void GlifoSotto(const CacheGlifi::Glifo& g, int gx, int gy, Tinta colore);
    bool TestoDiretto(QPointF c, const QString& testo, CacheGlifi::Faccia& f, Tinta colore);
    bool TestoRuotato(QPointF c, const QString& testo, CacheGlifi::Faccia& f, double angolo,
                      Tinta colore);

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
    // The pixels each colour takes, written into the image when the strokes are over.
    std::array<std::vector<quint64>, 16> piani_;
    quint32 usati_ = 0; // the colours with a plane
    quint64* Piano(int indice) {
        return usati_ & (1u << indice) ? piani_[size_t(indice)].data() : NuovoPiano(indice);
    }
    quint64* NuovoPiano(int indice);
    // The whole pixels of a text's height, and the last height asked.
    int PixelDi(double altezza);
    double ultimaAltezza_ = std::nan("");
    int ultimoPixelDi_ = 1;
    std::vector<std::pair<const CacheGlifi::Glifo*, int>> posti_; // a text's glyphs and x

    // The rings of the last marker radius, one per eighth of a pixel of the centre.
    int raggio16_ = -1;
    double ultimoRaggio_ = std::nan("");
    int ultimoR16_ = 0;
    std::array<std::vector<std::pair<int, int>>, 64> anelli_;
};

} // namespace tavolet
