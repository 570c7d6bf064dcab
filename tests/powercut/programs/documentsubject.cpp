#include "host/storage/documentjson.h"
#include "host/storage/documentstore.h"
#include "host/storage/journal.h"
#include "host/storage/savetofilelogic.h"
#include "host/storage/statefolder.h"
#include "tests/powercut/marker.h"
#include "tests/powercut/programs/subjects.h"

#include <QFile>

#include <memory>
#include <random>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr int documents = 25;
constexpr quint32 greatestVersions = 6;
constexpr quint32 greatestRepetitions = 2;
constexpr quint32 documentsToACancelledOne = 4;
constexpr quint32 documentsToARestart = 5;

/// Writes as one must not: over the old contents, and without a sync.
class PlainSaving : public SaveToFileLogic
{
public:
    void save(const QSharedPointer<AbstractDocument> &document, const QString &) override
    {
        QFile file(Singleton<StateFolder>::instance()->openDocument());
        if (file.open(QIODevice::WriteOnly))
            file.write(documentjson::write(*document));
    }
};

class DocumentSubject
{
public:
    explicit DocumentSubject(quint32 seed)
        : m_seed(seed)
        , m_random(seed)
        , m_store(std::make_unique<DocumentStore>())
    { }

    void run()
    {
        for (int document = 0; document < documents; ++document) {
            sell();
            if (m_random() % documentsToARestart == 0)
                restart();
        }
    }

private:
    void sell()
    {
        const QString number = m_store->nextNumber(1);
        mark(u"given "_s + number);
        int version = 0;
        for (auto left = 1 + m_random() % greatestVersions; left > 0; --left)
            saveOften(number, ++version);
        if (m_random() % documentsToACancelledOne == 0)
            cancel(number);
        else
            close(number, version + 1);
    }

    // A till keeps its document where a command has changed nothing, too.
    void saveOften(const QString &number, int version)
    {
        for (auto left = 1 + m_random() % greatestRepetitions; left > 0; --left)
            save(number, version);
    }

    void save(const QString &number, int version)
    {
        const auto document = samples::document(m_seed, number, version, EDocumentState::Open);
        Journal::append(u"event"_s, {{u"code"_s, version}});
        MockFactory<SaveToFileLogic>::create()->save(document, {});
        mark(u"saved %1 %2"_s.arg(number).arg(version));
    }

    void close(const QString &number, int version)
    {
        m_store->close(samples::document(m_seed, number, version, EDocumentState::Closed));
        mark(u"closed %1 %2"_s.arg(number).arg(version));
    }

    void cancel(const QString &number)
    {
        m_store->discard();
        mark(u"cancelled "_s + number);
    }

    void restart()
    {
        m_store.reset();
        m_store = std::make_unique<DocumentStore>();
        static_cast<void>(m_store->loadOpen());
        mark(u"restarted"_s);
    }

    quint32 m_seed;
    std::mt19937 m_random;
    std::unique_ptr<DocumentStore> m_store;
};

} // namespace

void keepDocuments(quint32 seed, bool plainly)
{
    if (plainly)
        MockFactory<SaveToFileLogic>::setCreator(
            [] { return QSharedPointer<PlainSaving>::create(); });
    DocumentSubject(seed).run();
}

} // namespace powercut
