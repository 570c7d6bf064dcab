#include "emulator/faults/fault.h"

#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

struct KindOfFault
{
    FaultKind kind;
    const char16_t *name;
    const char16_t *argument; ///< what the argument is; null: there is none
    int least;
    int greatest;
};

constexpr int longestDelay = 600'000;
constexpr int leastStatus = 100;
constexpr int greatestStatus = 599;
constexpr int greatestCode = 999'999;
constexpr int greatestCount = 1'000'000;

constexpr std::array kinds{
    KindOfFault{FaultKind::Delay, u"delay", u"milliseconds", 0, longestDelay},
    KindOfFault{FaultKind::Half, u"half", nullptr, 0, 0},
    KindOfFault{FaultKind::Reset, u"reset", nullptr, 0, 0},
    KindOfFault{FaultKind::NotXml, u"not-xml", nullptr, 0, 0},
    KindOfFault{FaultKind::Status, u"status", u"an HTTP status", leastStatus, greatestStatus},
    KindOfFault{FaultKind::Code, u"code", u"a return code", -greatestCode, greatestCode},
    KindOfFault{FaultKind::Lose, u"lose", nullptr, 0, 0},
    KindOfFault{FaultKind::Unauthorised, u"unauthorised", nullptr, 0, 0},
};

const KindOfFault &kindOf(FaultKind kind)
{
    return *std::find_if(kinds.begin(), kinds.end(),
        [&](const KindOfFault &candidate) { return candidate.kind == kind; });
}

QString kindNames()
{
    QStringList names;
    for (const KindOfFault &kind : kinds)
        names.append(QString::fromUtf16(kind.name));
    return names.join(u", "_s);
}

QString everyOperation()
{
    return u"all"_s;
}

QString always()
{
    return u"always"_s;
}

int number(const QString &word, const QString &what, int least, int greatest)
{
    bool isNumber = false;
    const int value = word.toInt(&isNumber);
    if (!isNumber || value < least || value > greatest)
        throw FaultWordsError(
            u"\"%1\": expected %2 from %3 to %4"_s.arg(word, what).arg(least).arg(greatest));
    return value;
}

int count(const QString &word)
{
    return number(word, u"a number of times"_s, 1, greatestCount);
}

std::optional<Operation> readOperation(const QString &word)
{
    if (word == everyOperation())
        return {};
    const qsizetype place = operationNames().indexOf(word);
    if (place < 0)
        throw FaultWordsError(u"\"%1\": expected one of %2, all, or refuse, clear, stop"_s.arg(
            word, operationNames().join(u", "_s)));
    return static_cast<Operation>(place);
}

const KindOfFault &readKind(const QString &word)
{
    const auto found = std::find_if(kinds.begin(), kinds.end(),
        [&](const KindOfFault &kind) { return word == QStringView(kind.name); });
    if (found == kinds.end())
        throw FaultWordsError(u"\"%1\": expected one of %2"_s.arg(word, kindNames()));
    return *found;
}

QString take(QStringList &words, const QString &expected)
{
    if (words.isEmpty())
        throw FaultWordsError(u"expected %1 at the end"_s.arg(expected));
    return words.takeFirst();
}

void requireNothingMore(const QStringList &words)
{
    if (!words.isEmpty())
        throw FaultWordsError(u"\"%1\": nothing more was expected"_s.arg(words.first()));
}

Fault readFault(QStringList words)
{
    Fault fault;
    fault.operation = readOperation(words.takeFirst());
    const KindOfFault &kind = readKind(take(words, u"one of "_s + kindNames()));
    fault.kind = kind.kind;
    if (kind.argument) {
        const QString what = QString::fromUtf16(kind.argument);
        fault.argument = number(take(words, what), what, kind.least, kind.greatest);
    }
    fault.left = 1;
    if (!words.isEmpty() && words.first() == always()) {
        words.removeFirst();
        fault.left.reset();
    } else if (!words.isEmpty()) {
        fault.left = count(words.takeFirst());
    }
    requireNothingMore(words);
    return fault;
}

FaultCommand readRefusal(QStringList words)
{
    words.removeFirst();
    const RefuseConnections refusal{words.isEmpty() ? 1 : count(words.takeFirst())};
    requireNothingMore(words);
    return refusal;
}

QString faultWords(const Fault &fault)
{
    const KindOfFault &kind = kindOf(fault.kind);
    QStringList words;
    words.append(fault.operation ? operationName(*fault.operation) : everyOperation());
    words.append(QString::fromUtf16(kind.name));
    if (kind.argument)
        words.append(QString::number(fault.argument));
    words.append(fault.left ? QString::number(*fault.left) : always());
    return words.join(u' ');
}

struct WordsVisitor
{
    QString operator()(const Fault &fault) const { return faultWords(fault); }
    QString operator()(const RefuseConnections &refusal) const
    {
        return u"refuse %1"_s.arg(refusal.count);
    }
    QString operator()(const ClearFaults &) const { return u"clear"_s; }
    QString operator()(const StopService &) const { return u"stop"_s; }
};

} // namespace

FaultCommand parseFaultWords(const QString &words)
{
    const QStringList split = words.simplified().split(u' ', Qt::SkipEmptyParts);
    if (split.isEmpty())
        throw FaultWordsError(u"expected a fault, such as \"soft lose 2\""_s);
    if (split.first() == u"refuse")
        return readRefusal(split);
    if (split == QStringList{u"clear"_s})
        return ClearFaults();
    if (split == QStringList{u"stop"_s})
        return StopService();
    return readFault(split);
}

QString faultWords(const FaultCommand &command)
{
    return std::visit(WordsVisitor(), command);
}

QString faultName(FaultKind kind)
{
    return QString::fromUtf16(kindOf(kind).name);
}

} // namespace emulator
