#pragma once

#include <QString>

#include <cstdio>

namespace till {

/// Colours texts for a terminal, or leaves them as they are.
class Paint
{
public:
    enum class Colour
    {
        Bold,
        Faint,
        Red,
        Green,
        Yellow
    };

    explicit Paint(bool coloured)
        : m_coloured(coloured)
    { }
    /// Colours on a terminal only, and not where NO_COLOR is set to anything.
    [[nodiscard]] static Paint forStream(std::FILE *stream);

    [[nodiscard]] QString operator()(Colour colour, const QString &text) const;

private:
    bool m_coloured;
};

} // namespace till
