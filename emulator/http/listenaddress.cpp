#include "emulator/http/server.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

ListenAddress ListenAddress::parse(const QString &text)
{
    const qsizetype colon = text.lastIndexOf(u':');
    bool isPort = false;
    const quint16 port = text.mid(colon + 1).toUShort(&isPort);
    QString host = text.left(qMax(colon, qsizetype{0}));
    if (host.startsWith(u'[') && host.endsWith(u']'))
        host = host.mid(1, host.size() - 2);
    if (!isPort || host.isEmpty())
        throw ServerError(
            u"\"%1\": expected an address and a port to listen on, such as 127.0.0.1:8080"_s.arg(
                text));
    return {host, port};
}

} // namespace emulator
