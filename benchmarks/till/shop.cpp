#include "benchmarks/till/shop.h"

#include <QFile>
#include <QTextStream>
#include <QUrl>

#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int forEver = -1;
constexpr qint64 bytesPerKilobyte = 1024;
const QString programs = QStringLiteral(BENCHMARK_PROGRAMS);
const QString config = QStringLiteral(BENCHMARK_CONFIG);
const QString commandEnd = u"\n"_s;

[[noreturn]] void fail(const char *what, QProcess &process)
{
    throw std::runtime_error(
        what + std::string(": ") + process.readAllStandardError().toStdString());
}

QByteArray readLine(QProcess &process)
{
    while (!process.canReadLine() && process.waitForReadyRead(forEver)) { }
    return process.readLine();
}

} // namespace

Shop::Shop(const ShopPlan &plan)
    : m_folder(plan.disk + u"/shop-XXXXXX")
{
    startService(plan);
    writeSettings(plan);
    startTill();
}

Shop::~Shop()
{
    m_till.closeWriteChannel();
    m_till.waitForFinished(forEver);
    m_service.terminate();
    m_service.waitForFinished(forEver);
}

QStringList Shop::certificate() const
{
    const QString file = m_folder.filePath(u"cert.pem"_s);
    const QString key = m_folder.filePath(u"key.pem"_s);
    QProcess::execute(u"sh"_s,
        {u"-c"_s,
            u"openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 "
            "-subj /CN=localhost -addext subjectAltName=IP:127.0.0.1 -keyout \"$1\" -out \"$2\" "
            "2>/dev/null"_s,
            u"sh"_s, key, file});
    return {u"--tls-cert"_s, file, u"--tls-key"_s, key};
}

void Shop::startService(const ShopPlan &plan)
{
    QStringList options{u"--listen"_s, u"127.0.0.1:0"_s, u"--data"_s, config + u"/service.json",
        u"--state"_s, m_folder.filePath(u"books.sqlite"_s)};
    if (plan.tls)
        options += certificate();
    m_service.start(programs + u"/korvel-service", options);
    // "listening on URL"
    const QUrl url(QString::fromUtf8(readLine(m_service)).section(u' ', -1).trimmed());
    if (!url.isValid() || url.port() < 0)
        fail("the service did not start", m_service);
    m_line = std::make_unique<DelayingRelay>(static_cast<quint16>(url.port()), plan.oneWay);
}

void Shop::writeSettings(const ShopPlan &plan) const
{
    QFile file(m_folder.filePath(u"till.ini"_s));
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("the settings cannot be written");
    QTextStream settings(&file);
    settings << "[Till]\ncatalogue=" << config
             << "/catalogue.json\n[KorvelLoyaltyOnline]\nurl=" << (plan.tls ? "https" : "http")
             << "://127.0.0.1:" << m_line->port() << "/\nbusinessUnit=1\npos=1-1\n";
    if (plan.tls)
        settings << "[RestClient]\ncaFile=" << m_folder.filePath(u"cert.pem"_s) << '\n';
}

void Shop::startTill()
{
    m_till.start(programs + u"/korvel-till",
        {u"run"_s, u"--config"_s, m_folder.filePath(u"till.ini"_s), u"--state"_s,
            m_folder.filePath(u"state"_s), u"--transcript"_s, u"-"_s});
    if (!m_till.waitForStarted(forEver))
        fail("the till did not start", m_till);
}

Shop::Seconds Shop::tell(const QString &command)
{
    const auto begin = std::chrono::steady_clock::now();
    m_till.write(QString(command + commandEnd).toUtf8());
    const QByteArray told = readLine(m_till);
    if (told.isEmpty())
        fail("the till has ended", m_till);
    return std::chrono::steady_clock::now() - begin;
}

qint64 Shop::tillMemory() const
{
    QFile status(u"/proc/%1/status"_s.arg(m_till.processId()));
    if (!status.open(QIODevice::ReadOnly))
        throw std::runtime_error("the till's memory cannot be seen");
    const auto lines = status.readAll().split('\n');
    for (const QByteArray &line : lines)
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ').at(1).toLongLong() * bytesPerKilobyte;
    return 0;
}
