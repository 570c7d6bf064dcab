#include "host/storage/atomicfile.h"
#include "host/storage/statefolder.h"
#include "tests/powercut/marker.h"
#include "tests/powercut/programs/subjects.h"

using namespace Qt::StringLiterals;

namespace powercut {

void replaceFiles()
{
    const QString folder = Singleton<StateFolder>::instance()->path();
    atomicfile::makePrivateFolder(folder);
    mark(u"made"_s);
    const QString name = folder + u"/one"_s;
    atomicfile::write(name, "first");
    mark(u"written"_s);
    atomicfile::write(name, "second");
    mark(u"rewritten"_s);
    atomicfile::move(name, folder + u"/two"_s);
    mark(u"moved"_s);
    atomicfile::remove(folder + u"/two"_s);
    mark(u"removed"_s);
}

} // namespace powercut
