#include "till/language/idtranslator.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace till {

QString IdTranslator::translate(
    const char *context, const char *id, const char *disambiguation, int count) const
{
    QString own = QTranslator::translate(context, id, disambiguation, count);
    if (!own.isNull())
        return own;
    static const QRegularExpression numbered(u"^(.*?)(-?\\d+)$"_s);
    const auto match = numbered.match(QString::fromUtf8(id));
    if (!match.hasMatch())
        return {};
    const QByteArray shared = QString(match.captured(1) + u"%1").toUtf8();
    const QString text = QTranslator::translate(context, shared.constData(), disambiguation, count);
    return text.isNull() ? text : text.arg(match.captured(2));
}

} // namespace till
