#include "emulator/faults/faultwords.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int greatestCount = 1'000'000;
constexpr int longestStall = 600'000;
constexpr int wholePercent = 100;

QString kindNames()
{
    QStringList names;
    for (const KindOfFault &kind : kindsOfFault)
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

QString seedWord()
{
    return u"seed"_s;
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

std::optional<Operation> readOperation(const QString &word)
{
    if (word == everyOperation())
        return {};
    const qsizetype place = operationNames().indexOf(word);
    if (place < 0)
        throw FaultWordsError(
            u"\"%1\": expected one of %2, all, or refuse, silence, stall, clear, stop"_s.arg(
                word, operationNames().join(u", "_s)));
    return static_cast<Operation>(place);
}

const KindOfFault &readKind(const QString &word)
{
    const auto found = std::find_if(kindsOfFault.begin(), kindsOfFault.end(),
        [&](const KindOfFault &kind) { return word == QStringView(kind.name); });
    if (found == kindsOfFault.end())
        throw FaultWordsError(u"\"%1\": expected one of %2"_s.arg(word, kindNames()));
    return *found;
}

int readPercent(const QString &word)
{
    bool isNumber = false;
    const double percent = word.chopped(1).toDouble(&isNumber);
    const int thousandths = isNumber && percent > 0 && percent <= wholePercent
        ? static_cast<int>(std::lround(percent * Chance::whole / wholePercent))
        : 0;
    if (thousandths == 0)
        throw FaultWordsError(u"\"%1\": expected a chance from 0.001% to 100%"_s.arg(word));
    return thousandths;
}

quint32 readSeed(const QString &word)
{
    bool isNumber = false;
    const quint32 seed = word.toUInt(&isNumber);
    if (!isNumber)
        throw FaultWordsError(u"\"%1\": expected a whole number as the seed"_s.arg(word));
    return seed;
}

Chance readChance(const QString &percent, QStringList &words)
{
    Chance chance{readPercent(percent)};
    if (!words.isEmpty() && words.first() == seedWord()) {
        words.removeFirst();
        chance.seed = readSeed(take(words, u"a number"_s));
    }
    return chance;
}

void readHowOften(Fault &fault, QStringList &words)
{
    fault.left = 1;
    if (words.isEmpty())
        return;
    const QString word = words.takeFirst();
    fault.left.reset();
    if (word.endsWith(u'%'))
        fault.chance = readChance(word, words);
    else if (word != always())
        fault.left = count(word);
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
    readHowOften(fault, words);
    requireNothingMore(words);
    return fault;
}

std::optional<ConnectionFaultKind> connectionFaultNamed(const QString &word)
{
    for (const auto kind :
        {ConnectionFaultKind::Refuse, ConnectionFaultKind::Silence, ConnectionFaultKind::Stall})
        if (word == faultName(kind))
            return kind;
    return {};
}

ConnectionFault readConnectionFault(ConnectionFaultKind kind, QStringList words)
{
    words.removeFirst();
    ConnectionFault fault{kind};
    if (kind == ConnectionFaultKind::Stall)
        fault.milliseconds
            = number(take(words, u"milliseconds"_s), u"milliseconds"_s, 0, longestStall);
    fault.left = words.isEmpty() ? 1 : count(words.takeFirst());
    requireNothingMore(words);
    return fault;
}

QString percentText(int thousandths)
{
    constexpr double thousandthsInOne = 1000;
    return QString::number(thousandths / thousandthsInOne) + u'%';
}

QString howOften(const Fault &fault)
{
    if (fault.chance)
        return u"%1 %2 %3"_s.arg(percentText(fault.chance->thousandths), seedWord())
            .arg(fault.chance->seed);
    return fault.left ? QString::number(*fault.left) : always();
}

struct WordsVisitor
{
    QString operator()(const Fault &fault) const
    {
        QStringList words;
        words.append(fault.operation ? operationName(*fault.operation) : everyOperation());
        words.append(faultName(fault.kind));
        if (kindsOfFault.at(static_cast<std::size_t>(fault.kind)).argument)
            words.append(QString::number(fault.argument));
        words.append(howOften(fault));
        return words.join(u' ');
    }
    QString operator()(const ConnectionFault &fault) const
    {
        QStringList words{faultName(fault.kind)};
        if (fault.kind == ConnectionFaultKind::Stall)
            words.append(QString::number(fault.milliseconds));
        words.append(QString::number(fault.left));
        return words.join(u' ');
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
    if (const auto kind = connectionFaultNamed(split.first()))
        return readConnectionFault(*kind, split);
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

} // namespace emulator
