#pragma once

#include "host/framework/currenttime.h"
#include "host/printing/textprinter.h"
#include "host/storage/statefolder.h"
#include "tests/support/hostfixture.h"

#include <QFile>
#include <QStringList>

/// A printer on a day that stands still, with a screen that is remembered.
class PrintFixture : public HostFixture
{
public:
    PrintFixture()
    {
        MockFactory<CurrentTime>::setCreator([] { return QSharedPointer<FrozenDay>::create(); });
        TextPrinter::setScreen([this](const QString &text) { m_screen.append(text); });
    }
    ~PrintFixture() { TextPrinter::setScreen({}); }
    Q_DISABLE_COPY_MOVE(PrintFixture)

    static void whenPrinted(const QString &templateName, const QVariantMap &data,
        int copies = TextPrinter::defaultCopies, bool cut = false)
    {
        MockFactory<TextPrinter>::create()->print(templateName, {}, data, copies, cut);
    }
    static void whenTextPrinted(
        const QString &text, int copies = TextPrinter::defaultCopies, bool cut = false)
    {
        MockFactory<TextPrinter>::create()->print(QStringLiteral("none"), text, {}, copies, cut);
    }

    [[nodiscard]] QStringList screen() const { return m_screen; }
    [[nodiscard]] static QString receiptFile()
    {
        return Singleton<StateFolder>::instance()->receipts() + QStringLiteral("/2024-11-21.txt");
    }
    [[nodiscard]] static QString receipts()
    {
        QFile file(receiptFile());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private:
    class FrozenDay : public CurrentTime
    {
    public:
        [[nodiscard]] QDateTime currentDateTime() const override
        {
            return QDateTime(QDate(2024, 11, 21), QTime(23, 59));
        }
    };

    QStringList m_screen;
};
