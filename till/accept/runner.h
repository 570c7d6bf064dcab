#pragma once

#include "host/framework/spokenerror.h"
#include "till/accept/bookings.h"
#include "till/accept/flow.h"
#include "till/accept/flowresult.h"
#include "till/accept/options.h"
#include "till/accept/report.h"
#include "till/accept/request.h"
#include "till/accept/schema.h"
#include "till/accept/service.h"

#include <functional>

namespace till::accept {

/// What a run needs beside the flows.
struct RunSettings
{
    Access access;
    Sender sender;
    QList<Article> articles;
    QString protocolFolder;
    QString card;
    QString unknownCard;
    QString coupon;
    QString code; ///< that the holder is told; empty: not known
    QString codeCommand; ///< prints it; empty: none
    bool writes = false;
    std::function<bool()> isStopWanted; ///< looked at before each exchange
};

/// The service cannot be reached at all.
class ServiceNotReachable : public SpokenError
{
public:
    using SpokenError::SpokenError;
};

/// Runs flows against a service and reports what it did. One run, on one thread.
class Runner
{
public:
    /// @throws CannotDo when the protocol's files cannot be used.
    explicit Runner(const RunSettings &settings);
    Q_DISABLE_COPY_MOVE(Runner)

    /// Runs the flows one after the other, those that book only where the settings say so. Behind
    /// each of them everything that it has booked is taken back, also when it failed or was
    /// stopped.
    /// @throws ServiceNotReachable when the first request does not reach it; nothing was booked.
    /// @throws CannotDo for a mistake in a flow; what was booked is taken back before.
    [[nodiscard]] Report run(const QList<Flow> &flows);

private:
    [[nodiscard]] FlowResult runFlow(const Flow &flow);
    void follow(const Flow &flow, FlowResultBuilder &result);
    /// Whether the flow goes on behind the step.
    bool runStep(const Flow &flow, const Step &step, Dialogue &dialogue, FlowResultBuilder &result);
    bool look(const Step &step, const Exchange &exchange, const Request &request,
        Dialogue &dialogue, FlowResultBuilder &result) const;
    bool lookAt(const Check &check, const Exchange &exchange, Dialogue &dialogue,
        FlowResultBuilder &result) const;
    [[nodiscard]] Request composed(const Flow &flow, const Step &step, Dialogue &dialogue) const;
    [[nodiscard]] Answer ask(const Request &request, const Step &step);
    [[nodiscard]] QString holderCode(const Request &request) const;
    [[nodiscard]] Answer askBalance() const;
    [[nodiscard]] QString newNumber();
    [[nodiscard]] Dialogue newDialogue();

    RunSettings m_settings;
    MessageSchema m_schema;
    Service m_service;
    RequestComposer m_composer;
    Bookings m_bookings;
    QString m_numberBeginning;
    int m_lastNumber = 0;
    bool m_wasStopped = false;
};

} // namespace till::accept
