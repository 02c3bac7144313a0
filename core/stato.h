// The working values that the routines share, grouped in one struct passed by reference.
#pragma once

#include "piattaforma.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

namespace tavolet {

// The row list of the main form: its rows, which of them are selected, and the current one.
class ListaRighe {
public:
    int Conta() const { return int(righe_.size()); }
    const QString& Riga(int i) const { return righe_.at(i); }
    const QStringList& Righe() const { return righe_; }
    void Imposta(int i, const QString& riga) { righe_[i] = riga; }
    void Aggiungi(const QString& riga);
    void Inserisci(int i, const QString& riga);
    void Rimuovi(int i);
    void Svuota();
    bool Selezionata(int i) const { return selezione_.at(i); }
    void Seleziona(int i, bool si);
    void DeselezionaTutte();
    QList<int> Selezionate() const;
    int Corrente() const { return corrente_; } // -1 when no row is current
    void ImpostaCorrente(int i) { corrente_ = (i >= 0 && i < Conta()) ? i : -1; }

private:
    QStringList righe_;
    QList<bool> selezione_;
    int corrente_ = -1;
};

struct Stato;

struct Documento {
    QString TestoLibretto;
    ListaRighe RigheLibretto;
    QString Riga0;
    QString Riga9;
    QString PercorsoLibretto;
    QString TestoPossessori;
    QString NomeEstratto;
    QString CodiceFiscaleTecnico;
    QString NumeroIscrizioneAlbo;
    QString TestoProposta;
    QString NomeMisurate; // the misurate file associated with the libretto
};

// Fields of rows 0 and 9, set by DecoZeroNove and by the confirmation of the head dialog.
struct Testata {
    QString DataLibretto, AnnoLibretto, Protocollo, AnnoProtocollo;
    QString CodiceComuneLibretto, FoglioLibretto, MappaliLibretto;
    QString Tecnico, Qualifica, ProvinciaAlbo;
    QString QuotaMedia, PrecisioneLineare, PrecisioneAngolare, EstMedio;
    QString TipologiaRilievo, Strumentazione;
    QString NomeComuneLibretto, SiglaProvinciaLibretto, NomeProvinciaLibretto;
    QString TipoAtto, NomeArchivio;
    QString Cognome, Nome; // from the technician's record
    QString Recapito;      // the technician's address, from the same record
};

struct Comune {
    QString CodiceComune, CodiceAggiuntivo, SiglaProvincia, NomeComune;
};

struct Provincia {
    QString SiglaProvincia, NomeProvincia;
};

struct Ambiente {
    QString CartellaDocumenti, CartellaLavoro, CartellaLavoroBarra, CartellaSistema;
    QString CartellaTemp, CartellaProgramma, CartellaProgramFiles, CartellaDesktop;
    QString UnitaPregeoExe = QStringLiteral("C:");
    QString UnitaPregeoDati = QStringLiteral("C:");
    QString PercorsoArch2, VersionePregeo;
    QStringList RigheIni;
    QList<Comune> TabellaComuni; // TabellaComuni[0] is record 1
    QList<Provincia> TabellaProvince;
    QStringList TabellaQualita;
    bool ComuniCaricati = false;
    bool ProvinceCaricate = false;
    double PiGreco = 0, GradiPerRadiante = 0, RadiantiPerGrado = 0;
};

// How the editor reads and stores the text of one of its modes.
struct GestoreEditor {
    std::function<QString(Stato&)> leggi;
    std::function<void(Stato&, const QString&)> memorizza;
};

struct Stato {
    explicit Stato(Piattaforma& p) : piattaforma(&p) {}
    Piattaforma* piattaforma;
    Documento doc;
    Testata testata;
    Ambiente amb;
    QString TagRoutine;
    int EsitoDialogo = -1;
    int ModoEditor = 0;                     // 381, 382, 383 while the editor is open
    QMap<int, GestoreEditor> GestoriEditor; // modes 382 and 383, installed by their owners
    int ErroriMostrati = 0;  // how many error reports were shown (the command line's exit code)
    QString UltimoRisultato; // the last answer given to a sibling tool (RispondiTag, ScriviTag)
    // Replaces the survey part of the document by the rows of an .LXB companion. Installed by
    // the row regrouping (it lives above core); a load without it ignores the companion.
    std::function<void(Stato&, const QString& testoLxb)> SostituisciRilievoDaLxb;
    // Copies a map extract (.EMP, .PNG, .ZIP) named on the command line into Pregeo's
    // extracts folder. Installed by the extracts library.
    std::function<void(Stato&, const QString& percorso)> DrageDrop;
    // Reopens an act from the PDF that Pregeo printed, once the drop is confirmed. Installed by
    // the Pregeo bridge; a drop without it loads nothing.
    std::function<bool(Stato&, const QString& percorso)> CaricaPdf;
    // Runs a command word of the command line (path|WORD|parameter) with its parameter.
    // Installed by whoever can open the words' screens; without it no word does anything.
    std::function<void(Stato&, const QString& parola, const QString& parametro)> EseguiComando;
};

} // namespace tavolet
