#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"

using namespace Qt::Literals::StringLiterals;

namespace queueengine {

// Every test has a state folder of its own.
void begin() { }

QString setting()
{
    return {};
}

QSqlDatabase connect(const QString &connectionName)
{
    auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connectionName);
    database.setDatabaseName(QueueFixture::databaseFile());
    return database;
}

std::unique_ptr<MessageStore> openStore()
{
    return std::make_unique<MessageStore>(QueueFixture::databaseFile());
}

// Their processes are seen to have ended.
void endLeases(qint64 /*process*/) { }

} // namespace queueengine
