#include "till/support/statefiles.h"

#include "host/framework/tr.h"
#include "till/support/bundlelayout.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace till::support {

namespace {

// As many as a running till keeps for its window.
constexpr qsizetype exchangesKept = 50;

QByteArray maskedLines(const QByteArray &lines, const std::function<QByteArray(QByteArray)> &mask)
{
    QByteArray masked;
    qsizetype begin = 0;
    while (begin < lines.size()) {
        const qsizetype lineEnd = lines.indexOf('\n', begin);
        const bool isEnded = lineEnd >= 0;
        const qsizetype end = isEnded ? lineEnd : lines.size();
        masked += mask(lines.mid(begin, end - begin));
        // What is not ended stays so: it tells that the till was writing, or was cut off.
        if (isEnded)
            masked += '\n';
        begin = end + 1;
    }
    return masked;
}

QByteArray lastExchanges(const QByteArray &journal)
{
    QByteArrayList found;
    for (const QByteArray &line : journal.split('\n'))
        if (line.endsWith('}') && line.contains(R"("kind":"exchange")"))
            found.append(line);
    return "[\n" + found.mid(qMax<qsizetype>(0, found.size() - exchangesKept)).join(",\n")
        + "\n]\n";
}

} // namespace

StateFiles::StateFiles(QString stateFolder, const Secrets &secrets, Contents &contents)
    : m_stateFolder(std::move(stateFolder))
    , m_secrets(secrets)
    , m_contents(contents)
{ }

void StateFiles::add()
{
    if (!QFileInfo(m_stateFolder).isDir()) {
        m_contents.noteProblem(
            tr::Tr(u"bundleNoState"_s, u"%1: нет такой рабочей папки"_s).arg(m_stateFolder).ui());
        return;
    }
    addOpenDocument();
    addJournal();
    addLogs();
    addClosedDocuments();
}

QByteArray StateFiles::openDocument(const QString &stateFolder)
{
    QFile file(stateFolder + u"/document.json"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString StateFiles::nameOf(const QString &fileName) const
{
    return layout::state + QDir(m_stateFolder).relativeFilePath(fileName);
}

QByteArray StateFiles::read(const QString &fileName)
{
    QFile file(fileName);
    if (file.open(QIODevice::ReadOnly))
        return file.readAll();
    m_contents.noteProblem(fileName + u": "_s + file.errorString());
    return {};
}

// To mask what will not be taken would take long: a journal has years.
QByteArray StateFiles::readEnd(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        m_contents.noteProblem(fileName + u": "_s + file.errorString());
        return {};
    }
    const qint64 begin = file.size() - m_contents.mostOfOneFile();
    if (begin > 0 && file.seek(begin - 1)) {
        file.readLine();
        m_contents.noteLeftOut(nameOf(fileName), file.pos(), u"beginning"_s);
    }
    return file.readAll();
}

void StateFiles::addOpenDocument()
{
    const QByteArray document = openDocument(m_stateFolder);
    if (!document.isEmpty())
        m_contents.add(layout::state + u"document.json"_s, m_secrets.maskedJson(document));
}

void StateFiles::addJournal()
{
    const QString fileName = m_stateFolder + u"/journal.jsonl"_s;
    if (!QFileInfo::exists(fileName))
        return;
    const QByteArray masked = maskedLines(readEnd(fileName),
        [this](const QByteArray &line) { return m_secrets.maskedJson(line).trimmed(); });
    m_contents.add(layout::exchanges, lastExchanges(masked));
    m_contents.addEnd(nameOf(fileName), masked);
}

void StateFiles::addLogs()
{
    QList<QFileInfo> logs;
    for (QDirIterator files(m_stateFolder + u"/log"_s, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        files.next();
        logs.append(files.fileInfo());
    }
    std::sort(logs.begin(), logs.end(), [](const QFileInfo &left, const QFileInfo &right) {
        return left.lastModified() > right.lastModified();
    });
    for (const QFileInfo &log : logs)
        m_contents.addEnd(nameOf(log.filePath()),
            maskedLines(readEnd(log.filePath()), [this](const QByteArray &line) {
                return m_secrets.masked(QString::fromUtf8(line)).toUtf8();
            }));
}

void StateFiles::addClosedDocuments()
{
    QFileInfoList files = QDir(m_stateFolder + u"/closed"_s)
                              .entryInfoList({u"*.json"_s}, QDir::Files, QDir::NoSort);
    std::sort(files.begin(), files.end(), [](const QFileInfo &left, const QFileInfo &right) {
        return left.completeBaseName().toLongLong() > right.completeBaseName().toLongLong();
    });
    for (const QFileInfo &file : files)
        m_contents.add(nameOf(file.filePath()), m_secrets.maskedJson(read(file.filePath())));
}

} // namespace till::support
