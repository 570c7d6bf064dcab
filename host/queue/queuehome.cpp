#include "host/queue/queuehome.h"

QueueHome::~QueueHome() = default;
