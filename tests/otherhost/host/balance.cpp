// Asks a plug-in that was built against this host for a card's balance; what the service answers is
// in a file.
//
//   shop-balance PLUGIN ANSWER CARD
#include "shop/loyalty.h"
#include "shop/outside.h"

#include <QFile>
#include <QPluginLoader>

#include <cstdio>

namespace {

QByteArray answer;
QByteArray posted;

struct ScriptedClient : shop::RestClient
{
    void post(const QUrl &, const QByteArray &body, const QHash<QString, QString> &) override
    {
        posted = body;
        m_outcome = None;
        m_answer = answer;
    }
};

QSharedPointer<shop::DocumentCardRecord> recordOf(const QString &number)
{
    const auto card = QSharedPointer<shop::Card>::create();
    card->setNumber(number);
    return QSharedPointer<shop::DocumentCardRecord>::create(card);
}

int fail(const QString &text)
{
    std::fprintf(stderr, "shop-balance: %s\n", qPrintable(text));
    return 1;
}

} // namespace

int main(int, char **arguments)
{
    QFile file(QString::fromLocal8Bit(arguments[2]));
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.errorString());
    answer = file.readAll();
    shop::makerOf(typeid(shop::RestClient).name())
        = [] { return static_cast<shop::RestClient *>(new ScriptedClient); };

    QPluginLoader loader(QString::fromLocal8Bit(arguments[1]));
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    auto *const plugin = qobject_cast<BasicPlugin *>(loader.instance());
    if (!plugin || !plugin->init())
        return fail(loader.errorString());
    BasicLoyaltySystem *const system = BasicLoyaltySystem::registered();

    auto record = recordOf(QString::fromLocal8Bit(arguments[3]));
    const bool accepted = system->identifyByCard(record, shop::ECardNumberType::Keyed);
    std::printf("accepted %d\nbalance %s\nclient %s\nasked for the card %d\nerror %s\n",
        int(accepted), qPrintable(record->balance().toString()),
        record->getCard()->client() ? qPrintable(record->getCard()->client()->name()) : "none",
        int(posted.contains(arguments[3])), qPrintable(system->lastError().ru()));
    return 0;
}
