// The defaults that the plug-in and its client name are those of the reference.

#include "client/couponmessage.h"
#include "tests/plugin/pluginfixture.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Remembers the default of each key that is asked for, as a file would have it.
class NotingConfig : public Config
{
public:
    QString getString(const QString &key, const QString &defaultValue) const override
    {
        return noted(key, defaultValue, defaultValue);
    }
    int getInt(const QString &key, int defaultValue) const override
    {
        return noted(key, QString::number(defaultValue), defaultValue);
    }
    bool getBool(const QString &key, bool defaultValue) const override
    {
        return noted(key, defaultValue ? u"true"_s : u"false"_s, defaultValue);
    }
    double getDouble(const QString &key, double defaultValue) const override
    {
        return noted(key, QString::number(defaultValue), defaultValue);
    }
    QStringList getStringList(const QString &key, const QStringList &defaultValue) const override
    {
        return noted(key, defaultValue.join(u','), defaultValue);
    }
    QList<int> getIntList(const QString &key, const QList<int> &defaultValue) const override
    {
        return noted(key, defaultValue.isEmpty() ? u""_s : u"?"_s, defaultValue);
    }

    mutable QMap<QString, QString> defaults;

private:
    template <typename T> T noted(const QString &key, const QString &text, const T &value) const
    {
        defaults.insert(key, text);
        return value;
    }
};

/// What a default of the reference means.
QString meant(QString text)
{
    if (text.startsWith(u'"'))
        text = text.mid(1, text.size() - 2);
    return korvelLoyaltyOnline::unescapedDelimiter(text);
}

/// Of the settings that the plug-in reads when it is loaded.
QMap<QString, QString> referenceDefaults()
{
    QFile file(QStringLiteral(SETTINGS_REFERENCE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QJsonObject reference = QJsonDocument::fromJson(file.readAll()).object();
    QMap<QString, QString> defaults;
    for (const auto section : reference[u"sections"_s].toArray())
        for (const auto setting : section[u"settings"_s].toArray())
            if (setting[u"readers"_s].toArray().contains(u"plug-in"_s)
                && setting[u"read"_s].toString() != u"use"_s)
                defaults.insert(section[u"name"_s].toString() + u':' + setting[u"key"_s].toString(),
                    meant(setting[u"default"_s].toString()));
    return defaults;
}

TEST(Defaults, AreThoseOfTheReference)
{
    const auto config = QSharedPointer<NotingConfig>::create();
    Singleton<Config>::set(config);
    {
        const KorvelLoyaltyOnline plugin;
    }
    Singleton<Config>::reset();

    const QMap<QString, QString> wanted = referenceDefaults();
    EXPECT_EQ(config->defaults.keys(), wanted.keys());
    for (auto setting = wanted.cbegin(); setting != wanted.cend(); ++setting)
        EXPECT_EQ(
            config->defaults.value(setting.key()).toStdString(), setting.value().toStdString())
            << qPrintable(setting.key());
}

} // namespace
