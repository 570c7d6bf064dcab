#include "client/couponmessage.h"
#include "client/interface.h"
#include "common/host/services.h"
#include "common/names.h"
#include <log4qt/logmanager.h>

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The service on the till's own machine.
const QString defaultUrl = u"http://127.0.0.1"_s;
/// Two dashes: no honest text of a cheque has them side by side.
const QString defaultCouponMessageDelimeter = u"\u2013\u2013"_s;
/// Blocked, finished, deleted, not registered.
const QStringList defaultStatusesForCustomer = {u"3"_s, u"5"_s, u"6"_s, u"9"_s};

QString keyOf(const QString &setting)
{
    return korvel::group % u':' % setting;
}

} // namespace

Interface::Interface()
    : m_logger(Log4Qt::LogManager::logger(korvel::loggerName))
{
    const Config *config = Singleton<Config>::instance();
    const auto text = [config](const QString &setting, const QString &defaultValue = u""_s) {
        return config->getString(keyOf(setting), defaultValue);
    };
    m_url = QUrl(text(u"url"_s, defaultUrl));
    m_timeout = config->getInt(keyOf(u"timeout"_s), m_timeout);
    m_timeoutReturn = config->getInt(keyOf(u"timeoutReturn"_s), m_timeoutReturn);
    m_user = text(u"user"_s);
    m_password = text(u"password"_s);
    m_organization = text(u"organization"_s);
    m_businessUnit = text(u"businessUnit"_s);
    m_pos = text(u"pos"_s);
    m_orgName = text(u"orgName"_s);
    m_sendAdditionalBarcodeMarkdown = config->getBool(
        keyOf(u"sendAdditionalBarcodeMarkdown"_s), m_sendAdditionalBarcodeMarkdown);
    const QList<int> errors = config->getIntList(keyOf(u"errorsList"_s), {});
    m_errorsList = QSet<int>(errors.cbegin(), errors.cend());
    // The key's spelling is the one that tills in the field are configured with.
    m_couponMessageDelimeter
        = unescapedDelimiter(text(u"couponMessageDelimeter"_s, defaultCouponMessageDelimeter));
    m_indexForMinRetailPrice
        = config->getInt(keyOf(u"indexForMinRetailPrice"_s), m_indexForMinRetailPrice);
    readForbiddenCardStatuses(*config);
    m_registerErrorsInActivityJournal = config->getBool(
        keyOf(u"registerErrorsInActivityJournal"_s), m_registerErrorsInActivityJournal);
    m_minRetailPriceForMarkdownPositions = config->getDouble(
        keyOf(u"minRetailPriceForMarkdownPositions"_s), m_minRetailPriceForMarkdownPositions);
}

Interface::~Interface() = default;

void Interface::readForbiddenCardStatuses(const Config &config)
{
    // An item that is no number forbids status 0: a typing error must not open a card silently.
    const QStringList forCustomer = config.getStringList(
        keyOf(u"forbiddenCardStatusesForCustomer"_s), defaultStatusesForCustomer);
    for (const QString &status : forCustomer)
        m_forbiddenCardStatuses.insert(status.toInt(), true);
    const QStringList others = config.getStringList(keyOf(u"forbiddenCardStatuses"_s), {});
    for (const QString &status : others)
        if (!m_forbiddenCardStatuses.contains(status.toInt()))
            m_forbiddenCardStatuses.insert(status.toInt(), false);
}

} // namespace korvelLoyaltyOnline
