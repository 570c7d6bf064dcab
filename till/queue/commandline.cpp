#include "till/queue/commandline.h"

#include "till/core/cannotdo.h"
#include "till/exitstatus.h"
#include "till/queue/looking.h"
#include "till/queue/output.h"
#include "till/queue/sending.h"
#include "till/queue/transfer.h"
#include "till/queue/watch.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

QString text(const std::string &value)
{
    return QString::fromStdString(value);
}

QStringList texts(const std::vector<std::string> &values)
{
    QStringList list;
    for (const std::string &value : values)
        list.append(text(value));
    return list;
}

int tell(const QString &what, ExitStatus status)
{
    complain(what);
    return static_cast<int>(status);
}

} // namespace

QueueCommandLine::QueueCommandLine(CLI::App &commandLine)
    : m_queue(commandLine.add_subcommand("queue",
        "looks after the outgoing queue, also while the till is running; loads no plug-in"))
{
    m_queue->require_subcommand(1);
    addCommonOptions(m_queue);
    addLooking();
    addMending();
    addSending();
    addTransfer();
}

CLI::App *QueueCommandLine::add(
    const std::string &name, const std::string &purpose, const Command &command)
{
    CLI::App *added = m_queue->add_subcommand(name, purpose);
    addCommonOptions(added);
    added->callback([this, command] { m_command = command; });
    return added;
}

void QueueCommandLine::addCommonOptions(CLI::App *command)
{
    command->add_option("--config", m_config, "settings; without it till.ini, if there is one")
        ->option_text("FILE");
    command->add_option("--state", m_state, "the till's state folder; without it Till:state")
        ->option_text("DIR");
    command->add_flag("--json", m_json, "for programs: JSON instead of text");
}

void QueueCommandLine::addLooking()
{
    CLI::App *list = add("list", "what is not delivered, in the order of enqueueing",
        [this](const QueueOptions &options) {
            return queuecommands::list(options, m_all, texts(m_states));
        });
    list->add_flag("--all", m_all, "the delivered messages too");
    list->add_option("--state-of", m_states,
            "only messages of these states: pending, sending, delivered, refused, parked")
        ->option_text("NAME...");
    add("status", "figures; exit status 0: good, 1: warning, 2: alarm", queuecommands::status);
    add("metrics", "the same figures as OpenMetrics text", queuecommands::metrics);
    CLI::App *show = add("show", "one message with everything that is kept of it",
        [this](const QueueOptions &options) {
            return queuecommands::show(options, text(m_id), m_plain);
        });
    show->add_option("id", m_id, "id of the message, or its beginning")
        ->option_text("ID")
        ->required();
    show->add_flag("--plain", m_plain, "credentials and card numbers too");
}

void QueueCommandLine::addMending()
{
    CLI::App *retry = add("retry", "lets messages be sent as soon as possible",
        [this](const QueueOptions &options) { return queuecommands::retry(options, meant()); });
    CLI::App *setAside = add("set-aside", "parks messages until a person retries them",
        [this](const QueueOptions &options) { return queuecommands::setAside(options, meant()); });
    for (CLI::App *command : {retry, setAside}) {
        command->add_option("ids", m_ids, "ids of messages, or their beginnings")
            ->option_text("ID...");
        command->add_flag("--all", m_all, "every message that can be changed so, instead of ids");
    }
    retry
        ->add_option("--state-of", m_states,
            "every message of these states, instead of ids: pending, refused, parked")
        ->option_text("NAME...");
    setAside
        ->add_option("--state-of", m_states,
            "every message of these states, instead of ids: pending, refused")
        ->option_text("NAME...");
}

void QueueCommandLine::addSending()
{
    add("deliver", "sends everything that waits now; 0: all of it was delivered, 1: not all",
        queuecommands::deliver);
    CLI::App *watch = add("watch", "sends what is due, all the time: the delivery service",
        [this](const QueueOptions &options) { return queuecommands::watch(options, m_once); });
    watch->add_flag("--once", m_once, "sends what is due now, and ends");
}

void QueueCommandLine::addTransfer()
{
    add("reauthorise", "gives what is not delivered the user and password of the settings",
        queuecommands::reauthorise);
    CLI::App *exporting
        = add("export", "moves what is not delivered to a file, for another machine",
            [this](const QueueOptions &options) {
                return queuecommands::exportMessages(options, text(m_file));
            });
    exporting->add_option("file", m_file, "gets the messages, without credentials")
        ->option_text("FILE")
        ->required();
    CLI::App *importing
        = add("import", "takes the messages of such a file", [this](const QueueOptions &options) {
              return queuecommands::importMessages(options, text(m_file));
          });
    importing->add_option("file", m_file, "was written by export")->option_text("FILE")->required();
}

queuecommands::Meant QueueCommandLine::meant() const
{
    return {texts(m_ids), texts(m_states), m_all};
}

int QueueCommandLine::execute() const
{
    try {
        return m_command({text(m_config), text(m_state), m_json});
    } catch (const CannotDo &error) {
        return tell(error.text(), ExitStatus::CannotDo);
    } catch (const SpokenError &error) {
        return tell(error.tr().ui(), ExitStatus::Unusable);
    } catch (const std::exception &error) {
        return tell(QString::fromUtf8(error.what()), ExitStatus::Unusable);
    }
}

} // namespace till
