#pragma once

#include <QString>

namespace korvel {

/// The confirmation of a write-off of points, element "WriteOffConfirm". A record of values, passed
/// by shared pointer: null means that no confirmation is sent at all.
class ConfirmationInfo
{
public:
    ConfirmationInfo() = default;
    virtual ~ConfirmationInfo() = default;
    Q_DISABLE_COPY_MOVE(ConfirmationInfo)

    /// Whether the write-off is confirmed by the client.
    [[nodiscard]] bool isConfirm() const { return m_confirm; }
    void setConfirm(bool confirm) { m_confirm = confirm; }
    /// Whether the service is to send the client a code.
    [[nodiscard]] bool isSendCode() const { return m_sendCode; }
    void setSendCode(bool sendCode) { m_sendCode = sendCode; }
    /// The code that the client received; empty while there is none.
    [[nodiscard]] virtual QString getVerificationCode() const { return m_verificationCode; }
    void setVerificationCode(const QString &code) { m_verificationCode = code; }

    friend bool operator==(const ConfirmationInfo &left, const ConfirmationInfo &right)
    {
        return &left == &right
            || (left.m_confirm == right.m_confirm && left.m_sendCode == right.m_sendCode
                && left.m_verificationCode == right.m_verificationCode);
    }

private:
    bool m_confirm = false;
    bool m_sendCode = false;
    QString m_verificationCode;
};

} // namespace korvel
