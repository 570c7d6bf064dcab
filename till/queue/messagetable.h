#pragma once

#include "host/queue/queuemessage.h"

#include <QList>

#include <cstdio>

namespace till {

/// Messages as a table, written page by page so that no more than a page of it is ever in memory;
/// the columns are as wide on every page.
class MessageTable
{
public:
    /// How wide the table may be.
    enum class Width : int
    {
        Terminal, ///< that of the terminal: ids are shortened, and what is longer is cut
        Whole, ///< whatever it takes: nothing is cut
    };

    /// @param stream not owned; must outlive this.
    MessageTable(std::FILE *stream, Width width);
    /// For a stream: the terminal's width where it is one.
    [[nodiscard]] static Width widthFor(std::FILE *stream);
    /// Uses that many columns instead of the terminal's own.
    void setTerminalWidth(int columns) { m_columns = columns; }

    /// Writes the next rows, behind the headings where they are the first ones.
    void write(const QList<QueueMessage> &page);

private:
    std::FILE *m_stream;
    Width m_width;
    int m_columns = 0; ///< 0: the terminal's own
    bool m_hasHeadings = false;
};

} // namespace till
