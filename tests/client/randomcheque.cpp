#include "tests/client/randomcheque.h"

#include "tests/client/chance.h"
#include "tests/client/literalreader.h"
#include "tests/client/randomanswer.h"

#include <QDomDocument>
#include <QVariant>

using namespace Qt::Literals::StringLiterals;

namespace {

using Values = QMap<QString, QVariant>;

const QList<QString> masks = {u"${code}"_s, u"${indexPrice5.price}"_s, u"${indexPrice7.price}"_s,
    u"${indexPrice7.code}-${quantity}"_s, u"red"_s, u""_s, u"${unknown}"_s, u"$${x} ${sum"_s,
    u"${price}<&"_s};
const QList<QString> names = {u"Color"_s, u"Size"_s, u"Age"_s, u""_s};
const QList<QString> texts
    = {u"1001"_s, u""_s, u"a<b>&\"c\""_s, u"пиво\u0001 0,5"_s, u" x "_s, u"]]>"_s};
const QList<QString> options
    = {u""_s, u""_s, u"MARKDOWN"_s, u"x,markdown"_s, u"a,,b"_s, u","_s, u"mark down"_s};
/// Amounts that come near the border of two kopecks, and some that leave it far behind.
const QList<double> amounts = {0.0, -0.0, 0.005, 0.015, 1.005, 2.675, 10.0, 99.995, -3.5, -0.004,
    0.1 + 0.2, 123456.785, 4503599627370497.5, 1e15, 1e-9, 815.3};
const QList<int> priceCodes = {5, 7, 0, 5};

QSharedPointer<Tmc> randomArticle(Chance &chance)
{
    QList<QSharedPointer<TmcIndexPrice>> prices;
    for (int left = chance.below(4); left > 0; --left)
        prices.append(
            QSharedPointer<TmcIndexPrice>::create(chance.from(priceCodes), chance.from(amounts)));
    return QSharedPointer<Tmc>::create(prices);
}

QSharedPointer<GoodsItem> randomPosition(Chance &chance, int number)
{
    const auto position = QSharedPointer<GoodsItem>::create();
    position->setPosnum(number);
    position->setCode(chance.from(texts));
    position->setPrice(chance.from(amounts));
    position->setBquant(chance.from(amounts));
    position->setSumn(chance.from(amounts));
    position->setSumb(chance.oneIn(2) ? position->getSumn() : chance.from(amounts));
    position->setExtendedOptions(chance.from(options));
    position->setMinRetailPrice(chance.from(amounts));
    if (!chance.oneIn(4))
        position->setTmc(randomArticle(chance));
    return position;
}

QVariant randomFigure(Chance &chance)
{
    if (chance.oneIn(3))
        return chance.from(texts);
    return chance.from(amounts);
}

Values randomAttributes(Chance &chance)
{
    Values attributes;
    for (int left = chance.below(3); left > 0; --left)
        attributes.insert(chance.from(names), randomFigure(chance));
    return attributes;
}

/// Figures as an answer leaves them, some missing, some no numbers.
Values randomFigures(Chance &chance)
{
    Values figures;
    for (const QString &name : {u"Summ"_s, u"Discount"_s, u"SummDiscounted"_s, u"PaidByBonus"_s})
        if (!chance.oneIn(3))
            figures.insert(name, randomFigure(chance));
    if (chance.oneIn(3))
        figures.insert(u"ExtendedAttributes"_s, randomAttributes(chance));
    return figures;
}

Values figuresOfAnAnswer(std::mt19937 &engine)
{
    QDomDocument answer;
    answer.setContent(randomAnswer(engine));
    return literallyRead(answer, u"\u2013\u2013"_s);
}

void giveStoredFigures(Chance &chance, std::mt19937 &engine, AbstractDocument &document)
{
    const QString group = u"KorvelLoyaltyOnline"_s;
    if (chance.oneIn(3))
        return;
    const Values answered = figuresOfAnAnswer(engine);
    const bool usesAnswer = chance.oneIn(2);
    document.setStoredValue(group, u"chequeData"_s, usesAnswer ? answered : randomFigures(chance));
    Values positions = usesAnswer ? answered.value(u"Positions"_s).toMap() : Values();
    for (const auto &position : document.getGoods())
        if (chance.oneIn(2))
            positions.insert(QString::number(position->getPosnum()), randomFigures(chance));
    document.setStoredValue(group, u"positionsData"_s, positions);
}

} // namespace

RequestSettings randomSettings(std::mt19937 &engine)
{
    Chance chance(engine);
    RequestSettings settings;
    settings.orgName = chance.from(texts);
    settings.organization = chance.from(texts);
    settings.pos = chance.from(masks);
    settings.businessUnit = chance.from(masks);
    settings.minRetailPriceIndex = chance.from(QList<int>({-1, 0, 5, 9}));
    settings.minRetailPriceForMarkdown = chance.from(QList<double>({-1.0, 0.005, 0.01, 3.0}));
    settings.sendsOptions = chance.oneIn(2);
    for (int number = chance.below(4); number > 0; --number) {
        RequestSettings::Section section = {u"s%1"_s.arg(number), {}};
        for (int pair = chance.below(4); pair > 0; --pair) {
            section.settings.append({u"key%1"_s.arg(pair), chance.from(names)});
            if (!chance.oneIn(5))
                section.settings.append({u"value%1"_s.arg(pair), chance.from(masks)});
        }
        settings.sections.append(section);
    }
    return settings;
}

RandomCheque randomCheque(std::mt19937 &engine, const QSharedPointer<DocumentCardRecord> &card)
{
    constexpr int mostPositions = 6;
    Chance chance(engine);
    RandomCheque cheque;
    cheque.document
        = QSharedPointer<AbstractDocument>::create(EDocumentType::Sale, chance.from(texts));
    cheque.document->addCardRecord(card);
    for (int number = chance.below(mostPositions); number > 0; --number)
        cheque.document->addPosition(
            randomPosition(chance, chance.oneIn(8) ? 1 : chance.below(12)));
    for (int left = chance.below(3); left > 0; --left)
        cheque.document->addCoupon(QSharedPointer<Coupon>::create(chance.from(texts)));
    giveStoredFigures(chance, engine, *cheque.document);
    cheque.type = chance.oneIn(2) ? u"Soft"_s : u"Fiscal"_s;
    if (chance.oneIn(2)) {
        cheque.confirmation = QSharedPointer<korvel::ConfirmationInfo>::create();
        cheque.confirmation->setConfirm(chance.oneIn(2));
        cheque.confirmation->setSendCode(chance.oneIn(2));
        cheque.confirmation->setVerificationCode(chance.from(texts));
    }
    return cheque;
}
