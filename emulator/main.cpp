#include "emulator/options.h"

#include <QCoreApplication>

#include <algorithm>
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

int serve(emulator::Options options)
{
    emulator::Service service(std::move(options.service), systemTime);
    emulator::Server server(options.listen, options.tls,
        {[&] { return service.receive(); },
            [&](const emulator::HttpRequest &request) { return service.answer(request); }});
    std::cout << "listening on " << server.url().toStdString() << std::endl;
    server.run();
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char **argv)
{
    try {
        auto options = emulator::readOptions(argc, argv);
        if (!options)
            return EXIT_SUCCESS;
        // Qt finds its database driver only beside an application object.
        const QCoreApplication application(argc, argv);
        return serve(std::move(*options));
    } catch (const std::exception &error) {
        std::cerr << "korvel-service: " << oneLine(error.what()) << std::endl;
        return exitWrongUse;
    }
}
