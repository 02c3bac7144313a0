// "Fraziona Particella" and "Stralcio su Particella": one screen over the schema grid of a
// parcel, its preview rows and the memo that goes into the libretto.
#pragma once

#include "frazionamento.h"
#include "stato.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableWidget;

namespace tavolet {

class BV_Fraziona : public QDialog {
    Q_OBJECT
public:
    BV_Fraziona(Stato& stato, TipoSchema tipo, const CampiParticella& particella,
                int tipoOperazione, QWidget* parent = nullptr);

    // The frazionamento as the extracts archive opens it ("Gestione Censuario"): the archive's
    // fields as they stand, none when the archive was not opened.
    static int Esegui(Stato& stato, QWidget* parent);
    static int Esegui(Stato& stato, const CampiParticella& particella, int tipoOperazione,
                      QWidget* parent);

    const Frazionamento& Dati() const { return f_; }
    QPushButton* Pulsante(const QString& caption) const;
    QTableWidget* Schema() const { return schema_; }
    QListWidget* Anteprima() const { return anteprima_; }
    QListWidget* Memo() const { return memo_; }
    QListWidget* Aree() const { return aree_; }
    QListWidget* Urbano() const { return urbano_; }
    QLineEdit* NumeroCostituite() const { return numero_; }
    QLineEdit* AreaProporzionale() const { return area_; }
    QCheckBox* MantieniNumero() const { return mantieni_; }

protected:
    bool eventFilter(QObject* o, QEvent* e) override;
    void done(int r) override;

private:
    void Mostra();
    void Dopo(); // shows the state and closes when a command asked for it
    void ModificaDiretta(bool scrivi);

    Stato& stato_;
    Frazionamento f_;
    QTableWidget* schema_ = nullptr;
    QListWidget* anteprima_ = nullptr;
    QListWidget* memo_ = nullptr;
    QListWidget* aree_ = nullptr;
    QListWidget* schemaProposta_ = nullptr;
    QListWidget* urbano_ = nullptr;
    QLineEdit* numero_ = nullptr;
    QLineEdit* area_ = nullptr;
    QLabel* etichettaArea_ = nullptr;
    QCheckBox* mantieni_ = nullptr;
    bool aggiornando_ = false;
};

// BV_Stralcio is the same screen on the stralcio's memo and composition.
class BV_Stralcio : public BV_Fraziona {
    Q_OBJECT
public:
    BV_Stralcio(Stato& stato, const CampiParticella& particella, QWidget* parent = nullptr);
    static int Esegui(Stato& stato, const CampiParticella& particella, QWidget* parent);
};

} // namespace tavolet
