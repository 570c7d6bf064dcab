#include "host/config/inifile.h"

#include "host/config/configerror.h"
#include "host/config/valuereaders.h"

namespace ini {

using namespace Qt::Literals::StringLiterals;

namespace {

class Parser
{
public:
    void readLine(const QByteArray &bytes)
    {
        ++m_line;
        try {
            interpret(bytes);
        } catch (const Defect &defect) {
            m_reading.defects.append(defect);
        }
    }

    [[nodiscard]] Reading takeReading() { return std::move(m_reading); }

private:
    void interpret(const QByteArray &bytes)
    {
        m_text = decoded(bytes);
        const QString trimmed = m_text.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(u'#') || trimmed.startsWith(u';'))
            return;
        if (trimmed.startsWith(u'['))
            readSection();
        else
            readSetting();
    }

    [[noreturn]] void fail(qsizetype offset, const tr::Tr &text) const
    {
        throw Defect{m_line, static_cast<int>(offset + 1), text};
    }

    [[nodiscard]] QString decoded(const QByteArray &bytes) const
    {
        const std::optional<QString> text = config::decoded(bytes);
        if (!text)
            fail(0,
                {u"configLineNotUtf8"_s, u"строка не в кодировке UTF-8; сохраните файл в UTF-8"_s});
        return *text;
    }

    void readSection()
    {
        const qsizetype open = m_text.indexOf(u'[');
        const qsizetype close = m_text.indexOf(u']', open);
        if (close < 0)
            fail(open, {u"configOpenSection"_s, u"не хватает «]»; закройте ею имя секции"_s});
        const QString rest = m_text.mid(close + 1);
        if (!rest.trimmed().isEmpty())
            fail(close + 1,
                {u"configTextBehindSection"_s,
                    u"текст после «]»; комментарии и настройки пишите в отдельных строках"_s});
        const QString name = m_text.mid(open + 1, close - open - 1).trimmed();
        if (name.isEmpty())
            fail(open,
                {u"configSectionWithoutName"_s,
                    u"у секции нет имени; напишите его между «[» и «]»"_s});
        if (name.contains(u':'))
            fail(m_text.indexOf(u':'),
                {u"configColonInSection"_s, u"«:» в имени секции; выберите имя без неё"_s});
        m_reading.sections.append({name, {}, m_line});
    }

    void readSetting()
    {
        const qsizetype start = firstNonBlank(0);
        const qsizetype equals = m_text.indexOf(u'=');
        if (equals < 0)
            fail(start,
                {u"configEqualsMissing"_s,
                    u"не хватает «=»; напишите «ключ = значение» или поставьте «#» перед "
                    u"комментарием"_s});
        const QString key = m_text.left(equals).trimmed();
        if (key.isEmpty())
            fail(
                start, {u"configKeyMissing"_s, u"у настройки нет ключа; напишите его перед «=»"_s});
        if (m_reading.sections.isEmpty())
            fail(start,
                {u"configSectionMissing"_s,
                    u"настройка перед первой секцией; поставьте над ней «[секция]»"_s});
        m_reading.sections.last().settings.append({key, m_text.mid(equals + 1).trimmed(), m_line,
            static_cast<int>(firstNonBlank(equals + 1) + 1)});
    }

    [[nodiscard]] qsizetype firstNonBlank(qsizetype from) const
    {
        while (from < m_text.size() && m_text.at(from).isSpace())
            ++from;
        return from;
    }

    int m_line = 0;
    QString m_text;
    Reading m_reading;
};

} // namespace

Reading read(const QByteArray &bytes)
{
    Parser parser;
    for (const QByteArray &line : bytes.split('\n'))
        parser.readLine(line);
    return parser.takeReading();
}

QList<Section> parse(const QByteArray &bytes, const QString &fileName)
{
    Reading reading = read(bytes);
    if (!reading.defects.isEmpty()) {
        const Defect &first = reading.defects.constFirst();
        throw ConfigError(tr::Tr(tr::undefined, u"%1:%2:%3: %4"_s)
                              .arg(fileName)
                              .arg(QString::number(first.line))
                              .arg(QString::number(first.column))
                              .arg(first.text));
    }
    return std::move(reading.sections);
}

} // namespace ini
