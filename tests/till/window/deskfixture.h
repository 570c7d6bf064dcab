#pragma once

#include "host/net/restclient.h"
#include "tests/till/support/tillfixture.h"
#include "till/script/answerline.h"
#include "till/transcript/recorder.h"
#include "till/transcript/recordingservices.h"
#include "till/window/desk.h"

#include <QDir>
#include <QFile>

/// A desk on the fixture's till; the cashier's answers are given beforehand.
class DeskFixture : public TillFixture
{
public:
    DeskFixture()
        : services(recorder, cashier)
        , desk(*till, services.exchanges(), recorder, cashier)
    { }

    /// A function key with the first position chosen.
    bool whenPressed(till::Function function, const QString &typed = {})
    {
        return desk.perform(function, typed, 1);
    }
    void givenSale(const QStringList &codes)
    {
        for (const QString &code : codes)
            desk.enter(code);
    }
    void givenExchangeDuring(const QString &operation, const QUrl &url)
    {
        loyalty->behaviour[operation] = [url] {
            MockFactory<RestClient>::create()->post(url, {}, {});
            return true;
        };
    }
    /// Everything that was printed.
    [[nodiscard]] QString receipts() const
    {
        QString text;
        const QDir folder(stateFolder() + QStringLiteral("/receipts"));
        const QStringList names = folder.entryList(QDir::Files);
        for (const QString &name : names) {
            QFile file(folder.filePath(name));
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            text += QString::fromUtf8(file.readAll());
        }
        return text;
    }
    [[nodiscard]] QString calls() { return takeCalls().join(u' '); }

    till::Recorder recorder;
    till::AnswerLine cashier;
    till::RecordingServices services;
    till::Desk desk;
};
