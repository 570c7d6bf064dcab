#pragma once

#include "tests/emulator/support/serviceprocess.h"
#include "tests/till/program/programfixture.h"

#include <memory>

/// Sells with the real plug-in against a korvel-service of its own, then asks `korvel-till explain`
/// what became of it.
class ExplainFixture : public ProgramFixture
{
public:
    ExplainFixture();

    /// Settings behind those of the fixture, in a file of their own.
    void givenSettings(const QByteArray &ini) const;
    /// Sells by a script, on the state folder of this test.
    void whenSold(const QByteArray &script);
    /// The service ends; it can be started again on its port, with its books.
    void whenServiceEnds();
    void whenServiceStarts();
    /// Asks for a story; standard output, which is a story or a complaint.
    QString whenAsked(const QStringList &words, const QByteArray &language = "en");
    /// The same as an object.
    nlohmann::json whenAskedForJson(const QStringList &words, const QByteArray &language = "en");
    /// Writes an archive for support; its path.
    QString whenBundled(const QString &name = QStringLiteral("support.tar.gz"));

    [[nodiscard]] QString stateFolder() const { return path(QStringLiteral("state")); }
    /// Every file of the state folder with its contents.
    [[nodiscard]] QMap<QString, QByteArray> filesOfState() const;

    static const QString card;

private:
    void givenLanguage(const QByteArray &language) const;

    std::unique_ptr<emulator::ServiceProcess> m_service;
    QString m_address; ///< host and port of the service
};
