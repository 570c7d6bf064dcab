#pragma once

#include "shop/cheque.h"
#include "shop/words.h"

#include <QDomDocument>
#include <QHash>
#include <QMap>
#include <QStringList>
#include <QUrl>

namespace Log4Qt {
class Logger;
}

namespace xmlutils {

SHOP_EXPORT QDomElement createTextElement(
    QDomDocument &document, const QString &tag, const QString &text);
SHOP_EXPORT void appendNotNull(QDomElement &parent, const QDomElement &element);
SHOP_EXPORT QString getValueByTag(const QDomDocument &scope, const QString &tag, int index);
SHOP_EXPORT QString getValueByTag(const QDomElement &scope, const QString &tag, int index);

} // namespace xmlutils

namespace shop {

enum class EDialogKind
{
    Attention = 1
};
enum class EDialogDuration
{
    UntilAnswered
};

class SHOP_EXPORT Config
{
public:
    QString getString(const QString &key, const QString &otherwise) const
    {
        return m_values.value(key, otherwise);
    }
    int getInt(const QString &, int otherwise) const { return otherwise; }
    bool getBool(const QString &, bool otherwise) const { return otherwise; }
    double getDouble(const QString &, double otherwise) const { return otherwise; }
    QStringList getStringList(const QString &, const QStringList &otherwise) const
    {
        return otherwise;
    }
    QList<int> getIntList(const QString &, const QList<int> &otherwise) const { return otherwise; }
    QStringList getSections(const QString &) const { return {}; }
    QStringList getKeys(const QString &) const { return {}; }
#ifdef SHOP_HOST
    void put(const QString &key, const QString &value)
    {
        m_values[key] = value;
    }
#endif

private:
    QMap<QString, QString> m_values;
};

/// Its exchanges are scripted by who makes it.
class SHOP_EXPORT RestClient
{
public:
    enum Outcome
    {
        None,
        NobodyAnswers
    };

    virtual ~RestClient();
    void setTimeout(int) { }
    void setLogger(const Log4Qt::Logger *) { }
    virtual void post(
        const QUrl &url, const QByteArray &body, const QHash<QString, QString> &headers);
    int errorCode() const { return m_outcome; }
    tr::Tr errorMessage() const { return {}; }
    QByteArray responseBody() const { return m_answer; }

protected:
    Outcome m_outcome = NobodyAnswers;
    QByteArray m_answer;
};

struct DBQueueBroker
{
    void enqueue(const QString &, const QMap<QString, QVariant> &, const QString &) { }
};

struct SaveToFileLogic
{
    void save(const QSharedPointer<AbstractDocument> &, const QString &) { }
};

struct InputTextFormParameters
{
    bool showDigitalKeyboard = false;
    tr::Tr title;
    tr::Tr message;
    tr::Tr scanError;
    tr::Tr okButton;
    tr::Tr cancelButton;
    QString formName;
    QString regularExpression;
};

struct FormAnswer
{
    bool canceled() const { return true; }
    QVariant getData() const { return {}; }
};

struct Dialog
{
    void showMessage(const tr::Tr &, EDialogKind, EDialogDuration) { }
    bool showChoice(const tr::Tr &, const tr::Tr &, const tr::Tr &, EDialogKind, EDialogDuration)
    {
        return true;
    }
    FormAnswer showInputTextForm(const InputTextFormParameters &) { return {}; }
};

struct TextPrinter
{
    enum
    {
        defaultCopies = 1
    };
    void print(const QString &, const QString &, const QMap<QString, QVariant> &, int, bool) { }
};

/// Masks of this shop are plain texts.
struct SimpleFormatter
{
    enum
    {
        plain
    };
    QString format(
        const QString &mask, const QList<QObject *> &, int, QMap<QString, QString> &) const
    {
        return mask;
    }
};

} // namespace shop
