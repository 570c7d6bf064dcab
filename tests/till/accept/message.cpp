#include "tests/till/accept/message.h"

#include <QStringBuilder>

namespace message {

namespace {

/// Where an element stands: its start tag's first byte, its text and its end; -1: nowhere.
struct Place
{
    qsizetype begin = -1;
    qsizetype text = -1;
    qsizetype textEnd = -1;
    qsizetype end = -1;
};

Place placeOf(const QByteArray &xml, const QByteArray &name, int index)
{
    const QByteArray start = '<' + name + '>';
    const QByteArray empty = '<' + name + "/>";
    Place place;
    qsizetype from = 0;
    for (int passed = 0; passed <= index; ++passed) {
        const qsizetype full = xml.indexOf(start, from);
        const qsizetype hollow = xml.indexOf(empty, from);
        if (full < 0 && hollow < 0)
            return {};
        if (full < 0 || (hollow >= 0 && hollow < full)) {
            place = {hollow, -1, -1, hollow + empty.size()};
        } else {
            const QByteArray last = "</" + name + '>';
            const qsizetype close = xml.indexOf(last, full);
            place = {full, full + start.size(), close, close + last.size()};
        }
        from = place.end;
    }
    return place;
}

} // namespace

QByteArray valueOf(const QByteArray &xml, const QByteArray &name, int index)
{
    const Place place = placeOf(xml, name, index);
    return place.text < 0 ? QByteArray() : xml.mid(place.text, place.textEnd - place.text);
}

QByteArray with(QByteArray xml, const QByteArray &name, const QByteArray &value, int index)
{
    const Place place = placeOf(xml, name, index);
    if (place.begin < 0)
        return xml;
    const QByteArray element = '<' + name + '>' + value + "</" + name + '>';
    return xml.replace(place.begin, place.end - place.begin, element);
}

QByteArray without(QByteArray xml, const QByteArray &name, int index)
{
    const Place place = placeOf(xml, name, index);
    return place.begin < 0 ? xml : xml.remove(place.begin, place.end - place.begin);
}

bool isBalance(const QByteArray &request)
{
    return request.contains("<BalanceRequest>");
}

bool isSoft(const QByteArray &request)
{
    return request.contains("ChequeType=\"Soft\"");
}

bool isFiscal(const QByteArray &request)
{
    return valueOf(request, "OperationType") == "Sale" && !isSoft(request);
}

bool isReturn(const QByteArray &request)
{
    return valueOf(request, "OperationType") == "Return";
}

bool isRollback(const QByteArray &request)
{
    return valueOf(request, "OperationType") == "Rollback";
}

qsizetype positions(const QByteArray &request)
{
    return request.count("<Item>");
}

} // namespace message
