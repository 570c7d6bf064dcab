#include "host/queue/dbqueuebroker.h"
#include "host/storage/documentstore.h"
#include "host/storage/journal.h"
#include "tests/powercut/programs/subjects.h"

using namespace Qt::StringLiterals;

namespace powercut {

void resume()
{
    // A till begins with its first line in the journal, which may be torn.
    Journal::append(u"resumed"_s, {});
    DocumentStore store;
    static_cast<void>(store.loadOpen());
    Singleton<DBQueueBroker>::instance()->open();
    Singleton<DBQueueBroker>::reset();
}

} // namespace powercut
