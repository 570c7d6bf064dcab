#include "host/storage/journal.h"
#include "host/storage/statefolder.h"
#include "tests/powercut/marker.h"
#include "tests/powercut/programs/subjects.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <random>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr int lines = 300;
constexpr quint32 linesToAWriteBack = 12;

QString fileName()
{
    return Singleton<StateFolder>::instance()->journal();
}

void sync(const QString &name)
{
    const int descriptor = ::open(QFile::encodeName(name).constData(), O_RDONLY | O_CLOEXEC);
    if (::fsync(descriptor) != 0)
        throw std::runtime_error("cannot sync " + name.toStdString());
    ::close(descriptor);
}

// As the system does by itself after some seconds, which no recording sees.
void writeBack(int line)
{
    sync(fileName());
    sync(Singleton<StateFolder>::instance()->path());
    mark(u"settled %1"_s.arg(line));
}

// Writes as one must not: all of it anew, over the old contents.
void rewrite()
{
    QFile file(fileName());
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray contents = file.readAll();
    file.close();
    if (file.open(QIODevice::WriteOnly))
        file.write(contents);
}

} // namespace

void keepJournal(quint32 seed, bool plainly)
{
    std::mt19937 random(seed);
    for (int line = 1; line <= lines; ++line) {
        if (plainly)
            rewrite();
        Journal::append(samples::journalKind,
            {{u"line"_s, line}, {u"text"_s, samples::journalText(seed, line)}});
        mark(u"noted %1"_s.arg(line));
        if (random() % linesToAWriteBack == 0)
            writeBack(line);
    }
}

} // namespace powercut
