// What composing a request costs beside the same tree by hand, without and with configured
// attributes.

#include "benchmarks/client/samples.h"

#include "client/interface.h"
#include "common/host/services.h"
#include "common/names.h"

#include <QDomDocument>
#include <QSet>

#include <benchmark/benchmark.h>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace samples;

/// As requests are indented.
constexpr int indent = 1;

QByteArray composed(const QSharedPointer<AbstractDocument> &document)
{
    const korvelLoyaltyOnline::Interface client;
    return client.formSaleChequeRequest(document, korvel::chequetype::soft, {}).toByteArray(indent);
}

void composeRequest(benchmark::State &state)
{
    const korvelLoyaltyOnline::Interface client;
    const auto document = chequeOf(positionsOf(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            client.formSaleChequeRequest(document, korvel::chequetype::soft, {})
                .toByteArray(indent));
}

/// Two sections for the time of a benchmark; each names an attribute by one of the index prices.
class ConfiguredAttributes
{
public:
    ConfiguredAttributes()
    {
        Config *config = Singleton<Config>::instance();
        const QString section = korvel::group + u".ExtendedAttributes.%1:%2"_s;
        config->set(section.arg(u"Shelf"_s, u"key1"_s), u"ShelfPrice"_s);
        config->set(section.arg(u"Shelf"_s, u"value1"_s), u"${indexPrice5.price}"_s);
        config->set(section.arg(u"Club"_s, u"key1"_s), u"ClubPrice"_s);
        config->set(section.arg(u"Club"_s, u"value1"_s), u"${code}: ${indexPrice7.price}"_s);
    }
    ~ConfiguredAttributes() { Singleton<Config>::reset(); }
    Q_DISABLE_COPY_MOVE(ConfiguredAttributes)
};

void composeConfiguredRequest(benchmark::State &state)
{
    const ConfiguredAttributes attributes;
    composeRequest(state);
}

/// A tree as one would write it down for these values and no others.
class HandMadeTree
{
public:
    explicit HandMadeTree(const QDomElement &model)
        : m_name(nameOf(model))
    {
        const QDomNamedNodeMap attributes = model.attributes();
        for (int i = 0; i < attributes.size(); ++i)
            m_attributes.append({attributes.item(i).nodeName(), attributes.item(i).nodeValue()});
        for (QDomNode child = model.firstChild(); !child.isNull(); child = child.nextSibling()) {
            if (child.isElement())
                m_children.append(HandMadeTree(child.toElement()));
            else
                m_text = child.nodeValue();
        }
    }

    [[nodiscard]] QDomElement build(QDomDocument &document) const
    {
        QDomElement element = document.createElement(m_name);
        for (const auto &[name, value] : m_attributes)
            element.setAttribute(name, value);
        if (m_children.isEmpty())
            element.appendChild(document.createTextNode(m_text));
        for (const HandMadeTree &child : m_children)
            element.appendChild(child.build(document));
        return element;
    }

private:
    /// One text for all elements of a name, as whoever writes a tree down has them.
    static QString nameOf(const QDomElement &element)
    {
        static QSet<QString> names;
        return *names.insert(element.tagName());
    }

    QString m_name;
    QString m_text;
    QList<std::pair<QString, QString>> m_attributes;
    QList<HandMadeTree> m_children;
};

/// The least that Qt allows: the same tree out of texts that are there, and its bytes.
void composeByHand(benchmark::State &state)
{
    QDomDocument model;
    model.setContent(composed(chequeOf(positionsOf(state))));
    const HandMadeTree tree(model.documentElement());
    for (auto _ : state) {
        QDomDocument document;
        document.appendChild(
            document.createProcessingInstruction(u"xml"_s, u"version='1.0' encoding='utf-8'"_s));
        document.appendChild(tree.build(document));
        benchmark::DoNotOptimize(document.toByteArray(indent));
    }
}

void useChequeSizes(benchmark::internal::Benchmark *cases)
{
    cases->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Arg(10'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(composeRequest)->Apply(useChequeSizes);
BENCHMARK(composeConfiguredRequest)->Apply(useChequeSizes);
BENCHMARK(composeByHand)->Apply(useChequeSizes);

} // namespace
