#include "tests/support/xmltree.h"

#include <QDomDocument>
#include <QMap>

using namespace Qt::Literals::StringLiterals;

namespace {

QMap<QString, QString> attributesOf(const QDomElement &element)
{
    QMap<QString, QString> attributes;
    const QDomNamedNodeMap nodes = element.attributes();
    for (int i = 0; i < nodes.size(); ++i)
        attributes.insert(nodes.item(i).nodeName(), nodes.item(i).nodeValue());
    return attributes;
}

QString described(const QMap<QString, QString> &attributes)
{
    QStringList pairs;
    for (auto pair = attributes.cbegin(); pair != attributes.cend(); ++pair)
        pairs.append(pair.key() % u'=' % pair.value());
    return u'[' % pairs.join(u' ') % u']';
}

QStringList difference(const QString &path, const QString &actual, const QString &expected)
{
    if (actual == expected)
        return {};
    return {u"%1: \"%2\" instead of \"%3\""_s.arg(path, actual, expected)};
}

QStringList compared(const QString &path, const QDomElement &actual, const QDomElement &expected)
{
    QStringList differences
        = difference(path, described(attributesOf(actual)), described(attributesOf(expected)));
    differences
        += difference(path % u"/*", childNames(actual).join(u' '), childNames(expected).join(u' '));
    const auto actualChildren = childElements(actual);
    const auto expectedChildren = childElements(expected);
    if (actualChildren.isEmpty() && expectedChildren.isEmpty())
        differences += difference(path, actual.text(), expected.text());
    for (qsizetype i = 0; i < std::min(actualChildren.size(), expectedChildren.size()); ++i) {
        const QString step = u"%1/%2[%3]"_s.arg(path, expectedChildren[i].tagName()).arg(i + 1);
        differences += compared(step, actualChildren[i], expectedChildren[i]);
    }
    return differences;
}

} // namespace

QStringList xmlDifferences(const QDomElement &actual, const QDomElement &expected)
{
    return difference(u"/"_s, actual.tagName(), expected.tagName())
        + compared(u'/' % expected.tagName(), actual, expected);
}

QStringList xmlDifferences(const QByteArray &actual, const QByteArray &expected)
{
    QDomDocument actualDocument;
    QDomDocument expectedDocument;
    if (!actualDocument.setContent(actual))
        return {u"the actual text is no XML: "_s + QString::fromUtf8(actual)};
    if (!expectedDocument.setContent(expected))
        return {u"the expected text is no XML: "_s + QString::fromUtf8(expected)};
    return xmlDifferences(actualDocument.documentElement(), expectedDocument.documentElement());
}

QList<QDomElement> childElements(const QDomElement &parent)
{
    QList<QDomElement> children;
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        children.append(child);
    return children;
}

QStringList childNames(const QDomElement &parent)
{
    QStringList names;
    for (const QDomElement &child : childElements(parent))
        names.append(child.tagName());
    return names;
}

QString childText(const QDomElement &parent, const QString &name)
{
    const QDomElement child = parent.firstChildElement(name);
    return child.isNull() ? QString() : u""_s + child.text();
}
