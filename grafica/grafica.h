// The plot component: the point and line tables, the shared view, the row lists, the loaders,
// the drawing passes over a Tela, the mouse work and the exporters. No painting here: a screen
// gives a Tela that paints, a test gives one that records.
#pragma once

#include "blocchi_tag.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace tavolet {

struct Stato;

struct PuntoGrafica {
    QString Nome;
    double X = 0, Y = 0, Z = 0;
    qint16 Colore = 0;
    QString Testo;
    double Angolo = 0; // degrees
    QString Font;
    double Dimensione = 0; // points
};

struct LineaGrafica {
    double X1 = 0, Y1 = 0, Z1 = 0;
    double X2 = 0, Y2 = 0, Z2 = 0;
    qint16 Spessore = 1;
    qint16 Colore = 0;
    qint16 Stile = 0; // 0 solid, 1 dash, 2 dot
};

// The view: one for the whole program, shared by every plot (see VistaCondivisa).
struct VistaGrafica {
    double XMin = 0, YMin = 0, XMax = 0, YMax = 0;
    double LarghezzaX = 0, LarghezzaY = 0;
    double CentroX = 0, CentroY = 0;
    double Altezza = 0; // world height shown; 640 whenever not above 0
    double Rapporto = 1;
    qint16 NomiNo = 0, ToponimiNo = 0, PFNo = 0;
};

// The view of the program. Plots that do not get another one share this.
VistaGrafica& VistaCondivisa();

// Where each name first appears in a table of points. The vertices of a map, "n%", nearly all
// of a sheet, are found by their number; other names by their text.
class IndiceNomiPunti {
public:
    void clear();
    int Trova(QStringView nome) const; // -1 when absent
    // The index of the name, unless the name has one already.
    void AggiungiSeNuovo(const QString& nome, int indice);

private:
    static int Numero(QStringView nome); // -1 when not a plain "n%" within the table's reach
    std::vector<int> perNumero_;         // -1 where no point has the number
    // The other names, in an open table of slots looked up by a view of the name: the fields
    // of a ring are tried as names without a string made for each.
    struct Altro {
        QString nome;
        int indice;
    };
    std::vector<Altro> altri_;
    std::vector<int> slot_; // a power of two of positions in altri_, -1 where free
};

struct GrigliaGrafica;
struct SchedePunti;

// The state of one plot control: tables, row lists, switches and the mouse's working values.
struct ModelloGrafica {
    explicit ModelloGrafica(VistaGrafica* vista = nullptr);

    QList<PuntoGrafica> Punti; // ContaPunti = Punti.size()
    QList<LineaGrafica> Linee; // ContaLinee = Linee.size()
    int ContaPunti() const { return int(Punti.size()); }
    int ContaLinee() const { return int(Linee.size()); }
    // The record at index i, or an empty one where the table has none (index 0 of an empty
    // table is all zero).
    PuntoGrafica Punto(int i) const;

    VistaGrafica* Vista; // never null
    qint16 PropostaSiNo = 0;

    std::array<QStringList, 2> List2; // 0 the extract (the drawing), 1 the Proposta
    QStringList List1, List3, List4, List5, List6;
    QStringList LibrettoOriginale;
    QString Percorso;     // the file last loaded
    QString FileLibretto; // the libretto file that AggiungiPuntoAFile appends to

    // Mouse work.
    QString Modo, NomeNuovo, PuntoVicino, PuntoPrecedente;
    int Fase = 0;
    double MouseX = 0, MouseY = 0;
    double PrimoX = 0, PrimoY = 0, SecondoX = 0, SecondoY = 0;
    double MedioX = 0, MedioY = 0;
    double DragX = 0, DragY = 0, DragCentroX = 0, DragCentroY = 0;

    // First index of each point name, kept with the table so that a ring finds its points
    // without a walk of the table.
    IndiceNomiPunti IndiceNomi;
    int TrovaPunto(QStringView nome) const; // -1 when absent

    // Every operation that adds to or empties the tables counts here. The redraw keeps a grid
    // of the records' places for views of a part of a large sheet, made again when this, the
    // sizes or the storage of the tables change: a record changed in place (not done anywhere)
    // would have to count here too.
    quint64 Versione = 0;
    std::shared_ptr<const GrigliaGrafica> Griglia;
    // What the passes read of each point (its kind by its name, place, size, turn, colour),
    // packed for the same version of the tables: the passes read neither the names nor the
    // whole records.
    std::shared_ptr<const SchedePunti> Schede;
};

// ---- The four switches (section CONFIGURA_GRAFICA1) ----
inline const QString kSezioneGrafica = QStringLiteral("CONFIGURA_GRAFICA1");
void LeggiOpzioniGrafica(Stato& stato, ModelloGrafica& g);
void SalvaOpzioniGrafica(Stato& stato, const ModelloGrafica& g);

// ---- Tables ----
void BV_AggiungiPuntoGraf(ModelloGrafica& g, const QString& nome, double x, double y, double z,
                          const QString& testo, int colore, double angolo, const QString& font,
                          double dimensione);
void BV_AggiungiLineaGraf(ModelloGrafica& g, double x1, double y1, double z1, double x2, double y2,
                          double z2, int colore, int spessore, int stile);
// The line between the first points of those names; nothing when either is missing.
void BV_AggiungiLineaGraf2Punti(ModelloGrafica& g, QStringView nome1, QStringView nome2, int colore,
                                int spessore, int stile);
// Both tables emptied and the view fitted.
void BV_Clear(ModelloGrafica& g);

// ---- View ----
void BV_ZoomTutto(ModelloGrafica& g);
void BV_ZoomPiu(ModelloGrafica& g);
void BV_ZoomMeno(ModelloGrafica& g);
void BV_ZoomUP(ModelloGrafica& g);
void BV_ZoomDown(ModelloGrafica& g);
void BV_ZoomLeft(ModelloGrafica& g);
void BV_ZoomRight(ModelloGrafica& g);
void CentraMouse(ModelloGrafica& g, double x, double y);
// Altezza as the redraw uses it: 640 when not above 0.
double AltezzaEffettiva(const VistaGrafica& v);

// ---- Loaders (each ends with GeneraGrafica, the CSV with BV_ZoomTutto) ----
void BV_CaricaEstratto_EMP(Stato& stato, ModelloGrafica& g, const QString& percorso);
void CaricaRigheEstratto(Stato& stato, ModelloGrafica& g, const QStringList& righe);
void BV_CaricaPropostaDaLibretto(Stato& stato, ModelloGrafica& g, const QString& percorso);
void BV_CaricaProposta_SUR(Stato& stato, ModelloGrafica& g, const QString& percorso);
// Rows split at the two section marks into List2(0) and List2(1).
void CaricaRigheProposta(Stato& stato, ModelloGrafica& g, const QStringList& righe);
void BV_Elaborazione_SUR(Stato& stato, ModelloGrafica& g, const QString& percorso);
void CaricaRigheElaborazione(Stato& stato, ModelloGrafica& g, const QStringList& righe);
void EsplodiPDF(Stato& stato, ModelloGrafica& g, const QString& percorso);
void EsplodiBlocchiTag(Stato& stato, ModelloGrafica& g, const BlocchiTag& blocchi);
void BV_LoadFileCSV(Stato& stato, ModelloGrafica& g, const QString& percorso);
void CaricaRigheCSV(Stato& stato, ModelloGrafica& g, const QStringList& righe);
// Loads a file by its kind as the screens do: .EMP (and .AGG, .SMP), .CSV, .PDF or any file
// holding tag blocks, a text with the section marks, else a .sur without marks. False when the
// file does not exist.
bool CaricaGraficaDaFile(Stato& stato, ModelloGrafica& g, const QString& percorso);

void GeneraGrafica(Stato& stato, ModelloGrafica& g);
void AggiungiGrafica(Stato& stato, ModelloGrafica& g, int indice, int proposta);
void BV_AggiungiNomeParticella(ModelloGrafica& g, const QString& riga, int colore);

// ---- Drawing ----
// What the drawing asks of a canvas. Coordinates are world coordinates already moved by the
// centre (x - CentroX, y - CentroY); Scala maps them to the surface.
class Tela {
public:
    virtual ~Tela() = default;
    // Size of the surface in millimetres and in pixels.
    virtual double LarghezzaMm() const = 0;
    virtual double AltezzaMm() const = 0;
    virtual double TwipsPerPixel() const { return 15; }
    virtual void Pulisci() = 0;
    // World coordinates of the upper left and the lower right corner.
    virtual void Scala(double x1, double y1, double x2, double y2) = 0;
    virtual void Linea(double x1, double y1, double x2, double y2, int spessore, int stile,
                       int colore) = 0;
    virtual void Cerchio(double x, double y, double raggio, int colore) = 0;
    // Text at the point, the font of that face, a height of altezzaPixel pixels, rotated by
    // angolo degrees counterclockwise, on a transparent background.
    virtual void Testo(double x, double y, const QString& testo, const QString& font,
                       double altezzaPixel, double angolo, int colore) = 0;

    // A Tela that can lay each stroke under the ones it already holds says yes here, and then
    // takes the strokes from the last to the first: the picture is the same, and what the
    // later strokes cover costs next to nothing. FinisciAlRovescio says no when the Tela gave
    // up; the strokes are then given again, in their order, on a cleared surface.
    virtual bool IniziaAlRovescio() { return false; }
    virtual bool FinisciAlRovescio() { return true; }

    // A text that the redraw names: the same serie and indice name the same text in the same
    // face in every redraw, so a Tela may keep what it works out for it (its glyphs' places)
    // and not read the text again. Serie 0 names nothing.
    struct ChiaveTesto {
        quint64 serie = 0;
        qsizetype indice = 0;
    };
    virtual void TestoNoto(ChiaveTesto chiave, double x, double y, const QString& testo,
                           const QString& font, double altezzaPixel, double angolo, int colore) {
        (void)chiave;
        Testo(x, y, testo, font, altezzaPixel, angolo, colore);
    }

    // Where a Tela taking strokes from the last is already wholly taken, in square tiles of
    // lato pixels (a power of two): a stroke on set tiles only changes nothing. A world point
    // x, y falls at x * sx + ox, y * sy + oy on the pixels, whose upper left corners are whole.
    struct Coperture {
        double ox = 0, oy = 0, sx = 0, sy = 0;
        int lato = 8, colonne = 0, righe = 0;
        std::vector<quint8> piene; // a byte per tile, by rows
        // Every tile that the world box, widened by margine pixels, reaches on the surface is
        // set: a stroke within the widened box changes nothing.
        bool Coperto(double x0, double y0, double x1, double y1, double margine) const {
            double a = x0 * sx + ox, b = x1 * sx + ox, c = y0 * sy + oy, d = y1 * sy + oy;
            if (a > b) std::swap(a, b);
            if (c > d) std::swap(c, d);
            a -= margine;
            b += margine;
            c -= margine;
            d += margine;
            if (!(a <= b && c <= d)) return false; // not a number
            const double w = double(colonne) * lato, h = double(righe) * lato;
            if (b < 0 || a >= w || d < 0 || c >= h) return true; // off the surface
            // Within the surface now, so whole and not negative: a cut is a floor.
            const int passo = std::countr_zero(unsigned(lato));
            const int tx0 = int(std::max(a, 0.0)) >> passo, tx1 = int(std::min(b, w - 1)) >> passo;
            const int ty0 = int(std::max(c, 0.0)) >> passo, ty1 = int(std::min(d, h - 1)) >> passo;
            for (int ty = ty0; ty <= ty1; ++ty)
                for (int tx = tx0; tx <= tx1; ++tx)
                    if (!piene[size_t(ty) * size_t(colonne) + size_t(tx)]) return false;
            return true;
        }
    };
    // The width and height in pixels of a text's line as this Tela sets it, from its upper left
    // corner before any turn: the thinned picture places names by it. A Tela that does not know
    // the face says a character is about half as wide as the line is high.
    virtual std::pair<double, double> Ingombro(const QString& testo, const QString& font,
                                               double altezzaPixel) {
        (void)font;
        const double h = std::abs(altezzaPixel);
        return {double(testo.size()) * h * 0.55, h};
    }

    // False when the Tela cannot say (then the map is left as it is).
    virtual bool MappaCoperture(Coperture& mappa) {
        (void)mappa;
        return false;
    }
};

// The QB palette as 0xRRGGBB.
unsigned int ColoreQB(int indice);

struct OpzioniDisegno {
    // Leave out what falls wholly outside the surface. The picture is the same either way.
    bool ritaglia = true;
    // With ritaglia, visit only the records near the view on a large sheet (the same strokes).
    bool griglia = true;
    // Give the strokes from the last to a Tela that can lay them underneath (the same picture).
    bool rovescio = true;
    // For the eye on a screen: a name only where it covers no name already placed (parcel
    // labels first, then toponyms, fiducial points, vertices), a vertex marker only a few pixels
    // away from the markers placed; the lines all. False: every record, as the exporters.
    bool dirada = false;
};

// The four passes of the redraw: lines, markers, toponyms, names, parcel labels.
void BV_RidisegnaGrafica(ModelloGrafica& g, Tela& tela, OpzioniDisegno opzioni = {});

// ---- Mouse ----
double DistanzaDuePuntiNuova(double x1, double y1, double x2, double y2);
int BV_IlPiuVicinoAlMouse(const ModelloGrafica& g, double x, double y);
QString TestoPuntiCoincidenti(const ModelloGrafica& g);
void BV_PuntiCoincidenti(Stato& stato, const ModelloGrafica& g);
void PuntoMedio(ModelloGrafica& g, double x1, double y1, double x2, double y2);

struct EtichetteMouse {
    QString prima;   // the names under the cursor and the nearest point's position
    QString seconda; // the canvas x and y
};
// Mouse move at canvas position (x, y) in world units from the canvas centre.
EtichetteMouse MuoviMouse(ModelloGrafica& g, double x, double y);
// Middle button held: the view follows the drag.
void TrascinaMouse(ModelloGrafica& g, double x, double y);
void IniziaTrascinamento(ModelloGrafica& g, double x, double y);
// Left click at canvas position (x, y): the mode's work or a recentre. True when the picture
// changed.
bool ClickSinistro(Stato& stato, ModelloGrafica& g, double x, double y);
void TerminaContorno(ModelloGrafica& g);
QString PercorsoContorno(const Stato& stato);

// ---- Exporters ----
QString TestoDXF(const ModelloGrafica& g);
QString PercorsoDXF(const Stato& stato);
// Writes the DXF (to PercorsoDXF when percorso is empty); false after an error report.
bool BV_SalvaDXF(Stato& stato, const ModelloGrafica& g, const QString& percorso = {});

QString TestoStampa(const ModelloGrafica& g);
QString PercorsoStampa(const Stato& stato);
bool GeneraStampa(Stato& stato, const ModelloGrafica& g, const QString& percorso = {});

QString TestoHTML5(const ModelloGrafica& g);
QString PercorsoHTML(const Stato& stato);
// Writes the page and, when apri, opens it with its default program.
bool GeneraHTML5_CANVAS(Stato& stato, const ModelloGrafica& g, const QString& percorso = {},
                        bool apri = true);

// Rows of the transfer file for the CAD program.
QString SalvaPuntoCopiaInFile(const QString& tipo, const PuntoGrafica& p, const QString& strato);
QString SalvaLineaCopiaInFile(const QString& tipo, const LineaGrafica& l, const QString& strato);
QString TestoCopiaInFile(const ModelloGrafica& g);
// The transfer file: under the CAD program's folder when it is installed, else the program's.
QString ApriCopiaInfile(const Stato& stato);
bool BV_CopiaInFile(Stato& stato, const ModelloGrafica& g, const QString& percorso = {});

// Appends 8|<NomeNuovo>|x|y| to g.FileLibretto.
bool AggiungiPuntoAFile(Stato& stato, const ModelloGrafica& g, double x, double y);

} // namespace tavolet
