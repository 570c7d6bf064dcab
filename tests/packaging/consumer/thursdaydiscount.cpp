// A loyalty system in one file: whoever shows a card gets a tenth off the first position.

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QObject>

#include <host/documents/abstractdocument.h>
#include <host/documents/documentimpact.h>
#include <host/framework/basicloyaltysystem.h>

class ThursdayDiscount : public QObject, public BasicLoyaltySystem
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "KorvelLoyaltyOnline")
    Q_INTERFACES(BasicLoyaltySystem BasicPlugin)

public:
    bool init() override
    {
        setPluginName(QStringLiteral("ThursdayDiscount"));
        m_cardMode = ECardMode::OnlineLoyalty;
        Log4Qt::LogManager::logger(QStringLiteral("thursday"))->info(QStringLiteral("ready"));
        return registerLoyaltySystem();
    }

    bool identifyByCard(QSharedPointer<DocumentCardRecord> &, ECardNumberType) override
    {
        return true;
    }

    bool request(const QSharedPointer<AbstractDocument> &document) override
    {
        const auto position = document->getGoods().value(0);
        if (!position || !hasCard())
            return true;
        constexpr double tenth = 0.1;
        const auto detail = QSharedPointer<DocumentImpactDetail>::create();
        detail->setPosition(position->getPosnum());
        detail->setDiscountSum(position->getSumn() * tenth);
        detail->setDiscountType(EDiscountType::Percentage);
        m_discountImpacts.append(QSharedPointer<DiscountImpact>::create(detail));
        return true;
    }
};

#include "thursdaydiscount.moc"
