#include "AnteprimaGrafica.h"

#include "Grafica.h"
#include "posizione.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tavolet {

AnteprimaGrafica::AnteprimaGrafica(Stato& stato, QWidget* parent)
    : QDialog(parent), stato_(stato), grafica_(new Grafica(stato, this)) {
    setWindowTitle(QStringLiteral("Anteprima Proposta "));
    auto* chiudi = new QPushButton(QStringLiteral("Chiudi"), this);
    connect(chiudi, &QPushButton::clicked, this, &QDialog::close);
    auto* l = new QVBoxLayout(this);
    l->addWidget(grafica_, 1);
    l->addWidget(chiudi, 0, Qt::AlignRight);
    resize(900, 650);
    RipristinaPosizioneForm(this, stato_, QStringLiteral("AnteprimaGrafica"));
    connect(this, &QDialog::finished, this,
            [this] { SalvaPosizioneForm(this, stato_, QStringLiteral("AnteprimaGrafica")); });
}

} // namespace tavolet
