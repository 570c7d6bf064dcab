#include "host/storage/documentstore.h"
#include "host/storage/statefolder.h"
#include "tests/powercut/documentbooks.h"
#include "tests/powercut/laws.h"
#include "tests/powercut/samples.h"
#include "tests/support/hostfixture.h"

using namespace Qt::StringLiterals;

namespace powercut::laws {

namespace {

DocumentBooks found(DocumentStore &store, quint32 seed)
{
    DocumentBooks books;
    if (const auto open = store.loadOpen())
        books.open = samples::nameOf(seed, *open);
    const QStringList numbers = store.closedNumbers();
    for (const QString &number : numbers)
        books.closed[number.toLongLong()] = samples::nameOf(seed, *store.loadClosed(number));
    return books;
}

QStringList differences(const DocumentBooks &books, const Story &story, DocumentStore &store)
{
    DocumentBooks before;
    for (const QStringList &words : story.said)
        before.note(words);
    DocumentBooks after = before;
    after.note(story.next.value_or(QStringList{u"ended"_s}));

    QStringList sentences;
    const QString is = books.described();
    if (is != before.described() && is != after.described())
        sentences.append(u"kept were: %1; or: %2; found are: %3"_s.arg(
            before.described(), after.described(), is));
    const qint64 next = store.nextNumber(1).toLongLong();
    if (next != before.highestNumber + 1 && next != after.highestNumber + 1)
        sentences.append(u"%1 was the highest number, %2 is given next"_s.arg(
            QString::number(before.highestNumber), QString::number(next)));
    return sentences;
}

} // namespace

QStringList documentsAreKept(const QString &folder, quint32 seed, const Story &story)
{
    const HostFixture host;
    Singleton<StateFolder>::instance()->setPath(folder + u'/' + samples::stateFolder);
    try {
        DocumentStore store;
        return differences(found(store, seed), story, store) + journalGoesOn();
    } catch (const std::exception &error) {
        return {u"the till does not start: "_s + QString::fromUtf8(error.what())};
    }
}

} // namespace powercut::laws
