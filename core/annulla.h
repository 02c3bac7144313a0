// Undo and redo of the commands on the document: snapshots of the rows and of the tag values,
// taken at the checkpoints before and after every command. Files are never touched: the next
// save writes what the rows show.
#pragma once

#include "stato.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace tavolet {

// The document as the operator sees it: rows with their selection, the tag values, the head.
struct Istantanea {
    QStringList righe;
    QList<int> selezionate;
    int corrente = -1;
    QString TestoLibretto, Riga0, Riga9, PercorsoLibretto, TestoPossessori, NomeEstratto;
    QString CodiceFiscaleTecnico, NumeroIscrizioneAlbo, TestoProposta, NomeMisurate;
    Testata testata;
    QString descrizione; // what the command that followed it did ("3 righe eliminate")
};

Istantanea FotografaDocumento(const Stato& stato);
void RipristinaDocumento(Stato& stato, const Istantanea& i);
// True when the rows or the tag values differ; the selection and the head fields (derived
// from rows 0 and 9) do not count.
bool DocumentoCambiato(const Istantanea& a, const Istantanea& b);
// A short Italian line for the status bar: what turned a into b.
QString DescriviCambiamento(const Istantanea& a, const Istantanea& b);

struct Annullamenti {
    static constexpr int kPassiMassimi = 200;
    QList<Istantanea> indietro; // the last one is the state before the last change
    QList<Istantanea> avanti;
    std::optional<Istantanea> base; // the document as it stood at the last checkpoint
};

// A checkpoint: when the document changed since the last one, that state becomes one step
// back (described by descrizione, or by the change itself) and the steps forward are dropped.
// Returns the description of the step recorded, empty when nothing changed.
QString PuntoDiAnnullamento(Annullamenti& a, const Stato& stato,
                            const QString& descrizione = QString());
// One step back or forward; the description of the step, nothing when there was none.
std::optional<QString> Annulla(Annullamenti& a, Stato& stato);
std::optional<QString> Ripeti(Annullamenti& a, Stato& stato);
// Forgets every step; the current document becomes the base.
void AzzeraAnnullamenti(Annullamenti& a, const Stato& stato);

} // namespace tavolet
