#pragma once

#include "host/framework/tr.h"

#include <QDialog>

namespace till {

/// A text with one large button, or with two of which the first accepts.
class QuestionDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param reject empty: there is nothing to choose.
    QuestionDialog(const tr::Tr &text, const tr::Tr &accept, const tr::Tr &reject, QWidget *parent);
};

} // namespace till
