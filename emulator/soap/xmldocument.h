#pragma once

#include <QByteArray>
#include <QString>

#include <libxml/tree.h>

#include <memory>
#include <stdexcept>
#include <vector>

namespace emulator {

/// The sender's mistake: a request that cannot be taken. Becomes a SOAP fault.
class RequestError : public std::runtime_error
{
public:
    explicit RequestError(const QString &message)
        : std::runtime_error(message.toStdString())
    { }
};

/// An element of a document; does not own it and must not outlive it. May be null.
class XmlElement
{
public:
    explicit XmlElement(const xmlNode *node = nullptr);

    explicit operator bool() const { return m_node; }
    QString name() const; ///< without prefix
    QString text() const; ///< of all descendants; empty for a null element
    QString attribute(const char *name) const; ///< without namespace; empty when absent
    long line() const; ///< counted from 1

    XmlElement firstChild() const; ///< the first child element
    XmlElement child(const char *name) const; ///< the first child element of that name
    std::vector<XmlElement> children(const char *name) const;

private:
    XmlElement next() const;

    const xmlNode *m_node;
};

/// A parsed document. Reads nothing from outside and expands no entities.
class XmlDocument
{
public:
    /// Reads UTF-8. Throws RequestError for what is not XML, with the line, and for what the
    /// parser must not see (xmlguard.h).
    static XmlDocument parse(const QByteArray &bytes);

    XmlElement root() const;
    xmlDoc *handle() const { return m_document.get(); }

private:
    struct Release
    {
        void operator()(xmlDoc *document) const { xmlFreeDoc(document); }
    };

    explicit XmlDocument(xmlDoc *document)
        : m_document(document)
    { }

    std::unique_ptr<xmlDoc, Release> m_document;
};

} // namespace emulator
