#include "till/reporting.h"

#include "till/core/cannotdo.h"
#include "till/exitstatus.h"
#include "till/queue/output.h"

namespace till {

namespace {

int tell(const QString &what, ExitStatus status)
{
    complain(what);
    return static_cast<int>(status);
}

} // namespace

int reportingErrors(const std::function<int()> &command)
{
    try {
        return command();
    } catch (const CannotDo &error) {
        return tell(error.text(), ExitStatus::CannotDo);
    } catch (const SpokenError &error) {
        return tell(error.tr().ui(), ExitStatus::Unusable);
    } catch (const std::exception &error) {
        return tell(QString::fromUtf8(error.what()), ExitStatus::Unusable);
    }
}

} // namespace till
