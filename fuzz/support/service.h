#pragma once

#include "host/net/restclient.h"

#include <QByteArray>

#include <functional>

namespace fuzz {

/// What the loyalty service answers a request; null: nobody answers.
using Answers = std::function<QByteArray(const QByteArray &request)>;

/// An HTTP client that needs no network. Each request must be XML.
class Service : public RestClient
{
public:
    explicit Service(const Answers &answers)
        : m_answers(answers)
    { }

    void post(
        const QUrl &url, const QByteArray &body, const QHash<QString, QString> &headers) override;
    [[nodiscard]] int errorCode() const override;
    [[nodiscard]] tr::Tr errorMessage() const override;
    [[nodiscard]] QByteArray responseBody() const override { return m_answer; }
    [[nodiscard]] QByteArray failedBody() const override { return {}; }

private:
    Answers m_answers;
    QByteArray m_answer;
};

} // namespace fuzz
