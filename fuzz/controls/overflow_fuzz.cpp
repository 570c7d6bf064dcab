// Control: a reader of answers with an overflow planted in it. The fuzzer that does not find it is
// no fuzzer.

#include "fuzz/measure.h"

#include "client/answerguard.h"
#include "host/xml/xmlutils.h"

#include <QDomDocument>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t roomForStatus = 16;

bool readStatus(const QByteArray &input)
{
    QDomDocument answer;
    if (korvelLoyaltyOnline::findDefect(input) || !answer.setContent(input))
        return false;
    const QByteArray status = xmlutils::getValueByTag(answer, u"CardStatus"_s, 0).toUtf8();
    // Planted: nobody looks at the length.
    std::array<char, roomForStatus> room = {};
    char *volatile begin = room.data();
    for (qsizetype index = 0; index < status.size(); ++index)
        begin[index] = status.at(index);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::measure(data, size, readStatus);
}
