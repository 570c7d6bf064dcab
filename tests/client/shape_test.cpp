#include "client/interface.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>

// A substitute client is compiled against the order of the virtual operations, so that order is
// part of the contract. A pointer to a member is, where this is built, a pair whose first half is
// an offset into the virtual table plus one for virtual members and an address for others.

using korvelLoyaltyOnline::Interface;

namespace {

struct MemberPointer
{
    std::uintptr_t offsetOrAddress;
    std::ptrdiff_t adjustment;
};

template <typename Member> bool isVirtual(Member member)
{
    return (std::bit_cast<MemberPointer>(member).offsetOrAddress & 1U) != 0;
}

/// From 1, behind the two entries of the virtual destructor; 0 for what is not virtual.
template <typename Member> std::uintptr_t slotOf(Member member)
{
    constexpr std::uintptr_t entriesOfDestructor = 2;
    if (!isVirtual(member))
        return 0;
    const auto offset = std::bit_cast<MemberPointer>(member).offsetOrAddress - 1;
    return offset / sizeof(void *) - entriesOfDestructor + 1;
}

class Extended : public Interface
{
public:
    virtual void next() { }
};

} // namespace

TEST(ClientShapeTest, TheVirtualOperationsStandInTheirOrder)
{
    const std::uintptr_t slots[] = {
        slotOf(&Interface::balanceRequest),
        slotOf(&Interface::saleChequeRequest),
        slotOf(&Interface::rollbackChequeRequest),
        slotOf(&Interface::returnChequeRequest),
        slotOf(&Interface::saleChequeRequestOffline),
        slotOf(&Interface::returnChequeRequestOffline),
        slotOf(&Interface::getMinRetailPriceForMarkdownPositions),
        slotOf(&Interface::formSaleChequeRequest),
        slotOf(&Interface::formReturnChequeRequest),
        slotOf(&Interface::formCard),
        slotOf(&Interface::formWriteOffConfirm),
        slotOf(&Interface::formCoupons),
        slotOf(&Interface::formTransactionReference),
        slotOf(&Interface::formChequeReference),
        slotOf(&Interface::formXmlRequest),
        slotOf(&Interface::calculateDiscount),
        slotOf(&Interface::sendRequest),
        slotOf(&Interface::checkResponse),
        slotOf(&Interface::checkCardStatus),
        slotOf(&Interface::fillClient),
        slotOf(&Interface::fillRequestResult),
        slotOf(&Interface::fillExtendedAttribute),
        slotOf(&Interface::sendRequestOffline),
    };
    for (std::uintptr_t i = 0; i < std::size(slots); ++i)
        EXPECT_EQ(slots[i], i + 1);
}

TEST(ClientShapeTest, ThereAreTwentyThreeVirtualOperations)
{
    EXPECT_EQ(slotOf(&Extended::next), 24U);
}

TEST(ClientShapeTest, TheOtherOperationsAreNotVirtual)
{
    using FromDocument = QMap<QString, QVariant> (Interface::*)(const QDomDocument &) const;
    using FromElement = QMap<QString, QVariant> (Interface::*)(const QDomElement &) const;
    EXPECT_FALSE(isVirtual(&Interface::throwError));
    EXPECT_FALSE(isVirtual(&Interface::formXmlRequestHeaders));
    EXPECT_FALSE(isVirtual(&Interface::getCardType));
    EXPECT_FALSE(isVirtual(&Interface::formItems));
    EXPECT_FALSE(isVirtual(&Interface::formExtendedAttributes));
    EXPECT_FALSE(isVirtual(&Interface::formDataByMask));
    EXPECT_FALSE(isVirtual<FromDocument>(&Interface::createExtendedAttributes));
    EXPECT_FALSE(isVirtual<FromElement>(&Interface::createExtendedAttributes));
    EXPECT_FALSE(isVirtual(&Interface::createCouponsToPrint));
}

TEST(ClientShapeTest, TheDestructorIsVirtual)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Interface>);
}
