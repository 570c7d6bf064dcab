#include "benchmarks/serviceload/service.h"

#include <QFile>
#include <QUrl>

#include <nlohmann/json.hpp>
#include <sys/resource.h>
#include <unistd.h>

#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace serviceload {

namespace {

constexpr int percentOfEarning = 5;
constexpr int millisecondsInSecond = 1000;
constexpr int microsecondsInMillisecond = 1000;

QByteArray dataFile(int cards)
{
    auto list = nlohmann::json::array();
    for (int card = 0; card < cards; ++card)
        list.push_back({{"number", Service::cardNumber(card).toStdString()},
            {"holder", "Card " + std::to_string(card)}, {"balance", 1000}});
    const nlohmann::json data = {{"cards", list}, {"earning", {{"percent", percentOfEarning}}},
        {"discounts", {{"articles", {{{"article", "1001"}, {"percent", 10}}}}}}};
    return QByteArray::fromStdString(data.dump());
}

// The fields behind the program's name, which may have blanks and brackets in it.
QList<QByteArray> statisticsOf(qint64 process)
{
    QFile file(u"/proc/%1/stat"_s.arg(process));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the service has ended");
    const QByteArray line = file.readAll();
    return line.mid(line.lastIndexOf(')') + 2).split(' ');
}

} // namespace

Service::Service(const QString &program, int cards)
{
    QFile data(m_folder.filePath(u"data.json"_s));
    if (!data.open(QIODevice::WriteOnly) || data.write(dataFile(cards)) < 0)
        throw std::runtime_error("the data file cannot be written");
    data.close();
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program, {u"--data"_s, data.fileName()});
    if (!m_process.waitForReadyRead())
        throw std::runtime_error(program.toStdString() + " cannot be started");
    const QByteArray line = m_process.readLine().trimmed();
    m_port
        = static_cast<quint16>(QUrl(QString::fromUtf8(line.mid(line.lastIndexOf(' ') + 1))).port());
}

Service::~Service()
{
    m_process.terminate();
    m_process.waitForFinished();
}

qint64 Service::kibibytes() const
{
    constexpr qsizetype residentPages = 21;
    constexpr qint64 bytesInKibibyte = 1024;
    const auto fields = statisticsOf(m_process.processId());
    return fields.at(residentPages).toLongLong() * ::sysconf(_SC_PAGESIZE) / bytesInKibibyte;
}

std::chrono::milliseconds Service::processorTime() const
{
    constexpr qsizetype ticksInProgram = 11;
    constexpr qsizetype ticksInKernel = 12;
    const auto fields = statisticsOf(m_process.processId());
    const qint64 ticks
        = fields.at(ticksInProgram).toLongLong() + fields.at(ticksInKernel).toLongLong();
    return std::chrono::milliseconds(ticks * millisecondsInSecond / ::sysconf(_SC_CLK_TCK));
}

QString Service::cardNumber(int till)
{
    constexpr qint64 firstCard = 2900000100000;
    return QString::number(firstCard + till);
}

std::chrono::milliseconds ownProcessorTime()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto milliseconds = [](const timeval &time) {
        return time.tv_sec * millisecondsInSecond + time.tv_usec / microsecondsInMillisecond;
    };
    return std::chrono::milliseconds(milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime));
}

} // namespace serviceload
