#include "host/documents/cataloguereader.h"

#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace cataloguereader {

namespace {

QString textOf(const JsonField &parent, const QString &name, const QString &usual)
{
    const auto field = parent.find(name);
    return field ? field->text() : usual;
}

QStringList textsOf(const JsonField &parent, const QString &name)
{
    QStringList texts;
    if (const auto field = parent.find(name))
        for (const JsonField &item : field->items())
            texts.append(item.text());
    return texts;
}

double priceOf(const JsonField &field)
{
    if (!field.value().isDouble() || field.value().toDouble() < 0.0)
        field.fail({u"jsonPrice"_s, u"цена, число от 0"_s});
    return field.value().toDouble();
}

TmcUnit readUnit(const JsonField &article)
{
    const QString pieces = u"шт"_s;
    const auto unit = article.find(u"unit"_s);
    if (!unit)
        return TmcUnit(pieces, false);
    unit->allowOnly({u"name"_s, u"fractional"_s});
    const auto fractional = unit->find(u"fractional"_s);
    return TmcUnit(textOf(*unit, u"name"_s, pieces), fractional && fractional->flag());
}

QSharedPointer<Tmc> readIndexPrices(const JsonField &article)
{
    QList<QSharedPointer<TmcIndexPrice>> prices;
    if (const auto field = article.find(u"indexPrices"_s))
        for (const JsonField &item : field->items()) {
            item.allowOnly({u"code"_s, u"price"_s});
            prices.append(QSharedPointer<TmcIndexPrice>::create(
                item.at(u"code"_s).integer(), priceOf(item.at(u"price"_s))));
        }
    return QSharedPointer<Tmc>::create(prices);
}

Article readArticle(const JsonField &field)
{
    field.allowOnly({u"code"_s, u"barcodes"_s, u"name"_s, u"price"_s, u"unit"_s,
        u"minRetailPrice"_s, u"extendedOptions"_s, u"indexPrices"_s});
    Article article;
    article.code = field.at(u"code"_s).text();
    article.barcodes = textsOf(field, u"barcodes"_s);
    article.name = textOf(field, u"name"_s, article.code);
    article.price = priceOf(field.at(u"price"_s));
    article.unit = readUnit(field);
    if (const auto price = field.find(u"minRetailPrice"_s))
        article.minRetailPrice = priceOf(*price);
    article.extendedOptions = textOf(field, u"extendedOptions"_s, {});
    article.tmc = readIndexPrices(field);
    return article;
}

// A code that two articles have would sell one of them for the price of the other.
void takeOnce(QSet<QString> &taken, const QString &key, const JsonField &article)
{
    if (key.isEmpty() || taken.contains(key))
        article.fail(
            tr::Tr(u"jsonOwnCodes"_s, u"собственный код и собственные штрихкоды, «%1» уже занят"_s)
                .arg(key));
    taken.insert(key);
}

QList<Article> readArticles(const JsonField &whole)
{
    QList<Article> articles;
    QSet<QString> codes;
    QSet<QString> barcodes;
    if (const auto field = whole.find(u"articles"_s))
        for (const JsonField &item : field->items()) {
            articles.append(readArticle(item));
            takeOnce(codes, articles.last().code, item);
            for (const QString &barcode : std::as_const(articles.last().barcodes))
                takeOnce(barcodes, barcode, item);
        }
    return articles;
}

ScanRules readScanRules(const JsonField &whole)
{
    const auto field = whole.find(u"scan"_s);
    if (!field)
        return {};
    field->allowOnly({u"cardPrefixes"_s, u"couponPrefixes"_s});
    return {textsOf(*field, u"cardPrefixes"_s), textsOf(*field, u"couponPrefixes"_s)};
}

TillPlace readPlace(const JsonField &whole)
{
    TillPlace place;
    const auto field = whole.find(u"till"_s);
    if (!field)
        return place;
    field->allowOnly({u"shop"_s, u"number"_s, u"firstCheque"_s});
    place.shop = textOf(*field, u"shop"_s, place.shop);
    place.number = textOf(*field, u"number"_s, place.number);
    if (const auto first = field->find(u"firstCheque"_s))
        place.firstCheque = first->integer();
    if (place.firstCheque < 1)
        field->at(u"firstCheque"_s).fail({u"jsonNumberFromOne"_s, u"число от 1"_s});
    return place;
}

} // namespace

Catalogue read(const JsonField &whole)
{
    whole.allowOnly({u"articles"_s, u"scan"_s, u"till"_s});
    return Catalogue(readArticles(whole), readScanRules(whole), readPlace(whole));
}

} // namespace cataloguereader
