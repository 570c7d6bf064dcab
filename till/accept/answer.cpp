#include "till/accept/answer.h"

#include "host/net/restclient.h"
#include "till/wire/readablemarkup.h"

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

constexpr int success = 200;

QList<QDomElement> childrenOf(const QDomElement &parent)
{
    QList<QDomElement> children;
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        children.append(child);
    return children;
}

QDomElement childNamed(const QDomElement &parent, const QString &name)
{
    for (const QDomElement &child : childrenOf(parent))
        if (nameOf(child) == name)
            return child;
    return {};
}

QDomElement payloadOf(const QDomDocument &document)
{
    const QDomElement body = childNamed(document.documentElement(), u"Body"_s);
    QDomElement fault = childNamed(body, u"Fault"_s);
    if (!fault.isNull())
        return fault;
    return childNamed(childNamed(body, u"ProcessRequestResponse"_s), u"ProcessRequestResult"_s)
        .firstChildElement();
}

void appendLines(const QDomElement &element, const QString &path, QStringList &lines)
{
    const QList<QDomElement> children = childrenOf(element);
    const QString own = path + nameOf(element);
    if (children.isEmpty())
        lines.append(own + u" = " + element.text());
    for (const QDomElement &child : children)
        appendLines(child, own + u'.', lines);
}

} // namespace

bool Answer::isThere() const
{
    return error == RestClient::None || error > RestClient::ExchangeFailed;
}

int Answer::httpStatus() const
{
    return error == RestClient::None ? success : error;
}

QString Answer::kind() const
{
    return payload.isNull() ? u"-"_s : nameOf(payload);
}

void readBody(Answer &answer)
{
    if (!isReadableMarkup(answer.body) || !answer.document.setContent(answer.body, true))
        answer.document = {};
    answer.payload = payloadOf(answer.document);
}

QString nameOf(const QDomElement &element)
{
    return element.localName().isEmpty() ? element.tagName() : element.localName();
}

QList<QDomElement> elementsAt(const QDomElement &from, const QStringList &path)
{
    QList<QDomElement> found{from};
    for (const QString &name : path) {
        QList<QDomElement> deeper;
        for (const QDomElement &element : std::as_const(found))
            for (const QDomElement &child : childrenOf(element))
                if (nameOf(child) == name)
                    deeper.append(child);
        found = deeper;
    }
    return from.isNull() ? QList<QDomElement>() : found;
}

QString linesOf(const QDomElement &payload)
{
    QStringList lines;
    for (const QDomElement &child : childrenOf(payload))
        appendLines(child, {}, lines);
    return lines.join(u'\n');
}

} // namespace till::accept
