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
    [[noreturn]] void fail(qsizetype offset, const QString &text) const
    {
        throw ConfigError(u"%1:%2:%3: %4"_s.arg(
            m_fileName, QString::number(m_line), QString::number(offset + 1), text));
    }

    [[nodiscard]] QString decoded(const QByteArray &bytes) const
    {
        const std::optional<QString> text = config::decoded(bytes);
        if (!text)
            fail(0, u"the line is not in UTF-8; save the file as UTF-8"_s);
        return *text;
    }

    void readSection()
    {
        const qsizetype open = m_text.indexOf(u'[');
        const qsizetype close = m_text.indexOf(u']', open);
        if (close < 0)
            fail(open, u"\"]\" is missing; close the section's name with it"_s);
        const QString rest = m_text.mid(close + 1);
        if (!rest.trimmed().isEmpty())
            fail(close + 1, u"text behind \"]\"; put comments and settings on their own lines"_s);
        const QString name = m_text.mid(open + 1, close - open - 1).trimmed();
        if (name.isEmpty())
            fail(open, u"the section has no name; write one between \"[\" and \"]\""_s);
        if (name.contains(u':'))
            fail(m_text.indexOf(u':'), u"\":\" in a section's name; choose a name without it"_s);
        m_sections.append({name, {}});
    }

    void readSetting()
    {
        const qsizetype start = firstNonBlank(0);
        const qsizetype equals = m_text.indexOf(u'=');
        if (equals < 0)
            fail(start, u"\"=\" is missing; write \"key = value\", or \"#\" before a comment"_s);
        const QString key = m_text.left(equals).trimmed();
        if (key.isEmpty())
            fail(start, u"the setting has no key; write one before \"=\""_s);
        if (m_sections.isEmpty())
            fail(start, u"a setting before the first section; put a \"[section]\" above it"_s);
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
