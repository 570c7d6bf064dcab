#include "tests/powercut/samples.h"

#include "host/storage/documentjson.h"

#include <random>

using namespace Qt::StringLiterals;

namespace powercut::samples {

namespace {

constexpr quint32 greatestPositions = 60;
constexpr quint32 greatestPrice = 1000;
constexpr int shortBody = 1024;
constexpr quint32 longestBody = 60 * 1024;
constexpr quint32 longestJournalText = 4 * 1024;
constexpr quint32 letters = 26;
constexpr int messagesToAFullDisk = 7;

std::mt19937 randomFor(quint32 seed, quint32 one, quint32 other = 0)
{
    std::seed_seq mixed{seed, one, other};
    return std::mt19937(mixed);
}

QSharedPointer<GoodsItem> position(AbstractDocument &document, std::mt19937 &random)
{
    const auto made = QSharedPointer<GoodsItem>::create();
    made->setPosnum(document.takeNextPosnum());
    made->setCode(QString::number(random()));
    made->setPrice(static_cast<double>(random() % greatestPrice));
    made->recalculate();
    return made;
}

} // namespace

QSharedPointer<AbstractDocument> document(
    quint32 seed, const QString &number, int version, EDocumentState state)
{
    auto random = randomFor(seed, number.toUInt(), static_cast<quint32>(version));
    const auto made = QSharedPointer<AbstractDocument>::create(EDocumentType::Sale, number);
    made->setCorrelationId(u"id of "_s + number);
    made->setOpened(QDateTime(QDate(2024, 11, 21), QTime(12, 30)));
    made->setChequeText(u"version %1"_s.arg(version));
    made->setState(state);
    for (auto left = random() % greatestPositions; left > 0; --left)
        made->addPosition(position(*made, random));
    return made;
}

QString nameOf(quint32 seed, AbstractDocument &found)
{
    const int version = found.getChequeText().section(u' ', 1).toInt();
    const auto made = document(seed, found.getNumber(), version, found.getState());
    const bool isAsMade = documentjson::write(*made) == documentjson::write(found);
    return found.getNumber() + u'/' + (isAsMade ? QString::number(version) : u"damaged"_s);
}

QString journalText(quint32 seed, int line)
{
    auto random = randomFor(seed, static_cast<quint32>(line), longestJournalText);
    QString text;
    for (auto left = random() % longestJournalText; left > 0; --left)
        text += QChar(static_cast<ushort>('a' + random() % letters));
    return text;
}

QByteArray body(quint32 seed, int message)
{
    auto random = randomFor(seed, static_cast<quint32>(message));
    const auto size = comesWithFullDisk(message)
        ? shortBody
        : static_cast<int>(shortBody + random() % (longestBody - shortBody));
    QByteArray text = QByteArray::number(message) + ':';
    while (text.size() < size)
        text += static_cast<char>('a' + random() % letters);
    return text;
}

int messageOf(const QByteArray &body)
{
    return body.left(body.indexOf(':')).toInt();
}

bool comesWithFullDisk(int message)
{
    return message % messagesToAFullDisk == 0;
}

} // namespace powercut::samples
