// The layers written through GDAL's C interface: a GeoPackage, or GeoJSON files.
#include "gis.h"

#include "errore.h"
#include "file_testo.h"
#include "stato.h"
#include "testo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cpl_error.h>
#include <gdal.h>
#include <ogr_api.h>
#include <ogr_srs_api.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <mutex>

namespace tavolet {

namespace {

struct CampoStrato {
    const char* nome;
    OGRFieldType tipo;
};

// Every layer starts with the sheet's fields and ends with the file's name.
const std::vector<CampoStrato> kTesta = {{"comune", OFTString},
                                         {"sezione", OFTString},
                                         {"foglio", OFTString},
                                         {"allegato", OFTString},
                                         {"sviluppo", OFTString}};

struct Strato {
    const char* nome;
    OGRwkbGeometryType geometria;
    std::vector<CampoStrato> campi; // between the sheet's fields and "sorgente"
};

const Strato kParticelle = {"particelle",
                            wkbPolygon,
                            {{"nome", OFTString},
                             {"tipo", OFTString},
                             {"area_dichiarata", OFTReal},
                             {"area_calcolata", OFTReal}}};
const Strato kLinee = {"linee", wkbLineString, {{"tratto", OFTString}, {"esterno", OFTInteger}}};
const Strato kTesti = {"testi",
                       wkbPoint,
                       {{"testo", OFTString},
                        {"altezza", OFTReal},
                        {"angolo", OFTReal},
                        {"angolo_gradi", OFTReal},
                        {"esterno", OFTInteger}}};
const Strato kSimboli = {"simboli",
                         wkbPoint,
                         {{"codice", OFTInteger},
                          {"angolo", OFTReal},
                          {"angolo_gradi", OFTReal},
                          {"esterno", OFTInteger}}};
const Strato kFiduciali = {"fiduciali",
                           wkbPoint,
                           {{"nome", OFTString},
                            {"codice", OFTInteger},
                            {"etichetta_x", OFTReal},
                            {"etichetta_y", OFTReal}}};
const Strato kVertici = {"vertici", wkbPoint, {{"nome", OFTString}}};

constexpr double kGradi = 180.0 / 3.14159265358979323846;

void Registra() {
    static std::once_flag fatto;
    std::call_once(fatto, [] { GDALAllRegister(); });
}

struct Errore_GDAL {
    QString testo;
};

[[noreturn]] void Fallisce(const QString& cosa) {
    const QString gdal = QString::fromUtf8(CPLGetLastErrorMsg());
    throw Errore_GDAL{gdal.isEmpty() ? cosa : cosa + QStringLiteral(": ") + gdal};
}

// A feature being filled; its fields by index, the sheet's first.
class Elemento {
public:
    Elemento(OGRLayerH strato, const FoglioGis& f, int& scritti)
        : strato_(strato), h_(OGR_F_Create(OGR_L_GetLayerDefn(strato))), scritti_(scritti) {
        const QString* testa[] = {&f.comune, &f.sezione, &f.foglio, &f.allegato, &f.sviluppo};
        for (const QString* t : testa) Testo(*t);
        sorgente_ = f.sorgente.toUtf8();
    }
    ~Elemento() { OGR_F_Destroy(h_); }
    Elemento(const Elemento&) = delete;
    Elemento& operator=(const Elemento&) = delete;

    Elemento& Testo(const QString& t) {
        if (t.isEmpty())
            OGR_F_SetFieldNull(h_, i_++);
        else
            OGR_F_SetFieldString(h_, i_++, t.toUtf8().constData());
        return *this;
    }
    Elemento& Reale(std::optional<double> v) {
        if (v)
            OGR_F_SetFieldDouble(h_, i_++, *v);
        else
            OGR_F_SetFieldNull(h_, i_++);
        return *this;
    }
    Elemento& Intero(std::optional<int> v) {
        if (v)
            OGR_F_SetFieldInteger(h_, i_++, *v);
        else
            OGR_F_SetFieldNull(h_, i_++);
        return *this;
    }
    // The geometry is handed over; the feature goes into the layer.
    void Scrivi(OGRGeometryH g) {
        OGR_F_SetFieldString(h_, i_++, sorgente_.constData());
        OGR_F_SetGeometryDirectly(h_, g);
        if (OGR_L_CreateFeature(strato_, h_) != OGRERR_NONE)
            Fallisce(QStringLiteral("elemento non scritto"));
        ++scritti_;
    }

private:
    OGRLayerH strato_;
    OGRFeatureH h_;
    int i_ = 0;
    QByteArray sorgente_;
    int& scritti_;
};

OGRGeometryH Punto(const PuntoGis& p) {
    OGRGeometryH g = OGR_G_CreateGeometry(wkbPoint);
    OGR_G_SetPoint_2D(g, 0, p.x, p.y);
    return g;
}

OGRGeometryH Tratto(OGRwkbGeometryType tipo, const std::vector<PuntoGis>& punti) {
    OGRGeometryH g = OGR_G_CreateGeometry(tipo);
    OGR_G_SetPoints(g, int(punti.size()), &punti[0].x, sizeof(PuntoGis), &punti[0].y,
                    sizeof(PuntoGis), nullptr, 0);
    return g;
}

OGRLayerH CreaStrato(GDALDatasetH ds, const Strato& s, OGRSpatialReferenceH srs) {
    OGRLayerH strato = GDALDatasetCreateLayer(ds, s.nome, srs, s.geometria, nullptr);
    if (!strato) Fallisce(QStringLiteral("strato %1 non creato").arg(s.nome));
    std::vector<CampoStrato> campi = kTesta;
    campi.insert(campi.end(), s.campi.begin(), s.campi.end());
    campi.push_back({"sorgente", OFTString});
    for (const CampoStrato& c : campi) {
        OGRFieldDefnH d = OGR_Fld_Create(c.nome, c.tipo);
        const OGRErr esito = OGR_L_CreateField(strato, d, TRUE);
        OGR_Fld_Destroy(d);
        if (esito != OGRERR_NONE) Fallisce(QStringLiteral("campo %1 non creato").arg(c.nome));
    }
    return strato;
}

// The features of one layer from every sheet.
using Riempi = std::function<void(OGRLayerH, const FoglioGis&)>;

struct Uscita {
    const Strato* strato;
    Riempi riempi;
    int* conta;
    bool vuoto; // nothing to write: GeoJSON leaves the file out
};

struct Dataset {
    GDALDatasetH h = nullptr;
    ~Dataset() {
        if (h) GDALClose(h);
    }
};

} // namespace

EsitoGis ScriviGis(const std::vector<FoglioGis>& fogli, const QString& percorso,
                   const OpzioniGis& opzioni) {
    EsitoGis esito;
    Registra();
    CPLPushErrorHandler(CPLQuietErrorHandler);
    CPLErrorReset();
    std::unique_ptr<void, void (*)(void*)> srs(nullptr, [](void* h) {
        if (h) OSRRelease(static_cast<OGRSpatialReferenceH>(h));
    });
    QStringList temporanei;
    try {
        const bool geojson = opzioni.formato.compare(u"GeoJSON", Qt::CaseInsensitive) == 0;
        if (!geojson && opzioni.formato.compare(u"GPKG", Qt::CaseInsensitive) != 0)
            throw Errore_GDAL{
                QStringLiteral("formato %1 sconosciuto: GPKG o GeoJSON").arg(opzioni.formato)};
        if (!opzioni.crs.isEmpty()) {
            srs.reset(OSRNewSpatialReference(nullptr));
            auto h = static_cast<OGRSpatialReferenceH>(srs.get());
            if (OSRSetFromUserInput(h, opzioni.crs.toUtf8().constData()) != OGRERR_NONE)
                throw Errore_GDAL{
                    QStringLiteral("sistema di riferimento %1 non riconosciuto").arg(opzioni.crs)};
            OSRSetAxisMappingStrategy(h, OAMS_TRADITIONAL_GIS_ORDER);
        }
        GDALDriverH driver = GDALGetDriverByName(geojson ? "GeoJSON" : "GPKG");
        if (!driver) Fallisce(QStringLiteral("GDAL non ha il driver %1").arg(opzioni.formato));

        int scritti = 0; // features of the layer being written
        auto particelle = [&](OGRLayerH l, const FoglioGis& f) {
            for (const FoglioGis::Particella& p : f.particelle) {
                OGRGeometryH g = OGR_G_CreateGeometry(wkbPolygon);
                for (const auto& anello : p.anelli)
                    OGR_G_AddGeometryDirectly(g, Tratto(wkbLinearRing, anello));
                if (!OGR_G_IsValid(g))
                    esito.nonValidi << f.sorgente + QStringLiteral(": ") + p.tipo + u' ' + p.nome;
                Elemento(l, f, scritti)
                    .Testo(p.nome)
                    .Testo(p.tipo)
                    .Reale(p.areaDichiarata)
                    .Reale(OGR_G_Area(g))
                    .Scrivi(g);
            }
        };
        auto linee = [&](OGRLayerH l, const FoglioGis& f) {
            for (const auto& x : f.linee)
                Elemento(l, f, scritti)
                    .Testo(x.tratto)
                    .Intero(x.esterno)
                    .Scrivi(Tratto(wkbLineString, x.punti));
        };
        auto testi = [&](OGRLayerH l, const FoglioGis& f) {
            for (const auto& t : f.testi)
                Elemento(l, f, scritti)
                    .Testo(t.testo)
                    .Reale(t.altezza)
                    .Reale(t.angolo)
                    .Reale(t.angolo * kGradi)
                    .Intero(t.esterno)
                    .Scrivi(Punto(t.p));
        };
        auto simboli = [&](OGRLayerH l, const FoglioGis& f) {
            for (const auto& s : f.simboli)
                Elemento(l, f, scritti)
                    .Intero(s.codice)
                    .Reale(s.angolo)
                    .Reale(s.angolo * kGradi)
                    .Intero(s.esterno)
                    .Scrivi(Punto(s.p));
        };
        auto fiduciali = [&](OGRLayerH l, const FoglioGis& f) {
            for (const auto& x : f.fiduciali) {
                const auto e = x.etichetta;
                Elemento(l, f, scritti)
                    .Testo(x.nome)
                    .Intero(x.codice)
                    .Reale(e ? std::optional(e->x) : std::nullopt)
                    .Reale(e ? std::optional(e->y) : std::nullopt)
                    .Scrivi(Punto(x.p));
            }
        };
        auto vertici = [&](OGRLayerH l, const FoglioGis& f) {
            for (const auto& v : f.vertici)
                Elemento(l, f, scritti).Testo(v.nome).Scrivi(Punto(v.p));
        };
        auto vuoto = [&](auto membro) {
            for (const FoglioGis& f : fogli)
                if (!(f.*membro).empty()) return false;
            return true;
        };
        const std::vector<Uscita> uscite = {
            {&kParticelle, particelle, &esito.particelle, false},
            {&kLinee, linee, &esito.linee, vuoto(&FoglioGis::linee)},
            {&kTesti, testi, &esito.testi, vuoto(&FoglioGis::testi)},
            {&kSimboli, simboli, &esito.simboli, vuoto(&FoglioGis::simboli)},
            {&kFiduciali, fiduciali, &esito.fiduciali, vuoto(&FoglioGis::fiduciali)},
            {&kVertici, vertici, &esito.vertici, vuoto(&FoglioGis::vertici)}};

        const QFileInfo info(percorso);
        auto temporaneo = [&](const QString& finale) {
            // The driver knows its files by the extension, which the temporary one keeps.
            const QFileInfo i(finale);
            const QString t = i.dir().filePath(i.completeBaseName() +
                                               QStringLiteral(".tavolet-tmp.") + i.suffix());
            QFile::remove(t);
            temporanei << t << finale;
            return t;
        };
        auto crea = [&](const QString& file) {
            Dataset ds;
            ds.h = GDALCreate(driver, temporaneo(file).toUtf8().constData(), 0, 0, 0, GDT_Unknown,
                              nullptr);
            if (!ds.h) Fallisce(QStringLiteral("%1 non creato").arg(file));
            return ds;
        };
        auto scrivi = [&](GDALDatasetH ds, const Uscita& u) {
            OGRLayerH l = CreaStrato(ds, *u.strato, static_cast<OGRSpatialReferenceH>(srs.get()));
            // One transaction for the whole layer: a GeoPackage row by row is a hundred times
            // slower. GeoJSON has none.
            const bool transazione =
                !geojson && GDALDatasetStartTransaction(ds, FALSE) == OGRERR_NONE;
            scritti = 0;
            for (const FoglioGis& f : fogli) u.riempi(l, f);
            if (transazione && GDALDatasetCommitTransaction(ds) != OGRERR_NONE)
                Fallisce(QStringLiteral("strato %1 non scritto").arg(u.strato->nome));
            *u.conta = scritti;
        };
        if (geojson) {
            const QString base = info.dir().filePath(info.completeBaseName());
            for (const Uscita& u : uscite) {
                if (u.vuoto) continue;
                const QString file = u.strato == &kParticelle
                                         ? percorso
                                         : base + u'_' + QString::fromLatin1(u.strato->nome) +
                                               QStringLiteral(".geojson");
                Dataset ds = crea(file);
                scrivi(ds.h, u);
            }
        } else {
            Dataset ds = crea(percorso);
            for (const Uscita& u : uscite) scrivi(ds.h, u);
        }
        // Closed: the temporary files take the names asked for.
        for (qsizetype i = 0; i + 1 < temporanei.size(); i += 2) {
            if (std::rename(QFile::encodeName(temporanei[i]).constData(),
                            QFile::encodeName(temporanei[i + 1]).constData()) != 0)
                throw Errore_GDAL{QStringLiteral("%1 non si può scrivere").arg(temporanei[i + 1])};
            esito.file << temporanei[i + 1];
        }
        esito.scritto = true;
    } catch (const Errore_GDAL& e) {
        esito.errore = e.testo;
        for (qsizetype i = 0; i < temporanei.size(); i += 2) QFile::remove(temporanei[i]);
    }
    CPLPopErrorHandler();
    return esito;
}

int EsportaGis(Stato& stato, const QStringList& ingressi, const QString& uscita,
               const OpzioniGis& opzioni, bool* saltati) {
    const QString titolo = QStringLiteral("Esporta GeoPackage");
    QStringList avvisi;
    std::vector<FoglioGis> fogli;
    for (const QString& file : IngressiGis(ingressi, avvisi))
        if (auto f = LeggiIngressoGis(stato, file, avvisi)) fogli.push_back(std::move(*f));
    if (saltati) *saltati = !avvisi.isEmpty();
    if (!avvisi.isEmpty())
        stato.piattaforma->Messaggio(QStringLiteral("Tralasciato:") + CRLF + avvisi.join(CRLF),
                                     titolo, Icona::Avviso);
    if (fogli.empty()) {
        stato.piattaforma->Messaggio(QStringLiteral("Nessun estratto o foglio CXF da esportare."),
                                     titolo, Icona::Avviso);
        return -1;
    }
    const EsitoGis esito = ScriviGis(fogli, uscita, opzioni);
    if (!esito.nonValidi.isEmpty())
        stato.piattaforma->Messaggio(
            QStringLiteral("Poligoni non validi per GDAL, scritti come sono:") + CRLF +
                esito.nonValidi.join(CRLF),
            titolo, Icona::Avviso);
    if (!esito.scritto) {
        stato.piattaforma->Messaggio(uscita + QStringLiteral(" non scritto: ") + esito.errore,
                                     titolo, Icona::Critico);
        return -1;
    }
    return esito.particelle;
}

} // namespace tavolet
