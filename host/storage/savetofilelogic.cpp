#include "host/storage/savetofilelogic.h"

template class MockFactory<SaveToFileLogic>;

SaveToFileLogic::~SaveToFileLogic() = default;

void SaveToFileLogic::save(const QSharedPointer<AbstractDocument> &, const QString &) { }
