#include "tests/till/explain/explainfixture.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QUrl>

using namespace Qt::StringLiterals;

const QString ExplainFixture::card = u"2900000000017"_s;

ExplainFixture::ExplainFixture()
    : m_address(u"127.0.0.1:0"_s)
{
    whenServiceStarts();
    QDir().mkpath(path(u"till.ini.d"_s));
    givenFile(u"till.ini"_s,
        "[Till]\ncatalogue=" CATALOGUE "\n[KorvelLoyaltyOnline]\nbusinessUnit=${shop}\n"
        "pos=${shop}-${till}\n");
    const QByteArray url = u"http://%1/"_s.arg(m_address).toUtf8();
    givenFile(u"till.ini.d/10-service.ini"_s,
        "[KorvelLoyaltyOnline]\nurl=" + url + "\n[Till]\nserviceApi=" + url + "api\n");
}

void ExplainFixture::givenSettings(const QByteArray &ini) const
{
    givenFile(u"till.ini.d/20-test.ini"_s, ini);
}

void ExplainFixture::givenLanguage(const QByteArray &language) const
{
    givenFile(u"till.ini.d/30-language.ini"_s, "[Till]\nlanguage=" + language + "\n");
}

void ExplainFixture::whenSold(const QByteArray &script)
{
    whenStarted({u"run"_s, u"--plugin"_s, QStringLiteral(LOYALTY_PLUGIN), u"--state"_s,
        stateFolder(), givenFile(u"sale.till"_s, script)});
    ASSERT_LE(status, 1) << errors.data();
}

void ExplainFixture::whenServiceEnds()
{
    m_service->terminate();
    m_service.reset();
}

void ExplainFixture::whenServiceStarts()
{
    m_service = std::make_unique<emulator::ServiceProcess>(QStringList{u"--listen"_s, m_address,
        u"--data"_s, QStringLiteral(SERVICE_DATA), u"--state"_s, path(u"books.sqlite"_s)});
    m_address = QUrl(m_service->url()).authority();
}

QString ExplainFixture::whenAsked(const QStringList &words, const QByteArray &language)
{
    givenLanguage(language);
    QStringList arguments = QStringList{u"explain"_s} + words;
    if (!words.contains(u"--bundle"_s))
        arguments += {u"--state"_s, stateFolder()};
    whenStarted(arguments);
    return QString::fromUtf8(output);
}

nlohmann::json ExplainFixture::whenAskedForJson(
    const QStringList &words, const QByteArray &language)
{
    whenAsked(words + QStringList{u"--json"_s}, language);
    return nlohmann::json::parse(output.toStdString(), nullptr, false);
}

QString ExplainFixture::whenBundled(const QString &name)
{
    whenStarted({u"check"_s, u"--plugin"_s, QStringLiteral(LOYALTY_PLUGIN), u"--state"_s,
        stateFolder(), u"--bundle"_s, path(name)});
    return path(name);
}

QMap<QString, QByteArray> ExplainFixture::filesOfState() const
{
    QMap<QString, QByteArray> contents;
    for (QDirIterator files(stateFolder(), QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
        contents.insert(file.fileName(), file.readAll());
    }
    return contents;
}
