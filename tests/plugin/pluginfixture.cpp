#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class StoppedClock : public CurrentTime
{
public:
    explicit StoppedClock(const QDateTime &time)
        : m_time(time)
    { }
    [[nodiscard]] QDateTime currentDateTime() const override { return m_time; }

private:
    QDateTime m_time;
};

} // namespace

void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}

PluginFixture::PluginFixture()
    : m_log(korvel::loggerName)
    , m_client(QSharedPointer<ScriptedClient>::create(m_story))
    , m_listener(std::make_unique<RecordingListener>(m_story))
{
    installDoubles();
}

PluginFixture::~PluginFixture()
{
    m_plugin.reset();
    removeDoubles();
}

void PluginFixture::installDoubles()
{
    MockFactory<korvelLoyaltyOnline::Interface>::setCreator([this] { return m_client; });
    MockFactory<Dialog>::setCreator([this] {
        const auto dialog = QSharedPointer<RecordingDialog>::create(m_story, m_whileShown);
        dialog->formAnswer = m_formAnswer;
        dialog->takesFirstChoice = m_takesFirstChoice;
        return dialog;
    });
    MockFactory<SaveToFileLogic>::setCreator(
        [this] { return QSharedPointer<RecordingSaver>::create(m_story); });
    MockFactory<DiscountLogic>::setCreator(
        [this] { return QSharedPointer<RecordingDiscountLogic>::create(m_story); });
    MockFactory<TextPrinter>::setCreator([this] {
        m_story.printers.append(QSharedPointer<RecordingPrinter>::create(m_story));
        return m_story.printers.last();
    });
    MockFactory<CurrentTime>::setCreator(
        [] { return QSharedPointer<StoppedClock>::create(now()); });
    Singleton<ActivityNotifier>::instance()->subscribe(m_listener.get());
}

void PluginFixture::removeDoubles()
{
    // Those of the host are put back by the host's fixture.
    MockFactory<korvelLoyaltyOnline::Interface>::setCreator({});
}

void PluginFixture::givenSaleWithCard()
{
    givenCurrentDocument();
    givenCard();
}

void PluginFixture::givenAnswer(const Map &result, bool tooFewPoints)
{
    client().answers.append({result, {}, tooFewPoints});
}

void PluginFixture::givenStored(const QString &key, const QVariant &value)
{
    document()->setStoredValue(korvel::group, key, value);
}

ObservedPlugin &PluginFixture::plugin()
{
    if (!m_plugin)
        m_plugin = std::make_unique<ObservedPlugin>(m_story);
    return *m_plugin;
}

QVariant PluginFixture::stored(const QString &key) const
{
    return document()->getStoredValue(korvel::group, key, {});
}

PluginFixture::Map PluginFixture::chequeData() const
{
    return stored(korvel::plugindata::chequeData).toMap();
}

QDateTime PluginFixture::now()
{
    return QDateTime(QDate(2026, 3, 14), QTime(15, 9, 26));
}

void PluginFixture::thenSteps(const QStringList &expected) const
{
    EXPECT_EQ(m_story.steps.join(u'\n'), expected.join(u'\n'));
}

void PluginFixture::thenLogged(const QString &level, const QString &text) const
{
    EXPECT_TRUE(m_log.has(level, text)) << m_log.lines().join(u'\n').toStdString();
}

void PluginFixture::thenDialog(const QString &id, const QString &text) const
{
    ASSERT_EQ(m_story.dialogs.size(), 1);
    EXPECT_EQ(m_story.dialogs.first().id(), id);
    EXPECT_EQ(m_story.dialogs.first().ru(), text);
}

void PluginFixture::thenLastError(const QString &text)
{
    EXPECT_EQ(plugin().getLastErrorString().ru(), text);
}
