#include "benchmarks/serviceload/tills.h"

#include "benchmarks/serviceload/request.h"

#include <boost/asio.hpp>

#include <memory>
#include <string>

namespace serviceload {

namespace {

namespace asio = boost::asio;
using boost::system::error_code;
using Clock = std::chrono::steady_clock;
using tcp = asio::ip::tcp;

constexpr std::size_t expectedAnswer = 16 * 1024;

/// What the tills of one run share.
struct Run
{
    const Load &load;
    const std::function<void(int)> &onTenth;
    Clock::time_point begin;
    Outcome outcome{};
    int finished = 0;

    [[nodiscard]] Clock::time_point dueTime(int request) const
    {
        const std::chrono::duration<double> after(
            static_cast<double>(request) / load.requestsInSecond);
        return begin + std::chrono::duration_cast<Clock::duration>(after);
    }
};

/// One till: its requests one after the other, every `tills`-th of all.
class Till
{
public:
    Till(asio::io_context &context, Run &run, int number)
        : m_run(run)
        , m_number(number)
        , m_request(number)
        , m_timer(context)
        , m_socket(context)
    { }

    void waitForNext()
    {
        if (m_request >= m_run.load.requestsInAll)
            return;
        m_timer.expires_at(m_run.dueTime(m_request));
        m_timer.async_wait([this](error_code) { connect(); });
    }

private:
    void connect()
    {
        const int sent = m_request / m_run.load.tills;
        const bool registers = m_run.load.registers;
        m_bytes = chequeRequest(
            m_number, 1 + (registers ? sent / 2 : sent), registers && sent % 2 == 1);
        m_answer.clear();
        m_answer.reserve(expectedAnswer);
        m_socket = tcp::socket(m_socket.get_executor());
        m_socket.async_connect({asio::ip::address_v4::loopback(), m_run.load.port},
            [this](error_code error) { error ? end(false) : send(); });
    }

    void send()
    {
        asio::async_write(m_socket, asio::buffer(m_bytes),
            [this](error_code error, std::size_t) { error ? end(false) : receive(); });
    }

    void receive()
    {
        asio::async_read(
            m_socket, asio::dynamic_buffer(m_answer), [this](error_code error, std::size_t) {
                end(error == asio::error::eof
                    && m_answer.find("<ReturnCode>0</ReturnCode>") != std::string::npos);
            });
    }

    void end(bool isGood)
    {
        const std::chrono::duration<double, std::milli> time
            = Clock::now() - m_run.dueTime(m_request);
        if (isGood)
            m_run.outcome.milliseconds.push_back(time.count());
        else
            ++m_run.outcome.failures;
        const int tenth = m_run.load.requestsInAll / 10;
        if (++m_run.finished % tenth == 0)
            m_run.onTenth(m_run.finished / tenth);
        m_request += m_run.load.tills;
        waitForNext();
    }

    Run &m_run;
    const int m_number;
    int m_request;
    asio::steady_timer m_timer;
    tcp::socket m_socket;
    std::string m_bytes;
    std::string m_answer;
};

} // namespace

Outcome putLoadOn(const Load &load, const std::function<void(int)> &onTenth)
{
    constexpr int onlyThread = 1;
    asio::io_context context(onlyThread);
    Run run{load, onTenth, Clock::now()};
    std::vector<std::unique_ptr<Till>> tills;
    for (int number = 0; number < load.tills; ++number) {
        tills.push_back(std::make_unique<Till>(context, run, number));
        tills.back()->waitForNext();
    }
    context.run();
    run.outcome.time = Clock::now() - run.begin;
    return std::move(run.outcome);
}

} // namespace serviceload
