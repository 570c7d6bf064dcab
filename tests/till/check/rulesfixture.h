#pragma once

#include "tests/support/hostfixture.h"
#include "till/check/effective.h"
#include "till/check/rules.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

/// A configuration in files of its own, and what is found in it.
class RulesFixture : public HostFixture, public testing::Test
{
public:
    RulesFixture();

    /// Writes a file beside the configuration; its path.
    QString givenFile(const QString &name, const QByteArray &contents,
        QFile::Permissions rights = QFile::ReadOwner | QFile::WriteOwner) const;
    /// Writes till.ini, and reads it with what lies over it.
    void givenConfiguration(
        const QByteArray &ini, QFile::Permissions rights = QFile::ReadOwner | QFile::WriteOwner);

    [[nodiscard]] const till::check::SettingFiles &files() const { return *m_files; }
    [[nodiscard]] till::check::Effective effective() const
    {
        return till::check::Effective(*m_files);
    }
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

    /// "severity id file:line key" of each, without what there is none of and without the folder.
    [[nodiscard]] QStringList briefly(const till::check::Findings &findings) const;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<till::check::SettingFiles> m_files;
};
