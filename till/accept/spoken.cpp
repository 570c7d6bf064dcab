#include "till/accept/spoken.h"

#include <QLocale>

namespace till::accept {

QString Spoken::ui() const
{
    return QLocale().language() == QLocale::Russian ? russian : english;
}

} // namespace till::accept
