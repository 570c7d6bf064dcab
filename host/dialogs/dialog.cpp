#include "host/dialogs/dialog.h"

#include <cstdio>

template class MockFactory<Dialog>;

namespace {

void say(const tr::Tr &message)
{
    // Where standard error cannot be written to, nobody can be told.
    static_cast<void>(std::fputs(qPrintable(message.ui() + u'\n'), stderr));
}

} // namespace

Dialog::~Dialog() = default;

// As they are declared.
// NOLINTBEGIN(google-default-arguments)
void Dialog::showMessage(const tr::Tr &message, EDialogKind, EDialogDuration)
{
    say(message);
}

bool Dialog::showChoice(
    const tr::Tr &question, const tr::Tr &, const tr::Tr &, EDialogKind, EDialogDuration)
{
    say(question);
    return true;
}
// NOLINTEND(google-default-arguments)

core::BasicDialog::Result Dialog::showInputTextForm(const InputTextFormParameters &parameters)
{
    say(parameters.message);
    return {};
}
