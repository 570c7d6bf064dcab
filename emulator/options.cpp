#include "emulator/options.h"

#include "emulator/data/servicedatareader.h"
#include "emulator/embedded.h"
#include "emulator/faults/faultwords.h"

#include <QFile>

#include <CLI/CLI.hpp>

#include <iostream>
#include <string>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

/// The command line's words before anything is made of them.
struct ListeningWords
{
    std::string listen = "127.0.0.1:0";
    std::string certificate;
    std::string key;
};

struct ServeWords
{
    ListeningWords listening;
    std::string data;
    std::string state;
    std::string user;
    std::string passwordFile;
    std::vector<std::string> faults;
};

struct RecordWords
{
    ListeningWords listening;
    std::string upstream;
    std::string folder;
    std::string caFile;
    int limit = 60;
    bool masksCards = false;
};

struct ReplayWords
{
    ListeningWords listening;
    std::string folder;
    bool withTimes = false;
};

void describe(CLI::App &app, ListeningWords &words)
{
    app.add_option("--listen", words.listen, "Address and port; port 0 takes a free one")
        ->type_name("ADDRESS:PORT")
        ->capture_default_str();
    auto *certificate = app.add_option("--tls-cert", words.certificate, "PEM certificate chain");
    auto *key = app.add_option("--tls-key", words.key, "PEM key of the certificate");
    certificate->needs(key)->type_name("FILE");
    key->needs(certificate)->type_name("FILE");
}

void describe(CLI::App &app, ServeWords &words)
{
    app.set_version_flag("--version", std::string("korvel-service ") + embedded::version());
    describe(app, words.listening);
    app.add_option("--data", words.data, "Cards and rules; left out: the built-in sample")
        ->type_name("FILE");
    app.add_option("--state", words.state, "Keeps the books; left out: in memory")
        ->type_name("FILE");
    auto *user = app.add_option("--user", words.user, "User that tills must give");
    auto *password
        = app.add_option("--password-file", words.passwordFile, "Its first line is the password");
    user->needs(password)->type_name("NAME");
    password->needs(user)->type_name("FILE");
    app.add_option("--fault", words.faults, "Orders a fault, such as \"soft lose 2\"; repeatable")
        ->type_name("WORDS")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void describe(CLI::App &record, RecordWords &words)
{
    constexpr int greatestLimit = 3600;
    describe(record, words.listening);
    record.add_option("--upstream", words.upstream, "The real service; http or https")
        ->type_name("URL")
        ->required();
    record.add_option("--out", words.folder, "Folder for the recording; made, or continued")
        ->type_name("DIR")
        ->required();
    record.add_flag("--mask-cards", words.masksCards,
        "Of card numbers write only the first and the last four digits");
    record.add_option("--limit", words.limit, "Time for an exchange with the real service")
        ->type_name("SECONDS")
        ->check(CLI::Range(1, greatestLimit))
        ->capture_default_str();
    record
        .add_option("--ca-file", words.caFile,
            "PEM certificates to trust the real service by; left out: the system's")
        ->type_name("FILE");
}

void describe(CLI::App &replay, ReplayWords &words)
{
    describe(replay, words.listening);
    replay.add_option("DIR", words.folder, "Folder that record has written")->required();
    replay.add_flag("--with-times", words.withTimes, "Answer as late as was recorded");
}

QString text(const std::string &word)
{
    return QString::fromLocal8Bit(word.data(), static_cast<qsizetype>(word.size()));
}

QString readPassword(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw OptionsError(
            u"%1: the password cannot be read: %2"_s.arg(path, file.errorString()).toStdString());
    QByteArray line = file.readLine();
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return QString::fromUtf8(line);
}

std::vector<FaultCommand> readFaults(const std::vector<std::string> &words)
{
    std::vector<FaultCommand> faults;
    for (const std::string &order : words) {
        faults.push_back(parseFaultWords(text(order)));
        const FaultCommand &command = faults.back();
        if (std::holds_alternative<ClearFaults>(command)
            || std::holds_alternative<StopService>(command))
            throw FaultWordsError(
                u"\"%1\" makes no sense before the service runs"_s.arg(text(order)));
    }
    return faults;
}

Listening listeningFrom(const ListeningWords &words)
{
    Listening listening;
    listening.address = ListenAddress::parse(text(words.listen));
    if (!words.certificate.empty())
        listening.tls = TlsFiles{text(words.certificate), text(words.key)};
    return listening;
}

ServeOptions optionsFrom(const ServeWords &words)
{
    ServeOptions options;
    options.listening = listeningFrom(words.listening);
    options.service.data
        = words.data.empty() ? sampleServiceData() : readServiceDataFile(text(words.data));
    options.service.statePath = text(words.state);
    options.service.listeningHost = options.listening.address.host;
    if (!words.user.empty())
        options.service.authorisation
            = Authorisation(text(words.user), readPassword(text(words.passwordFile)));
    options.service.faults = readFaults(words.faults);
    return options;
}

RecordOptions optionsFrom(const RecordWords &words)
{
    RecordOptions options;
    options.listening = listeningFrom(words.listening);
    options.recorder.upstream.address = UpstreamAddress::parse(text(words.upstream));
    options.recorder.upstream.limit = std::chrono::seconds(words.limit);
    options.recorder.upstream.caFile = text(words.caFile);
    options.recorder.folder = text(words.folder);
    options.recorder.masksCards = words.masksCards;
    return options;
}

ReplayOptions optionsFrom(const ReplayWords &words)
{
    return {listeningFrom(words.listening), text(words.folder), words.withTimes};
}

/// Options of the service itself, given before a subcommand, would have no effect.
void refuseOptionsBefore(const CLI::App &subcommand)
{
    for (const CLI::Option *option : subcommand.get_parent()->get_options()) {
        if (option->count() > 0)
            throw OptionsError(option->get_name() + " must stand behind " + subcommand.get_name()
                + ", where it is an option of it (--help lists them)");
    }
}

} // namespace

std::optional<Options> readOptions(int argc, const char *const *argv)
{
    CLI::App app("The loyalty processing service on this machine: real state, faults on demand",
        "korvel-service");
    auto *record = app.add_subcommand(
        "record", "Stand between tills and a real service, and write down what they say");
    auto *replay = app.add_subcommand("replay", "Answer tills from what was recorded");
    app.require_subcommand(0, 1);
    ServeWords serveWords;
    RecordWords recordWords;
    ReplayWords replayWords;
    describe(app, serveWords);
    describe(*record, recordWords);
    describe(*replay, replayWords);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success &asked) {
        app.exit(asked);
        return {};
    } catch (const CLI::ParseError &error) {
        throw OptionsError(std::string(error.what()) + " (--help lists the options)");
    }
    for (const CLI::App *subcommand : app.get_subcommands())
        refuseOptionsBefore(*subcommand);
    if (record->parsed())
        return optionsFrom(recordWords);
    if (replay->parsed())
        return optionsFrom(replayWords);
    return optionsFrom(serveWords);
}

} // namespace emulator
