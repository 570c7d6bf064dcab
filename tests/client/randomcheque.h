#pragma once

#include "common/confirmationinfo.h"
#include "host/documents/abstractdocument.h"

#include <QList>
#include <QSharedPointer>
#include <QString>

#include <random>

/// Settings that a request depends on, by chance.
struct RequestSettings
{
    struct Section
    {
        QString name; ///< behind "KorvelLoyaltyOnline.ExtendedAttributes."
        QList<std::pair<QString, QString>> settings; ///< key and value, each key once
    };

    QString orgName;
    QString organization;
    QString pos; ///< a mask
    QString businessUnit; ///< a mask
    int minRetailPriceIndex = -1;
    double minRetailPriceForMarkdown = -1.0;
    bool sendsOptions = false;
    QList<Section> sections;
};

[[nodiscard]] RequestSettings randomSettings(std::mt19937 &engine);

/// A sale by chance: positions with and without article, index prices, options and figures of an
/// earlier answer, amounts near the borders of rounding, texts that XML cannot carry.
struct RandomCheque
{
    QSharedPointer<AbstractDocument> document;
    QString type;
    QSharedPointer<korvel::ConfirmationInfo> confirmation; ///< may be null
};

/// @param card the cheque's.
[[nodiscard]] RandomCheque randomCheque(
    std::mt19937 &engine, const QSharedPointer<DocumentCardRecord> &card);
