// The table is whole, and the document shows it as it is.

#include "tests/faults/markdown.h"
#include "tests/faults/table.h"

#include <QFile>

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

QString documentedTable()
{
    QFile file(QStringLiteral(FAULTS_SOURCE_FOLDER "/docs/reliability.md"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    const QString begin = u"<!-- fault table -->\n"_s;
    const QString end = u"<!-- end of the fault table -->"_s;
    const qsizetype from = text.indexOf(begin) + begin.size();
    return text.mid(from, text.indexOf(end) - from);
}

TEST(FaultTableTest, HasEveryFaultInEveryOperation)
{
    EXPECT_EQ(table().size(), allFaults().size() * allOperations.size());
    std::set<QString> names;
    for (const Cell &cell : table())
        names.insert(cell.name());
    EXPECT_EQ(names.size(), table().size());
}

TEST(FaultTableTest, SaysWhyAFaultHasNoMeaning)
{
    for (const Cell &cell : table())
        EXPECT_EQ(reasonWithoutMeaning(cell.fault, cell.operation).isEmpty(),
            cell.expected != Outcome::NoMeaning)
            << cell.name().toStdString();
}

TEST(FaultTableTest, TheSelectionHasEveryFaultOnceAndEveryOperation)
{
    std::set<Kind> kinds;
    std::set<Operation> operations;
    for (const Cell &cell : eachFaultAndOperationOnce()) {
        EXPECT_NE(cell.expected, Outcome::NoMeaning);
        EXPECT_TRUE(kinds.insert(cell.fault.kind).second) << cell.name().toStdString();
        operations.insert(cell.operation);
    }
    EXPECT_EQ(kinds.size(), allFaults().size());
    EXPECT_EQ(operations.size(), allOperations.size());
}

TEST(FaultTableTest, TheDocumentShowsItAsItIs)
{
    EXPECT_EQ(documentedTable().toStdString(), markdown().toStdString())
        << "tools/fault-matrix writes it anew";
}

} // namespace

} // namespace faults
