#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <memory>

/// A PostgreSQL server of the test program's own, with an empty data folder, on a free loopback
/// port and a socket in a temporary folder. It ends with the program, however that ends.
class PostgresServer
{
public:
    /// Where syncing takes no time, as far as there is such a folder.
    static QString memory();
    /// The program's one server, running; null where none is installed.
    static PostgresServer *instance();

    /// @param place folder for the folder of its data, which users may enter that are not the
    /// owner.
    explicit PostgresServer(const QString &place = memory());
    ~PostgresServer();
    Q_DISABLE_COPY_MOVE(PostgresServer)

    void start();
    /// Ends connections and transactions at once.
    void stop();
    /// Ends it as a crash does: nothing is written any more.
    void crash();
    /// Lets it stand still: connections are taken, and nothing is answered.
    void freeze();
    void thaw();

    /// Makes a file the server's own.
    static void giveAway(const QString &fileName);

    [[nodiscard]] int port() const { return m_port; }
    [[nodiscard]] QString folder() const { return m_folder.path(); }
    /// The address of the queue over TCP.
    [[nodiscard]] QString url(const QString &password = QStringLiteral("p@ss word's\\")) const;
    /// The same through the socket.
    [[nodiscard]] QString socketUrl() const;

private:
    void makeData();
    bool tryStart();
    void end(int signal);
    void signalAll(int signal);

    QTemporaryDir m_folder;
    std::unique_ptr<QProcess> m_process;
    int m_port = 0;
};
