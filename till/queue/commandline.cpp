#include "till/queue/commandline.h"

#include "till/queue/looking.h"
#include "till/queue/sending.h"
#include "till/queue/transfer.h"
#include "till/queue/watch.h"
#include "till/reporting.h"
#include "till/usage.h"

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

} // namespace

QueueCommandLine::QueueCommandLine(CLI::App &commandLine)
    : m_queue(commandLine.add_subcommand("queue",
        spoken({u"commandLineQueue"_s,
            u"следит за исходящей очередью, в том числе при работающей кассе; модуль не загружает"_s})))
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
    command
        ->add_option("--config", m_config,
            spoken({u"commandLineConfig"_s,
                u"настройки; без него till.ini в этой папке или установленный"_s}))
        ->option_text("FILE");
    command
        ->add_option("--state", m_state,
            spoken({u"commandLineQueueState"_s, u"папка состояния кассы; без него Till:state"_s}))
        ->option_text("DIR");
    command->add_flag(
        "--json", m_json, spoken({u"commandLineJson"_s, u"для программ: JSON вместо текста"_s}));
}

void QueueCommandLine::addLooking()
{
    CLI::App *list = add("list",
        spoken({u"commandLineQueueList"_s, u"что не доставлено, в порядке постановки в очередь"_s}),
        [this](const QueueOptions &options) {
            return queuecommands::list(options, m_all, texts(m_states));
        });
    list->add_flag(
        "--all", m_all, spoken({u"commandLineQueueListAll"_s, u"доставленные сообщения тоже"_s}));
    list->add_option("--state-of", m_states,
            spoken({u"commandLineQueueListStates"_s,
                u"только сообщения в этих состояниях: pending, sending, delivered, refused, parked"_s}))
        ->option_text("NAME...");
    add("status",
        spoken({u"commandLineQueueStatus"_s,
            u"показатели; код завершения 0: порядок, 1: предупреждение, 2: тревога"_s}),
        queuecommands::status);
    add("metrics",
        spoken({u"commandLineQueueMetrics"_s, u"те же показатели текстом OpenMetrics"_s}),
        queuecommands::metrics);
    CLI::App *show = add("show",
        spoken({u"commandLineQueueShow"_s, u"одно сообщение со всем, что о нём хранится"_s}),
        [this](const QueueOptions &options) {
            return queuecommands::show(options, text(m_id), m_plain);
        });
    show->add_option(
            "id", m_id, spoken({u"commandLineQueueId"_s, u"номер сообщения или его начало"_s}))
        ->option_text("ID")
        ->required();
    show->add_flag("--plain", m_plain,
        spoken({u"commandLineQueuePlain"_s, u"с логином, паролем и номерами карт"_s}));
}

void QueueCommandLine::addMending()
{
    CLI::App *retry = add("retry",
        spoken({u"commandLineQueueRetry"_s,
            u"разрешает отправить сообщения при первой возможности"_s}),
        [this](const QueueOptions &options) { return queuecommands::retry(options, meant()); });
    CLI::App *setAside = add("set-aside",
        spoken({u"commandLineQueueSetAside"_s,
            u"откладывает сообщения, пока человек не вернёт их командой retry"_s}),
        [this](const QueueOptions &options) { return queuecommands::setAside(options, meant()); });
    for (CLI::App *command : {retry, setAside}) {
        command
            ->add_option("ids", m_ids,
                spoken({u"commandLineQueueIds"_s, u"номера сообщений или их начала"_s}))
            ->option_text("ID...");
        command->add_flag("--all", m_all,
            spoken({u"commandLineQueueMeantAll"_s,
                u"все сообщения, для которых это возможно, вместо номеров"_s}));
    }
    retry
        ->add_option("--state-of", m_states,
            spoken({u"commandLineQueueRetryStates"_s,
                u"все сообщения в этих состояниях вместо номеров: pending, refused, parked"_s}))
        ->option_text("NAME...");
    setAside
        ->add_option("--state-of", m_states,
            spoken({u"commandLineQueueSetAsideStates"_s,
                u"все сообщения в этих состояниях вместо номеров: pending, refused"_s}))
        ->option_text("NAME...");
}

void QueueCommandLine::addSending()
{
    add("deliver",
        spoken({u"commandLineQueueDeliver"_s,
            u"отправляет сейчас всё, что ждёт; 0: доставлено всё, 1: не всё"_s}),
        queuecommands::deliver);
    CLI::App *watch = add("watch",
        spoken({u"commandLineQueueWatch"_s,
            u"постоянно отправляет всё, чему пришёл срок: служба доставки"_s}),
        [this](const QueueOptions &options) { return queuecommands::watch(options, m_once); });
    watch->add_flag("--once", m_once,
        spoken({u"commandLineQueueWatchOnce"_s,
            u"отправляет то, чему пришёл срок, и завершает работу"_s}));
}

void QueueCommandLine::addTransfer()
{
    add("reauthorise",
        spoken({u"commandLineQueueReauthorise"_s,
            u"даёт недоставленному логин и пароль из настроек"_s}),
        queuecommands::reauthorise);
    CLI::App *exporting = add("export",
        spoken(
            {u"commandLineQueueExport"_s, u"переносит недоставленное в файл, для другой машины"_s}),
        [this](const QueueOptions &options) {
            return queuecommands::exportMessages(options, text(m_file));
        });
    exporting
        ->add_option("file", m_file,
            spoken({u"commandLineQueueExportFile"_s,
                u"сюда попадут сообщения, без логина и пароля"_s}))
        ->option_text("FILE")
        ->required();
    CLI::App *importing = add("import",
        spoken({u"commandLineQueueImport"_s, u"принимает сообщения из такого файла"_s}),
        [this](const QueueOptions &options) {
            return queuecommands::importMessages(options, text(m_file));
        });
    importing
        ->add_option(
            "file", m_file, spoken({u"commandLineQueueImportFile"_s, u"записан командой export"_s}))
        ->option_text("FILE")
        ->required();
}

queuecommands::Meant QueueCommandLine::meant() const
{
    return {texts(m_ids), texts(m_states), m_all};
}

int QueueCommandLine::execute() const
{
    return reportingErrors([this] { return m_command({text(m_config), text(m_state), m_json}); });
}

} // namespace till
