#include "emulator/data/readrules.h"

#include "emulator/data/operations.h"
#include "emulator/rules/messages.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int activeStatus = 2;
constexpr int greatestPrefixLength = 6;

QString optionalText(const JsonValue &value, const char *name)
{
    const auto found = value.find(name);
    return found ? found->text() : QString();
}

bool optionalBoolean(const JsonValue &value, const char *name, bool absent)
{
    const auto found = value.find(name);
    return found ? found->boolean() : absent;
}

int optionalInteger(const JsonValue &value, const char *name, int absent)
{
    const auto found = value.find(name);
    return found ? found->integer() : absent;
}

std::optional<int> optionalIntegerOfAtLeast(const JsonValue &value, const char *name, int least)
{
    const auto found = value.find(name);
    return found ? std::optional(found->integerOfAtLeast(least)) : std::nullopt;
}

Amount optionalAmount(const JsonValue &value, const char *name)
{
    const auto found = value.find(name);
    return found ? found->amount() : Amount();
}

Percent optionalPercent(const JsonValue &value, const char *name)
{
    const auto found = value.find(name);
    return found ? found->percent() : Percent();
}

Reduction readReduction(const JsonValue &value)
{
    if (value.has("percent") == value.has("amount"))
        value.expected(R"(either "percent" or "amount")");
    if (value.has("percent"))
        return value.member("percent").percent();
    return value.member("amount").amount();
}

/// A reduction that may be left out: it then takes nothing off.
Reduction optionalReduction(const JsonValue &value)
{
    const bool given = value.has("percent") || value.has("amount");
    return given ? readReduction(value) : Reduction(Percent());
}

QString digits(const JsonValue &value)
{
    static const QRegularExpression onlyDigits(u"^[0-9]+$"_s);
    QString text = value.text();
    if (!onlyDigits.match(text).hasMatch())
        value.expected("digits");
    return text;
}

/// A text whose placeholders are all known, so that a slip shows at the start and not on a cheque.
QString readTemplate(const JsonValue &value, const QStringList &known)
{
    QString text = value.text();
    for (const QString &name : placeholdersOf(text)) {
        if (!known.contains(name))
            value.expected("only the placeholders {" + known.join(u"} {"_s).toStdString() + "}");
    }
    return text;
}

ForcedCode readForcedCode(const JsonValue &value)
{
    value.allowOnly({"code", "message", "operations"});
    ForcedCode forced;
    forced.code = value.member("code").integer();
    forced.message = optionalText(value, "message");
    if (const auto operations = value.find("operations"))
        operations->forEachItem([&](const JsonValue &operation) {
            if (!operationNames().contains(operation.text()))
                operation.expected("one of " + operationNames().join(u", "_s).toStdString());
            forced.operations.append(operation.text());
        });
    return forced;
}

ArticleDiscount readArticleDiscount(const JsonValue &value)
{
    value.allowOnly({"article", "percent", "amount"});
    return {value.member("article").textWithContent(), readReduction(value)};
}

/// A group's discount is one of each of its articles.
void readGroupDiscountInto(ServiceData &data, const JsonValue &value)
{
    value.allowOnly({"articles", "percent", "amount"});
    const Reduction reduction = readReduction(value);
    value.member("articles").forEachItem([&](const JsonValue &article) {
        data.articleDiscounts.push_back({article.textWithContent(), reduction});
    });
}

ChequeDiscount readChequeDiscount(const JsonValue &value)
{
    value.allowOnly({"from", "percent", "amount"});
    return {optionalAmount(value, "from"), readReduction(value)};
}

ArticleEarning readArticleEarning(const JsonValue &value)
{
    value.allowOnly({"article", "percent"});
    return {value.member("article").textWithContent(), value.member("percent").percent()};
}

ChequeEarning readChequeEarning(const JsonValue &value)
{
    value.allowOnly({"from", "points"});
    return {optionalAmount(value, "from"), value.member("points").amount()};
}

Messages readMessages(const JsonValue &value)
{
    value.allowOnly({"cashier", "cheque"});
    Messages messages;
    if (const auto text = value.find("cashier"))
        messages.cashier = readTemplate(*text, messagePlaceholders());
    if (const auto text = value.find("cheque"))
        messages.cheque = readTemplate(*text, messagePlaceholders());
    return messages;
}

} // namespace

CardData readCard(const JsonValue &value)
{
    value.allowOnly({"number", "status", "type", "holder", "email", "chequesByEmail", "balance",
        "stickers", "attributes", "forced"});
    CardData card;
    card.number = value.member("number").textWithContent();
    card.status = optionalInteger(value, "status", activeStatus);
    card.type = optionalText(value, "type");
    card.holder = optionalText(value, "holder");
    card.email = optionalText(value, "email");
    card.chequesByEmail = optionalBoolean(value, "chequesByEmail", false);
    card.openingBalance = optionalAmount(value, "balance");
    if (const auto stickers = value.find("stickers"))
        card.openingStickers = stickers->integerOfAtLeast(0);
    if (const auto attributes = value.find("attributes"))
        attributes->forEachMember([&](const QString &key, const JsonValue &attribute) {
            card.attributes.insert(key, attribute.text());
        });
    if (const auto forced = value.find("forced"))
        card.forced = readForcedCode(*forced);
    return card;
}

TechnicalCards readTechnicalCards(const JsonValue &value)
{
    value.allowOnly({"prefix", "type", "status"});
    return {digits(value.member("prefix")), optionalText(value, "type"),
        optionalInteger(value, "status", activeStatus)};
}

void readDiscountsInto(ServiceData &data, const JsonValue &value)
{
    value.allowOnly({"articles", "groups", "cheque"});
    if (const auto articles = value.find("articles"))
        articles->forEachItem([&](const JsonValue &discount) {
            data.articleDiscounts.push_back(readArticleDiscount(discount));
        });
    if (const auto groups = value.find("groups"))
        groups->forEachItem([&](const JsonValue &group) { readGroupDiscountInto(data, group); });
    if (const auto cheque = value.find("cheque"))
        cheque->forEachItem([&](const JsonValue &discount) {
            data.chequeDiscounts.push_back(readChequeDiscount(discount));
        });
}

Earning readEarning(const JsonValue &value)
{
    value.allowOnly({"percent", "statusPercent", "articles", "cheque"});
    Earning earning;
    earning.percent = optionalPercent(value, "percent");
    earning.statusPercent = optionalPercent(value, "statusPercent");
    if (const auto articles = value.find("articles"))
        articles->forEachItem([&](const JsonValue &article) {
            earning.articles.push_back(readArticleEarning(article));
        });
    if (const auto cheque = value.find("cheque"))
        cheque->forEachItem(
            [&](const JsonValue &rule) { earning.cheque.push_back(readChequeEarning(rule)); });
    return earning;
}

Spending readSpending(const JsonValue &value)
{
    static const QRegularExpression lettersAndDigits(u"^[A-Za-z0-9]+$"_s);
    value.allowOnly({"sharePercent", "confirmAbove", "code", "codeMinutes", "codeAttempts"});
    Spending spending;
    spending.share = optionalPercent(value, "sharePercent");
    if (const auto limit = value.find("confirmAbove"))
        spending.confirmAbove = limit->amount();
    if (const auto code = value.find("code")) {
        spending.code = code->text();
        if (!lettersAndDigits.match(spending.code).hasMatch())
            code->expected("Latin letters and digits, as a cashier can type them");
    }
    spending.codeMinutes = optionalIntegerOfAtLeast(value, "codeMinutes", 1);
    spending.codeAttempts = optionalIntegerOfAtLeast(value, "codeAttempts", 1);
    return spending;
}

StickerOffer readStickerOffer(const JsonValue &value)
{
    value.allowOnly({"article", "stickers", "discount", "limit"});
    StickerOffer offer;
    offer.article = value.member("article").textWithContent();
    offer.stickers = value.member("stickers").integerOfAtLeast(1);
    offer.discount = value.member("discount").amountAboveZero();
    offer.limit = optionalIntegerOfAtLeast(value, "limit", 1);
    return offer;
}

CouponData readCoupon(const JsonValue &value)
{
    value.allowOnly({"number", "emission", "applicable", "once", "percent", "amount"});
    CouponData coupon;
    coupon.number = value.member("number").textWithContent();
    coupon.emission = optionalText(value, "emission");
    coupon.applicable = optionalBoolean(value, "applicable", true);
    coupon.once = optionalBoolean(value, "once", false);
    coupon.reduction = optionalReduction(value);
    return coupon;
}

InstantCouponRule readInstantCoupon(const JsonValue &value)
{
    value.allowOnly({"from", "prefix", "text", "percent", "amount"});
    InstantCouponRule rule;
    rule.from = optionalAmount(value, "from");
    const JsonValue prefix = value.member("prefix");
    rule.prefix = digits(prefix);
    if (rule.prefix.size() > greatestPrefixLength)
        prefix.expected("at most six digits");
    const JsonValue text = value.member("text");
    rule.text = readTemplate(text, couponPlaceholders());
    if (!placeholdersOf(rule.text).contains(couponPlaceholder()))
        text.expected("a text with {coupon}, since a till finds a coupon's text by its number");
    rule.reduction = optionalReduction(value);
    return rule;
}

void readMessagesInto(ServiceData &data, const JsonValue &value)
{
    value.allowOnly({"soft", "fiscal"});
    if (const auto soft = value.find("soft"))
        data.softMessages = readMessages(*soft);
    if (const auto fiscal = value.find("fiscal"))
        data.fiscalMessages = readMessages(*fiscal);
}

} // namespace emulator
