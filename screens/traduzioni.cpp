#include "traduzioni.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace tavolet {

bool InstallaTraduzioniItaliane() {
    static QTranslator* traduttore = nullptr;
    if (traduttore) return true;
    auto* t = new QTranslator(QCoreApplication::instance());
    const QString cartella = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!t->load(QStringLiteral("qtbase_it"), cartella) &&
        !t->load(QStringLiteral("qt_it"), cartella)) {
        delete t;
        return false;
    }
    QCoreApplication::installTranslator(t);
    traduttore = t;
    // The default locale is left alone: numbers in rows and fields always take the point.
    return true;
}

} // namespace tavolet
