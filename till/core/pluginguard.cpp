#include "till/core/pluginguard.h"

#include "host/framework/basicexception.h"
#include "host/storage/journal.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <new>

using namespace Qt::StringLiterals;

namespace till {

namespace {

tr::Tr unexpected()
{
    return {u"tillPluginFailed"_s, u"Непредвиденная ошибка подключаемого модуля"_s};
}

Refusal currentException()
{
    try {
        throw;
    } catch (const BasicException &error) {
        return {error.tr(), error.flag()};
    } catch (const std::exception &error) {
        return {tr::Tr(tr::undefined, QString::fromUtf8(error.what())), false};
    } catch (...) {
        return {unexpected(), false};
    }
}

void record(const QString &operation, const Refusal &refusal)
{
    const QString text = refusal.message.ru();
    Log4Qt::LogManager::logger(u"till"_s)->error(
        u"The plug-in left %1 by an exception: %2"_s.arg(operation, text));
    Journal::append(u"exception"_s,
        {{u"operation"_s, operation}, {u"id"_s, refusal.message.id()}, {u"text"_s, text}});
}

} // namespace

bool guarded(Outcome &outcome, const QString &operation, const std::function<void()> &call)
{
    try {
        call();
        return true;
    } catch (const std::bad_alloc &) {
        // What a plug-in without memory has left undone, a cheque's registration among it, would be
        // lost if the sale went on. The next till goes on where the documents on disk stand.
        throw;
    } catch (...) {
        const Refusal refusal = currentException();
        record(operation, refusal);
        if (!outcome.refusal)
            outcome.refusal = refusal;
        return false;
    }
}

} // namespace till
