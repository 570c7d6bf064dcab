#include "fuzz/support/service.h"

#include "fuzz/measure.h"
#include "fuzz/support/wellformed.h"

using namespace Qt::Literals::StringLiterals;

namespace fuzz {

void Service::post(const QUrl &, const QByteArray &body, const QHash<QString, QString> &)
{
    require(isWellFormed(body), "every request is XML");
    m_answer = m_answers(body);
}

int Service::errorCode() const
{
    return m_answer.isNull() ? ConnectionRefused : None;
}

tr::Tr Service::errorMessage() const
{
    return errorCode() == None ? tr::Tr() : tr::Tr(tr::undefined, u"nobody answers"_s);
}

} // namespace fuzz
