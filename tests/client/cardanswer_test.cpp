#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QString attribute(const QString &children)
{
    return u"<ExtendedAttribute>" + children + u"</ExtendedAttribute>";
}

QString pair(const QString &key, const QString &value)
{
    return u"<Key>%1</Key><Value>%2</Value>"_s.arg(key, value);
}

class CardAnswerTest : public ClientTest
{
protected:
    std::optional<KorvelException> refusalOfStatus(const QString &status)
    {
        const QDomDocument answer
            = parsed(u"<a><b><CardStatus>%1</CardStatus></b></a>"_s.arg(status));
        return refusalOf([&] { client().checkCardStatus(answer); });
    }
    QString cardTypeOf(const QString &content)
    {
        return client().getCardType(parsed(u"<a>" + content + u"</a>"));
    }
    QSharedPointer<Client> whenFilled(const QString &content)
    {
        client().fillClient(parsed(u"<a>" + content + u"</a>"), m_card);
        return m_card->getCard()->getClient();
    }
    static QList<int> optionsOf(const Client &holder)
    {
        QList<int> options;
        for (const int option : {1, 2})
            if (holder.hasOption(static_cast<ClientOptions>(option)))
                options.append(option);
        return options;
    }
    QSharedPointer<DocumentCardRecord> m_card = makeCard(u"1"_s);
};

} // namespace

TEST_F(CardAnswerTest, AForbiddenStatusIsRefusedWithItsText)
{
    struct Row
    {
        QString status;
        QString id;
        QString text;
        bool flag;
    };
    const QList<Row> rows = {
        {u"3"_s, u"korvelForbiddenCardStatus3"_s, u"Карта заблокирована"_s, true},
        {u"5"_s, u"korvelForbiddenCardStatus5"_s, u"Завершена"_s, true},
        {u"6"_s, u"korvelForbiddenCardStatus6"_s, u"Карта удалена"_s, true},
        {u"9"_s, u"korvelForbiddenCardStatus9"_s, u"Незарегистрированная карта"_s, true},
        {u"7"_s, u"korvelForbiddenCardStatus7"_s, u"Запрещенный статус карты '7'"_s, false},
        {u"-8"_s, u"korvelForbiddenCardStatus-8"_s, u"Запрещенный статус карты '-8'"_s, false},
    };
    givenSetting(u"forbiddenCardStatuses"_s, u"7,-8"_s);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.status.toStdString());
        const auto refusal = refusalOfStatus(row.status);
        ASSERT_TRUE(refusal);
        EXPECT_EQ(refusal->tr(), tr::Tr(row.id, row.text));
        EXPECT_EQ(refusal->flag(), row.flag);
        EXPECT_EQ(logged(u"ERROR"_s).last(), u"Запрещенный статус карты: "_s + row.status);
    }
}

TEST_F(CardAnswerTest, AForbiddenStatusIsAPlainRefusal)
{
    const QDomDocument answer = parsed(u"<CardStatus>3</CardStatus>"_s);
    EXPECT_EQ(outcomeOf([&] { client().checkCardStatus(answer); }), Outcome::Refusal);
}

TEST_F(CardAnswerTest, AKnownTextIsUsedForAStatusThatOnlyTheCashierKnows)
{
    givenSetting(u"forbiddenCardStatusesForCustomer"_s, u""_s);
    givenSetting(u"forbiddenCardStatuses"_s, u"5"_s);
    const auto refusal = refusalOfStatus(u"5"_s);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->tr(), tr::Tr(u"korvelForbiddenCardStatus5"_s, u"Завершена"_s));
    EXPECT_FALSE(refusal->flag());
}

TEST_F(CardAnswerTest, OtherStatusesPassSilently)
{
    for (const QString &status : {u"0"_s, u"1"_s, u"7"_s, u"x"_s, u""_s, u"4294967299"_s})
        EXPECT_FALSE(refusalOfStatus(status)) << status.toStdString();
    EXPECT_FALSE(refusalOf([this] { client().checkCardStatus(parsed(u"<a/>"_s)); }));
    EXPECT_EQ(logged(u"ERROR"_s), QStringList());
}

TEST_F(CardAnswerTest, AnAbsentStatusIsStatusZero)
{
    givenSetting(u"forbiddenCardStatuses"_s, u"x"_s);
    EXPECT_TRUE(refusalOf([this] { client().checkCardStatus(parsed(u"<a/>"_s)); }));
}

TEST_F(CardAnswerTest, ACardTypeWithoutAttributesIsItsName)
{
    EXPECT_EQ(cardTypeOf(u"<CardType>Gold</CardType><CardType>Other</CardType>"_s), u"Gold"_s);
    EXPECT_EQ(cardTypeOf({}), u""_s);
}

TEST_F(CardAnswerTest, ConfiguredAttributesThatAreSetFollowTheCardType)
{
    givenSetting(u"cardTypeExtendedAttribute"_s, u"VIP, Staff"_s);
    EXPECT_EQ(cardTypeOf(u"<CardType>Gold</CardType>" + attribute(pair(u"VIP"_s, u"1"_s))
                  + attribute(pair(u"Staff"_s, u"0"_s))),
        u"Gold, VIP"_s);
}

TEST_F(CardAnswerTest, WithoutACardTypeTheLeadingSeparatorStays)
{
    givenSetting(u"cardTypeExtendedAttribute"_s, u"VIP"_s);
    EXPECT_EQ(cardTypeOf(attribute(pair(u"VIP"_s, u"1"_s))), u", VIP"_s);
}

TEST_F(CardAnswerTest, AttributesAreTakenPairByPair)
{
    struct Row
    {
        const char *name;
        QString children;
        QString type;
    };
    const QList<Row> rows = {
        {"value before key", u"<Value>1</Value><Key>VIP</Key>"_s, u"G"_s},
        {"two pairs", pair(u"VIP"_s, u"1"_s) + pair(u"Staff"_s, u"1"_s), u"G, VIP, Staff"_s},
        {"pair out of step", u"<Value>1</Value>" + pair(u"VIP"_s, u"1"_s), u"G"_s},
        {"comment puts out of step", u"<!-- x -->" + pair(u"VIP"_s, u"1"_s), u"G"_s},
        {"text puts out of step", u"x" + pair(u"VIP"_s, u"1"_s), u"G"_s},
        {"two comments do not", u"<!-- x --><!-- y -->" + pair(u"VIP"_s, u"1"_s), u"G, VIP"_s},
        {"odd pair first", u"<A/><B/>" + pair(u"VIP"_s, u"1"_s), u"G, VIP"_s},
        {"key alone", u"<Key>VIP</Key>"_s, u"G"_s},
        {"other key name", u"<KEY>VIP</KEY><Value>1</Value>"_s, u"G"_s},
        {"other value name", u"<Key>VIP</Key><value>1</value>"_s, u"G"_s},
        {"case of the key", pair(u"vip"_s, u"1"_s), u"G"_s},
        {"not configured", pair(u"Other"_s, u"1"_s), u"G"_s},
        {"value 01", pair(u"VIP"_s, u"01"_s), u"G"_s},
        {"value with blank", pair(u"VIP"_s, u" 1"_s), u"G"_s},
        {"twice", pair(u"VIP"_s, u"1"_s) + pair(u"VIP"_s, u"1"_s), u"G, VIP, VIP"_s},
        {"prefixed", u"<x:Key>VIP</x:Key><x:Value>1</x:Value>"_s, u"G"_s},
    };
    givenSetting(u"cardTypeExtendedAttribute"_s, u"Staff,VIP"_s);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(cardTypeOf(u"<CardType>G</CardType>" + attribute(row.children)), row.type);
    }
}

TEST_F(CardAnswerTest, TheAttributesToShowAreReadAtEachUse)
{
    const QString content = attribute(pair(u"VIP"_s, u"1"_s));
    EXPECT_EQ(cardTypeOf(content), u""_s);
    givenSetting(u"cardTypeExtendedAttribute"_s, u"VIP"_s);
    EXPECT_EQ(cardTypeOf(content), u", VIP"_s);
}

TEST_F(CardAnswerTest, TheClientIsNamedAfterTheCardTypeAndNotTheHolder)
{
    const auto holder = whenFilled(u"<FullName>Иванов</FullName><CardType>Gold</CardType>"_s);
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->getName(), u"Gold"_s);
}

TEST_F(CardAnswerTest, AHolderWithoutCardTypeIsAClientWithoutName)
{
    const auto holder = whenFilled(u"<FullName>Иванов</FullName>"_s);
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->getName(), u""_s);
}

TEST_F(CardAnswerTest, WithoutHolderAndCardTypeTheCardKeepsItsClient)
{
    const auto before = QSharedPointer<Client>::create();
    m_card->getCard()->setClient(before);
    EXPECT_EQ(whenFilled(u"<FullName/><Email>a@b.example</Email>"_s), before);
    EXPECT_EQ(before->getEmail(), u""_s);
}

TEST_F(CardAnswerTest, ANewClientReplacesTheOneBefore)
{
    const auto before = QSharedPointer<Client>::create();
    m_card->getCard()->setClient(before);
    EXPECT_NE(whenFilled(u"<CardType>Gold</CardType>"_s), before);
}

TEST_F(CardAnswerTest, TheEmailMayBeWrittenToOnlyWhenItIsThereAndAllowed)
{
    struct Row
    {
        QString email;
        QString allowed;
        QList<int> options;
    };
    const QList<Row> rows
        = {{u"a@b.example"_s, u"true"_s, {1, 2}}, {u"a@b.example"_s, u"True"_s, {}},
            {u"a@b.example"_s, u"1"_s, {}}, {u"a@b.example"_s, u""_s, {}}, {u""_s, u"true"_s, {}}};
    for (const Row &row : rows) {
        SCOPED_TRACE(QString(row.email % u' ' % row.allowed).toStdString());
        const auto holder
            = whenFilled(u"<CardType>G</CardType><Email>%1</Email>"
                         "<AllowReceiveChequeByEmail>%2</AllowReceiveChequeByEmail>"_s.arg(
                             row.email, row.allowed));
        EXPECT_EQ(holder->getEmail(), row.email);
        EXPECT_EQ(optionsOf(*holder), row.options);
    }
}
