#include "emulator/desk/desk.h"

#include "emulator/books/audit.h"
#include "emulator/books/tables.h"
#include "emulator/desk/carddesk.h"
#include "emulator/desk/confirmation.h"
#include "emulator/desk/returncodes.h"
#include "emulator/desk/returndesk.h"
#include "emulator/desk/rollbackdesk.h"
#include "emulator/desk/saledesk.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

#ifdef NDEBUG
constexpr bool checksBooks = false;
#else
constexpr bool checksBooks = true;
#endif

void requireOrder(const Books &books, const QString &card)
{
    const AuditReport report = auditCard(books, card);
    if (!report.problems.isEmpty())
        throw BooksError(u"the books are not in order: %1"_s.arg(report.problems.first()));
}

/// Sends each request to its operation.
struct Dispatch
{
    Answer operator()(const BalanceRequest &request) const { return balance(context, request); }
    Answer operator()(const SaleRequest &request) const
    {
        return request.fiscal ? registerSale(context, request) : calculateSale(context, request);
    }
    Answer operator()(const ReturnRequest &request) const { return returnCheque(context, request); }
    Answer operator()(const RollbackRequest &request) const { return rollback(context, request); }

    const DeskContext &context;
};

} // namespace

Desk::Desk(ServiceData data, Database &database, Clock clock)
    : m_data(std::move(data))
    , m_books(database)
    , m_clock(std::move(clock))
{
    BooksTransaction transaction(database);
    openCards(context());
    transaction.commit();
}

DeskContext Desk::context()
{
    return {m_data, m_books, m_clock()};
}

Answer Desk::answer(const Request &request)
{
    if (const auto forced = forcedOutcome(request))
        return refuse(request, *forced);
    const DeskContext current = context();
    Answer answer = std::visit(Dispatch{current}, request);
    if (checksBooks)
        requireOrder(m_books, cardOf(request));
    return answer;
}

Answer Desk::refuse(const Request &request, const Outcome &outcome)
{
    if (std::holds_alternative<BalanceRequest>(request))
        return BalanceAnswer{outcome, {}};
    const SaleRequest *sale = std::get_if<SaleRequest>(&request);
    if (sale && outcome.code == returncodes::notEnoughPoints)
        return refuseSpending(context(), *sale, outcome);
    return ChequeAnswer{outcome, {}};
}

std::vector<WaitingCode> Desk::waitingCodes(const QString &card) const
{
    std::vector<WaitingCode> codes = m_books.calculations.waitingCodes(card);
    std::erase_if(codes, [this](const WaitingCode &waiting) {
        return isCodeVoid(waiting.issued, waiting.wrongCodes, m_data.spending, m_clock());
    });
    return codes;
}

void Desk::reset()
{
    BooksTransaction transaction(m_books.database);
    clearTables(m_books.database);
    openCards(context());
    transaction.commit();
}

std::optional<Outcome> Desk::forcedOutcome(const Request &request) const
{
    const QString number = cardOf(request);
    const QString operation = operationName(operationOf(request));
    for (const CardData &card : m_data.cards) {
        if (card.number != number || !card.forced)
            continue;
        const ForcedCode &forced = *card.forced;
        if (forced.operations.isEmpty() || forced.operations.contains(operation))
            return Outcome{forced.code, forced.message};
    }
    return {};
}

} // namespace emulator
