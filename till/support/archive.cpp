#include "till/support/archive.h"

#include "host/storage/storageerror.h"

#include <QDir>
#include <QFile>

#include <archive.h>
#include <archive_entry.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace till::support::archive {

namespace {

constexpr int privateFile = 0600;
constexpr std::size_t blockBytes = 64 * 1024;

struct EndReading
{
    void operator()(::archive *reader) const { archive_read_free(reader); }
};
struct EndWriting
{
    void operator()(::archive *writer) const { archive_write_free(writer); }
};
struct EndEntry
{
    void operator()(::archive_entry *entry) const { archive_entry_free(entry); }
};
using Reader = std::unique_ptr<::archive, EndReading>;
using Writer = std::unique_ptr<::archive, EndWriting>;
using EntryHead = std::unique_ptr<::archive_entry, EndEntry>;

[[noreturn]] void failToPack(::archive *writer)
{
    throw StorageError(
        tr::Tr(u"bundleNotPacked"_s, u"Архив не удаётся составить (%1); освободите память"_s)
            .arg(QString::fromLocal8Bit(archive_error_string(writer))));
}

[[noreturn]] void failToUnpack(const QString &fileName, const QString &reason)
{
    throw StorageError(tr::Tr(u"bundleNotUnpacked"_s,
        u"%1: архив не читается (%2); возьмите файл, который записала korvel-till check --bundle"_s)
                           .arg(fileName)
                           .arg(reason));
}

la_ssize_t appendTo(::archive *, void *target, const void *bytes, std::size_t count)
{
    static_cast<QByteArray *>(target)->append(
        static_cast<const char *>(bytes), static_cast<qsizetype>(count));
    return static_cast<la_ssize_t>(count);
}

void write(::archive *writer, const Entry &entry, const QDateTime &time)
{
    const EntryHead head(archive_entry_new());
    archive_entry_set_pathname(head.get(), entry.name.toUtf8().constData());
    archive_entry_set_size(head.get(), entry.contents.size());
    archive_entry_set_filetype(head.get(), AE_IFREG);
    archive_entry_set_perm(head.get(), privateFile);
    archive_entry_set_mtime(head.get(), time.toSecsSinceEpoch(), 0);
    if (archive_write_header(writer, head.get()) != ARCHIVE_OK
        || archive_write_data(
               writer, entry.contents.constData(), static_cast<std::size_t>(entry.contents.size()))
            != entry.contents.size())
        failToPack(writer);
}

bool leadsOut(const QString &name)
{
    const QString clean = QDir::cleanPath(name);
    return name.isEmpty() || QDir::isAbsolutePath(name) || clean == u".."
        || clean.startsWith(u"../");
}

/// Reads one archive to its end.
class Unpacking
{
public:
    Unpacking(const QString &fileName, qint64 mostBytes)
        : m_fileName(fileName)
        , m_left(mostBytes)
        , m_reader(archive_read_new())
    {
        archive_read_support_filter_gzip(m_reader.get());
        archive_read_support_format_tar(m_reader.get());
        if (archive_read_open_filename(
                m_reader.get(), QFile::encodeName(fileName).constData(), blockBytes)
            != ARCHIVE_OK)
            fail();
    }

    QList<Entry> read()
    {
        QList<Entry> entries;
        ::archive_entry *head = nullptr;
        while (true) {
            const int result = archive_read_next_header(m_reader.get(), &head);
            if (result == ARCHIVE_EOF)
                return entries;
            if (result != ARCHIVE_OK)
                fail();
            if (archive_entry_filetype(head) == AE_IFREG)
                entries.append({nameOf(head), contents()});
        }
    }

private:
    QString nameOf(::archive_entry *head) const
    {
        QString name = QString::fromUtf8(archive_entry_pathname(head));
        if (leadsOut(name))
            failToUnpack(m_fileName, name);
        return name;
    }

    QByteArray contents()
    {
        QByteArray read;
        QByteArray block(static_cast<qsizetype>(blockBytes), Qt::Uninitialized);
        while (true) {
            const la_ssize_t count = archive_read_data(m_reader.get(), block.data(), blockBytes);
            if (count < 0)
                fail();
            if (count == 0)
                return read;
            m_left -= count;
            if (m_left < 0)
                failToUnpack(m_fileName, tr::Tr(u"bundleTooLarge"_s, u"слишком велик"_s).ui());
            read.append(block.constData(), count);
        }
    }

    [[noreturn]] void fail() const
    {
        failToUnpack(m_fileName, QString::fromLocal8Bit(archive_error_string(m_reader.get())));
    }

    QString m_fileName;
    qint64 m_left;
    Reader m_reader;
};

} // namespace

QByteArray packed(const QList<Entry> &entries, const QDateTime &time)
{
    QByteArray bytes;
    const Writer writer(archive_write_new());
    archive_write_add_filter_gzip(writer.get());
    archive_write_set_format_pax_restricted(writer.get());
    if (archive_write_open(writer.get(), &bytes, nullptr, appendTo, nullptr) != ARCHIVE_OK)
        failToPack(writer.get());
    for (const Entry &entry : entries)
        write(writer.get(), entry, time);
    if (archive_write_close(writer.get()) != ARCHIVE_OK)
        failToPack(writer.get());
    return bytes;
}

QList<Entry> unpacked(const QString &fileName, qint64 mostBytes)
{
    return Unpacking(fileName, mostBytes).read();
}

} // namespace till::support::archive
