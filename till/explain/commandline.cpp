#include "till/explain/commandline.h"

#include "till/reporting.h"
#include "till/usage.h"

using namespace Qt::StringLiterals;

namespace till {

ExplainCommandLine::ExplainCommandLine(CLI::App &commandLine)
    : m_command(commandLine.add_subcommand("explain",
        spoken({u"commandLineExplain"_s,
            u"рассказывает, где баллы чека или карты; ничего не меняет, модуля не загружает"_s})))
{
    m_command
        ->add_option("asked", m_asked,
            spoken({u"commandLineAsked"_s,
                u"номер чека или возврата, либо карты: её последние чеки"_s}))
        ->option_text("CHEQUE|CARD")
        ->required();
    auto *cheque = m_command->add_flag(
        "--cheque", m_isCheque, spoken({u"commandLineCheque"_s, u"это номер чека"_s}));
    m_command->add_flag("--card", m_isCard, spoken({u"commandLineCard"_s, u"это номер карты"_s}))
        ->excludes(cheque);
    m_command
        ->add_option("--id", m_id,
            spoken({u"commandLineId"_s, u"только документ, метка которого начинается так"_s}))
        ->option_text("ID");
    m_command
        ->add_option("--config", m_config,
            spoken({u"commandLineConfig"_s,
                u"настройки; без него till.ini в этой папке или установленный"_s}))
        ->option_text("FILE");
    auto *state = m_command->add_option("--state", m_state,
        spoken({u"commandLineQueueState"_s, u"папка состояния кассы; без него Till:state"_s}));
    state->option_text("DIR");
    m_command
        ->add_option("--bundle", m_bundle,
            spoken({u"commandLineFromBundle"_s, u"архив для поддержки вместо рабочей папки"_s}))
        ->option_text("FILE")
        ->excludes(state);
    m_command->add_flag(
        "--json", m_json, spoken({u"commandLineJson"_s, u"для программ: JSON вместо текста"_s}));
    m_command->add_flag("--no-service", m_withoutService,
        spoken({u"commandLineNoService"_s, u"не спрашивать систему лояльности"_s}));
}

ExplainOptions ExplainCommandLine::given() const
{
    using Meaning = ExplainOptions::Meaning;
    ExplainOptions options;
    options.asked = QString::fromStdString(m_asked);
    options.meaning = m_isCheque ? Meaning::Cheque : (m_isCard ? Meaning::Card : Meaning::Either);
    options.correlationId = QString::fromStdString(m_id);
    options.configFile = QString::fromStdString(m_config);
    options.stateFolder = QString::fromStdString(m_state);
    options.bundle = QString::fromStdString(m_bundle);
    options.json = m_json;
    options.withService = !m_withoutService;
    return options;
}

int ExplainCommandLine::execute() const
{
    return reportingErrors([this] { return explainPoints(given()); });
}

} // namespace till
