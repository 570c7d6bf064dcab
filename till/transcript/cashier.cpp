#include "till/transcript/cashier.h"

#include <QRegularExpression>

namespace till {

bool accepts(const InputTextFormParameters &form, const QString &text)
{
    const QRegularExpression whole(QRegularExpression::anchoredPattern(form.regularExpression));
    return form.regularExpression.isEmpty() || whole.match(text).hasMatch();
}

} // namespace till
