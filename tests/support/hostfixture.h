#pragma once

#include "host/documents/abstractdocument.h"

#include <QSharedPointer>
#include <QString>
#include <QTemporaryDir>

/// A clean host for one test: fresh singletons, default makers, a state folder of its own. Base of
/// the fixtures; everything is put back when the test ends.
class HostFixture
{
public:
    HostFixture();
    ~HostFixture();
    Q_DISABLE_COPY_MOVE(HostFixture)

    /// Sets a value of the configuration.
    void givenSetting(const QString &key, const QString &value);
    /// Opens a document and makes it the current one.
    QSharedPointer<AbstractDocument> givenCurrentDocument(
        EDocumentType type = EDocumentType::Sale, const QString &number = QStringLiteral("17"));
    /// A card record of the online loyalty, attached to the current document.
    QSharedPointer<DocumentCardRecord> givenCard(
        const QString &number = QStringLiteral("2900000000017"));
    /// A record that is attached to nothing yet.
    static QSharedPointer<DocumentCardRecord> makeCard(const QString &number);
    /// Adds the next position to the current document and computes its sums.
    QSharedPointer<GoodsItem> givenPosition(
        const QString &code, double price, double quantity = 1.0);
    QSharedPointer<Coupon> givenCoupon(const QString &number);

    [[nodiscard]] QSharedPointer<AbstractDocument> document() const;
    [[nodiscard]] QString stateFolder() const { return m_folder.path(); }

private:
    static void reset();

    QTemporaryDir m_folder;
};
