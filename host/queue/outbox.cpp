#include "host/queue/outbox.h"

Outbox::~Outbox() = default;
