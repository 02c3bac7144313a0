// The real platform: Qt dialogs, the clipboard, QSettings, processes of the host.
#pragma once

#include "piattaforma.h"

#include <QLockFile>
#include <QWidget>

#include <memory>

class QFileDialog;

namespace tavolet {

class PiattaformaQt : public Piattaforma {
public:
    PiattaformaQt();
    void ImpostaFinestra(QWidget* w) { finestra_ = w; }

    void Messaggio(const QString& testo, const QString& titolo, Icona icona) override;
    Risposta Domanda(const QString& testo, const QString& titolo, Pulsanti pulsanti,
                     Risposta predefinita, Icona icona = Icona::Domanda) override;
    QString ApriFile(const QString& titolo, const QString& cartella,
                     const QString& filtro) override;
    QString SalvaFile(const QString& titolo, const QString& cartella, const QString& nome,
                      const QString& filtro) override;
    std::optional<Carattere> ScegliCarattere(const Carattere& iniziale) override;
    QString Appunti() override;
    void ImpostaAppunti(const QString& testo) override;
    QString Impostazione(const QString& sezione, const QString& chiave,
                         const QString& predefinito = QString()) override;
    void SalvaImpostazione(const QString& sezione, const QString& chiave,
                           const QString& valore) override;
    int AvviaEAttendi(const QString& programma, const QStringList& argomenti) override;
    int TerminaProcessi(const QString& nome) override;
    bool ApriConProgramma(const QString& percorso) override;
    bool CreaCollegamento(LuogoCollegamento luogo, const QString& nome,
                          const QString& destinazione) override;
    bool StampaTesto(const QString& titolo, const QString& testo,
                     const Carattere& carattere) override;
    QDateTime Adesso() override { return QDateTime::currentDateTime(); }
    bool AltraIstanza() override;

private:
    QWidget* finestra_ = nullptr;
    std::unique_ptr<QLockFile> blocco_;
};

// The filters as the program writes them, in the old form of pairs of description and
// patterns ("Importa EdM *.EMP|*.EMP|*.PNG|*.PNG|") or in Qt's ("Libretti (*.dat *.txt)"), as
// the entries of Qt's dialog: "Importa EdM (*.EMP)", "File PNG (*.PNG)".
QStringList FiltriDialogo(const QString& filtro);
// The file dialog of the platform, which lists the files of the chosen filter whatever the case
// of their names. Built apart so that a test can look at what it lists.
std::unique_ptr<QFileDialog> CreaDialogoFile(QWidget* parent, const QString& titolo,
                                             const QString& cartella, const QString& filtro,
                                             bool salva);

// Conversions between the font of the settings file and Qt's.
QFont FontDa(const Carattere& c);
Carattere CarattereDa(const QFont& f);

} // namespace tavolet
