// RiscriviEstratto: read and save in one go over the bytes of the file. The vertices and the
// rings, nearly all of a large extract, stay in the bytes read and are indexed by position; only
// the short lists become rows of text. Whatever this way does not describe goes the long way.
#include "estratto.h"

#include "byte.h"

#include "errore.h"
#include "file_testo.h"
#include "interno.h"
#include "percorsi.h"
#include "stato.h"
#include "testo.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>
#include <unordered_map>
#include <vector>

namespace tavolet {

using namespace estratti;

namespace {

// Input the short way does not take: the long way reads the file again.
struct NonAdatto {};

struct Tratto {
    qsizetype inizio = 0, lunghezza = 0;
};

// A row of Punti: the key of the sort (the first nine characters of the id, right-aligned in
// ten columns and lower-cased, seven bits each), where the row stands, the number its id gives
// the renumbering (-1: none), north and east. All read in the order of the file, so that the
// rows themselves are visited again only to be written.
struct Punto {
    quint64 chiave;
    quint32 inizio; // the row runs to the line end
    qint32 numero;
    double nord, est;
};

// A ring: its first row, and the continuation rows carried to it (in the order of the file).
struct Anello {
    quint32 inizio, lunghezza; // the ring row
    quint32 primoPezzo, pezzi;
};
struct Pezzo {
    qsizetype inizio, lunghezza;
    bool proprio; // in the buffer of the pieces, not in the bytes of the file
};

class Riscrittura {
public:
    Riscrittura(Stato& stato, const QByteArray& dati) : stato_(stato), dati_(dati) {}

    void Leggi() {
        const char* d = dati_.constData();
        const qsizetype n = dati_.size();
        if (n > 0xFFFFFFFFLL) throw NonAdatto{}; // positions are kept in 32 bits
        // Room for the rows 8 and 7 at once: a growing list would hold two copies for a while.
        // Counted by line feeds; a file ended by CR alone only makes the lists grow.
        size_t otto = 0, sette = 0;
        for (const char* p = d; p < d + n;) {
            otto += *p == '8';
            sette += *p == '7';
            const void* a = std::memchr(p, '\n', size_t(d + n - p));
            if (!a) break;
            p = static_cast<const char*>(a) + 1;
        }
        punti_.reserve(otto);
        sette_.reserve(sette);
        anelli_.reserve(sette);
        qsizetype i = 0;
        bool prima = true;
        while (i < n) {
            qsizetype j = FineRiga(d, i, n);
            const Tratto riga{i, j - i};
            if (j < n && d[j] == '\r' && j + 1 < n && d[j + 1] == '\n') ++j;
            i = j + 1;
            if (prima) {
                zero_ = riga;
                prima = false;
            } else {
                Instrada(riga);
            }
        }
        if (prima || punti_.empty()) throw NonAdatto{};
        UnisciAnelli();
        UnisciLinee(corte_);
        // The head must read as the reader reads it: fields 3 to 6 and a date.
        const QStringList testa = Split(Testo(zero_), QStringLiteral("|"));
        if (testa.size() < 7) throw NonAdatto{};
        QString data = testa[1];
        if (data == u"AUTOALLESTITO") data = QStringLiteral("01122009");
        MesiEstratto(data, stato_.piattaforma->Adesso().date());
        double minimo = punti_[0].est, massimo = minimo;
        for (const Punto& p : punti_) {
            minimo = std::min(minimo, p.est);
            massimo = std::max(massimo, p.est);
        }
        Formato((minimo + massimo) / 2, QStringLiteral("###########0"));
    }

    // The save up to the file: sort, renumbering, areas, the short lists.
    void Prepara() {
        Ordina();
        const qsizetype conta = qsizetype(punti_.size());
        RinumeraToponimi(corte_, conta);
        RinumeraPuntiLinee(corte_, conta);
        // Areas, then the rings taken off by "-" names.
        aree_.resize(anelli_.size());
        std::string unito, rinumerato;
        for (size_t a = 0; a < anelli_.size(); ++a) {
            Componi(a, unito, rinumerato);
            aree_[a] = Area(rinumerato);
            const Byte nome = DaFondo(rinumerato, 2);
            if (!nome.empty() && nome.back() == '-') perNome_[std::string(nome)].push_back(a);
        }
    }

    void Scrivi(QSaveFile& f) {
        uscita_.reserve(1 << 18);
        f_ = &f;
        Metti(Riga(zero_));
        Metti("\r\n");
        for (size_t k = 0; k < punti_.size(); ++k) {
            // The rows are visited out of the file's order: ask for the next ones early.
            if (k + 16 < punti_.size())
                __builtin_prefetch(dati_.constData() + punti_[k + 16].inizio);
            const Byte riga = RigaDi(punti_[k]);
            const size_t barra = Barra(riga, 2);
            // "8|<new number>%" and the rest of the row, put together in one piece.
            char numero[24] = {'8', '|'};
            const auto r = std::to_chars(numero + 2, numero + sizeof numero - 1, k + 1);
            if (r.ec != std::errc()) throw NonAdatto{};
            char* fine = r.ptr;
            *fine++ = '%';
            Metti(Byte(numero, size_t(fine - numero)));
            Metti(riga.substr(barra));
            Metti("\r\n");
        }
        MettiRighe(corte_.Toponimi);
        MettiRighe(corte_.PLinee);
        MettiRighe(corte_.PF);
        std::string unito, rinumerato;
        for (size_t a = 0; a < anelli_.size(); ++a) {
            Componi(a, unito, rinumerato);
            MettiAnello(a, rinumerato);
        }
        for (const QStringList* lista : {&corte_.Linee, &corte_.DITTA, &corte_.PARTICELLA,
                                         &corte_.PFCART, &corte_.DISTANZA, &corte_.ALTRO})
            MettiRighe(*lista);
        MettiRighe({Voce(corte_.INQUADRAMENTO, 0)});
        Svuota();
    }

private:
    Byte Riga(Tratto t) const { return Byte(dati_.constData() + t.inizio, size_t(t.lunghezza)); }
    // A row of Punti, up to its line end.
    Byte RigaDi(const Punto& p) const {
        const char* d = dati_.constData();
        const qsizetype n = dati_.size();
        return Byte(d + p.inizio, size_t(FineRiga(d, p.inizio, n) - p.inizio));
    }
    QString Testo(Tratto t) const {
        return DaWindows1252(QByteArray::fromRawData(dati_.constData() + t.inizio, t.lunghezza));
    }

    // Val of field k of a row; error 9 (here: the long way) when the row is shorter.
    static double Campo(Byte riga, int k, double* altro) {
        size_t inizio = 0;
        for (int c = 0; c < k; ++c) {
            const size_t barra = Barra(riga, inizio);
            if (barra == Byte::npos) throw NonAdatto{};
            inizio = barra + 1;
        }
        size_t fine = Barra(riga, inizio);
        if (fine == Byte::npos) fine = riga.size();
        if (altro) {
            size_t fine2 = fine < riga.size() ? Barra(riga, fine + 1) : Byte::npos;
            if (fine2 == Byte::npos) fine2 = riga.size();
            *altro = fine < riga.size() ? ValCampo(riga.substr(fine + 1, fine2 - fine - 1)) : 0;
        }
        return ValCampo(riga.substr(inizio, fine - inizio));
    }

    // Field n-k of a row whose last field is n.
    static Byte DaFondo(Byte riga, int k) {
        size_t barra = riga.size();
        for (int i = 0; i < k; ++i) {
            barra = barra > 0 ? BarraIndietro(riga, barra - 1) : Byte::npos;
            if (barra == Byte::npos) throw NonAdatto{};
        }
        const size_t prima = barra > 0 ? BarraIndietro(riga, barra - 1) : Byte::npos;
        const size_t inizio = prima == Byte::npos ? 0 : prima + 1;
        return riga.substr(inizio, barra - inizio);
    }

    void Instrada(Tratto t) {
        const Byte riga = Riga(t);
        if (riga.empty()) return; // Val of nothing: no kind
        if (riga.size() < 2 || riga[1] != '|' || !Cifra(riga[0])) throw NonAdatto{};
        if (riga[0] == '8') {
            size_t fine = Barra(riga, 2);
            if (fine == Byte::npos) fine = riga.size();
            const Byte id = riga.substr(2, fine - 2);
            if (id.size() >= 2 && id[0] == 'P' && id[1] == 'F')
                corte_.PF.append(Testo(t));
            else if (!id.empty() && id.back() == 'T')
                corte_.Toponimi.append(Testo(t));
            else if (!id.empty() && id.back() == 'L')
                corte_.PLinee.append(Testo(t));
            else
                AggiungiPunto(t, id);
        } else if (riga[0] == '7') {
            if (riga.find("L|") != Byte::npos)
                corte_.Linee.append(Testo(t));
            else
                sette_.push_back(t);
        } else if (riga[0] == '6') {
            InstradaSei(corte_, Testo(t));
        }
    }

    // The sort compares without regard to case; that is plain only in ASCII.
    void AggiungiPunto(Tratto t, Byte id) {
        const Byte riga = Riga(t);
        // Without an early way out the compiler reads the row in wide steps.
        int barre = 0;
        unsigned char alto = 0;
        for (char c : riga) {
            alto |= static_cast<unsigned char>(c);
            barre += c == '|';
        }
        if ((alto & 0x80) || barre < 3) throw NonAdatto{};
        char dieci[10];
        Dieci(id, dieci);
        quint64 chiave = 0;
        for (int k = 0; k < 9; ++k) chiave = (chiave << 7) | quint64(dieci[k]);
        // The renumbering takes the id as the sort leaves it: the ten columns, trimmed.
        Byte corto(dieci, 10);
        while (!corto.empty() && corto.front() == ' ') corto.remove_prefix(1);
        while (!corto.empty() && corto.back() == ' ') corto.remove_suffix(1);
        const qint64 numero = NumeroId(corto, 11);
        Punto p{chiave, quint32(t.inizio), numero <= 0x7FFFFFFF ? qint32(numero) : -1, 0, 0};
        p.nord = Campo(riga, 2, &p.est);
        punti_.push_back(p);
    }

    // The id right-aligned in ten columns (its last ten characters when longer), lower-cased.
    static void Dieci(Byte id, char* dieci) {
        for (int k = 0; k < 10; ++k) {
            const qsizetype da = qsizetype(id.size()) - 10 + k;
            char c = da >= 0 ? id[size_t(da)] : ' ';
            if (c >= 'A' && c <= 'Z') c = char(c + 32);
            dieci[k] = c;
        }
    }

    // The continuation rows go on the ring row before them; the rings come out in the reverse
    // of the file's order.
    void UnisciAnelli() {
        std::vector<Pezzo> portati; // the latest row of the file first
        std::string pezzo;
        for (qsizetype i = qsizetype(sette_.size()) - 1; i >= 0; --i) {
            const Byte riga = Riga(sette_[size_t(i)]);
            size_t fine = Barra(riga, 2);
            if (fine == Byte::npos) fine = riga.size();
            const Byte uno = riga.substr(2, fine - 2);
            bool positivo = false;
            for (char c : uno) {
                if (!Cifra(c)) throw NonAdatto{};
                positivo = positivo || c != '0';
            }
            if (!positivo) {
                pezzo.assign(riga);
                Togli(pezzo, "7|0|");
                Togli(pezzo, "NC|");
                if (riga.size() >= 7 && riga.substr(4, riga.size() - 7) == pezzo) {
                    portati.push_back(
                        {sette_[size_t(i)].inizio + 4, qsizetype(pezzo.size()), false});
                } else {
                    portati.push_back({qsizetype(propri_.size()), qsizetype(pezzo.size()), true});
                    propri_ += pezzo;
                }
                continue;
            }
            int barre = 0;
            for (char c : riga) barre += c == '|';
            if (barre < 4) throw NonAdatto{};
            anelli_.push_back({quint32(sette_[size_t(i)].inizio),
                               quint32(sette_[size_t(i)].lunghezza), quint32(pezzi_.size()),
                               quint32(portati.size())});
            pezzi_.insert(pezzi_.end(), portati.rbegin(), portati.rend());
            portati.clear();
        }
        sette_.clear();
        sette_.shrink_to_fit();
    }

    // A ring as one row: its fields up to n-5, the carried pieces, fields n-4 to n-1; then
    // renumbered.
    void Componi(size_t a, std::string& unito, std::string& rinumerato) const {
        const Anello& anello = anelli_[a];
        const Byte riga = Riga({anello.inizio, anello.lunghezza});
        // Start of field n-4 and end of the last bar.
        const size_t ultima = BarraIndietro(riga, riga.size() - 1);
        size_t coda = ultima;
        for (int k = 0; k < 4 && coda != Byte::npos; ++k)
            coda = coda > 0 ? BarraIndietro(riga, coda - 1) : Byte::npos;
        coda = coda == Byte::npos ? 0 : coda + 1;
        unito.assign(riga.substr(0, coda));
        for (quint32 p = anello.primoPezzo; p < anello.primoPezzo + anello.pezzi; ++p) {
            const Pezzo& pz = pezzi_[size_t(p)];
            if (pz.proprio)
                unito.append(propri_, size_t(pz.inizio), size_t(pz.lunghezza));
            else
                unito.append(dati_.constData() + pz.inizio, size_t(pz.lunghezza));
        }
        unito.append(riga.substr(coda, ultima + 1 - coda));
        Rinumera(unito, rinumerato);
    }

    // Every "|<old>|" to "|<new>|" as the chain of replacements has it: in a run of equal
    // fields the first, third, fifth... change.
    void Rinumera(Byte riga, std::string& uscita) const {
        uscita.clear();
        size_t inizio = 0;
        Byte prima;
        bool primaCambiata = false, primoCampo = true;
        while (true) {
            const size_t barra = Barra(riga, inizio);
            const Byte campo =
                riga.substr(inizio, barra == Byte::npos ? Byte::npos : barra - inizio);
            int n = 0;
            if (!primoCampo && barra != Byte::npos) {
                const qint64 id = NumeroId(campo, 11);
                if (id > 0 && id < qint64(nuovo_.size())) n = nuovo_[size_t(id)];
            }
            const bool cambia = n > 0 && !(primaCambiata && campo == prima);
            if (cambia) {
                char numero[16];
                const auto r = std::to_chars(numero, numero + sizeof numero, n);
                if (r.ec != std::errc()) throw NonAdatto{};
                uscita.append(numero, size_t(r.ptr - numero));
                uscita += '%';
            } else {
                uscita.append(campo);
            }
            primaCambiata = cambia;
            prima = campo;
            primoCampo = false;
            if (barra == Byte::npos) break;
            uscita += '|';
            inizio = barra + 1;
        }
    }

    // The vertices in text order of their rows with the id right-aligned; then the renumbering
    // table: ascending ids "<n>%" only, or the long way.
    void Ordina() {
        auto resto = [&](const Punto& p, char* dieci) {
            const Byte riga = RigaDi(p);
            size_t fine = Barra(riga, 2);
            Dieci(riga.substr(2, fine - 2), dieci);
            return riga.substr(fine);
        };
        std::sort(punti_.begin(), punti_.end(), [&](const Punto& a, const Punto& b) {
            if (a.chiave != b.chiave) return a.chiave < b.chiave;
            char da[10], db[10];
            const Byte ra = resto(a, da), rb = resto(b, db);
            if (da[9] != db[9]) return da[9] < db[9];
            const size_t m = std::min(ra.size(), rb.size());
            for (size_t k = 0; k < m; ++k) {
                char x = ra[k], y = rb[k];
                if (x >= 'A' && x <= 'Z') x = char(x + 32);
                if (y >= 'A' && y <= 'Z') y = char(y + 32);
                if (x != y) return x < y;
            }
            if (ra.size() != rb.size()) return ra.size() < rb.size();
            return a.inizio < b.inizio; // equal rows keep their order
        });
        const size_t conta = punti_.size();
        qint64 precedente = 0;
        for (const Punto& p : punti_) {
            // Lower-cased: only digits and "%" make a number, so that changes nothing here.
            if (p.numero <= precedente || p.numero > 8 * qint64(conta) + 1024) throw NonAdatto{};
            precedente = p.numero;
        }
        nuovo_.assign(size_t(precedente + 1), 0);
        for (size_t k = 0; k < conta; ++k) nuovo_[size_t(punti_[k].numero)] = int(k + 1);
    }

    // The area of a renumbered ring, with the vertex tables carried from ring to ring.
    double Area(Byte riga) {
        std::vector<Byte>& campi = campi_;
        CampiDi(riga, campi);
        const qsizetype n = qsizetype(campi.size()) - 1;
        qsizetype conta = 0;
        auto slot = [](std::array<double, 501>& t, qsizetype i) -> double& {
            if (i < 0 || i > 500) throw NonAdatto{}; // the long way gives the error report
            return t[size_t(i)];
        };
        const qint64 punti = qint64(punti_.size());
        for (qsizetype k = 2; k <= n - 4; ++k) {
            ++conta;
            const qint64 numero = NumeroId(campi[size_t(k)], 12);
            if (numero < 1 || numero > punti) continue;
            const Punto& p = punti_[size_t(numero - 1)];
            slot(y_, conta) = p.nord;
            slot(x_, conta) = p.est;
        }
        slot(x_, 0) = slot(x_, conta);
        slot(y_, 0) = slot(y_, conta);
        slot(x_, conta + 1) = slot(x_, 1);
        slot(y_, conta + 1) = slot(y_, 1);
        double area = 0;
        if (conta >= 3)
            for (qsizetype i = 1; i <= conta; ++i) {
                const double dx = x_[size_t(i + 1)] - x_[size_t(i)];
                area = area + dx * (y_[size_t(i)] + y_[size_t(i + 1)]) / 2;
            }
        // As the field takes it and the islands read it back: fifteen figures. A plain decimal
        // is read at once; anything else goes through the runtime's own steps.
        const double assoluta = std::fabs(area);
        char testo[64];
        const Byte cifre = QuindiciCifre(assoluta, testo);
        if (!cifre.empty() && cifre.find('e') == Byte::npos) return ValCampo(cifre);
        return Val(Replace(CStr(assoluta), QStringLiteral(","), QStringLiteral(".")));
    }

    // A number with fifteen significant figures as CStr writes it (in lower case), or nothing
    // when it is not finite.
    static Byte QuindiciCifre(double v, char* testo) {
        if (!std::isfinite(v)) return {};
        if (v == 0) return Byte("0", 1);
        const auto r = std::to_chars(testo, testo + 63, v, std::chars_format::general, 15);
        if (r.ec != std::errc()) return {};
        return Byte(testo, size_t(r.ptr - testo));
    }

    // The area field as the steps of the save leave it: islands, then rounded.
    QString TestoArea(size_t a, Byte nome) const {
        double area = aree_[a];
        const bool isola = nome.find('-') != Byte::npos || nome.find('+') != Byte::npos;
        if (!isola && a + 1 < anelli_.size()) {
            const auto it =
                perNome_.empty() ? perNome_.end() : perNome_.find(std::string(nome) + '-');
            if (it != perNome_.end())
                for (size_t j : it->second)
                    if (j > a) area = area - aree_[j];
            // Read back with a comma for the point: Val stops there, at the whole part.
            char testo[64];
            const Byte cifre = QuindiciCifre(area, testo);
            const size_t punto = cifre.find('.');
            const Byte intera = cifre.substr(0, punto);
            if (!cifre.empty() && cifre.find('e') == Byte::npos && !intera.empty() &&
                intera.size() <= 9 && intera.front() != '-' && intera != "0") {
                // A whole number of one to nine digits: the picture writes just its digits.
                return QString::fromLatin1(intera.data(), qsizetype(intera.size()));
            }
            area = Val(Replace(CStr(area), QStringLiteral("."), QStringLiteral(",")));
        }
        return Replace(Trim(Formato(area, QStringLiteral("##############"))), QStringLiteral(","),
                       QStringLiteral("."));
    }

    // Ten ids a row; the tail on the first, "NC|" on the continuation rows. A row shorter
    // than seven characters at the end is dropped.
    void MettiAnello(size_t a, const std::string& riga) {
        std::vector<Byte>& campi = campi_;
        CampiDi(riga, campi);
        const size_t n = campi.size() - 1;
        std::string coda;
        for (size_t k = n - 4; k <= n - 2; ++k) {
            coda.append(campi[k]);
            coda += '|';
        }
        coda.append(AWindows1252(TestoArea(a, campi[n - 2])).constData());
        coda += '|';
        std::string& corrente = corrente_;
        auto emetti = [&] {
            Metti(corrente);
            Metti(corrente.compare(0, 4, "7|0|") == 0 ? Byte("NC|") : Byte(coda));
            Metti("\r\n");
        };
        corrente.assign("7|");
        corrente.append(campi[1]);
        corrente += '|';
        int ids = 0;
        for (size_t k = 2; k + 5 <= n; ++k) {
            corrente.append(campi[k]);
            corrente += '|';
            if (++ids == 10) {
                emetti();
                corrente.assign("7|0|");
                ids = 0;
            }
        }
        if (corrente.size() >= 7) emetti();
    }

    void Metti(Byte b) {
        uscita_.append(b);
        if (uscita_.size() >= (1 << 18) - 4096) Svuota();
    }
    void MettiRighe(const QStringList& righe) {
        for (const QString& r : righe) {
            const QByteArray b = AWindows1252(r);
            Metti(Byte(b.constData(), size_t(b.size())));
            Metti("\r\n");
        }
    }
    void Svuota() {
        if (f_->write(uscita_.data(), qint64(uscita_.size())) != qint64(uscita_.size()))
            throw Errore(75);
        uscita_.clear();
    }

    Stato& stato_;
    const QByteArray& dati_;
    Tratto zero_;
    std::vector<Punto> punti_;
    std::vector<Tratto> sette_;
    std::vector<Anello> anelli_;
    std::vector<Pezzo> pezzi_;
    std::string propri_;
    std::vector<int> nuovo_;
    std::vector<double> aree_;
    std::unordered_map<std::string, std::vector<size_t>> perNome_;
    std::array<double, 501> x_{}, y_{};
    std::vector<Byte> campi_;
    std::string corrente_;
    Estratto corte_; // the short lists
    std::string uscita_;
    QSaveFile* f_ = nullptr;
};

// True when written; false when the long way must do it (nothing has been written then).
bool Veloce(Stato& stato, const QString& da, const QString& a) {
    if (da.endsWith(u'\\') || a.endsWith(u'\\') || !EsisteFile(da)) return false;
    const QString locale = PercorsoLocale(a);
    if (!QFileInfo(locale).dir().exists()) return false;
    try {
        const QByteArray dati = LeggiByte(da);
        Riscrittura r(stato, dati);
        r.Leggi();
        r.Prepara();
        QSaveFile f(locale);
        if (!f.open(QIODevice::WriteOnly)) return false;
        try {
            r.Scrivi(f);
        } catch (...) {
            f.cancelWriting();
            throw;
        }
        if (!f.commit()) return false;
    } catch (const NonAdatto&) {
        return false;
    } catch (const Errore&) {
        return false;
    }
    stato.TagRoutine = QStringLiteral("SalvaEstratto1");
    return true;
}

} // namespace

bool RiscriviEstrattoIn(Stato& stato, const QString& da, const QString& a) {
    return Veloce(stato, PercorsoEstratto(stato, da), a);
}

bool RiscriviEstratto(Stato& stato, const QString& nome) {
    const QString percorso = PercorsoEstratto(stato, nome);
    if (Veloce(stato, percorso, percorso)) return true;
    Estratto e = EsplodiEstratto(stato, nome);
    return SalvaEstratto1(stato, e);
}

} // namespace tavolet
