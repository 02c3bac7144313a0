// The small window "Anteprima Proposta " with a plot and one closing button.
#pragma once

#include <QDialog>

namespace tavolet {

struct Stato;
class Grafica;

class AnteprimaGrafica : public QDialog {
    Q_OBJECT
public:
    explicit AnteprimaGrafica(Stato& stato, QWidget* parent = nullptr);
    Grafica* grafica() const { return grafica_; }

private:
    Stato& stato_;
    Grafica* grafica_;
};

} // namespace tavolet
