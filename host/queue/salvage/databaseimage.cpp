#include "host/queue/salvage/databaseimage.h"

#include <QtEndian>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray magic("SQLite format 3\0", 16);
constexpr qsizetype pageSizeAt = 16;
constexpr quint32 usualPageSize = 4096;
constexpr quint32 largestPageSize = 65536;
constexpr quint32 writtenForTheLargest = 1;

quint32 pageSizeOf(QFile &file)
{
    const QByteArray head = file.isOpen() ? file.read(pageSizeAt + 2) : QByteArray();
    if (head.size() < pageSizeAt + 2 || !head.startsWith(magic))
        return usualPageSize;
    const quint32 size = qFromBigEndian<quint16>(head.constData() + pageSizeAt);
    return size == writtenForTheLargest ? largestPageSize : size;
}

quint32 highestOf(const QHash<quint32, qint64> &offsets)
{
    quint32 highest = 0;
    for (auto page = offsets.keyBegin(); page != offsets.keyEnd(); ++page)
        highest = std::max(highest, *page);
    return highest;
}

} // namespace

DatabaseImage::DatabaseImage(const QString &fileName)
    : m_file(fileName)
    , m_log(fileName + u"-wal")
    , m_logged(WriteAheadLog::read(m_log.fileName()))
{
    static_cast<void>(m_file.open(QIODevice::ReadOnly));
    static_cast<void>(m_log.open(QIODevice::ReadOnly));
    m_pageSize = m_logged.pageSize > 0 ? m_logged.pageSize : pageSizeOf(m_file);
    m_pageCount
        = std::max(static_cast<quint32>(m_file.size() / m_pageSize), highestOf(m_logged.offsets));
}

QByteArray DatabaseImage::page(quint32 number)
{
    if (number == 0)
        return {};
    const auto logged = m_logged.offsets.constFind(number);
    const bool isLogged = logged != m_logged.offsets.constEnd();
    QFile &source = isLogged ? m_log : m_file;
    const qint64 offset = isLogged ? *logged : qint64{number - 1} * m_pageSize;
    if (!source.isOpen() || !source.seek(offset))
        return {};
    const QByteArray bytes = source.read(m_pageSize);
    return bytes.size() == m_pageSize ? bytes : QByteArray();
}
