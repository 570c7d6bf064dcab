#include "tests/kills/witness.h"

#include "tests/kills/queuebook.h"

#include <QFile>

#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

using Json = nlohmann::json;

const QByteArray headEnd = "\r\n\r\n";

QByteArray textOf(const QByteArray &body, const QByteArray &element)
{
    const QByteArray tag = '<' + element + '>';
    const qsizetype begin = body.indexOf(tag);
    if (begin < 0)
        return {};
    const qsizetype text = begin + tag.size();
    return body.mid(text, body.indexOf('<', text) - text);
}

bool movesNothing(const QByteArray &body)
{
    return !body.contains("ChequeType=\"Fiscal\"");
}

// Whether the bytes are the same too is for a law to say.
bool isOfSameDocument(const QByteArray &left, const QByteArray &right)
{
    return textOf(left, "OperationType") == textOf(right, "OperationType")
        && textOf(left, "Number") == textOf(right, "Number");
}

Json openDocument(const QString &stateFolder)
{
    QFile file(stateFolder + u"/document.json"_s);
    return file.open(QIODevice::ReadOnly)
        ? Json::parse(file.readAll().toStdString(), nullptr, false)
        : Json();
}

} // namespace

void Witness::nextStep()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ++m_step;
}

void Witness::see(const QByteArray &request)
{
    const QByteArray body = request.mid(request.indexOf(headEnd) + headEnd.size());
    const Sighting sighting = lookedAt(body);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_sightings.push_back(sighting);
    m_sightings.back().step = m_step;
}

std::vector<Sighting> Witness::sightings() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_sightings;
}

Sighting Witness::lookedAt(const QByteArray &body) const
{
    if (movesNothing(body))
        return {body, Backing::Question, {}};
    for (const Message &message : queueBook(m_stateFolder))
        if (message.state == u"sending" && isOfSameDocument(message.body, body))
            return {body, Backing::Message, message.id};
    return {body, isBegun(body) ? Backing::Document : Backing::Nothing, {}};
}

bool Witness::isBegun(const QByteArray &body) const
{
    const Json document = openDocument(m_stateFolder);
    if (!document.is_object())
        return false;
    const QByteArray operation = textOf(body, "OperationType");
    if (operation == "Rollback")
        return document.value("bookingUnknown", false);
    if (document.at("number") != textOf(body, "Number").toStdString())
        return false;
    return document.value("registrationBegun", false);
}

} // namespace kills
