#include "nome_file.h"

#include <QRegularExpression>

namespace tavolet {

QString NomeFileSicuro(const QString& nome) {
    if (nome.isEmpty()) return nome;
    QString r;
    r.reserve(nome.size());
    for (QChar c : nome) {
        if (c.unicode() < 32 || QStringView(u"<>:\"/\\|?*").contains(c)) c = u'_';
        if (c == u'.' && r.endsWith(u'.')) continue;
        r += c;
    }
    while (r.endsWith(u'.') || r.endsWith(u' ')) r.chop(1);
    // A leading dot would hide the file on the hosts beside Windows.
    while (r.startsWith(u'.')) r.remove(0, 1);
    if (r.isEmpty()) return QStringLiteral("_");
    // The device names are reserved with any extension, and with blanks behind them.
    const QString base = r.left(r.indexOf(u'.')).trimmed().toUpper();
    static const QRegularExpression dispositivo(
        QStringLiteral("^(CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|(COM|LPT)[1-9\u00B9\u00B2\u00B3])$"));
    if (dispositivo.match(base).hasMatch()) r.prepend(u'_');
    return r;
}

} // namespace tavolet
