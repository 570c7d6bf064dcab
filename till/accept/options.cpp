#include "till/accept/options.h"

#include "till/core/cannotdo.h"

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

constexpr double usualPrice = 100.0;

Article articleOf(const QString &word)
{
    const qsizetype sign = word.lastIndexOf(u'=');
    if (sign < 0)
        return {word, usualPrice};
    bool isNumber = false;
    const double price = word.mid(sign + 1).toDouble(&isNumber);
    if (!isNumber || !(price > 0) || sign == 0)
        throw CannotDo(tr::Tr(u"acceptArticle"_s, u"«%1» — не артикул с ценой"_s).arg(word),
            {u"acceptArticleRemedy"_s, u"укажите КОД или КОД=ЦЕНА, например 1001=45.90"_s});
    return {word.left(sign), price};
}

} // namespace

QList<Article> articlesOf(const QStringList &words)
{
    if (words.isEmpty())
        return {{u"1001"_s, 45.90}, {u"1004"_s, 399.00}, {u"1003"_s, 649.00}};
    QList<Article> articles;
    for (const QString &word : words)
        articles.append(articleOf(word));
    return articles;
}

} // namespace till::accept
