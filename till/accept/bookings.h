#pragma once

#include "till/accept/report.h"
#include "till/accept/request.h"
#include "till/accept/service.h"

#include <QList>
#include <QMap>

#include <functional>
#include <optional>

namespace till::accept {

/// What a run has booked, and the way to take it back.
///
/// Every request that books is noted before it is sent, and its answer behind it, so that what is
/// under way when a run ends is known too.
class Bookings
{
public:
    /// @param newNumber makes a cheque number that no run has used.
    Bookings(const Service &service, const RequestComposer &composer,
        std::function<QString()> newNumber);

    /// A request that books is about to be sent.
    void begin(const Request &request);
    /// It was answered.
    void end(const Answer &answer);
    /// Takes everything back that is still booked, the latest first: rolls it back, and where the
    /// service refuses that, returns what is left of a sale. Asks again where an answer was lost.
    void takeBack();

    [[nodiscard]] int booked() const { return m_booked; }
    [[nodiscard]] int takenBack() const { return m_takenBack; }
    /// What could not be taken back.
    [[nodiscard]] const QList<LeftOver> &leftOver() const { return m_leftOver; }

private:
    struct Booking
    {
        Request request;
        QString transaction; ///< empty when the service told none
        QString day; ///< of Processed
        /// Of a return what came back, of a sale what has not; pieces or weight by article.
        QMap<QString, double> quantities;
    };

    /// A request that may have booked.
    struct Doubt
    {
        Request request;
        bool wasFault = false; ///< the service said that it could not take it
    };

    void noteBooked(const Request &request, const Answer &answer);
    void noteRolledBack(const QString &transaction);
    /// The sale that a return refers to; null when it is none of this run's.
    [[nodiscard]] Booking *saleOf(const Booking &booking);
    void addToSale(const Booking &booking, double direction);
    void findOut(const Doubt &doubt);
    /// Why not; empty when nothing of it is left.
    [[nodiscard]] QString undo(const Booking &booking);
    [[nodiscard]] QString undoOtherwise(const Booking &booking, const QString &reason);
    [[nodiscard]] QString returnRest(const Booking &booking);
    void leave(const Booking &booking, const QString &reason);

    const Service &m_service;
    const RequestComposer &m_composer;
    std::function<QString()> m_newNumber;
    QList<Booking> m_bookings;
    std::optional<Request> m_underWay;
    QList<Doubt> m_doubts;
    int m_booked = 0;
    int m_takenBack = 0;
    QList<LeftOver> m_leftOver;
};

} // namespace till::accept
