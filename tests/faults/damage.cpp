#include "tests/faults/damage.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QUuid>

#include <nlohmann/json.hpp>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int versionToCome = 99;

void require(bool done, const QString &fileName)
{
    if (!done)
        throw std::runtime_error("cannot damage " + fileName.toStdString());
}

void setVersion(const QString &database)
{
    const QString connection = QUuid::createUuid().toString();
    {
        auto opened = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
        opened.setDatabaseName(database);
        require(opened.open()
                && QSqlQuery(opened).exec(u"PRAGMA user_version = %1"_s.arg(versionToCome)),
            database);
    }
    QSqlDatabase::removeDatabase(connection);
}

void makeNewer(const QString &fileName)
{
    if (fileName.endsWith(u".sqlite"))
        return setVersion(fileName);
    auto document = nlohmann::json::parse(contentsOf(fileName).toStdString());
    document["format"] = versionToCome;
    replaceContents(fileName, QByteArray::fromStdString(document.dump()));
}

} // namespace

QByteArray contentsOf(const QString &fileName)
{
    QFile file(fileName);
    require(file.open(QIODevice::ReadOnly), fileName);
    return file.readAll();
}

void replaceContents(const QString &fileName, const QByteArray &contents)
{
    QFile file(fileName);
    require(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size(), fileName);
}

void damageFile(const QString &fileName, Kind kind)
{
    const QByteArray contents = contentsOf(fileName);
    if (kind == Kind::FileTruncated)
        replaceContents(fileName, contents.left(contents.size() / 2));
    else if (kind == Kind::FileGarbage)
        replaceContents(fileName, QByteArray(contents.size(), '\xa5'));
    else
        makeNewer(fileName);
}

} // namespace faults
