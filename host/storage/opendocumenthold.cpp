#include "host/storage/opendocumenthold.h"

namespace {

int livingHolds = 0;

} // namespace

OpenDocumentHold::OpenDocumentHold()
{
    ++livingHolds;
}

OpenDocumentHold::~OpenDocumentHold()
{
    --livingHolds;
}

bool OpenDocumentHold::isHeld()
{
    return livingHolds > 0;
}
