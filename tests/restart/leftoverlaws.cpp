// What must not be left behind, and how tills end.

#include "tests/restart/laws.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace restart::laws {

namespace {

// Of a till: all commands ran, or one of them is refused.
constexpr int success = 0;
constexpr int cannotDo = 2;

QString wrongIn(const TillEnd &end)
{
    if (end.signal != 0 && !(end.byUs && end.signal == SIGKILL))
        return u"a till ended by signal %1"_s.arg(end.signal);
    if (end.signal == 0 && end.status != success && end.status != cannotDo)
        return u"a till ended with status %1"_s.arg(end.status);
    return {};
}

QStringList each(const QString &sentence, const QStringList &things)
{
    QStringList sentences;
    for (const QString &thing : things)
        sentences.append(sentence.arg(thing));
    return sentences;
}

QStringList problemsOf(const Json &audit)
{
    QStringList problems;
    for (const Json &problem : audit.at("problems"))
        problems.append(QString::fromStdString(problem));
    return problems;
}

} // namespace

QStringList nothingIsLeftOver(const Books &books)
{
    QStringList wrong;
    if (books.hasOpenDocument)
        wrong.append(u"a document is still open"_s);
    wrong += each(u"message %1 was not delivered"_s, books.undelivered);
    wrong += each(u"%1 is torn"_s, books.tornFiles);
    wrong += each(u"%1 is left behind"_s, books.temporaryFiles);
    wrong += each(u"the service's audit: %1"_s, problemsOf(books.audit));
    for (const TillEnd &end : books.ends)
        if (const QString what = wrongIn(end); !what.isEmpty())
            wrong.append(what);
    return wrong;
}

QStringList violations(const Books &books)
{
    return everythingIsBookedOnce(books) + figuresAgree(books) + balancesComeFromTransactions(books)
        + nothingIsLeftOver(books);
}

} // namespace restart::laws
