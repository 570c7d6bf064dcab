#include "client/answer/answerindex.h"

#include "client/answer/decimal.h"
#include "client/names.h"
#include "common/names.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace korvelLoyaltyOnline {

namespace {

struct Name
{
    QString text;
    Field field;
};

const std::array names = {
    Name{wire::positionNumber, Field::PositionNumber},
    Name{korvel::result::availablePayment, Field::AvailablePayment},
    Name{korvel::result::cardNormalActiveBalance, Field::CardNormalActiveBalance},
    Name{korvel::result::chargedStatusBonus, Field::ChargedStatusBonus},
    Name{korvel::result::activeChargedBonus, Field::ActiveChargedBonus},
    Name{korvel::result::writeoffBonus, Field::WriteoffBonus},
    Name{korvel::result::transactionId, Field::TransactionId},
    Name{korvel::result::summ, Field::Summ},
    Name{korvel::result::discount, Field::Discount},
    Name{korvel::result::summDiscounted, Field::SummDiscounted},
    Name{korvel::result::processed, Field::Processed},
    Name{korvel::result::verificationCode, Field::VerificationCode},
    Name{korvel::result::cashierMessage, Field::CashierMessage},
    Name{korvel::result::chequeMessage, Field::ChequeMessage},
    Name{wire::number, Field::Number},
    Name{wire::emissionId, Field::EmissionId},
    Name{wire::applicabilityCode, Field::ApplicabilityCode},
    Name{wire::chequeResponse, Field::ChequeResponse},
    Name{wire::item, Field::Item},
    Name{wire::coupon, Field::Coupon},
    Name{wire::instantCoupon, Field::InstantCoupon},
    Name{wire::extendedAttribute, Field::ExtendedAttribute},
};

/// Each length has a few names only, which are compared faster than a hash is computed.
using NamesByLength = std::vector<std::vector<Name>>;

NamesByLength namesByLength()
{
    NamesByLength result;
    for (const Name &name : names) {
        const auto length = static_cast<std::size_t>(name.text.size());
        result.resize(std::max(result.size(), length + 1));
        result[length].push_back(name);
    }
    return result;
}

std::optional<Field> fieldNamed(const QString &text)
{
    static const NamesByLength candidates = namesByLength();
    const auto length = static_cast<std::size_t>(text.size());
    if (length >= candidates.size())
        return std::nullopt;
    for (const Name &name : candidates[length])
        if (name.text.front() == text.front() && name.text == text)
            return name.field;
    return std::nullopt;
}

bool holdsOthers(Field field)
{
    return field >= Field::ChequeResponse;
}

/// The text of an element that holds one text and nothing else, as nearly all do: shared, not
/// copied. Null for other elements, and for a text that is null.
QString onlyText(const QDomNode &firstChild)
{
    return firstChild.isText() && firstChild.nextSibling().isNull() ? firstChild.nodeValue()
                                                                    : QString();
}

} // namespace

AnswerIndex::AnswerIndex(const QDomNode &scope)
{
    visit(scope);
}

void AnswerIndex::visit(const QDomNode &parent)
{
    for (QDomNode child = parent.firstChild(); !child.isNull(); child = child.nextSibling()) {
        const QDomElement element = child.toElement();
        if (element.isNull())
            visit(child);
        else
            visitElement(element);
    }
}

void AnswerIndex::visitElement(const QDomElement &element)
{
    QString text = onlyText(element.firstChild());
    const bool isLeaf = !text.isNull();
    const std::optional<Field> field = fieldNamed(element.tagName());
    const std::size_t place = m_fields.size();
    if (field)
        add(*field, element, std::move(text));
    if (!isLeaf)
        visit(element);
    if (field)
        m_findings[place].end = m_fields.size();
}

void AnswerIndex::add(Field field, const QDomElement &element, QString text)
{
    if (field == Field::ExtendedAttribute)
        m_attributes.push_back({m_fields.size(), element});
    if (field == Field::ChequeResponse && m_cheque.isNull())
        m_cheque = element;
    if (text.isNull() && !holdsOthers(field))
        text = element.text();
    m_fields.push_back(field);
    m_findings.push_back({std::move(text), 0});
}

std::size_t AnswerIndex::next(Field field, std::size_t from, std::size_t end) const
{
    const Field *fields = m_fields.data();
    return static_cast<std::size_t>(std::find(fields + from, fields + end, field) - fields);
}

std::vector<AnswerIndex::Span> AnswerIndex::insidesOf(Field field, Span span) const
{
    std::vector<Span> insides;
    for (std::size_t place = next(field, span.begin, span.end); place != span.end;
         place = next(field, place + 1, span.end))
        insides.push_back({place + 1, m_findings[place].end});
    return insides;
}

QString AnswerIndex::text(Field field, Span span) const
{
    const std::size_t place = next(field, span.begin, span.end);
    return place == span.end ? QString() : m_findings[place].text;
}

double AnswerIndex::number(Field field, Span span) const
{
    const std::size_t place = next(field, span.begin, span.end);
    return place == span.end ? 0.0 : decimal(m_findings[place].text);
}

std::vector<QDomElement> AnswerIndex::attributes(Span span) const
{
    const auto isBefore = [](const Attribute &one, std::size_t place) { return one.place < place; };
    std::vector<QDomElement> elements;
    for (auto found
         = std::lower_bound(m_attributes.cbegin(), m_attributes.cend(), span.begin, isBefore);
         found != m_attributes.cend() && found->place < span.end; ++found)
        elements.push_back(found->element);
    return elements;
}

std::vector<QDomElement> AnswerIndex::chequeAttributes() const
{
    std::vector<QDomElement> elements = attributes(whole());
    std::erase_if(
        elements, [this](const QDomElement &element) { return element.parentNode() != m_cheque; });
    return elements;
}

} // namespace korvelLoyaltyOnline
