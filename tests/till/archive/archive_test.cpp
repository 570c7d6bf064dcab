// What is packed comes out again; what is no archive of ours does not come out.

#include "host/storage/storageerror.h"
#include "till/support/archive.h"
#include "till/support/unpackedbundle.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace archive = till::support::archive;

namespace {

constexpr qint64 plenty = 1024 * 1024;

class ArchiveTest : public testing::Test
{
public:
    QString givenFile(const QByteArray &contents) const
    {
        QFile file(m_folder.filePath(u"some.tar.gz"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
        return file.fileName();
    }
    QString givenArchive(const QList<archive::Entry> &entries) const
    {
        return givenFile(archive::packed(entries, QDateTime::currentDateTimeUtc()));
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(ArchiveTest, FilesComeOutAsTheyWent)
{
    const QList<archive::Entry> entries{{u"a/long name/файл.json"_s, "{}"}, {u"empty"_s, ""},
        {u"zero"_s, QByteArray("a\0b", 3)}, {u"large"_s, QByteArray(300 * 1024, 'x')}};
    const auto unpacked = archive::unpacked(givenArchive(entries), plenty);
    ASSERT_EQ(unpacked.size(), entries.size());
    for (qsizetype number = 0; number < entries.size(); ++number) {
        EXPECT_EQ(unpacked.at(number).name, entries.at(number).name);
        EXPECT_EQ(unpacked.at(number).contents, entries.at(number).contents);
    }
}

TEST_F(ArchiveTest, WhatUnpacksToMoreIsRefused)
{
    const QString file = givenArchive({{u"one"_s, QByteArray(600, 'x')}, {u"two"_s, "more"}});
    EXPECT_EQ(archive::unpacked(file, 604).size(), 2);
    EXPECT_THROW(archive::unpacked(file, 603), StorageError);
}

TEST_F(ArchiveTest, NamesThatLeadOutAreRefused)
{
    for (const QString &name : {u"../out"_s, u"/etc/out"_s, u"a/../../out"_s, u".."_s}) {
        SCOPED_TRACE(qPrintable(name));
        EXPECT_THROW(archive::unpacked(givenArchive({{name, "x"}}), plenty), StorageError);
    }
}

TEST_F(ArchiveTest, HalfAnArchiveIsRefused)
{
    QByteArray random;
    for (quint32 number = 0; number < 20000; ++number)
        random += static_cast<char>((number * number * 7919) >> 8);
    const QByteArray whole = archive::packed({{u"one"_s, random}}, QDateTime::currentDateTimeUtc());
    EXPECT_THROW(archive::unpacked(givenFile(whole.left(whole.size() / 2)), plenty), StorageError);
    EXPECT_THROW(archive::unpacked(givenFile("text"), plenty), StorageError);
}

TEST_F(ArchiveTest, AnArchiveOfSomebodyElsesIsNoBundle)
{
    EXPECT_THROW(
        till::support::UnpackedBundle(givenArchive({{u"holiday.jpg"_s, "x"}})), StorageError);
}

} // namespace
