#include "host/queue/queueerror.h"

QueueDamaged::~QueueDamaged() = default;
