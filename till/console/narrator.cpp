#include "till/console/narrator.h"

#include "host/text/plaintext.h"
#include "till/console/documentwords.h"

#include <QMap>

#include <ostream>
#include <utility>

using namespace Qt::StringLiterals;

namespace till {

namespace {

using Colour = Paint::Colour;
using Words = QStringList (*)(const AbstractDocument &);

QStringList lastPosition(const AbstractDocument &document)
{
    const auto goods = document.getGoods();
    return goods.isEmpty() ? QStringList() : QStringList{words::position(*goods.constLast())};
}

QStringList lastCoupon(const AbstractDocument &document)
{
    const auto coupons = document.getCoupons();
    return coupons.isEmpty() ? QStringList() : QStringList{words::coupon(*coupons.constLast())};
}

QStringList lastPayment(const AbstractDocument &document)
{
    const auto payments = document.getPayments();
    return payments.isEmpty() ? QStringList() : QStringList{words::payment(payments.constLast())};
}

QStringList openedLine(const AbstractDocument &document)
{
    return {words::opened(document)};
}

// What people want to see of the document after a command; nothing after those not listed.
const QMap<QString, Words> wordsAfter{{u"sale"_s, openedLine}, {u"return"_s, words::whole},
    {u"card"_s, words::card}, {u"input"_s, words::whole}, {u"add"_s, lastPosition},
    {u"quantity"_s, words::whole}, {u"storno"_s, words::whole}, {u"coupon"_s, lastCoupon},
    {u"total"_s, words::whole}, {u"points"_s, words::whole}, {u"pay"_s, lastPayment},
    {u"close"_s, words::ending}, {u"cancel"_s, openedLine}, {u"show"_s, words::whole}};

QString questionAndAnswer(const RecordedDialog &dialog)
{
    const QString text = u"«%1»"_s.arg(dialog.message.ui());
    const tr::Tr told = dialog.kind == RecordedDialog::Kind::Message
        ? tr::Tr(u"consoleReads"_s, u"Кассир читает: %1"_s).arg(text)
        : tr::Tr(u"consoleAnswers"_s, u"Кассира спрашивают: %1, он отвечает: %2"_s)
              .arg(text)
              .arg(dialog.answer);
    return told.ui();
}

QString happening(const QString &entry)
{
    if (entry == u"post")
        return tr::Tr(u"consoleServiceAsked"_s, u"Обращение к системе лояльности."_s).ui();
    if (entry.startsWith(u"enqueue "))
        return tr::Tr(u"consoleEnqueued"_s, u"Чек в очереди отправки, на диске."_s).ui();
    return {};
}

} // namespace

Narrator::Narrator(std::ostream &out, Paint paint)
    : m_out(out)
    , m_paint(paint)
{ }

void Narrator::tellRemark(const QString &remark)
{
    m_out << (m_inRemark ? "" : "\n")
          << m_paint(Colour::Green, plaintext::line(remark)).toStdString() << '\n';
    m_inRemark = true;
    m_out.flush();
}

void Narrator::tell(const ExecutedCommand &command)
{
    m_inRemark = false;
    if (!m_atPrompt)
        m_out << m_paint(Colour::Bold, u"> "_s + plaintext::line(command.text)).toStdString()
              << '\n';
    tellHappenings(command.recording);
    tellRefusal(command.outcome);
    tellDocument(command);
    for (const tr::Tr &notice : command.outcome.notices)
        line(notice.ui());
    m_out.flush();
}

void Narrator::tellHappenings(const Recording &recording)
{
    auto dialog = recording.dialogs.cbegin();
    for (const QString &entry : recording.trace) {
        if (entry.startsWith(u"dialog "))
            tellDialog(*dialog++);
        else if (const QString text = happening(entry); !text.isEmpty())
            line(Colour::Faint, text);
    }
    for (const QString &paper : recording.screen)
        tellPaper(paper);
}

void Narrator::tellPaper(const QString &paper)
{
    QStringList rows = paper.split(u'\n');
    while (!rows.isEmpty() && rows.constLast().isEmpty())
        rows.removeLast();
    for (const QString &row : std::as_const(rows))
        write(m_paint(Colour::Faint, u"│ "_s) + plaintext::line(row));
}

void Narrator::tellDialog(const RecordedDialog &dialog)
{
    if (!m_atPrompt)
        line(Colour::Yellow, questionAndAnswer(dialog));
}

void Narrator::tellRefusal(const Outcome &outcome)
{
    if (outcome.refusal)
        line(Colour::Red,
            tr::Tr(u"consoleRefused"_s, u"Отказ: «%1»"_s).arg(outcome.refusal->message).ui());
    else if (outcome.result.typeId() == QMetaType::Int)
        line(Colour::Red,
            tr::Tr(u"consoleStopped"_s, u"Модуль лояльности остановил операцию."_s).ui());
}

void Narrator::tellDocument(const ExecutedCommand &command)
{
    const auto words = wordsAfter.constFind(command.name);
    if (words == wordsAfter.cend())
        return;
    if (!command.document)
        return line(tr::Tr(u"consoleNoDocument"_s, u"Нет открытого документа."_s).ui());
    const QStringList lines = (*words)(*command.document);
    for (const QString &text : lines)
        line(text);
}

void Narrator::line(const QString &text)
{
    write(plaintext::block(text));
}

void Narrator::line(Colour colour, const QString &text)
{
    write(m_paint(colour, plaintext::block(text)));
}

void Narrator::write(const QString &text)
{
    // Texts of several lines, messages of the service for one, stay indented.
    m_out << "    " << QString(text).replace(u'\n', u"\n    "_s).toStdString() << '\n';
}

} // namespace till
