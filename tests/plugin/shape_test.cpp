#include "tests/plugin/pluginfixture.h"

#include <QMetaMethod>

#include <bit>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace {

class Shape : public PluginFixture
{ };

/// Gives names to what the plug-in protects, and takes the slot behind its last one.
class Slots : public KorvelLoyaltyOnline
{
public:
    virtual void behindTheLast() { }

    /// Index of a virtual operation in the class's own table of functions: compilers of this
    /// platform keep its distance, plus one, in the pointer to the member.
    template <typename Operation> static std::ptrdiff_t of(Operation operation)
    {
        std::ptrdiff_t distance = 0;
        static_assert(sizeof operation >= sizeof distance);
        std::memcpy(&distance, &operation, sizeof distance);
        return (distance - 1) / static_cast<std::ptrdiff_t>(sizeof(void *));
    }
    static std::ptrdiff_t ofHandleEvent() { return of(&Slots::handleEvent); }
    static QList<std::ptrdiff_t> behindHandleEvent();
};

QList<std::ptrdiff_t> Slots::behindHandleEvent()
{
    using Document = QSharedPointer<AbstractDocument>;
    const auto request = static_cast<bool (Slots::*)(const Document &)>(&Slots::request);
    return {of(&Slots::init), of(&Slots::identifyByCard), of(request), of(&Slots::commit),
        of(&Slots::rollback), of(&Slots::cancel), of(&Slots::getPointsForSpend),
        of(&Slots::setPointsForSpend), of(&Slots::spendPoints), of(&Slots::hasPointsForEarn),
        of(&Slots::restoreLoyaltySystem), of(&Slots::beforePutoutCheck),
        of(&Slots::afterPutoutCheck), of(&Slots::fillDiscountImpacts), of(&Slots::fillChequeData),
        of(&Slots::fillPositionsData), of(&Slots::fillBonusRecords), of(&Slots::fillBonusImpacts),
        of(&Slots::sendStartEvent), of(&Slots::sendStopEvent), of(&Slots::clearLoyaltyData),
        of(&Slots::inputVerificationCode), of(&Slots::interchangeStickers),
        of(&Slots::hasStickersActions), of(&Slots::selectStickersActions),
        of(&Slots::removeStickersActions), of(&Slots::generateTechnicalCardNumber),
        of(&Slots::setOfflineMode), of(&Slots::removeCoupons), of(&Slots::beforeInput),
        of(&Slots::beforePositionAdd), of(&Slots::afterPositionAdd),
        of(&Slots::beforeApplyModifiers), of(&Slots::afterCouponAdd),
        of(&Slots::setPropertiesForMarkdownPosition)};
}

TEST_F(Shape, ThirtySixVirtualOperationsStandInTheirOrder)
{
    QList<std::ptrdiff_t> expected;
    for (std::ptrdiff_t slot = 1; slot <= 35; ++slot)
        expected.append(Slots::ofHandleEvent() + slot);
    EXPECT_EQ(Slots::behindHandleEvent(), expected);
}

TEST_F(Shape, NoVirtualOperationStandsBehindTheLast)
{
    EXPECT_EQ(Slots::of(&Slots::behindTheLast), Slots::ofHandleEvent() + 36);
}

TEST_F(Shape, ItsOwnNameCastsToTheObjectItself)
{
    KorvelLoyaltyOnline *object = &plugin();
    EXPECT_EQ(object->qt_metacast("KorvelLoyaltyOnline"), object);
}

TEST_F(Shape, BothNamesOfTheLoyaltySystemCastToThatPart)
{
    KorvelLoyaltyOnline *object = &plugin();
    BasicLoyaltySystem *part = object;
    EXPECT_EQ(object->qt_metacast("BasicLoyaltySystem"), part);
    EXPECT_EQ(object->qt_metacast("LoyaltySystem"), part);
}

TEST_F(Shape, TheHostsInterfaceIdCastsToThePluginPart)
{
    KorvelLoyaltyOnline *object = &plugin();
    BasicPlugin *part = object;
    EXPECT_EQ(object->qt_metacast(qobject_interface_iid<BasicPlugin *>()), part);
}

TEST_F(Shape, OtherNamesGoToTheListenersCast)
{
    KorvelLoyaltyOnline *object = &plugin();
    BaseActivityListener *listener = object;
    EXPECT_EQ(object->qt_metacast("BaseActivityListener"), listener);
    EXPECT_EQ(object->qt_metacast("BasicPlugin"), nullptr);
    EXPECT_EQ(object->qt_metacast("Anything"), nullptr);
}

TEST_F(Shape, TheOnlyMetaMethodIsTheSlotForEvents)
{
    const QMetaObject &meta = KorvelLoyaltyOnline::staticMetaObject;
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod method = meta.method(meta.methodOffset());
    EXPECT_EQ(method.methodSignature(), QByteArray("handleEvent(Event)"));
    EXPECT_EQ(method.methodType(), QMetaMethod::Slot);
    EXPECT_EQ(method.parameterMetaType(0), QMetaType::fromType<Event>());
}

TEST_F(Shape, TheSlotReachesTheHandler)
{
    plugin().offlineMode = true;
    QMetaObject::invokeMethod(
        &plugin(), "handleEvent", Q_ARG(Event, Event(EActivityListener::ChequeCancelled)));
    EXPECT_FALSE(plugin().offlineMode);
}

} // namespace
