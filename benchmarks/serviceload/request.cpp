#include "benchmarks/serviceload/request.h"

#include "benchmarks/serviceload/service.h"

#include <QByteArray>

namespace serviceload {

namespace {

constexpr int positions = 10;
constexpr int firstArticle = 1001;

QByteArray position(int number)
{
    return "<Item><PositionNumber>" + QByteArray::number(number) + "</PositionNumber><Article>"
        + QByteArray::number(firstArticle + number - 1)
        + "</Article><Price>45.90</Price><Quantity>2.000</Quantity><Summ>91.80</Summ>"
          "<Discount>0.00</Discount><SummDiscounted>91.80</SummDiscounted><Mcp>0.00</Mcp></Item>";
}

QByteArray allPositions()
{
    QByteArray all;
    for (int number = 1; number <= positions; ++number)
        all += position(number);
    return all;
}

QByteArray message(int till, int cheque, bool isFiscal)
{
    static const QByteArray items = allPositions();
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
           "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\"><soap:Body>"
           "<ProcessRequest xmlns=\"http://schemas.korvel.example/loyalty/processing\">"
           "<orgName>Korvel</orgName><request><ChequeRequest ChequeType=\""
        + QByteArray(isFiscal ? "Fiscal" : "Soft") + "\"><Card><CardNumber>"
        + Service::cardNumber(till).toLatin1()
        + "</CardNumber></Card><OperationType>Sale</OperationType><Number>"
        + QByteArray::number(cheque)
        + "</Number><Summ>918.00</Summ><Discount>0.00</Discount>"
          "<SummDiscounted>918.00</SummDiscounted><PaidByBonus>"
        + QByteArray(isFiscal ? "0.00" : "918.00") + "</PaidByBonus>" + items
        + "<DateTime>2024-03-05T17:04:09</DateTime><POS>" + QByteArray::number(till + 1)
        + "</POS><Organization>Korvel</Organization><BusinessUnit>1</BusinessUnit>"
          "</ChequeRequest></request></ProcessRequest></soap:Body></soap:Envelope>";
}

} // namespace

std::string chequeRequest(int till, int cheque, bool isFiscal)
{
    const QByteArray body = message(till, cheque, isFiscal);
    const QByteArray head
        = "POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Type: text/xml; charset=utf-8\r\n"
          "Connection: close\r\nContent-Length: "
        + QByteArray::number(body.size()) + "\r\n\r\n";
    return QByteArray(head + body).toStdString();
}

} // namespace serviceload
