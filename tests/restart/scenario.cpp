#include "tests/restart/scenario.h"

#include "till/script/words.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

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

bool isLaterPart(const QFileInfo &file)
{
    static const QRegularExpression numbered(u"\\.[0-9]+\\z"_s);
    return file.completeBaseName().contains(numbered);
}

// A script with the parts that go on where it ends. Tills are killed between any two commands
// here, so one more start between the parts makes no difference.
QString wholeTextOf(const QFileInfo &script)
{
    QString text = textOf(script.filePath());
    const QString stem = script.path() + u'/' + script.completeBaseName();
    for (int part = 2; QFile::exists(u"%1.%2.till"_s.arg(stem).arg(part)); ++part)
        text += textOf(u"%1.%2.till"_s.arg(stem).arg(part));
    return text;
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
        if (isLaterPart(file))
            continue;
        scenarios.push_back(readScenario(file.completeBaseName(), wholeTextOf(file)));
        scenarios.back().folder = folder;
    }
    return scenarios;
}

} // namespace restart
