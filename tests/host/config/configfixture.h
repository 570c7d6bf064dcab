#pragma once

#include "host/config/config.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A configuration and a folder of its own to read it from.
class ConfigFixture : public testing::Test
{
protected:
    void givenFile(const QString &name, const QByteArray &contents)
    {
        const QString path = pathOf(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    void whenLoaded() { m_config.load(pathOf(mainFile)); }
    void givenLoaded(const QByteArray &contents)
    {
        givenFile(mainFile, contents);
        whenLoaded();
    }
    QString loadingError()
    {
        try {
            whenLoaded();
        } catch (const ConfigError &error) {
            return QString::fromUtf8(error.what());
        }
        return {};
    }
    [[nodiscard]] QStringList warnings() const
    {
        QStringList texts;
        for (const tr::Tr &warning : m_config.warnings())
            texts.append(warning.ru());
        return texts;
    }
    QString text(const QString &key) { return m_config.getString(key, QStringLiteral("absent")); }
    [[nodiscard]] QString pathOf(const QString &name) const { return m_folder.filePath(name); }
    /// How messages name a place of the main file.
    [[nodiscard]] QString at(int line) const
    {
        return pathOf(mainFile) + QLatin1Char(':') + QString::number(line) + QLatin1Char(':');
    }

    const QString mainFile = QStringLiteral("till.ini");
    QTemporaryDir m_folder;
    Config m_config;
};
