#include "host/framework/basicexception.h"

BasicException::BasicException(const tr::Tr &message)
    : std::runtime_error(message.ru().toStdString())
    , m_message(message)
{ }

BasicException::~BasicException() = default;
