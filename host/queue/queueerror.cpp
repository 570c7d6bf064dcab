#include "host/queue/queueerror.h"

QueueUnusable::~QueueUnusable() = default;
QueueDamaged::~QueueDamaged() = default;
QueueUnreached::~QueueUnreached() = default;
