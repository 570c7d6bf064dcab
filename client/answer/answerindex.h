#pragma once

#include <QDomElement>
#include <QString>

#include <vector>

namespace korvelLoyaltyOnline {

/// What the readers of a cheque answer ask for, each the element of that name.
enum class Field : quint8
{
    AvailablePayment,
    CardNormalActiveBalance,
    ChargedStatusBonus,
    ActiveChargedBonus,
    WriteoffBonus,
    TransactionId,
    Summ,
    Discount,
    SummDiscounted,
    Processed,
    VerificationCode,
    CashierMessage,
    ChequeMessage,
    PositionNumber,
    Number,
    EmissionId,
    ApplicabilityCode,
    // These hold the others.
    ChequeResponse,
    Item,
    Coupon,
    InstantCoupon,
    ExtendedAttribute
};

/// The elements of an answer, or of a part of it, that its readers ask for, found in one pass.
///
/// Answers what `xmlutils::getValueByTag` and `elementsByTagName` answer for the same scope, at the
/// cost of one look through it instead of one for each question: an answer of a thousand positions
/// is asked seven thousand of them. Made for one reading; it does not follow what is changed in the
/// document afterwards.
class AnswerIndex
{
public:
    /// Elements inside one element or the whole scope, it itself not among them.
    struct Span
    {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    /// @param scope a document or an element; what is inside it is found, at any depth.
    explicit AnswerIndex(const QDomNode &scope);

    [[nodiscard]] Span whole() const { return {0, m_fields.size()}; }
    /// The insides of each such element in the span, in document order.
    [[nodiscard]] std::vector<Span> insidesOf(Field field, Span span) const;
    /// Text of the first such element in the span; null when there is none, and not null otherwise.
    /// Only for fields that hold no others.
    [[nodiscard]] QString text(Field field, Span span) const;
    /// The same text as a number, 0 for what is none.
    [[nodiscard]] double number(Field field, Span span) const;
    /// The elements "ExtendedAttribute" in the span, in document order.
    [[nodiscard]] std::vector<QDomElement> attributes(Span span) const;
    /// Likewise the direct children of the scope's first "ChequeResponse".
    [[nodiscard]] std::vector<QDomElement> chequeAttributes() const;

private:
    struct Finding
    {
        QString text; ///< null for an element that holds fields
        std::size_t end = 0; ///< of its insides, which begin behind it
    };
    struct Attribute
    {
        std::size_t place = 0;
        QDomElement element;
    };

    void visit(const QDomNode &parent);
    void visitElement(const QDomElement &element);
    void add(Field field, const QDomElement &element, QString text);
    [[nodiscard]] std::size_t next(Field field, std::size_t from, std::size_t end) const;

    // One entry for each element that was found, in document order. The fields stand apart so that
    // the search for one passes little memory.
    std::vector<Field> m_fields;
    std::vector<Finding> m_findings;
    std::vector<Attribute> m_attributes; ///< of these entries those that are asked for as elements
    QDomElement m_cheque; ///< the first "ChequeResponse"; null when there is none
};

} // namespace korvelLoyaltyOnline
