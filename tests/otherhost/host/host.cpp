#include "shop/desk.h"
#include "shop/loyalty.h"
#include "shop/outside.h"
#include "shop/words.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <cstdio>
#include <map>
#include <string>

namespace shop {

Maker &makerOf(const char *typeName)
{
    static std::map<std::string, Maker> makers;
    return makers[typeName];
}

std::shared_ptr<void> &theOne(const char *typeName)
{
    static std::map<std::string, std::shared_ptr<void>> ones;
    return ones[typeName];
}

BasicException::BasicException(::tr::Tr message)
    : m_message(message)
{ }

Finally::Finally(std::function<void()> function)
    : action(std::move(function))
{ }

Finally::~Finally()
{
    action();
}

void ActivityNotifier::subscribe(BaseActivityListener *listener)
{
    m_listeners.append(listener);
}

void ActivityNotifier::notify(const Event &event)
{
    for (BaseActivityListener *listener : m_listeners)
        listener->handleEvent(event);
}

RestClient::~RestClient() = default;

void RestClient::post(const QUrl &, const QByteArray &, const QHash<QString, QString> &) { }

} // namespace shop

tr::Tr tr::Tr::arg(const QString &argument) const
{
    return {undefined, m_text.arg(argument)};
}

BasicPlugin::~BasicPlugin() = default;

namespace {
BasicLoyaltySystem *registeredSystem = nullptr;
}

bool BasicLoyaltySystem::registerLoyaltySystem()
{
    registeredSystem = this;
    return true;
}

BasicLoyaltySystem *BasicLoyaltySystem::registered()
{
    return registeredSystem;
}

QDomElement xmlutils::createTextElement(
    QDomDocument &document, const QString &tag, const QString &text)
{
    QDomElement element = document.createElement(tag);
    element.appendChild(document.createTextNode(text));
    return element;
}

void xmlutils::appendNotNull(QDomElement &parent, const QDomElement &element)
{
    if (!element.isNull())
        parent.appendChild(element);
}

QString xmlutils::getValueByTag(const QDomDocument &scope, const QString &tag, int index)
{
    return scope.elementsByTagName(tag).at(index).toElement().text();
}

QString xmlutils::getValueByTag(const QDomElement &scope, const QString &tag, int index)
{
    return scope.elementsByTagName(tag).at(index).toElement().text();
}

// The parts of the logging library that this host's plug-ins reach.
namespace Log4Qt {

AppenderAttachable::AppenderAttachable() = default;
AppenderAttachable::~AppenderAttachable() = default;
void AppenderAttachable::addAppender(const AppenderSharedPtr &) { }
void AppenderAttachable::removeAllAppenders() { }
void AppenderAttachable::removeAppender(const AppenderSharedPtr &) { }
void AppenderAttachable::removeAppender(const QString &) { }

Logger::Logger(LoggerRepository *, Level, const QString &, Logger *) { }
Logger::~Logger() = default;
void Logger::setLevel(Level) { }
Level::Level(Value) { }

static void write(const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

void Logger::debug(const QString &message) const
{
    write(message);
}

void Logger::info(const QString &message) const
{
    write(message);
}

void Logger::warn(const QString &message) const
{
    write(message);
}

void Logger::error(const QString &message) const
{
    write(message);
}

Logger *LogManager::logger(const QString &)
{
    struct TheOnly : Logger
    {
        TheOnly()
            : Logger(nullptr, Level(), {}, nullptr)
        { }
    };
    static TheOnly only;
    return &only;
}

} // namespace Log4Qt
