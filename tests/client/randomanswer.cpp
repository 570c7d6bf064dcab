#include "tests/client/randomanswer.h"

#include "tests/client/chance.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList figureNames = {u"Summ"_s, u"Discount"_s, u"SummDiscounted"_s,
    u"ActiveChargedBonus"_s, u"ChargedStatusBonus"_s, u"WriteoffBonus"_s};
const QStringList chequeNames
    = {u"AvailablePayment"_s, u"CardNormalActiveBalance"_s, u"TransactionID"_s, u"Processed"_s,
        u"VerificationCode"_s, u"CashierMessage"_s, u"ChequeMessage"_s};
const QStringList scopeNames = {u"Item"_s, u"Coupon"_s, u"InstantCoupon"_s, u"ExtendedAttribute"_s,
    u"ChequeResponse"_s, u"Deep"_s};
const QStringList partNames = {u"PositionNumber"_s, u"Number"_s, u"EmissionID"_s,
    u"ApplicabilityCode"_s, u"Key"_s, u"Value"_s};
/// Names that are nearly those that count.
const QStringList strangerNames = {u"summ"_s, u"Items"_s, u"x:Summ"_s, u"x:Item"_s, u"Coupons"_s,
    u"x:ExtendedAttribute"_s, u"PositionNumbers"_s, u"Sum"_s, u"SummDiscount"_s};
const QStringList texts = {u""_s, u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"1.50"_s, u" 7.25 "_s, u"1e3"_s,
    u"-0.005"_s, u"nan"_s, u"x"_s, u"1,5"_s, u"901"_s, u"902"_s,
    u" Спасибо \u2013\u2013 скидка 901 \u2013\u2013902"_s, u"\u2013\u2013"_s, u"a &amp; b"_s,
    u"\u2013\u2013902\u2013\u2013\u2013\u2013901 902 "_s};

class AnswerMaker
{
public:
    explicit AnswerMaker(std::mt19937 &engine)
        : m_chance(engine)
    { }

    QString answer()
    {
        const QString body = m_chance.oneIn(4) ? anything(maxDepth) : chequeResponse();
        return u"<e xmlns:x='urn:x'>" % sometimes(u"<!-- <Summ>9</Summ> -->"_s) % body
            % sometimes(anything(2)) % u"</e>";
    }

private:
    static constexpr int maxDepth = 6;
    static constexpr int mostPositions = 6;

    QString sometimes(const QString &markup) { return m_chance.oneIn(6) ? markup : QString(); }

    static QString element(const QString &name, const QString &content)
    {
        const QString start = u'<' % name;
        return content.isEmpty() ? QString(start % u"/>")
                                 : QString(start % u'>' % content % u"</" % name % u'>');
    }

    /// A text as it is, or in a form that reads the same or nearly so.
    QString written(const QString &text)
    {
        const qsizetype middle = text.contains(u'&') ? 0 : text.size() / 2;
        switch (m_chance.below(12)) {
        case 0:
            return text.left(middle) % u"<![CDATA[" % text.mid(middle) % u"]]>";
        case 1:
            return text.left(middle) % u"<!-- 5 -->" % text.mid(middle);
        case 2:
            return text.left(middle) % u"<?pi 5?>" % text.mid(middle);
        case 3:
            return text.left(middle) % element(u"Deep"_s, m_chance.from(texts)) % text.mid(middle);
        case 4:
            return text.left(middle) % element(m_chance.from(figureNames), m_chance.from(texts))
                % text.mid(middle);
        default:
            return text;
        }
    }

    QString text(const QString &name) { return element(name, written(m_chance.from(texts))); }

    /// Usually once; sometimes not at all, twice, or inside something else.
    QString field(const QString &name)
    {
        switch (m_chance.below(16)) {
        case 0:
            return {};
        case 1:
            return text(name) + text(name);
        case 2:
            return element(m_chance.from(scopeNames), text(name));
        case 3:
            return text(m_chance.from(strangerNames)) + text(name);
        case 4:
            return text(name) % u"<!-- between -->\n ";
        default:
            return text(name);
        }
    }

    QString fields(const QStringList &names)
    {
        QString content;
        for (const QString &name : names)
            content += field(name);
        return content;
    }

    QString attributes()
    {
        QString content;
        while (m_chance.oneIn(3))
            content += element(u"ExtendedAttribute"_s, fields({u"Key"_s, u"Value"_s}));
        return content;
    }

    QString coupons()
    {
        QString content;
        while (!m_chance.oneIn(3))
            content += m_chance.oneIn(2) ? element(u"Coupon"_s,
                           fields({u"Number"_s, u"EmissionID"_s, u"ApplicabilityCode"_s}))
                                         : element(u"InstantCoupon"_s, field(u"Number"_s));
        return content;
    }

    QString positions()
    {
        QString content;
        for (int left = m_chance.below(mostPositions); left > 0; --left)
            content += element(u"Item"_s,
                field(u"PositionNumber"_s) % fields(figureNames) % attributes()
                    % sometimes(anything(2)));
        return content;
    }

    QString chequeResponse()
    {
        QStringList parts = {fields(figureNames), fields(chequeNames), attributes(), coupons(),
            positions(), sometimes(anything(3))};
        if (m_chance.oneIn(3))
            m_chance.shuffle(parts);
        return element(u"ChequeResponse"_s, parts.join(QString()));
    }

    QString anything(int depth)
    {
        QString content;
        for (int left = 1 + m_chance.below(5); left > 0; --left) {
            if (depth > 0 && m_chance.oneIn(2))
                content += element(m_chance.from(scopeNames), anything(depth - 1));
            else
                content += text(m_chance.from(
                    figureNames + chequeNames + partNames + scopeNames + strangerNames));
        }
        return content;
    }

    Chance m_chance;
};

} // namespace

QString randomAnswer(std::mt19937 &engine)
{
    return AnswerMaker(engine).answer();
}
