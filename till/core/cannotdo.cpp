#include "till/core/cannotdo.h"

namespace till {

CannotDo::CannotDo(const QString &reason, const QString &remedy)
    : std::runtime_error(QString(reason + u"; " + remedy).toStdString())
    , m_text(reason + u"; " + remedy)
{ }

CannotDo::~CannotDo() = default;

} // namespace till
