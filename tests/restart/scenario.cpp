#include "tests/restart/scenario.h"

#include "till/script/words.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

QString textOf(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + fileName.toStdString());
    return QString::fromUtf8(file.readAll());
}

} // namespace

Scenario readScenario(const QString &name, const QString &text)
{
    Scenario scenario{name, {}, {}};
    int line = 0;
    const QStringList lines = text.split(u'\n');
    for (const QString &written : lines) {
        ++line;
        const QStringList words = till::splitWords(written);
        if (!words.isEmpty() && words.constFirst() != u"expect")
            scenario.commands.push_back({line, written.trimmed(), words});
    }
    return scenario;
}

std::vector<Scenario> scenariosIn(const QString &folder)
{
    std::vector<Scenario> scenarios;
    const auto files = QDir(folder).entryInfoList({u"*.till"_s}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        scenarios.push_back(readScenario(file.completeBaseName(), textOf(file.filePath())));
        scenarios.back().folder = folder;
    }
    return scenarios;
}

} // namespace restart
