#include "emulator/recording/tell.h"

#include <cstdio>

namespace emulator {

void tell(const QString &line)
{
    const QByteArray bytes = line.simplified().toUtf8() + '\n';
    static_cast<void>(std::fputs(bytes.constData(), stderr));
}

} // namespace emulator
