#include "till/script/words.h"

#include "till/core/cannotdo.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

constexpr QChar backslash = u'\\';
constexpr QChar singleQuote = u'\'';
constexpr QChar doubleQuote = u'"';
constexpr QChar commentMark = u'#';

class WordSplitter
{
public:
    explicit WordSplitter(QStringView line)
        : m_line(line)
    { }

    QStringList words()
    {
        while (skipBlanks())
            m_words.append(word());
        return m_words;
    }

private:
    [[nodiscard]] bool atEnd() const { return m_at == m_line.size(); }
    [[nodiscard]] QChar here() const { return m_line[m_at]; }

    // False at the end of the line and where a comment begins.
    bool skipBlanks()
    {
        while (!atEnd() && here().isSpace())
            ++m_at;
        return !atEnd() && here() != commentMark;
    }

    QString word()
    {
        QString text;
        while (!atEnd() && !here().isSpace()) {
            const QChar character = m_line[m_at++];
            if (character == singleQuote)
                text += literal();
            else if (character == doubleQuote)
                text += quoted();
            else if (character == backslash)
                text += escaped();
            else
                text += character;
        }
        return text;
    }

    QString literal()
    {
        const qsizetype end = m_line.indexOf(singleQuote, m_at);
        if (end < 0)
            throw CannotDo({u"scriptOpenQuote"_s, u"не закрыта одинарная кавычка"_s},
                {u"scriptOpenQuoteRemedy"_s, u"поставьте ' в конце текста"_s});
        QString text = m_line.sliced(m_at, end - m_at).toString();
        m_at = end + 1;
        return text;
    }

    QString quoted()
    {
        QString text;
        while (!atEnd() && here() != doubleQuote) {
            if (here() == backslash && escapesInQuotes())
                ++m_at;
            text += m_line[m_at++];
        }
        if (atEnd())
            throw CannotDo({u"scriptOpenDoubleQuote"_s, u"не закрыта двойная кавычка"_s},
                {u"scriptOpenDoubleQuoteRemedy"_s, u"поставьте \" в конце текста"_s});
        ++m_at;
        return text;
    }

    [[nodiscard]] bool escapesInQuotes() const
    {
        return m_at + 1 < m_line.size() && QStringView(u"\"\\$`").contains(m_line[m_at + 1]);
    }

    QChar escaped()
    {
        if (atEnd())
            throw CannotDo(
                {u"scriptEndsInBackslash"_s, u"строка кончается обратной косой чертой"_s},
                {u"scriptEndsInBackslashRemedy"_s, u"напишите \\\\ вместо одной черты"_s});
        return m_line[m_at++];
    }

    QStringView m_line;
    qsizetype m_at = 0;
    QStringList m_words;
};

} // namespace

QStringList splitWords(QStringView line)
{
    return WordSplitter(line).words();
}

} // namespace till
