#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class MasksTest : public ClientTest
{ };

} // namespace

TEST_F(MasksTest, AMaskIsExpandedOverTheCurrentDocument)
{
    givenMask(u"${till}"_s, u"3"_s);
    EXPECT_EQ(client().formDataByMask(u"${till}"_s), u"3"_s);
    ASSERT_EQ(formatter().expansions.size(), 1);
    const Expansion expansion = formatter().expansions.first();
    EXPECT_EQ(expansion.objects, documentObjects());
    EXPECT_EQ(expansion.flags, 0);
    EXPECT_TRUE(expansion.resolved.isEmpty());
}

TEST_F(MasksTest, NothingIsKeptFromOneExpansionToTheNext)
{
    givenMask(u"${till}"_s, u"3"_s);
    client().formDataByMask(u"${till}"_s);
    givenMask(u"${till}"_s, u"4"_s);
    EXPECT_EQ(client().formDataByMask(u"${till}"_s), u"4"_s);
    EXPECT_EQ(formatter().made, 2);
}

TEST_F(MasksTest, AnEmptyMaskIsEmpty)
{
    EXPECT_EQ(client().formDataByMask({}), u""_s);
}

TEST_F(MasksTest, ACopyForSendingIsMaskedOverTheCurrentDocumentToo)
{
    givenSetting(u"pos"_s, u"${till}"_s);
    const auto copy = QSharedPointer<AbstractDocument>::create(EDocumentType::Sale, u"18"_s);
    copy->addCardRecord(makeCard(u"1"_s));
    client().formSaleChequeRequest(copy, u"Fiscal"_s, {});
    EXPECT_EQ(formatter().expansions.value(0).objects, documentObjects());
}
