#pragma once

#include "host/documents/catalogue.h"
#include "host/storage/documentstore.h"
#include "tests/support/hostfixture.h"
#include "tests/till/support/fakeloyalty.h"
#include "till/core/cannotdo.h"
#include "till/core/exchanges.h"
#include "till/core/till.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

/// A till with a fake loyalty system and a small catalogue on a state folder of its own: 1001
/// bread at 45.90, 1002 milk at 100.00, 1003 cheese at 600.00 (weighed); cards begin with 29,
/// coupons with 99.
class TillFixture : public HostFixture, public testing::Test
{
public:
    TillFixture();
    ~TillFixture() override;

    /// Ends the till as a kill would, and starts another one on the same state folder.
    void givenRestart();
    /// An open sale with articles, one piece each.
    void givenSaleOf(const QStringList &codes);
    void givenIdentifiedCard(const QString &number = QStringLiteral("2900000000017"));
    /// A sale that was calculated with that discount on position 1.
    void givenCalculatedSale(const QStringList &codes, double discount);
    /// A closed sale of one bread, with a card; its number.
    QString givenClosedSale();

    /// Operations and events since the last look.
    QStringList takeCalls();
    /// What stood in the way; empty when nothing did.
    static QString whyNot(const std::function<void()> &operation);

    Catalogue catalogue;
    std::unique_ptr<FakeLoyalty> loyalty;
    std::unique_ptr<till::Exchanges> exchanges;
    std::unique_ptr<DocumentStore> store;
    std::unique_ptr<till::Till> till;

private:
    void open();
    void kill();
};
