#include "tests/faults/content.h"

#include <QFile>
#include <QRegularExpression>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int strangePositions = 10'000;
constexpr int firstStrangePosition = 1'001;
constexpr qsizetype longText = 5 * 1024 * 1024;

// An element that holds nothing but text, save those by which an answer is known to be one.
const QRegularExpression &figure()
{
    static const QRegularExpression expression(
        uR"(<(?!ReturnCode|PositionNumber)(\w+)>([^<]*)</\1>)"_s);
    return expression;
}

QByteArray sample(const QString &name)
{
    QFile file(QStringLiteral(FAULTS_SOURCE_FOLDER "/protocol/samples/") + name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("no sample " + name.toStdString());
    return file.readAll();
}

QByteArray replaced(const QByteArray &answer, const QRegularExpression &what, const QString &by)
{
    QString text = QString::fromUtf8(answer);
    text.replace(what, by);
    if (text.toUtf8() == answer)
        throw std::runtime_error("nothing to spoil in " + answer.toStdString());
    return text.toUtf8();
}

// Behind all that the service has said.
QByteArray added(const QByteArray &answer, const QByteArray &elements)
{
    static const QRegularExpression end(u"</(Balance|Cheque)Response>"_s);
    const qsizetype at = QString::fromLatin1(answer).indexOf(end);
    if (at < 0)
        throw std::runtime_error("no answer to add to: " + answer.toStdString());
    return QByteArray(answer).insert(at, elements);
}

QByteArray positions()
{
    QByteArray items;
    for (int number = firstStrangePosition; number < firstStrangePosition + strangePositions;
         ++number)
        items += "<Item><PositionNumber>" + QByteArray::number(number)
            + "</PositionNumber><Summ>1.00</Summ><Discount>0.00</Discount>"
              "<SummDiscounted>1.00</SummDiscounted><ActiveChargedBonus>0.00</ActiveChargedBonus>"
              "<ChargedStatusBonus>0.00</ChargedStatusBonus><WriteoffBonus>0.00</WriteoffBonus>"
              "</Item>";
    return items;
}

// Says that it is in UTF-8, and has the bytes of another encoding.
QByteArray inWindowsBytes(const QByteArray &answer)
{
    return added(answer, "<CashierMessage>\xd1\xea\xe8\xe4\xea\xe0</CashierMessage>");
}

} // namespace

QByteArray spoilt(Kind kind, const QByteArray &answer)
{
    using enum Kind;
    switch (kind) {
    case OtherAnswer:
        return sample(
            answer.contains("<BalanceResponse>") ? u"sale-answer.xml"_s : u"balance-answer.xml"_s);
    case Empty:
        return {};
    case HtmlPage:
        return "<!DOCTYPE html><html><head><meta charset=utf-8><title>Sign in</title></head>"
               "<body><p>Please sign in.<br></body></html>";
    case OtherXml:
        return "<?xml version=\"1.0\"?><status><state>maintenance</state></status>";
    case WrongEncoding:
        return inWindowsBytes(answer);
    case MissingElements:
        return replaced(answer, figure(), {});
    case DoubledElements:
        return replaced(answer, figure(), uR"(<\1>\2</\1><\1>7777</\1>)"_s);
    case AbsurdNumbers:
        return replaced(answer, QRegularExpression(uR"(>-?\d+\.\d\d<)"_s), u">-1e308<"_s);
    case TenThousandPositions:
        return added(answer, positions());
    case FiveMegabytes:
        return added(answer, "<ChequeMessage>" + QByteArray(longText, 'x') + "</ChequeMessage>");
    default:
        return answer;
    }
}

} // namespace faults
