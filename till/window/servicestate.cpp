#include "till/window/servicestate.h"

#include "till/language/localetext.h"
#include "till/queue/backlog.h"
#include "till/window/texts.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace till {

namespace {

using Days = std::chrono::duration<int, std::ratio<86400>>;

QString count(std::chrono::seconds::rep number)
{
    return QString::number(number);
}

qint64 waiting(const QueueOffice::Status &status)
{
    return status.counts.value(MessageState::Pending) + status.counts.value(MessageState::Sending);
}

} // namespace

void Connection::observe(int exchanges, bool succeeded, const QDateTime &now)
{
    if (exchanges == m_exchanges)
        return;
    m_exchanges = exchanges;
    if (succeeded)
        m_offlineSince = {};
    else if (!isOffline())
        m_offlineSince = now;
}

QString Connection::text() const
{
    if (isOffline())
        return texts::serviceOffline.arg(momentForEyes(m_offlineSince)).ui();
    return m_exchanges == 0 ? texts::serviceNotAsked.ui() : texts::serviceOnline.ui();
}

QString queueText(const QueueOffice::Status &status, const QDateTime &now)
{
    QStringList parts{waiting(status) == 0
            ? texts::queueEmpty.ui()
            : texts::queueWaiting.arg(ageText(ageOfOldest(status, now)))
                  .ui(static_cast<int>(waiting(status)))};
    if (status.counts.value(MessageState::Sending) > 0)
        parts.append(texts::queueSending.ui());
    if (!status.unreached.isEmpty())
        parts.append(texts::queueUnreached.ui());
    if (const qint64 left = waitingForAPerson(status); left > 0)
        parts.append(texts::queueNeedsPerson.arg(count(left)).ui());
    return parts.join(u" · "_s);
}

QString ageText(std::chrono::seconds age)
{
    using namespace std::chrono;
    const auto days = duration_cast<Days>(age).count();
    const auto hoursOfDay = duration_cast<hours>(age % Days(1)).count();
    const auto minutesOfHour = duration_cast<minutes>(age % hours(1)).count();
    if (age >= Days(1))
        return texts::ageInDays.arg(count(days)).arg(count(hoursOfDay)).ui();
    if (age >= hours(1))
        return texts::ageInHours.arg(count(hoursOfDay)).arg(count(minutesOfHour)).ui();
    if (age >= minutes(1))
        return texts::ageInMinutes.arg(count(minutesOfHour)).ui();
    return texts::ageInSeconds.arg(count(age.count())).ui();
}

} // namespace till
