#include "host/queue/salvage/writeaheadlog.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

namespace {

// The format of the log, as the database documents it. Numbers are big-endian.
constexpr qint64 headSize = 32;
constexpr qint64 frameHeadSize = 24;
constexpr quint32 magic = 0x377f0682;
constexpr quint32 magicMask = 0xfffffffe;
constexpr qsizetype pageSizeAt = 8;
constexpr qsizetype saltsInHead = 16;
constexpr qsizetype sumsInHead = 24;
constexpr qsizetype commitInFrame = 4;
constexpr qsizetype saltsInFrame = 8;
constexpr qsizetype sumsInFrame = 16;
constexpr qsizetype saltsSize = 8;
constexpr quint32 smallestPage = 512;
constexpr quint32 largestPage = 65536;

quint32 numberAt(const QByteArray &bytes, qsizetype at)
{
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

/// The running sums that tie every frame to those before it.
struct Sums
{
    bool isBigEndian = false;
    quint32 first = 0;
    quint32 second = 0;

    void add(const QByteArray &bytes, qsizetype begin, qsizetype size)
    {
        for (qsizetype at = begin; at < begin + size; at += 8) {
            first += word(bytes.constData() + at) + second;
            second += word(bytes.constData() + at + 4) + first;
        }
    }
    [[nodiscard]] bool areAt(const QByteArray &bytes, qsizetype at) const
    {
        return numberAt(bytes, at) == first && numberAt(bytes, at + 4) == second;
    }

private:
    [[nodiscard]] quint32 word(const char *at) const
    {
        return isBigEndian ? qFromBigEndian<quint32>(at) : qFromLittleEndian<quint32>(at);
    }
};

bool isPageSize(quint32 size)
{
    return size >= smallestPage && size <= largestPage && (size & (size - 1)) == 0;
}

} // namespace

WriteAheadLog WriteAheadLog::read(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray head = file.read(headSize);
    if (head.size() < headSize || (numberAt(head, 0) & magicMask) != magic
        || !isPageSize(numberAt(head, pageSizeAt)))
        return {};
    Sums sums{(numberAt(head, 0) & 1) != 0};
    sums.add(head, 0, sumsInHead);
    if (!sums.areAt(head, sumsInHead))
        return {};

    WriteAheadLog log{numberAt(head, pageSizeAt), {}};
    const QByteArray salts = head.mid(saltsInHead, saltsSize);
    QHash<quint32, qint64> uncommitted;
    for (;;) {
        const QByteArray frame = file.read(frameHeadSize + log.pageSize);
        if (frame.size() < frameHeadSize + log.pageSize
            || frame.mid(saltsInFrame, saltsSize) != salts)
            return log;
        sums.add(frame, 0, saltsInFrame);
        sums.add(frame, frameHeadSize, log.pageSize);
        if (!sums.areAt(frame, sumsInFrame))
            return log;
        uncommitted.insert(numberAt(frame, 0), file.pos() - log.pageSize);
        if (numberAt(frame, commitInFrame) != 0)
            log.offsets.insert(uncommitted);
    }
}
