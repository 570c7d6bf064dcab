#include "client/interface.h"
#include "client/names.h"
#include "client/returncode.h"
#include "common/exceptions.h"
#include "common/host/services.h"
#include <log4qt/logger.h>

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

namespace {

void registerError(int code, const tr::Tr &message)
{
    Singleton<ActivityNotifier>::instance()->notify(Event(EActivityListener::LoyaltyError,
        {{u"errorMessage"_s, message.ui()}, {u"errorCode"_s, code}}));
}

} // namespace

void Interface::checkResponse(const QDomDocument &response) const
{
    const ReturnCode returned = readReturnCode(response);
    if (returned.isSuccess())
        return;
    const QString message = xmlutils::getValueByTag(response, wire::message, 0);
    throwError(returned.code, tr::Tr(tr::undefined, message));
}

void Interface::throwError(int code, const tr::Tr &message) const
{
    const Finally registration([this, code, &message] {
        if (code < 1 || !m_registerErrorsInActivityJournal)
            return;
        try {
            registerError(code, message);
        } catch (...) {
            // The service's own error may be on its way, and that is the one the cashier needs.
            m_logger->warn(u"The service's error %1 could not be put into the journal"_s.arg(code));
        }
    });
    switch (verdictOn(code, m_errorsList)) {
    case Verdict::NoError:
        return;
    case Verdict::Refusal:
        throw KorvelException(message);
    case Verdict::InternalError:
        throw KorvelInternalErrorException(message);
    }
}

} // namespace korvelLoyaltyOnline
