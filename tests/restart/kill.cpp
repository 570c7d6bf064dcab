#include "tests/restart/kill.h"

#include <map>
#include <random>
#include <utility>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

constexpr std::mt19937::result_type seed = 20'241'121;

QString nameOf(Manner manner)
{
    switch (manner) {
    case Manner::After:
        return u"after"_s;
    case Manner::Asked:
        return u"asked"_s;
    case Manner::Acted:
        return u"acted"_s;
    case Manner::Answered:
        return u"answered"_s;
    case Manner::Written:
        return u"written"_s;
    }
    Q_UNREACHABLE();
}

std::vector<Kill> killsIn(std::size_t command, const Activity &activity, bool isGivenAgain)
{
    std::vector<Kill> kills;
    for (int exchange = 1; exchange <= activity.exchanges; ++exchange)
        for (const Manner manner : {Manner::Asked, Manner::Acted, Manner::Answered})
            kills.push_back({command, manner, exchange, isGivenAgain});
    for (int write = 1; write <= activity.writes; ++write)
        kills.push_back({command, Manner::Written, write, isGivenAgain});
    return kills;
}

// A customer who hears of a new start may keep the points; the sale goes on all the same.
bool canBeGivenUp(const Command &command)
{
    return command.name() == u"points";
}

} // namespace

QString KillCase::name() const
{
    const QString place = u"%1:%2:%3"_s.arg(scenario->name)
                              .arg(scenario->commands.at(kill.command).line)
                              .arg(nameOf(kill.manner));
    if (kill.occasion == 0)
        return place;
    return u"%1:%2"_s.arg(place).arg(kill.occasion) + (kill.isGivenAgain ? u""_s : u":given-up"_s);
}

std::vector<KillCase> killsOf(const Scenario &scenario, const std::vector<Activity> &activities)
{
    std::vector<KillCase> cases;
    const auto add = [&](const std::vector<Kill> &kills) {
        for (const Kill &kill : kills)
            cases.push_back({&scenario, kill});
    };
    for (std::size_t command = 0; command < scenario.commands.size(); ++command) {
        cases.push_back({&scenario, {command}});
        add(killsIn(command, activities.at(command), true));
        if (canBeGivenUp(scenario.commands[command]))
            add(killsIn(command, activities.at(command), false));
    }
    return cases;
}

std::vector<KillCase> sampleOf(const std::vector<KillCase> &cases)
{
    std::map<std::pair<QString, QString>, std::vector<KillCase>> groups;
    for (const KillCase &one : cases)
        groups[{one.scenario->name, nameOf(one.kill.manner)}].push_back(one);
    std::mt19937 random(seed);
    std::vector<KillCase> sample;
    for (const auto &[key, group] : groups)
        sample.push_back(group.at(random() % group.size()));
    return sample;
}

} // namespace restart
