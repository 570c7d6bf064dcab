#include "emulator/books/cards.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

QString toJson(const QMap<QString, QString> &attributes)
{
    QJsonObject object;
    for (auto it = attributes.begin(); it != attributes.end(); ++it)
        object.insert(it.key(), it.value());
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QMap<QString, QString> fromJson(const QString &json)
{
    QMap<QString, QString> attributes;
    const QJsonObject object = QJsonDocument::fromJson(json.toUtf8()).object();
    for (auto it = object.begin(); it != object.end(); ++it)
        attributes.insert(it.key(), it.value().toString());
    return attributes;
}

QString columns()
{
    return u"number, status, type, holder, email, cheques_by_email, attributes, technical"_s;
}

Card readCard(const QSqlQuery &row)
{
    Card card;
    int column = 0;
    card.number = row.value(column++).toString();
    card.status = row.value(column++).toInt();
    card.type = row.value(column++).toString();
    card.holder = row.value(column++).toString();
    card.email = row.value(column++).toString();
    card.chequesByEmail = row.value(column++).toBool();
    card.attributes = fromJson(row.value(column++).toString());
    card.technical = row.value(column++).toBool();
    return card;
}

} // namespace

std::optional<Card> Cards::find(const QString &number) const
{
    return m_database.first(
        u"SELECT %1 FROM cards WHERE number = ?"_s.arg(columns()), {number}, readCard);
}

std::vector<Card> Cards::all() const
{
    return m_database.all(u"SELECT %1 FROM cards ORDER BY number"_s.arg(columns()), {}, readCard);
}

void Cards::put(const Card &card)
{
    m_database.change(
        u"INSERT INTO cards (%1) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"
        " ON CONFLICT (number) DO UPDATE SET status = excluded.status, type = excluded.type,"
        " holder = excluded.holder, email = excluded.email,"
        " cheques_by_email = excluded.cheques_by_email, attributes = excluded.attributes,"
        " technical = excluded.technical"_s.arg(columns()),
        {card.number, card.status, card.type, card.holder, card.email, card.chequesByEmail,
            toJson(card.attributes), card.technical});
}

} // namespace emulator
