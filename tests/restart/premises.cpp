#include "tests/restart/premises.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

const QString sampleFolder = QStringLiteral(RESTART_SOURCE_FOLDER "/config/");

} // namespace

Premises::Premises(const Scenario &scenario)
    : m_serviceData(sampleFolder + u"service.json"_s)
{
    QDir(m_folder.path()).mkdir(u"till.ini.d"_s);
    for (const QString &name : {u"till.ini"_s, u"catalogue.json"_s})
        copy(sampleFolder + name, name);
    const QString own = scenario.folder + u'/' + scenario.name;
    if (QFile::exists(own + u".ini"_s))
        copy(own + u".ini"_s, u"till.ini.d/20-scenario.ini"_s);
    if (QFile::exists(own + u".service.json"_s))
        m_serviceData = own + u".service.json"_s;
}

void Premises::setLoyaltyPort(quint16 loyaltyPort) const
{
    const QString settings = u"[KorvelLoyaltyOnline]\nurl=http://127.0.0.1:%1/\n"
                             "[Till]\nserviceApi=http://127.0.0.1:%2/api\n"_s.arg(loyaltyPort)
                                 .arg(servicePort());
    write(u"till.ini.d/10-service.ini"_s, settings.toUtf8());
}

QString Premises::keep()
{
    m_folder.setAutoRemove(false);
    return m_folder.path();
}

void Premises::write(const QString &name, const QByteArray &contents) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        throw std::runtime_error("cannot write " + file.fileName().toStdString());
}

void Premises::copy(const QString &from, const QString &name) const
{
    if (!QFile::copy(from, path(name)))
        throw std::runtime_error("cannot copy " + from.toStdString());
}

} // namespace restart
