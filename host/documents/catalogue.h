#pragma once

#include "host/documents/tmc.h"
#include "host/export.h"
#include "host/framework/spokenerror.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

/// What the shop sells, one article. A record of values.
struct Article
{
    QString code;
    QStringList barcodes;
    QString name; ///< the code where the catalogue gives none
    double price = 0.0; ///< in the till's currency, for one unit
    TmcUnit unit; ///< pieces where the catalogue gives none
    double minRetailPrice = 0.0; ///< 0: discounts may lead to any price
    QString extendedOptions; ///< separated by commas
    QSharedPointer<Tmc> tmc; ///< the goods record with the index prices; never null
};

/// By what a scan is told apart. A record of values.
struct ScanRules
{
    QStringList cardPrefixes;
    QStringList couponPrefixes;
};

/// Which till this is. A record of values.
struct TillPlace
{
    QString shop = QStringLiteral("1");
    QString number = QStringLiteral("1");
    int firstCheque = 1; ///< number of the first document of an empty state folder
};

/// A catalogue that cannot be used. It names the file and then either line and column of a
/// syntax error or the JSON pointer of the value and what was expected there.
class POSHOST_EXPORT CatalogueError : public SpokenError
{
public:
    using SpokenError::SpokenError;
    ~CatalogueError() override;
};

/// The articles, the rules of scanning and the till's place, as people write them down in a JSON
/// file (comments allowed).
///
/// Its articles and rules never change once read. A value type; the default one knows no article
/// and no prefix.
class POSHOST_EXPORT Catalogue
{
public:
    Catalogue() = default;
    /// Codes and barcodes are expected to be unique; the reader sees to that.
    Catalogue(QList<Article> articles, ScanRules scanRules, TillPlace place);

    /// @throws CatalogueError when the file cannot be read or is not as it should be.
    [[nodiscard]] static Catalogue load(const QString &fileName);
    /// The same from the contents; `fileName` only stands in messages.
    [[nodiscard]] static Catalogue parse(const QByteArray &contents, const QString &fileName);

    /// In the order of the file.
    [[nodiscard]] const QList<Article> &articles() const { return m_articles; }
    /// Null when there is no such article; otherwise valid as long as the catalogue.
    [[nodiscard]] const Article *byCode(const QString &code) const;
    [[nodiscard]] const Article *byBarcode(const QString &barcode) const;

    /// True when scanned data begins as cards or coupons do.
    [[nodiscard]] bool isCard(const QString &scanned) const;
    [[nodiscard]] bool isCoupon(const QString &scanned) const;
    [[nodiscard]] const TillPlace &place() const { return m_place; }
    void setPlace(const TillPlace &place) { m_place = place; }

private:
    [[nodiscard]] const Article *at(
        const QHash<QString, qsizetype> &index, const QString &key) const;

    QList<Article> m_articles;
    QHash<QString, qsizetype> m_byCode;
    QHash<QString, qsizetype> m_byBarcode;
    ScanRules m_scanRules;
    TillPlace m_place;
};
