#include "host/config/inifile.h"

#include "host/config/configerror.h"
#include "host/config/valuereaders.h"

namespace ini {

using namespace Qt::Literals::StringLiterals;

namespace {

class Parser
{
public:
    explicit Parser(const QString &fileName)
        : m_fileName(fileName)
    { }

    void readLine(const QByteArray &bytes)
    {
        ++m_line;
        m_text = decoded(bytes);
        const QString trimmed = m_text.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(u'#') || trimmed.startsWith(u';'))
            return;
        if (trimmed.startsWith(u'['))
            readSection();
        else
            readSetting();
    }

    [[nodiscard]] QList<Section> takeSections() { return std::move(m_sections); }

private:
    [[noreturn]] void fail(qsizetype offset, const tr::Tr &text) const
    {
        throw ConfigError(tr::Tr(tr::undefined, u"%1:%2:%3: %4"_s)
                              .arg(m_fileName)
                              .arg(QString::number(m_line))
                              .arg(QString::number(offset + 1))
                              .arg(text));
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
        m_sections.append({name, {}});
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
        if (m_sections.isEmpty())
            fail(start,
                {u"configSectionMissing"_s,
                    u"настройка перед первой секцией; поставьте над ней «[секция]»"_s});
        m_sections.last().settings.append({key, m_text.mid(equals + 1).trimmed(), m_line,
            static_cast<int>(firstNonBlank(equals + 1) + 1)});
    }

    [[nodiscard]] qsizetype firstNonBlank(qsizetype from) const
    {
        while (from < m_text.size() && m_text.at(from).isSpace())
            ++from;
        return from;
    }

    QString m_fileName;
    int m_line = 0;
    QString m_text;
    QList<Section> m_sections;
};

} // namespace

QList<Section> parse(const QByteArray &bytes, const QString &fileName)
{
    Parser parser(fileName);
    for (const QByteArray &line : bytes.split('\n'))
        parser.readLine(line);
    return parser.takeSections();
}

} // namespace ini
