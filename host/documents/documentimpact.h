#pragma once

#include "host/documents/documentcardrecord.h"
#include "host/export.h"

#include <QDateTime>
#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

namespace EImpactSource {
/// Who grants an impact.
enum source : int // NOLINT(readability-identifier-naming): the name that hosts give it
{
    LoyaltySystem = 2
};
} // namespace EImpactSource

namespace EDiscountObject {
/// What an impact is granted on.
enum type : int // NOLINT(readability-identifier-naming)
{
    Position = 1
};
} // namespace EDiscountObject

namespace EDiscountMode {
/// How an impact came about.
enum type : int // NOLINT(readability-identifier-naming)
{
    Automatic = 2
};
} // namespace EDiscountMode

namespace EDiscountType {
/// How an impact is measured.
enum type : int // NOLINT(readability-identifier-naming)
{
    Percentage = 1,
    Points = 5
};
} // namespace EDiscountType

/// What an impact on a document consists of. A record of values.
class POSHOST_EXPORT DocumentImpactDetail
{
public:
    [[nodiscard]] QDateTime getDateTime() const { return m_dateTime; }
    void setDateTime(const QDateTime &dateTime) { m_dateTime = dateTime; }
    [[nodiscard]] EImpactSource::source getImpactSource() const { return m_source; }
    void setImpactSource(EImpactSource::source source) { m_source = source; }
    [[nodiscard]] EDiscountObject::type getDiscountObject() const { return m_object; }
    void setDiscountObject(EDiscountObject::type object) { m_object = object; }
    /// Number of the position; one that the document does not have changes no sum.
    [[nodiscard]] int getPosition() const { return m_position; }
    void setPosition(int position) { m_position = position; }
    [[nodiscard]] EDiscountMode::type getDiscountMode() const { return m_mode; }
    void setDiscountMode(EDiscountMode::type mode) { m_mode = mode; }
    [[nodiscard]] EDiscountType::type getDiscountType() const { return m_type; }
    void setDiscountType(EDiscountType::type type) { m_type = type; }
    /// Per cent or points, by type.
    [[nodiscard]] QVariant getDiscountRate() const { return m_rate; }
    void setDiscountRate(const QVariant &rate) { m_rate = rate; }
    /// In money.
    [[nodiscard]] double getDiscountSum() const { return m_sum; }
    void setDiscountSum(double sum) { m_sum = sum; }
    [[nodiscard]] QString getDiscountName() const { return m_name; }
    void setDiscountName(const QString &name) { m_name = name; }
    [[nodiscard]] bool isMinPriceIgnored() const { return m_minPriceIgnored; }
    void setMinPriceIgnored(bool ignored) { m_minPriceIgnored = ignored; }
    /// Null when no card is named.
    [[nodiscard]] QSharedPointer<DocumentCardRecord> getCardRecord() const { return m_card; }
    void setCardRecord(const QSharedPointer<DocumentCardRecord> &card) { m_card = card; }
    /// The card record's internal code; invalid when no card is named.
    [[nodiscard]] QVariant getCardIndex() const { return m_cardIndex; }
    void setCardIndex(const QVariant &index) { m_cardIndex = index; }

private:
    QDateTime m_dateTime;
    EImpactSource::source m_source = EImpactSource::LoyaltySystem;
    EDiscountObject::type m_object = EDiscountObject::Position;
    int m_position = 0;
    EDiscountMode::type m_mode = EDiscountMode::Automatic;
    EDiscountType::type m_type = EDiscountType::Percentage;
    QVariant m_rate;
    double m_sum = 0.0;
    QString m_name;
    bool m_minPriceIgnored = false;
    QSharedPointer<DocumentCardRecord> m_card;
    QVariant m_cardIndex;
};

/// The part of an impact that falls on one position.
struct DocumentImpactShare
{
    int position = 0;
    double sum = 0.0;
};

/// An effect of a loyalty system on a document.
class POSHOST_EXPORT DocumentImpact
{
public:
    /// @param detail never null; shared.
    explicit DocumentImpact(const QSharedPointer<DocumentImpactDetail> &detail);
    virtual ~DocumentImpact();
    Q_DISABLE_COPY_MOVE(DocumentImpact)

    [[nodiscard]] QSharedPointer<DocumentImpactDetail> getDetail() const { return m_detail; }
    void addDetailForPosition(int position, double sum) { m_shares.append({position, sum}); }
    [[nodiscard]] QList<DocumentImpactShare> getDetailsForPositions() const { return m_shares; }

private:
    QSharedPointer<DocumentImpactDetail> m_detail;
    QList<DocumentImpactShare> m_shares;
};

/// A discount.
class POSHOST_EXPORT DiscountImpact : public DocumentImpact
{
public:
    using DocumentImpact::DocumentImpact;
    ~DiscountImpact() override;
};

/// A payment with points.
class POSHOST_EXPORT BonusImpact : public DocumentImpact
{
public:
    using DocumentImpact::DocumentImpact;
    ~BonusImpact() override;
};
