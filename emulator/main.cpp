#include "emulator/options.h"
#include "emulator/recording/replay.h"
#include "emulator/recording/tell.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <string>

namespace {

constexpr int exitWrongUse = 2;

QDateTime systemTime()
{
    return QDateTime::currentDateTimeUtc();
}

std::string oneLine(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

emulator::Reception everybodyIsServed()
{
    return {};
}

void announce(const emulator::Server &server)
{
    std::cout << "listening on " << server.url().toStdString() << std::endl;
}

void run(const emulator::ServeOptions &options)
{
    emulator::Service service(options.service, systemTime);
    emulator::Server server(options.listening.address, options.listening.tls,
        {[&] { return service.receive(); },
            [&](const emulator::HttpRequest &request, const emulator::Respond &respond) {
                respond(service.answer(request));
            }});
    announce(server);
    server.run();
}

void run(const emulator::RecordOptions &options)
{
    // The tills need it for longer than the terminal that it was started from, and than a disk
    // has room for files.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    emulator::Recorder recorder(options.recorder);
    constexpr bool answersBeforeEnding = true;
    emulator::Server server(options.listening.address, options.listening.tls,
        {everybodyIsServed,
            [&](const emulator::HttpRequest &request, const emulator::Respond &respond) {
                recorder.answer(request, respond);
            },
            answersBeforeEnding});
    const auto stopped = qScopeGuard([&] { recorder.stop(); });
    announce(server);
    server.run();
}

void run(const emulator::ReplayOptions &options)
{
    emulator::Recording recording = emulator::readRecording(options.folder);
    for (const QString &warning : recording.warnings)
        emulator::tell(QStringLiteral("korvel-service: ") + warning);
    emulator::Replay replay(std::move(recording), options.withTimes);
    emulator::Server server(options.listening.address, options.listening.tls,
        {everybodyIsServed,
            [&](const emulator::HttpRequest &request, const emulator::Respond &respond) {
                respond(replay.answer(request));
            }});
    announce(server);
    server.run();
    emulator::tell(replay.summary());
}

} // namespace

int main(int argc, char **argv)
{
    try {
        const auto options = emulator::readOptions(argc, argv);
        if (!options)
            return EXIT_SUCCESS;
        // Qt finds its database driver only beside an application object.
        const QCoreApplication application(argc, argv);
        std::visit([](const auto &chosen) { run(chosen); }, *options);
        return EXIT_SUCCESS;
    } catch (const std::exception &error) {
        std::cerr << "korvel-service: " << oneLine(error.what()) << std::endl;
        return exitWrongUse;
    }
}
