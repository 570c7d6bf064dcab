#include "host/xml/xmlutils.h"

#include <algorithm>

namespace xmlutils {

namespace {

// The character range of XML 1.0: tab, line feed, carriage return and everything from the blank up
// but surrogates that stand alone, U+FFFE and U+FFFF.
bool isAllowed(char16_t unit)
{
    constexpr char16_t firstPrintable = 0x20;
    constexpr char16_t firstNonCharacter = 0xFFFE;
    return unit == u'\t' || unit == u'\n' || unit == u'\r'
        || (unit >= firstPrintable && unit < firstNonCharacter);
}

QString withoutForbiddenCharacters(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        const bool startsPair
            = unit.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (startsPair)
            result.append(unit).append(text.at(++i));
        else if (!unit.isSurrogate() && isAllowed(unit.unicode()))
            result.append(unit);
    }
    return result;
}

} // namespace

QDomElement createTextElement(QDomDocument &document, const QString &tag, const QString &text)
{
    QDomElement element = document.createElement(tag);
    element.appendChild(document.createTextNode(withoutForbiddenCharacters(text)));
    return element;
}

void appendNotNull(QDomElement &parent, const QDomElement &element)
{
    if (!element.isNull())
        parent.appendChild(element);
}

namespace {

template <typename Scope> QString valueByTag(const Scope &scope, const QString &tag, int index)
{
    const QDomElement element = scope.elementsByTagName(tag).at(index).toElement();
    // An element's text is never null, so a null one says that there is no element.
    return element.isNull() ? QString() : element.text();
}

} // namespace

QString getValueByTag(const QDomDocument &scope, const QString &tag, int index)
{
    return valueByTag(scope, tag, index);
}

QString getValueByTag(const QDomElement &scope, const QString &tag, int index)
{
    return valueByTag(scope, tag, index);
}

} // namespace xmlutils
