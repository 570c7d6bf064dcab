#include "till/check/nearest.h"

#include <algorithm>
#include <vector>

namespace till::check {

namespace {

constexpr qsizetype lettersPerSlip = 3;

} // namespace

int distance(const QString &left, const QString &right)
{
    const QString from = left.toLower();
    const QString to = right.toLower();
    const auto width = static_cast<std::size_t>(to.size());
    // Rows of the table of distances between beginnings: the current one and the two above it.
    std::vector<int> before(width + 1);
    std::vector<int> above(width + 1);
    std::vector<int> row(width + 1);
    for (std::size_t column = 0; column <= width; ++column)
        row[column] = static_cast<int>(column);
    for (qsizetype i = 1; i <= from.size(); ++i) {
        before.swap(above);
        above.swap(row);
        row[0] = static_cast<int>(i);
        for (qsizetype j = 1; j <= to.size(); ++j) {
            const auto column = static_cast<std::size_t>(j);
            const int replaced = from[i - 1] == to[j - 1] ? 0 : 1;
            row[column]
                = std::min({above[column] + 1, row[column - 1] + 1, above[column - 1] + replaced});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
                row[column] = std::min(row[column], before[column - 2] + 1);
        }
    }
    return row[width];
}

QString nearest(const QString &written, const QStringList &known)
{
    const int allowed = std::max(1, static_cast<int>(written.size() / lettersPerSlip));
    QString found;
    int least = allowed + 1;
    for (const QString &word : known)
        if (const int steps = distance(written, word); steps < least) {
            least = steps;
            found = word;
        }
    return found;
}

} // namespace till::check
