#pragma once

#include "host/export.h"
#include "host/framework/mockfactory.h"
#include "host/framework/tr.h"

#include <QString>
#include <QVariant>

#include <utility>

namespace core::BasicDialog {

/// What a form was answered with; made by default it is a cancelled one.
class Result
{
public:
    Result() = default;
    explicit Result(QVariant data)
        : m_canceled(false)
        , m_data(std::move(data))
    { }
    [[nodiscard]] bool canceled() const { return m_canceled; }
    /// What was entered; invalid when cancelled.
    [[nodiscard]] QVariant getData() const { return m_data; }

private:
    bool m_canceled = true;
    QVariant m_data;
};

} // namespace core::BasicDialog

/// How a dialog looks and how long it stays, with the host's own codes.
enum class EDialogKind : int
{
    Attention = 1
};
enum class EDialogDuration : int
{
    UntilAnswered = 0
};

/// What a form for one text consists of.
struct InputTextFormParameters
{
    tr::Tr title;
    tr::Tr message;
    tr::Tr scanError; ///< shown when a scan does not fit the expression
    QString text; ///< what stands in the field at first
    tr::Tr okButton;
    tr::Tr cancelButton;
    QString regularExpression; ///< the whole text must match it
    bool showDigitalKeyboard = false;
    QString formName;
};

/// Talks to the cashier. `MockFactory<Dialog>::create()`; console, script and window each bring
/// one.
///
/// Blocks until it is answered. The host's own one only writes to standard error, accepts every
/// choice and cancels every form: it is for programs that have nobody to ask.
class POSHOST_EXPORT Dialog
{
public:
    Dialog() = default;
    virtual ~Dialog();
    Q_DISABLE_COPY_MOVE(Dialog)

    // Callers leave these out, and every dialog that overrides them is called by this class.
    // NOLINTBEGIN(google-default-arguments)
    virtual void showMessage(const tr::Tr &message, EDialogKind kind = EDialogKind::Attention,
        EDialogDuration duration = EDialogDuration::UntilAnswered);
    /// True when the first choice was taken.
    virtual bool showChoice(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject,
        EDialogKind kind = EDialogKind::Attention,
        EDialogDuration duration = EDialogDuration::UntilAnswered);
    // NOLINTEND(google-default-arguments)
    virtual core::BasicDialog::Result showInputTextForm(const InputTextFormParameters &parameters);
};

extern template class POSHOST_EXPORT MockFactory<Dialog>;
