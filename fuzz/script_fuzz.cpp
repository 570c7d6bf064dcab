// Any bytes as a till script, carried out by a till with the real plug-in: every line is done or
// refused with a reason, and no request is anything but XML. Only the first lines of a script are
// carried out, so that no input is long.

#include "fuzz/measure.h"
#include "fuzz/support/desk.h"

#include "till/script/scriptrunner.h"

#include <QFile>

#include <sstream>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int mostLines = 24;

QByteArray sample(const char *name)
{
    QFile file(QStringLiteral(KORVEL_SOURCE_DIR "/protocol/samples/") + QLatin1StringView(name));
    fuzz::require(file.open(QIODevice::ReadOnly), "the samples of the protocol are there");
    return file.readAll();
}

struct Reply
{
    QByteArray part; ///< of the requests that it answers
    QByteArray answer;
};

/// The first whose part is in a request counts.
const QList<Reply> &replies()
{
    static const QList<Reply> all{
        // Cards to try what else a service does: nothing, a refusal, an offer of stickers.
        {"2900000000093", {}},
        {"2900000000086", sample("refusal-answer.xml")},
        {"BalanceRequest", sample("balance-answer.xml")},
        {"2900000000062", sample("stickers-offer-answer.xml")},
        {"Rollback", sample("rollback-answer.xml")},
        {"<OperationType>Return", sample("return-answer.xml")},
        {"PaidByBonus>0.00", sample("sale-soft-answer.xml")},
        {"Soft", sample("sale-points-answer.xml")},
        {"", sample("sale-answer.xml")},
    };
    return all;
}

QByteArray answerTo(const QByteArray &request)
{
    for (const Reply &reply : replies())
        if (request.contains(reply.part))
            return reply.answer;
    return {};
}

std::string firstLines(const QByteArray &input)
{
    return input.split('\n').mid(0, mostLines).join('\n').toStdString();
}

bool carryOut(const QByteArray &input)
{
    fuzz::Desk desk(answerTo);
    int executed = 0;
    desk.interpreter().addObserver(
        [&executed](const till::ExecutedCommand &, const till::Json &object) {
            (void)object.dump();
            ++executed;
        });
    std::istringstream script(firstLines(input));
    std::ostringstream errors;
    (void)till::runScript(script, u"script"_s, desk.interpreter(), errors);
    return executed > 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::measure(data, size, carryOut);
}
