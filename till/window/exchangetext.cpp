#include "till/window/exchangetext.h"

#include "till/queue/masks.h"
#include "till/window/texts.h"
#include "till/wire/readablemarkup.h"

#include <QLocale>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <optional>

using namespace Qt::StringLiterals;

namespace till::exchangetext {

namespace {

constexpr int deepestIndentation = 100;

/// Looks for the first element of that name; its text, which is empty for one with children.
std::optional<QString> textOf(const QByteArray &xml, QStringView name)
{
    if (!isReadableMarkup(xml))
        return std::nullopt;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == name)
            return reader.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
    return std::nullopt;
}

QString chequeType(const QByteArray &request)
{
    QXmlStreamReader reader(request);
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement
            && reader.name() == u"ChequeRequest")
            return reader.attributes().value("ChequeType"_L1).toString();
    return {};
}

// Without namespaces the names keep their prefixes.
void copyIndented(QXmlStreamReader &reader, QXmlStreamWriter &writer)
{
    int depth = 0;
    while (!reader.atEnd() && depth <= deepestIndentation)
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            ++depth;
            writer.writeStartElement(reader.qualifiedName().toString());
            writer.writeAttributes(reader.attributes());
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            writer.writeEndElement();
            break;
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace())
                writer.writeCharacters(reader.text().toString());
            break;
        case QXmlStreamReader::DTD:
            reader.raiseError();
            break;
        default:
            break;
        }
    if (depth > deepestIndentation)
        reader.raiseError();
}

QString indented(const QByteArray &xml)
{
    constexpr int indentation = 2;
    if (!isReadableMarkup(xml))
        return QString::fromUtf8(xml);
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(indentation);
    copyIndented(reader, writer);
    return reader.hasError() ? QString::fromUtf8(xml) : text.trimmed();
}

} // namespace

QString operation(const ExchangeRecord &record)
{
    if (textOf(record.request, u"BalanceRequest"))
        return texts::exchangeBalance.ui();
    const QString kind = textOf(record.request, u"OperationType").value_or(QString());
    if (kind == u"Return")
        return texts::exchangeReturn.ui();
    if (kind == u"Rollback")
        return texts::exchangeRollback.ui();
    if (kind != u"Sale")
        return texts::exchangeOther.ui();
    return chequeType(record.request) == u"Soft" ? texts::exchangeCalculation.ui()
                                                 : texts::exchangeRegistration.ui();
}

bool hasSucceeded(const ExchangeRecord &record)
{
    const auto code = textOf(record.answer, u"ReturnCode");
    return record.error == 0 && code && code->toInt() <= 0;
}

QString outcome(const ExchangeRecord &record)
{
    if (record.error != 0)
        return texts::exchangeFailed.arg(QString::number(record.error))
            .arg(record.errorMessage.ui())
            .ui();
    const auto code = textOf(record.answer, u"ReturnCode");
    if (!code)
        return texts::exchangeOfNobody.ui();
    if (hasSucceeded(record))
        return texts::exchangeDone.arg(*code).ui();
    return u"%1 · %2"_s.arg(*code, textOf(record.answer, u"Message").value_or(QString()));
}

QString begun(const ExchangeRecord &record)
{
    return QLocale().toString(record.begun.date(), QLocale::ShortFormat)
        + record.begun.toString(u" HH:mm:ss.zzz"_s);
}

QString duration(const ExchangeRecord &record)
{
    return texts::exchangeMilliseconds.arg(QString::number(record.duration.count())).ui();
}

QString shown(const QByteArray &xml)
{
    return masks::withoutVerificationCodes(indented(xml));
}

QString forClipboard(const ExchangeRecord &record)
{
    QueueMessage message;
    message.body = shown(record.request).toUtf8();
    message.answer = shown(record.answer).toUtf8();
    message.remark = outcome(record);
    message = masks::masked(message);
    return u"%1 · %2 · %3 · %4\n\n%5\n\n%6\n"_s.arg(begun(record), duration(record),
        operation(record), message.remark, QString::fromUtf8(message.body),
        QString::fromUtf8(message.answer));
}

} // namespace till::exchangetext
