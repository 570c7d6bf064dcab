#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace powercut {

/// One thing that a recorded process did to the files below its folder, or said.
struct Record
{
    enum class Kind
    {
        Open, ///< `number`: the flags; `payload`: the path
        Close,
        Write, ///< `number`: the offset
        Cut, ///< `number`: the new size
        Reserve, ///< `number`: the least size
        Sync,
        Rename, ///< `payload`: both paths with a zero byte between them
        Link, ///< likewise
        Unlink,
        Mkdir,
        Marker, ///< `payload`: what the process says
        Other ///< something that no replay can know the outcome of
    };

    Kind kind = Kind::Other;
    int opening = 0; ///< of a file or folder; 0 for none
    qint64 number = 0;
    QByteArray payload;
};

/// Reads what the recorder has written.
/// @throws std::runtime_error when it is not whole or holds an unknown kind.
std::vector<Record> readRecords(const QByteArray &log);

/// A record for people: "write 12 at 4096, 512 bytes".
QString described(const Record &record);

} // namespace powercut
