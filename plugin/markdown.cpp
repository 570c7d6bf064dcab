#include "plugin/markdown.h"

#include "common/names.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace markdown {

bool isMarked(const QString &text)
{
    return text.contains(korvel::markdownMarker, Qt::CaseInsensitive);
}

QString percentage(const QString &text)
{
    static const QRegularExpression expression(
        uR"(.*%1(?<percent>\d{1,3}))"_s.arg(korvel::markdownMarker),
        QRegularExpression::CaseInsensitiveOption);
    return expression.match(text).captured(u"percent"_s);
}

} // namespace markdown
