#pragma once

#include "host/documents/tmc.h"
#include "host/export.h"

#include <QObject>
#include <QSharedPointer>
#include <QString>

/// One position of a document. A QObject so that masks can read its properties.
///
/// Money is in the till's currency; sums are rounded to kopecks by `recalculate`.
class POSHOST_EXPORT GoodsItem : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int number READ getPosnum)
    Q_PROPERTY(QString code READ getCode)
    Q_PROPERTY(QString barcode READ getBarcode)
    Q_PROPERTY(QString name READ getName)
    Q_PROPERTY(double price READ getPrice)
    Q_PROPERTY(double quantity READ getBquant)
    Q_PROPERTY(double sum READ getSumn)
    Q_PROPERTY(double sumDiscounted READ getSumb)
    Q_PROPERTY(double minRetailPrice READ getMinRetailPrice)
    Q_PROPERTY(QString extendedOptions READ getExtendedOptions)
    Q_PROPERTY(QString unit READ getUnitName)

public:
    GoodsItem() = default;

    /// Number of the position within its document, from 1, never given twice.
    [[nodiscard]] int getPosnum() const { return m_posnum; }
    void setPosnum(int posnum) { m_posnum = posnum; }
    /// Code of the article.
    [[nodiscard]] QString getCode() const { return m_code; }
    void setCode(const QString &code) { m_code = code; }
    [[nodiscard]] QString getBarcode() const { return m_barcode; }
    void setBarcode(const QString &barcode) { m_barcode = barcode; }
    [[nodiscard]] QString getName() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    [[nodiscard]] double getPrice() const { return m_price; }
    void setPrice(double price) { m_price = price; }
    /// Quantity in units of the article.
    [[nodiscard]] double getBquant() const { return m_quantity; }
    void setBquant(double quantity) { m_quantity = quantity; }
    /// Sum before discounts.
    [[nodiscard]] double getSumn() const { return m_sumBefore; }
    void setSumn(double sum) { m_sumBefore = sum; }
    /// Sum after discounts and points.
    [[nodiscard]] double getSumb() const { return m_sumAfter; }
    void setSumb(double sum) { m_sumAfter = sum; }
    /// Free options of the position, separated by commas.
    [[nodiscard]] QString getExtendedOptions() const { return m_extendedOptions; }
    void setExtendedOptions(const QString &options) { m_extendedOptions = options; }
    /// The price for one unit below which discounts may not lead; 0 when there is none.
    [[nodiscard]] double getMinRetailPrice() const { return m_minRetailPrice; }
    void setMinRetailPrice(double price) { m_minRetailPrice = price; }
    /// The catalogue's record of the article; null when there is none.
    [[nodiscard]] QSharedPointer<Tmc> getTmc() const { return m_tmc; }
    void setTmc(const QSharedPointer<Tmc> &tmc) { m_tmc = tmc; }
    [[nodiscard]] TmcUnit getTmcUnit() const { return m_unit; }
    void setTmcUnit(const TmcUnit &unit) { m_unit = unit; }
    [[nodiscard]] QString getUnitName() const { return m_unit.getName(); }
    /// Whether the till may merge this position with another one of the same article.
    [[nodiscard]] bool isUniteAvailable() const { return m_uniteAvailable; }
    void setUniteAvailableProp(bool available) { m_uniteAvailable = available; }
    /// Whether `DiscountLogic` may recompute the sums of this position.
    [[nodiscard]] bool isRecalcable() const { return m_recalcable; }
    void setRecalcable(bool recalcable) { m_recalcable = recalcable; }

    /// Discount in money that was granted for `getAppliedQuantity()` units; 0 when none was.
    [[nodiscard]] double getAppliedDiscount() const { return m_appliedDiscount; }
    void setAppliedDiscount(double sum) { m_appliedDiscount = sum; }
    /// Points that paid for `getAppliedQuantity()` units of this position.
    [[nodiscard]] double getAppliedPoints() const { return m_appliedPoints; }
    void setAppliedPoints(double points) { m_appliedPoints = points; }
    /// The quantity that discount and points were granted for; 0 before any was granted.
    [[nodiscard]] double getAppliedQuantity() const { return m_appliedQuantity; }
    void setAppliedQuantity(double quantity) { m_appliedQuantity = quantity; }

    /// The part of the applied discount and points that falls on the quantity of now: 1 while that
    /// is the one they were granted for, 0 before any was granted.
    [[nodiscard]] double getAppliedShare() const;
    /// Points that pay for the quantity of now, in whole kopecks: what is left of the difference of
    /// the two sums when the discount's share is taken off, so that the three always add up.
    [[nodiscard]] double getPointsPaid() const;

    /// Computes both sums: price × quantity, and that less the applied discount and points, in
    /// proportion where the quantity is not the one they were granted for.
    void recalculate();
    /// A copy with all values of this position, the same goods record included.
    [[nodiscard]] QSharedPointer<GoodsItem> copy() const;

private:
    int m_posnum = 0;
    QString m_code;
    QString m_barcode;
    QString m_name;
    double m_price = 0.0;
    double m_quantity = 0.0;
    double m_sumBefore = 0.0;
    double m_sumAfter = 0.0;
    QString m_extendedOptions;
    double m_minRetailPrice = 0.0;
    QSharedPointer<Tmc> m_tmc;
    TmcUnit m_unit;
    bool m_uniteAvailable = true;
    bool m_recalcable = false;
    double m_appliedDiscount = 0.0;
    double m_appliedPoints = 0.0;
    double m_appliedQuantity = 0.0;
};
