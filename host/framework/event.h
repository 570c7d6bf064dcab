#pragma once

#include "host/export.h"

#include <QMap>
#include <QMetaType>
#include <QString>
#include <QVariant>

namespace EActivityListener {

/// Codes of the activity events that the till, the host and its plug-ins send one another.
enum Event : int
{
    ChequeClosed = 10, ///< the closed cheque is still the current document
    ChequeCancelled = 12, ///< the open document was cancelled
    DocumentEntered = 22, ///< the cashier has an empty desk or left a document
    LoyaltyRequestStarted = 72, ///< argument "message": what the cashier sees while waiting
    LoyaltyRequestFinished = 73,
    LoyaltyError = 253, ///< arguments "errorMessage" and "errorCode", for the journal
};

} // namespace EActivityListener

/// An activity event: a code and named arguments. A value type.
class POSHOST_EXPORT Event
{
public:
    Event() = default;
    explicit Event(EActivityListener::Event code, const QMap<QString, QVariant> &arguments = {})
        : m_code(code)
        , m_arguments(arguments)
    { }

    [[nodiscard]] EActivityListener::Event getCode() const { return m_code; }
    [[nodiscard]] QMap<QString, QVariant> getArguments() const { return m_arguments; }
    /// Adds an argument; one of the same name is replaced.
    void addArgument(const QString &name, const QVariant &value)
    {
        m_arguments.insert(name, value);
    }

private:
    EActivityListener::Event m_code = EActivityListener::DocumentEntered;
    QMap<QString, QVariant> m_arguments;
};

Q_DECLARE_METATYPE(Event)
