#include "tests/powercut/record.h"

#include <QList>

#include <map>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

const std::map<QByteArray, Record::Kind> &kinds()
{
    static const std::map<QByteArray, Record::Kind> all{
        {"open", Record::Kind::Open},
        {"close", Record::Kind::Close},
        {"write", Record::Kind::Write},
        {"cut", Record::Kind::Cut},
        {"reserve", Record::Kind::Reserve},
        {"sync", Record::Kind::Sync},
        {"rename", Record::Kind::Rename},
        {"link", Record::Kind::Link},
        {"unlink", Record::Kind::Unlink},
        {"mkdir", Record::Kind::Mkdir},
        {"marker", Record::Kind::Marker},
        {"other", Record::Kind::Other},
    };
    return all;
}

QString nameOf(Record::Kind kind)
{
    for (const auto &[name, known] : kinds())
        if (known == kind)
            return QString::fromUtf8(name);
    Q_UNREACHABLE();
}

// The fields of a record's first line.
enum Field : int
{
    KindField,
    OpeningField,
    NumberField,
    LengthField,
    Fields
};

} // namespace

std::vector<Record> readRecords(const QByteArray &log)
{
    std::vector<Record> records;
    for (qsizetype at = 0; at < log.size();) {
        const qsizetype headEnd = log.indexOf('\n', at);
        const auto fields = log.mid(at, headEnd - at).split(' ');
        const auto kind = kinds().find(fields.first());
        if (headEnd < 0 || fields.size() != Fields || kind == kinds().end())
            throw std::runtime_error("no record: " + log.mid(at, headEnd - at).toStdString());
        const qsizetype length = fields[LengthField].toLongLong();
        const qsizetype end = headEnd + 1 + length;
        if (end >= log.size() || log[end] != '\n')
            throw std::runtime_error("a record is cut off");
        records.push_back({kind->second, fields[OpeningField].toInt(),
            fields[NumberField].toLongLong(), log.mid(headEnd + 1, length)});
        at = end + 1;
    }
    return records;
}

QString described(const Record &record)
{
    const QString name = nameOf(record.kind);
    if (record.kind == Record::Kind::Write)
        return u"%1 %2 at %3, %4 bytes"_s.arg(name)
            .arg(record.opening)
            .arg(record.number)
            .arg(record.payload.size());
    QByteArray text = record.payload;
    text.replace('\0', " to ");
    return u"%1 %2 %3 %4"_s.arg(name)
        .arg(record.opening)
        .arg(record.number)
        .arg(QString::fromUtf8(text))
        .trimmed();
}

} // namespace powercut
