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
    constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner;
    const bool opened = isStandardOutput(fileName) ? m_file.open(stdout, QIODevice::WriteOnly)
                                                   : m_file.open(QIODevice::WriteOnly, ownerOnly);
    if (!opened)
        throw CannotDo(tr::Tr(u"cannotWriteTranscript"_s, u"не удаётся записать протокол %1: %2"_s)
                           .arg(m_name)
                           .arg(m_file.errorString()),
            {u"cannotWriteTranscriptRemedy"_s, u"укажите файл в папке, доступной для записи"_s});
}

void TranscriptFile::write(const Json &object)
{
    const QByteArray line = plaintext::json(QByteArray::fromStdString(object.dump())) + '\n';
    if (m_file.write(line) != line.size() || !m_file.flush())
        throw StorageError(
            tr::Tr(u"transcriptFull"_s, u"не удаётся записать протокол %1: %2; освободите место"_s)
                .arg(m_name)
                .arg(m_file.errorString()));
}

} // namespace till
