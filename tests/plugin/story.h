#pragma once

#include "client/interface.h"
#include "common/host/documents.h"
#include "common/host/framework.h"
#include "common/host/services.h"

#include <QList>
#include <QMap>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <exception>
#include <functional>

/// What happened during a test, in order, and what the doubles were given.
struct Story
{
    struct Printout
    {
        QString templateName;
        QString text;
        QMap<QString, QVariant> data;
        int copies = 0;
        bool cut = false;
        const TextPrinter *printer = nullptr;
    };
    struct Choice
    {
        tr::Tr question;
        tr::Tr accept;
        tr::Tr reject;
    };
    /// Stored values of the document at the moment it was saved.
    using Saved = QMap<QString, QVariant>;

    QStringList steps;
    QList<tr::Tr> dialogs;
    QList<Choice> choices;
    QList<Event> events;
    QList<Saved> saved;
    QStringList savedFileNames;
    QList<Printout> printed;
    QList<QSharedPointer<TextPrinter>> printers;
    QList<InputTextFormParameters> forms;

    void step(const QString &text) { steps.append(text); }
};

class RecordingDialog : public Dialog
{
public:
    RecordingDialog(Story &story, std::function<void()> whileShown);
    void showMessage(const tr::Tr &message, EDialogKind kind, EDialogDuration duration) override;
    bool showChoice(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject,
        EDialogKind kind, EDialogDuration duration) override;
    core::BasicDialog::Result showInputTextForm(const InputTextFormParameters &parameters) override;

    bool takesFirstChoice = true;
    /// What the form is answered with.
    core::BasicDialog::Result formAnswer;

private:
    Story &m_story;
    std::function<void()> m_whileShown;
};

class RecordingSaver : public SaveToFileLogic
{
public:
    explicit RecordingSaver(Story &story)
        : m_story(story)
    { }
    void save(const QSharedPointer<AbstractDocument> &document, const QString &fileName) override;

private:
    Story &m_story;
};

class RecordingPrinter : public TextPrinter
{
public:
    explicit RecordingPrinter(Story &story)
        : m_story(story)
    { }
    void print(const QString &templateName, const QString &text,
        const QMap<QString, QVariant> &data, int copies, bool cut) override;

private:
    Story &m_story;
};

class RecordingDiscountLogic : public DiscountLogic
{
public:
    explicit RecordingDiscountLogic(Story &story)
        : m_story(story)
    { }
    void process(
        const QSharedPointer<AbstractDocument> &document, EDiscountProcessing mode) const override;

private:
    Story &m_story;
};

class RecordingListener : public BaseActivityListener
{
public:
    explicit RecordingListener(Story &story)
        : m_story(story)
    { }
    void handleEvent(const Event &event) override;

private:
    Story &m_story;
};

/// A service client that answers what the test told it, one answer after the other.
class ScriptedClient : public korvelLoyaltyOnline::Interface
{
public:
    struct Answer
    {
        QMap<QString, QVariant> result;
        std::exception_ptr failure;
        bool tooFewPoints = false;
    };
    struct Request
    {
        QString operation;
        QSharedPointer<AbstractDocument> document;
        QSharedPointer<korvel::ConfirmationInfo> confirmation;
        // What was stored on the document when the request was made.
        QMap<QString, QVariant> chequeData;
        QMap<QString, QVariant> positionsData;
    };

    explicit ScriptedClient(Story &story)
        : m_story(story)
    { }

    void balanceRequest(const QSharedPointer<DocumentCardRecord> &card) const override;
    bool saleChequeRequest(const QSharedPointer<AbstractDocument> &document,
        const QString &chequeType, const QSharedPointer<korvel::ConfirmationInfo> &confirmation,
        QMap<QString, QVariant> &result) const override;
    void rollbackChequeRequest(const QSharedPointer<AbstractDocument> &document,
        QMap<QString, QVariant> &result) const override;
    void returnChequeRequest(const QSharedPointer<AbstractDocument> &document) const override;
    void saleChequeRequestOffline(const QSharedPointer<AbstractDocument> &document) const override;
    void returnChequeRequestOffline(
        const QSharedPointer<AbstractDocument> &document) const override;
    double getMinRetailPriceForMarkdownPositions() const override { return minRetailPrice; }

    mutable QList<Answer> answers;
    mutable QList<Request> requests;
    double minRetailPrice = -1.0;

private:
    Answer take(const QString &operation, const QSharedPointer<AbstractDocument> &document,
        const QSharedPointer<korvel::ConfirmationInfo> &confirmation = {}) const;

    Story &m_story;
};
