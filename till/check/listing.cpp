#include "till/check/listing.h"

#include "host/text/plaintext.h"
#include "till/check/schema.h"

#include <QLocale>
#include <QMap>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

const QString defaultTaken = u"checkDefault"_s;
// As wide as the longest severity in either language.
constexpr qsizetype severityWidth = 14;
constexpr qsizetype wrappedWidth = 80;
const QString indent(severityWidth + 3, u' ');

bool isDefault(const Finding &finding)
{
    return finding.what.id() == defaultTaken;
}

tr::Tr titleOf(Area area)
{
    switch (area) {
    case Area::Configuration:
        return {u"checkAreaConfiguration"_s, u"Настройки"_s};
    case Area::Machine:
        return {u"checkAreaMachine"_s, u"Машина"_s};
    case Area::Service:
        break;
    }
    return {u"checkAreaService"_s, u"Сервис"_s};
}

tr::Tr textOf(Severity severity)
{
    switch (severity) {
    case Severity::Ok:
        return {u"checkSeverityOk"_s, u"порядок"_s};
    case Severity::Note:
        return {u"checkSeverityNote"_s, u"заметка"_s};
    case Severity::Warning:
        return {u"checkSeverityWarning"_s, u"предупреждение"_s};
    case Severity::Error:
        break;
    }
    return {u"checkSeverityError"_s, u"ошибка"_s};
}

QString painted(Severity severity, const Paint &paint)
{
    static const QMap<Severity, Paint::Colour> colours{{Severity::Ok, Paint::Colour::Green},
        {Severity::Note, Paint::Colour::Bold}, {Severity::Warning, Paint::Colour::Yellow},
        {Severity::Error, Paint::Colour::Red}};
    return paint(colours[severity], textOf(severity).ui().leftJustified(severityWidth));
}

QString shown(const Place &place)
{
    QStringList parts;
    if (!place.file.isEmpty())
        parts.append(place.line > 0 ? place.file + u':' + QString::number(place.line) : place.file);
    if (!place.key.isEmpty())
        parts.append(place.key);
    return parts.isEmpty() ? QString() : parts.join(u' ') + u": ";
}

QString withoutMarks(QString text)
{
    static const QRegularExpression link(u"\\[([^\\]]*)\\]\\([^)]*\\)"_s);
    return text.replace(link, u"\\1"_s).remove(u'`');
}

bool isRussian()
{
    return QLocale().language() == QLocale::Russian;
}

/// What the setting of a finding is for; empty where that helps nobody.
QString effectOf(const Finding &finding)
{
    const Setting *setting = Schema::instance().find(finding.place.key);
    if (!setting || finding.severity < Severity::Warning || finding.area != Area::Configuration)
        return {};
    const QString effect = isRussian() ? setting->effectRussian : setting->effectEnglish;
    return finding.place.key + u" – " + withoutMarks(effect);
}

QString linesOf(const Finding &finding, const Paint &paint)
{
    QString lines = u"  "_s + painted(finding.severity, paint) + u' '
        + plaintext::line(shown(finding.place) + finding.what.ui()) + u'\n';
    if (!finding.remedy.isEmpty())
        lines += indent + u"→ " + plaintext::line(finding.remedy.ui()) + u'\n';
    if (const QString effect = effectOf(finding); !effect.isEmpty())
        lines += indent + paint(Paint::Colour::Faint, effect) + u'\n';
    return lines;
}

QString defaultOf(const Setting &setting)
{
    const QString absent = isRussian() ? setting.absentRussian : setting.absentEnglish;
    return setting.key + u'=' + setting.defaultValue.value_or(u'(' + withoutMarks(absent) + u')');
}

/// The parts with commas between them, in lines that a terminal has room for.
QString wrapped(const QStringList &parts)
{
    QStringList lines;
    for (const QString &part : parts) {
        if (lines.isEmpty() || lines.last().size() + part.size() > wrappedWidth)
            lines.append(part);
        else
            lines.last() += u", " + part;
    }
    return lines.join(u",\n"_s + indent);
}

QString linesOfDefaults(const Findings &findings, const Paint &paint)
{
    QMap<QString, QStringList> bySection;
    QStringList sections;
    for (const Finding &finding : findings) {
        const Setting *setting
            = isDefault(finding) ? Schema::instance().find(finding.place.key) : nullptr;
        if (!setting)
            continue;
        if (!bySection.contains(setting->section))
            sections.append(setting->section);
        bySection[setting->section].append(defaultOf(*setting));
    }
    QString lines;
    for (const QString &section : sections)
        lines += u"  "_s + painted(Severity::Ok, paint) + u' '
            + paint(Paint::Colour::Faint,
                tr::Tr(u"checkDefaults"_s, u"[%1] по умолчанию: %2"_s)
                    .arg(section)
                    .arg(wrapped(bySection[section]))
                    .ui())
            + u'\n';
    return lines;
}

Json textOrNull(const QString &text)
{
    return text.isEmpty() ? Json() : Json(toJson(text));
}

Json objectOf(const Finding &finding)
{
    return {{"severity", toJson(nameOf(finding.severity))}, {"area", toJson(nameOf(finding.area))},
        {"file", textOrNull(finding.place.file)},
        {"line", finding.place.line > 0 ? Json(finding.place.line) : Json()},
        {"key", textOrNull(finding.place.key)}, {"id", toJson(finding.what.id())},
        {"message", toJson(finding.what.ru())}, {"remedy", textOrNull(finding.remedy.ru())}};
}

} // namespace

QString listing(const Findings &findings, const Paint &paint)
{
    QString text;
    for (const Area area : {Area::Configuration, Area::Machine, Area::Service}) {
        text += paint(Paint::Colour::Bold, titleOf(area).ui()) + u'\n';
        for (const Finding &finding : findings)
            if (finding.area == area && !isDefault(finding))
                text += linesOf(finding, paint);
        if (area == Area::Configuration)
            text += linesOfDefaults(findings, paint);
    }
    return text + tr::Tr(u"checkWorst"_s, u"Итог: %1"_s).arg(textOf(worst(findings))).ui() + u'\n';
}

Json findingsObject(const Findings &findings)
{
    Json list = Json::array();
    for (const Finding &finding : findings)
        list.push_back(objectOf(finding));
    return {{"findings", list}, {"worst", toJson(nameOf(worst(findings)))}};
}

} // namespace till::check
