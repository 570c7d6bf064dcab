#include "till/windowstart.h"

#include "host/framework/tr.h"

#include <QCoreApplication>
#include <QFile>

#include <unistd.h>

#include <cerrno>
#include <iostream>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace till {

namespace {

std::vector<std::string> wordsOf(const QString &program, const RunOptions &options)
{
    std::vector<std::string> words{QFile::encodeName(program).toStdString()};
    const auto add = [&words](const char *name, const QString &value) {
        if (value.isEmpty())
            return;
        words.emplace_back(name);
        words.push_back(QFile::encodeName(value).toStdString());
    };
    add("--config", options.configFile);
    add("--plugin", options.pluginFile);
    add("--state", options.stateFolder);
    return words;
}

} // namespace

ExitStatus startWindow(const RunOptions &options)
{
    const QString program = QCoreApplication::applicationDirPath() + u"/korvel-till-window"_s;
    std::vector<std::string> words = wordsOf(program, options);
    std::vector<char *> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execv(arguments.front(), arguments.data());
    const tr::Tr complaint = tr::Tr(u"tillWindowNotStarted"_s,
        u"окно %1 не запускается (%2); оно устанавливается рядом с korvel-till"_s)
                                 .arg(program)
                                 .arg(qt_error_string(errno));
    std::cerr << "korvel-till: " << complaint.ui().toStdString() << std::endl;
    return ExitStatus::Unusable;
}

} // namespace till
