#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

/// Qt finds its database driver, and runs child processes, only beside an application object.
class ApplicationEnvironment : public testing::Environment
{
public:
    void SetUp() override { m_application = std::make_unique<QCoreApplication>(m_count, m_words); }
    void TearDown() override { m_application.reset(); }

private:
    int m_count = 1;
    char m_name[6] = "tests";
    char *m_words[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_application;
};

[[maybe_unused]] const auto *const registered
    = testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

} // namespace
