#pragma once

#include "host/export.h"

#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QString>

#include <utility>

/// A further price of an article, known by its code. A QObject so that masks can read it.
class POSHOST_EXPORT TmcIndexPrice : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int code READ getCode)
    Q_PROPERTY(double price READ getPrice)

public:
    TmcIndexPrice(int code, double price);

    [[nodiscard]] int getCode() const { return m_code; }
    /// In the till's currency, for one unit.
    [[nodiscard]] double getPrice() const { return m_price; }

private:
    int m_code;
    double m_price;
};

/// The unit in which an article is sold.
class POSHOST_EXPORT TmcUnit
{
public:
    TmcUnit() = default;
    TmcUnit(QString name, bool fractional)
        : m_name(std::move(name))
        , m_fractional(fractional)
    { }

    [[nodiscard]] QString getName() const { return m_name; }
    /// True for goods that are weighed or measured.
    [[nodiscard]] bool isFractional() const { return m_fractional; }

private:
    QString m_name;
    bool m_fractional = false;
};

/// The goods record of an article, as the catalogue has it.
class POSHOST_EXPORT Tmc
{
public:
    Tmc() = default;
    explicit Tmc(const QList<QSharedPointer<TmcIndexPrice>> &indexPrices)
        : m_indexPrices(indexPrices)
    { }

    /// In the catalogue's order.
    [[nodiscard]] QList<QSharedPointer<TmcIndexPrice>> getIndexPrices() const
    {
        return m_indexPrices;
    }
    [[nodiscard]] bool hasIndexPrice(int code) const;
    /// The index price of that code; null when there is none.
    [[nodiscard]] QSharedPointer<TmcIndexPrice> getIndexPrice(int code) const;

private:
    QList<QSharedPointer<TmcIndexPrice>> m_indexPrices;
};
