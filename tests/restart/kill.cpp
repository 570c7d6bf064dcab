#include "tests/restart/kill.h"

#include <map>
#include <random>
#include <utility>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

constexpr Moment moments[] = {Moment::Asked, Moment::Acted, Moment::Answered};
constexpr std::mt19937::result_type seed = 20'241'121;

QString kindName(const std::optional<Moment> &moment)
{
    if (!moment)
        return u"after"_s;
    switch (*moment) {
    case Moment::Asked:
        return u"asked"_s;
    case Moment::Acted:
        return u"acted"_s;
    case Moment::Answered:
        return u"answered"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

QString KillCase::name() const
{
    const QString place = u"%1:%2:%3"_s.arg(scenario->name)
                              .arg(scenario->commands.at(kill.command).line)
                              .arg(kindName(kill.moment));
    return kill.moment ? u"%1:%2"_s.arg(place).arg(kill.exchange) : place;
}

std::vector<KillCase> killsOf(const Scenario &scenario, const std::vector<int> &exchanges)
{
    std::vector<KillCase> cases;
    for (std::size_t command = 0; command < scenario.commands.size(); ++command) {
        cases.push_back({&scenario, {command, std::nullopt, 0}});
        for (int exchange = 1; exchange <= exchanges.at(command); ++exchange)
            for (const Moment moment : moments)
                cases.push_back({&scenario, {command, moment, exchange}});
    }
    return cases;
}

std::vector<KillCase> sampleOf(const std::vector<KillCase> &cases)
{
    std::map<std::pair<QString, QString>, std::vector<KillCase>> groups;
    for (const KillCase &one : cases)
        groups[{one.scenario->name, kindName(one.kill.moment)}].push_back(one);
    std::mt19937 random(seed);
    std::vector<KillCase> sample;
    for (const auto &[key, group] : groups)
        sample.push_back(group.at(random() % group.size()));
    return sample;
}

} // namespace restart
