#include "till/language/language.h"

#include "host/config/config.h"
#include "till/language/idtranslator.h"

#include <QCoreApplication>
#include <QMap>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString languageKey = u"Till:language"_s;

const QMap<QString, Language> &languages()
{
    static const QMap<QString, Language> map{
        {u"ru"_s, Language::Russian}, {u"en"_s, Language::English}};
    return map;
}

// By the language of messages, which need not be that of numbers and dates.
bool wantsRussian(const QLocale &system)
{
    return QLocale(system.uiLanguages().value(0)).language() == QLocale::Russian;
}

ConfigError noSuchLanguage(const Config &config, const QString &given)
{
    const QString place = config.placeOf(languageKey);
    return ConfigError(tr::Tr(u"tillNoSuchLanguage"_s,
        u"%1ключ %2: касса не говорит на языке «%3»; укажите %4 или уберите ключ, тогда "
        u"язык будет системный"_s)
                           .arg(place.isEmpty() ? place : place + u": ")
                           .arg(languageKey)
                           .arg(given)
                           .arg(languages().keys().join(u", "_s)));
}

} // namespace

Language languageOf(const Config &config, const QLocale &system)
{
    if (!config.contains(languageKey))
        return wantsRussian(system) ? Language::Russian : Language::English;
    const QString given = config.getString(languageKey, {});
    const auto found = languages().constFind(given);
    if (found == languages().cend())
        throw noSuchLanguage(config, given);
    return *found;
}

QLocale localeOf(Language language, const QLocale &system)
{
    const QLocale own = language == Language::Russian
        ? QLocale(QLocale::Russian, QLocale::Russia)
        : QLocale(QLocale::English, QLocale::UnitedKingdom);
    return system.language() == own.language() ? system : own;
}

void speak(Language language, const QLocale &locale)
{
    static IdTranslator translator;
    QCoreApplication::removeTranslator(&translator);
    if (!translator.load(u":/korvel/translations/korvel_"_s + languages().key(language)))
        qFatal("the translations are missing in the program");
    QCoreApplication::installTranslator(&translator);
    QLocale::setDefault(locale);
}

void speak(Language language)
{
    speak(language, localeOf(language, QLocale::c()));
}

void speakAsConfigured()
{
    const QLocale system = QLocale::system();
    const Language language = languageOf(*Singleton<Config>::instance(), system);
    speak(language, localeOf(language, system));
}

} // namespace till
