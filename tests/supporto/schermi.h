// Small helpers the screen tests share.
#pragma once

#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

namespace tavolet::test {

// The texts of a list's items, in order.
inline QStringList Voci(const QListWidget* l) {
    QStringList r;
    for (int i = 0; i < l->count(); ++i) r << l->item(i)->text();
    return r;
}

// The button of that caption in the window (the quale-th of several), or null.
inline QPushButton* Pulsante(QWidget* w, const QString& caption, int quale = 0) {
    for (QPushButton* b : w->findChildren<QPushButton*>())
        if (b->text() == caption && quale-- == 0) return b;
    return nullptr;
}

// A click of the mouse on a button.
inline void Premi(QPushButton* b) {
    ASSERT_NE(b, nullptr);
    QTest::mouseClick(b, Qt::LeftButton);
}

// A click on the button of that caption.
inline void Clic(QWidget* w, const QString& caption) {
    QPushButton* b = Pulsante(w, caption);
    ASSERT_NE(b, nullptr) << caption.toStdString();
    QTest::mouseClick(b, Qt::LeftButton);
}

// A click on a row of a list, and the double click after it as the mouse sends it.
inline void Clic(QListWidget* l, int riga, bool doppio = false) {
    l->scrollToItem(l->item(riga));
    const QPoint p = l->visualItemRect(l->item(riga)).center();
    QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, p);
    if (doppio) QTest::mouseDClick(l->viewport(), Qt::LeftButton, {}, p);
}

} // namespace tavolet::test
