#include "till/accept/commandline.h"

#include "till/accept/accept.h"
#include "till/core/cannotdo.h"
#include "till/exitstatus.h"
#include "till/queue/output.h"
#include "till/usage.h"

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

constexpr int longestTimeout = 3600;

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

int tell(const QString &what)
{
    complain(what);
    return static_cast<int>(ExitStatus::CannotDo);
}

} // namespace

AcceptCommandLine::AcceptCommandLine(CLI::App &commandLine)
    : m_command(commandLine.add_subcommand("accept",
        spoken({u"commandLineAccept"_s,
            u"проверяет, соблюдает ли сервис лояльности протокол; модуль не загружает"_s})))
{
    addAccess();
    addTestData();
    addRun();
}

void AcceptCommandLine::addText(
    const std::string &name, std::string &value, const char *what, const std::string &purpose)
{
    m_command->add_option(name, value, purpose)->option_text(what);
}

void AcceptCommandLine::addAccess()
{
    addText("--url", m_url, "URL",
        spoken({u"commandLineAcceptUrl"_s, u"адрес сервиса; без него адрес из настроек"_s}));
    addText("--config", m_config, "FILE",
        spoken({u"commandLineAcceptConfig"_s,
            u"настройки: url, user и password; без него till.ini"_s}));
    addText("--user", m_user, "NAME",
        spoken({u"commandLineAcceptUser"_s, u"пользователь для авторизации Basic"_s}));
    addText("--password-file", m_passwordFile, "FILE",
        spoken({u"commandLineAcceptPasswordFile"_s, u"пароль в первой строке файла"_s}));
    addText("--ca-file", m_caFile, "FILE",
        spoken({u"commandLineAcceptCaFile"_s,
            u"сертификаты PEM, которым доверять вместо системных"_s}));
    m_command
        ->add_option("--timeout", m_timeout,
            spoken({u"commandLineAcceptTimeout"_s,
                u"предел каждого обмена в секундах; без него 15"_s}))
        ->option_text("SECONDS")
        ->check(CLI::Range(1, longestTimeout));
}

void AcceptCommandLine::addTestData()
{
    addText("--card", m_card, "NUMBER", spoken({u"commandLineAcceptCard"_s, u"тестовая карта"_s}));
    addText("--unknown-card", m_unknownCard, "NUMBER",
        spoken({u"commandLineAcceptUnknownCard"_s, u"карта, которой сервис не знает"_s}));
    addText("--coupon", m_coupon, "NUMBER",
        spoken({u"commandLineAcceptCoupon"_s, u"применимый купон"_s}));
    addText("--code", m_code, "CODE",
        spoken({u"commandLineAcceptCode"_s,
            u"код подтверждения, который всегда сообщают держателю карты"_s}));
    addText("--code-command", m_codeCommand, "COMMAND",
        spoken({u"commandLineAcceptCodeCommand"_s,
            u"печатает код, сообщённый держателю, для KORVEL_CARD и KORVEL_CHEQUE"_s}));
    m_command
        ->add_option("--article", m_articles,
            spoken({u"commandLineAcceptArticle"_s,
                u"товар, известный сервису, и его цена; можно указать несколько раз"_s}))
        ->option_text("CODE[=PRICE]")
        ->allow_extra_args(false);
    addText("--pos", m_pos, "TEXT",
        spoken({u"commandLineAcceptPos"_s, u"касса; без неё касса из образцов"_s}));
    addText(
        "--shop", m_shop, "TEXT", spoken({u"commandLineAcceptShop"_s, u"магазин, BusinessUnit"_s}));
    addText("--organization", m_organization, "TEXT",
        spoken({u"commandLineAcceptOrganization"_s, u"организация"_s}));
    addText("--org-name", m_orgName, "TEXT",
        spoken({u"commandLineAcceptOrgName"_s, u"сеть, orgName"_s}));
}

void AcceptCommandLine::addRun()
{
    m_command->add_flag("--write", m_writes,
        spoken({u"commandLineAcceptWrite"_s,
            u"регистрирует и чеки на тестовую карту и возвращает всё назад"_s}));
    m_command
        ->add_option("--only", m_only,
            spoken({u"commandLineAcceptOnly"_s, u"этот сценарий; можно указать несколько раз"_s}))
        ->option_text("FLOW")
        ->allow_extra_args(false);
    m_command->add_flag("--list", m_lists,
        spoken({u"commandLineAcceptList"_s,
            u"перечисляет сценарии и их правила, ничего не запрашивая"_s}));
    m_command->add_flag(
        "--json", m_json, spoken({u"commandLineJson"_s, u"для программ: JSON вместо текста"_s}));
    addText("--protocol", m_protocol, "DIR",
        spoken({u"commandLineAcceptProtocol"_s, u"папка наподобие protocol/ вместо встроенной"_s}));
}

Options AcceptCommandLine::options() const
{
    Options options;
    options.url = text(m_url);
    options.user = text(m_user);
    options.passwordFile = text(m_passwordFile);
    options.configFile = text(m_config);
    options.caFile = text(m_caFile);
    options.card = text(m_card);
    options.unknownCard = text(m_unknownCard);
    options.code = text(m_code);
    options.codeCommand = text(m_codeCommand);
    options.coupon = text(m_coupon);
    options.articles = texts(m_articles);
    options.pos = text(m_pos);
    options.shop = text(m_shop);
    options.organization = text(m_organization);
    options.orgName = text(m_orgName);
    options.protocolFolder = text(m_protocol);
    options.only = texts(m_only);
    options.timeoutSeconds = m_timeout;
    options.writes = m_writes;
    options.json = m_json;
    options.lists = m_lists;
    return options;
}

int AcceptCommandLine::execute() const
{
    try {
        return accept(options());
    } catch (const CannotDo &error) {
        return tell(error.text());
    } catch (const SpokenError &error) {
        return tell(error.tr().ui());
    } catch (const std::exception &error) {
        return tell(QString::fromUtf8(error.what()));
    }
}

} // namespace till::accept
