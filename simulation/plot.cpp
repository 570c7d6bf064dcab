#include "simulation/plot.h"

#include "simulation/axis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <numeric>
#include <sstream>

namespace simulation {

namespace {

constexpr double width = 1000;
constexpr double height = 760;
constexpr double left = 80;
constexpr double right = 790;
constexpr double upperTop = 60;
constexpr double upperBottom = 370;
constexpr double lowerTop = 420;
constexpr double lowerBottom = 700;
constexpr double legendRow = 24;
constexpr double gap = 10;
constexpr double letter = 5; ///< half the height of a letter, to centre it
/// Steps of a curve from the left edge to the right one.
constexpr std::size_t steps = 350;
constexpr double secondsInAMinute = 60;
constexpr double everything = 100;

// Told apart by people who see few colours; further curves repeat them, dashed.
constexpr std::array<const char *, 8> colours{
    "#000000", "#d55e00", "#0072b2", "#cc79a7", "#009e73", "#e69f00", "#56b4e9", "#8a8a8a"};

using Values = std::vector<double>;

std::string escaped(const std::string &text)
{
    std::string safe;
    for (const char c : text) {
        switch (c) {
        case '<':
            safe += "&lt;";
            break;
        case '&':
            safe += "&amp;";
            break;
        default:
            safe += c;
        }
    }
    return safe;
}

/// The drawing, element by element.
class Drawing
{
public:
    Drawing()
    {
        m_out << std::fixed << std::setprecision(1)
              << R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" << width << R"(" height=")"
              << height << R"(" font-family="DejaVu Sans, Arial, sans-serif" font-size="14">)"
              << '\n'
              << R"(<rect width="100%" height="100%" fill="#ffffff"/>)" << '\n';
    }
    void line(double x1, double y1, double x2, double y2, const std::string &style)
    {
        m_out << "<line x1=\"" << x1 << "\" y1=\"" << y1 << "\" x2=\"" << x2 << "\" y2=\"" << y2
              << "\" " << style << "/>\n";
    }
    void text(double x, double y, const std::string &words, const std::string &style = {})
    {
        m_out << "<text x=\"" << x << "\" y=\"" << y << "\" " << style << ">" << escaped(words)
              << "</text>\n";
    }
    void curve(
        const Axis &x, const Axis &y, double step, const Values &values, const std::string &style)
    {
        m_out << "<polyline fill=\"none\" " << style << " points=\"";
        for (std::size_t i = 0; i < values.size() && x.holds(static_cast<double>(i) * step); ++i)
            m_out << x.at(static_cast<double>(i) * step) << ',' << y.at(values[i]) << ' ';
        m_out << "\"/>\n";
    }
    [[nodiscard]] std::string end()
    {
        m_out << "</svg>\n";
        return m_out.str();
    }

private:
    std::ostringstream m_out;
};

std::string markText(double value)
{
    std::ostringstream out;
    out << std::setprecision(12) << value;
    return out.str();
}

void drawPanel(Drawing &drawing, const Axis &x, const Axis &y, const std::string &title)
{
    const std::string grid = "stroke=\"#dddddd\"";
    for (const double mark : x.marks()) {
        drawing.line(x.at(mark), y.start(), x.at(mark), y.end(), grid);
        drawing.text(x.at(mark), y.start() + 2 * gap, markText(mark), "text-anchor=\"middle\"");
    }
    for (const double mark : y.marks()) {
        drawing.line(x.start(), y.at(mark), x.end(), y.at(mark), grid);
        drawing.text(x.start() - gap, y.at(mark) + letter, markText(mark), "text-anchor=\"end\"");
    }
    drawing.line(x.start(), y.start(), x.end(), y.start(), "stroke=\"#333333\"");
    drawing.line(x.start(), y.start(), x.start(), y.end(), "stroke=\"#333333\"");
    drawing.text(x.start(), y.end() - gap, title, "font-weight=\"bold\"");
}

std::string styleOf(std::size_t number)
{
    const std::string strokes = number == 0 ? "3" : "1.5";
    std::string style
        = "stroke-width=\"" + strokes + "\" stroke=\"" + colours[number % colours.size()] + "\"";
    if (number >= colours.size())
        style += " stroke-dasharray=\"6 4\"";
    return style;
}

void drawLegend(Drawing &drawing, const std::vector<Curve> &curves)
{
    double y = upperTop + gap;
    for (std::size_t i = 0; i < curves.size(); ++i, y += legendRow) {
        drawing.line(right + 2 * gap, y, right + 5 * gap, y, styleOf(i));
        drawing.text(right + 6 * gap, y + letter, curves[i].policy);
    }
}

double lastSecond(const std::vector<Curve> &curves)
{
    std::size_t last = 1;
    for (const Curve &curve : curves)
        last = std::max(last, curve.measures.requestsBySecond().size());
    return static_cast<double>(last);
}

// What happened in the seconds of each step.
Values sums(const std::vector<int> &bySecond, std::size_t secondsInAStep)
{
    Values totals;
    for (std::size_t from = 0; from < bySecond.size(); from += secondsInAStep) {
        const std::size_t to = std::min(from + secondsInAStep, bySecond.size());
        totals.push_back(std::accumulate(bySecond.begin() + static_cast<std::ptrdiff_t>(from),
            bySecond.begin() + static_cast<std::ptrdiff_t>(to), 0.0));
    }
    return totals;
}

// Begins with nothing, and each value stands at the end of its step.
Values deliveredShares(const Measures &measures, std::size_t secondsInAStep)
{
    Values shares{0};
    for (const double count : sums(measures.deliveredBySecond(), secondsInAStep))
        shares.push_back(
            shares.back() + everything * count / static_cast<double>(measures.messages()));
    return shares;
}

Values rates(const Measures &measures, std::size_t secondsInAStep)
{
    Values means = sums(measures.requestsBySecond(), secondsInAStep);
    for (double &mean : means)
        mean /= static_cast<double>(secondsInAStep);
    return means;
}

double highest(const std::vector<Values> &all)
{
    double most = 1;
    for (const Values &values : all)
        for (const double value : values)
            most = std::max(most, value);
    return most;
}

void drawDelivered(
    Drawing &drawing, const Axis &x, const std::vector<Curve> &curves, std::size_t secondsInAStep)
{
    const Axis y(0, everything, upperBottom, upperTop);
    drawPanel(drawing, x, y, "Delivered, % of the backlog");
    const double step = static_cast<double>(secondsInAStep) / secondsInAMinute;
    for (std::size_t i = curves.size(); i-- > 0;)
        drawing.curve(x, y, step, deliveredShares(curves[i].measures, secondsInAStep), styleOf(i));
}

void drawRates(Drawing &drawing, const Axis &x, const Scenario &scenario,
    const std::vector<Curve> &curves, std::size_t secondsInAStep)
{
    std::vector<Values> all;
    all.reserve(curves.size());
    for (const Curve &curve : curves)
        all.push_back(rates(curve.measures, secondsInAStep));
    const double top = std::pow(10.0, std::ceil(std::log10(highest(all) + 1)));
    const Axis y(1, top, lowerBottom, lowerTop, true);
    drawPanel(drawing, x, y,
        "Requests a second at the service, mean of " + std::to_string(secondsInAStep)
            + " s, logarithmic");
    const double step = static_cast<double>(secondsInAStep) / secondsInAMinute;
    for (std::size_t i = all.size(); i-- > 0;)
        drawing.curve(x, y, step, all[i], styleOf(i));
    const double capacity = y.at(scenario.service.capacity);
    drawing.line(left, capacity, right, capacity, R"(stroke="#333333" stroke-dasharray="2 4")");
    drawing.text(right + gap, capacity + letter, "capacity");
}

std::string titleOf(const Scenario &scenario)
{
    return std::to_string(scenario.tills) + " tills after an outage of "
        + markText(std::chrono::duration<double, std::ratio<60>>(scenario.outage).count())
        + " minutes, the service answers " + markText(scenario.service.capacity)
        + " requests a second";
}

} // namespace

std::string plotOf(
    const Scenario &scenario, const std::vector<Curve> &curves, const std::optional<Moment> &end)
{
    const double seconds = end ? std::chrono::duration<double>(*end).count() : lastSecond(curves);
    const auto secondsInAStep
        = static_cast<std::size_t>(std::ceil(seconds / static_cast<double>(steps)));
    const Axis x(0, seconds / secondsInAMinute, left, right);
    Drawing drawing;
    drawing.text(left, upperTop / 2, titleOf(scenario), "font-size=\"16\"");
    drawDelivered(drawing, x, curves, secondsInAStep);
    drawRates(drawing, x, scenario, curves, secondsInAStep);
    drawing.text((left + right) / 2, height - gap, "minutes since the service is back",
        "text-anchor=\"middle\"");
    drawLegend(drawing, curves);
    return drawing.end();
}

} // namespace simulation
