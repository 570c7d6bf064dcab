#include "host/documents/catalogue.h"

#include "host/documents/cataloguereader.h"
#include "host/storage/commentedjson.h"
#include "host/storage/storageerror.h"

#include <QFile>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

CatalogueError::~CatalogueError() = default;

namespace {

QJsonValue parsed(const QByteArray &contents, const QString &fileName)
{
    try {
        return commentedjson::parse(contents);
    } catch (const commentedjson::Error &error) {
        throw CatalogueError(tr::Tr(u"catalogueSyntax"_s, u"%1: %2; исправьте строку"_s)
                                 .arg(error.placeIn(fileName))
                                 .arg(error.tr()));
    }
}

bool startsWithAny(const QString &scanned, const QStringList &prefixes)
{
    return std::any_of(prefixes.cbegin(), prefixes.cend(),
        [&scanned](const QString &prefix) { return scanned.startsWith(prefix); });
}

} // namespace

Catalogue::Catalogue(QList<Article> articles, ScanRules scanRules, TillPlace place)
    : m_articles(std::move(articles))
    , m_scanRules(std::move(scanRules))
    , m_place(std::move(place))
{
    for (qsizetype i = 0; i < m_articles.size(); ++i) {
        m_byCode.insert(m_articles.at(i).code, i);
        for (const QString &barcode : m_articles.at(i).barcodes)
            m_byBarcode.insert(barcode, i);
    }
}

Catalogue Catalogue::load(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw CatalogueError(tr::Tr(
            u"catalogueUnreadable"_s, u"%1: не читается: %2; проверьте настройку Till:catalogue"_s)
                                 .arg(fileName)
                                 .arg(file.errorString()));
    return parse(file.readAll(), fileName);
}

Catalogue Catalogue::parse(const QByteArray &contents, const QString &fileName)
{
    try {
        return cataloguereader::read(JsonField(parsed(contents, fileName)));
    } catch (const StorageError &error) {
        throw CatalogueError(tr::Tr(u"catalogueWrong"_s, u"%1: %2; исправьте значение"_s)
                                 .arg(fileName)
                                 .arg(error.tr()));
    }
}

const Article *Catalogue::at(const QHash<QString, qsizetype> &index, const QString &key) const
{
    const auto found = index.constFind(key);
    return found == index.constEnd() ? nullptr : &m_articles.at(*found);
}

const Article *Catalogue::byCode(const QString &code) const
{
    return at(m_byCode, code);
}

const Article *Catalogue::byBarcode(const QString &barcode) const
{
    return at(m_byBarcode, barcode);
}

bool Catalogue::isCard(const QString &scanned) const
{
    return startsWithAny(scanned, m_scanRules.cardPrefixes);
}

bool Catalogue::isCoupon(const QString &scanned) const
{
    return startsWithAny(scanned, m_scanRules.couponPrefixes);
}
