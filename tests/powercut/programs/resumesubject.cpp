#include "host/queue/dbqueuebroker.h"
#include "host/storage/documentstore.h"
#include "tests/powercut/programs/subjects.h"

namespace powercut {

void resume()
{
    DocumentStore store;
    static_cast<void>(store.loadOpen());
    Singleton<DBQueueBroker>::instance()->open();
    Singleton<DBQueueBroker>::reset();
}

} // namespace powercut
