#include "tests/till/check/rulesfixture.h"

#include "host/config/config.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace till::check;

RulesFixture::RulesFixture()
{
    givenConfiguration("");
}

QString RulesFixture::givenFile(
    const QString &name, const QByteArray &contents, QFile::Permissions rights) const
{
    EXPECT_TRUE(QDir().mkpath(QFileInfo(path(name)).path()));
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(contents);
    EXPECT_TRUE(file.setPermissions(rights));
    return file.fileName();
}

void RulesFixture::givenConfiguration(const QByteArray &ini, QFile::Permissions rights)
{
    const QString file = givenFile(u"till.ini"_s, ini, rights);
    m_files = std::make_unique<SettingFiles>(file);
    if (m_files->unreadable().isEmpty())
        Singleton<Config>::instance()->load(file);
}

QStringList RulesFixture::briefly(const Findings &findings) const
{
    QStringList lines;
    for (const Finding &finding : findings) {
        QStringList parts{nameOf(finding.severity), finding.what.id()};
        const Place &place = finding.place;
        if (!place.file.isEmpty())
            parts.append(QDir(m_folder.path()).relativeFilePath(place.file)
                + (place.line > 0 ? u':' + QString::number(place.line) : QString()));
        if (!place.key.isEmpty())
            parts.append(place.key);
        lines.append(parts.join(u' '));
        // Whoever is told that something is wrong is told what to do.
        EXPECT_TRUE(finding.severity < Severity::Warning || !finding.remedy.isEmpty())
            << qPrintable(lines.last());
    }
    return lines;
}
