#pragma once

#include "client/interface.h"
#include "common/exceptions.h"
#include "common/names.h"
#include "tests/client/doubles.h"
#include "tests/support/hostfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/printers.h"
#include "tests/support/xmltree.h"

#include <gtest/gtest.h>

#include <optional>

/// A client among doubles of the host's services. Settings are given before its first use, because
/// it reads them when it is made.
class ClientTest : public testing::Test, protected HostFixture
{
protected:
    using Interface = korvelLoyaltyOnline::Interface;
    using Values = QMap<QString, QVariant>;

    ClientTest();

    /// A value of the section "KorvelLoyaltyOnline".
    void givenSetting(const QString &name, const QString &value);
    /// The clock stands still at this time.
    void givenTime(const QDateTime &time);
    /// The service answers with this XML inside an envelope.
    void givenAnswer(const QString &content);
    /// The service answers with these bytes.
    void givenBytes(const QByteArray &bytes);
    void givenFailure(int errorCode, const tr::Tr &message);
    /// What a mask becomes.
    void givenMask(const QString &mask, const QString &text);
    void givenStored(const QString &key, const Values &values);
    /// A document with a card, made the current one.
    void givenCheque();

    const Interface &client();
    /// Composes and sends a calculation of the current document.
    bool whenCalculated();

    /// The last request that was posted.
    [[nodiscard]] QDomDocument request() const;
    /// Its part that differs from request to request.
    [[nodiscard]] QDomElement payload() const;
    [[nodiscard]] const QList<Exchange> &exchanges() const { return m_service->exchanges; }
    [[nodiscard]] QueueDouble &queue() const { return *m_queue; }
    [[nodiscard]] NotifierDouble &journal() const { return *m_journal; }
    [[nodiscard]] FormatterDouble::Script &formatter() const { return *m_formatter; }
    [[nodiscard]] const LogCapture &log() const { return m_log; }
    /// Lines of that level, without it.
    [[nodiscard]] QStringList logged(const QString &level) const;
    [[nodiscard]] QList<QObject *> documentObjects() const { return {m_documentObject.data()}; }

    static QDomDocument parsed(const QString &xml);
    /// The exception that the call ends with; nothing when it returns. Anything else fails the
    /// test.
    template <typename Call> static std::optional<KorvelException> refusalOf(const Call &call)
    {
        try {
            call();
        } catch (const KorvelException &refusal) {
            return refusal;
        }
        return std::nullopt;
    }

    enum class Outcome
    {
        Returns,
        Refusal,
        InternalError,
        NoConnection
    };
    /// What the call ends with, by the most derived type.
    template <typename Call> static Outcome outcomeOf(const Call &call)
    {
        try {
            call();
        } catch (const KorvelInternalErrorException &) {
            return Outcome::InternalError;
        } catch (const KorvelNoConnectionException &) {
            return Outcome::NoConnection;
        } catch (const KorvelException &) {
            return Outcome::Refusal;
        }
        return Outcome::Returns;
    }

private:
    QSharedPointer<ScriptedService> m_service;
    QSharedPointer<QueueDouble> m_queue;
    QSharedPointer<NotifierDouble> m_journal;
    QSharedPointer<FormatterDouble::Script> m_formatter;
    QSharedPointer<QObject> m_documentObject;
    QSharedPointer<Interface> m_client;
    LogCapture m_log;
};

/// Passes when the element is the tree that the text describes.
testing::AssertionResult isXml(const QDomElement &actual, const QString &expected);
