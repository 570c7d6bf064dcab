#pragma once

#include <QList>

#include <algorithm>
#include <random>

/// Draws that are the same everywhere for the same engine, which the library's distributions are
/// not.
class Chance
{
public:
    /// @param engine not owned; must outlive this.
    explicit Chance(std::mt19937 &engine)
        : m_engine(engine)
    { }

    /// From 0 to one less than the bound, which is positive.
    int below(int bound) { return static_cast<int>(m_engine() % static_cast<unsigned>(bound)); }
    bool oneIn(int cases) { return below(cases) == 0; }
    template <typename T> const T &from(const QList<T> &values)
    {
        return values[below(static_cast<int>(values.size()))];
    }
    template <typename T> void shuffle(QList<T> &values)
    {
        for (qsizetype left = values.size(); left > 1; --left)
            std::swap(values[left - 1], values[below(static_cast<int>(left))]);
    }

private:
    std::mt19937 &m_engine;
};
