#include "tests/faults/markdown.h"

#include "tests/faults/table.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

QString line(const QStringList &columns)
{
    return u"| "_s + columns.join(u" | "_s) + u" |\n";
}

QString heading()
{
    QStringList titles{u"Where"_s, u"Fault"_s};
    for (const Operation operation : allOperations)
        titles.append(titleOf(operation));
    return line(titles) + u'|' + u"---|"_s.repeated(titles.size()) + u'\n';
}

QString row(const Fault &fault)
{
    QStringList columns{titleOf(fault.group), fault.name};
    for (const Operation operation : allOperations)
        columns.append(wordOf(cellOf(fault.kind, operation).expected));
    return line(columns);
}

bool isUsed(Outcome outcome)
{
    return std::any_of(table().begin(), table().end(),
        [outcome](const Cell &cell) { return cell.expected == outcome; });
}

QString words()
{
    QString text = line({u"Word"_s, u"What it means"_s}) + u"|---|---|\n"_s;
    for (const Outcome outcome : allOutcomes)
        if (isUsed(outcome))
            text += line({wordOf(outcome), meaningOf(outcome)});
    return text;
}

QString reasons()
{
    QStringList all;
    for (const Cell &cell : table())
        if (const QString reason = reasonWithoutMeaning(cell.fault, cell.operation);
            !reason.isEmpty() && !all.contains(reason))
            all.append(reason);
    return u"No meaning: "_s + all.join(u"; "_s) + u".\n";
}

} // namespace

QString markdown()
{
    QString text = heading();
    for (const Fault &fault : allFaults())
        text += row(fault);
    return text + u'\n' + words() + u'\n' + reasons();
}

} // namespace faults
