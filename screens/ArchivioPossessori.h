// "Archivio Possessori": the owners' files of \FIDUCIAL\VISURE\, to copy into the libretto.
#pragma once

#include "stato.h"

#include <QDialog>

class QLineEdit;
class QListWidget;
class QPlainTextEdit;

namespace tavolet {

class ArchivioPossessori : public QDialog {
    Q_OBJECT
public:
    explicit ArchivioPossessori(Stato& stato, QWidget* parent = nullptr);
    static int Esegui(Stato& stato, QWidget* parent);

    QListWidget* File() const { return file_; }
    QPlainTextEdit* TestoFile() const { return testo_; }
    QLineEdit* NomeFile() const { return nome_; }
    QLineEdit* Cerca() const { return cerca_; }

protected:
    void done(int r) override;

private:
    void Ricarica();
    void Scegli(int riga);

    Stato& stato_;
    QStringList elenco_;
    QListWidget* file_ = nullptr;
    QPlainTextEdit* testo_ = nullptr;
    QLineEdit* nome_ = nullptr;
    QLineEdit* cerca_ = nullptr;
};

} // namespace tavolet
