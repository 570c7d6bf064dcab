#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace till::accept {

/// An article of the run: what the service is to know, and what the till sells it for.
struct Article
{
    QString code;
    double price = 0;
};

/// What the command line says.
struct Options
{
    QString url;
    QString user;
    QString passwordFile;
    QString configFile;
    QString caFile;
    QString card;
    QString unknownCard;
    QString code;
    QString codeCommand;
    QString coupon;
    QStringList articles; ///< CODE or CODE=PRICE
    QString pos;
    QString shop;
    QString organization;
    QString orgName;
    QString protocolFolder; ///< empty: the one that is built in
    QStringList only; ///< ids of flows; empty: all
    int timeoutSeconds = 0; ///< 0: the host's default
    bool writes = false;
    bool json = false;
    bool lists = false;
};

/// What every request says of its sender; empty values leave the sample's.
struct Sender
{
    QString pos;
    QString businessUnit;
    QString organization;
    QString orgName;
};

/// Where the service is, and how it is spoken to.
struct Access
{
    QUrl url;
    QString authorization; ///< empty: none is sent
    QString user; ///< empty: no credentials were given
    int timeoutSeconds = 0;
};

/// The articles that the command line names, otherwise those of protocol/samples/.
/// @throws CannotDo for a price that is none.
[[nodiscard]] QList<Article> articlesOf(const QStringList &words);

} // namespace till::accept
