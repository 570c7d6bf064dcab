#pragma once

#include "emulator/api/exchangelog.h"
#include "emulator/desk/desk.h"
#include "emulator/faults/faultplan.h"
#include "emulator/http/message.h"

#include <QUrlQuery>

namespace emulator {

/// The addresses under /api/ for tests, scripts and people; docs/service.md lists them.
/// Its parts must outlive it.
class Api
{
public:
    Api(Desk &desk, FaultPlan &faults, ExchangeLog &log);

    /// `path` without the leading "/api/". Throws BooksError.
    HttpReply answer(const HttpRequest &request, const QString &path, const QUrlQuery &query);

private:
    HttpReply get(const QString &path, const QUrlQuery &query) const;
    HttpReply post(const QString &path, const QByteArray &body);

    HttpReply cards() const;
    HttpReply card(const QString &number) const;
    HttpReply transactions() const;
    HttpReply exchanges(bool withTexts) const;
    HttpReply exchange(const QString &id, bool isForReading) const;
    HttpReply events() const;
    HttpReply auditReport() const;
    HttpReply order(const QByteArray &words);
    HttpReply switchFault(const QString &id, const QByteArray &word);
    HttpReply remove(const QString &path);
    HttpReply reset();

    Desk &m_desk;
    FaultPlan &m_faults;
    ExchangeLog &m_log;
};

} // namespace emulator
