#include "till/script/scriptrunner.h"

#include "host/text/plaintext.h"
#include "till/core/cannotdo.h"

#include <QStringDecoder>

#include <istream>
#include <ostream>
#include <string>

using namespace Qt::StringLiterals;

namespace till {

namespace {

QString decode(const std::string &line)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(QByteArrayView(line));
    if (decoder.hasError())
        throw CannotDo({u"scriptLineNotUtf8"_s, u"строка не в кодировке UTF-8"_s},
            {u"scriptLineNotUtf8Remedy"_s, u"сохраните сценарий в UTF-8"_s});
    return text;
}

QString unreadable()
{
    return CannotDo({u"scriptLineUnreadable"_s, u"дальше сценарий не читается"_s},
        {u"scriptLineUnreadableRemedy"_s, u"проверьте его файл и диск"_s})
        .text();
}

} // namespace

ExitStatus runScript(
    std::istream &script, const QString &name, Interpreter &interpreter, std::ostream &errors)
{
    const auto tell = [&](int line, const QString &what) {
        errors << plaintext::block(u"%1:%2: %3"_s.arg(name).arg(line).arg(what)).toStdString()
               << std::endl;
    };
    auto status = ExitStatus::Success;
    std::string bytes;
    int line = 1;
    for (; std::getline(script, bytes); ++line) {
        try {
            if (const auto failure = interpreter.execute(line, decode(bytes))) {
                tell(line, *failure);
                status = ExitStatus::NotAllDone;
            }
        } catch (const CannotDo &error) {
            tell(line, error.text());
            return ExitStatus::CannotDo;
        }
    }
    // No end of the script, though it looks like one.
    if (script.bad()) {
        tell(line, unreadable());
        return ExitStatus::CannotDo;
    }
    return status;
}

} // namespace till
