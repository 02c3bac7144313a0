// A list under its caption, in fixed type, added to a column of a form.
#pragma once

#include <QFontDatabase>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace tavolet {

inline QListWidget* ListaTitolata(QWidget* padre, const QString& titolo, QVBoxLayout* colonna) {
    colonna->addWidget(new QLabel(titolo, padre));
    auto* l = new QListWidget(padre);
    l->setObjectName(titolo);
    l->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    colonna->addWidget(l);
    return l;
}

} // namespace tavolet
