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

/// How many units the text has that may stand, from the given one on: 2 for a pair of surrogates, 0
/// when the unit may not.
qsizetype allowedUnits(QStringView text, qsizetype at)
{
    constexpr qsizetype pair = 2;
    const QChar unit = text[at];
    if (!unit.isSurrogate())
        return isAllowed(unit.unicode()) ? 1 : 0;
    return unit.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate() ? pair
                                                                                           : 0;
}

/// Place of the first unit that may not stand; the text's size when there is none.
qsizetype firstForbidden(QStringView text, qsizetype from)
{
    qsizetype at = from;
    while (at < text.size()) {
        const qsizetype units = allowedUnits(text, at);
        if (units == 0)
            return at;
        at += units;
    }
    return at;
}

QString withoutForbiddenCharacters(const QString &text)
{
    qsizetype forbidden = firstForbidden(text, 0);
    // Nearly every text: it is shared, not copied.
    if (forbidden == text.size())
        return text;
    QString result = text.left(forbidden);
    while (forbidden < text.size()) {
        const qsizetype next = firstForbidden(text, forbidden + 1);
        result.append(QStringView(text).mid(forbidden + 1, next - forbidden - 1));
        forbidden = next;
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

/// The element of that name inside the node before which `left` others are passed over, in document
/// order. A list of them all would look through the rest of the document too.
QDomElement elementByTag(const QDomNode &scope, const QString &tag, int &left)
{
    for (QDomNode child = scope.firstChild(); !child.isNull(); child = child.nextSibling()) {
        QDomElement element = child.toElement();
        if (!element.isNull() && element.tagName() == tag && left-- == 0)
            return element;
        if (QDomElement found = elementByTag(child, tag, left); !found.isNull())
            return found;
    }
    return {};
}

QString valueByTag(const QDomNode &scope, const QString &tag, int index)
{
    const QDomElement element = elementByTag(scope, tag, index);
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
