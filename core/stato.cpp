#include "stato.h"

namespace tavolet {

void ListaRighe::Aggiungi(const QString& riga) {
    righe_.append(riga);
    selezione_.append(false);
}

void ListaRighe::Inserisci(int i, const QString& riga) {
    righe_.insert(i, riga);
    selezione_.insert(i, false);
    if (corrente_ >= i) ++corrente_;
}

void ListaRighe::Rimuovi(int i) {
    righe_.removeAt(i);
    selezione_.removeAt(i);
    if (corrente_ == i)
        corrente_ = -1;
    else if (corrente_ > i)
        --corrente_;
}

void ListaRighe::Svuota() {
    righe_.clear();
    selezione_.clear();
    corrente_ = -1;
}

void ListaRighe::Seleziona(int i, bool si) {
    selezione_[i] = si;
}

void ListaRighe::DeselezionaTutte() {
    selezione_.fill(false);
}

QList<int> ListaRighe::Selezionate() const {
    QList<int> r;
    for (int i = 0; i < selezione_.size(); ++i)
        if (selezione_[i]) r.append(i);
    return r;
}

} // namespace tavolet
