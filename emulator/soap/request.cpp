#include "emulator/soap/request.h"

namespace emulator {

namespace {

struct OperationVisitor
{
    Operation operator()(const BalanceRequest &) const { return Operation::Balance; }
    Operation operator()(const SaleRequest &sale) const
    {
        return sale.fiscal ? Operation::Fiscal : Operation::Soft;
    }
    Operation operator()(const ReturnRequest &) const { return Operation::Return; }
    Operation operator()(const RollbackRequest &) const { return Operation::Rollback; }
};

struct NumberVisitor
{
    QString operator()(const SaleRequest &sale) const { return sale.number; }
    QString operator()(const ReturnRequest &request) const { return request.number; }
    QString operator()(const BalanceRequest &) const { return {}; }
    QString operator()(const RollbackRequest &) const { return {}; }
};

} // namespace

Operation operationOf(const Request &request)
{
    return std::visit(OperationVisitor(), request);
}

QString cardOf(const Request &request)
{
    return std::visit([](const auto &any) { return any.card; }, request);
}

QString posOf(const Request &request)
{
    return std::visit([](const auto &any) { return any.till.pos; }, request);
}

QString chequeNumberOf(const Request &request)
{
    return std::visit(NumberVisitor(), request);
}

} // namespace emulator
