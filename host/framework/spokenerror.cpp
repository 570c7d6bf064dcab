#include "host/framework/spokenerror.h"

SpokenError::SpokenError(const tr::Tr &message)
    : std::runtime_error(message.ru().toStdString())
    , m_message(message)
{ }

SpokenError::~SpokenError() = default;
