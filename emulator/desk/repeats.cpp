#include "emulator/desk/repeats.h"

#include "emulator/desk/returncodes.h"
#include "emulator/soap/answerwriter.h"

#include <QCryptographicHash>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int daysOfRepeat = 7;

} // namespace

QString fingerprintOf(const std::vector<RequestPosition> &positions)
{
    std::vector<RequestPosition> ordered = positions;
    std::sort(ordered.begin(), ordered.end(),
        [](const RequestPosition &one, const RequestPosition &other) {
            return one.number < other.number;
        });
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const RequestPosition &position : ordered) {
        const QString line = u"%1\n%2\n%3\n%4\n"_s.arg(QString::number(position.number),
            position.price.toString(), position.quantity.toString(),
            QString::fromLatin1(position.article.toUtf8().toHex()));
        hash.addData(line.toLatin1());
    }
    return QString::fromLatin1(hash.result().toHex());
}

std::optional<Answer> answerToRepeat(const DeskContext &context, TransactionKind kind,
    const ChequeKey &cheque, const QString &fingerprint)
{
    const auto earlier
        = context.books.transactions.findRepeated(kind, cheque, context.now.addDays(-daysOfRepeat));
    if (!earlier)
        return {};
    if (earlier->fingerprint == fingerprint)
        return RepeatedAnswer{returncodes::success, earlier->answer};
    return ChequeAnswer{
        {returncodes::otherPositions,
            u"Чек №%1 уже зарегистрирован с другими позициями"_s.arg(cheque.number)},
        {}};
}

void keepAnswer(const DeskContext &context, const ChequeAnswer &answer)
{
    context.books.transactions.setAnswer(
        answer.figures->transaction.toLongLong(), writeAnswer(answer));
}

} // namespace emulator
