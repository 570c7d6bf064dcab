#pragma once

#include "till/explain/explain.h"
#include "till/explain/messagesource.h"
#include "till/support/unpackedbundle.h"

#include <memory>

namespace till::explain {

/// Where the story is looked for: a till's state folder, or an archive that was made of one.
class Place
{
public:
    /// Reads the configuration too; for an archive only its language counts.
    /// @throws ConfigError or StorageError when it cannot be used.
    explicit Place(const ExplainOptions &options);

    [[nodiscard]] QString stateFolder() const { return m_stateFolder; }
    [[nodiscard]] MessageSource &messages() { return *m_messages; }
    /// The name by which cards that the till makes up are known.
    [[nodiscard]] QString technicalCardName() const { return m_technicalCardName; }
    /// Whether it is an archive, whose till and service are elsewhere.
    [[nodiscard]] bool isArchive() const { return m_bundle != nullptr; }
    /// What people know it by: the folder's or the archive's name.
    [[nodiscard]] QString shown(const QString &path) const;

private:
    void openArchive(const QString &fileName);
    void openFolder(const ExplainOptions &options);

    std::unique_ptr<support::UnpackedBundle> m_bundle;
    std::unique_ptr<MessageSource> m_messages;
    QString m_stateFolder;
    QString m_technicalCardName;
    QString m_archive;
};

} // namespace till::explain
