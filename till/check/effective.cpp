#include "till/check/effective.h"

#include "host/config/config.h"
#include "host/config/valuereaders.h"
#include "till/check/schema.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

QString defaultOf(const QString &name)
{
    const Setting *setting = Schema::instance().find(name);
    QString text = setting ? setting->defaultValue.value_or(QString()) : QString();
    if (text.startsWith(u'"') && text.endsWith(u'"'))
        text = text.mid(1, text.size() - 2);
    return text;
}

} // namespace

bool Effective::isSet(const QString &name) const
{
    return Singleton<Config>::instance()->contains(name);
}

QString Effective::text(const QString &name) const
{
    return Singleton<Config>::instance()->getString(name, defaultOf(name));
}

QString Effective::path(const QString &name) const
{
    const QString path = Singleton<Config>::instance()->getPath(name, {});
    return path.isEmpty() ? path : QDir::cleanPath(path);
}

double Effective::number(const QString &name) const
{
    return config::number(text(name)).value_or(config::number(defaultOf(name)).value_or(0.0));
}

bool Effective::boolean(const QString &name) const
{
    return config::boolean(text(name)).value_or(config::boolean(defaultOf(name)).value_or(false));
}

QStringList Effective::items(const QString &name) const
{
    return config::items(text(name));
}

Place Effective::place(const QString &name) const
{
    const Written *written = m_files.find(name);
    return written ? written->place() : Place{{}, 0, name};
}

Finding Effective::finding(
    Severity severity, const QString &name, const tr::Tr &what, const tr::Tr &remedy) const
{
    return {severity, Area::Configuration, place(name), what, remedy};
}

} // namespace till::check
