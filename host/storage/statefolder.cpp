#include "host/storage/statefolder.h"

#include <QDir>

template class Singleton<StateFolder>;

QString StateFolder::path() const
{
    return m_path.isEmpty() ? QDir::homePath() + QStringLiteral("/.korvel") : m_path;
}
