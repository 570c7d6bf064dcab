// A plug-in that sells: grants 10 on position 1, refuses card 2900000000099, throws something
// unheard of at card 2900000000098.

#include "host/framework/activitynotifier.h"
#include "tests/till/support/fakeloyalty.h"

using namespace Qt::StringLiterals;

class SellingPlugin : public FakeLoyalty
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "KorvelLoyaltyOnline")
    Q_INTERFACES(BasicLoyaltySystem BasicPlugin)

public:
    bool init() override
    {
        Singleton<ActivityNotifier>::instance()->subscribe(this);
        behaviour[u"identifyByCard"_s]
            = [this] { return accepts(presented->getNumber().toString()); };
        behaviour[u"request"_s] = [this] {
            giveDiscount(1, 10.0);
            return true;
        };
        return registerLoyaltySystem();
    }

private:
    bool accepts(const QString &card)
    {
        if (card == u"2900000000098")
            throw 7;
        refuseWith(u"blocked"_s, u"Карта заблокирована"_s, true);
        return card != u"2900000000099";
    }
};

#include "sellingplugin.moc"
