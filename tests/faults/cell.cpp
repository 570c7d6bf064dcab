#include "tests/faults/cell.h"

#include "tests/faults/celllaws.h"
#include "tests/faults/sale.h"
#include "tests/faults/verdict.h"

#include <QDir>

#include <array>
#include <mutex>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// The course of one cell.
class Course
{
public:
    Course(const Cell &cell, const Control &control)
        : m_cell(cell)
        , m_control(control)
        , m_stage(needsTls(cell.fault.kind))
        , m_isOpeningStruck(damagesFiles(cell.fault.kind))
    {
        if (!control.spoil.isEmpty())
            m_stage.machine().set(spoilVariable, control.spoil);
        m_stage.setDamagedFile(fileOf(cell.operation));
    }

    /// The operation under the fault.
    Sight strike()
    {
        sellUpTo(m_cell.operation, m_stage, m_isOpeningStruck);
        const int before = m_stage.front().requests();
        beginFault();
        Sight sight;
        sight.object = m_stage.tell(commandOf(m_cell.operation, m_isOpeningStruck));
        sight.undelivered = m_stage.undelivered();
        sight.transactions = m_stage.transactions();
        sight.requests = m_stage.front().requests() - before;
        m_isMet = m_stage.isMet();
        return sight;
    }

    QStringList wrongBehind(const Sight &sight, const Sight &undisturbed)
    {
        QStringList wrong = wrongNow(sight, undisturbed);
        m_stage.heal();
        throwQueueAway();
        goOn(sight);
        bringToItsEnd(m_stage);
        wrong += laws::oneRequestEach(m_stage.exchanges(), m_stage.front().requests());
        wrong += laws::exchangesAreBounded(m_cell.operation, m_stage.machine().control());
        return wrong + laws::booksAgree(m_cell, m_stage.books());
    }

private:
    void beginFault()
    {
        const Kind kind = m_cell.fault.kind;
        const bool isOff = m_cell.operation == Operation::Restoring;
        if (isOff || needsFreshTill(kind)) {
            if (!isOff)
                m_stage.endTill();
            const bool needsTill = m_cell.fault.group == Group::Clock && kind != Kind::ZoneChanged;
            if (!needsTill)
                m_stage.strike(kind);
            m_stage.startTill();
            if (needsTill)
                m_stage.strike(kind);
        } else {
            m_stage.strike(kind);
        }
    }

    Outcome outcomeOf(const Sight &sight, const Sight &undisturbed) const
    {
        const Outcome outcome = verdictOn(m_cell.operation, sight, undisturbed);
        if (isSetAside())
            return outcome == Outcome::Done ? Outcome::Salvaged : Outcome::LostWithFile;
        if (outcome == Outcome::Done && !m_isMet && m_cell.fault.kind != Kind::None)
            return Outcome::AsksNothing;
        return outcome;
    }

    [[nodiscard]] bool isSetAside() const
    {
        return !QDir(m_stage.stateFolder() + u"/queue")
                    .entryList({u"queue.sqlite.damaged-*"_s})
                    .isEmpty();
    }

    QStringList wrongNow(const Sight &sight, const Sight &undisturbed) const
    {
        QStringList wrong;
        const Outcome outcome = outcomeOf(sight, undisturbed);
        if (outcome != m_cell.expected)
            wrong.append(u"%1 instead of %2 %3"_s.arg(wordOf(outcome), wordOf(m_cell.expected),
                sight.object ? QString::fromStdString(sight.object->dump()) : m_stage.complaint()));
        if (m_cell.expected == Outcome::AsksNothing && sight.requests != 0)
            wrong.append(u"it asked the service"_s);
        const bool isUncounted
            = m_cell.operation == Operation::Delivery && m_cell.expected == Outcome::Stops;
        if (isUncounted && sight.requests != 0)
            wrong.append(u"a message was sent whose attempt could not be counted"_s);
        if (const QString failure = m_stage.front().failure(); !failure.isEmpty())
            wrong.append(failure);
        return wrong;
    }

    void throwQueueAway()
    {
        if (!m_control.isQueueThrownAway)
            return;
        if (m_stage.isTillRunning())
            m_stage.endTill();
        QDir(m_stage.stateFolder() + u"/queue").removeRecursively();
    }

    // The reason is gone, and the cashier tries again what was not done.
    void goOn(const Sight &sight)
    {
        if (!m_stage.isTillRunning())
            m_stage.startTill();
        const bool isToldAgain = m_cell.expected == Outcome::Refused
            || m_cell.expected == Outcome::KeptOpen || m_cell.expected == Outcome::Waits;
        if (isToldAgain && sight.object && !m_control.isClosedInstead)
            m_stage.must(commandOf(m_cell.operation, m_isOpeningStruck));
        if (m_cell.expected == Outcome::LostWithFile)
            m_stage.must(u"close-shift"_s);
    }

    const Cell m_cell;
    const Control m_control;
    Stage m_stage;
    const bool m_isOpeningStruck;
    bool m_isMet = false;
};

const Sight &undisturbed(Operation operation)
{
    static std::array<std::once_flag, allOperations.size()> once;
    static std::array<Sight, allOperations.size()> sights;
    const auto place = static_cast<std::size_t>(operation);
    std::call_once(once.at(place), [&] {
        sights.at(place)
            = Course({{Kind::None, Group::Network, u"no fault"_s}, operation, Outcome::Done}, {})
                  .strike();
    });
    return sights.at(place);
}

} // namespace

QStringList wrongIn(const Cell &cell, const Control &control)
{
    try {
        const Sight &usual = undisturbed(cell.operation);
        Course course(cell, control);
        const Sight sight = course.strike();
        QStringList wrong = course.wrongBehind(sight, usual);
        const bool hasOtherWay = cell.operation == Operation::Rollback
            && cell.expected == Outcome::KeptOpen && !control.isClosedInstead;
        if (hasOtherWay) {
            Control otherWay = control;
            otherWay.isClosedInstead = true;
            wrong += wrongIn(cell, otherWay);
        }
        return wrong;
    } catch (const std::exception &error) {
        return {QString::fromUtf8(error.what())};
    }
}

} // namespace faults
