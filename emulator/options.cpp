#include "emulator/options.h"

#include "emulator/data/servicedatareader.h"
#include "emulator/embedded.h"
#include "emulator/faults/faultwords.h"

#include <QFile>

#include <CLI/CLI.hpp>

#include <iostream>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

/// The command line's words before anything is made of them.
struct Words
{
    std::string listen = "127.0.0.1:0";
    std::string data;
    std::string state;
    std::string user;
    std::string passwordFile;
    std::string certificate;
    std::string key;
    std::vector<std::string> faults;
};

void describe(CLI::App &app, Words &words)
{
    app.set_version_flag("--version", embedded::version());
    app.add_option("--listen", words.listen, "Address and port; port 0 takes a free one")
        ->type_name("ADDRESS:PORT")
        ->capture_default_str();
    app.add_option("--data", words.data, "Cards and rules; left out: the built-in sample")
        ->type_name("FILE");
    app.add_option("--state", words.state, "Keeps the books; left out: in memory")
        ->type_name("FILE");
    auto *user = app.add_option("--user", words.user, "User that tills must give");
    auto *password
        = app.add_option("--password-file", words.passwordFile, "Its first line is the password");
    user->needs(password)->type_name("NAME");
    password->needs(user)->type_name("FILE");
    auto *certificate = app.add_option("--tls-cert", words.certificate, "PEM certificate chain");
    auto *key = app.add_option("--tls-key", words.key, "PEM key of the certificate");
    certificate->needs(key)->type_name("FILE");
    key->needs(certificate)->type_name("FILE");
    app.add_option("--fault", words.faults, "Orders a fault, such as \"soft lose 2\"; repeatable")
        ->type_name("WORDS")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
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

Options optionsFrom(const Words &words)
{
    Options options;
    options.listen = ListenAddress::parse(text(words.listen));
    if (!words.certificate.empty())
        options.tls = TlsFiles{text(words.certificate), text(words.key)};
    options.service.data
        = words.data.empty() ? sampleServiceData() : readServiceDataFile(text(words.data));
    options.service.statePath = text(words.state);
    options.service.listeningHost = options.listen.host;
    if (!words.user.empty())
        options.service.authorisation
            = Authorisation(text(words.user), readPassword(text(words.passwordFile)));
    options.service.faults = readFaults(words.faults);
    return options;
}

} // namespace

std::optional<Options> readOptions(int argc, const char *const *argv)
{
    CLI::App app("The loyalty processing service on this machine: real state, faults on demand",
        "korvel-service");
    Words words;
    describe(app, words);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success &asked) {
        app.exit(asked);
        return {};
    } catch (const CLI::ParseError &error) {
        throw OptionsError(std::string(error.what()) + " (--help lists the options)");
    }
    return optionsFrom(words);
}

} // namespace emulator
