#include "till/check/masks.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till::check;

namespace {

QString defects(const QString &mask)
{
    const QStringList properties{
        u"document.shop"_s, u"client.name"_s, u"indexPrice*.price"_s, u".quantity"_s};
    QStringList ids;
    for (const MaskDefect &defect : defectsOfMask(mask, properties))
        ids.append(defect.what.id() + u' ' + defect.remedy.ui());
    return ids.join(u"; "_s);
}

TEST(Masks, ThatNameWhatThereIsAreFine)
{
    for (const QString &mask : {u""_s, u"text"_s, u"${shop}"_s, u"a${document.shop}b${name}c"_s,
             u"${indexPrice5.price}"_s, u"${price}"_s, u"${quantity}"_s, u"$${shopp"_s, u"$}"_s})
        EXPECT_EQ(defects(mask), QString()) << qPrintable(mask);
}

TEST(Masks, ThatNameWhatThereIsNotAreTold)
{
    struct Row
    {
        QString mask;
        QString found;
    };
    const QString reference = u"checkMaskUnknown take a property from docs/settings.md"_s;
    const QString close = u"checkMaskOpen put a \"}\" behind the name of the property"_s;
    const QList<Row> rows{{u"${shopp}"_s, u"checkMaskUnknown was ${shop} meant?"_s},
        {u"${document.shp}"_s, u"checkMaskUnknown was ${document.shop} meant?"_s},
        {u"${client.shop}"_s, reference}, {u"${indexPrice5.name}"_s, reference},
        {u"${}"_s, reference}, {u"${shop"_s, close}, {u"${shop}${"_s, close},
        {u"${x1}${y2}"_s, reference + u"; " + reference}};
    for (const Row &row : rows)
        EXPECT_EQ(defects(row.mask), row.found) << qPrintable(row.mask);
}

} // namespace
