#include "host/net/exchangesettings.h"

#include "host/config/config.h"

#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int defaultMaxAnswerBytes = 8 * 1024 * 1024;

QByteArray pathSetting(const QString &key)
{
    return QFile::encodeName(Singleton<Config>::instance()->getPath(key, {}));
}

} // namespace

ExchangeSettings configuredExchangeSettings()
{
    const Config &config = *Singleton<Config>::instance();
    const int maxAnswerBytes = config.getInt(u"RestClient:maxAnswerBytes"_s, defaultMaxAnswerBytes);
    ExchangeSettings settings;
    settings.caFile = pathSetting(u"RestClient:caFile"_s);
    settings.clientCert = pathSetting(u"RestClient:clientCert"_s);
    settings.clientKey = pathSetting(u"RestClient:clientKey"_s);
    settings.proxy = config.getString(u"RestClient:proxy"_s, {}).toUtf8();
    settings.maxAnswerBytes = maxAnswerBytes > 0 ? maxAnswerBytes : defaultMaxAnswerBytes;
    settings.breaker.failures = config.getInt(u"RestClient:breakerFailures"_s, 0);
    settings.breaker.period
        = std::chrono::seconds(config.getInt(u"RestClient:breakerSeconds"_s, 0));
    return settings;
}
