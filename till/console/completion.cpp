#include "till/console/completion.h"

#include "till/script/commands.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

QStringList commandNames()
{
    QStringList names;
    for (const Commands::Command &command : Commands::table())
        names.append(command.name);
    return names;
}

QStringList thoseWith(const QStringList &candidates, const QString &beginning)
{
    QStringList found;
    for (const QString &candidate : candidates)
        if (candidate.startsWith(beginning))
            found.append(candidate);
    return found;
}

} // namespace

QStringList completions(const QString &before, const QString &word, const QStringList &articles)
{
    const QString command = before.trimmed();
    if (command.isEmpty())
        return thoseWith(commandNames(), word);
    if (command == u"add" || command == u"input")
        return thoseWith(articles, word);
    return {};
}

} // namespace till
