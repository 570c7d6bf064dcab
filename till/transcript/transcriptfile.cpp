#include "till/transcript/transcriptfile.h"

#include "host/storage/storageerror.h"
#include "host/text/plaintext.h"
#include "till/core/cannotdo.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace till {

bool TranscriptFile::isStandardOutput(const QString &fileName)
{
    return fileName == u"-";
}

TranscriptFile::TranscriptFile(const QString &fileName)
    : m_name(isStandardOutput(fileName) ? u"on standard output"_s : fileName)
    , m_file(fileName)
{
    const bool opened = isStandardOutput(fileName) ? m_file.open(stdout, QIODevice::WriteOnly)
                                                   : m_file.open(QIODevice::WriteOnly);
    if (!opened)
        throw CannotDo(
            u"the transcript %1 cannot be written: %2"_s.arg(m_name, m_file.errorString()),
            u"name a file in a folder that can be written"_s);
}

void TranscriptFile::write(const Json &object)
{
    const QByteArray line = plaintext::json(QByteArray::fromStdString(object.dump())) + '\n';
    if (m_file.write(line) != line.size() || !m_file.flush())
        throw StorageError(u"the transcript %1 cannot be written: %2; make room for it"_s.arg(
            m_name, m_file.errorString()));
}

} // namespace till
