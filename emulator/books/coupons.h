#pragma once

#include "emulator/books/database.h"
#include "emulator/data/servicedata.h"

namespace emulator {

/// Coupons that the service has printed for customers, and coupons that cheques have used up.
class Coupons
{
public:
    explicit Coupons(Database &database) ///< must outlive this object
        : m_database(database)
    { }

    /// Makes a coupon with a number of its own and returns the number.
    QString issue(const InstantCouponRule &rule, qint64 transaction);

    /// What an issued coupon takes off; nothing when it was never issued or its sale was
    /// rolled back.
    std::optional<Reduction> findIssued(const QString &number) const;

    void use(const QString &number, qint64 transaction);
    bool isUsed(const QString &number) const; ///< by a sale that was not rolled back

private:
    Database &m_database;
};

} // namespace emulator
