#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

/// An XML schema that documents are checked against, by libxml2.
class XmlSchema
{
public:
    /// @param fileName the schema's file; what it imports is found beside it.
    /// @throws std::runtime_error when there is no such file or it is no schema.
    explicit XmlSchema(const QString &fileName);
    ~XmlSchema();
    Q_DISABLE_COPY_MOVE(XmlSchema)

    /// What the schema finds wrong, as "line: message"; empty for a valid document.
    [[nodiscard]] QStringList errorsOf(const QByteArray &document) const;

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};
