/// Reads one file as the service's answer, the way an exchange does, and tells what that cost.
///
///     hostile_probe [--without-guard | --parse-only] FILE...
///
/// Prints one JSON object for each file: what became of it, what was logged and, as a digest, what
/// was read, the processor time in milliseconds, and the peak of the process's memory in KiB.
/// "--without-guard" hands the bytes to the parser at once: the control that shows what the guard
/// is for. "--parse-only" tells of each file only what the parser alone takes: the yardstick of the
/// machine.

#include "client/interface.h"
#include "common/exceptions.h"
#include "common/names.h"
#include "tests/client/doubles.h"
#include "tests/support/hostfixture.h"
#include "tests/support/logcapture.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cstdio>
#include <ctime>

using namespace Qt::Literals::StringLiterals;

namespace {

using korvelLoyaltyOnline::Interface;

double processorMilliseconds()
{
    constexpr double millisecondsPerSecond = 1e3;
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC * millisecondsPerSecond;
}

/// The most that this process itself ever held; what its parent held before it started does not
/// count, as it would in the figures of `getrusage`.
int peakKibibytes()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    static const QRegularExpression peak(uR"(VmHWM:\s*(\d+) kB)"_s);
    return peak.match(QString::fromLatin1(status.readAll())).captured(1).toInt();
}

QString digestOf(const QMap<QString, QVariant> &values)
{
    const QByteArray text = QJsonDocument::fromVariant(values).toJson(QJsonDocument::Compact);
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex());
}

/// Runs a step; a refusal by the client is one of its ordinary ends.
template <typename Step> void run(const Step &step)
{
    try {
        step();
    } catch (const KorvelException &) { }
}

class Probe : private HostFixture
{
public:
    Probe()
    {
        givenCurrentDocument();
        MockFactory<RestClient>::setCreator(
            [this] { return QSharedPointer<RestClientDouble>::create(m_service); });
    }

    /// What an exchange and all readers of answers make of the bytes.
    /// @return what was read.
    QMap<QString, QVariant> read(const QByteArray &answer, bool isGuarded)
    {
        const Interface client;
        const auto card = givenCard();
        QDomDocument response;
        if (isGuarded) {
            m_service->answer = answer;
            response = client.sendRequest(QDomDocument(), 1);
        } else if (!response.setContent(answer)) {
            throw KorvelException(tr::Tr(u"requestIncorrectAnswer"_s, u""_s));
        }
        run([&] { client.checkResponse(response); });
        run([&] { client.checkCardStatus(response); });
        run([&] { client.fillClient(response, card); });
        QMap<QString, QVariant> result;
        run([&] { client.fillRequestResult(response, result); });
        const auto holder = card->getCard()->getClient();
        result.insert(u"holder"_s, holder ? holder->getName() : QString());
        return result;
    }

private:
    QSharedPointer<ScriptedService> m_service = QSharedPointer<ScriptedService>::create();
};

QJsonObject measure(Probe &probe, const QString &fileName, bool isGuarded)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {{u"outcome"_s, u"the file cannot be read"_s}};
    const QByteArray answer = file.readAll();
    const LogCapture log(korvel::loggerName);
    QJsonObject found;
    QMap<QString, QVariant> read;
    const double before = processorMilliseconds();
    try {
        read = probe.read(answer, isGuarded);
        found[u"outcome"_s] = u"handled"_s;
    } catch (const KorvelException &refusal) {
        found[u"outcome"_s] = u"refused"_s;
        found[u"message"_s] = refusal.tr().id();
    }
    found[u"milliseconds"_s] = processorMilliseconds() - before;
    found[u"peakKibibytes"_s] = peakKibibytes();
    found[u"log"_s] = log.lines().join(u'\n');
    found[u"read"_s] = digestOf(read);
    return found;
}

QJsonObject measureParser(const QString &fileName)
{
    QFile file(fileName);
    const QByteArray answer = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    QDomDocument document;
    const double before = processorMilliseconds();
    const bool isParsed = document.setContent(answer);
    return {{u"outcome"_s, isParsed ? u"handled"_s : u"refused"_s},
        {u"milliseconds"_s, processorMilliseconds() - before}};
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList files = application.arguments().mid(1);
    const bool isGuarded = !files.removeOne(u"--without-guard"_s);
    const bool isOnlyParsed = files.removeOne(u"--parse-only"_s);
    Probe probe;
    for (const QString &file : files) {
        const QJsonObject found
            = isOnlyParsed ? measureParser(file) : measure(probe, file, isGuarded);
        const QByteArray line = QJsonDocument(found).toJson(QJsonDocument::Compact);
        std::puts(line.constData());
    }
    return 0;
}
