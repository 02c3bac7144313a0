// Commands of the main form on the document: selection, deletion, [VRS], pastes, copies,
// the editor's modes, the sibling programs and the small notices.
#pragma once

#include "piattaforma.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace tavolet {

struct Stato;

// Delete with its question; rows 1 and 2 are never deleted. True when rows went.
bool EliminaRigheSelezionate(Stato& stato);
void VrsMeno(Stato& stato);
void VrsPiu(Stato& stato);
// "Stazioni": exactly the rows that begin "1|".
void SelezionaStazioni(Stato& stato);
// "PF": exactly the rows that hold "|PF", the row taken in upper case.
void SelezionaPF(Stato& stato);
void InvertiSelezione(Stato& stato);
// The rows of these kinds selected, the others cleared.
void SelezionaTipi(Stato& stato, const QList<int>& tipi);
void CopiaLibretto(Stato& stato);

enum class DaExcel { Righe8PNE = 1, Righe8NomeAuto = 2, RigheComplete = 3 };
void IncollaDaExcel(Stato& stato, DaExcel comando);
// Rows 8 from a block of Pregeo's elaboration output pasted from the clipboard.
void LibrettoPerCoordinate(Stato& stato);

void CatturaPropostaInLibretto(Stato& stato);
// The Proposta of a Stralcio: the drawing of testoStralcio and of the associated extract.
QString GeneraLibrettoConStralcio(Stato& stato, const QString& testoStralcio);

// Sibling programs in the Sarvento folder of the 32-bit program files, waited for.
inline const QString kDexaro = QStringLiteral("\\Sarvento\\Dexaro.exe");
inline const QString kSarquad = QStringLiteral("\\Sarvento\\Sarquad.exe ");
void AvviaProgrammaSarvento(Stato& stato, const QString& programma);

// Shortcuts to Pregeo.EXE on the desktop and in the programs menu, and to Pregeo's folder.
// True when the desktop's shortcut was made.
bool CreaCollegamentiPregeo(Stato& stato);

// The font dialog on the list's font; the choice is written to CONFIGURACARATTERE.INI.
std::optional<Carattere> SelezionaCarattere(Stato& stato, const Carattere& attuale);

// The eleven save options into Pregeo: all marked at start; nothing else reads them.
const QStringList& OpzioniSalvataggio();
void PulisciOpzioni(QList<bool>& stati);
// Marks every line and stores each state under LIBRETTO_AUTOMATICO.
void SelezionaEMemorizzaOpzioni(Stato& stato, QList<bool>& stati);

// The utility panel: each tag goes to the command routine, which acts on CONFIGURA_PREGEO.
struct PulsanteUtilita {
    int indice;
    QString tag, caption, hint;
};
const QList<PulsanteUtilita>& PulsantiUtilita();

QString TestoInformazioniCasistiche();
QString TestoConfigurazione(const Stato& stato);
inline const QString kIndirizzoWeb = QStringLiteral("https://www.agenziaentrate.gov.it/");

// What a double click (or Enter, which knows only the first and the last case) does.
enum class AzioneRiga { Configurazione, DistanzePF, Editor };
AzioneRiga AzioneDoppioClic(const QString& riga);
AzioneRiga AzioneInvio(const QString& riga);

// The editor BV_EditorGen: one form, three modes. 381 is the libretto; the modes of the print
// templates (382) and of the censuary model (383) read and store through their own handlers.
constexpr int kEditorLibretto = 381;
constexpr int kEditorStampe = 382;
constexpr int kEditorCensuario = 383;
QString TitoloEditor(const Stato& stato, int modo);
QString DomandaUscitaEditor(int modo);
// Opening: the text to edit (mode 381 also deletes an old CartellaLavoro\libretto.lib).
QString ApriEditor(Stato& stato, int modo);
// False when storing failed (a mode that writes a file could not): the editor stays open.
bool MemorizzaEditor(Stato& stato, int modo, const QString& testo);

} // namespace tavolet
