// What is changed in an input keeps the input's form.

#include "fuzz/measure.h"
#include "fuzz/mutation/jsonmutator.h"
#include "fuzz/mutation/linemutator.h"
#include "fuzz/mutation/messagemutator.h"
#include "fuzz/mutation/mutate.h"
#include "fuzz/mutation/xmlmutator.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QDomDocument>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QStringDecoder>

#include <gtest/gtest.h>

#include <ostream>
#include <random>

using namespace Qt::Literals::StringLiterals;

/// In libFuzzer's place: any bytes.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t greatest)
{
    static std::mt19937 random;
    const std::size_t length = std::min(greatest, size + random() % 3);
    for (std::size_t at = size; at < length; ++at)
        data[at] = static_cast<std::uint8_t>(random());
    if (length > 0)
        data[random() % length] = static_cast<std::uint8_t>(random());
    return length;
}

namespace {

constexpr unsigned int seeds = 300;
constexpr std::size_t roomy = 65536;

bool isXml(const QByteArray &input)
{
    return QDomDocument().setContent(input);
}

bool isJson(const QByteArray &input)
{
    return !QJsonDocument::fromJson(input).isNull();
}

bool isUtf8(const QByteArray &input)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(input);
    return !decoder.hasError() && !text.isNull();
}

bool isMessage(const QByteArray &input)
{
    const QJsonObject line = QJsonDocument::fromJson(input).object();
    const QByteArray text
        = QJsonDocument(line[u"message"].toObject()).toJson(QJsonDocument::Compact);
    const QByteArray sum = QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex();
    return line[u"checksum"].toString().toLatin1() == sum;
}

struct Kind
{
    const char *name;
    fuzz::Mutator mutator;
    bool (*isInForm)(const QByteArray &);
    const char *sample; ///< from the root of the tree
    const char *foreign; ///< bytes that have not the form; empty where all have
};

const Kind kinds[] = {
    {"xml", fuzz::mutateXml, isXml, "protocol/samples/sale-answer.xml", "<a"},
    {"json", fuzz::mutateJson, isJson, "fuzz/seeds/document_fuzz/stickers.json", "{"},
    {"line", fuzz::mutateLine, isUtf8, "config/till.ini", ""},
    {"message", fuzz::mutateMessage, isMessage, "fuzz/seeds/message_fuzz/offline.json", "{}"},
};

void PrintTo(const Kind &kind, std::ostream *out)
{
    *out << kind.name;
}

QByteArray sampleOf(const Kind &kind)
{
    QFile file(QStringLiteral(KORVEL_SOURCE_DIR "/") + QString::fromLatin1(kind.sample));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// What becomes of the input; empty where the mutator does nothing.
QByteArray mutated(const Kind &kind, const QByteArray &input, std::size_t greatest, unsigned seed)
{
    QByteArray bytes = input;
    bytes.resize(static_cast<qsizetype>(roomy));
    const std::size_t size = kind.mutator(reinterpret_cast<std::uint8_t *>(bytes.data()),
        static_cast<std::size_t>(input.size()), greatest, seed);
    if (size == 0) {
        EXPECT_EQ(bytes.first(input.size()), input) << "changed though it says nothing was";
    }
    EXPECT_LE(size, greatest);
    return bytes.first(static_cast<qsizetype>(size));
}

class MutationTest : public testing::TestWithParam<Kind>
{ };

} // namespace

TEST_P(MutationTest, WhatWasInFormStaysSoAndIsAnotherMostly)
{
    QByteArray input = sampleOf(GetParam());
    QSet<QByteArray> different;
    for (unsigned seed = 0; seed < seeds; ++seed) {
        const QByteArray output = mutated(GetParam(), input, roomy, seed);
        ASSERT_TRUE(output.isEmpty() || GetParam().isInForm(output))
            << seed << output.toStdString();
        different.insert(output);
    }
    EXPECT_GT(different.size(), seeds / 4);
}

TEST_P(MutationTest, ManyStepsBehindOneAnotherKeepTheForm)
{
    QByteArray input = sampleOf(GetParam());
    constexpr std::size_t most = 8192;
    for (unsigned seed = 0; seed < seeds; ++seed) {
        const QByteArray output = mutated(GetParam(), input, most, seed);
        if (!output.isEmpty())
            input = output;
        ASSERT_TRUE(GetParam().isInForm(input)) << seed;
    }
}

TEST_P(MutationTest, WhereThereIsNoRoomNothingIsDone)
{
    const QByteArray input = sampleOf(GetParam());
    constexpr std::size_t noRoom = 8;
    for (unsigned seed = 0; seed < 64; ++seed)
        EXPECT_EQ(mutated(GetParam(), input, noRoom, seed), QByteArray()) << seed;
}

TEST_P(MutationTest, BytesOfAnotherFormAreLeftAlone)
{
    const QByteArray foreign = GetParam().foreign;
    EXPECT_EQ(mutated(GetParam(), foreign, roomy, 1).isEmpty(), !foreign.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, MutationTest, testing::ValuesIn(kinds),
    [](const auto &kind) { return std::string(kind.param.name); });

namespace {

/// Says in the input's place which input it was given.
std::size_t marks(std::uint8_t *data, std::size_t size, std::size_t, unsigned)
{
    EXPECT_EQ(size, 1U);
    data[0] = static_cast<std::uint8_t>(data[0] + 1);
    return size;
}

std::size_t doesNothing(std::uint8_t *, std::size_t, std::size_t, unsigned)
{
    return 0;
}

std::size_t isCalled(std::uint8_t *, std::size_t, std::size_t, unsigned seed)
{
    return 100 + seed;
}

bool takes(const QByteArray &input)
{
    return input == "A";
}

constexpr std::size_t room = 512;

} // namespace

TEST(MutateMostlyTest, AnyBytesComeInTurnAndWhereTheFormIsMissing)
{
    std::uint8_t bytes[room] = {'a'};
    EXPECT_EQ(fuzz::mutateMostly(isCalled, bytes, 1, room, 33), 101U);
    EXPECT_LT(fuzz::mutateMostly(isCalled, bytes, 1, room, 32), 100U);
    EXPECT_LT(fuzz::mutateMostly(doesNothing, bytes, 1, room, 33), 100U);
}

TEST(MutateMostlyTest, EveryOtherTimeAnInputThatWasTakenIsChanged)
{
    const std::uint8_t inputs[] = {'A', 'z'};
    for (const std::uint8_t &input : inputs)
        fuzz::measure(&input, 1, takes);
    std::uint8_t bytes[room] = {'a'};
    EXPECT_EQ(fuzz::mutateMostly(marks, bytes, 1, room, 34), 1U);
    EXPECT_EQ(bytes[0], 'B');
    bytes[0] = 'a';
    EXPECT_EQ(fuzz::mutateMostly(marks, bytes, 1, room, 35), 1U);
    EXPECT_EQ(bytes[0], 'b');
}
