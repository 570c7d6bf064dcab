#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <memory>

/// Starts `korvel-till` as its users do, in a folder of its own with a catalogue and a till.ini
/// that names it.
class ProgramFixture : public testing::Test
{
public:
    ProgramFixture();

    /// Writes a file into the folder; its path.
    QString givenFile(const QString &name, const QByteArray &contents) const;
    /// Lets the system speak that language, as "ru_RU.UTF-8"; English without.
    void givenSystemLanguage(const QString &locale) { m_locale = locale; }
    [[nodiscard]] QString path(const QString &name) const;
    [[nodiscard]] static QString plugin(const QString &name);
    /// Options of `run` for the plug-in that sells and the state folder of this test.
    [[nodiscard]] QStringList usualOptions() const;

    /// Runs the program to its end with these arguments and this input.
    void whenStarted(const QStringList &arguments, const QByteArray &input = {});
    /// Runs a script with the usual options; the transcript goes to standard output.
    void whenScriptRuns(const QByteArray &script);
    /// Starts it and leaves it running, with the transcript on standard output.
    [[nodiscard]] std::unique_ptr<QProcess> givenRunningTill() const;
    /// Gives a running till a command and waits for its object.
    static nlohmann::json whenTold(QProcess &till, const QByteArray &command);
    /// Lets a running till come to its end.
    static int whenInputEnds(QProcess &till);

    /// It ended with that status and one line on standard error, which begins so.
    void thenFails(int status, const QString &beginning) const;
    [[nodiscard]] QList<nlohmann::json> transcript() const;

    int status = -1;
    QByteArray output;
    QByteArray errors;

private:
    void prepare(QProcess &process) const;

    QTemporaryDir m_folder;
    QString m_locale = QStringLiteral("C.UTF-8");
};
