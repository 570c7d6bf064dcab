#pragma once

#include "till/window/function.h"

#include <QWidget>

namespace till {

/// The functions with their keys, each a large button. Owned by its parent, as widgets are.
class FunctionBar : public QWidget
{
    Q_OBJECT

public:
    explicit FunctionBar(QWidget *parent = nullptr);

Q_SIGNALS:
    /// By the button or by its key.
    void chosen(till::Function function);
};

} // namespace till
