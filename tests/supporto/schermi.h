// Small helpers the screen tests share.
#pragma once

#include <QListWidget>
#include <QStringList>

namespace tavolet::test {

// The texts of a list's items, in order.
inline QStringList Voci(const QListWidget* l) {
    QStringList r;
    for (int i = 0; i < l->count(); ++i) r << l->item(i)->text();
    return r;
}

} // namespace tavolet::test
