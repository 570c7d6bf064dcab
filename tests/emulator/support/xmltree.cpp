#include "tests/emulator/support/xmltree.h"

#include <QDomDocument>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

QDomDocument parse(const QByteArray &xml, bool withNamespaces)
{
    QDomDocument document;
    QString error;
    EXPECT_TRUE(document.setContent(xml, withNamespaces, &error)) << qPrintable(error) << "\n"
                                                                  << xml.constData();
    return document;
}

void addLines(
    const QDomElement &element, const QString &path, const QStringList &without, QStringList &lines)
{
    if (without.contains(element.localName()))
        return;
    const QString here = path + u'/' + element.localName();
    const QDomElement child = element.firstChildElement();
    if (child.isNull())
        lines.append(here + u" = "_s + element.text());
    for (QDomElement next = child; !next.isNull(); next = next.nextSiblingElement())
        addLines(next, here, without, lines);
}

} // namespace

QStringList xmlLines(const QByteArray &xml, const QStringList &without)
{
    QStringList lines;
    addLines(parse(xml, true).documentElement(), QString(), without, lines);
    return lines;
}

QString firstValue(const QByteArray &xml, const QString &name)
{
    return parse(xml, false).elementsByTagName(name).item(0).toElement().text();
}

} // namespace emulator
